#include "deformers/TypeAnimationDeformer.h"

#include "plugin/AttributeSchema.h"

namespace type {

ZObject TypeAnimationDeformer::time;
ZObject TypeAnimationDeformer::solidsPerCharacter;
ZObject TypeAnimationDeformer::solidsPerWord;
ZObject TypeAnimationDeformer::solidsPerLine;
ZObject TypeAnimationDeformer::grouping;
ZObject TypeAnimationDeformer::vertsPerChar;
ZObject TypeAnimationDeformer::vertexGroupIds;

void* TypeAnimationDeformer::creator() {
    return new TypeAnimationDeformer;
}

ZStatus TypeAnimationDeformer::initialize() {
    AttributeSchema schema("typeAnimationDeformer");
    time = schema.unit({"time", "ti"}, ZFnUnitAttribute::kTime, 1.0);
    schema.add(time);
    solidsPerCharacter = schema.typed("solidsPerCharacter", ZFnData::kDoubleArray, {.storable = true});
    solidsPerWord = schema.typed("solidsPerWord", ZFnData::kDoubleArray, {.storable = true});
    solidsPerLine = schema.typed("solidsPerLine", ZFnData::kDoubleArray, {.storable = true});
    grouping = schema.compound("grouping", {solidsPerCharacter, solidsPerWord, solidsPerLine},
                               {.readable = true, .writable = true});
    schema.add(grouping);
    vertsPerChar = schema.typed("vertsPerChar", ZFnData::kDoubleArray, {.storable = true});
    schema.add(vertsPerChar);
    vertexGroupIds = schema.typed("vertexGroupIds", ZFnData::kIntArray, {.storable = false});
    schema.add(vertexGroupIds);
    schema.affects({time, vertsPerChar, vertexGroupIds}, {outputGeom});
    return schema.status();
}

} // namespace type
