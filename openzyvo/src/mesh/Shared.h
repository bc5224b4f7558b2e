#pragma once

#include <memory>
#include <utility>

namespace oz::mesh {

// A value whose storage copies share until one of them writes: copying a mesh of a million points
// is then a handful of reference counts, and the copy that moves its points pays for the points
// alone. write() detaches a shared value before handing it out, so copies never see each other's
// edits. Reads may run on several threads at once; write() needs the owner to itself, as any
// non-const call does.
template <class T> class Shared {
public:
    Shared()
        : value_(std::make_shared<T>()) {}
    explicit Shared(T value)
        : value_(std::make_shared<T>(std::move(value))) {}

    const T& read() const { return *value_; }

    T& write() {
        // A count of one cannot be stale: another owner could only have come from this one.
        if (value_.use_count() > 1)
            value_ = std::make_shared<T>(std::as_const(*value_));
        return *value_;
    }

    // For a writer that overwrites the whole value: a shared value is left to the other copies
    // and replaced by what `make()` returns instead of being copied first.
    template <class Make> T& overwrite(Make&& make) {
        if (value_.use_count() > 1)
            value_ = std::make_shared<T>(make());
        return *value_;
    }

private:
    std::shared_ptr<T> value_;
};

} // namespace oz::mesh
