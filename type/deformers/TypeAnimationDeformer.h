#pragma once

#include <OpenZyvo/ZPxDeformerNode.h>

namespace type {

// The "shellDeformer" node: animates every character, word or line of a text
// mesh as a rigid piece, each at its own delayed time. It holds for now the
// inputs a text object wires to it; the animation itself is still to come.
class TypeAnimationDeformer : public ZPxDeformerNode {
public:
    static constexpr unsigned int kTypeId = 0x11BE0D;
    static constexpr const char* kTypeName = "shellDeformer";

    static void* creator();
    static ZStatus initialize();

    static ZObject time;
    static ZObject solidsPerCharacter;
    static ZObject solidsPerWord;
    static ZObject solidsPerLine;
    static ZObject grouping;
    static ZObject vertsPerChar;
    static ZObject vertexGroupIds;
};

} // namespace type
