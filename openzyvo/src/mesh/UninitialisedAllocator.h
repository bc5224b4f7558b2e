#pragma once

#include <memory>
#include <utility>

namespace oz::mesh {

// Leaves the elements of a sized array as the allocation left them. The large arrays of a mesh
// that are sized and then overwritten whole (a new mesh's points, a deformer's frame, the
// triangles of a triangulation) are filled next on all cores; zeroing them first would be a pass
// of its own, on one core, over memory the fill touches anyway.
template <class T> struct UninitialisedAllocator : std::allocator<T> {
    UninitialisedAllocator() = default;
    template <class U> UninitialisedAllocator(const UninitialisedAllocator<U>&) noexcept {}

    // Only aggregates of plain numbers are kept this way: storage holds them without a constructor run.
    template <class U> void construct(U*) noexcept {}
    template <class U, class... Args> void construct(U* p, Args&&... args) {
        ::new (static_cast<void*>(p)) U(std::forward<Args>(args)...);
    }

    friend bool operator==(const UninitialisedAllocator&, const UninitialisedAllocator&) { return true; }
};

} // namespace oz::mesh
