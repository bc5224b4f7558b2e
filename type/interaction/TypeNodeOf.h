#pragma once

#include <OpenZyvo/ZObject.h>

namespace type {

// The "type" node that drives `object`: the text objects the plug-in builds
// connect the "message" plug of each of their nodes to the type node. Null
// when no such node is connected.
ZObject typeNodeOf(const ZObject& object);

} // namespace type
