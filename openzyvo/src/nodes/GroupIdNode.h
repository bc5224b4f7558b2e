#pragma once

#include <OpenZyvo/ZPxNode.h>

namespace oz::nodes {

// Holds the id of an object group. Connected to `objectGroupId` of a shape's object group, it
// names which group of the shape's mesh data that member of a set stands for.
class GroupIdNode : public ZPxNode {
public:
    static constexpr const char* kTypeName = "groupId";
    static constexpr unsigned int kId = 0x47524944u; // "GRID"

    static ZObject groupId;

    static ZPxNode* creator() { return new GroupIdNode; }
    static ZStatus initialize();
};

} // namespace oz::nodes
