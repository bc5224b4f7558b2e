#pragma once

#include "extrude/BevelStyle.h"
#include "extrude/SolidAssembly.h"

#include <cstddef>
#include <string>
#include <vector>

namespace type {

// The older extrusion node's choices that bend the shared construction face
// by face. At their defaults (empty arrays, adaptivity 0) they change nothing.
struct FaceOptions {
    double extrudeDistance = 0.0; // the node's own, which the per-element values replace
    // Per element, indexed modulo their length; empty means the node's
    // distance and a scale of 1.
    std::vector<double> distancePP;
    std::vector<double> distanceScalePP;
    // Whether the faces of one character share one element, so that a
    // character built of several pieces ("i", "%") keeps one depth.
    bool keepFacesTogether = true;
    std::vector<double> solidsPerCharacter; // the input faces of each character
    double frontBevelAdaptivity = 0.0;      // 0..1
    double bevelDistance = 0.0;
};

// Empty when the options can be used, else what is wrong with them.
std::string checkFaceOptions(const FaceOptions& options);

// The element each face takes its per-element values from: its character
// when faces are kept together and the characters are known, else the face
// itself. Faces past the characters' counts are elements of their own.
std::vector<std::size_t> faceElements(const std::vector<SolidFace>& faces, const FaceOptions& options);

// Gives each face its own extrusion depth and, with adaptivity, shrinks the
// insets of a face too narrow for the bevel, so that its rings do not cross.
void applyFaceOptions(const FaceOptions& options, std::vector<SolidFace>& faces);

// Only the input faces a component filter lists are extruded; the others pass
// through flat. An empty list extrudes them all.
void extrudeListedFaces(const std::vector<int>& listed, std::vector<SolidFace>& faces);

// What the node's "bevel" switch does to the style resolved from
// "bevelStyle" and its two switches: "Off" (0) keeps it, so that a scene that
// never set the switch builds as before; "Inside" (1) and "Outside" (2)
// choose the inner or the outer bevel whatever those hold.
InternalBevel switchBevel(InternalBevel resolved, int bevelSwitch);

} // namespace type
