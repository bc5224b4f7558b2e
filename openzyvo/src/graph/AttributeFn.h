#pragma once

#include "core/StatusOut.h"
#include "graph/Attribute.h"

#include <OpenZyvo/ZFnBase.h>

namespace oz {

// The attribute a function set is attached to, when it is of the set's kind.
inline Attribute* attributeFor(const ZFnBase& fn, ZStatus* status = nullptr) {
    Attribute* attribute = fn.hasObj(fn.object()) ? attributeOf(fn.object()) : nullptr;
    setStatus(status, attribute ? ZStatus::kSuccess : ZStatus::kInvalidParameter);
    return attribute;
}

// A new attribute of `kind`, wrapped; empty on an empty long name.
inline ZObject newAttribute(Attribute::Kind kind, const ZString& longName, const ZString& shortName,
                            std::shared_ptr<Attribute>& made, ZStatus* status) {
    if (longName.isEmpty()) {
        setStatus(status, ZStatus::kInvalidParameter);
        return ZObject();
    }
    made = std::make_shared<Attribute>(kind, longName, shortName.isEmpty() ? longName : shortName);
    setStatus(status, ZStatus::kSuccess);
    return ObjectAccess::wrap(made);
}

} // namespace oz
