#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZFnBase.h>

// Base function set of components: sets of mesh elements (vertices, edges or faces).
class OZ_API ZFnComponent : public ZFnBase {
public:
    ZFnComponent() = default;
    explicit ZFnComponent(const ZObject& object, ZStatus* status = nullptr);
    ZFn::Type type() const override { return ZFn::kComponent; }

    int elementCount(ZStatus* status = nullptr) const;
    bool isEmpty(ZStatus* status = nullptr) const;
    // kMeshVertComponent, kMeshEdgeComponent or kMeshPolygonComponent.
    ZFn::Type componentType(ZStatus* status = nullptr) const;
    // Same kind of element and the same members.
    bool isEqual(const ZObject& other, ZStatus* status = nullptr) const;
};
