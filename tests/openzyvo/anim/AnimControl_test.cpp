#include "AnimScene.h"
#include "anim/TimeNode.h"

#include <OpenZyvo/ZDGContextGuard.h>
#include <OpenZyvo/ZDGModifier.h>
#include <OpenZyvoAnim/ZAnimControl.h>
#include <OpenZyvoAnim/ZFnAnimCurve.h>
#include <cmath>

using oz::anim::TimeNode;

TEST_F(AnimScene, TimeNodeYieldsTheTimeBeingEvaluated) {
    ZStatus status;
    const ZObject time = TimeNode::sceneNode(&status);
    ASSERT_EQ(status, ZStatus::kSuccess);
    EXPECT_EQ(ZFnDependencyNode(time).name(), ZString("time1"));
    EXPECT_TRUE(TimeNode::sceneNode() == time) << "one clock per scene";
    EXPECT_TRUE(time.hasFn(ZFn::kTime));

    const ZPlug outTime(time, TimeNode::outTime);
    ZAnimControl::setCurrentTime(frame(12));
    EXPECT_DOUBLE_EQ(outTime.asTime().as(ZTime::kFilm), 12.0);
    {
        ZDGContextGuard guard(ZDGContext(frame(30)));
        EXPECT_DOUBLE_EQ(outTime.asTime().as(ZTime::kFilm), 30.0);
    }
    EXPECT_DOUBLE_EQ(outTime.asTime().as(ZTime::kFilm), 12.0);
    ZAnimControl::setCurrentTime(ZTime(2.0, ZTime::kSeconds));
    EXPECT_DOUBLE_EQ(outTime.asTime().value(), 48.0) << "in the user's unit";
    EXPECT_EQ(outTime.asTime().unit(), ZTime::kFilm);

    // A curve reading time1 sees the same times as one reading the context.
    const ZObject node = makeNode();
    ZFnAnimCurve fn;
    fn.create(ZPlug(node, AnimTestNode::value));
    fn.addKey(frame(0), 0.0, ZFnAnimCurve::kTangentLinear, ZFnAnimCurve::kTangentLinear);
    fn.addKey(frame(100), 100.0, ZFnAnimCurve::kTangentLinear, ZFnAnimCurve::kTangentLinear);
    ZDGModifier connect;
    connect.connect(outTime, plug(fn.object(), "input"));
    ASSERT_EQ(connect.doIt(), ZStatus::kSuccess);
    const ZPlug value(node, AnimTestNode::value);
    EXPECT_DOUBLE_EQ(value.asDouble(), 48.0);
    ZAnimControl::setCurrentTime(frame(7));
    EXPECT_DOUBLE_EQ(value.asDouble(), 7.0);
    ZDGContextGuard guard(ZDGContext(frame(70)));
    EXPECT_DOUBLE_EQ(value.asDouble(), 70.0);
}

TEST_F(AnimScene, ChangingTheTimeUnitKeepsFrameNumbers) {
    const ZObject node = makeNode();
    const ZPlug value(node, AnimTestNode::value);
    ZFnAnimCurve fn, warp;
    fn.create(value);
    fn.addKey(frame(0), 0.0, ZFnAnimCurve::kTangentLinear, ZFnAnimCurve::kTangentLinear);
    fn.addKey(frame(24), 24.0, ZFnAnimCurve::kTangentLinear, ZFnAnimCurve::kTangentLinear);
    warp.create(ZFnAnimCurve::kAnimCurveTT);
    warp.addKey(frame(0), 48.0);
    ZAnimControl::setMinMaxTime(frame(12), frame(48));
    ZAnimControl::setCurrentTime(frame(12));
    ASSERT_DOUBLE_EQ(value.asDouble(), 12.0);

    // Keys, time values and ranges keep their numbers; the current time
    // stays the same moment.
    ASSERT_EQ(ZTime::setUIUnit(ZTime::kPALFrame), ZStatus::kSuccess);
    EXPECT_EQ(fn.time(1).unit(), ZTime::kPALFrame);
    EXPECT_DOUBLE_EQ(fn.time(1).value(), 24.0);
    EXPECT_DOUBLE_EQ(warp.value(0), 48.0);
    ZTime mapped;
    warp.evaluate(ZTime(3.0), mapped);
    EXPECT_DOUBLE_EQ(mapped.as(ZTime::kPALFrame), 48.0);
    EXPECT_DOUBLE_EQ(ZAnimControl::minTime().value(), 12.0);
    EXPECT_DOUBLE_EQ(ZAnimControl::currentTime().value(), 12.5);

    ZAnimControl::setCurrentTime(ZTime(18.0));
    EXPECT_DOUBLE_EQ(value.asDouble(), 18.0);
    {
        ZDGContextGuard guard(ZDGContext(ZTime(6.0)));
        EXPECT_DOUBLE_EQ(value.asDouble(), 6.0);
    }
    unsigned int index = 9;
    EXPECT_TRUE(fn.find(ZTime(24.0), index));
    EXPECT_EQ(index, 1u);
}

TEST_F(AnimScene, PlaybackRangeStaysWithinTheAnimationRange) {
    EXPECT_DOUBLE_EQ(ZAnimControl::minTime().value(), 1.0);
    EXPECT_DOUBLE_EQ(ZAnimControl::maxTime().value(), 120.0);

    ASSERT_EQ(ZAnimControl::setMinMaxTime(frame(-10), frame(200)), ZStatus::kSuccess);
    EXPECT_DOUBLE_EQ(ZAnimControl::animationStartTime().value(), -10.0);
    EXPECT_DOUBLE_EQ(ZAnimControl::animationEndTime().value(), 200.0);

    ASSERT_EQ(ZAnimControl::setAnimationStartEndTime(frame(0), frame(50)), ZStatus::kSuccess);
    EXPECT_DOUBLE_EQ(ZAnimControl::minTime().value(), 0.0);
    EXPECT_DOUBLE_EQ(ZAnimControl::maxTime().value(), 50.0);

    EXPECT_EQ(ZAnimControl::setMinTime(frame(60)), ZStatus::kInvalidParameter);
    EXPECT_EQ(ZAnimControl::setAnimationEndTime(frame(-1)), ZStatus::kInvalidParameter);
    EXPECT_EQ(ZAnimControl::setMaxTime(ZTime(NAN)), ZStatus::kInvalidParameter);
    EXPECT_EQ(ZAnimControl::setCurrentTime(ZTime(INFINITY)), ZStatus::kInvalidParameter);
    EXPECT_EQ(ZAnimControl::setPlaybackMode(static_cast<ZAnimControl::PlaybackMode>(7)),
              ZStatus::kInvalidParameter);
    EXPECT_DOUBLE_EQ(ZAnimControl::minTime().value(), 0.0);
    EXPECT_DOUBLE_EQ(ZAnimControl::maxTime().value(), 50.0);
}

TEST_F(AnimScene, PlaybackStepsFollowTheMode) {
    ZAnimControl::setMinMaxTime(frame(1), frame(10));
    double by = 1.0;
    EXPECT_DOUBLE_EQ(ZAnimControl::playbackStep(frame(4), by).value(), 5.0);
    EXPECT_DOUBLE_EQ(ZAnimControl::playbackStep(frame(10), by).value(), 1.0);

    ZAnimControl::setPlaybackMode(ZAnimControl::kPlaybackOnce);
    EXPECT_DOUBLE_EQ(ZAnimControl::playbackStep(frame(10), by).value(), 10.0);

    ZAnimControl::setPlaybackMode(ZAnimControl::kPlaybackOscillate);
    EXPECT_DOUBLE_EQ(ZAnimControl::playbackStep(frame(10), by).value(), 9.0);
    EXPECT_DOUBLE_EQ(by, -1.0);
    EXPECT_DOUBLE_EQ(ZAnimControl::playbackStep(frame(1), by).value(), 2.0);
    EXPECT_DOUBLE_EQ(by, 1.0);
}
