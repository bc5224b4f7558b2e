#include <OpenZyvoUI/ZPxLocatorNode.h>

ZPxLocatorNode::ZPxLocatorNode() = default;
ZPxLocatorNode::~ZPxLocatorNode() = default;

bool ZPxLocatorNode::isBounded() const {
    return false;
}

ZBoundingBox ZPxLocatorNode::boundingBox() const {
    return ZBoundingBox();
}
