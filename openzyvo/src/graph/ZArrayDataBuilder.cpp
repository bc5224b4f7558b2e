#include "core/StatusOut.h"
#include "graph/HandleAccess.h"

#include <OpenZyvo/ZArrayDataBuilder.h>

ZArrayDataBuilder::ZArrayDataBuilder(ZDataBlock*, const ZObject& attribute, unsigned int initialSize,
                                     ZStatus* status)
    : ZArrayDataBuilder(attribute, initialSize, status) {}

ZArrayDataBuilder::ZArrayDataBuilder(const ZObject& attribute, unsigned int, ZStatus* status) {
    auto a = oz::sharedAttributeOf(attribute);
    oz::setStatus(status, a && a->flags.array ? ZStatus::kSuccess : ZStatus::kInvalidParameter);
    if (!a || !a->flags.array)
        return;
    m_state = std::make_shared<oz::BuilderState>();
    m_state->attribute = std::move(a);
}

ZDataHandle ZArrayDataBuilder::addElement(unsigned int logicalIndex, ZStatus* status) {
    if (!m_state || logicalIndex > 0x7fffffffu) {
        oz::setStatus(status, ZStatus::kInvalidParameter);
        return ZDataHandle();
    }
    auto it = m_state->elements.find(logicalIndex);
    if (it == m_state->elements.end())
        it = m_state->elements.emplace(logicalIndex, oz::makeSlot(*m_state->attribute, true)).first;
    oz::setStatus(status, ZStatus::kSuccess);
    return oz::HandleAccess::make(&it->second, m_state->attribute.get());
}

ZDataHandle ZArrayDataBuilder::addLast(ZStatus* status) {
    const unsigned int next =
        m_state && !m_state->elements.empty() ? m_state->elements.rbegin()->first + 1 : 0;
    return addElement(next, status);
}

ZStatus ZArrayDataBuilder::removeElement(unsigned int logicalIndex) {
    if (!m_state || !m_state->elements.erase(logicalIndex))
        return ZStatus::kInvalidParameter;
    return ZStatus::kSuccess;
}

unsigned int ZArrayDataBuilder::elementCount(ZStatus* status) const {
    oz::setStatus(status, m_state ? ZStatus::kSuccess : ZStatus::kInvalidParameter);
    return m_state ? static_cast<unsigned int>(m_state->elements.size()) : 0;
}

ZStatus ZArrayDataBuilder::growArray(unsigned int) {
    return m_state ? ZStatus::kSuccess : ZStatus::kInvalidParameter;
}
