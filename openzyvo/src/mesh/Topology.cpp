#include "mesh/Topology.h"

#include <algorithm>
#include <numeric>

namespace oz::mesh {

namespace {

// The face-vertices laid out in face order, each with the index of the next face-vertex of its
// loop (wrapping around).
struct FlatFaces {
    std::vector<int32_t> faceStart;
    std::vector<int32_t> ids;
    std::vector<int32_t> next;
};

FlatFaces flatten(const FaceLoops& faces) {
    FlatFaces flat;
    flat.faceStart = faces.faceVertexOffsets();
    flat.ids.reserve(static_cast<size_t>(faces.faceVertexCount()));
    flat.next.reserve(static_cast<size_t>(faces.faceVertexCount()));
    for (int32_t f = 0; f < faces.faceCount(); ++f) {
        for (int32_t l = 0; l < faces.faceLoopCount(f); ++l) {
            const auto loop = faces.loop(f, l);
            const auto first = static_cast<int32_t>(flat.ids.size());
            const auto last = first + static_cast<int32_t>(loop.size()) - 1;
            flat.ids.insert(flat.ids.end(), loop.begin(), loop.end());
            for (int32_t i = first; i <= last; ++i)
                flat.next.push_back(i < last ? i + 1 : first);
        }
    }
    return flat;
}

// Rows of a CSR table from a per-row count, leaving the fill cursor at each row's start.
void startRows(Csr& table, std::span<const int32_t> counts, std::vector<int32_t>& cursor) {
    table.offsets.assign(counts.size() + 1, 0);
    std::inclusive_scan(counts.begin(), counts.end(), table.offsets.begin() + 1);
    table.items.assign(static_cast<size_t>(table.offsets.back()), 0);
    cursor.assign(table.offsets.begin(), table.offsets.end() - 1);
}

// Numbers the distinct undirected edges by first use and records each face-vertex's edge.
std::vector<int32_t> numberEdges(const FlatFaces& flat, int32_t vertexCount, Topology& topo) {
    const std::vector<int32_t>& ids = flat.ids;
    const std::vector<int32_t>& next = flat.next;
    const auto fvCount = static_cast<int32_t>(ids.size());

    // Bucket face-vertices by the lower vertex id of their edge, then sort each bucket by the
    // higher id: equal edges end up side by side, and the smallest face-vertex of each run is
    // the edge's first use.
    std::vector<int32_t> counts(static_cast<size_t>(vertexCount), 0);
    for (int32_t i = 0; i < fvCount; ++i)
        ++counts[std::min(ids[i], ids[next[i]])];
    Csr buckets;
    std::vector<int32_t> cursor;
    startRows(buckets, counts, cursor);
    for (int32_t i = 0; i < fvCount; ++i)
        buckets.items[cursor[std::min(ids[i], ids[next[i]])]++] = i;

    std::vector<int32_t> firstUse(static_cast<size_t>(fvCount));
    for (int32_t v = 0; v < vertexCount; ++v) {
        const auto begin = buckets.items.begin() + buckets.offsets[v];
        const auto end = buckets.items.begin() + buckets.offsets[v + 1];
        const auto high = [&](int32_t i) {
            return std::max(ids[i], ids[next[i]]);
        };
        std::sort(begin, end,
                  [&](int32_t a, int32_t b) { return std::pair(high(a), a) < std::pair(high(b), b); });
        for (auto it = begin; it != end; ++it)
            firstUse[*it] = (it != begin && high(*(it - 1)) == high(*it)) ? firstUse[*(it - 1)] : *it;
    }

    std::vector<int32_t> edges(static_cast<size_t>(fvCount));
    for (int32_t i = 0; i < fvCount; ++i) {
        if (firstUse[i] == i) {
            edges[i] = static_cast<int32_t>(topo.edgeVertices.size());
            topo.edgeVertices.push_back({ids[i], ids[next[i]]});
        } else {
            edges[i] = edges[firstUse[i]];
        }
    }
    return edges;
}

// Per-face rows of `perFaceVertex` values with repeats within a face dropped; also returns the
// inverse table (per value, the faces listing it, ascending).
void faceRows(std::span<const int32_t> faceStart, std::span<const int32_t> perFaceVertex, int32_t valueCount,
              Csr& byFace, Csr& byValue) {
    std::vector<int32_t> seenBy(static_cast<size_t>(valueCount), -1);
    std::vector<int32_t> counts(static_cast<size_t>(valueCount), 0);
    byFace.offsets.assign(1, 0);
    byFace.items.clear();
    for (int32_t f = 0; f + 1 < static_cast<int32_t>(faceStart.size()); ++f) {
        for (int32_t i = faceStart[f]; i < faceStart[f + 1]; ++i) {
            const int32_t value = perFaceVertex[i];
            if (seenBy[value] != f) {
                seenBy[value] = f;
                byFace.items.push_back(value);
                ++counts[value];
            }
        }
        byFace.offsets.push_back(static_cast<int32_t>(byFace.items.size()));
    }
    std::vector<int32_t> cursor;
    startRows(byValue, counts, cursor);
    for (int32_t f = 0; f < byFace.rowCount(); ++f) {
        for (const int32_t value : byFace[f])
            byValue.items[cursor[value]++] = f;
    }
}

void vertexRows(int32_t vertexCount, Topology& topo) {
    std::vector<int32_t> counts(static_cast<size_t>(vertexCount), 0);
    for (const auto& [a, b] : topo.edgeVertices) {
        ++counts[a];
        ++counts[b];
    }
    std::vector<int32_t> cursor;
    startRows(topo.vertexEdges, counts, cursor);
    topo.vertexVertices = topo.vertexEdges;
    for (int32_t e = 0; e < topo.edgeCount(); ++e) {
        const auto [a, b] = topo.edgeVertices[e];
        topo.vertexVertices.items[cursor[a]] = b;
        topo.vertexEdges.items[cursor[a]++] = e;
        topo.vertexVertices.items[cursor[b]] = a;
        topo.vertexEdges.items[cursor[b]++] = e;
    }
}

} // namespace

Topology buildTopology(const FaceLoops& faces, int32_t vertexCount) {
    Topology topo;
    vertexCount = std::max(vertexCount, faces.vertexIdBound());
    FlatFaces flat = flatten(faces);
    std::vector<int32_t> edges = numberEdges(flat, vertexCount, topo);
    faceRows(flat.faceStart, edges, topo.edgeCount(), topo.faceEdges, topo.edgeFaces);
    Csr faceVertexRows;
    faceRows(flat.faceStart, flat.ids, vertexCount, faceVertexRows, topo.vertexFaces);
    topo.faceVertexEdges = {std::move(flat.faceStart), std::move(edges)};
    vertexRows(vertexCount, topo);
    return topo;
}

} // namespace oz::mesh
