#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZDataHandle.h>
#include <memory>

class ZDataBlock;

namespace oz {
struct BuilderState;
struct BuilderAccess;
} // namespace oz

// Builds the elements of an array value away from the data block; hand it to
// ZArrayDataHandle::set() to install them. Copies share their elements.
class OZ_API ZArrayDataBuilder {
public:
    ZArrayDataBuilder() = default;
    // `initialSize` reserves room; it adds no elements.
    ZArrayDataBuilder(ZDataBlock* block, const ZObject& attribute, unsigned int initialSize,
                      ZStatus* status = nullptr);
    ZArrayDataBuilder(const ZObject& attribute, unsigned int initialSize, ZStatus* status = nullptr);

    // The element at `logicalIndex`, created with the attribute's default when missing.
    ZDataHandle addElement(unsigned int logicalIndex, ZStatus* status = nullptr);
    // A new element after the highest logical index.
    ZDataHandle addLast(ZStatus* status = nullptr);
    ZStatus removeElement(unsigned int logicalIndex);
    unsigned int elementCount(ZStatus* status = nullptr) const;
    ZStatus growArray(unsigned int amount);

private:
    friend struct oz::BuilderAccess;
    std::shared_ptr<oz::BuilderState> m_state;
};
