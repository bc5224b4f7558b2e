#pragma once

#include "deformers/PivotTransform.h"

namespace type {

// p x M + c for row vectors: a chain of pivot transforms and translations
// folded into one, so that moving a vertex costs a single matrix product
// however many transforms its element goes through. While every transform in
// the chain is a pure translation the map adds the offset alone, exactly.
class AffineMap {
public:
    // Leaves points where they are.
    AffineMap() = default;
    static AffineMap translation(const Point3& offset);
    static AffineMap of(const PivotTransform& transform);

    // This map followed by `next`.
    AffineMap then(const AffineMap& next) const;

    Point3 apply(double x, double y, double z) const {
        if (m_translationOnly)
            return {x + m_offset.x, y + m_offset.y, z + m_offset.z};
        return {x * m_m[0][0] + y * m_m[1][0] + z * m_m[2][0] + m_offset.x,
                x * m_m[0][1] + y * m_m[1][1] + z * m_m[2][1] + m_offset.y,
                x * m_m[0][2] + y * m_m[1][2] + z * m_m[2][2] + m_offset.z};
    }

private:
    double m_m[3][3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
    Point3 m_offset;
    bool m_translationOnly = true;
};

} // namespace type
