#include "extrude/FaceOptions.h"

#include "extrude/ExtrudeSettings.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <unordered_set>

namespace type {

namespace {

bool allFinite(const std::vector<double>& values) {
    return std::all_of(values.begin(), values.end(), [](double v) { return std::isfinite(v); });
}

double atElement(const std::vector<double>& values, std::size_t element, double fallback) {
    return values.empty() ? fallback : values[element % values.size()];
}

// The narrower side of the box around a face's outer loop.
double faceWidth(const FaceOutline& outline) {
    if (outline.loopSizes.empty())
        return 0.0;
    double x0 = std::numeric_limits<double>::max(), y0 = x0;
    double x1 = std::numeric_limits<double>::lowest(), y1 = x1;
    for (int i = 0; i < outline.loopSizes.front(); ++i) {
        const Point2& p = outline.points[i];
        x0 = std::min(x0, p.x);
        x1 = std::max(x1, p.x);
        y0 = std::min(y0, p.y);
        y1 = std::max(y1, p.y);
    }
    return std::min(x1 - x0, y1 - y0);
}

} // namespace

std::string checkFaceOptions(const FaceOptions& options) {
    if (!allFinite(options.distancePP))
        return "extrudeDistancePP holds a value that is not a number";
    if (!allFinite(options.distanceScalePP))
        return "extrudeDistanceScalePP holds a value that is not a number";
    for (const double count : options.solidsPerCharacter)
        if (!std::isfinite(count) || count < 0.0 || count > std::numeric_limits<int>::max())
            return "solidsPerCharacter holds a value that is not a count";
    return {};
}

std::vector<std::size_t> faceElements(const std::vector<SolidFace>& faces, const FaceOptions& options) {
    std::vector<std::size_t> elements;
    elements.reserve(faces.size());
    std::vector<long long> ends;
    if (options.keepFacesTogether) {
        long long total = 0;
        for (const double count : options.solidsPerCharacter)
            ends.push_back(total += static_cast<long long>(count));
    }
    for (const SolidFace& face : faces) {
        if (ends.empty()) {
            elements.push_back(static_cast<std::size_t>(face.inputFace));
            continue;
        }
        const auto owner = std::upper_bound(ends.begin(), ends.end(), face.inputFace);
        elements.push_back(owner != ends.end()
                               ? static_cast<std::size_t>(owner - ends.begin())
                               : ends.size() + static_cast<std::size_t>(face.inputFace - ends.back()));
    }
    return elements;
}

void applyFaceOptions(const FaceOptions& options, std::vector<SolidFace>& faces) {
    const std::vector<std::size_t> elements = faceElements(faces, options);
    const double adaptivity =
        std::isnan(options.frontBevelAdaptivity) ? 0.0 : std::clamp(options.frontBevelAdaptivity, 0.0, 1.0);
    // A bevel insets a face from both sides, so it fits a face twice its distance wide.
    const double reach = 2.0 * std::abs(options.bevelDistance);
    for (std::size_t f = 0; f < faces.size(); ++f) {
        SolidFace& face = faces[f];
        const double distance = atElement(options.distancePP, elements[f], options.extrudeDistance) *
                                atElement(options.distanceScalePP, elements[f], 1.0);
        face.extraDepth = std::clamp(distance, -kMaxDistance, kMaxDistance) - options.extrudeDistance;
        if (adaptivity > 0.0 && reach > 0.0) {
            const double fit = std::min(1.0, faceWidth(face.outline) / reach);
            face.insetScale = 1.0 - adaptivity * (1.0 - fit);
        }
    }
}

void extrudeListedFaces(const std::vector<int>& listed, std::vector<SolidFace>& faces) {
    if (listed.empty())
        return;
    const std::unordered_set<int> wanted(listed.begin(), listed.end());
    for (SolidFace& face : faces)
        face.extruded = wanted.count(face.inputFace) > 0;
}

InternalBevel switchBevel(InternalBevel resolved, int bevelSwitch) {
    switch (bevelSwitch) {
    case 1:
        return InternalBevel::kInner;
    case 2:
        return InternalBevel::kOuter;
    default:
        return resolved;
    }
}

} // namespace type
