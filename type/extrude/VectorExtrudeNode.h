#pragma once

#include <OpenZyvo/ZPxNode.h>

namespace type {

// The "vectorExtrude" node, the earlier extrusion that older scenes use. Its
// class name keeps the lower case it always had; its attributes are still
// to come.
class typeExtrude : public ZPxNode {
public:
    static constexpr unsigned int kTypeId = 0x11BE2C;
    static constexpr const char* kTypeName = "vectorExtrude";

    static void* creator();
    static ZStatus initialize();
};

} // namespace type
