#include "extrude/VectorExtrudeNode.h"
#include "plugin/AttributeSchema.h"
#include "plugin/TypeMessages.h"

#include <string>

namespace type {

ZObject typeExtrude::charGroupId;
ZObject typeExtrude::solidsPerCharacter;
ZObject typeExtrude::solidsPerWord;
ZObject typeExtrude::solidsPerLine;
ZObject typeExtrude::grouping;
ZObject typeExtrude::bevelGroupId;
ZObject typeExtrude::extrudeGroupId;
ZObject typeExtrude::capGroupId;
ZObject typeExtrude::groupIds;
ZObject typeExtrude::capComponents;
ZObject typeExtrude::bevelComponents;
ZObject typeExtrude::extrusionComponents;
ZObject typeExtrude::outComponents;
ZObject typeExtrude::outputMesh;
ZObject typeExtrude::enablePlanarCapUVs;
ZObject typeExtrude::inputMesh;
ZObject typeExtrude::extrudeDistance;
ZObject typeExtrude::extrudeDivisions;
ZObject typeExtrude::extrudeOffset;
ZObject typeExtrude::bevelDistance;
ZObject typeExtrude::bevelOffset;
ZObject typeExtrude::outerBevelDistance;
ZObject typeExtrude::outerBevelDivisions;
ZObject typeExtrude::bevelDivisions;
ZObject typeExtrude::backBevelDistance;
ZObject typeExtrude::backBevelOffset;
ZObject typeExtrude::backBevelDivisions;
ZObject typeExtrude::frontBevelAdaptivity;
ZObject typeExtrude::inputComponents;
ZObject typeExtrude::extrudeDistancePP;
ZObject typeExtrude::extrudeDistanceScalePP;
ZObject typeExtrude::enableExtrusion;
ZObject typeExtrude::enableFrontBevel;
ZObject typeExtrude::enableBackBevel;
ZObject typeExtrude::enableOuterBevel;
ZObject typeExtrude::offsetFrontBevelAsFraction;
ZObject typeExtrude::offsetBackBevelAsFraction;
ZObject typeExtrude::offsetExtrudeAsFraction;
ZObject typeExtrude::keepFacesTogether;
ZObject typeExtrude::deleteCaps;
ZObject typeExtrude::rearBevelUsesFront;
ZObject typeExtrude::vertsPerChar;
ZObject typeExtrude::vertexGroupIds;
ZObject typeExtrude::frontBevelCurve;
ZObject typeExtrude::backBevelCurve;
ZObject typeExtrude::extrudeCurve;
ZObject typeExtrude::outerBevelCurve;
ZObject typeExtrude::bevelStyle;
ZObject typeExtrude::mode;
ZObject typeExtrude::bevel;

// The node's defaults are its own, not typeExtrude's: older scenes were saved
// against these (group ids 1, an extrude offset of 0.3, bevels of 0.3 in 4
// divisions).
ZStatus typeExtrude::initialize() {
    using N = ZFnNumericData;
    AttributeSchema schema(kSourceUnit);
    const AttributeFlags input{.storable = true, .keyable = true};
    const AttributeSchema::Range soft01{.softMin = 0.01, .softMax = 1.0};
    const AttributeSchema::Range divisions{.min = 1.0, .softMax = 10.0};
    auto add = [&](ZObject& attribute, ZObject created,
                   AttributeSchema::Where where = AttributeSchema::Where::current()) {
        attribute = created;
        schema.add(attribute, where);
    };

    add(charGroupId,
        schema.numeric(
            "charGroupId", N::kInt, 0.0,
            {.readable = false, .writable = true, .storable = true, .keyable = true, .array = true}));
    solidsPerCharacter = schema.typed("solidsPerCharacter", ZFnData::kDoubleArray, input);
    solidsPerWord = schema.typed("solidsPerWord", ZFnData::kDoubleArray, input);
    solidsPerLine = schema.typed("solidsPerLine", ZFnData::kDoubleArray, input);
    add(grouping, schema.compound("grouping", {solidsPerCharacter, solidsPerWord, solidsPerLine},
                                  {.readable = true, .writable = true}));
    bevelGroupId = schema.numeric("bevelGroupId", N::kInt, 1.0, input);
    extrudeGroupId = schema.numeric("extrudeGroupId", N::kInt, 1.0, input);
    capGroupId = schema.numeric("capGroupId", N::kInt, 1.0, input);
    add(groupIds, schema.compound("groupIds", {bevelGroupId, extrudeGroupId, capGroupId},
                                  {.readable = true, .writable = true}));
    capComponents = schema.typed("capComponents", ZFnData::kComponentList);
    bevelComponents = schema.typed("bevelComponents", ZFnData::kComponentList);
    extrusionComponents = schema.typed("extrusionComponents", ZFnData::kComponentList);
    add(outComponents, schema.compound("outComponents", {capComponents, bevelComponents, extrusionComponents},
                                       {.readable = true, .writable = true}));
    add(outputMesh, schema.typed("outputMesh", ZFnData::kMesh, {.writable = false, .storable = false}));
    add(enablePlanarCapUVs, schema.numeric("enablePlanarCapUVs", N::kBoolean, 0.0, input));
    add(inputMesh, schema.typed("inputMesh", ZFnData::kMesh, {.storable = false}));
    add(extrudeDistance,
        schema.numeric("extrudeDistance", N::kFloat, 2.5, input, {.softMin = 0.1, .softMax = 10.0}));
    add(extrudeDivisions, schema.numeric("extrudeDivisions", N::kInt, 4.0, input, divisions));
    add(extrudeOffset, schema.numeric("extrudeOffset", N::kFloat, 0.3, input, soft01));
    add(bevelDistance, schema.numeric("bevelDistance", N::kFloat, 0.3, input, soft01));
    add(bevelOffset, schema.numeric("bevelOffset", N::kFloat, 0.5, input, {.softMin = 0.0, .softMax = 1.0}));
    add(outerBevelDistance, schema.numeric("outerBevelDistance", N::kFloat, 0.3, input, soft01));
    add(outerBevelDivisions, schema.numeric("outerBevelDivisions", N::kInt, 4.0, input, divisions));
    add(bevelDivisions, schema.numeric("bevelDivisions", N::kInt, 4.0, input, divisions));
    add(backBevelDistance, schema.numeric("backBevelDistance", N::kFloat, 0.3, input, soft01));
    add(backBevelOffset,
        schema.numeric("backBevelOffset", N::kFloat, 0.5, input, {.softMin = 0.0, .softMax = 1.0}));
    add(backBevelDivisions, schema.numeric("backBevelDivisions", N::kInt, 4.0, input, divisions));
    add(frontBevelAdaptivity,
        schema.numeric("frontBevelAdaptivity", N::kFloat, 0.0, input, {.min = 0.0, .max = 1.0}));
    add(inputComponents, schema.typed({"inputComponents", "ics"}, ZFnData::kComponentList, input));
    add(extrudeDistancePP, schema.typed("extrudeDistancePP", ZFnData::kDoubleArray, input));
    add(extrudeDistanceScalePP, schema.typed("extrudeDistanceScalePP", ZFnData::kDoubleArray, input));
    add(enableExtrusion, schema.numeric("enableExtrusion", N::kBoolean, 1.0, input));
    add(enableFrontBevel, schema.numeric("enableFrontBevel", N::kBoolean, 0.0, input));
    add(enableBackBevel, schema.numeric("enableBackBevel", N::kBoolean, 0.0, input));
    add(enableOuterBevel, schema.numeric("enableOuterBevel", N::kBoolean, 0.0, input));
    add(offsetFrontBevelAsFraction, schema.numeric("offsetFrontBevelAsFraction", N::kBoolean, 1.0, input));
    add(offsetBackBevelAsFraction, schema.numeric("offsetBackBevelAsFraction", N::kBoolean, 1.0, input));
    add(offsetExtrudeAsFraction, schema.numeric("offsetExtrudeAsFraction", N::kBoolean, 1.0, input));
    add(keepFacesTogether, schema.numeric("keepFacesTogether", N::kBoolean, 1.0, input));
    add(deleteCaps, schema.numeric("deleteCaps", N::kBoolean, 0.0, input));
    add(rearBevelUsesFront, schema.numeric("rearBevelUsesFront", N::kBoolean, 0.0, input));
    add(vertsPerChar, schema.typed("vertsPerChar", ZFnData::kDoubleArray, input));
    add(vertexGroupIds,
        schema.typed("vertexGroupIds", ZFnData::kIntArray, {.writable = false, .storable = false}));
    add(frontBevelCurve, schema.curve("frontBevelCurve"));
    add(backBevelCurve, schema.curve("backBevelCurve"));
    add(extrudeCurve, schema.curve("extrudeCurve"));
    add(outerBevelCurve, schema.curve("outerBevelCurve"));
    add(bevelStyle, schema.enumeration("bevelStyle", 1, {{"Outer", 1}, {"Inner", 2}}, input));
    // The field names are messages, so that a translation names the modes too.
    const std::string distanceField = messages::text(messages::kDistanceField).asStdString();
    const std::string normals = messages::text(messages::kNormals).asStdString();
    add(mode,
        schema.enumeration({"mode", "md"}, 1, {{distanceField.c_str(), 0}, {normals.c_str(), 1}}, input));
    add(bevel, schema.enumeration({"bevel", "bv"}, 0, {{"Off", 0}, {"Inside", 1}, {"Outside", 2}}, input));

    schema.affects({charGroupId}, {outputMesh, vertexGroupIds});
    schema.affects({inputMesh}, {outputMesh, outComponents});
    schema.affects({enableExtrusion}, {outputMesh, capComponents, bevelComponents, extrusionComponents});
    // vertexGroupIds is an output, and yet it has always been declared to
    // affect the mesh; scenes and scripts were written against that.
    schema.affects({grouping,
                    solidsPerCharacter,
                    solidsPerWord,
                    solidsPerLine,
                    groupIds,
                    bevelGroupId,
                    extrudeGroupId,
                    capGroupId,
                    enablePlanarCapUVs,
                    extrudeDistance,
                    extrudeDivisions,
                    extrudeOffset,
                    bevelDistance,
                    bevelOffset,
                    outerBevelDistance,
                    outerBevelDivisions,
                    bevelDivisions,
                    backBevelDistance,
                    backBevelOffset,
                    backBevelDivisions,
                    frontBevelAdaptivity,
                    inputComponents,
                    extrudeDistancePP,
                    extrudeDistanceScalePP,
                    enableFrontBevel,
                    enableBackBevel,
                    enableOuterBevel,
                    offsetFrontBevelAsFraction,
                    offsetBackBevelAsFraction,
                    offsetExtrudeAsFraction,
                    keepFacesTogether,
                    deleteCaps,
                    rearBevelUsesFront,
                    vertsPerChar,
                    vertexGroupIds,
                    frontBevelCurve,
                    backBevelCurve,
                    extrudeCurve,
                    outerBevelCurve,
                    bevelStyle,
                    mode,
                    bevel},
                   {outputMesh});
    return schema.status();
}

} // namespace type
