#pragma once

#include <atomic>
#include <cstdint>
#include <limits>
#include <memory>
#include <mutex>
#include <tbb/task_arena.h>
#include <tbb/task_group.h>
#include <tuple>
#include <utility>

namespace oz::mesh {

// A lazily built, immutable derived value tagged with the version of the data it was built from.
// Readers get a shared snapshot that stays valid however the mesh changes afterwards, and copies
// of a mesh share the snapshots they were built with, so copying never rebuilds anything.
//
// A value can also be built ahead, on another thread, while its owner goes on with other work; a
// reader that asks for that version then helps to finish it instead of building it again.
template <class T> class CacheSlot {
public:
    CacheSlot() = default;
    CacheSlot(const CacheSlot& other) { std::tie(value_, version_, ahead_) = other.snapshot(); }
    CacheSlot& operator=(const CacheSlot& other) {
        if (this != &other) {
            auto [value, version, ahead] = other.snapshot();
            std::lock_guard lock(mutex_);
            value_ = std::move(value);
            version_ = version;
            // The build this slot had ahead, if it was the last to hold it, waits for its task
            // when it goes: after the lock, as the wait may run a task that asks this slot.
            std::swap(ahead_, ahead);
        }
        return *this;
    }

    // Returns the value for `version`, building it with `build()` when the stored one is older.
    template <class Build> std::shared_ptr<const T> get(uint64_t version, Build&& build) const {
        std::unique_lock lock(mutex_);
        if (value_ && version_ == version)
            return value_;
        if (const std::shared_ptr<Ahead> ahead = ahead_; ahead && ahead->version == version) {
            // Waiting helps with any task, and one of them may ask this slot: the lock is let go.
            lock.unlock();
            std::shared_ptr<const T> value = ahead->result();
            lock.lock();
            if (ahead_ == ahead)
                ahead_.reset();
            if (value_ && version_ == version)
                return value_;
            // A build ahead that failed leaves no value; building it here reports why.
            if (value) {
                value_ = std::move(value);
                version_ = version;
                return value_;
            }
        }
        // Builders use TBB; isolation keeps this thread from picking up an outer task that
        // asks the same slot while the lock is held.
        value_ = tbb::this_task_arena::isolate([&] { return std::make_shared<const T>(build()); });
        version_ = version;
        return value_;
    }

    // Starts building the value for `version` on another thread, unless it is stored, on its
    // way, or another build ahead still runs: at most one runs per slot. `build` runs after the
    // owner may have changed or gone, so it holds its own share of the data it reads.
    template <class Build> void buildAhead(uint64_t version, Build build) const {
        std::lock_guard lock(mutex_);
        if ((value_ && version_ == version) || (ahead_ && (ahead_->version == version || !ahead_->done)))
            return;
        ahead_ = std::make_shared<Ahead>(version);
        Ahead* ahead = ahead_.get();
        ahead->work.run([ahead, build = std::move(build)] {
            try {
                ahead->value = std::make_shared<const T>(build());
            } catch (...) {
                // A reader builds the value again and meets the failure itself.
            }
            ahead->done = true;
        });
    }

    // A value built ahead from data that has changed since (in a way its version does not tell)
    // is never handed out.
    void forgetAhead() const {
        std::lock_guard lock(mutex_);
        if (ahead_)
            ahead_->version = kForgotten;
    }

private:
    static constexpr uint64_t kForgotten = std::numeric_limits<uint64_t>::max();

    // A build running ahead. Its task refers to it, so it waits for the task before it goes.
    struct Ahead {
        explicit Ahead(uint64_t v)
            : version(v) {}
        ~Ahead() { work.wait(); }
        std::shared_ptr<const T> result() {
            work.wait();
            return value;
        }

        // Copies of a slot share a build ahead, and any of them may forget it.
        std::atomic<uint64_t> version;
        std::atomic<bool> done = false;
        tbb::task_group work;
        std::shared_ptr<const T> value;
    };

    std::tuple<std::shared_ptr<const T>, uint64_t, std::shared_ptr<Ahead>> snapshot() const {
        std::lock_guard lock(mutex_);
        return {value_, version_, ahead_};
    }

    mutable std::mutex mutex_;
    mutable std::shared_ptr<const T> value_;
    mutable uint64_t version_ = 0;
    mutable std::shared_ptr<Ahead> ahead_;
};

} // namespace oz::mesh
