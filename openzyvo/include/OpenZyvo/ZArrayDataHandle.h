#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZArrayDataBuilder.h>
#include <OpenZyvo/ZDataHandle.h>

namespace oz {
struct ArrayHandleAccess;
}

// The elements of an array value in a data block, visited one at a time.
// Elements are sparse: their logical indices need not be contiguous.
class OZ_API ZArrayDataHandle {
public:
    ZArrayDataHandle() = default;

    unsigned int elementCount(ZStatus* status = nullptr) const;
    // Logical index of the current element.
    unsigned int elementIndex(ZStatus* status = nullptr) const;
    // Moves to the element with this logical index; fails when it does not exist.
    ZStatus jumpToElement(unsigned int logicalIndex);
    // Moves to the element at this position in ascending index order.
    ZStatus jumpToArrayElement(unsigned int position);
    // Moves to the next element; fails after the last.
    ZStatus next();

    ZDataHandle inputValue(ZStatus* status = nullptr) const;
    ZDataHandle outputValue(ZStatus* status = nullptr) const;

    // A builder holding a copy of the current elements; set() it back.
    ZArrayDataBuilder builder(ZStatus* status = nullptr) const;
    // Replaces every element with those of the builder.
    ZStatus set(const ZArrayDataBuilder& builder);
    ZStatus setAllClean();
    void setClean();

private:
    friend struct oz::ArrayHandleAccess;
    oz::Slot* m_slot = nullptr;
    const oz::Attribute* m_attr = nullptr;
    unsigned int m_current = 0;
    bool m_hasCurrent = false;
};
