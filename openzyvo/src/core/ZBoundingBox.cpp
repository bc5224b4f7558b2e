#include <OpenZyvo/ZBoundingBox.h>
#include <OpenZyvo/ZMatrix.h>
#include <algorithm>

ZBoundingBox::ZBoundingBox(const ZPoint& corner1, const ZPoint& corner2) {
    expand(corner1);
    expand(corner2);
}

void ZBoundingBox::expand(const ZPoint& point) {
    if (m_empty) {
        m_min = m_max = ZPoint(point.x, point.y, point.z);
        m_empty = false;
        return;
    }
    m_min = ZPoint(std::min(m_min.x, point.x), std::min(m_min.y, point.y), std::min(m_min.z, point.z));
    m_max = ZPoint(std::max(m_max.x, point.x), std::max(m_max.y, point.y), std::max(m_max.z, point.z));
}

void ZBoundingBox::expand(const ZBoundingBox& box) {
    if (box.m_empty)
        return;
    expand(box.m_min);
    expand(box.m_max);
}

void ZBoundingBox::transformUsing(const ZMatrix& matrix) {
    if (m_empty)
        return;
    const ZPoint lo = m_min, hi = m_max;
    clear();
    for (int corner = 0; corner < 8; ++corner)
        expand(ZPoint(corner & 1 ? hi.x : lo.x, corner & 2 ? hi.y : lo.y, corner & 4 ? hi.z : lo.z) * matrix);
}

bool ZBoundingBox::contains(const ZPoint& p) const {
    return !m_empty && p.x >= m_min.x && p.x <= m_max.x && p.y >= m_min.y && p.y <= m_max.y &&
           p.z >= m_min.z && p.z <= m_max.z;
}

bool ZBoundingBox::intersects(const ZBoundingBox& box, double tolerance) const {
    if (m_empty || box.m_empty)
        return false;
    return m_min.x <= box.m_max.x + tolerance && box.m_min.x <= m_max.x + tolerance &&
           m_min.y <= box.m_max.y + tolerance && box.m_min.y <= m_max.y + tolerance &&
           m_min.z <= box.m_max.z + tolerance && box.m_min.z <= m_max.z + tolerance;
}

ZPoint ZBoundingBox::center() const {
    return {(m_min.x + m_max.x) * 0.5, (m_min.y + m_max.y) * 0.5, (m_min.z + m_max.z) * 0.5};
}
