#pragma once

#include "extrude/FaceShapes.h"
#include "extrude/SolidAssembly.h"
#include "offset/DistanceFieldCache.h"
#include "offset/Mitres.h"

#include <OpenZyvo/ZColor.h>
#include <OpenZyvo/ZPointArray.h>
#include <OpenZyvo/ZPxNode.h>
#include <vector>

namespace type {

// The "typeExtrude" node: turns the flat text mesh into a solid with caps,
// bevels and walls, and publishes its cap, bevel and extrusion faces and the
// vertices of each character as components and object groups.
//
// Inputs that change the solid's topology set the rebuild flag when they are
// dirtied; while it is clear, an evaluation only moves the points of the mesh
// it built last.
class TypeExtrude : public ZPxNode {
public:
    static constexpr unsigned int kTypeId = 0x123C25;
    static constexpr const char* kTypeName = "typeExtrude";
    // The name the node's error reports give as their source.
    static constexpr const char* kSourceUnit = "typeExtrudeTwo";

    static void* creator();
    static ZStatus initialize();

    void postConstructor() override;
    ZStatus compute(const ZPlug& plug, ZDataBlock& block) override;
    ZStatus setDependentsDirty(const ZPlug& plug, ZPlugArray& affected) override;
    ZStatus preEvaluation(const ZDGContext& context, const ZEvaluationNode& evaluationNode) override;

    bool needsRebuild() const { return m_rebuild; }

    static ZObject inputMesh;
    static ZObject outputMesh;
    static ZObject mode;
    static ZObject enableExtrusion;
    static ZObject extrudeDivisions;
    static ZObject extrudeDistance;
    static ZObject extrudeOffset;
    static ZObject extrudeCurve;
    static ZObject deleteCaps;
    static ZObject gridSize;
    static ZObject bevelOffset;
    static ZObject frontBevelCurve;
    static ZObject bevelDivisions;
    static ZObject bevelDistance;
    static ZObject capGroupId;
    static ZObject bevelGroupId;
    static ZObject extrudeGroupId;
    static ZObject defaultGroupId;
    static ZObject enableBackBevel;
    static ZObject backBevelOffset;
    static ZObject backBevelCurve;
    static ZObject backBevelDivisions;
    static ZObject backBevelDistance;
    static ZObject rearBevelUsesFront;
    static ZObject enableCapShader;
    static ZObject enableBevelShader;
    static ZObject enableExtrudeShader;
    static ZObject charGroupId;
    static ZObject capComponents;
    static ZObject bevelComponents;
    static ZObject extrusionComponents;
    static ZObject outComponents;
    static ZObject vertsPerChar;
    static ZObject offsetFrontBevelAsFraction;
    static ZObject offsetBackBevelAsFraction;
    static ZObject offsetExtrudeAsFraction;
    static ZObject enableFrontBevel;
    static ZObject enableOuterBevel;
    static ZObject outerBevelCurve;
    static ZObject outerBevelDistance;
    static ZObject outerBevelDivisions;
    static ZObject bevelStyle;
    static ZObject vertexGroupIds;

private:
    void emptyCaches();
    ZStatus buildSolid(ZDataBlock& block);
    ZStatus writeMesh(ZObject& data, const Profile& profile, bool deleteCaps);
    ZStatus writeComponents(ZDataBlock& block, const ZObject& data, int capId, int bevelId, int extrudeId);
    ZStatus groupCharacters(ZDataBlock& block);

    bool m_rebuild = true;
    // The input as the last evaluation laid it out, and the offset directions
    // of its faces, kept until the input mesh or the grid size changes.
    std::vector<SolidFace> m_faces;
    std::vector<ZColor> m_colours;
    // The faces grouped by shape; directions and fields are per shape.
    FaceShapes m_shapes;
    std::vector<std::vector<Mitre>> m_mitres;
    // Built in the "Distance Field" mode only, with the grid size of then; the cache outlives an
    // input change, so that a text change builds fields only for the letters it brings.
    std::vector<DistanceFieldCache::Field> m_fields;
    DistanceFieldCache m_fieldCache;
    // The topology of the mesh on "outputMesh".
    SolidTopology m_topology;
    // The solid's points, kept so that each evaluation writes into memory it had.
    ZPointArray m_meshPoints;
};

} // namespace type
