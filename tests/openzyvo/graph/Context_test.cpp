#include "TestNodes.h"
#include "graph/Graph.h"

#include <OpenZyvo/ZDGContextGuard.h>
#include <OpenZyvo/ZDGModifier.h>

using namespace graphtest;

class Context : public GraphTest {
protected:
    void SetUp() override {
        GraphTest::SetUp();
        clock = create("graphTestClock");
        sampler = create("graphTestSampler");
        ZDGModifier modifier;
        ASSERT_TRUE(modifier.connect(plug(clock, "outTime"), plug(sampler, "time")));
        ASSERT_TRUE(modifier.doIt());
        oz::Graph::instance().setCurrentTime(ZTime(5.0));
    }
    double valueAt(double frame) {
        ZDGContextGuard guard{ZDGContext(ZTime(frame))};
        return plug(sampler, "value").asDouble();
    }
    ZObject clock, sampler;
};

TEST_F(Context, TheNormalContextFollowsTheCurrentTime) {
    EXPECT_TRUE(ZDGContext::current().isNormal());
    EXPECT_DOUBLE_EQ(plug(sampler, "value").asDouble(), 10.0);
    oz::Graph::instance().setCurrentTime(ZTime(6.0));
    EXPECT_DOUBLE_EQ(plug(sampler, "value").asDouble(), 12.0);
    EXPECT_DOUBLE_EQ(ZDGContext::fsNormal.getTime().value(), 6.0);
}

TEST_F(Context, SamplingOtherTimesLeavesTheNormalCacheValid) {
    EXPECT_DOUBLE_EQ(plug(sampler, "value").asDouble(), 10.0);
    const int normalComputes = user<Sampler>(sampler)->computes;

    for (double frame : {1.0, 2.5, 7.0, -3.0})
        EXPECT_DOUBLE_EQ(valueAt(frame), 2.0 * frame);
    EXPECT_DOUBLE_EQ(plug(sampler, "value").asDouble(), 10.0);
    EXPECT_EQ(user<Sampler>(sampler)->computes, normalComputes + 4) << "normal read served from its cache";
}

TEST_F(Context, AContextCachesItsOwnValuesUntilTheGraphIsEdited) {
    EXPECT_DOUBLE_EQ(valueAt(3.0), 6.0);
    const int computes = user<Sampler>(sampler)->computes;
    EXPECT_DOUBLE_EQ(valueAt(3.0), 6.0);
    EXPECT_EQ(user<Sampler>(sampler)->computes, computes);

    plug(sampler, "offset").setValue(1.0);
    EXPECT_DOUBLE_EQ(valueAt(3.0), 7.0);
}

TEST_F(Context, WhatDoesNotDependOnTimeIsReadFromTheNormalCache) {
    ZObject adder = create("graphTestAdder");
    ZDGModifier modifier;
    ASSERT_TRUE(modifier.connect(plug(adder, "output"), plug(sampler, "offset")));
    ASSERT_TRUE(modifier.doIt());
    plug(adder, "input").setValue(1.0);
    EXPECT_DOUBLE_EQ(valueAt(2.0), 5.0);
    EXPECT_DOUBLE_EQ(valueAt(4.0), 9.0);
    EXPECT_EQ(user<Adder>(adder)->computes, 1);
}

TEST_F(Context, GuardsNestAndRestore) {
    {
        ZDGContextGuard outer{ZDGContext(ZTime(2.0))};
        {
            ZDGContextGuard inner{ZDGContext(ZTime(3.0))};
            EXPECT_DOUBLE_EQ(ZDGContext::current().getTime().value(), 3.0);
        }
        EXPECT_DOUBLE_EQ(ZDGContext::current().getTime().value(), 2.0);
        EXPECT_FALSE(ZDGContext::current().isNormal());
    }
    EXPECT_TRUE(ZDGContext::current().isNormal());
}
