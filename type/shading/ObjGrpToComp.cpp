#include "shading/ObjGrpToComp.h"

#include "plugin/ApiError.h"
#include "plugin/AttributeSchema.h"

#include <OpenZyvo/ZArrayDataBuilder.h>
#include <OpenZyvo/ZArrayDataHandle.h>
#include <OpenZyvo/ZDataBlock.h>
#include <OpenZyvo/ZDataHandle.h>
#include <OpenZyvo/ZFnComponentListData.h>
#include <OpenZyvo/ZFnGeometryData.h>
#include <OpenZyvo/ZFnSingleIndexedComponent.h>
#include <OpenZyvo/ZIntArray.h>
#include <OpenZyvo/ZPlug.h>

namespace type {

namespace {

constexpr const char* kUnit = objGrpToComp::kSourceUnit;

// A component list holding one face component with `faces`.
ZStatus faceList(const std::vector<int>& faces, ZObject& list) {
    ZStatus status;
    ZFnComponentListData listFn;
    list = listFn.create(&status);
    if (!status)
        return reportApiError(status, kUnit);
    ZFnSingleIndexedComponent componentFn;
    const ZObject component = componentFn.create(ZFn::kMeshPolygonComponent, &status);
    if (!status)
        return reportApiError(status, kUnit);
    if (status = componentFn.addElements(ZIntArray(faces)); !status)
        return reportApiError(status, kUnit);
    if (status = listFn.add(component); !status)
        return reportApiError(status, kUnit);
    return ZStatus::kSuccess;
}

} // namespace

ZStatus objectGroupMembers(const ZObject& meshData, std::vector<std::vector<int>>& members) {
    members.clear();
    ZStatus status;
    const ZFnGeometryData geometry(meshData, &status);
    if (!status)
        return reportApiError(status, kUnit);
    const unsigned int count = geometry.objectGroupCount(&status);
    if (!status)
        return reportApiError(status, kUnit);
    for (unsigned int i = 0; i < count; ++i) {
        const unsigned int id = geometry.objectGroup(i, &status);
        if (!status)
            return reportApiError(status, kUnit);
        const ZObject component = geometry.objectGroupComponent(id, &status);
        if (!status)
            return reportApiError(status, kUnit);
        ZIntArray elements;
        if (component.hasFn(ZFn::kSingleIndexedComponent)) {
            if (status = ZFnSingleIndexedComponent(component).getElements(elements); !status)
                return reportApiError(status, kUnit);
        }
        members.emplace_back(elements.begin(), elements.end());
    }
    return ZStatus::kSuccess;
}

ZObject objGrpToComp::outComponents;
ZObject objGrpToComp::outputMesh;
ZObject objGrpToComp::inputMesh;
ZObject objGrpToComp::generatePlanarUVs;

void* objGrpToComp::creator() {
    return new objGrpToComp;
}

ZStatus objGrpToComp::initialize() {
    AttributeSchema schema(kSourceUnit);
    outComponents = schema.typed("outComponents", ZFnData::kComponentList, {.storable = true, .array = true});
    schema.add(outComponents);
    outputMesh = schema.typed("outputMesh", ZFnData::kMesh, {.storable = false});
    schema.add(outputMesh);
    inputMesh = schema.typed("inputMesh", ZFnData::kMesh, {.storable = false});
    schema.add(inputMesh);
    generatePlanarUVs = schema.numeric("generatePlanarUVs", ZFnNumericData::kBoolean, 1.0, {.hidden = true});
    schema.add(generatePlanarUVs);

    schema.affects({inputMesh}, {outputMesh, outComponents});
    schema.affects({generatePlanarUVs}, {outputMesh});
    return schema.status();
}

// The component lists are written only on the way to the mesh, so they always
// describe the groups of the mesh this node last passed through.
ZStatus objGrpToComp::compute(const ZPlug& plug, ZDataBlock& block) {
    if (plug.attribute() != outputMesh)
        return ZStatus::kUnknownParameter;
    ZStatus status;
    const ZDataHandle input = block.inputValue(inputMesh, &status);
    if (!status)
        return reportApiError(status, kUnit);
    ZDataHandle output = block.outputValue(outputMesh, &status);
    if (!status)
        return reportApiError(status, kUnit);
    ZArrayDataHandle lists = block.outputArrayValue(outComponents, &status);
    if (!status)
        return reportApiError(status, kUnit);
    if (status = output.copy(input); !status)
        return reportApiError(status, kUnit);
    const ZObject mesh = output.asMesh();
    if (mesh.isNull())
        return ZStatus::kSuccess;

    std::vector<std::vector<int>> members;
    if (status = objectGroupMembers(mesh, members); !status)
        return status;
    ZArrayDataBuilder builder(&block, outComponents, static_cast<unsigned int>(members.size()), &status);
    if (!status)
        return reportApiError(status, kUnit);
    for (unsigned int i = 0; i < members.size(); ++i) {
        ZObject list;
        if (status = faceList(members[i], list); !status)
            return status;
        ZDataHandle element = builder.addElement(i, &status);
        if (!status)
            return reportApiError(status, kUnit);
        if (status = element.setZObject(list); !status)
            return reportApiError(status, kUnit);
    }
    if (status = lists.set(builder); !status)
        return reportApiError(status, kUnit);
    if (status = lists.setAllClean(); !status)
        return reportApiError(status, kUnit);
    return block.setClean(plug);
}

} // namespace type
