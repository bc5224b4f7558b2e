#pragma once

#include "geometry/Contour.h"

#include <QString>
#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace type {

// Everything that decides a decomposed glyph outline in the text-layout path:
// the face that Qt's layout actually used for the glyph (family and style name
// of the glyph run's raw font, so a fallback face has keys of its own), the
// size the outline was taken at, the glyph index in that face, and the curve
// resolution it was flattened at. Tracking, kerning, leading, space width and
// font size only move or scale placed copies, and this path does not thin its
// outlines, so none of them is part of the key.
struct GlyphOutlineKey {
    QString family;
    QString style;
    double pixelSize = 0.0;
    std::uint32_t glyphIndex = 0;
    std::int32_t curveResolution = 0;

    friend bool operator<(const GlyphOutlineKey& a, const GlyphOutlineKey& b);
};

// Decomposed shapes in outline units; shared with the evaluation that uses
// them, so trimming the cache never pulls geometry from under a layout.
using GlyphShapes = std::shared_ptr<const std::vector<Shape>>;

// The decomposed glyph outlines a type node keeps between evaluations, so that
// editing one character decomposes only glyphs not seen before. Each node
// instance owns one; it is not meant for concurrent use.
class GlyphOutlineCache {
public:
    // Past this many entries, the cache forgets the glyphs the last evaluation
    // did not use (an animated text can walk through many glyphs and fonts).
    static constexpr std::size_t kDefaultCapacity = 4096;

    explicit GlyphOutlineCache(std::size_t capacity = kDefaultCapacity)
        : m_capacity(capacity) {}

    // Nothing for an unknown glyph; a null pointer for a glyph known to have
    // an empty outline (a blank).
    std::optional<GlyphShapes> find(const GlyphOutlineKey& key);

    void storeBlank(const GlyphOutlineKey& key);
    GlyphShapes storeDecomposed(const GlyphOutlineKey& key, std::vector<Shape> shapes);

    // Closes one evaluation: trims the cache when it has grown past capacity.
    void endEvaluation();

    std::size_t size() const { return m_entries.size(); }
    // Glyph outlines decomposed through this cache since it was created.
    std::size_t decompositions() const { return m_decompositions; }

private:
    struct Entry {
        GlyphShapes shapes;
        std::uint64_t lastUse = 0;
    };

    std::map<GlyphOutlineKey, Entry> m_entries;
    std::size_t m_capacity;
    std::uint64_t m_evaluation = 0;
    std::size_t m_decompositions = 0;
};

} // namespace type
