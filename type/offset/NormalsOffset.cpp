#include "offset/NormalsOffset.h"

namespace type {

void normalsOffset(const FaceOutline& outline, const std::vector<Mitre>& mitres, double distance,
                   std::vector<Point2>& out) {
    out.resize(outline.points.size());
    for (std::size_t j = 0; j < outline.points.size(); ++j) {
        const Point2& p = outline.points[j];
        const Mitre& m = mitres[j];
        const double travel = distance / m.sine;
        out[j] = {p.x + m.direction.x * travel, p.y + m.direction.y * travel};
    }
}

} // namespace type
