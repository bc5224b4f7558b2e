#pragma once

#include <cstdint>
#include <memory>
#include <mutex>
#include <tbb/task_arena.h>
#include <tuple>
#include <utility>

namespace oz::mesh {

// A lazily built, immutable derived value tagged with the version of the data it was built from.
// Readers get a shared snapshot that stays valid however the mesh changes afterwards, and copies
// of a mesh share the snapshots they were built with, so copying never rebuilds anything.
template <class T> class CacheSlot {
public:
    CacheSlot() = default;
    CacheSlot(const CacheSlot& other) { std::tie(value_, version_) = other.snapshot(); }
    CacheSlot& operator=(const CacheSlot& other) {
        if (this != &other) {
            auto [value, version] = other.snapshot();
            std::lock_guard lock(mutex_);
            value_ = std::move(value);
            version_ = version;
        }
        return *this;
    }

    // Returns the value for `version`, building it with `build()` when the stored one is older.
    template <class Build> std::shared_ptr<const T> get(uint64_t version, Build&& build) const {
        std::lock_guard lock(mutex_);
        if (!value_ || version_ != version) {
            // Builders use TBB; isolation keeps this thread from picking up an outer task that
            // asks the same slot while the lock is held.
            value_ = tbb::this_task_arena::isolate([&] { return std::make_shared<const T>(build()); });
            version_ = version;
        }
        return value_;
    }

private:
    std::pair<std::shared_ptr<const T>, uint64_t> snapshot() const {
        std::lock_guard lock(mutex_);
        return {value_, version_};
    }

    mutable std::mutex mutex_;
    mutable std::shared_ptr<const T> value_;
    mutable uint64_t version_ = 0;
};

} // namespace oz::mesh
