#include "FontNodeTesting.h"
#include "layout/TypeSettings.h"

namespace type::testing {
namespace {

using FreshTypeNode = TypeNodeTest;

// Layout run without a node (benchmarks, tools) starts from the settings
// record, so it must lay text out as a freshly created node does.
TEST_F(FreshTypeNode, StartsWithTheValuesOfAFreshSettingsRecord) {
    const TypeSettings fresh;
    EXPECT_EQ(plug(fontNode::fontSize).asDouble(), fresh.fontSize);
    EXPECT_EQ(plug(fontNode::curveResolution).asInt(), fresh.curveResolution);
    EXPECT_EQ(plug(fontNode::kerningScale).asFloat(), fresh.kerningScale);
    EXPECT_EQ(plug(fontNode::leadingScale).asFloat(), fresh.leadingScale);
    EXPECT_EQ(plug(fontNode::spaceWidthScale).asFloat(), fresh.spaceWidthScale);
    EXPECT_EQ(plug(fontNode::tracking).asFloat(), fresh.tracking);
    EXPECT_EQ(plug(fontNode::alignmentMode).asShort(), static_cast<short>(fresh.alignment));
    EXPECT_EQ(plug(fontNode::maxDivisions).asInt(), fresh.subdivision.maxDivisions);
    EXPECT_EQ(plug(fontNode::maxEdgeLength).asFloat(), static_cast<float>(fresh.subdivision.maxEdgeLength));
}

} // namespace
} // namespace type::testing
