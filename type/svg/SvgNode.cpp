#include "svg/SvgNode.h"

#include "plugin/AttributeSchema.h"

namespace type {

ZObject svgNode::legacy2018;

void* svgNode::creator() {
    return new svgNode;
}

ZStatus svgNode::initialize() {
    AttributeSchema schema("svgNode");
    legacy2018 = schema.numeric("legacy2018", ZFnNumericData::kBoolean, 0.0);
    schema.add(legacy2018);
    return schema.status();
}

} // namespace type
