#pragma once

#include <OpenZyvo/ZPxNode.h>

namespace type {

// The "typeManip" manipulator container: move, rotate and scale handles that
// edit the adjustments of one character, word or line of a type node. It
// registers as a manipulator container; the handles are still to come.
class typeManip : public ZPxNode {
public:
    static constexpr unsigned int kTypeId = 0x11BE17;
    static constexpr const char* kTypeName = "typeManip";

    static void* creator();
    static ZStatus initialize();
};

} // namespace type
