#include "mesh/Orientation2d.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace oz::mesh {

namespace {

struct Pair {
    double high;
    double low;
};

Pair twoDifference(double a, double b) {
    const double x = a - b;
    const double bVirtual = a - x;
    const double aVirtual = x + bVirtual;
    return {x, (a - aVirtual) + (bVirtual - b)};
}

Pair twoSum(double a, double b) {
    const double x = a + b;
    const double bVirtual = x - a;
    const double aVirtual = x - bVirtual;
    return {x, (a - aVirtual) + (b - bVirtual)};
}

Pair twoProduct(double a, double b) {
    const double x = a * b;
    return {x, std::fma(a, b, -x)};
}

// Sign of the exact sum of `terms`, accumulated as a non-overlapping expansion whose largest
// non-zero component carries the sign.
template <size_t N> int signOfSum(const std::array<double, N>& terms) {
    std::array<double, N> expansion{};
    size_t size = 0;
    for (const double term : terms) {
        double carry = term;
        size_t kept = 0;
        for (size_t i = 0; i < size; ++i) {
            const Pair s = twoSum(carry, expansion[i]);
            carry = s.high;
            if (s.low != 0.0)
                expansion[kept++] = s.low;
        }
        if (carry != 0.0)
            expansion[kept++] = carry;
        size = kept;
    }
    for (size_t i = size; i-- > 0;) {
        if (expansion[i] != 0.0)
            return expansion[i] > 0.0 ? 1 : -1;
    }
    return 0;
}

} // namespace

int exactOrientation(Point2 a, Point2 b, Point2 c) {
    const Pair bx = twoDifference(b.x, a.x);
    const Pair by = twoDifference(b.y, a.y);
    const Pair cx = twoDifference(c.x, a.x);
    const Pair cy = twoDifference(c.y, a.y);
    std::array<double, 16> terms{};
    size_t n = 0;
    for (const double u : {bx.high, bx.low}) {
        for (const double v : {cy.high, cy.low}) {
            const Pair p = twoProduct(u, v);
            terms[n++] = p.high;
            terms[n++] = p.low;
        }
    }
    for (const double u : {by.high, by.low}) {
        for (const double v : {cx.high, cx.low}) {
            const Pair p = twoProduct(u, v);
            terms[n++] = -p.high;
            terms[n++] = -p.low;
        }
    }
    return signOfSum(terms);
}

bool segmentsTouch(Point2 a, Point2 b, Point2 c, Point2 d) {
    // Apart boxes settle most pairs without a single turn.
    if (std::max(a.x, b.x) < std::min(c.x, d.x) || std::max(c.x, d.x) < std::min(a.x, b.x) ||
        std::max(a.y, b.y) < std::min(c.y, d.y) || std::max(c.y, d.y) < std::min(a.y, b.y))
        return false;
    const int o1 = orientation(a, b, c);
    const int o2 = orientation(a, b, d);
    const int o3 = orientation(c, d, a);
    const int o4 = orientation(c, d, b);
    if (o1 * o2 > 0 || o3 * o4 > 0)
        return false;
    if (o1 != 0 || o2 != 0)
        return true;
    // All four on one line: they touch when their extents overlap.
    return withinBox(a, b, c) || withinBox(a, b, d) || withinBox(c, d, a) || withinBox(c, d, b);
}

} // namespace oz::mesh
