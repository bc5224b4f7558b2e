#include "svg/SvgNode.h"

namespace type {

void* svgNode::creator() {
    return new svgNode;
}

} // namespace type
