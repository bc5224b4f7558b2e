#pragma once

#include "shells/BitSet.h"

#include <OpenZyvo/ZBoundingBox.h>
#include <OpenZyvo/ZIntArray.h>
#include <OpenZyvo/ZItMeshVertex.h>
#include <OpenZyvo/ZStatus.h>

namespace type {

// The shell walk over a host mesh, through its vertex iterator (which is left
// on the last vertex reached). `shell` receives the reached vertex ids in
// breadth-first order and `box` grows by their object-space positions.
// Without `faces` this is the vertex-only walk with its budget; with `faces`
// the faces around every reached vertex are set in it as well (see
// discoverShell). Returns kFailure for a bad seed or a vertex the iterator
// cannot reach.
ZStatus polyShellDiscover(ZItMeshVertex& vertices, const ZIntArray& seeds, ZIntArray& shell,
                          ZBoundingBox& box, BitSet* faces = nullptr);

} // namespace type
