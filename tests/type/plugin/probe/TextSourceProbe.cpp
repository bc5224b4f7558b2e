#include "textnode/FontNode.h"
#include "textnode/NodeTextSource.h"

#include <OpenZyvo/ZApiVersion.h>
#include <OpenZyvo/ZDataBlock.h>
#include <OpenZyvo/ZFnPlugin.h>
#include <OpenZyvo/ZFnTypedAttribute.h>
#include <OpenZyvo/ZPlug.h>
#include <iostream>

// A test plug-in: a type node that also shows, on an output of its own, the
// text its compute would lay out now. It carries its own copy of the type
// node's code, registered under a test name and id.
ZYVO_DEFINE_API_VERSION;

namespace {

class TextSourceProbe : public type::fontNode {
public:
    static constexpr unsigned int kTypeId = 0x7F0001;
    static inline ZObject hexText;

    static void* creator() { return new TextSourceProbe; }

    static ZStatus initialize() {
        if (ZStatus status = fontNode::initialize(); !status)
            return status;
        ZFnTypedAttribute fn;
        ZStatus status;
        hexText = fn.create("hexText", "hx", ZFnData::kString, ZObject::kNullObj, &status);
        if (!status || !(status = fn.setWritable(false)) || !(status = fn.setStorable(false)) ||
            !(status = addAttribute(hexText)))
            return status;
        for (const ZObject& input :
             {generator, time, textInput, countdown, changeRate, randomRange, length, decimalPlaces,
              randomSeed, percent, reverse, random, delay, randomizerMode, animatedType, pythonExpression})
            if (!(status = attributeAffects(input, hexText)))
                return status;
        return status;
    }

    ZStatus compute(const ZPlug& plug, ZDataBlock& block) override {
        if (!(plug == hexText))
            return fontNode::compute(plug, block);
        const std::string text = type::currentHexText(block, thisZObject(), std::cout);
        block.outputValue(hexText).set(ZString(text));
        return block.setClean(plug);
    }
};

} // namespace

ZYVO_PLUGIN_EXPORT ZStatus initializePlugin(ZObject object) {
    ZFnPlugin plugin(object, "Type tests", "1", "Any");
    return plugin.registerNode("textSourceProbe", TextSourceProbe::kTypeId, TextSourceProbe::creator,
                               TextSourceProbe::initialize);
}

ZYVO_PLUGIN_EXPORT ZStatus uninitializePlugin(ZObject object) {
    return ZFnPlugin(object).deregisterNode(TextSourceProbe::kTypeId);
}
