#pragma once

#include <OpenZyvo/ZString.h>

namespace oz {

// Node and type names: a letter or underscore, then letters, digits and
// underscores.
bool isValidName(const ZString& name);

// `name` without its trailing digits ("type12" gives "type").
ZString nameStem(const ZString& name);

} // namespace oz
