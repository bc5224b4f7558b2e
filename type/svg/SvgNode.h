#pragma once

#include <OpenZyvo/ZPxNode.h>

namespace type {

// The "svgToPoly" node: SVG artwork in, the same flat mesh and output record
// as the type node out. For now it holds the flag that older scenes may carry;
// the rest of its attributes are still to come.
class svgNode : public ZPxNode {
public:
    static constexpr unsigned int kTypeId = 0x123C11;
    static constexpr const char* kTypeName = "svgToPoly";

    static void* creator();
    static ZStatus initialize();

    static ZObject legacy2018;
};

} // namespace type
