#include <OpenZyvoUI/ZManipData.h>

ZManipData::ZManipData(double value)
    : m_values{value, value, value}
    , m_count(1) {}

ZManipData::ZManipData(double x, double y, double z)
    : m_values{x, y, z}
    , m_count(3) {}

ZManipData::ZManipData(const ZPoint& point)
    : ZManipData(point.x, point.y, point.z) {}

ZManipData::ZManipData(const ZVector& vector)
    : ZManipData(vector.x, vector.y, vector.z) {}
