// An example plug-in: the `hypotenuse` node, whose output is the length of
// the hypotenuse of a right triangle with the two sides given as its inputs.
#include <OpenZyvo/ZApiVersion.h>
#include <OpenZyvo/ZDataBlock.h>
#include <OpenZyvo/ZFnNumericAttribute.h>
#include <OpenZyvo/ZFnPlugin.h>
#include <OpenZyvo/ZPlug.h>
#include <OpenZyvo/ZPxNode.h>
#include <cmath>

// The marker the host checks before it calls anything in the library.
ZYVO_DEFINE_API_VERSION;

namespace {

// No two node types in the host may share an id: registering a taken one fails.
const ZTypeId kHypotenuseId(0x7f0201);

class Hypotenuse : public ZPxNode {
public:
    static ZObject sideA, sideB, hypotenuse;

    static void* creator() { return new Hypotenuse; }

    static ZStatus initialize() {
        ZFnNumericAttribute numeric;
        sideA = numeric.create("sideA", "sa", ZFnNumericData::kDouble, 0.0);
        numeric.setKeyable(true);
        sideB = numeric.create("sideB", "sb", ZFnNumericData::kDouble, 0.0);
        numeric.setKeyable(true);
        hypotenuse = numeric.create("hypotenuse", "hyp", ZFnNumericData::kDouble, 0.0);
        // Computed, so neither set by hand nor saved with the scene.
        numeric.setWritable(false);
        numeric.setStorable(false);
        for (const ZObject& attribute : {sideA, sideB, hypotenuse})
            if (ZStatus status = addAttribute(attribute); !status)
                return status;
        if (ZStatus status = attributeAffects(sideA, hypotenuse); !status)
            return status;
        return attributeAffects(sideB, hypotenuse);
    }

    ZStatus compute(const ZPlug& plug, ZDataBlock& block) override {
        if (plug != hypotenuse)
            return ZStatus::kUnknownParameter;
        const double a = block.inputValue(sideA).asDouble();
        const double b = block.inputValue(sideB).asDouble();
        block.outputValue(hypotenuse).set(std::hypot(a, b));
        return block.setClean(plug);
    }
};

ZObject Hypotenuse::sideA;
ZObject Hypotenuse::sideB;
ZObject Hypotenuse::hypotenuse;

} // namespace

ZYVO_PLUGIN_EXPORT ZStatus initializePlugin(ZObject object) {
    ZStatus status;
    ZFnPlugin plugin(object, "Example", "1.0", "Any", &status);
    if (!status)
        return status;
    return plugin.registerNode("hypotenuse", kHypotenuseId, Hypotenuse::creator, Hypotenuse::initialize);
}

ZYVO_PLUGIN_EXPORT ZStatus uninitializePlugin(ZObject object) {
    ZFnPlugin plugin(object);
    return plugin.deregisterNode(kHypotenuseId);
}
