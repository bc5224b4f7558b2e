#include "offset/OffsetStops.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numbers>

namespace type {

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

// The step is halved this many times before the points of a colliding step stop.
constexpr int kStepHalvings = 3;

// The narrowest angle (radians, about 5 degrees) the wavefront may close a corner to.
constexpr double kSliverAngle = 0.087;

double cross(const Point2& o, const Point2& a, const Point2& b) {
    return (a.x - o.x) * (b.y - o.y) - (a.y - o.y) * (b.x - o.x);
}

int sign(double value) {
    return (value > 0.0) - (value < 0.0);
}

bool within(const Point2& a, const Point2& b, const Point2& p) {
    return std::min(a.x, b.x) <= p.x && p.x <= std::max(a.x, b.x) && std::min(a.y, b.y) <= p.y &&
           p.y <= std::max(a.y, b.y);
}

// Closed segments, either of which may be a single point.
bool segmentsTouch(const Point2& a, const Point2& b, const Point2& c, const Point2& d) {
    const int d1 = sign(cross(c, d, a));
    const int d2 = sign(cross(c, d, b));
    const int d3 = sign(cross(a, b, c));
    const int d4 = sign(cross(a, b, d));
    if (d1 * d2 < 0 && d3 * d4 < 0)
        return true;
    return (d1 == 0 && within(c, d, a) && (c != d || a == c)) ||
           (d2 == 0 && within(c, d, b) && (c != d || b == c)) ||
           (d3 == 0 && within(a, b, c) && (a != b || c == a)) ||
           (d4 == 0 && within(a, b, d) && (a != b || d == a));
}

using Triangle = std::array<Point2, 3>;

bool inside(const Triangle& t, const Point2& p) {
    const double area = cross(t[0], t[1], t[2]);
    if (area == 0.0)
        return false;
    const int s = sign(area);
    return sign(cross(t[0], t[1], p)) * s >= 0 && sign(cross(t[1], t[2], p)) * s >= 0 &&
           sign(cross(t[2], t[0], p)) * s >= 0;
}

// Closed triangles, degenerate ones included.
bool trianglesTouch(const Triangle& t, const Triangle& u) {
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j)
            if (segmentsTouch(t[i], t[(i + 1) % 3], u[j], u[(j + 1) % 3]))
                return true;
    return inside(t, u[0]) || inside(u, t[0]);
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
        next_ = origin_;
    }

    // Each outline point's travel at its stop.
    std::vector<double> advance(double step, double maxDistance) {
        double distance = 0.0;
        double length = step;
        while (std::any_of(stop_.begin(), stop_.end(), [](double s) { return s == kInfinity; }) &&
               distance < maxDistance) {
            moveTo(distance + length);
            std::vector<int> troubled = troubledNodes();
            if (!troubled.empty() && length > step / (1 << kStepHalvings)) {
                length /= 2.0;
                continue;
            }
            while (!troubled.empty()) {
                for (const int node : troubled) {
                    stop_[node] = distance;
                    next_[node] = current_[node];
                }
                troubled = troubledNodes();
            }
            current_ = next_;
            distance += length;
            length = step;
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

    void moveTo(double distance) {
        for (std::size_t n = 0; n < origin_.size(); ++n)
            next_[n] = stop_[n] == kInfinity ? Point2{origin_[n].x + velocity_[n].x * distance,
                                                      origin_[n].y + velocity_[n].y * distance}
                                             : current_[n];
    }

    bool moving(int node) const { return stop_[node] == kInfinity; }

    Box sweptBox(const std::array<int, 2>& edge) const {
        Box box{current_[edge[0]], current_[edge[0]]};
        for (const int node : edge)
            for (const Point2& p : {current_[node], next_[node]}) {
                box.min = {std::min(box.min.x, p.x), std::min(box.min.y, p.y)};
                box.max = {std::max(box.max.x, p.x), std::max(box.max.y, p.y)};
            }
        return box;
    }

    // The area an edge sweeps in this step, as the two triangles of its quad.
    std::array<Triangle, 2> swept(const std::array<int, 2>& edge) const {
        const Point2 a0 = current_[edge[0]], b0 = current_[edge[1]];
        const Point2 a1 = next_[edge[0]], b1 = next_[edge[1]];
        return {Triangle{a0, b0, b1}, Triangle{a0, b1, a1}};
    }

    bool sweptAreasTouch(const std::array<int, 2>& e, const std::array<int, 2>& f) const {
        const std::array<Triangle, 2> te = swept(e), tf = swept(f);
        for (const Triangle& t : te)
            for (const Triangle& u : tf)
                if (trianglesTouch(t, u))
                    return true;
        return false;
    }

    // An edge that turns round has passed through zero length: its ends crossed.
    bool turnsRound(const std::array<int, 2>& e) const {
        const Point2 was{origin_[e[1]].x - origin_[e[0]].x, origin_[e[1]].y - origin_[e[0]].y};
        const Point2 now{next_[e[1]].x - next_[e[0]].x, next_[e[1]].y - next_[e[0]].y};
        return was.x * now.x + was.y * now.y < 0.0;
    }

    // A corner folds when its two edges swing through lying on each other; one
    // that closes to a sliver is stopped short of that, since between two
    // steps its edges sweep curved areas that a sliver would not keep apart.
    bool folds(const std::array<int, 3>& c) const {
        const auto angle = [&](const std::vector<Point2>& at) {
            const Point2 u{at[c[2]].x - at[c[1]].x, at[c[2]].y - at[c[1]].y};
            const Point2 w{at[c[0]].x - at[c[1]].x, at[c[0]].y - at[c[1]].y};
            return std::atan2(u.x * w.y - u.y * w.x, u.x * w.x + u.y * w.y);
        };
        for (const std::vector<Point2>* at : {&origin_, &current_, &next_})
            if ((*at)[c[0]] == (*at)[c[1]] || (*at)[c[2]] == (*at)[c[1]])
                return false;
        const double before = angle(current_);
        const double after = angle(next_);
        if (sign(before) != sign(after) && std::abs(before - after) < std::numbers::pi)
            return true;
        return std::abs(after) < std::min(std::abs(angle(origin_)), kSliverAngle) &&
               std::abs(after) < std::abs(before);
    }

    void mark(std::vector<int>& troubled, std::vector<char>& marked, int node) const {
        if (moving(node) && !marked[node]) {
            marked[node] = 1;
            troubled.push_back(node);
        }
    }

    std::vector<int> troubledNodes() const {
        std::vector<int> troubled;
        std::vector<char> marked(origin_.size(), 0);
        std::vector<Box> boxes(edges_.size());
        std::vector<int> order(edges_.size());
        for (std::size_t e = 0; e < edges_.size(); ++e) {
            boxes[e] = sweptBox(edges_[e]);
            order[e] = static_cast<int>(e);
            if (turnsRound(edges_[e]))
                for (const int node : edges_[e])
                    mark(troubled, marked, node);
        }
        for (const std::array<int, 3>& c : corners_)
            if (folds(c))
                for (const int node : c)
                    mark(troubled, marked, node);
        std::sort(order.begin(), order.end(), [&](int a, int b) { return boxes[a].min.x < boxes[b].min.x; });
        for (std::size_t i = 0; i < order.size(); ++i) {
            const std::array<int, 2>& e = edges_[order[i]];
            const Box& be = boxes[order[i]];
            for (std::size_t j = i + 1; j < order.size() && boxes[order[j]].min.x <= be.max.x; ++j) {
                const std::array<int, 2>& f = edges_[order[j]];
                const Box& bf = boxes[order[j]];
                if (bf.min.y > be.max.y || bf.max.y < be.min.y)
                    continue;
                if (e[0] == f[0] || e[0] == f[1] || e[1] == f[0] || e[1] == f[1])
                    continue;
                if (!moving(e[0]) && !moving(e[1]) && !moving(f[0]) && !moving(f[1]))
                    continue;
                if (sweptAreasTouch(e, f))
                    for (const int node : {e[0], e[1], f[0], f[1]})
                        mark(troubled, marked, node);
            }
        }
        return troubled;
    }

    std::vector<int> nodeOf_;
    std::vector<Point2> origin_;
    std::vector<Point2> velocity_;
    std::vector<double> speed_;
    std::vector<double> stop_;
    std::vector<std::array<int, 2>> edges_;
    std::vector<std::array<int, 3>> corners_;
    std::vector<Point2> current_;
    std::vector<Point2> next_;
};

} // namespace

std::vector<double> stopTravels(const FaceOutline& outline, const std::vector<Mitre>& mitres, double step,
                                double maxDistance) {
    if (mitres.size() != outline.points.size() || !(step > 0.0))
        return std::vector<double>(outline.points.size(), 0.0);
    return Wavefront(outline, mitres).advance(step, maxDistance);
}

} // namespace type
