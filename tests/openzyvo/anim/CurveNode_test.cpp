#include "AnimScene.h"

#include <OpenZyvo/ZDGContextGuard.h>
#include <OpenZyvo/ZDGModifier.h>
#include <OpenZyvo/ZDoubleArray.h>
#include <OpenZyvo/ZTimeArray.h>
#include <OpenZyvoAnim/ZAnimControl.h>
#include <OpenZyvoAnim/ZFnAnimCurve.h>
#include <cmath>
#include <numbers>

namespace {

// A curve on `plug` rising linearly from 0 at frame 1 to 10 at frame 11.
ZFnAnimCurve rampOn(const ZPlug& plug) {
    ZFnAnimCurve fn;
    ZStatus status;
    fn.create(plug, nullptr, &status);
    EXPECT_EQ(status, ZStatus::kSuccess);
    EXPECT_EQ(fn.addKey(ZTime(11.0, ZTime::kFilm), 10.0, ZFnAnimCurve::kTangentLinear,
                        ZFnAnimCurve::kTangentLinear),
              ZStatus::kSuccess);
    EXPECT_EQ(
        fn.addKey(ZTime(1.0, ZTime::kFilm), 0.0, ZFnAnimCurve::kTangentLinear, ZFnAnimCurve::kTangentLinear),
        ZStatus::kSuccess);
    return fn;
}

} // namespace

TEST_F(AnimScene, KeyedAttributeFollowsTheCurrentTime) {
    const ZObject node = makeNode();
    const ZPlug value(node, AnimTestNode::value), doubled(node, AnimTestNode::doubled);
    const ZFnAnimCurve fn = rampOn(value);
    EXPECT_EQ(fn.animCurveType(), ZFnAnimCurve::kAnimCurveTU);
    EXPECT_EQ(fn.typeName(), ZString("animCurveTU"));

    ASSERT_EQ(ZAnimControl::setCurrentTime(frame(6)), ZStatus::kSuccess);
    EXPECT_DOUBLE_EQ(value.asDouble(), 5.0);
    EXPECT_DOUBLE_EQ(doubled.asDouble(), 10.0);
    ZAnimControl::setCurrentTime(frame(11));
    EXPECT_DOUBLE_EQ(doubled.asDouble(), 20.0);
    ZAnimControl::setCurrentTime(frame(40));
    EXPECT_DOUBLE_EQ(value.asDouble(), 10.0);
    EXPECT_DOUBLE_EQ(doubled.asDouble(), 20.0);

    const int computes = AnimTestNode::normalComputes;
    EXPECT_DOUBLE_EQ(doubled.asDouble(), 20.0);
    EXPECT_EQ(AnimTestNode::normalComputes, computes) << "no change of time, no compute";
}

TEST_F(AnimScene, SamplingInContextsLeavesTheNormalCacheAlone) {
    const ZObject node = makeNode();
    const ZPlug value(node, AnimTestNode::value), doubled(node, AnimTestNode::doubled);
    rampOn(value);
    ZAnimControl::setCurrentTime(frame(6));
    ASSERT_DOUBLE_EQ(doubled.asDouble(), 10.0);
    const int normal = AnimTestNode::normalComputes;

    for (int f = 1; f <= 11; ++f) {
        ZDGContextGuard guard(ZDGContext(frame(f)));
        EXPECT_DOUBLE_EQ(value.asDouble(), f - 1.0) << f;
        EXPECT_DOUBLE_EQ(doubled.asDouble(), 2.0 * (f - 1.0)) << f;
    }
    EXPECT_EQ(AnimTestNode::contextComputes, 11);
    EXPECT_DOUBLE_EQ(value.asDouble(), 5.0);
    EXPECT_DOUBLE_EQ(doubled.asDouble(), 10.0);
    EXPECT_EQ(AnimTestNode::normalComputes, normal) << "the normal value stayed cached";
}

TEST_F(AnimScene, CurveTypeFollowsTheUnitOfThePlug) {
    const ZObject node = makeNode();
    EXPECT_EQ(ZFnAnimCurve::curveTypeFor(ZPlug(node, AnimTestNode::offset)), ZFnAnimCurve::kAnimCurveTL);
    EXPECT_EQ(ZFnAnimCurve::curveTypeFor(ZPlug(node, AnimTestNode::spin)), ZFnAnimCurve::kAnimCurveTA);
    EXPECT_EQ(ZFnAnimCurve::curveTypeFor(ZPlug(node, AnimTestNode::delay)), ZFnAnimCurve::kAnimCurveTT);
    EXPECT_EQ(ZFnAnimCurve::curveTypeFor(ZPlug(node, AnimTestNode::value)), ZFnAnimCurve::kAnimCurveTU);
    EXPECT_EQ(ZFnAnimCurve::curveTypeFor(ZPlug(node, AnimTestNode::position)),
              ZFnAnimCurve::kAnimCurveUnknown);

    ZStatus status;
    ZFnAnimCurve fn;
    EXPECT_TRUE(fn.create(ZPlug(node, AnimTestNode::position), nullptr, &status).isNull());
    EXPECT_EQ(status, ZStatus::kInvalidParameter);
    EXPECT_TRUE(fn.create(ZPlug(node, AnimTestNode::doubled), nullptr, &status).isNull()) << "not writable";

    const ZPlug spin(node, AnimTestNode::spin);
    fn.create(spin, nullptr, &status);
    ASSERT_EQ(status, ZStatus::kSuccess);
    EXPECT_TRUE(fn.object().hasFn(ZFn::kAnimCurveTimeToAngular));
    fn.addKey(frame(0), 0.0, ZFnAnimCurve::kTangentLinear, ZFnAnimCurve::kTangentLinear);
    fn.addKey(frame(10), std::numbers::pi, ZFnAnimCurve::kTangentLinear, ZFnAnimCurve::kTangentLinear);
    ZAnimControl::setCurrentTime(frame(5));
    EXPECT_NEAR(spin.asAngle().asDegrees(), 90.0, 1e-9);
    EXPECT_TRUE(ZFnAnimCurve().create(spin, nullptr, &status).isNull()) << "already driven";
    EXPECT_EQ(status, ZStatus::kInvalidParameter);

    const ZPlug offset(node, AnimTestNode::offset);
    ZFnAnimCurve distance;
    distance.create(offset);
    distance.addKey(frame(0), 250.0);
    EXPECT_DOUBLE_EQ(offset.asDistance().as(ZDistance::kMeters), 2.5);
}

TEST_F(AnimScene, ConnectedInputWarpsTime) {
    const ZObject node = makeNode();
    ZFnAnimCurve warp, curve;
    warp.create(ZFnAnimCurve::kAnimCurveTT);
    warp.addKey(frame(0), 0.0, ZFnAnimCurve::kTangentLinear, ZFnAnimCurve::kTangentLinear);
    warp.addKey(frame(10), 20.0, ZFnAnimCurve::kTangentLinear, ZFnAnimCurve::kTangentLinear);
    curve.create(ZPlug(node, AnimTestNode::value));
    curve.addKey(frame(0), 0.0, ZFnAnimCurve::kTangentLinear, ZFnAnimCurve::kTangentLinear);
    curve.addKey(frame(20), 100.0, ZFnAnimCurve::kTangentLinear, ZFnAnimCurve::kTangentLinear);

    ZTime warped;
    ASSERT_EQ(warp.evaluate(frame(5), warped), ZStatus::kSuccess);
    EXPECT_DOUBLE_EQ(warped.as(ZTime::kFilm), 10.0);

    ZDGModifier connect;
    ASSERT_EQ(connect.connect(plug(warp.object(), "output"), plug(curve.object(), "input")),
              ZStatus::kSuccess);
    ASSERT_EQ(connect.doIt(), ZStatus::kSuccess);
    ZAnimControl::setCurrentTime(frame(5));
    const ZPlug value(node, AnimTestNode::value);
    EXPECT_DOUBLE_EQ(value.asDouble(), 50.0);
    {
        ZDGContextGuard guard(ZDGContext(frame(2)));
        EXPECT_DOUBLE_EQ(value.asDouble(), 20.0);
    }
    ASSERT_EQ(connect.undoIt(), ZStatus::kSuccess);
    EXPECT_DOUBLE_EQ(value.asDouble(), 25.0) << "unconnected, the curve reads the time again";
    ZAnimControl::setCurrentTime(frame(6));
    EXPECT_DOUBLE_EQ(value.asDouble(), 30.0);
}

TEST_F(AnimScene, KeysLiveInAttributesThatRecreateTheCurve) {
    const ZObject node = makeNode();
    ZFnAnimCurve fn;
    fn.create(ZPlug(node, AnimTestNode::value));
    fn.addKey(frame(10), 3.0, ZFnAnimCurve::kTangentFlat, ZFnAnimCurve::kTangentStep);
    fn.addKey(frame(0), 1.0, ZFnAnimCurve::kTangentLinear, ZFnAnimCurve::kTangentSmooth);
    fn.addKey(frame(5), 7.0);
    ASSERT_EQ(fn.setTangent(1, ZAngle(0.3), 2.0, true), ZStatus::kSuccess);
    ASSERT_EQ(fn.setIsWeighted(true), ZStatus::kSuccess);
    ASSERT_EQ(fn.setPostInfinity(ZFnAnimCurve::kOscillate), ZStatus::kSuccess);

    const ZPlug ktv = plug(fn.object(), "ktv");
    ASSERT_EQ(ktv.numElements(), 3u);
    for (unsigned int i = 0; i < 3; ++i)
        EXPECT_DOUBLE_EQ(ktv[i].child(0).asTime().as(ZTime::kFilm), 5.0 * i) << "stored in time order";

    // Re-create it as a scene file might: elements at other indices, in
    // another order, tangents only where they differ from the defaults.
    ZFnAnimCurve copy;
    copy.create(ZFnAnimCurve::kAnimCurveTU);
    const unsigned int indices[3] = {7, 2, 4};
    for (unsigned int i : {2u, 0u, 1u}) {
        const unsigned int at = indices[i];
        ASSERT_EQ(plug(copy.object(), "ktv")[at].child(0).setValue(fn.time(i)), ZStatus::kSuccess);
        ASSERT_EQ(plug(copy.object(), "ktv")[at].child(1).setValue(fn.value(i)), ZStatus::kSuccess);
        for (const char* name : {"kit", "kot"})
            if (plug(fn.object(), name)[i].asShort() != ZFnAnimCurve::kTangentAuto)
                plug(copy.object(), name)[at].setValue(plug(fn.object(), name)[i].asShort());
        for (const char* name : {"kia", "koa", "kiw", "kow"})
            plug(copy.object(), name)[at].setValue(plug(fn.object(), name)[i].asDouble());
    }
    plug(copy.object(), "wt").setValue(true);
    plug(copy.object(), "pst").setValue(short(ZFnAnimCurve::kOscillate));

    ASSERT_EQ(copy.numKeys(), 3u);
    EXPECT_EQ(copy.outTangentType(2), ZFnAnimCurve::kTangentStep);
    EXPECT_EQ(copy.inTangentType(1), ZFnAnimCurve::kTangentFixed);
    for (double f = -3; f < 30; f += 0.5) {
        double a = 0, b = 0;
        ASSERT_EQ(fn.evaluate(frame(f), a), ZStatus::kSuccess);
        ASSERT_EQ(copy.evaluate(frame(f), b), ZStatus::kSuccess);
        EXPECT_DOUBLE_EQ(a, b) << f;
    }

    // An edit of the restored curve leaves no element of the old layout behind.
    ASSERT_EQ(copy.remove(0), ZStatus::kSuccess);
    for (const char* name : {"ktv", "kit", "kot", "kia", "koa", "kiw", "kow"}) {
        EXPECT_EQ(plug(copy.object(), name).numElements(), 2u) << name;
        EXPECT_EQ(plug(copy.object(), name).elementByPhysicalIndex(1).logicalIndex(), 1u) << name;
    }
    EXPECT_EQ(copy.numKeys(), 2u);
    EXPECT_DOUBLE_EQ(copy.time(0).as(ZTime::kFilm), 5.0);
}

TEST_F(AnimScene, FunctionSetEditsKeysInAnyOrder) {
    ZFnAnimCurve fn;
    fn.create(ZFnAnimCurve::kAnimCurveTU);
    unsigned int index = 99;
    fn.addKey(frame(20), 2.0, ZFnAnimCurve::kTangentLinear, ZFnAnimCurve::kTangentLinear);
    fn.addKey(frame(10), 1.0, ZFnAnimCurve::kTangentLinear, ZFnAnimCurve::kTangentLinear, &index);
    EXPECT_EQ(index, 0u);
    ASSERT_EQ(fn.addKeyframe(frame(20), 4.0), ZStatus::kSuccess);
    EXPECT_EQ(fn.numKeys(), 2u);
    EXPECT_EQ(fn.inTangentType(1), ZFnAnimCurve::kTangentLinear) << "a keyframe on a key keeps its tangents";
    EXPECT_TRUE(fn.find(frame(20), index));
    EXPECT_EQ(index, 1u);
    EXPECT_FALSE(fn.find(frame(15), index));

    ASSERT_EQ(fn.setTime(0, frame(30), &index), ZStatus::kSuccess);
    EXPECT_EQ(index, 1u);
    EXPECT_DOUBLE_EQ(fn.value(0), 4.0);
    ASSERT_EQ(fn.setValue(1, 8.0), ZStatus::kSuccess);
    double v = 0;
    fn.evaluate(frame(25), v);
    EXPECT_DOUBLE_EQ(v, 6.0);

    ZTimeArray times;
    ZDoubleArray values;
    for (int i = 0; i < 5; ++i) {
        times.append(frame(100 - 10 * i));
        values.append(i);
    }
    ASSERT_EQ(fn.addKeys(times, values), ZStatus::kSuccess);
    EXPECT_EQ(fn.numKeys(), 7u);
    EXPECT_DOUBLE_EQ(fn.time(6).as(ZTime::kFilm), 100.0);

    ASSERT_EQ(fn.removeAllKeys(), ZStatus::kSuccess);
    EXPECT_EQ(fn.numKeys(), 0u);
    EXPECT_EQ(plug(fn.object(), "ktv").numElements(), 0u);
}

TEST_F(AnimScene, BadInputIsRefusedWithAStatus) {
    ZFnAnimCurve empty;
    ZStatus status;
    EXPECT_EQ(empty.numKeys(&status), 0u);
    EXPECT_EQ(status, ZStatus::kInvalidParameter);
    EXPECT_EQ(empty.addKey(frame(1), 1.0), ZStatus::kInvalidParameter);

    const ZObject node = makeNode();
    ZFnAnimCurve notACurve(node, &status);
    EXPECT_EQ(status, ZStatus::kInvalidParameter);
    ZFnAnimCurve(ZPlug(node, AnimTestNode::value), &status);
    EXPECT_EQ(status, ZStatus::kNotFound);

    ZFnAnimCurve fn;
    fn.create(ZPlug(node, AnimTestNode::value));
    fn.addKey(frame(1), 1.0);
    EXPECT_EQ(fn.addKey(ZTime(NAN), 1.0), ZStatus::kInvalidParameter);
    EXPECT_EQ(fn.addKey(frame(2), INFINITY), ZStatus::kInvalidParameter);
    EXPECT_EQ(fn.addKey(ZTime(2.0, ZTime::kInvalid), 1.0), ZStatus::kInvalidParameter);
    EXPECT_EQ(fn.addKey(frame(2), 1.0, static_cast<ZFnAnimCurve::TangentType>(40)),
              ZStatus::kInvalidParameter);
    EXPECT_EQ(fn.setTangent(0, ZAngle(0.1), -1.0, false), ZStatus::kInvalidParameter);
    EXPECT_EQ(fn.setPreInfinity(static_cast<ZFnAnimCurve::InfinityType>(9)), ZStatus::kInvalidParameter);
    EXPECT_EQ(fn.remove(3), ZStatus::kInvalidParameter);
    EXPECT_EQ(fn.setValue(3, 1.0), ZStatus::kInvalidParameter);
    fn.time(3, &status);
    EXPECT_EQ(status, ZStatus::kInvalidParameter);
    ZTime asTime;
    EXPECT_EQ(fn.evaluate(frame(1), asTime), ZStatus::kInvalidParameter) << "not a time curve";
    EXPECT_EQ(fn.numKeys(), 1u);

    // A value no curve can hold, written straight into the attributes.
    plug(fn.object(), "ktv")[0].child(1).setValue(NAN);
    fn.numKeys(&status);
    EXPECT_EQ(status, ZStatus::kInvalidParameter);
    EXPECT_NO_FATAL_FAILURE(ZPlug(node, AnimTestNode::value).asDouble());
    plug(fn.object(), "ktv")[0].child(1).setValue(2.0);
    EXPECT_EQ(fn.numKeys(), 1u);
    EXPECT_DOUBLE_EQ(ZPlug(node, AnimTestNode::value).asDouble(), 2.0);
}
