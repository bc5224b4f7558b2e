#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZMatrix.h>
#include <OpenZyvo/ZPxNode.h>

class ZItGeometry;

// Base of nodes that move the points of geometry flowing through them. Every such node carries
// the attributes below; `outputGeom[i]` is `input[i].inputGeom` after deform() moved the points of
// a copy of it, so one node deforms several geometries, each under its own multi-index.
//
// A subclass registers with the deformer kind, adds its own attributes in its initialiser and
// declares that they affect `outputGeom`. It may override compute() for outputs of its own and
// hand every other plug to ZPxGeometryFilter::compute().
class OZ_API ZPxGeometryFilter : public ZPxNode {
public:
    // input[] (compound array): inputGeom (mesh) and groupId (int).
    static ZObject input;
    static ZObject inputGeom;
    static ZObject groupId;
    // outputGeom[] (mesh array), one element per element of input.
    static ZObject outputGeom;
    // How much of the deformation applies (float, default 1, keyable). The base never reads it:
    // the deformer decides what an envelope means, even 0.
    static ZObject envelope;

    ZPxGeometryFilter();
    ~ZPxGeometryFilter() override;

    ZStatus compute(const ZPlug& plug, ZDataBlock& block) override;

    // Moves the points of the copy of input[multiIndex].inputGeom that `iterator` walks.
    // `localToWorld` places the geometry in the scene (the world matrix of the shape that shows
    // the output, identity when none does). A failure leaves the output equal to the input.
    virtual ZStatus deform(ZDataBlock& block, ZItGeometry& iterator, const ZMatrix& localToWorld,
                           unsigned int multiIndex);
};
