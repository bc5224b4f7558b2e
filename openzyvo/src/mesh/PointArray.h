#pragma once

#include "mesh/Vec3.h"

#include <memory>
#include <utility>
#include <vector>

namespace oz::mesh {

// Leaves the elements of a sized array as the allocation left them. The writers that size a
// mesh's point array (a new mesh, a deformer's frame) overwrite every point next, on all cores;
// zeroing hundreds of thousands of points first would be a pass of its own, on one core.
template <class T> struct UninitialisedAllocator : std::allocator<T> {
    UninitialisedAllocator() = default;
    template <class U> UninitialisedAllocator(const UninitialisedAllocator<U>&) noexcept {}

    // Points are aggregates of doubles: allocated storage holds them without a constructor run.
    template <class U> void construct(U*) noexcept {}
    template <class U, class... Args> void construct(U* p, Args&&... args) {
        ::new (static_cast<void*>(p)) U(std::forward<Args>(args)...);
    }

    friend bool operator==(const UninitialisedAllocator&, const UninitialisedAllocator&) { return true; }
};

// A mesh's points.
using PointArray = std::vector<Point3, UninitialisedAllocator<Point3>>;

} // namespace oz::mesh
