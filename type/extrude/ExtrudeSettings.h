#pragma once

#include "extrude/BevelStyle.h"

namespace type {

// The node's extrusion and bevel values as the user set them; a new node
// starts with these (its schema takes its defaults from here).
struct ExtrudeAttributes {
    int gridSize = 100;
    int mode = 1;
    float bevelOffset = 0.25f;
    int bevelStyle = 1;
    bool enableOuterBevel = false;
    bool enableFrontBevel = false;
    bool deleteCaps = false;
    float bevelDistance = 0.35f;
    int bevelDivisions = 6;
    bool enableBackBevel = false;
    float backBevelDistance = 0.35f;
    int backBevelDivisions = 6;
    float backBevelOffset = 0.25f;
    bool rearBevelUsesFront = false;
    bool enableExtrusion = true;
    float extrudeDistance = 2.5f;
    int extrudeDivisions = 4;
    float extrudeOffset = 0.0f;
};

// How the outline of a ring is offset inwards.
enum class OffsetMode { kDistanceField = 0, kNormals = 1 };

// What one evaluation builds with: the bevel style resolved, the back bevel
// taken from the front one when asked, and every count and distance brought
// into a range the builders can work with.
struct ExtrudeSettings {
    int gridSize{}; // as set: the distance field brings it into its own range
    OffsetMode mode = OffsetMode::kNormals;
    double bevelOffset{};
    InternalBevel bevelStyle = InternalBevel::kNone;
    bool deleteCaps{};
    double bevelDistance{};
    int bevelDivisions{};
    bool backBevel{};
    double backBevelDistance{};
    int backBevelDivisions{};
    double backBevelOffset{};
    bool rearUsesFront{};
    bool extrusion{};
    double extrudeDistance{};
    int extrudeDivisions{};
    double extrudeOffset{};
};

// The largest division count of one profile block: a value set through
// scripting past it would only cost memory.
inline constexpr int kMaxDivisions = 100;
// Distances and offsets beyond this size are taken as this size.
inline constexpr double kMaxDistance = 1.0e6;

ExtrudeSettings resolveExtrudeSettings(const ExtrudeAttributes& attributes);

} // namespace type
