#include "nodes/GroupIdNode.h"

#include <OpenZyvo/ZFnNumericAttribute.h>

namespace oz::nodes {

ZObject GroupIdNode::groupId;

ZStatus GroupIdNode::initialize() {
    ZFnNumericAttribute fn;
    ZStatus status;
    groupId = fn.create("groupId", "id", ZFnNumericData::kInt, 0.0, &status);
    if (!status)
        return status;
    return addAttribute(groupId);
}

} // namespace oz::nodes
