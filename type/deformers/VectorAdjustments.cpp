#include "deformers/VectorAdjustments.h"

#include "plugin/AttributeSchema.h"

namespace type {

ZObject vectorAdjustments::solidsPerCharacter;
ZObject vectorAdjustments::solidsPerWord;
ZObject vectorAdjustments::solidsPerLine;
ZObject vectorAdjustments::grouping;
ZObject vectorAdjustments::vertsPerChar;
ZObject vectorAdjustments::vertexGroupIds;

void* vectorAdjustments::creator() {
    return new vectorAdjustments;
}

ZStatus vectorAdjustments::initialize() {
    AttributeSchema schema("vectorAdjustments");
    solidsPerCharacter = schema.typed("solidsPerCharacter", ZFnData::kDoubleArray, {.storable = false});
    solidsPerWord = schema.typed("solidsPerWord", ZFnData::kDoubleArray, {.storable = false});
    solidsPerLine = schema.typed("solidsPerLine", ZFnData::kDoubleArray, {.storable = false});
    grouping = schema.compound("grouping", {solidsPerCharacter, solidsPerWord, solidsPerLine},
                               {.readable = true, .writable = true, .hidden = true});
    schema.add(grouping);
    vertsPerChar = schema.typed("vertsPerChar", ZFnData::kDoubleArray, {.storable = true, .hidden = true});
    schema.add(vertsPerChar);
    vertexGroupIds = schema.typed("vertexGroupIds", ZFnData::kIntArray, {.storable = false});
    schema.add(vertexGroupIds);
    schema.affects({grouping, vertsPerChar, vertexGroupIds}, {outputGeom});
    return schema.status();
}

} // namespace type
