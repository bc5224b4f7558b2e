#include "AnimScene.h"
#include "anim/Keyframe.h"
#include "anim/TimeNode.h"

#include <OpenZyvo/ZDGModifier.h>
#include <OpenZyvo/ZObjectArray.h>
#include <OpenZyvo/ZPlugArray.h>
#include <OpenZyvoAnim/ZAnimControl.h>
#include <OpenZyvoAnim/ZAnimUtil.h>
#include <OpenZyvoAnim/ZFnAnimCurve.h>
#include <numbers>

using oz::anim::KeyframeChange;
using oz::anim::setKeyframe;

TEST_F(AnimScene, FindAnimationFollowsTheCurveThatDrivesAPlug) {
    const ZObject node = makeNode();
    const ZPlug value(node, AnimTestNode::value), position(node, AnimTestNode::position);
    EXPECT_FALSE(ZAnimUtil::isAnimated(value));

    ZFnAnimCurve fn;
    const ZObject curve = fn.create(value);
    ZObjectArray curves;
    ASSERT_TRUE(ZAnimUtil::findAnimation(value, curves));
    ASSERT_EQ(curves.length(), 1u);
    EXPECT_TRUE(curves[0] == curve);
    EXPECT_TRUE(ZFnAnimCurve(value).object() == curve);

    EXPECT_FALSE(ZAnimUtil::isAnimated(position));
    ASSERT_EQ(setKeyframe(position, frame(1)), ZStatus::kSuccess);
    curves.clear();
    EXPECT_TRUE(ZAnimUtil::findAnimation(position, curves));
    EXPECT_EQ(curves.length(), 3u);
    ZPlugArray animated;
    EXPECT_TRUE(ZAnimUtil::findAnimatedPlugs(node, animated));
    EXPECT_EQ(animated.length(), 4u);

    // A time-dependent driver that is no curve is not animation.
    const ZObject time = oz::anim::TimeNode::sceneNode();
    ZDGModifier connect;
    connect.connect(ZPlug(time, oz::anim::TimeNode::outTime), ZPlug(node, AnimTestNode::delay));
    ASSERT_EQ(connect.doIt(), ZStatus::kSuccess);
    EXPECT_FALSE(ZAnimUtil::isAnimated(ZPlug(node, AnimTestNode::delay)));
    ZStatus status;
    ZFnAnimCurve(ZPlug(node, AnimTestNode::delay), &status);
    EXPECT_EQ(status, ZStatus::kNotFound);
    EXPECT_FALSE(ZAnimUtil::findAnimation(ZPlug(), curves, &status));
    EXPECT_EQ(status, ZStatus::kInvalidParameter);
}

TEST_F(AnimScene, SetKeyframeKeysTheCurrentValue) {
    const ZObject node = makeNode();
    ZPlug value(node, AnimTestNode::value);
    ASSERT_EQ(value.setValue(3.0), ZStatus::kSuccess);
    std::vector<KeyframeChange> changes;
    ASSERT_EQ(setKeyframe(value, frame(1), &changes), ZStatus::kSuccess);
    ASSERT_EQ(changes.size(), 1u);
    EXPECT_TRUE(changes[0].created);

    ZFnAnimCurve fn(value);
    ASSERT_EQ(fn.numKeys(), 1u);
    EXPECT_DOUBLE_EQ(fn.value(0), 3.0);
    ASSERT_EQ(fn.setTangentTypes(0, ZFnAnimCurve::kTangentFlat, ZFnAnimCurve::kTangentStep),
              ZStatus::kSuccess);
    ASSERT_EQ(fn.addKey(frame(20), 9.0), ZStatus::kSuccess);

    // At frame 10 the plug holds the curve's value, which the new key takes.
    ZAnimControl::setCurrentTime(frame(10));
    ASSERT_EQ(setKeyframe(value, frame(10), &changes), ZStatus::kSuccess);
    EXPECT_FALSE(changes.back().created);
    EXPECT_EQ(fn.numKeys(), 3u);
    EXPECT_DOUBLE_EQ(fn.value(1), 3.0);
    ASSERT_EQ(setKeyframe(value, frame(1)), ZStatus::kSuccess);
    EXPECT_EQ(fn.outTangentType(0), ZFnAnimCurve::kTangentStep) << "keying a key keeps its tangents";

    const ZPlug spin(node, AnimTestNode::spin);
    ZPlug(spin).setValue(ZAngle(45.0, ZAngle::kDegrees));
    ASSERT_EQ(setKeyframe(spin, frame(1)), ZStatus::kSuccess);
    EXPECT_NEAR(ZFnAnimCurve(spin).value(0), std::numbers::pi / 4, 1e-12) << "angles are keyed in radians";
}

TEST_F(AnimScene, SetKeyframeRefusesPlugsItCannotKey) {
    const ZObject node = makeNode();
    EXPECT_EQ(setKeyframe(ZPlug(node, AnimTestNode::locked), frame(1)), ZStatus::kInvalidParameter);
    EXPECT_EQ(setKeyframe(ZPlug(), frame(1)), ZStatus::kInvalidParameter);

    ZDGModifier connect;
    connect.connect(ZPlug(oz::anim::TimeNode::sceneNode(), oz::anim::TimeNode::outTime),
                    ZPlug(node, AnimTestNode::delay));
    ASSERT_EQ(connect.doIt(), ZStatus::kSuccess);
    EXPECT_EQ(setKeyframe(ZPlug(node, AnimTestNode::delay), frame(1)), ZStatus::kInvalidParameter);
    EXPECT_FALSE(ZAnimUtil::isAnimated(ZPlug(node, AnimTestNode::delay)));
}

TEST_F(AnimScene, UndoKeyframesTakesBackCurvesAndKeys) {
    const ZObject node = makeNode();
    const ZPlug position(node, AnimTestNode::position), value(node, AnimTestNode::value);
    ZPlug(position.child(1)).setValue(ZDistance(4.0));
    std::vector<KeyframeChange> made;
    ASSERT_EQ(setKeyframe(position, frame(1), &made), ZStatus::kSuccess);
    ASSERT_EQ(made.size(), 3u);
    ASSERT_EQ(oz::anim::undoKeyframes(made), ZStatus::kSuccess);
    EXPECT_FALSE(ZAnimUtil::isAnimated(position));
    EXPECT_DOUBLE_EQ(position.child(1).asDistance().asCentimeters(), 4.0);
    ASSERT_EQ(ZPlug(position.child(1)).setValue(ZDistance(5.0)), ZStatus::kSuccess) << "no longer driven";

    ASSERT_EQ(setKeyframe(value, frame(1)), ZStatus::kSuccess);
    std::vector<KeyframeChange> edited;
    ZAnimControl::setCurrentTime(frame(8));
    ASSERT_EQ(setKeyframe(value, frame(8), &edited), ZStatus::kSuccess);
    EXPECT_EQ(ZFnAnimCurve(value).numKeys(), 2u);
    ASSERT_EQ(oz::anim::undoKeyframes(edited), ZStatus::kSuccess);
    EXPECT_EQ(ZFnAnimCurve(value).numKeys(), 1u);
    EXPECT_EQ(plug(ZFnAnimCurve(value).object(), "ktv").numElements(), 1u);
}
