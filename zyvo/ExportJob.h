#pragma once

#include "FrameRange.h"

#include <OpenZyvo/ZStatus.h>
#include <OpenZyvoHost/ZHostExport.h>
#include <optional>
#include <string>
#include <vector>

namespace zyvo {

class Host;

struct ExportRequest {
    std::string node;
    std::vector<std::string> outputs; // each .obj, .stl, .glb or .png
    std::optional<double> frame;      // one frame; the scene's current time when neither is given
    // Several frames: outputs with a frame number pattern get a file per frame, a .glb without one
    // holds them all as one animation.
    std::optional<FrameRange> frames;
    ZHost::PreviewSize previewSize = ZHost::defaultPreviewSize();
};

// Checks the request before anything is evaluated: known formats, and a
// frame number pattern in every output but an animated .glb when several
// frames are written.
ZStatus checkExportRequest(const ExportRequest& request);

// Evaluates the node at each frame and writes every output. Several frames
// show a progress line.
ZStatus runExport(const ExportRequest& request, Host& host);

} // namespace zyvo
