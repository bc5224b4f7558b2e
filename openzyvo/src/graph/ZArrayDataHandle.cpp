#include "core/StatusOut.h"
#include "graph/HandleAccess.h"

#include <OpenZyvo/ZArrayDataHandle.h>
#include <iterator>

using oz::Slot;

unsigned int ZArrayDataHandle::elementCount(ZStatus* status) const {
    oz::setStatus(status, m_slot ? ZStatus::kSuccess : ZStatus::kInvalidParameter);
    return m_slot ? static_cast<unsigned int>(m_slot->elements.size()) : 0;
}

unsigned int ZArrayDataHandle::elementIndex(ZStatus* status) const {
    const bool ok = m_slot && m_hasCurrent && m_slot->elements.count(m_current);
    oz::setStatus(status, ok ? ZStatus::kSuccess : ZStatus::kInvalidParameter);
    return ok ? m_current : 0;
}

ZStatus ZArrayDataHandle::jumpToElement(unsigned int logicalIndex) {
    if (!m_slot || !m_slot->elements.count(logicalIndex))
        return ZStatus::kInvalidParameter;
    m_current = logicalIndex;
    m_hasCurrent = true;
    return ZStatus::kSuccess;
}

ZStatus ZArrayDataHandle::jumpToArrayElement(unsigned int position) {
    if (!m_slot || position >= m_slot->elements.size())
        return ZStatus::kInvalidParameter;
    m_current = std::next(m_slot->elements.begin(), position)->first;
    m_hasCurrent = true;
    return ZStatus::kSuccess;
}

ZStatus ZArrayDataHandle::next() {
    if (!m_slot || !m_hasCurrent)
        return ZStatus::kFailure;
    auto it = m_slot->elements.upper_bound(m_current);
    if (it == m_slot->elements.end())
        return ZStatus::kFailure;
    m_current = it->first;
    return ZStatus::kSuccess;
}

ZDataHandle ZArrayDataHandle::inputValue(ZStatus* status) const {
    Slot* element = nullptr;
    if (m_slot && m_hasCurrent) {
        auto it = m_slot->elements.find(m_current);
        element = it == m_slot->elements.end() ? nullptr : &it->second;
    }
    oz::setStatus(status, element ? ZStatus::kSuccess : ZStatus::kInvalidParameter);
    return element ? oz::HandleAccess::make(element, m_attr) : ZDataHandle();
}

ZDataHandle ZArrayDataHandle::outputValue(ZStatus* status) const {
    return inputValue(status);
}

ZArrayDataBuilder ZArrayDataHandle::builder(ZStatus* status) const {
    if (!m_slot || !m_attr) {
        oz::setStatus(status, ZStatus::kInvalidParameter);
        return ZArrayDataBuilder();
    }
    auto state = std::make_shared<oz::BuilderState>();
    state->attribute = std::static_pointer_cast<oz::Attribute>(
        std::const_pointer_cast<oz::Object>(m_attr->shared_from_this()));
    state->elements = m_slot->elements;
    oz::setStatus(status, ZStatus::kSuccess);
    return oz::BuilderAccess::make(std::move(state));
}

ZStatus ZArrayDataHandle::set(const ZArrayDataBuilder& builder) {
    const oz::BuilderState* state = oz::BuilderAccess::state(builder);
    if (!m_slot || !state || state->attribute.get() != m_attr)
        return ZStatus::kInvalidParameter;
    m_slot->elements = state->elements;
    m_hasCurrent = !m_slot->elements.empty();
    m_current = m_hasCurrent ? m_slot->elements.begin()->first : 0;
    return ZStatus::kSuccess;
}

ZStatus ZArrayDataHandle::setAllClean() {
    if (!m_slot)
        return ZStatus::kInvalidParameter;
    oz::setDirtyTree(*m_slot, false);
    return ZStatus::kSuccess;
}

void ZArrayDataHandle::setClean() {
    if (m_slot)
        m_slot->dirty = false;
}
