#include "svg/SvgTransform.h"

#include "svg/SvgNumbers.h"

#include <cmath>
#include <vector>

namespace type {

namespace {

constexpr double kDegreesToRadians = 0.0174532925;

std::string_view trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(" \t\r\n,");
    if (first == std::string_view::npos)
        return {};
    const auto last = text.find_last_not_of(" \t\r\n,");
    return text.substr(first, last - first + 1);
}

double numberOr(const std::vector<double>& numbers, std::size_t i, double fallback) {
    return i < numbers.size() ? numbers[i] : fallback;
}

Affine2 function(std::string_view name, const std::vector<double>& n) {
    if (name == "rotate") {
        const double angle = numberOr(n, 0, 0.0) * kDegreesToRadians;
        const Affine2 rotation{std::cos(angle), std::sin(angle), -std::sin(angle), std::cos(angle), 0.0, 0.0};
        if (n.size() < 3)
            return rotation;
        // rotate(a cx cy) turns about (cx, cy).
        const Affine2 to{1, 0, 0, 1, n[1], n[2]};
        const Affine2 from{1, 0, 0, 1, -n[1], -n[2]};
        return to.then(rotation).then(from);
    }
    if (name == "scale") {
        const double sx = numberOr(n, 0, 1.0);
        return {sx, 0.0, 0.0, numberOr(n, 1, sx), 0.0, 0.0};
    }
    if (name == "skewX")
        return {1.0, 0.0, std::tan(numberOr(n, 0, 0.0) * kDegreesToRadians), 1.0, 0.0, 0.0};
    if (name == "skewY")
        return {1.0, std::tan(numberOr(n, 0, 0.0) * kDegreesToRadians), 0.0, 1.0, 0.0, 0.0};
    if (name == "matrix") {
        if (n.size() < 6)
            return {};
        return {n[0], n[1], n[2], n[3], n[4], n[5]};
    }
    return {1.0, 0.0, 0.0, 1.0, numberOr(n, 0, 0.0), numberOr(n, 1, 0.0)};
}

} // namespace

Affine2 parseTransform(std::string_view text) {
    Affine2 result;
    std::size_t pos = 0;
    while (pos < text.size()) {
        const auto close = text.find(')', pos);
        const std::string_view piece =
            text.substr(pos, close == std::string_view::npos ? close : close - pos);
        pos = close == std::string_view::npos ? text.size() : close + 1;
        const auto open = piece.find('(');
        if (open == std::string_view::npos)
            continue;
        result = result.then(function(trimmed(piece.substr(0, open)), readNumbers(piece.substr(open + 1))));
    }
    return result;
}

} // namespace type
