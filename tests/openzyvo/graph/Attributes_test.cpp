#include "TestNodes.h"

#include <OpenZyvo/ZCurveAttribute.h>
#include <OpenZyvo/ZDoubleArray.h>
#include <OpenZyvo/ZFnEnumAttribute.h>
#include <OpenZyvo/ZFnNumericAttribute.h>
#include <OpenZyvo/ZFnNumericData.h>
#include <OpenZyvo/ZFnStringData.h>
#include <OpenZyvo/ZFnTypedAttribute.h>
#include <OpenZyvo/ZFnUnitAttribute.h>
#include <OpenZyvo/ZIntArray.h>

using namespace graphtest;

class Attributes : public GraphTest {};

TEST_F(Attributes, FunctionSetsReportNamesFlagsAndRanges) {
    ZFnNumericAttribute level(Settings::level);
    EXPECT_EQ(level.name(), "level");
    EXPECT_EQ(level.shortName(), "lv");
    EXPECT_EQ(level.unitType(), ZFnNumericData::kInt);
    EXPECT_TRUE(level.isReadable() && level.isWritable() && level.isStorable() && level.isConnectable());
    EXPECT_FALSE(level.isKeyable() || level.isHidden() || level.isArray() || level.isDynamic());
    double low = 0, high = 0, soft = 0;
    EXPECT_TRUE(level.getMin(low) && level.getMax(high) && level.getSoftMax(soft));
    EXPECT_EQ(low, 0.0);
    EXPECT_EQ(high, 10.0);
    EXPECT_EQ(soft, 5.0);
    EXPECT_FALSE(level.hasSoftMin());

    ZFnAttribute child(Summer::weight);
    EXPECT_EQ(ZFnAttribute(child.parent()).name(), "groups");
    EXPECT_EQ(child.pathName(false), "grp.w");
    EXPECT_FALSE(ZFnNumericAttribute(Settings::label).setObject(Settings::label))
        << "a typed attribute is not numeric";
    EXPECT_EQ(ZFnUnitAttribute(Settings::angle).unitType(), ZFnUnitAttribute::kAngle);
}

TEST_F(Attributes, HardLimitsClampAndSoftLimitsDoNot) {
    ZObject node = create("graphTestSettings");
    ZPlug level = plug(node, "level");
    EXPECT_EQ(level.asInt(), 4);
    EXPECT_TRUE(level.setValue(7));
    EXPECT_EQ(level.asInt(), 7) << "above the soft maximum is fine";
    EXPECT_TRUE(level.setValue(42));
    EXPECT_EQ(level.asInt(), 10);
    EXPECT_TRUE(level.setValue(-3));
    EXPECT_EQ(level.asInt(), 0);
    EXPECT_TRUE(level.setValue(2.6));
    EXPECT_EQ(level.asInt(), 3) << "integers round";
}

TEST_F(Attributes, EnumsRefuseValuesThatAreNoField) {
    ZObject node = create("graphTestSettings");
    ZPlug mode = plug(node, "mode");
    EXPECT_EQ(mode.asShort(), 1);
    EXPECT_EQ(mode.setValue(0).statusCode(), ZStatus::kInvalidParameter);
    EXPECT_EQ(mode.setValue(2).statusCode(), ZStatus::kInvalidParameter);
    EXPECT_EQ(mode.asShort(), 1);
    EXPECT_TRUE(mode.setValue(3));
    EXPECT_EQ(mode.asShort(), 3);

    ZFnEnumAttribute fn(Settings::mode);
    EXPECT_EQ(fn.fieldName(3), "Inner");
    EXPECT_EQ(fn.fieldValue("Outer"), 1);
    EXPECT_FALSE(fn.addField("Outer", 7)) << "names are unique";
    short low = 0, high = 0;
    EXPECT_TRUE(fn.getMin(low) && fn.getMax(high));
    EXPECT_EQ(low, 1);
    EXPECT_EQ(high, 3);
}

TEST_F(Attributes, UnitValuesLiveInInternalUnits) {
    ZObject node = create("graphTestSettings");
    EXPECT_DOUBLE_EQ(plug(node, "distance").asDouble(), 200.0);
    EXPECT_DOUBLE_EQ(plug(node, "distance").asDistance().as(ZDistance::kMeters), 2.0);
    EXPECT_NEAR(plug(node, "angle").asAngle().asDegrees(), 90.0, 1e-12);
    EXPECT_TRUE(plug(node, "angle").setValue(ZAngle(180.0, ZAngle::kDegrees)));
    EXPECT_NEAR(plug(node, "angle").asDouble(), 3.14159265358979, 1e-12);
}

TEST_F(Attributes, TypedDefaultsAreClonedPerNode) {
    ZObject first = create("graphTestSettings"), second = create("graphTestSettings");
    EXPECT_EQ(plug(first, "label").asString(), "hello");
    EXPECT_TRUE(plug(first, "label").setValue("changed"));
    EXPECT_EQ(plug(second, "label").asString(), "hello");
    ZObject defaultData;
    ZFnTypedAttribute(Settings::label).getDefault(defaultData);
    EXPECT_EQ(ZFnStringData(defaultData).string(), "hello");

    ZFnStringData other;
    EXPECT_TRUE(plug(second, "label").setValue(other.create("shared")));
    other.set("edited");
    EXPECT_EQ(plug(second, "label").asString(), "edited") << "setting a data object stores it, not a copy";
    EXPECT_EQ(plug(second, "level").setValue(other.object()).statusCode(), ZStatus::kInvalidParameter);
}

TEST_F(Attributes, DynamicAttributesBelongToOneNode) {
    ZObject node = create("graphTestAdder"), other = create("graphTestAdder");
    ZFnNumericAttribute numeric;
    ZObject extra = numeric.create("extraValue", "ev", ZFnNumericData::kFloat, 1.5);
    ZFnDependencyNode fn(node);
    const unsigned int before = fn.attributeCount();
    ASSERT_TRUE(fn.addAttribute(extra));
    EXPECT_EQ(fn.attributeCount(), before + 1);
    EXPECT_TRUE(ZFnAttribute(extra).isDynamic());
    EXPECT_TRUE(fn.hasAttribute("ev"));
    EXPECT_FALSE(ZFnDependencyNode(other).hasAttribute("extraValue"));
    EXPECT_FALSE(ZFnDependencyNode(other).addAttribute(extra)) << "an attribute joins one node only";
    ZFnNumericAttribute clash;
    EXPECT_FALSE(fn.addAttribute(clash.create("input", "zz", ZFnNumericData::kDouble)));

    ZPlug value = plug(node, "extraValue");
    EXPECT_TRUE(value.isDynamic());
    EXPECT_FLOAT_EQ(value.asFloat(), 1.5f);
    EXPECT_TRUE(value.setValue(2.25));
    EXPECT_DOUBLE_EQ(value.asDouble(), 2.25);

    ASSERT_TRUE(fn.removeAttribute(extra));
    EXPECT_TRUE(value.isNull());
    EXPECT_FALSE(fn.hasAttribute("extraValue"));
    EXPECT_EQ(fn.removeAttribute(Adder::input).statusCode(), ZStatus::kNotFound) << "static ones stay";
}

TEST_F(Attributes, CurvesInterpolateThroughSortedPointsAndClamp) {
    ZObject node = create("graphTestSettings");
    ZCurveAttribute curve(node, Settings::profile);
    ASSERT_TRUE(curve.isCurveAttribute());
    EXPECT_EQ(curve.numEntries(), 0u);
    double value = -1.0;
    EXPECT_TRUE(curve.getValueAtPosition(0.5, value));
    EXPECT_EQ(value, 0.0);

    ASSERT_TRUE(curve.setCurve(ZDoubleArray{1.0, 0.0, 0.5}, ZDoubleArray{10.0, 0.0, 2.0}));
    EXPECT_EQ(curve.numEntries(), 3u);
    ZDoubleArray samples;
    ASSERT_TRUE(curve.getValuesAtPositions(ZDoubleArray{-1.0, 0.0, 0.25, 0.75, 1.0, 2.0}, samples));
    EXPECT_EQ(samples, (ZDoubleArray{0.0, 0.0, 1.0, 6.0, 10.0, 10.0}));
    EXPECT_DOUBLE_EQ(plug(node, "profile[2].profile_FloatValue").asDouble(), 2.0);

    ASSERT_TRUE(curve.setCurve(ZDoubleArray{0.0, 1.0}, ZDoubleArray{1.0, 3.0}));
    ZIntArray indices;
    ZDoubleArray positions, values;
    ASSERT_TRUE(curve.getEntries(indices, positions, values));
    EXPECT_EQ(indices, (ZIntArray{0, 1}));
    EXPECT_EQ(values, (ZDoubleArray{1.0, 3.0}));
    EXPECT_FALSE(curve.setCurve(ZDoubleArray{0.0}, ZDoubleArray{}));
    EXPECT_FALSE(ZCurveAttribute(node, Settings::level).isCurveAttribute());
}

TEST_F(Attributes, NumericTupleGettersKeepTheCallersValuesOnFailure) {
    ZFnNumericData fn;
    const ZObject triple = fn.create(ZFnNumericData::k3Int);
    ASSERT_FALSE(triple.isNull());
    ASSERT_TRUE(fn.setData3Int(4, 5, 6));

    int a = -1, b = -2;
    EXPECT_FALSE(fn.getData2Int(a, b));
    EXPECT_EQ(a, -1);
    EXPECT_EQ(b, -2);
    float x = 0.5f, y = 1.5f;
    EXPECT_FALSE(fn.getData2Float(x, y));
    EXPECT_EQ(x, 0.5f);
    EXPECT_EQ(y, 1.5f);

    double p = 0.0, q = 0.0, r = 0.0;
    EXPECT_TRUE(fn.getData3Double(p, q, r));
    EXPECT_EQ(p, 4.0);
    EXPECT_EQ(r, 6.0);
}
