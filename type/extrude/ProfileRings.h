#pragma once

#include "extrude/ExtrudeSettings.h"

#include <vector>

namespace type {

// One step of the profile: every outline of the face moved `offset` into its
// material (outwards when negative), then `depth` along the face normal.
struct Ring {
    float offset = 0.0f;
    double depth = 0.0;
    // How much of `depth` moves with the extrusion distance (0 before the
    // walls, i / N along them, 1 after), so that a face can be given a
    // distance of its own without sampling the profile again.
    double wallShare = 0.0;
};

// The profile curves read at i / N for i = 0..N, N being the divisions of the
// block each is sampled for. A curve that could not be read is empty and
// reads as 0 everywhere.
struct ProfileSamples {
    std::vector<double> extrude; // extrudeDivisions + 1 values
    std::vector<double> front;   // bevelDivisions + 1 values
    std::vector<double> back;    // backBevelDivisions + 1 values, of the back or the front curve
};

// The rings of a face from the front cap to the back cap. The ends of the
// blocks tell the faces joining ring k to ring k + 1 apart: such a face is a
// wall when both rings are wall rings, a bevel face otherwise.
struct Profile {
    std::vector<Ring> rings;
    int outerFrontEnd = 0; // rings before it: the outer front bevel
    int leadInEnd = 0;     // then the back bevel lead-in of the inner style
    int wallsEnd = 0;      // then the walls
    int innerFrontEnd = 0; // then the inner front bevel; the outer back bevel follows

    bool isWallJoin(int ring) const { return ring >= leadInEnd && ring + 1 < wallsEnd; }
};

// The positions 0, 1 / N, ... 1 a block samples its curve at.
std::vector<double> samplePositions(int divisions);

Profile sampleProfile(const ExtrudeSettings& settings, const ProfileSamples& samples);

} // namespace type
