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

// What "zyvo text" was asked for. Settings left out keep the type node's own.
struct TextRequest {
    // The type node's own text, "3D Type", when not given.
    std::optional<std::string> text;
    // The font a new text object starts in when neither is given; a family
    // without a style gets its regular face.
    std::optional<std::string> font;
    std::optional<std::string> style;
    std::optional<double> size;
    std::optional<double> tracking;
    std::optional<double> kerning;
    std::optional<double> leading;
    std::optional<double> spaceWidth;
    // One of the type node's alignments, in any case ("center" is "centre").
    std::optional<std::string> alignment;
    std::optional<int> curveResolution;
    std::vector<std::string> outputs; // .obj, .stl, .glb
    std::string preview;              // .png
    SolidRequest solid;
    ZHost::PreviewSize previewSize = ZHost::defaultPreviewSize();
    bool listFonts = false; // list the catalogue instead
};

// Adds the "text" subcommand; `chosen` runs once the user picked it.
void addTextCommand(CLI::App& app, TextRequest& request, std::function<void()> chosen);

// Loads the Type plug-in, checks the settings whose bounds the plug-in's
// nodes set, builds a text object with the plug-in's own procedure, sets the
// request's settings on its type and typeExtrude nodes, and writes the text
// object's solid with its materials, or the type node's flat text mesh
// through a mesh shape of its own.
ZStatus runText(const TextRequest& request, Host& host);

// Prints the font families and their styles as the Type plug-in's type node
// finds them, one family a line.
ZStatus listFonts();

} // namespace zyvo
