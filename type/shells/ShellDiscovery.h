#pragma once

#include "shells/BitSet.h"
#include "shells/ShellTopology.h"

#include <span>
#include <vector>

namespace type {

// The most vertices the vertex-only walk takes from its queue before it
// reports a runaway walk and stops with what it has.
inline constexpr int kShellWalkBudget = 100000;

// Floods the mesh breadth first from `seeds` through its edges. `shell` is
// replaced by every reached vertex in the order the vertices leave the queue
// (a seed listed twice is walked twice); `bounds` grows by their positions.
//
// Without `faces` this is the vertex-only walk, which gives up after
// kShellWalkBudget + 1 vertices. With `faces` every face around a reached
// vertex is set in it; callers pass the same set to several walks to collect
// the faces of several shells, and that walk has no budget.
//
// Diagnostics go to the standard output stream. A seed above the vertex count
// (or below zero), or a queued vertex the mesh does not have, fails the walk;
// `shell` and `bounds` then hold what was reached before.
bool discoverShell(ShellTopology& mesh, std::span<const int> seeds, std::vector<int>& shell, Box3& bounds,
                   BitSet* faces = nullptr);

} // namespace type
