#include "mesh/EarClipping.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>

namespace oz::mesh {

namespace {

// Up to this many nodes (one bit each in a word) an ear scans every reflex corner; more build the
// grid.
constexpr int32_t kMaskedNodes = 64;

constexpr uint64_t bit(int32_t node) {
    return uint64_t{1} << node;
}

[[gnu::always_inline]] inline bool inClosedTriangle(Point2 a, Point2 b, Point2 c, Point2 p) {
    return orientation(a, b, p) >= 0 && orientation(b, c, p) >= 0 && orientation(c, a, p) >= 0;
}

} // namespace

void EarClipper::reserveNodes(size_t count) {
    if (point_.size() >= count)
        return;
    point_.resize(count);
    index_.resize(count);
    prev_.resize(count);
    next_.resize(count);
    turn_.resize(count);
    inGrid_.resize(count);
}

int32_t EarClipper::addNode(Point2 p, int32_t index, int32_t after) {
    const int32_t node = nodes_++;
    point_[node] = p;
    index_[node] = index;
    prev_[node] = after;
    next_[node] = next_[after];
    prev_[next_[after]] = node;
    next_[after] = node;
    return node;
}

void EarClipper::linkLoop(const PlanarFace& face, int32_t loop, bool reverse) {
    const int32_t begin = face.loopStart[loop];
    const int32_t size = face.loopSize(loop);
    const int32_t first = nodes_;
    nodes_ += size;
    for (int32_t k = 0; k < size; ++k) {
        const int32_t i = reverse ? begin + size - 1 - k : begin + k;
        const int32_t node = first + k;
        point_[node] = face.points[i];
        index_[node] = i;
        turn_[node] = reverse ? -face.turn[i] : face.turn[i];
        prev_[node] = k == 0 ? first + size - 1 : node - 1;
        next_[node] = k == size - 1 ? first : node + 1;
    }
}

bool EarClipper::opensTowards(int32_t node, Point2 target) const {
    const Point2 a = point_[prev_[node]];
    const Point2 b = point_[node];
    const Point2 c = point_[next_[node]];
    if (turn_[node] >= 0)
        return orientation(a, b, target) > 0 && orientation(b, c, target) > 0;
    return orientation(a, b, target) > 0 || orientation(b, c, target) > 0;
}

bool EarClipper::bridgeIsClear(int32_t outer, int32_t hole, int32_t to) const {
    const Point2 m = point_[hole];
    const Point2 r = point_[to];
    const double lowX = std::min(m.x, r.x);
    const double highX = std::max(m.x, r.x);
    const double lowY = std::min(m.y, r.y);
    const double highY = std::max(m.y, r.y);
    int32_t p = outer;
    do {
        const Point2 a = point_[p];
        const Point2 b = point_[next_[p]];
        // An edge apart from the bridge's box can neither touch it nor run along it.
        const bool apart = (std::max(a.x, b.x) < lowX) | (std::min(a.x, b.x) > highX) |
                           (std::max(a.y, b.y) < lowY) | (std::min(a.y, b.y) > highY);
        if (apart) {
            p = next_[p];
            continue;
        }
        if (a == r || b == r) {
            // An edge from the bridge's end may only leave it, not run along it.
            const Point2 other = a == r ? b : a;
            if (orientation(m, r, other) == 0 && withinBox(r, m, other))
                return false;
        } else if (segmentsTouch(m, r, a, b)) {
            return false;
        }
        p = next_[p];
    } while (p != outer);
    return true;
}

// The hole's leftmost point sees, straight to its left, the nearest crossing edge; the end of that
// edge further left is visible unless points inside the triangle it spans with the crossing hide
// it, and then the hiding point closest in angle to the ray is visible instead. Floating-point
// rounding can only make this guess wrong near ties, so the guess is checked exactly, and when it
// fails every point left of the hole is tried, nearest first.
int32_t EarClipper::findBridge(int32_t outer, int32_t hole) {
    const Point2 m = point_[hole];
    double hitX = -std::numeric_limits<double>::infinity();
    int32_t hit = -1;
    bool onVertex = false;
    int32_t p = outer;
    do {
        const int32_t q = next_[p];
        const Point2 a = point_[p];
        const Point2 b = point_[q];
        if (a.y == m.y) {
            if (a.x < m.x && a.x > hitX) {
                hitX = a.x;
                hit = p;
                onVertex = true;
            }
        } else if ((a.y < m.y) != (b.y < m.y) && b.y != m.y) {
            const double x = a.x + (m.y - a.y) * (b.x - a.x) / (b.y - a.y);
            if (x < m.x && x > hitX) {
                hitX = x;
                hit = a.x < b.x ? p : q;
                onVertex = false;
            }
        }
        p = q;
    } while (p != outer);

    Point2 target{};
    if (hit >= 0) {
        target = point_[hit];
        int32_t targetNode = hit;
        const Point2 crossing{hitX, m.y};
        const int turn = orientation(m, crossing, target);
        if (!onVertex && turn != 0) {
            double bestTan = std::abs(target.y - m.y) / (m.x - target.x);
            const double lowY = std::min(m.y, target.y);
            const double highY = std::max(m.y, target.y);
            const double lowX = std::min(crossing.x, target.x);
            p = outer;
            do {
                const Point2 v = point_[p];
                // The target itself would only fall to the slow exact test, and change nothing.
                const bool inBox =
                    (v != target) & (v.x < m.x) & (v.x >= lowX) & (v.y >= lowY) & (v.y <= highY);
                if (inBox && (turn > 0 ? inClosedTriangle(m, crossing, target, v)
                                       : inClosedTriangle(m, target, crossing, v))) {
                    const double tan = std::abs(v.y - m.y) / (m.x - v.x);
                    if (tan < bestTan || (tan == bestTan && v.x > target.x)) {
                        bestTan = tan;
                        target = v;
                        targetNode = p;
                    }
                }
                p = next_[p];
            } while (p != outer);
        }
        if (opensTowards(targetNode, m) && bridgeIsClear(outer, hole, targetNode))
            return targetNode;
        // Another copy of the target point (an end of an earlier bridge) may open towards the hole.
        p = outer;
        do {
            if (p != targetNode && point_[p] == target && opensTowards(p, m) && bridgeIsClear(outer, hole, p))
                return p;
            p = next_[p];
        } while (p != outer);
    }

    std::vector<std::pair<double, int32_t>>& candidates = bridgeCandidates_;
    candidates.clear();
    p = outer;
    do {
        const Point2 v = point_[p];
        if (v.x < m.x)
            candidates.emplace_back((v.x - m.x) * (v.x - m.x) + (v.y - m.y) * (v.y - m.y), p);
        p = next_[p];
    } while (p != outer);
    std::sort(candidates.begin(), candidates.end());
    for (const auto& [distance, node] : candidates) {
        if (opensTowards(node, m) && bridgeIsClear(outer, hole, node))
            return node;
    }
    return -1;
}

bool EarClipper::joinHole(int32_t outer, int32_t hole) {
    const int32_t to = findBridge(outer, hole);
    if (to < 0)
        return false;
    // outer ... to -> hole ... (around the hole) ... hole' -> to' -> ...
    const int32_t holePrev = prev_[hole];
    const int32_t toCopy = addNode(point_[to], index_[to], to);
    const int32_t holeCopy = addNode(point_[hole], index_[hole], holePrev);
    next_[to] = hole;
    prev_[hole] = to;
    next_[holeCopy] = toCopy;
    prev_[toCopy] = holeCopy;
    for (const int32_t node : {to, hole, toCopy, holeCopy})
        turn_[node] =
            static_cast<int8_t>(orientation(point_[prev_[node]], point_[node], point_[next_[node]]));
    return true;
}

void EarClipper::buildGrid(int32_t start) {
    Point2 lo = point_[start];
    Point2 hi = lo;
    for (int32_t n = 0; n < nodes_; ++n) {
        const Point2 p = point_[n];
        lo = {std::min(lo.x, p.x), std::min(lo.y, p.y)};
        hi = {std::max(hi.x, p.x), std::max(hi.y, p.y)};
    }
    // About one reflex corner per cell: only they enter the grid.
    const auto reflex =
        std::count_if(turn_.begin(), turn_.begin() + nodes_, [](int32_t t) { return t <= 0; });
    const double side = std::max(hi.x - lo.x, hi.y - lo.y);
    const double perSide = std::ceil(std::sqrt(static_cast<double>(std::max<ptrdiff_t>(1, reflex))));
    // Cells per unit: a product per lookup instead of a quotient.
    cellScale_ = side > 0.0 && std::isfinite(side) ? perSide / side : 1.0;
    gridOrigin_ = lo;
    columns_ = static_cast<int32_t>((hi.x - lo.x) * cellScale_) + 1;
    rows_ = static_cast<int32_t>((hi.y - lo.y) * cellScale_) + 1;
    cellHead_.assign(static_cast<size_t>(columns_) * rows_, -1);
    cellNext_.resize(static_cast<size_t>(nodes_));
    cellPrev_.resize(static_cast<size_t>(nodes_));
    for (int32_t node = 0; node < nodes_; ++node) {
        inGrid_[node] = false;
        if (turn_[node] <= 0)
            enterGrid(node);
    }
    gridded_ = true;
}

void EarClipper::enterGrid(int32_t node) {
    int32_t& head = cellHead_[cellOf(point_[node])];
    cellPrev_[node] = -1;
    cellNext_[node] = head;
    if (head >= 0)
        cellPrev_[head] = node;
    head = node;
    inGrid_[node] = true;
}

void EarClipper::leaveGrid(int32_t node) {
    const int32_t before = cellPrev_[node];
    const int32_t after = cellNext_[node];
    if (after >= 0)
        cellPrev_[after] = before;
    if (before >= 0) {
        cellNext_[before] = after;
    } else {
        cellHead_[cellOf(point_[node])] = after;
    }
    inGrid_[node] = false;
}

size_t EarClipper::cellOf(Point2 p) const {
    const auto x = std::min(columns_ - 1, static_cast<int32_t>((p.x - gridOrigin_.x) * cellScale_));
    const auto y = std::min(rows_ - 1, static_cast<int32_t>((p.y - gridOrigin_.y) * cellScale_));
    return static_cast<size_t>(y) * columns_ + x;
}

// Inline: every clipped ear updates its two neighbours.
[[gnu::always_inline]] inline void EarClipper::classify(int32_t node) {
    const int turn = orientation(point_[prev_[node]], point_[node], point_[next_[node]]);
    turn_[node] = turn;
    if (!gridded_) {
        reflexMask_ = turn <= 0 ? reflexMask_ | bit(node) : reflexMask_ & ~bit(node);
        return;
    }
    if ((turn <= 0) != inGrid_[node])
        turn <= 0 ? enterGrid(node) : leaveGrid(node);
}

namespace {

struct EarBox {
    double minX, maxX, minY, maxY;

    // Pairwise: the initializer-list forms loop over a copy, in the ear test of every corner.
    EarBox(Point2 a, Point2 b, Point2 c)
        : minX(std::min(a.x, std::min(b.x, c.x)))
        , maxX(std::max(a.x, std::max(b.x, c.x)))
        , minY(std::min(a.y, std::min(b.y, c.y)))
        , maxY(std::max(a.y, std::max(b.y, c.y))) {}

    // Bitwise, not short-circuit: one hard-to-predict branch instead of four.
    bool holds(Point2 p) const { return (p.x >= minX) & (p.x <= maxX) & (p.y >= minY) & (p.y <= maxY); }
};

// Whether p keeps a-b-c from being an ear. Another copy of a corner (the two ends of a bridge)
// opens away from the ear. The diagonal c-a is tested first: points near an ear but outside it
// mostly lie beyond it.
[[gnu::always_inline]] inline bool blocks(const EarBox& box, Point2 a, Point2 b, Point2 c, Point2 p) {
    return box.holds(p) && ((p != a) & (p != b) & (p != c)) && inClosedTriangle(c, a, b, p);
}

} // namespace

void EarClipper::maskReflexCorners() {
    reflexMask_ = 0;
    for (int32_t node = 0; node < nodes_; ++node) {
        if (turn_[node] <= 0)
            reflexMask_ |= bit(node);
    }
}

bool EarClipper::gridHoldsBlocker(Point2 a, Point2 b, Point2 c) const {
    const EarBox box(a, b, c);
    const auto x0 = static_cast<int32_t>((box.minX - gridOrigin_.x) * cellScale_);
    const auto x1 = std::min(columns_ - 1, static_cast<int32_t>((box.maxX - gridOrigin_.x) * cellScale_));
    const auto y0 = static_cast<int32_t>((box.minY - gridOrigin_.y) * cellScale_);
    const auto y1 = std::min(rows_ - 1, static_cast<int32_t>((box.maxY - gridOrigin_.y) * cellScale_));
    for (int32_t y = y0; y <= y1; ++y) {
        for (int32_t x = x0; x <= x1; ++x) {
            for (int32_t p = cellHead_[static_cast<size_t>(y) * columns_ + x]; p >= 0; p = cellNext_[p]) {
                if (blocks(box, a, b, c, point_[p]))
                    return true;
            }
        }
    }
    return false;
}

// Inline: it runs once or twice per triangle made, mostly on small faces.
[[gnu::always_inline]] inline bool EarClipper::isEar(int32_t ear) const {
    if (turn_[ear] <= 0)
        return false;
    const Point2 a = point_[prev_[ear]];
    const Point2 b = point_[ear];
    const Point2 c = point_[next_[ear]];
    if (gridded_)
        return !gridHoldsBlocker(a, b, c);
    const EarBox box(a, b, c);
    // The ear's own neighbours are corners of it, not blockers.
    for (uint64_t m = reflexMask_ & ~(bit(prev_[ear]) | bit(next_[ear])); m != 0; m &= m - 1) {
        if (blocks(box, a, b, c, point_[std::countr_zero(m)]))
            return false;
    }
    return true;
}

// An ear is strictly convex, so it is in no list of reflex corners and no cell of the grid.
void EarClipper::unlink(int32_t node) {
    next_[prev_[node]] = next_[node];
    prev_[next_[node]] = prev_[node];
}

bool EarClipper::triangulate(const PlanarFace& face, std::vector<Triangle>& out) {
    // Every hole adds the two ends of its bridge once more.
    reserveNodes(face.points.size() + 2 * static_cast<size_t>(face.loopCount() - 1));
    nodes_ = 0;
    holes_.clear();
    gridded_ = false;

    const int32_t outer = 0;
    linkLoop(face, 0, false);
    for (int32_t l = 1; l < face.loopCount(); ++l) {
        const int32_t first = nodes_;
        // Holes run clockwise, so that a bridge in and out of one keeps the joined loop consistent.
        linkLoop(face, l, face.twiceArea[l] > 0.0);
        int32_t leftmost = first;
        for (int32_t n = first; n < nodes_; ++n) {
            const Point2 p = point_[n];
            const Point2 best = point_[leftmost];
            if (p.x < best.x || (p.x == best.x && p.y < best.y))
                leftmost = n;
        }
        holes_.emplace_back(point_[leftmost].x, leftmost);
    }
    // Left to right: a hole's bridge can then only meet the outer loop and holes already joined.
    std::sort(holes_.begin(), holes_.end(), [&](const auto& a, const auto& b) {
        return a.first < b.first || (a.first == b.first && point_[a.second].y < point_[b.second].y);
    });
    for (const auto& [x, hole] : holes_) {
        if (!joinHole(outer, hole))
            return false;
    }

    if (nodes_ > kMaskedNodes)
        buildGrid(outer);
    else
        maskReflexCorners();
    // A loop of n corners makes n - 2 triangles; they are written in place.
    const size_t firstOut = out.size();
    out.resize(firstOut + static_cast<size_t>(nodes_ - 2));
    Triangle* made = out.data() + firstOut;
    int32_t remaining = nodes_;
    int32_t ear = outer;
    int32_t stop = ear;
    while (remaining > 3) {
        const int32_t prev = prev_[ear];
        const int32_t next = next_[ear];
        if (isEar(ear)) {
            *made++ = {index_[prev], index_[ear], index_[next]};
            unlink(ear);
            classify(prev);
            classify(next);
            --remaining;
            ear = next;
            stop = next;
            continue;
        }
        ear = next;
        if (ear == stop) {
            out.resize(firstOut);
            return false;
        }
    }
    const int32_t prev = prev_[ear];
    const int32_t next = next_[ear];
    if (turn_[ear] <= 0) {
        out.resize(firstOut);
        return false;
    }
    *made = {index_[prev], index_[ear], index_[next]};
    return true;
}

} // namespace oz::mesh
