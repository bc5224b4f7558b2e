#include "extrude/TypeExtrude.h"

#include "plugin/AttributeSchema.h"

namespace type {

ZObject TypeExtrude::inputMesh;
ZObject TypeExtrude::outputMesh;
ZObject TypeExtrude::charGroupId;
ZObject TypeExtrude::vertsPerChar;
ZObject TypeExtrude::vertexGroupIds;

void* TypeExtrude::creator() {
    return new TypeExtrude;
}

ZStatus TypeExtrude::initialize() {
    AttributeSchema schema("typeExtrudeTwo");
    inputMesh = schema.typed({"inputMesh", "in"}, ZFnData::kMesh, {.storable = false});
    schema.add(inputMesh);
    outputMesh = schema.typed({"outputMesh", "out"}, ZFnData::kMesh, {.writable = false, .storable = false});
    schema.add(outputMesh);
    charGroupId = schema.numeric("charGroupId", ZFnNumericData::kInt, 0.0,
                                 {.readable = false, .writable = true, .array = true});
    schema.add(charGroupId);
    vertsPerChar = schema.typed("vertsPerChar", ZFnData::kDoubleArray);
    schema.add(vertsPerChar);
    vertexGroupIds = schema.typed("vertexGroupIds", ZFnData::kIntArray);
    schema.add(vertexGroupIds);
    schema.affects({inputMesh}, {outputMesh, vertexGroupIds});
    schema.affects({charGroupId}, {vertexGroupIds});
    schema.affects({vertsPerChar}, {outputMesh});
    return schema.status();
}

} // namespace type
