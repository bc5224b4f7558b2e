#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZFnComponent.h>
#include <OpenZyvo/ZIntArray.h>

// Function set of components whose elements are single ids: mesh vertices, edges or faces. The
// elements are a set, read back in ascending order.
class OZ_API ZFnSingleIndexedComponent : public ZFnComponent {
public:
    ZFnSingleIndexedComponent() = default;
    explicit ZFnSingleIndexedComponent(const ZObject& object, ZStatus* status = nullptr);
    ZFn::Type type() const override { return ZFn::kSingleIndexedComponent; }

    // A new, empty component of kind kMeshVertComponent, kMeshEdgeComponent or
    // kMeshPolygonComponent; the function set attaches to it.
    ZObject create(ZFn::Type componentType, ZStatus* status = nullptr);

    // Negative ids are rejected; adding a member again changes nothing.
    ZStatus addElement(int element);
    ZStatus addElements(const ZIntArray& elements);
    // The index-th member in ascending order.
    int element(int index, ZStatus* status = nullptr) const;
    ZStatus getElements(ZIntArray& elements) const;
};
