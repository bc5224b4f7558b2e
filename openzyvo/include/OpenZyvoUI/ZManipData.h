#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZPoint.h>
#include <OpenZyvo/ZVector.h>

// A value passed between a manipulator and a plug by conversion callbacks:
// one number or three (a point, a vector, a rotation in degrees, a scale).
class OZ_API ZManipData {
public:
    ZManipData() = default;
    ZManipData(double value);
    ZManipData(double x, double y, double z);
    ZManipData(const ZPoint& point);
    ZManipData(const ZVector& vector);

    // True for a single number.
    bool isSimple() const { return m_count == 1; }
    unsigned int count() const { return m_count; }
    double asDouble() const { return m_values[0]; }
    ZVector asVector() const { return {m_values[0], m_values[1], m_values[2]}; }
    ZPoint asPoint() const { return {m_values[0], m_values[1], m_values[2]}; }

private:
    double m_values[3] = {0.0, 0.0, 0.0};
    unsigned int m_count = 0;
};
