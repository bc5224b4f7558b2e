#pragma once

#include "fonts/FontCatalogue.h"
#include "fonts/FontFace.h"
#include "layout/GlyphOutlineCache.h"
#include "layout/LayoutResult.h"
#include "layout/TypeSettings.h"

#include <OpenZyvo/ZObject.h>
#include <OpenZyvo/ZStatus.h>
#include <cstddef>
#include <optional>
#include <vector>

class ZDataBlock;
class ZPlug;

namespace type {

// The evaluation of one type node, and what the node keeps from one
// evaluation to the next.
//
// Asking for the flat mesh, or for any array, count or message written beside
// it, runs the whole pipeline once (font, text, layout and decomposition, mesh)
// and cleans all of those outputs, so the others are then served without
// decomposing again. Asking for "manipulatorTransforms" or one of its arrays
// only stores the manipulator's edit. Other plugs are left to the host.
//
// A numeric setting that is not a finite number, or lies far past anything a
// scene could use, is shown as an error and leaves the text out: the mesh and
// the arrays beside it are written empty. "fontError" holds the last message
// an evaluation showed.
//
// Kept between evaluations:
// - the font catalogue, scanned at the first evaluation, for the node's life;
// - the face last loaded, while the node keeps selecting the same file;
// - the decomposed glyph outlines of the text-layout path. They are keyed on
//   what decides an outline: the face Qt drew the glyph from (family and style,
//   so a fallback face has keys of its own), the outline size, the glyph index
//   and the curve resolution. Size, tracking, kerning, leading, space width and
//   alignment only move or scale placed copies, so editing them, or the text,
//   decomposes nothing already seen. The pre-layout and legacy paths of older
//   scenes thin and subdivide in scene units and are decomposed afresh.
class FontNodeCompute {
public:
    ZStatus compute(const ZObject& node, const ZPlug& plug, ZDataBlock& block);

    // An adjust attribute changed: the next manipulator evaluation stores the edit.
    void adjustmentEdited() { m_adjustmentEdited = true; }

    // Glyph outlines this node has decomposed since it was created.
    std::size_t glyphDecompositions() const { return m_glyphs.decompositions(); }

private:
    struct LoadedFace {
        ZString path;
        std::uint32_t faceIndex = 0;
        FontFace face;
    };

    ZStatus computeOutputs(const ZObject& node, ZDataBlock& block);
    // Font, text, layout and decomposition; nothing when the font cannot be
    // loaded. The messages to show are added to `messages` in order.
    std::optional<LayoutResult> layOutText(const ZObject& node, ZDataBlock& block, const ZString& family,
                                           const ZString& style, TypeSettings& settings,
                                           std::vector<FontMessage>& messages);
    ZStatus computeManipulatorTransforms(ZDataBlock& block);

    FontCatalogue m_catalogue;
    GlyphOutlineCache m_glyphs;
    std::optional<LoadedFace> m_face;
    // Characters with a box at the last full evaluation; the manipulator is
    // placed only while the stored character edits match them.
    std::size_t m_characterBoxes = 0;
    bool m_adjustmentEdited = false;
};

} // namespace type
