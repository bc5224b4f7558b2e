#include <OpenZyvo/ZRandom.h>

namespace {

std::uint64_t splitMix(std::uint64_t z) {
    z ^= z >> 30;
    z *= 0xBF58476D1CE4E5B9ull;
    z ^= z >> 27;
    z *= 0x94D049BB133111EBull;
    z ^= z >> 31;
    return z;
}

} // namespace

std::uint64_t ZRandom::Rand(std::int64_t index, std::int64_t seed) {
    const std::uint64_t key = static_cast<std::uint64_t>(index) * 0x9E3779B97F4A7C15ull +
                              static_cast<std::uint64_t>(seed) * 0xD1B54A32D192ED03ull;
    const std::uint64_t first = splitMix(key);
    return splitMix((key + 0x9E3779B97F4A7C15ull) ^ first);
}

double ZRandom::Rand(std::int64_t index, std::int64_t seed, double min, double max) {
    const double unit = static_cast<double>(Rand(index, seed) >> 11) * (1.0 / 9007199254740992.0);
    return min + unit * (max - min);
}
