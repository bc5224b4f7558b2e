#pragma once

#include "graph/Attribute.h"
#include "graph/Slot.h"

#include <OpenZyvo/ZArrayDataBuilder.h>
#include <OpenZyvo/ZArrayDataHandle.h>
#include <OpenZyvo/ZDataHandle.h>
#include <map>
#include <memory>

namespace oz {

struct HandleAccess {
    static ZDataHandle make(Slot* slot, const Attribute* attribute) {
        ZDataHandle handle;
        handle.m_slot = slot;
        handle.m_attr = attribute;
        return handle;
    }
    static Slot* slot(const ZDataHandle& handle) { return handle.m_slot; }
    static const Attribute* attribute(const ZDataHandle& handle) { return handle.m_attr; }
};

struct ArrayHandleAccess {
    static ZArrayDataHandle make(Slot* slot, const Attribute* attribute) {
        ZArrayDataHandle handle;
        handle.m_slot = slot;
        handle.m_attr = attribute;
        handle.m_hasCurrent = slot && !slot->elements.empty();
        handle.m_current = handle.m_hasCurrent ? slot->elements.begin()->first : 0;
        return handle;
    }
};

// Elements being built for an array attribute.
struct BuilderState {
    std::shared_ptr<Attribute> attribute;
    std::map<unsigned int, Slot> elements;
};

struct BuilderAccess {
    static ZArrayDataBuilder make(std::shared_ptr<BuilderState> state) {
        ZArrayDataBuilder builder;
        builder.m_state = std::move(state);
        return builder;
    }
    static BuilderState* state(const ZArrayDataBuilder& builder) { return builder.m_state.get(); }
};

} // namespace oz
