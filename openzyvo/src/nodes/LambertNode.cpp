#include "nodes/LambertNode.h"

#include <OpenZyvo/ZDataBlock.h>
#include <OpenZyvo/ZFnNumericAttribute.h>
#include <OpenZyvo/ZPlug.h>

namespace oz::nodes {

ZObject LambertNode::color, LambertNode::outColor;

ZStatus LambertNode::initialize() {
    ZFnNumericAttribute fn;
    ZStatus status;
    color = fn.createColor("color", "c", &status);
    if (!status)
        return status;
    fn.setDefault(0.5, 0.5, 0.5);
    fn.setKeyable(true);
    outColor = fn.createColor("outColor", "oc", &status);
    if (!status)
        return status;
    fn.setWritable(false);
    fn.setStorable(false);
    for (const ZObject& attribute : {color, outColor})
        if (!(status = addAttribute(attribute)))
            return status;
    return attributeAffects(color, outColor);
}

ZStatus LambertNode::compute(const ZPlug& plug, ZDataBlock& block) {
    if (!(plug == outColor))
        return ZStatus::kUnknownParameter;
    ZStatus status;
    const auto rgb = block.inputValue(color, &status).asFloat3();
    if (!status)
        return status;
    ZDataHandle out = block.outputValue(outColor, &status);
    if (!status)
        return status;
    out.set3Float(rgb[0], rgb[1], rgb[2]);
    return block.setClean(outColor);
}

} // namespace oz::nodes
