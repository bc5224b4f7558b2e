#pragma once

#include "SolidOptions.h"

#include <OpenZyvo/ZStatus.h>
#include <OpenZyvoHost/ZHostExport.h>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace zyvo {

class Host;

// What "zyvo svg" was asked for. Settings left out keep the svgToPoly node's own.
struct SvgRequest {
    std::string file;   // "-" reads the document from standard input
    bool paste = false; // hand the document to the node as pasted text
    std::optional<double> size;
    std::optional<int> curveResolution;
    bool useArtboard = false;
    std::vector<std::string> outputs; // .obj, .stl, .glb
    std::string preview;              // .png
    SolidRequest solid;
    ZHost::PreviewSize previewSize = ZHost::defaultPreviewSize();
};

// Adds the "svg" subcommand; `chosen` runs once the user picked it.
void addSvgCommand(CLI::App& app, SvgRequest& request, std::function<void()> chosen);

// Loads the Type plug-in, builds an SVG object with the plug-in's own
// procedure, hands it the document and settings, and writes the flat
// artwork, or, when a solid option was given, the solid with its materials.
ZStatus runSvg(const SvgRequest& request, Host& host);

} // namespace zyvo
