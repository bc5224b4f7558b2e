#pragma once

#include <OpenZyvo/ZPxNode.h>

namespace type {

// The "typeExtrude" node: turns the flat text mesh into a solid with caps,
// bevels and walls. It holds for now the plugs a text object wires through
// it; the extrusion itself is still to come.
class TypeExtrude : public ZPxNode {
public:
    static constexpr unsigned int kTypeId = 0x123C25;
    static constexpr const char* kTypeName = "typeExtrude";

    static void* creator();
    static ZStatus initialize();

    static ZObject inputMesh;
    static ZObject outputMesh;
    static ZObject charGroupId;
    static ZObject vertsPerChar;
    static ZObject vertexGroupIds;
};

} // namespace type
