#pragma once

#include "extrude/ExtrudeSettings.h"
#include "extrude/ProfileRings.h"
#include "extrude/SolidAssembly.h"
#include "extrude/UvAtlas.h"

#include <OpenZyvo/ZColor.h>
#include <OpenZyvo/ZDataBlock.h>
#include <OpenZyvo/ZFnMesh.h>
#include <OpenZyvo/ZIntArray.h>
#include <OpenZyvo/ZObject.h>
#include <OpenZyvo/ZPointArray.h>
#include <OpenZyvo/ZString.h>
#include <functional>
#include <initializer_list>
#include <vector>

// The host-side steps that both extrusion nodes take around the shared
// kernels: reading the flat input, sampling the profile curves and writing
// the solid, its component groups and its character groups. Each reports a
// failed host call in the shared style under the calling node's unit name.
namespace type {

// The input's faces laid into their own planes, with the colour of each.
struct InputLayout {
    std::vector<SolidFace> faces;
    std::vector<ZColor> colours;
};

ZStatus layOutInput(const ZFnMesh& mesh, const ZPointArray& points, InputLayout& out, const char* unit);

// The three profile curves of a node, sampled for the blocks `settings` builds.
struct ProfileCurves {
    ZObject extrude;
    ZObject front;
    ZObject back;
};

// Writes the profile a new node starts with; a node read from a scene keeps
// curves that hold enough points.
void writeDefaultProfileCurves(const ZObject& node, const ProfileCurves& curves, const char* unit);

ProfileSamples sampleProfileCurves(const ZObject& node, const ProfileCurves& curves,
                                   const ExtrudeSettings& settings, const char* unit);

// Puts an empty mesh on `outputMesh`, for input the nodes cannot build from.
ZStatus writeEmptyMesh(ZDataBlock& block, const ZObject& outputMesh, const char* unit);

// The solid's points as the mesh takes them; `out` is resized to fit.
void writeSolidPoints(const std::vector<SolidFace>& faces, const FaceShapes& shapes,
                      const ShapePoints& points, ZPointArray& out);
ZIntArray intArray(const std::vector<int>& values);

struct SolidMeshParts {
    // Its counts and connects are lent to the mesh while it is created, and back after.
    SolidTopology& topology;
    const ZPointArray& points;
    const std::vector<SolidFace>& faces;
    const std::vector<ZColor>& colours;
    // Works out the uvs; it runs beside the building of the mesh.
    std::function<SolidUvs()> uvs;
};

// A new mesh data object holding the solid, its cap holes, colours and uvs.
// `holeFailure`, when given, is printed to the console before a failed hole
// insertion is reported.
ZStatus writeSolidMesh(ZObject& data, const SolidMeshParts& parts, const char* unit,
                       const char* holeFailure = nullptr);

// One of the cap, bevel and extrusion groups: its output list, faces and id.
struct ComponentGroup {
    const ZObject& attribute;
    std::vector<int>& faces; // lent to the group's component while it is filled
    int id;
};

ZStatus writeSolidComponents(ZDataBlock& block, const ZObject& data,
                             std::initializer_list<ComponentGroup> groups, const char* unit);

struct CharacterGroupPlugs {
    const ZObject& outputMesh;
    const ZObject& vertsPerChar;
    const ZObject& charGroupId;
    const ZObject& vertexGroupIds;
};

// The per-character vertex groups on the mesh on `outputMesh`, and the ids
// they took on `vertexGroupIds`.
ZStatus writeCharacterGroups(ZDataBlock& block, const CharacterGroupPlugs& plugs, const ZString& nodeName,
                             const std::vector<SolidFace>& faces, const SolidTopology& topology,
                             const char* unit);

} // namespace type
