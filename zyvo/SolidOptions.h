#pragma once

#include <OpenZyvo/ZObject.h>
#include <OpenZyvo/ZStatus.h>
#include <optional>
#include <string>

namespace CLI {
class App;
}

namespace zyvo {

class Host;

// What "zyvo text" asks of the text object's typeExtrude node. Settings left
// out keep the node's own.
struct SolidRequest {
    bool flat = false; // the type node's flat cap instead of the solid
    std::optional<double> extrude;
    std::optional<int> extrudeDivisions;
    std::optional<double> bevel; // a front bevel about this wide and this deep
    std::optional<double> bevelDistance;
    std::optional<double> bevelOffset;
    std::optional<int> bevelDivisions;
    std::optional<std::string> bevelStyle; // one of the node's ("outer", "inner")
    bool backBevel = false;                // a back bevel like the front one
    std::optional<std::string> offsetMode; // one of the node's ("normals", "distance-field")
    bool noCaps = false;
};

// The enum values the request named, as the node stores them.
struct SolidChoices {
    std::optional<short> bevelStyle;
    std::optional<short> offsetMode;
};

// Adds the solid's options to the "text" subcommand; none goes with --flat.
void addSolidOptions(CLI::App& text, SolidRequest& request);

// Checks what only the typeExtrude node can: its enum fields and the bounds
// of its divisions.
ZStatus checkSolidSettings(const SolidRequest& request, Host& host, SolidChoices& choices);

ZStatus applySolidSettings(const SolidRequest& request, const SolidChoices& choices,
                           const ZObject& extrudeNode);

} // namespace zyvo
