#include "plugins/DrawOverrideTable.h"
#include "plugins/PluginScope.h"

#include <OpenZyvoRender/ZDrawRegistry.h>
#include <OpenZyvoRender/ZPxDrawOverride.h>
#include <gtest/gtest.h>
#include <memory>

namespace {

using ZHWRender::ZDrawRegistry;
using ZHWRender::ZPxDrawOverride;

// Remembers which creator made it.
class TaggedOverride : public ZPxDrawOverride {
public:
    TaggedOverride(const ZObject& node, int tag)
        : ZPxDrawOverride(node)
        , tag(tag) {}
    ZHWRender::ZUserData* prepareForDraw(const ZDagPath&, ZHWRender::ZUserData* oldData) override {
        return oldData;
    }
    const int tag;
};

ZPxDrawOverride* first(const ZObject& node) {
    return new TaggedOverride(node, 1);
}
ZPxDrawOverride* second(const ZObject& node) {
    return new TaggedOverride(node, 2);
}

int drawnBy(const char* classification) {
    std::unique_ptr<ZPxDrawOverride> made(ZDrawRegistry::createDrawOverride(classification, ZObject()));
    return made ? static_cast<TaggedOverride&>(*made).tag : 0;
}

TEST(DrawRegistry, RegistrantsOfAClassificationStackAndLeaveByKey) {
    const char* points = "drawdb/geometry/testPoints";
    ASSERT_TRUE(ZDrawRegistry::registerDrawOverrideCreator(points, "one", first));
    ASSERT_TRUE(ZDrawRegistry::registerDrawOverrideCreator(points, "two", second));
    EXPECT_EQ(ZDrawRegistry::registerDrawOverrideCreator(points, "one", second), ZStatus::kInvalidParameter);
    EXPECT_EQ(drawnBy(points), 2) << "the latest registrant draws";

    EXPECT_TRUE(ZDrawRegistry::deregisterDrawOverrideCreator(points, "two"));
    EXPECT_EQ(drawnBy(points), 1);
    EXPECT_EQ(ZDrawRegistry::deregisterDrawOverrideCreator(points, "two"), ZStatus::kNotFound);
    EXPECT_EQ(ZDrawRegistry::deregisterGeometryOverrideCreator(points, "two"), ZStatus::kNotFound);

    EXPECT_TRUE(ZDrawRegistry::deregisterGeometryOverrideCreator(points, "one"))
        << "removes the draw override the registrant holds";
    EXPECT_FALSE(ZDrawRegistry::hasDrawOverride(points));
    EXPECT_EQ(drawnBy(points), 0);
}

TEST(DrawRegistry, RefusesIncompleteRegistrations) {
    EXPECT_EQ(ZDrawRegistry::registerDrawOverrideCreator("", "id", first), ZStatus::kInvalidParameter);
    EXPECT_EQ(ZDrawRegistry::registerDrawOverrideCreator("drawdb/x", "", first), ZStatus::kInvalidParameter);
    EXPECT_EQ(ZDrawRegistry::registerDrawOverrideCreator("drawdb/x", "id", nullptr),
              ZStatus::kInvalidParameter);
    EXPECT_FALSE(ZDrawRegistry::hasDrawOverride("drawdb/x"));
}

TEST(DrawRegistry, OverridesRegisteredWhileAPluginRunsAreItsOwn) {
    {
        oz::plugins::PluginScope scope("drawTestPlugin");
        ASSERT_TRUE(ZDrawRegistry::registerDrawOverrideCreator("drawdb/geometry/owned", "mine", first));
    }
    ASSERT_TRUE(ZDrawRegistry::registerDrawOverrideCreator("drawdb/geometry/owned", "host", second));
    const auto removed = oz::plugins::DrawOverrideTable::instance().removeOwnedBy("drawTestPlugin");
    ASSERT_EQ(removed.size(), 1u);
    EXPECT_EQ(removed[0].second, "mine");
    EXPECT_EQ(drawnBy("drawdb/geometry/owned"), 2);
    ZDrawRegistry::deregisterDrawOverrideCreator("drawdb/geometry/owned", "host");
}

} // namespace
