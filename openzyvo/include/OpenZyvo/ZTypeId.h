#pragma once

#include <OpenZyvo/ZApiExport.h>

// The 32-bit identifier of a node type. Scene files store it, so a type keeps
// its id for life.
class OZ_API ZTypeId {
public:
    ZTypeId() = default;
    ZTypeId(unsigned int id)
        : m_id(id) {}
    // A vendor block prefix (upper 24 bits) and an id within the block.
    ZTypeId(unsigned int prefix, unsigned int id)
        : m_id((prefix << 8) | (id & 0xffu)) {}

    unsigned int id() const { return m_id; }

    friend bool operator==(const ZTypeId& a, const ZTypeId& b) { return a.m_id == b.m_id; }

private:
    unsigned int m_id = 0;
};
