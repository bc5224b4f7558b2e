#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <utility>

namespace oz::exporter {

template <std::size_t N> using BitKey = std::array<std::uint32_t, N>;

// Float values compared bit for bit, so that equal inputs always share one output entry.
template <std::size_t N> BitKey<N> bitKey(const std::array<float, N>& values) {
    BitKey<N> key;
    for (std::size_t i = 0; i < N; ++i)
        key[i] = std::bit_cast<std::uint32_t>(values[i]);
    return key;
}

// Numbers distinct keys in order of first appearance: shares normals and UVs between OBJ faces and welds
// glTF vertices whose attributes all agree.
template <std::size_t N> class ValueIndex {
public:
    // The index of `key`, and whether this call gave it one.
    std::pair<std::uint32_t, bool> insert(const BitKey<N>& key) {
        const auto [it, added] = indices_.try_emplace(key, static_cast<std::uint32_t>(indices_.size()));
        return {it->second, added};
    }

    std::uint32_t size() const { return static_cast<std::uint32_t>(indices_.size()); }

private:
    struct Hash {
        std::size_t operator()(const BitKey<N>& key) const {
            std::uint64_t h = 1469598103934665603ull;
            for (std::uint32_t word : key)
                h = (h ^ word) * 1099511628211ull;
            return static_cast<std::size_t>(h ^ (h >> 29));
        }
    };
    std::unordered_map<BitKey<N>, std::uint32_t, Hash> indices_;
};

} // namespace oz::exporter
