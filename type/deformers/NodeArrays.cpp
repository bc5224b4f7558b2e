#include "deformers/NodeArrays.h"

#include <OpenZyvo/ZDataHandle.h>
#include <OpenZyvo/ZFnDoubleArrayData.h>
#include <OpenZyvo/ZFnGeometryData.h>
#include <OpenZyvo/ZFnIntArrayData.h>
#include <OpenZyvo/ZFnMesh.h>
#include <OpenZyvo/ZFnSingleIndexedComponent.h>
#include <OpenZyvo/ZFnVectorArrayData.h>
#include <OpenZyvo/ZIntArray.h>
#include <OpenZyvo/ZPlug.h>
#include <OpenZyvo/ZPointArray.h>
#include <OpenZyvo/ZPxGeometryFilter.h>

namespace type {

ZStatus readDoubles(ZDataBlock& block, const ZObject& attribute, std::vector<double>& values) {
    ZStatus status;
    const ZObject data = block.inputValue(attribute, &status).data();
    values.clear();
    if (!status || data.isNull())
        return status;
    ZDoubleArray array;
    if ((status = ZFnDoubleArrayData(data).copyTo(array)))
        values = array.asVector();
    return status;
}

ZStatus readVectors(ZDataBlock& block, const ZObject& attribute, std::vector<Point3>& values) {
    ZStatus status;
    const ZObject data = block.inputValue(attribute, &status).data();
    values.clear();
    if (!status || data.isNull())
        return status;
    ZVectorArray array;
    if ((status = ZFnVectorArrayData(data).copyTo(array)))
        values = toPoints(array);
    return status;
}

std::vector<Point3> toPoints(const ZVectorArray& vectors) {
    std::vector<Point3> points;
    points.reserve(vectors.length());
    for (const ZVector& v : vectors.asVector())
        points.push_back({v.x, v.y, v.z});
    return points;
}

void pullVertexGroups(ZDataBlock& block, const ZObject& groupIdsAttribute) {
    block.inputValue(groupIdsAttribute);
}

ZStatus readInputMesh(ZDataBlock& block, const ZObject& node, unsigned int multiIndex, ZObject& mesh) {
    using Filter = ZPxGeometryFilter;
    ZStatus status;
    const ZPlug element = ZPlug(node, Filter::input).elementByLogicalIndex(multiIndex, &status);
    const ZPlug geometry = status ? element.child(Filter::inputGeom, &status) : ZPlug();
    mesh = status ? block.inputValue(geometry, &status).data() : ZObject();
    if (status && mesh.isNull())
        return ZStatus::kInvalidParameter;
    return status;
}

ZStatus readElementSource(ZDataBlock& block, const ZObject& node, unsigned int multiIndex,
                          const ZObject& groupIdsAttribute, ElementSource& source) {
    ZObject mesh;
    ZStatus status = readInputMesh(block, node, multiIndex, mesh);
    if (!status)
        return status;
    const ZFnMesh fn(mesh, &status);
    if (!status)
        return status;
    ZPointArray points;
    ZIntArray counts;
    ZIntArray vertices;
    if (!(status = fn.getPoints(points)) || !(status = fn.getVertices(counts, vertices)))
        return status;
    source.points.clear();
    source.points.reserve(points.length());
    for (const ZPoint& p : points.asVector())
        source.points.push_back({p.x, p.y, p.z});
    source.faceCounts = counts.asVector();
    source.faceVertices = vertices.asVector();

    source.groupLists.clear();
    if (!ZPlug(node, groupIdsAttribute).isConnected())
        return ZStatus::kSuccess;
    const ZObject ids = block.inputValue(groupIdsAttribute, &status).data();
    if (!status || ids.isNull())
        return status;
    ZIntArray groupIds;
    if (!(status = ZFnIntArrayData(ids).copyTo(groupIds)))
        return status;
    const ZFnGeometryData groups(mesh);
    for (int id : groupIds.asVector()) {
        if (id < 0 || !groups.hasObjectGroup(static_cast<unsigned int>(id)))
            continue;
        ZIntArray members;
        const ZObject component = groups.objectGroupComponent(static_cast<unsigned int>(id), &status);
        if (!status || !(status = ZFnSingleIndexedComponent(component).getElements(members)))
            return status;
        source.groupLists.push_back(members.asVector());
    }
    return ZStatus::kSuccess;
}

} // namespace type
