#pragma once

#include "anim/Infinity.h"
#include "anim/Key.h"
#include "anim/Segment.h"
#include "anim/TangentSlopes.h"

#include <OpenZyvo/ZStatus.h>
#include <atomic>
#include <cstddef>
#include <span>
#include <vector>

namespace oz::anim {

// An animation curve: keys sorted by time, how it continues past its ends,
// and whether tangent weights shape it. Every edit resolves the tangents
// again, so evaluation only finds a segment and evaluates one cubic: a
// cached last segment serves runs of nearby times, a binary search the rest,
// and nothing is allocated.
class Curve {
public:
    // Two key times closer than this (in seconds) are the same time.
    static constexpr double kTimeTolerance = 1e-9;

    Curve() = default;
    Curve(const Curve& other);
    Curve& operator=(const Curve& other);

    std::size_t size() const { return m_keys.size(); }
    bool empty() const { return m_keys.empty(); }
    std::span<const Key> keys() const { return m_keys; }
    const Key& key(std::size_t index) const { return m_keys[index]; }

    // Adds `key`, or replaces the key already at its time. Fails on values
    // that are not finite numbers or a negative weight.
    ZStatus insert(const Key& key, std::size_t* index = nullptr);
    // Replaces all keys, given in any order; of several keys at one time the
    // last given wins.
    ZStatus assign(std::span<const Key> keys);
    // Replaces the key at `index`; a new time moves it (and replaces a key
    // already there). `newIndex` receives where it ended up.
    ZStatus replace(std::size_t index, const Key& key, std::size_t* newIndex = nullptr);
    ZStatus remove(std::size_t index);
    void clear();
    // The index of the key at `time` (within kTimeTolerance).
    bool find(double time, std::size_t& index) const;

    Infinity preInfinity() const { return m_pre; }
    Infinity postInfinity() const { return m_post; }
    void setPreInfinity(Infinity infinity) { m_pre = infinity; }
    void setPostInfinity(Infinity infinity) { m_post = infinity; }
    bool isWeighted() const { return m_weighted; }
    void setWeighted(bool weighted);

    // Resolved slopes of a key, in value per second.
    double inSlope(std::size_t index) const { return m_slopes[index].in; }
    double outSlope(std::size_t index) const { return m_slopes[index].out; }

    // The value at `time` (seconds); 0 without keys, NaN at a NaN time.
    double evaluate(double time) const;

private:
    void resolve();
    double evaluateInside(double time) const;
    double evaluateOutside(double time, bool before) const;

    std::vector<Key> m_keys;
    std::vector<double> m_times;
    std::vector<Slopes> m_slopes;
    std::vector<Segment> m_segments;
    Infinity m_pre = Infinity::kConstant;
    Infinity m_post = Infinity::kConstant;
    bool m_weighted = false;
    mutable std::atomic<std::size_t> m_lastSegment{0};
};

} // namespace oz::anim
