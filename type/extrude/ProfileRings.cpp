#include "extrude/ProfileRings.h"

namespace type {

namespace {

double at(const std::vector<double>& values, int i) {
    return i >= 0 && static_cast<std::size_t>(i) < values.size() ? values[i] : 0.0;
}

} // namespace

std::vector<double> samplePositions(int divisions) {
    std::vector<double> positions(divisions + 1);
    for (int i = 0; i <= divisions; ++i)
        positions[i] = static_cast<double>(i) / divisions;
    return positions;
}

Profile sampleProfile(const ExtrudeSettings& s, const ProfileSamples& samples) {
    Profile profile;
    if (!s.extrusion)
        return profile;
    const std::vector<double>& e = samples.extrude;
    const std::vector<double>& f = samples.front;
    const std::vector<double>& b = samples.back;
    const int ne = s.extrudeDivisions;
    const int nf = s.bevelDivisions;
    const int nb = s.backBevelDivisions;
    const double x = s.extrudeOffset;
    // The curve's neutral value 0.5 gives no taper; 0 and 1 give -X and +X.
    const double taper0 = (2.0 * at(e, 0) - 1.0) * x;
    auto add = [&](double offset, double depth, double wallShare = 0.0) {
        profile.rings.push_back({static_cast<float>(offset), depth, wallShare});
    };

    double y0 = 0.0;
    double d0 = 0.0;
    if (s.bevelStyle == InternalBevel::kOuter) {
        for (int i = 0; i < nf; ++i)
            add(i * s.bevelDistance / nf + taper0, -(at(f, i) - at(f, 0)) * s.bevelOffset);
        y0 = -(at(f, nf) - at(f, 0)) * s.bevelOffset;
        d0 = s.bevelDistance;
    }
    profile.outerFrontEnd = static_cast<int>(profile.rings.size());

    if (s.bevelStyle == InternalBevel::kInner && s.backBevel) {
        for (int j = 0; j < nb; ++j)
            add((at(b, nb - j) - at(b, 0)) * s.backBevelOffset + taper0,
                -(nb - j) * s.backBevelDistance / nb);
    }
    profile.leadInEnd = static_cast<int>(profile.rings.size());

    for (int i = 0; i <= ne; ++i)
        add((2.0 * at(e, i) - 1.0) * x + d0, (s.extrudeDistance - 2.0 * y0) * i / ne + y0,
            static_cast<double>(i) / ne);
    profile.wallsEnd = static_cast<int>(profile.rings.size());
    const double lastOffset = profile.rings.back().offset;
    const double lastDepth = profile.rings.back().depth;

    if (s.bevelStyle == InternalBevel::kInner) {
        for (int i = 1; i <= nf; ++i)
            add((at(f, i) - at(f, 0)) * s.bevelOffset + lastOffset, lastDepth + i * s.bevelDistance / nf,
                1.0);
    }
    profile.innerFrontEnd = static_cast<int>(profile.rings.size());

    if (s.bevelStyle == InternalBevel::kOuter) {
        for (int k = 1; k <= nf; ++k) {
            const int i = nf - k;
            add(i * s.bevelDistance / nf + (lastOffset - d0),
                lastDepth + (at(f, i) - at(f, nf)) * s.bevelOffset, 1.0);
        }
    }
    return profile;
}

} // namespace type
