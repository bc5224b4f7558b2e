#pragma once

#include "extrude/FaceFrame.h"
#include "extrude/ProfileRings.h"
#include "offset/FaceOutline.h"

#include <functional>
#include <span>
#include <vector>

namespace type {

// One face of the flat input, laid into its own plane about its anchor (the
// input point its outline starts at), so that translated copies of a face
// read alike.
struct SolidFace {
    FaceOutline outline;
    FaceFrame frame;
    double height = 0.0; // of the face's plane along its normal, from the anchor
    int firstInputVertex = 0;
    int inputFace = 0;
    Point3 anchor{};
    // Per-face changes to the profile, which leave the topology alone: the
    // extrusion distance added to this face's (through each ring's wall
    // share), and the factor on every ring's inset.
    double extraDepth = 0.0;
    double insetScale = 1.0;
    // A face left unextruded passes through as it came in: one ring, one
    // face turned as the input's, kept in the cap group even without caps.
    bool extruded = true;
};

struct FaceShapes;

// The hole loops of one cap face, as vertex ids of the solid in the order
// they run around the hole.
struct CapHoles {
    int face = 0;
    std::vector<int> loopSizes;
    std::vector<int> vertices;
};

// The solid's topology. Each input face becomes one stack of rings, ring k's
// point j being vertex firstVertex + k * outline size + j; the caps close the
// first and the last ring, and one four-sided face joins each outline edge of
// a ring to the same edge of the next, every loop alike, turned so that the
// solid faces outwards.
struct SolidTopology {
    int vertexCount = 0;
    std::vector<int> faceCounts;
    std::vector<int> faceConnects;
    std::vector<int> capFaces;
    std::vector<int> bevelFaces;
    std::vector<int> extrusionFaces;
    std::vector<CapHoles> capHoles;
    std::vector<int> faceVertexStarts; // per input face, and the vertex count at the end
    // Per input face, the first face and the first connect of its stack, and the totals at the end.
    std::vector<int> stackFaceStarts;
    std::vector<int> stackConnectStarts;
};

// The rings a profile builds: without extrusion, the face itself is the only one.
std::vector<Ring> solidRings(const Profile& profile);
// The rings one face is built with.
std::vector<Ring> faceRings(const SolidFace& face, const Profile& profile);

SolidTopology solidTopology(const std::vector<SolidFace>& faces, const Profile& profile, bool deleteCaps);
// The same for faces already grouped into shapes.
SolidTopology solidTopology(const std::vector<SolidFace>& faces, const FaceShapes& shapes,
                            const Profile& profile, bool deleteCaps);

// Fills `out` with the outline of the faces of shape `shape` moved `offset`
// into their material. It is called for several shapes at once, each call
// with its own `out`.
using RingOffsetter = std::function<void(std::size_t shape, double offset, std::vector<Point2>& out)>;

// The solid's points, built once per shape: each shape's rings in its own
// frame, on a grid fine enough not to matter and coarse enough that every
// copy of a shape placed at its face's anchor is an exact translate of the
// first, so that later work on one copy (cutting its caps into triangles)
// holds for all.
struct ShapePoints {
    std::vector<std::vector<Point3>> local; // per shape
    std::vector<std::size_t> starts;        // per face, where its points start; the total at the end
};

ShapePoints shapePoints(const std::vector<SolidFace>& faces, const FaceShapes& shapes, const Profile& profile,
                        const RingOffsetter& offsetter);

// Places each face's points at its anchor, on all cores, and hands them to
// put(first, points), `first` being where they start in the solid's list:
// writers fill their own point type in one pass.
using PointSink = std::function<void(std::size_t first, std::span<const Point3> points)>;
void placeShapePoints(const std::vector<SolidFace>& faces, const FaceShapes& shapes,
                      const ShapePoints& points, const PointSink& put);

// The running end of each character's vertices in the solid, from the running
// ends of its vertices in the input: a face belongs to the character that
// owns its first input vertex.
std::vector<int> solidCharacterEnds(const std::vector<SolidFace>& faces, const SolidTopology& topology,
                                    const std::vector<int>& inputCharacterEnds);

} // namespace type
