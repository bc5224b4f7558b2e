#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <cstdint>

// Deterministic, counter-based random numbers: the value depends only on
// (index, seed), never on call order, thread or platform.
//
// Algorithm: the 64-bit key k = index * 0x9E3779B97F4A7C15 + seed * 0xD1B54A32D192ED03
// (wrapping) goes twice through the SplitMix64 finaliser
//   z ^= z >> 30; z *= 0xBF58476D1CE4E5B9; z ^= z >> 27; z *= 0x94D049BB133111EB; z ^= z >> 31
// (the second round on k + 0x9E3779B97F4A7C15 mixed with the first result). The integer form
// returns that 64-bit word; the ranged form maps its top 53 bits to u in [0, 1) and
// returns min + u * (max - min).
class OZ_API ZRandom {
public:
    static std::uint64_t Rand(std::int64_t index, std::int64_t seed);
    static double Rand(std::int64_t index, std::int64_t seed, double min, double max);
};
