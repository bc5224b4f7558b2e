#include "deformers/AffineMap.h"

namespace type {

AffineMap AffineMap::translation(const Point3& offset) {
    AffineMap map;
    map.m_offset = offset;
    return map;
}

AffineMap AffineMap::of(const PivotTransform& transform) {
    AffineMap map;
    if (transform.identity())
        return map;
    // (p - pivot) x M + pivot = p x M + (pivot - pivot x M).
    const Point3& pivot = transform.pivot();
    for (int r = 0; r < 3; ++r)
        for (int c = 0; c < 3; ++c)
            map.m_m[r][c] = transform.matrix(r, c);
    map.m_translationOnly = false;
    const Point3 turned = map.apply(pivot.x, pivot.y, pivot.z);
    map.m_offset = {pivot.x - turned.x, pivot.y - turned.y, pivot.z - turned.z};
    return map;
}

AffineMap AffineMap::then(const AffineMap& next) const {
    if (next.m_translationOnly) {
        AffineMap map = *this;
        map.m_offset = {m_offset.x + next.m_offset.x, m_offset.y + next.m_offset.y,
                        m_offset.z + next.m_offset.z};
        return map;
    }
    AffineMap map;
    map.m_translationOnly = false;
    for (int r = 0; r < 3; ++r)
        for (int c = 0; c < 3; ++c)
            map.m_m[r][c] =
                m_m[r][0] * next.m_m[0][c] + m_m[r][1] * next.m_m[1][c] + m_m[r][2] * next.m_m[2][c];
    map.m_offset = next.apply(m_offset.x, m_offset.y, m_offset.z);
    return map;
}

} // namespace type
