#pragma once

#include <cstdint>

// Identifies a callback installed through one of the message classes.
using ZCallbackId = std::uint64_t;

// Kinds of objects an ZObject can refer to; function sets check these.
namespace ZFn {
enum Type {
    kInvalid = 0,
    kBase,
    kNamedObject,
    // nodes
    kDependencyNode,
    kDagNode,
    kTransform,
    kShape,
    kMesh,
    kTime,
    kAnimCurve,
    kAnimCurveTimeToDistance,
    kAnimCurveTimeToAngular,
    kAnimCurveTimeToUnitless,
    kAnimCurveTimeToTime,
    kGroupId,
    kShadingEngine,
    kSurfaceShader,
    kGeometryFilter,
    kPluginDependNode,
    kPluginLocatorNode,
    kPluginDeformerNode,
    kPluginManipContainer,
    kManipulator,
    // attributes
    kAttribute,
    kNumericAttribute,
    kUnitAttribute,
    kTypedAttribute,
    kEnumAttribute,
    kCompoundAttribute,
    kMessageAttribute,
    // data
    kData,
    kNumericData,
    kGeometryData,
    kMeshData,
    kStringData,
    kStringArrayData,
    kDoubleArrayData,
    kIntArrayData,
    kVectorArrayData,
    kPointArrayData,
    kComponentListData,
    kArrayAttrsData,
    kMatrixData,
    // components
    kComponent,
    kSingleIndexedComponent,
    kMeshVertComponent,
    kMeshEdgeComponent,
    kMeshPolygonComponent,
    // other
    kPlugin,
};
} // namespace ZFn
