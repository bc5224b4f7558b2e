#include "export/TrsFit.h"

#include <algorithm>
#include <cmath>

namespace oz::exporter {
namespace {

using Matrix3 = std::array<Double3, 3>; // rows

Double3 sub(const Double3& a, const Double3& b) {
    return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}

double dot(const Double3& a, const Double3& b) {
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

Double3 cross(const Double3& a, const Double3& b) {
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

double norm(const Double3& a) {
    return std::sqrt(dot(a, a));
}

Double3 scaled(const Double3& a, double s) {
    return {a[0] * s, a[1] * s, a[2] * s};
}

Double3 widen(const Float3& p) {
    return {p[0], p[1], p[2]};
}

Double3 column(const Matrix3& m, int c) {
    return {m[0][static_cast<std::size_t>(c)], m[1][static_cast<std::size_t>(c)],
            m[2][static_cast<std::size_t>(c)]};
}

// Eigenvalues and eigenvectors (columns of `vectors`) of a symmetric matrix,
// by cyclic Jacobi rotations.
void symmetricEigen(Matrix3 a, Double3& values, Matrix3& vectors) {
    vectors = {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}};
    for (int sweep = 0; sweep < 50; ++sweep) {
        const double off = a[0][1] * a[0][1] + a[0][2] * a[0][2] + a[1][2] * a[1][2];
        if (off <= 1e-30 * (a[0][0] * a[0][0] + a[1][1] * a[1][1] + a[2][2] * a[2][2]) || off == 0.0)
            break;
        for (std::size_t p = 0; p < 2; ++p)
            for (std::size_t q = p + 1; q < 3; ++q) {
                if (a[p][q] == 0.0)
                    continue;
                const double theta = (a[q][q] - a[p][p]) / (2.0 * a[p][q]);
                const double t =
                    (theta >= 0 ? 1.0 : -1.0) / (std::abs(theta) + std::sqrt(theta * theta + 1.0));
                const double c = 1.0 / std::sqrt(t * t + 1.0);
                const double s = t * c;
                for (std::size_t k = 0; k < 3; ++k) {
                    const double akp = a[k][p];
                    const double akq = a[k][q];
                    a[k][p] = c * akp - s * akq;
                    a[k][q] = s * akp + c * akq;
                }
                for (std::size_t k = 0; k < 3; ++k) {
                    const double apk = a[p][k];
                    const double aqk = a[q][k];
                    a[p][k] = c * apk - s * aqk;
                    a[q][k] = s * apk + c * aqk;
                }
                for (std::size_t k = 0; k < 3; ++k) {
                    const double vkp = vectors[k][p];
                    const double vkq = vectors[k][q];
                    vectors[k][p] = c * vkp - s * vkq;
                    vectors[k][q] = s * vkp + c * vkq;
                }
            }
    }
    values = {a[0][0], a[1][1], a[2][2]};
}

std::array<double, 4> quaternionOf(const Matrix3& r) {
    const double trace = r[0][0] + r[1][1] + r[2][2];
    std::array<double, 4> q{};
    if (trace > 0.0) {
        const double s = std::sqrt(trace + 1.0) * 2.0;
        q = {(r[2][1] - r[1][2]) / s, (r[0][2] - r[2][0]) / s, (r[1][0] - r[0][1]) / s, 0.25 * s};
    } else if (r[0][0] > r[1][1] && r[0][0] > r[2][2]) {
        const double s = std::sqrt(1.0 + r[0][0] - r[1][1] - r[2][2]) * 2.0;
        q = {0.25 * s, (r[0][1] + r[1][0]) / s, (r[0][2] + r[2][0]) / s, (r[2][1] - r[1][2]) / s};
    } else if (r[1][1] > r[2][2]) {
        const double s = std::sqrt(1.0 + r[1][1] - r[0][0] - r[2][2]) * 2.0;
        q = {(r[0][1] + r[1][0]) / s, 0.25 * s, (r[1][2] + r[2][1]) / s, (r[0][2] - r[2][0]) / s};
    } else {
        const double s = std::sqrt(1.0 + r[2][2] - r[0][0] - r[1][1]) * 2.0;
        q = {(r[0][2] + r[2][0]) / s, (r[1][2] + r[2][1]) / s, 0.25 * s, (r[1][0] - r[0][1]) / s};
    }
    const double length = std::sqrt(q[0] * q[0] + q[1] * q[1] + q[2] * q[2] + q[3] * q[3]);
    for (double& c : q)
        c /= length;
    return q;
}

} // namespace

Double3 applyTrs(const Trs& trs, const Double3& p) {
    const Double3 s{p[0] * trs.scale[0], p[1] * trs.scale[1], p[2] * trs.scale[2]};
    const Double3 u{trs.rotation[0], trs.rotation[1], trs.rotation[2]};
    const double w = trs.rotation[3];
    // v + 2w (u x v) + 2 u x (u x v)
    const Double3 uv = cross(u, s);
    const Double3 uuv = cross(u, uv);
    return {trs.translation[0] + s[0] + 2.0 * (w * uv[0] + uuv[0]),
            trs.translation[1] + s[1] + 2.0 * (w * uv[1] + uuv[1]),
            trs.translation[2] + s[2] + 2.0 * (w * uv[2] + uuv[2])};
}

TrsFit fitTrs(std::span<const Float3> rest, std::span<const Float3> moved, double tolerance) {
    TrsFit fit;
    if (rest.size() != moved.size() || rest.empty())
        return fit;
    Double3 restCentre{0, 0, 0};
    Double3 movedCentre{0, 0, 0};
    for (std::size_t i = 0; i < rest.size(); ++i)
        for (std::size_t a = 0; a < 3; ++a) {
            restCentre[a] += rest[i][a];
            movedCentre[a] += moved[i][a];
        }
    restCentre = scaled(restCentre, 1.0 / static_cast<double>(rest.size()));
    movedCentre = scaled(movedCentre, 1.0 / static_cast<double>(rest.size()));

    // Least squares for the linear part: L = B C^+, with C = sum q q^T and
    // B = sum q' q^T over the centred points.
    Matrix3 spread{};
    Matrix3 cross3{};
    for (std::size_t i = 0; i < rest.size(); ++i) {
        const Double3 q = sub(widen(rest[i]), restCentre);
        const Double3 m = sub(widen(moved[i]), movedCentre);
        for (std::size_t r = 0; r < 3; ++r)
            for (std::size_t c = 0; c < 3; ++c) {
                spread[r][c] += q[r] * q[c];
                cross3[r][c] += m[r] * q[c];
            }
    }
    Double3 values;
    Matrix3 vectors;
    symmetricEigen(spread, values, vectors);
    const double largest = std::max({values[0], values[1], values[2]});
    if (!(largest > 0.0))
        return fit;
    // Directions the piece does not extend in are mapped afterwards.
    std::array<bool, 3> spans{};
    int spanned = 0;
    for (std::size_t k = 0; k < 3; ++k) {
        spans[k] = values[k] > largest * 1e-10;
        spanned += spans[k] ? 1 : 0;
    }
    if (spanned < 2)
        return fit;
    // L applied to each eigenvector: L v_k = B v_k / lambda_k.
    std::array<Double3, 3> images{};
    for (std::size_t k = 0; k < 3; ++k) {
        if (!spans[k])
            continue;
        const Double3 v = column(vectors, static_cast<int>(k));
        Double3 bv{};
        for (std::size_t r = 0; r < 3; ++r)
            bv[r] = dot(cross3[r], v) / values[k];
        images[k] = bv;
    }
    if (spanned == 2) {
        // A flat piece: its normal turns with it, at unit scale.
        std::size_t flat = 0;
        while (spans[flat])
            ++flat;
        const std::size_t a = (flat + 1) % 3;
        const std::size_t b = (flat + 2) % 3;
        const Double3 va = column(vectors, static_cast<int>(a));
        const Double3 vb = column(vectors, static_cast<int>(b));
        const Double3 vn = column(vectors, static_cast<int>(flat));
        Double3 normal = cross(images[a], images[b]);
        const double length = norm(normal);
        if (!(length > 0.0))
            return fit;
        normal = scaled(normal, 1.0 / length);
        if (dot(cross(va, vb), vn) < 0.0)
            normal = scaled(normal, -1.0);
        images[flat] = normal;
    }
    // L = sum_k images_k v_k^T.
    Matrix3 linear{};
    for (std::size_t k = 0; k < 3; ++k) {
        const Double3 v = column(vectors, static_cast<int>(k));
        for (std::size_t r = 0; r < 3; ++r)
            for (std::size_t c = 0; c < 3; ++c)
                linear[r][c] += images[k][r] * v[c];
    }

    // L = R S: the scale of each axis is its column's length.
    Trs trs;
    Matrix3 rotation{};
    for (int c = 0; c < 3; ++c) {
        Double3 axis = column(linear, c);
        double length = norm(axis);
        if (!(length > 0.0))
            return fit;
        trs.scale[static_cast<std::size_t>(c)] = length;
        for (std::size_t r = 0; r < 3; ++r)
            rotation[r][static_cast<std::size_t>(c)] = axis[r] / length;
    }
    if (dot(cross(column(rotation, 0), column(rotation, 1)), column(rotation, 2)) < 0.0) {
        trs.scale[0] = -trs.scale[0];
        for (std::size_t r = 0; r < 3; ++r)
            rotation[r][0] = -rotation[r][0];
    }
    trs.rotation = quaternionOf(rotation);
    const Double3 restImage = applyTrs(trs, restCentre);
    trs.translation = sub(movedCentre, restImage);

    for (std::size_t i = 0; i < rest.size(); ++i)
        fit.largestError =
            std::max(fit.largestError, norm(sub(applyTrs(trs, widen(rest[i])), widen(moved[i]))));
    if (fit.largestError <= tolerance)
        fit.trs = trs;
    return fit;
}

} // namespace oz::exporter
