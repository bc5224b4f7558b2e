#include "extrude/ExtrudeHostSteps.h"
#include "extrude/ExtrudeSettings.h"
#include "extrude/FaceOptions.h"
#include "extrude/FaceShapes.h"
#include "extrude/PlanarCapUvs.h"
#include "extrude/ProfileRings.h"
#include "extrude/RingOffset.h"
#include "extrude/SolidAssembly.h"
#include "extrude/UvAtlas.h"
#include "extrude/VectorExtrudeNode.h"
#include "offset/Mitres.h"
#include "plugin/ApiError.h"
#include "plugin/TypeMessages.h"

#include <OpenZyvo/ZDataBlock.h>
#include <OpenZyvo/ZDataHandle.h>
#include <OpenZyvo/ZDoubleArray.h>
#include <OpenZyvo/ZFnComponent.h>
#include <OpenZyvo/ZFnComponentListData.h>
#include <OpenZyvo/ZFnDoubleArrayData.h>
#include <OpenZyvo/ZFnMesh.h>
#include <OpenZyvo/ZFnSingleIndexedComponent.h>
#include <OpenZyvo/ZGlobal.h>
#include <OpenZyvo/ZIntArray.h>
#include <OpenZyvo/ZPlug.h>
#include <OpenZyvo/ZPointArray.h>
#include <OpenZyvo/ZPxCommand.h>
#include <iostream>
#include <string>
#include <vector>

namespace type {

namespace {

using V = typeExtrude;
constexpr const char* kUnit = V::kSourceUnit;

bool isOutput(const ZObject& attribute) {
    for (const ZObject* output : {&V::outputMesh, &V::outComponents, &V::capComponents, &V::bevelComponents,
                                  &V::extrusionComponents, &V::vertexGroupIds})
        if (attribute == *output)
            return true;
    return false;
}

// The node has no grid size of its own: its distance fields use typeExtrude's default.
ExtrudeAttributes readAttributes(ZDataBlock& block) {
    ExtrudeAttributes a;
    a.mode = block.inputValue(V::mode).asShort();
    a.bevelOffset = block.inputValue(V::bevelOffset).asFloat();
    a.bevelStyle = block.inputValue(V::bevelStyle).asShort();
    a.enableOuterBevel = block.inputValue(V::enableOuterBevel).asBool();
    a.enableFrontBevel = block.inputValue(V::enableFrontBevel).asBool();
    a.deleteCaps = block.inputValue(V::deleteCaps).asBool();
    a.bevelDistance = block.inputValue(V::bevelDistance).asFloat();
    a.bevelDivisions = block.inputValue(V::bevelDivisions).asInt();
    a.enableBackBevel = block.inputValue(V::enableBackBevel).asBool();
    a.backBevelDistance = block.inputValue(V::backBevelDistance).asFloat();
    a.backBevelDivisions = block.inputValue(V::backBevelDivisions).asInt();
    a.backBevelOffset = block.inputValue(V::backBevelOffset).asFloat();
    a.rearBevelUsesFront = block.inputValue(V::rearBevelUsesFront).asBool();
    a.enableExtrusion = block.inputValue(V::enableExtrusion).asBool();
    a.extrudeDistance = block.inputValue(V::extrudeDistance).asFloat();
    a.extrudeDivisions = block.inputValue(V::extrudeDivisions).asInt();
    a.extrudeOffset = block.inputValue(V::extrudeOffset).asFloat();
    return a;
}

std::vector<double> doubles(ZDataBlock& block, const ZObject& attribute) {
    const ZObject data = block.inputValue(attribute).data();
    ZDoubleArray values;
    if (!data.isNull())
        ZFnDoubleArrayData(data).copyTo(values);
    return values.asVector();
}

FaceOptions readFaceOptions(ZDataBlock& block, const ExtrudeSettings& settings) {
    FaceOptions options;
    options.extrudeDistance = settings.extrudeDistance;
    options.distancePP = doubles(block, V::extrudeDistancePP);
    options.distanceScalePP = doubles(block, V::extrudeDistanceScalePP);
    options.keepFacesTogether = block.inputValue(V::keepFacesTogether).asBool();
    options.solidsPerCharacter = doubles(block, V::solidsPerCharacter);
    options.frontBevelAdaptivity = block.inputValue(V::frontBevelAdaptivity).asFloat();
    options.bevelDistance = settings.bevelDistance;
    return options;
}

// The input faces named by "inputComponents"; vertex and edge components
// name no face and are passed over.
std::vector<int> listedInputFaces(ZDataBlock& block) {
    std::vector<int> faces;
    const ZObject data = block.inputValue(V::inputComponents).data();
    if (data.isNull())
        return faces;
    const ZFnComponentListData list(data);
    for (unsigned int i = 0; i < list.length(); ++i) {
        const ZObject component = list[i];
        if (ZFnComponent(component).componentType() != ZFn::kMeshPolygonComponent)
            continue;
        ZIntArray elements;
        ZFnSingleIndexedComponent(component).getElements(elements);
        faces.insert(faces.end(), elements.begin(), elements.end());
    }
    return faces;
}

} // namespace

ZStatus typeExtrude::compute(const ZPlug& plug, ZDataBlock& block) {
    if (!isOutput(plug.attribute()))
        return ZStatus::kUnknownParameter;
    ZStatus status;
    const ZObject input = block.inputValue(inputMesh, &status).asMesh();
    if (!status || input.isNull()) {
        ZPxCommand::displayError(messages::text(messages::kTypeExtrudeNoMesh));
        return ZStatus::kFailure;
    }
    ExtrudeSettings settings = resolveExtrudeSettings(readAttributes(block));
    settings.bevelStyle = switchBevel(settings.bevelStyle, block.inputValue(bevel).asShort());
    const FaceOptions options = readFaceOptions(block, settings);

    InputLayout layout;
    std::string problem = checkFaceOptions(options);
    if (problem.empty()) {
        const ZFnMesh in(input);
        ZPointArray inputPoints;
        if (status = in.getPoints(inputPoints, ZSpace::kObject); !status)
            return reportApiError(status, kUnit);
        if (inputPoints.length() < 3)
            problem = "the input mesh has fewer than 3 points";
        else if (status = layOutInput(in, inputPoints, layout, kUnit); !status)
            return status;
    }
    // Input the node cannot build from: the reason on the console, the user's
    // warning pointing there, and an empty solid rather than a stale one.
    if (!problem.empty()) {
        std::cout << "vectorExtrude: " << problem << std::endl;
        ZGlobal::displayWarning(messages::text(messages::kTypeSVGNoValidInput));
        layout = {};
    }
    std::vector<SolidFace>& faces = layout.faces;
    extrudeListedFaces(listedInputFaces(block), faces);
    applyFaceOptions(options, faces);

    const FaceShapes shapes = faceShapes(faces);
    std::vector<std::vector<Mitre>> shapeMitres(shapes.firstFace.size());
    for (std::size_t s = 0; s < shapeMitres.size(); ++s)
        shapeMitres[s] = mitres(faces[static_cast<std::size_t>(shapes.firstFace[s])].outline);
    const ProfileSamples samples =
        sampleProfileCurves(thisZObject(), {extrudeCurve, frontBevelCurve, backBevelCurve}, settings, kUnit);
    const Profile profile = sampleProfile(settings, samples);
    std::vector<DistanceFieldOffset> fields;
    if (settings.mode == OffsetMode::kDistanceField) {
        std::vector<const FaceOutline*> outlines;
        for (const int face : shapes.firstFace)
            outlines.push_back(&faces[static_cast<std::size_t>(face)].outline);
        fields = distanceFields(outlines, shapeMitres, settings.gridSize);
    }
    const ShapePoints points =
        shapePoints(faces, shapes, profile, [&](std::size_t shape, double offset, std::vector<Point2>& out) {
            const DistanceFieldOffset* field = shape < fields.size() ? &fields[shape] : nullptr;
            offsetRing(
                {faces[static_cast<std::size_t>(shapes.firstFace[shape])].outline, shapeMitres[shape], field},
                settings.mode, settings.bevelStyle, offset, out);
        });
    ZPointArray meshPoints;
    writeSolidPoints(faces, shapes, points, meshPoints);

    SolidTopology topology = solidTopology(faces, shapes, profile, settings.deleteCaps);
    const bool planarCaps = block.inputValue(enablePlanarCapUVs).asBool();
    auto uvs = [&] {
        SolidUvs atlas = solidUvs(faces, shapes, profile, topology, settings.deleteCaps);
        if (planarCaps)
            planarCapUvs(faces, topology, atlas);
        return atlas;
    };
    ZObject data;
    if (status = writeSolidMesh(data, {topology, meshPoints, faces, layout.colours, uvs}, kUnit,
                                "Failed to create hole \n");
        !status)
        return status;
    if (status = writeSolidComponents(
            block, data,
            {{capComponents, topology.capFaces, block.inputValue(capGroupId).asInt()},
             {bevelComponents, topology.bevelFaces, block.inputValue(bevelGroupId).asInt()},
             {extrusionComponents, topology.extrusionFaces, block.inputValue(extrudeGroupId).asInt()}},
            kUnit);
        !status)
        return status;
    if (status = block.outputValue(outputMesh).setZObject(data); !status)
        return reportApiError(status, kUnit);
    // The character groups go with every new mesh: an input change does not
    // dirty vertexGroupIds, and a mesh without them would lose its characters.
    if (status = writeCharacterGroups(block, {outputMesh, vertsPerChar, charGroupId, vertexGroupIds}, name(),
                                      faces, topology, kUnit);
        !status)
        return status;
    for (const ZObject* clean :
         {&outputMesh, &outComponents, &capComponents, &bevelComponents, &extrusionComponents})
        if (status = block.setClean(*clean); !status)
            return reportApiError(status, kUnit);
    std::cout << "number of faces: " << topology.faceCounts.size() << std::endl;
    return ZStatus::kSuccess;
}

} // namespace type
