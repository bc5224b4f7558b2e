#include "offset/OffsetStops.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numbers>
#include <numeric>

namespace type {

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

// The step is halved this many times before the points of a colliding step stop.
constexpr int kStepHalvings = 3;
constexpr int kTries = kStepHalvings + 1;

// The narrowest angle (radians, about 5 degrees) the wavefront may close a corner to.
constexpr double kSliverAngle = 0.087;
const double kSliverTangent = std::tan(kSliverAngle);

double cross(const Point2& o, const Point2& a, const Point2& b) {
    return (a.x - o.x) * (b.y - o.y) - (a.y - o.y) * (b.x - o.x);
}

int sign(double value) {
    return (value > 0.0) - (value < 0.0);
}

using Triangle = std::array<Point2, 3>;

// Whether projecting both triangles on `axis` leaves a gap between them.
bool apartAlong(const Point2& axis, const Triangle& t, const Triangle& u) {
    if (axis.x == 0.0 && axis.y == 0.0)
        return false;
    double tMin = INFINITY, tMax = -INFINITY, uMin = INFINITY, uMax = -INFINITY;
    for (const Point2& p : t) {
        const double s = axis.x * p.x + axis.y * p.y;
        tMin = std::min(tMin, s);
        tMax = std::max(tMax, s);
    }
    for (const Point2& p : u) {
        const double s = axis.x * p.x + axis.y * p.y;
        uMin = std::min(uMin, s);
        uMax = std::max(uMax, s);
    }
    return tMax < uMin || uMax < tMin;
}

bool isPoint(const Triangle& t) {
    return t[0] == t[1] && t[1] == t[2];
}

// Whether closed triangles share a point, flat ones included: they do unless
// an edge normal of either, or the run of a flat one, parts them.
bool trianglesTouch(const Triangle& t, const Triangle& u) {
    for (const Triangle* v : {&t, &u}) {
        const bool flat = cross((*v)[0], (*v)[1], (*v)[2]) == 0.0;
        for (int i = 0; i < 3; ++i) {
            const Point2& a = (*v)[i];
            const Point2& b = (*v)[(i + 1) % 3];
            const Point2 edge{b.x - a.x, b.y - a.y};
            if (apartAlong({-edge.y, edge.x}, t, u) || (flat && apartAlong(edge, t, u)))
                return false;
        }
    }
    return !(isPoint(t) && isPoint(u)) || t[0] == u[0];
}

// Whether a line through two of `a`'s points has all of `a` on one side and
// all of `b` strictly on the other: then their convex hulls, and so any
// triangles of their points, are apart. Most pairs of nearby edges part here.
bool separated(const std::array<Point2, 4>& a, const std::array<Point2, 4>& b) {
    // The points are an edge's ends now and after the step: the paths of its
    // ends part neighbours most often, then the edge itself.
    static constexpr int kLines[6][2] = {{0, 2}, {1, 3}, {0, 1}, {2, 3}, {0, 3}, {1, 2}};
    for (const auto& [i, j] : kLines) {
        const Point2& p = a[i];
        const Point2& q = a[j];
        if (p == q)
            continue;
        bool positive = false, negative = false;
        for (const Point2& r : a) {
            const int s = sign(cross(p, q, r));
            positive = positive || s > 0;
            negative = negative || s < 0;
        }
        if (positive && negative)
            continue;
        // The side b must keep to: away from a, or either side when a lies on the line.
        int wanted = positive ? -1 : negative ? 1 : sign(cross(p, q, b[0]));
        for (const Point2& r : b)
            if (sign(cross(p, q, r)) != wanted)
                wanted = 0;
        if (wanted != 0)
            return true;
    }
    return false;
}

struct Box {
    Point2 min;
    Point2 max;
};

// The wavefront: the outline's distinct points (a run of repeated points is
// one node) and the edges between consecutive nodes of each loop.
class Wavefront {
public:
    Wavefront(const FaceOutline& outline, const std::vector<Mitre>& mitres) {
        nodeOf_.assign(outline.points.size(), -1);
        std::size_t start = 0;
        for (const int size : outline.loopSizes) {
            if (size <= 0 || start + static_cast<std::size_t>(size) > outline.points.size())
                break;
            addLoop(outline, mitres, start, static_cast<std::size_t>(size));
            start += static_cast<std::size_t>(size);
        }
        current_ = origin_;
        tries_.fill(origin_);
        order_.resize(edges_.size());
        std::iota(order_.begin(), order_.end(), 0);
        for (const std::array<int, 3>& c : corners_) {
            const Point2 u{origin_[c[2]].x - origin_[c[1]].x, origin_[c[2]].y - origin_[c[1]].y};
            const Point2 w{origin_[c[0]].x - origin_[c[1]].x, origin_[c[0]].y - origin_[c[1]].y};
            originAngles_.push_back(std::abs(std::atan2(u.x * w.y - u.y * w.x, u.x * w.x + u.y * w.y)));
        }
    }

    // Each outline point's travel at its stop.
    std::vector<double> advance(double step, double maxDistance) {
        double distance = 0.0;
        while (std::any_of(stop_.begin(), stop_.end(), [](double s) { return s == kInfinity; }) &&
               distance < maxDistance) {
            for (int k = 0; k < kTries; ++k)
                moveTo(tries_[k], distance + step / (1 << k));
            findCandidates();
            int k = 0;
            while (k < kTries && goesWrong(tries_[k], false))
                ++k;
            if (k == kTries) {
                k = kTries - 1;
                std::vector<Point2>& next = tries_[k];
                while (goesWrong(next, true))
                    for (const int node : troubled_) {
                        stop_[node] = distance;
                        next[node] = current_[node];
                    }
            }
            current_ = tries_[k];
            distance += step / (1 << k);
        }
        std::vector<double> travels(nodeOf_.size(), 0.0);
        for (std::size_t i = 0; i < nodeOf_.size(); ++i) {
            const int node = nodeOf_[i];
            if (node >= 0)
                travels[i] = std::min(stop_[node], distance) * speed_[node];
        }
        return travels;
    }

private:
    void addLoop(const FaceOutline& outline, const std::vector<Mitre>& mitres, std::size_t start,
                 std::size_t size) {
        const int first = static_cast<int>(origin_.size());
        for (std::size_t i = start; i < start + size; ++i) {
            const Point2& p = outline.points[i];
            const bool repeat = static_cast<int>(origin_.size()) > first && origin_.back() == p;
            if (!repeat) {
                const Mitre& m = mitres[i];
                const bool movable = std::isfinite(p.x) && std::isfinite(p.y) &&
                                     std::isfinite(m.direction.x) && std::isfinite(m.direction.y) &&
                                     m.sine > 0.0 && std::isfinite(m.sine) &&
                                     (m.direction.x != 0.0 || m.direction.y != 0.0);
                origin_.push_back(p);
                velocity_.push_back(movable ? Point2{m.direction.x / m.sine, m.direction.y / m.sine}
                                            : Point2{});
                speed_.push_back(movable ? 1.0 / m.sine : 0.0);
                stop_.push_back(movable ? kInfinity : 0.0);
            }
            nodeOf_[i] = static_cast<int>(origin_.size()) - 1;
        }
        // The loop closes on its first point: a last run equal to it joins the first node.
        int last = static_cast<int>(origin_.size()) - 1;
        while (last > first && origin_[last] == origin_[first]) {
            for (std::size_t i = start; i < start + size; ++i)
                if (nodeOf_[i] == last)
                    nodeOf_[i] = first;
            origin_.pop_back();
            velocity_.pop_back();
            speed_.pop_back();
            stop_.pop_back();
            --last;
        }
        const int count = static_cast<int>(origin_.size()) - first;
        if (count < 3) {
            // Nothing of a loop this thin can move without crossing itself.
            std::fill(stop_.begin() + first, stop_.end(), 0.0);
        }
        for (int k = 0; k < count; ++k)
            edges_.push_back({first + k, first + (k + 1) % count});
        if (count >= 3)
            for (int k = 0; k < count; ++k)
                corners_.push_back({first + (k + count - 1) % count, first + k, first + (k + 1) % count});
    }

    void moveTo(std::vector<Point2>& next, double distance) const {
        for (std::size_t n = 0; n < origin_.size(); ++n)
            next[n] = stop_[n] == kInfinity ? Point2{origin_[n].x + velocity_[n].x * distance,
                                                     origin_[n].y + velocity_[n].y * distance}
                                            : current_[n];
    }

    bool moving(int node) const { return stop_[node] == kInfinity; }

    Box sweptBox(const std::array<int, 2>& edge, const std::vector<Point2>& next) const {
        Box box{current_[edge[0]], current_[edge[0]]};
        for (const int node : edge)
            for (const Point2& p : {current_[node], next[node]}) {
                box.min = {std::min(box.min.x, p.x), std::min(box.min.y, p.y)};
                box.max = {std::max(box.max.x, p.x), std::max(box.max.y, p.y)};
            }
        return box;
    }

    // The area an edge sweeps in this step, as the two triangles of its quad.
    std::array<Triangle, 2> swept(const std::array<int, 2>& edge, const std::vector<Point2>& next) const {
        const Point2 a0 = current_[edge[0]], b0 = current_[edge[1]];
        const Point2 a1 = next[edge[0]], b1 = next[edge[1]];
        return {Triangle{a0, b0, b1}, Triangle{a0, b1, a1}};
    }

    bool sweptAreasTouch(const std::array<int, 2>& e, const std::array<int, 2>& f,
                         const std::vector<Point2>& next) const {
        const std::array<Point2, 4> pe{current_[e[0]], current_[e[1]], next[e[0]], next[e[1]]};
        const std::array<Point2, 4> pf{current_[f[0]], current_[f[1]], next[f[0]], next[f[1]]};
        if (separated(pe, pf) || separated(pf, pe))
            return false;
        const std::array<Triangle, 2> te = swept(e, next), tf = swept(f, next);
        for (const Triangle& t : te)
            for (const Triangle& u : tf)
                if (trianglesTouch(t, u))
                    return true;
        return false;
    }

    // An edge that turns round has passed through zero length: its ends crossed.
    bool turnsRound(const std::array<int, 2>& e, const std::vector<Point2>& next) const {
        const Point2 was{origin_[e[1]].x - origin_[e[0]].x, origin_[e[1]].y - origin_[e[0]].y};
        const Point2 now{next[e[1]].x - next[e[0]].x, next[e[1]].y - next[e[0]].y};
        return was.x * now.x + was.y * now.y < 0.0;
    }

    // A corner folds when its two edges swing through lying on each other; one
    // that closes to a sliver is stopped short of that, since between two
    // steps its edges sweep curved areas that a sliver would not keep apart.
    bool folds(std::size_t corner, const std::vector<Point2>& next) const {
        const std::array<int, 3>& c = corners_[corner];
        const auto arms = [&](const std::vector<Point2>& at, double& crossing, double& along) {
            const Point2 u{at[c[2]].x - at[c[1]].x, at[c[2]].y - at[c[1]].y};
            const Point2 w{at[c[0]].x - at[c[1]].x, at[c[0]].y - at[c[1]].y};
            crossing = u.x * w.y - u.y * w.x;
            along = u.x * w.x + u.y * w.y;
            return (u.x != 0.0 || u.y != 0.0) && (w.x != 0.0 || w.y != 0.0);
        };
        double crossBefore = 0.0, alongBefore = 0.0, crossAfter = 0.0, alongAfter = 0.0;
        if (!arms(current_, crossBefore, alongBefore) || !arms(next, crossAfter, alongAfter))
            return false;
        // Only a corner that swung across or is narrow now can fold or close to a sliver.
        const bool swung = sign(crossBefore) != sign(crossAfter);
        if (!swung && (alongAfter <= 0.0 || std::abs(crossAfter) > kSliverTangent * alongAfter))
            return false;
        const double before = std::atan2(crossBefore, alongBefore);
        const double after = std::atan2(crossAfter, alongAfter);
        if (sign(before) != sign(after) && std::abs(before - after) < std::numbers::pi)
            return true;
        return std::abs(after) < std::min(originAngles_[corner], kSliverAngle) &&
               std::abs(after) < std::abs(before);
    }

    // The pairs of edges whose areas swept in the longest try of this step may
    // meet: a shorter try, or stopped nodes, sweep less.
    void findCandidates() {
        boxes_.resize(edges_.size());
        for (std::size_t e = 0; e < edges_.size(); ++e)
            boxes_[e] = sweptBox(edges_[e], tries_[0]);
        // The order of the last step is nearly right: insertion sort finishes it cheaply.
        for (std::size_t i = 1; i < order_.size(); ++i)
            for (std::size_t j = i; j > 0 && boxes_[order_[j]].min.x < boxes_[order_[j - 1]].min.x; --j)
                std::swap(order_[j], order_[j - 1]);
        sorted_.resize(order_.size());
        for (std::size_t i = 0; i < order_.size(); ++i)
            sorted_[i] = boxes_[order_[i]];
        candidates_.clear();
        for (std::size_t i = 0; i < sorted_.size(); ++i) {
            const Box& be = sorted_[i];
            for (std::size_t j = i + 1; j < sorted_.size() && sorted_[j].min.x <= be.max.x; ++j) {
                const Box& bf = sorted_[j];
                if (bf.min.y > be.max.y || bf.max.y < be.min.y)
                    continue;
                const std::array<int, 2>& e = edges_[order_[i]];
                const std::array<int, 2>& f = edges_[order_[j]];
                if (e[0] == f[0] || e[0] == f[1] || e[1] == f[0] || e[1] == f[1])
                    continue;
                if (moving(e[0]) || moving(e[1]) || moving(f[0]) || moving(f[1]))
                    candidates_.push_back({order_[i], order_[j]});
            }
        }
    }

    // Whether an edge turns round, a corner folds or two edges' swept areas
    // meet when the moving nodes go to `next`. With `collect`, troubled_ gets
    // the moving nodes of all that goes wrong; without, the first answers.
    bool goesWrong(const std::vector<Point2>& next, bool collect) {
        troubled_.clear();
        if (collect)
            marked_.assign(origin_.size(), 0);
        bool wrong = false;
        const auto found = [&](auto nodes) {
            bool movable = false;
            for (const int node : nodes)
                if (moving(node)) {
                    movable = true;
                    if (collect && !marked_[node]) {
                        marked_[node] = 1;
                        troubled_.push_back(node);
                    }
                }
            wrong = wrong || movable;
            return wrong && !collect;
        };
        for (const std::array<int, 2>& e : edges_)
            if (turnsRound(e, next) && found(e))
                return true;
        for (std::size_t c = 0; c < corners_.size(); ++c)
            if (folds(c, next) && found(corners_[c]))
                return true;
        for (const auto& [i, j] : candidates_) {
            const std::array<int, 2>& e = edges_[i];
            const std::array<int, 2>& f = edges_[j];
            if (sweptAreasTouch(e, f, next) && found(std::array<int, 4>{e[0], e[1], f[0], f[1]}))
                return true;
        }
        return wrong;
    }

    std::vector<int> nodeOf_;
    std::vector<Point2> origin_;
    std::vector<Point2> velocity_;
    std::vector<double> speed_;
    std::vector<double> stop_;
    std::vector<std::array<int, 2>> edges_;
    std::vector<std::array<int, 3>> corners_;
    std::vector<double> originAngles_;
    std::vector<Point2> current_;
    // Where the nodes go in a full step, half a step, and so on.
    std::array<std::vector<Point2>, kTries> tries_;
    // Scratch of a step, kept between steps.
    std::vector<std::pair<int, int>> candidates_;
    std::vector<int> troubled_;
    std::vector<char> marked_;
    std::vector<Box> boxes_;
    std::vector<Box> sorted_;
    std::vector<int> order_;
};

} // namespace

std::vector<double> stopTravels(const FaceOutline& outline, const std::vector<Mitre>& mitres, double step,
                                double maxDistance) {
    if (mitres.size() != outline.points.size() || !(step > 0.0))
        return std::vector<double>(outline.points.size(), 0.0);
    return Wavefront(outline, mitres).advance(step, maxDistance);
}

} // namespace type
