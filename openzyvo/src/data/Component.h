#pragma once

#include "core/Object.h"

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace oz {

// A set of ids of one kind of mesh element (vertices, edges or faces), ascending and without
// repeats, so that two components with the same members compare equal whatever order they were
// filled in.
class Component final : public Object {
public:
    static bool isMeshElementKind(ZFn::Type kind) {
        return kind == ZFn::kMeshVertComponent || kind == ZFn::kMeshEdgeComponent ||
               kind == ZFn::kMeshPolygonComponent;
    }

    explicit Component(ZFn::Type kind)
        : kind_(kind) {}

    ZFn::Type apiType() const override { return kind_; }
    bool hasFn(ZFn::Type type) const override {
        return type == ZFn::kBase || type == ZFn::kComponent || type == ZFn::kSingleIndexedComponent ||
               type == kind_;
    }

    const std::vector<int32_t>& elements() const { return *elements_; }
    bool contains(int32_t element) const;
    bool containsAll(const Component& other) const;

    // Ids must not be negative; the function sets check that.
    void add(int32_t element);
    void add(std::span<const int32_t> elements);
    void remove(std::span<const int32_t> elements);

    friend bool operator==(const Component& a, const Component& b) {
        return a.kind_ == b.kind_ && *a.elements_ == *b.elements_;
    }

private:
    // The members to change, no longer shared with any copy.
    std::vector<int32_t>& writable();

    ZFn::Type kind_;
    // Shared between copies until one of them changes its members: components travel into lists
    // and groups by copy, and the groups of a solid of text hold half a million faces.
    std::shared_ptr<std::vector<int32_t>> elements_ = std::make_shared<std::vector<int32_t>>();
};

} // namespace oz
