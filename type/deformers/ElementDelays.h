#pragma once

#include <vector>

namespace type {

// How the groups of a text wait for one another: the last group starts
// `offsetFrames` after the first, the others evenly in between, in text order
// or in a random order drawn from `seed`, optionally reversed.
struct DelaySettings {
    double time = 0.0; // in the time attribute's own unit, usually frames
    float offsetFrames = 50.0f;
    bool randomDelay = false;
    bool reverseOrder = false;
    int seed = 0;
};

// A permutation of 0 .. groups-1 that depends only on (groups, seed): the same
// text animates the same way on every evaluation, machine and thread.
std::vector<int> delayOrder(int groups, int seed);

// The time at which each group samples the animation channels.
std::vector<double> groupTimes(int groups, const DelaySettings& settings);

} // namespace type
