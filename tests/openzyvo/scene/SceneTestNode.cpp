#include "SceneTestNode.h"

#include "graph/NodeTypeRegistry.h"

#include <OpenZyvo/ZCurveAttribute.h>
#include <OpenZyvo/ZDataBlock.h>
#include <OpenZyvo/ZDoubleArray.h>
#include <OpenZyvo/ZFileIO.h>
#include <OpenZyvo/ZFnEnumAttribute.h>
#include <OpenZyvo/ZFnNumericAttribute.h>
#include <OpenZyvo/ZFnStringData.h>
#include <OpenZyvo/ZFnTypedAttribute.h>
#include <OpenZyvo/ZFnUnitAttribute.h>
#include <OpenZyvo/ZGlobal.h>
#include <OpenZyvo/ZPlug.h>
#include <gtest/gtest.h>
#include <utility>

ZObject SceneTestNode::weight, SceneTestNode::mode, SceneTestNode::label, SceneTestNode::samples,
    SceneTestNode::profile, SceneTestNode::spin, SceneTestNode::input, SceneTestNode::output;
std::string SceneTestNode::scriptAfterCompute;
ZStatus SceneTestNode::scriptStatus;
bool SceneTestNode::constructedWhileReading = false;
unsigned int SceneTestNode::profilePointsAtConstruction = 0;

namespace {

ZStatus initialize() {
    ZFnNumericAttribute numeric;
    SceneTestNode::weight = numeric.create("weight", "wt", ZFnNumericData::kDouble, 1.0);
    numeric.setMin(0.0);
    numeric.setMax(10.0);
    numeric.setKeyable(true);
    SceneTestNode::input = numeric.create("input", "in", ZFnNumericData::kDouble, 0.0);
    numeric.setKeyable(true);
    SceneTestNode::output = numeric.create("output", "out", ZFnNumericData::kDouble, 0.0);
    numeric.setWritable(false);
    numeric.setStorable(false);

    ZFnEnumAttribute enumFn;
    SceneTestNode::mode = enumFn.create("mode", "md", 1);
    enumFn.addField("Off", 0);
    enumFn.addField("On", 1);
    enumFn.addField("Auto", 5);

    ZFnTypedAttribute typed;
    SceneTestNode::label = typed.create("label", "lb", ZFnData::kString, ZFnStringData().create("none"));
    SceneTestNode::samples = typed.create("samples", "smp", ZFnData::kDoubleArray);
    SceneTestNode::profile = ZCurveAttribute::createCurveAttr("profile", "pf");
    SceneTestNode::spin = ZFnUnitAttribute().create("spin", "sp", ZFnUnitAttribute::kAngle, 0.0);

    for (const ZObject* a :
         {&SceneTestNode::weight, &SceneTestNode::input, &SceneTestNode::output, &SceneTestNode::mode,
          &SceneTestNode::label, &SceneTestNode::samples, &SceneTestNode::profile, &SceneTestNode::spin})
        if (ZStatus status = ZPxNode::addAttribute(*a); !status)
            return status;
    return ZPxNode::attributeAffects(SceneTestNode::input, SceneTestNode::output);
}

} // namespace

void SceneTestNode::registerType() {
    if (oz::NodeTypeRegistry::instance().find(kTypeName))
        return;
    oz::NodeTypeInfo info;
    info.name = kTypeName;
    info.id = 0x7e5c0001u;
    info.creator = [] {
        return static_cast<ZPxNode*>(new SceneTestNode);
    };
    info.initializer = initialize;
    ZString error;
    ASSERT_EQ(oz::NodeTypeRegistry::instance().registerType(std::move(info), &error), ZStatus::kSuccess)
        << error.asChar();
}

void SceneTestNode::postConstructor() {
    ZCurveAttribute curve(thisZObject(), profile);
    constructedWhileReading = ZFileIO::isReadingFile();
    profilePointsAtConstruction = curve.numEntries();
    if (!constructedWhileReading || profilePointsAtConstruction < 2) {
        ZDoubleArray positions, values;
        positions.append(0.0);
        positions.append(1.0);
        values.append(0.0);
        values.append(1.0);
        curve.setCurve(positions, values);
    }
}

ZStatus SceneTestNode::compute(const ZPlug& plug, ZDataBlock& block) {
    if (!(plug == output))
        return ZStatus::kUnknownParameter;
    ZDataHandle out = block.outputValue(output);
    out.set(2.0 * block.inputValue(input).asDouble());
    out.setClean();
    if (!scriptAfterCompute.empty())
        scriptStatus = ZGlobal::executeCommand(ZString(std::exchange(scriptAfterCompute, std::string())));
    return ZStatus::kSuccess;
}
