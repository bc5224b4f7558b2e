#include "anim/Curve.h"

#include <algorithm>
#include <cmath>

namespace oz::anim {
namespace {

bool valid(const Tangent& tangent) {
    return static_cast<int>(tangent.type) < kTangentTypeCount && std::isfinite(tangent.angle) &&
           std::isfinite(tangent.weight) && tangent.weight >= 0.0;
}

bool valid(const Key& key) {
    return std::isfinite(key.time) && std::isfinite(key.value) && valid(key.in) && valid(key.out);
}

bool earlier(const Key& a, const Key& b) {
    return a.time < b.time;
}

} // namespace

Curve::Curve(const Curve& other)
    : m_keys(other.m_keys)
    , m_times(other.m_times)
    , m_slopes(other.m_slopes)
    , m_segments(other.m_segments)
    , m_pre(other.m_pre)
    , m_post(other.m_post)
    , m_weighted(other.m_weighted) {}

Curve& Curve::operator=(const Curve& other) {
    if (this != &other) {
        m_keys = other.m_keys;
        m_times = other.m_times;
        m_slopes = other.m_slopes;
        m_segments = other.m_segments;
        m_pre = other.m_pre;
        m_post = other.m_post;
        m_weighted = other.m_weighted;
        m_lastSegment.store(0, std::memory_order_relaxed);
    }
    return *this;
}

bool Curve::find(double time, std::size_t& index) const {
    const auto it = std::lower_bound(m_times.begin(), m_times.end(), time - kTimeTolerance);
    if (it == m_times.end() || std::abs(*it - time) > kTimeTolerance)
        return false;
    index = static_cast<std::size_t>(it - m_times.begin());
    return true;
}

ZStatus Curve::insert(const Key& key, std::size_t* index) {
    if (!valid(key))
        return ZStatus::kInvalidParameter;
    std::size_t at = 0;
    if (find(key.time, at)) {
        m_keys[at] = key;
    } else {
        const auto it = std::upper_bound(m_keys.begin(), m_keys.end(), key, earlier);
        at = static_cast<std::size_t>(it - m_keys.begin());
        m_keys.insert(it, key);
    }
    resolve();
    if (index)
        *index = at;
    return ZStatus::kSuccess;
}

ZStatus Curve::assign(std::span<const Key> keys) {
    if (!std::all_of(keys.begin(), keys.end(), [](const Key& key) { return valid(key); }))
        return ZStatus::kInvalidParameter;
    std::vector<Key> sorted(keys.begin(), keys.end());
    std::stable_sort(sorted.begin(), sorted.end(), earlier);
    // Of keys at one time, keep the one given last: the end of its run.
    std::vector<Key> unique;
    unique.reserve(sorted.size());
    for (std::size_t i = 0; i < sorted.size(); ++i) {
        if (i + 1 < sorted.size() && sorted[i + 1].time - sorted[i].time <= kTimeTolerance)
            continue;
        unique.push_back(sorted[i]);
    }
    m_keys = std::move(unique);
    resolve();
    return ZStatus::kSuccess;
}

ZStatus Curve::replace(std::size_t index, const Key& key, std::size_t* newIndex) {
    if (index >= m_keys.size() || !valid(key))
        return ZStatus::kInvalidParameter;
    if (std::abs(m_keys[index].time - key.time) <= kTimeTolerance) {
        m_keys[index] = key;
        resolve();
        if (newIndex)
            *newIndex = index;
        return ZStatus::kSuccess;
    }
    m_keys.erase(m_keys.begin() + static_cast<std::ptrdiff_t>(index));
    return insert(key, newIndex);
}

ZStatus Curve::remove(std::size_t index) {
    if (index >= m_keys.size())
        return ZStatus::kInvalidParameter;
    m_keys.erase(m_keys.begin() + static_cast<std::ptrdiff_t>(index));
    resolve();
    return ZStatus::kSuccess;
}

void Curve::clear() {
    m_keys.clear();
    resolve();
}

void Curve::setWeighted(bool weighted) {
    m_weighted = weighted;
    resolve();
}

void Curve::resolve() {
    const std::size_t n = m_keys.size();
    m_times.resize(n);
    m_slopes.resize(n);
    for (std::size_t i = 0; i < n; ++i) {
        m_times[i] = m_keys[i].time;
        m_slopes[i] = tangentSlopes(m_keys, i);
    }
    m_segments.clear();
    for (std::size_t i = 0; i + 1 < n; ++i)
        m_segments.emplace_back(m_keys[i], m_slopes[i].out, m_keys[i + 1], m_slopes[i + 1].in, m_weighted);
    m_lastSegment.store(0, std::memory_order_relaxed);
}

double Curve::evaluateInside(double time) const {
    const std::size_t count = m_segments.size();
    std::size_t at = m_lastSegment.load(std::memory_order_relaxed);
    const auto holds = [&](std::size_t i) {
        return i < count && m_times[i] <= time && time < m_times[i + 1];
    };
    if (!holds(at)) {
        if (holds(at + 1)) {
            ++at;
        } else {
            const auto it = std::upper_bound(m_times.begin(), m_times.end(), time);
            at = std::min(static_cast<std::size_t>(it - m_times.begin()) - 1, count - 1);
        }
        m_lastSegment.store(at, std::memory_order_relaxed);
    }
    return m_segments[at].evaluate(time);
}

double Curve::evaluateOutside(double time, bool before) const {
    const Infinity mode = before ? m_pre : m_post;
    const double t0 = m_times.front(), t1 = m_times.back();
    const double v0 = m_keys.front().value, v1 = m_keys.back().value;
    const double period = t1 - t0;
    if (mode == Infinity::kLinear)
        return before ? v0 + (time - t0) * m_slopes.front().in : v1 + (time - t1) * m_slopes.back().out;
    if (mode == Infinity::kConstant || period <= 0.0)
        return before ? v0 : v1;
    const double cycles = std::floor((time - t0) / period);
    if (!std::isfinite(cycles))
        return before ? v0 : v1;
    double local = std::clamp(time - cycles * period, t0, t1);
    if (mode == Infinity::kOscillate && std::fmod(cycles, 2.0) != 0.0)
        local = t0 + t1 - local;
    const double value = local >= t1 ? v1 : evaluateInside(local);
    return mode == Infinity::kCycleRelative ? value + cycles * (v1 - v0) : value;
}

double Curve::evaluate(double time) const {
    if (m_keys.empty())
        return 0.0;
    if (std::isnan(time))
        return time;
    if (time < m_times.front())
        return evaluateOutside(time, true);
    if (time >= m_times.back())
        return time == m_times.back() ? m_keys.back().value : evaluateOutside(time, false);
    return evaluateInside(time);
}

} // namespace oz::anim
