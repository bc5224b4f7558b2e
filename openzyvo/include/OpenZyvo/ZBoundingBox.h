#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZPoint.h>

class ZMatrix;

// An axis-aligned box. A new box is empty; its corners then read as the origin.
class OZ_API ZBoundingBox {
public:
    ZBoundingBox() = default;
    ZBoundingBox(const ZPoint& corner1, const ZPoint& corner2);

    void clear() {
        m_empty = true;
        m_min = m_max = ZPoint();
    }
    void expand(const ZPoint& point);
    void expand(const ZBoundingBox& box);
    void transformUsing(const ZMatrix& matrix);

    bool isEmpty() const { return m_empty; }
    bool contains(const ZPoint& point) const;
    bool intersects(const ZBoundingBox& box, double tolerance = 0.0) const;

    ZPoint min() const { return m_min; }
    ZPoint max() const { return m_max; }
    ZPoint center() const;
    double width() const { return m_max.x - m_min.x; }
    double height() const { return m_max.y - m_min.y; }
    double depth() const { return m_max.z - m_min.z; }

private:
    ZPoint m_min, m_max;
    bool m_empty = true;
};
