#pragma once

#include <OpenZyvo/ZPxNode.h>

namespace type {

// The "vectorExtrude" node, the earlier extrusion that older scenes use. Its
// class name keeps the lower case it always had. It builds with the same
// kernels as "typeExtrude" and, with its extra inputs at their defaults,
// builds the same solid; those inputs bend the construction face by face
// (per-element depths, adaptive bevel insets), pick the faces to extrude,
// force a bevel and project the caps' uvs as one plane. It keeps no caches:
// every evaluation rebuilds the solid.
class typeExtrude : public ZPxNode {
public:
    static constexpr unsigned int kTypeId = 0x11BE2C;
    static constexpr const char* kTypeName = "vectorExtrude";
    // The name the node's error reports give as their source.
    static constexpr const char* kSourceUnit = "typeExtrude";

    static void* creator();
    static ZStatus initialize();

    void postConstructor() override;
    ZStatus compute(const ZPlug& plug, ZDataBlock& block) override;

    static ZObject charGroupId;
    static ZObject solidsPerCharacter;
    static ZObject solidsPerWord;
    static ZObject solidsPerLine;
    static ZObject grouping;
    static ZObject bevelGroupId;
    static ZObject extrudeGroupId;
    static ZObject capGroupId;
    static ZObject groupIds;
    static ZObject capComponents;
    static ZObject bevelComponents;
    static ZObject extrusionComponents;
    static ZObject outComponents;
    static ZObject outputMesh;
    static ZObject enablePlanarCapUVs;
    static ZObject inputMesh;
    static ZObject extrudeDistance;
    static ZObject extrudeDivisions;
    static ZObject extrudeOffset;
    static ZObject bevelDistance;
    static ZObject bevelOffset;
    static ZObject outerBevelDistance;
    static ZObject outerBevelDivisions;
    static ZObject bevelDivisions;
    static ZObject backBevelDistance;
    static ZObject backBevelOffset;
    static ZObject backBevelDivisions;
    static ZObject frontBevelAdaptivity;
    static ZObject inputComponents;
    static ZObject extrudeDistancePP;
    static ZObject extrudeDistanceScalePP;
    static ZObject enableExtrusion;
    static ZObject enableFrontBevel;
    static ZObject enableBackBevel;
    static ZObject enableOuterBevel;
    static ZObject offsetFrontBevelAsFraction;
    static ZObject offsetBackBevelAsFraction;
    static ZObject offsetExtrudeAsFraction;
    static ZObject keepFacesTogether;
    static ZObject deleteCaps;
    static ZObject rearBevelUsesFront;
    static ZObject vertsPerChar;
    static ZObject vertexGroupIds;
    static ZObject frontBevelCurve;
    static ZObject backBevelCurve;
    static ZObject extrudeCurve;
    static ZObject outerBevelCurve;
    static ZObject bevelStyle;
    static ZObject mode;
    static ZObject bevel;
};

} // namespace type
