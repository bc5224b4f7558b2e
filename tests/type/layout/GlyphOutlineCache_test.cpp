#include "layout/GlyphOutlineCache.h"

#include <gtest/gtest.h>

namespace type {
namespace {

GlyphOutlineKey key(std::uint32_t glyph) {
    return {"DejaVu Sans", "Book", 100.0, glyph, 4};
}

std::vector<Shape> triangle() {
    return {{{{0, 0}, {1, 0}, {0, 1}}, {}}};
}

TEST(GlyphOutlineCache, TrimmingKeepsTheGlyphsOfTheLastEvaluation) {
    GlyphOutlineCache cache(2);
    for (std::uint32_t glyph = 1; glyph <= 3; ++glyph)
        cache.storeDecomposed(key(glyph), triangle());
    cache.endEvaluation();
    EXPECT_EQ(cache.size(), 3u);

    const GlyphShapes held = *cache.find(key(2));
    cache.storeDecomposed(key(4), triangle());
    cache.endEvaluation();

    EXPECT_EQ(cache.size(), 2u);
    EXPECT_TRUE(cache.find(key(2)).has_value());
    EXPECT_TRUE(cache.find(key(4)).has_value());
    EXPECT_FALSE(cache.find(key(1)).has_value());
    EXPECT_EQ(held->size(), 1u);
}

} // namespace
} // namespace type
