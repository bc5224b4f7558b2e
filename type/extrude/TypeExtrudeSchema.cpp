#include "extrude/ExtrudeSettings.h"
#include "extrude/TypeExtrude.h"
#include "plugin/AttributeSchema.h"
#include "plugin/TypeMessages.h"

#include <string>
#include <utility>

namespace type {

ZObject TypeExtrude::inputMesh;
ZObject TypeExtrude::outputMesh;
ZObject TypeExtrude::mode;
ZObject TypeExtrude::enableExtrusion;
ZObject TypeExtrude::extrudeDivisions;
ZObject TypeExtrude::extrudeDistance;
ZObject TypeExtrude::extrudeOffset;
ZObject TypeExtrude::extrudeCurve;
ZObject TypeExtrude::deleteCaps;
ZObject TypeExtrude::gridSize;
ZObject TypeExtrude::bevelOffset;
ZObject TypeExtrude::frontBevelCurve;
ZObject TypeExtrude::bevelDivisions;
ZObject TypeExtrude::bevelDistance;
ZObject TypeExtrude::capGroupId;
ZObject TypeExtrude::bevelGroupId;
ZObject TypeExtrude::extrudeGroupId;
ZObject TypeExtrude::defaultGroupId;
ZObject TypeExtrude::enableBackBevel;
ZObject TypeExtrude::backBevelOffset;
ZObject TypeExtrude::backBevelCurve;
ZObject TypeExtrude::backBevelDivisions;
ZObject TypeExtrude::backBevelDistance;
ZObject TypeExtrude::rearBevelUsesFront;
ZObject TypeExtrude::enableCapShader;
ZObject TypeExtrude::enableBevelShader;
ZObject TypeExtrude::enableExtrudeShader;
ZObject TypeExtrude::charGroupId;
ZObject TypeExtrude::capComponents;
ZObject TypeExtrude::bevelComponents;
ZObject TypeExtrude::extrusionComponents;
ZObject TypeExtrude::outComponents;
ZObject TypeExtrude::vertsPerChar;
ZObject TypeExtrude::offsetFrontBevelAsFraction;
ZObject TypeExtrude::offsetBackBevelAsFraction;
ZObject TypeExtrude::offsetExtrudeAsFraction;
ZObject TypeExtrude::enableFrontBevel;
ZObject TypeExtrude::enableOuterBevel;
ZObject TypeExtrude::outerBevelCurve;
ZObject TypeExtrude::outerBevelDistance;
ZObject TypeExtrude::outerBevelDivisions;
ZObject TypeExtrude::bevelStyle;
ZObject TypeExtrude::vertexGroupIds;

void* TypeExtrude::creator() {
    return new TypeExtrude;
}

ZStatus TypeExtrude::initialize() {
    using N = ZFnNumericData;
    AttributeSchema schema(kSourceUnit);
    const ExtrudeAttributes d;
    const AttributeFlags input{.storable = true, .keyable = true};
    auto add = [&](ZObject& attribute, ZObject created,
                   AttributeSchema::Where where = AttributeSchema::Where::current()) {
        attribute = created;
        schema.add(attribute, where);
    };

    add(inputMesh, schema.typed({"inputMesh", "in"}, ZFnData::kMesh, {.storable = false}));
    add(outputMesh,
        schema.typed({"outputMesh", "out"}, ZFnData::kMesh, {.writable = false, .storable = false}));
    // The field names are messages, so that a translation names the modes too.
    const std::string distanceField = messages::text(messages::kDistanceField).asStdString();
    const std::string normals = messages::text(messages::kNormals).asStdString();
    add(mode, schema.enumeration({"mode", "md"}, d.mode, {{distanceField.c_str(), 0}, {normals.c_str(), 1}},
                                 input));
    add(enableExtrusion, schema.numeric({"enableExtrusion", "enEx"}, N::kBoolean, d.enableExtrusion, input));
    add(extrudeDivisions, schema.numeric({"extrudeDivisions", "exdv"}, N::kInt, d.extrudeDivisions, input,
                                         {.min = 1.0, .softMin = 1.0, .softMax = 10.0}));
    add(extrudeDistance, schema.numeric({"extrudeDistance", "exds"}, N::kFloat, d.extrudeDistance, input,
                                        {.softMin = 0.1, .softMax = 10.0}));
    add(extrudeOffset, schema.numeric({"extrudeOffset", "exof"}, N::kFloat, d.extrudeOffset, input,
                                      {.softMin = 0.0, .softMax = 1.0}));
    add(extrudeCurve, schema.curve({"extrudeCurve", "exc"}));
    add(deleteCaps, schema.numeric({"deleteCaps", "dcs"}, N::kBoolean, d.deleteCaps, input));
    add(gridSize, schema.numeric({"gridSize", "gs"}, N::kInt, d.gridSize, input));
    add(bevelOffset, schema.numeric({"bevelOffset", "bof"}, N::kFloat, d.bevelOffset, input,
                                    {.softMin = 0.0, .softMax = 1.0}));
    add(frontBevelCurve, schema.curve({"frontBevelCurve", "fbc"}));
    add(bevelDivisions, schema.numeric({"bevelDivisions", "bdv"}, N::kInt, d.bevelDivisions, input,
                                       {.min = 1.0, .softMin = 1.0, .softMax = 20.0}));
    add(bevelDistance, schema.numeric({"bevelDistance", "bds"}, N::kFloat, d.bevelDistance, input,
                                      {.softMin = -1.0, .softMax = 1.0}));
    add(capGroupId, schema.numeric({"capGroupId", "cid"}, N::kInt, -1.0, input));
    add(bevelGroupId, schema.numeric({"bevelGroupId", "bid"}, N::kInt, -1.0, input));
    add(extrudeGroupId, schema.numeric({"extrudeGroupId", "eid"}, N::kInt, -1.0, input));
    add(defaultGroupId, schema.numeric({"defaultGroupId", "did"}, N::kInt, -1.0, input));
    add(enableBackBevel, schema.numeric({"enableBackBevel", "ebb"}, N::kBoolean, d.enableBackBevel, input));
    add(backBevelOffset, schema.numeric({"backBevelOffset", "bbof"}, N::kFloat, d.backBevelOffset, input,
                                        {.softMin = 0.0, .softMax = 1.0}));
    add(backBevelCurve, schema.curve({"backBevelCurve", "bbc"}));
    add(backBevelDivisions, schema.numeric({"backBevelDivisions", "bbdv"}, N::kInt, d.backBevelDivisions,
                                           input, {.min = 1.0, .softMin = 1.0, .softMax = 20.0}));
    add(backBevelDistance, schema.numeric({"backBevelDistance", "bbds"}, N::kFloat, d.backBevelDistance,
                                          input, {.softMin = -1.0, .softMax = 1.0}));
    add(rearBevelUsesFront,
        schema.numeric({"rearBevelUsesFront", "rbuf"}, N::kBoolean, d.rearBevelUsesFront, input));
    add(enableCapShader, schema.numeric({"enableCapShader", "ecs"}, N::kBoolean, 0.0, input));
    add(enableBevelShader, schema.numeric({"enableBevelShader", "ebs"}, N::kBoolean, 0.0, input));
    add(enableExtrudeShader, schema.numeric({"enableExtrudeShader", "ees"}, N::kBoolean, 0.0, input));
    add(charGroupId,
        schema.numeric(
            "charGroupId", N::kInt, 0.0,
            {.readable = false, .writable = true, .storable = true, .keyable = true, .array = true}));
    capComponents = schema.typed("capComponents", ZFnData::kComponentList);
    bevelComponents = schema.typed("bevelComponents", ZFnData::kComponentList);
    extrusionComponents = schema.typed("extrusionComponents", ZFnData::kComponentList);
    add(outComponents, schema.compound("outComponents", {capComponents, bevelComponents, extrusionComponents},
                                       {.readable = true, .writable = true}));
    add(vertsPerChar, schema.typed("vertsPerChar", ZFnData::kDoubleArray, input));
    add(offsetFrontBevelAsFraction, schema.numeric("offsetFrontBevelAsFraction", N::kBoolean, 1.0, input));
    add(offsetBackBevelAsFraction, schema.numeric("offsetBackBevelAsFraction", N::kBoolean, 1.0, input));
    add(offsetExtrudeAsFraction, schema.numeric("offsetExtrudeAsFraction", N::kBoolean, 1.0, input));
    add(enableFrontBevel, schema.numeric("enableFrontBevel", N::kBoolean, d.enableFrontBevel, input));
    add(enableOuterBevel, schema.numeric("enableOuterBevel", N::kBoolean, d.enableOuterBevel, input));
    add(outerBevelCurve, schema.curve({"outerBevelCurve", "obc"}));
    add(outerBevelDistance,
        schema.numeric("outerBevelDistance", N::kFloat, 0.3, input, {.softMin = 0.01, .softMax = 1.0}));
    add(outerBevelDivisions,
        schema.numeric("outerBevelDivisions", N::kInt, 4.0, input, {.min = 1.0, .softMax = 10.0}));
    add(bevelStyle, schema.enumeration("bevelStyle", d.bevelStyle, {{"Outer", 1}, {"Inner", 2}}, input));
    add(vertexGroupIds,
        schema.typed("vertexGroupIds", ZFnData::kIntArray, {.writable = false, .storable = false}));

    schema.affects({inputMesh}, {outputMesh, outComponents, vertexGroupIds});
    schema.affects(
        {mode,           extrudeDistance,   extrudeOffset,       extrudeCurve,      gridSize,
         bevelOffset,    frontBevelCurve,   deleteCaps,          bevelDistance,     backBevelOffset,
         backBevelCurve, backBevelDistance, capGroupId,          bevelGroupId,      extrudeGroupId,
         defaultGroupId, enableCapShader,   enableExtrudeShader, enableBevelShader, vertsPerChar,
         bevelStyle},
        {outputMesh});
    schema.affects({enableExtrusion, extrudeDivisions, bevelDivisions, enableBackBevel, backBevelDivisions,
                    rearBevelUsesFront, enableFrontBevel, enableOuterBevel},
                   {outputMesh, outComponents});
    schema.affects({outerBevelDivisions}, {outComponents});
    schema.affects({charGroupId}, {outComponents, vertexGroupIds});
    return schema.status();
}

} // namespace type
