#pragma once

#include "svg/SvgArtwork.h"

#include <QByteArray>

namespace type {

struct SvgReadSettings {
    int curveResolution = 4; // points per curve or arc, 1 to 100
    // Older scenes kept unfilled and hidden shapes; nodes from them still do.
    bool legacy = false;
};

enum class SvgReadStatus {
    ok,
    parseError,     // the document is not well-formed XML
    pathCountError, // a path command holds the wrong count of numbers
};

struct SvgReadResult {
    SvgReadStatus status = SvgReadStatus::ok;
    SvgArtwork artwork; // empty unless the read succeeded
};

// Reads the filled shapes of an SVG document.
SvgReadResult readSvg(const QByteArray& document, const SvgReadSettings& settings);

} // namespace type
