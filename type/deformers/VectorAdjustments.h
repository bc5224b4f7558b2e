#pragma once

#include <OpenZyvo/ZPxDeformerNode.h>

namespace type {

// The "vectorAdjust" node: applies the per-character, per-word and per-line
// adjustments the type manipulator records. It holds for now the inputs a
// text object wires to it; the adjustments themselves are still to come.
class vectorAdjustments : public ZPxDeformerNode {
public:
    static constexpr unsigned int kTypeId = 0x123C01;
    static constexpr const char* kTypeName = "vectorAdjust";

    static void* creator();
    static ZStatus initialize();

    static ZObject solidsPerCharacter;
    static ZObject solidsPerWord;
    static ZObject solidsPerLine;
    static ZObject grouping;
    static ZObject vertsPerChar;
    static ZObject vertexGroupIds;
};

} // namespace type
