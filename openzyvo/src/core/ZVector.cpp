#include <OpenZyvo/ZFloatPoint.h>
#include <OpenZyvo/ZFloatVector.h>
#include <OpenZyvo/ZMatrix.h>
#include <OpenZyvo/ZPoint.h>
#include <OpenZyvo/ZVector.h>
#include <algorithm>

const ZVector ZVector::zero(0.0, 0.0, 0.0);
const ZVector ZVector::one(1.0, 1.0, 1.0);
const ZVector ZVector::xAxis(1.0, 0.0, 0.0);
const ZVector ZVector::yAxis(0.0, 1.0, 0.0);
const ZVector ZVector::zAxis(0.0, 0.0, 1.0);
const ZPoint ZPoint::origin(0.0, 0.0, 0.0);

ZVector::ZVector(const ZFloatVector& v)
    : x(v.x)
    , y(v.y)
    , z(v.z) {}
ZVector::ZVector(const ZPoint& p)
    : x(p.x)
    , y(p.y)
    , z(p.z) {}
ZFloatVector::ZFloatVector(const ZVector& v)
    : x(static_cast<float>(v.x))
    , y(static_cast<float>(v.y))
    , z(static_cast<float>(v.z)) {}
ZPoint::ZPoint(const ZFloatPoint& p)
    : x(p.x)
    , y(p.y)
    , z(p.z)
    , w(p.w) {}
ZFloatPoint::ZFloatPoint(const ZPoint& p)
    : x(static_cast<float>(p.x))
    , y(static_cast<float>(p.y))
    , z(static_cast<float>(p.z))
    , w(static_cast<float>(p.w)) {}

ZVector ZVector::operator*(const ZMatrix& m) const {
    return {x * m(0, 0) + y * m(1, 0) + z * m(2, 0), x * m(0, 1) + y * m(1, 1) + z * m(2, 1),
            x * m(0, 2) + y * m(1, 2) + z * m(2, 2)};
}

double ZVector::angle(const ZVector& o) const {
    const double lengths = length() * o.length();
    if (lengths == 0.0)
        return 0.0;
    return std::acos(std::clamp((*this * o) / lengths, -1.0, 1.0));
}

ZPoint ZPoint::operator*(const ZMatrix& m) const {
    return {x * m(0, 0) + y * m(1, 0) + z * m(2, 0) + w * m(3, 0),
            x * m(0, 1) + y * m(1, 1) + z * m(2, 1) + w * m(3, 1),
            x * m(0, 2) + y * m(1, 2) + z * m(2, 2) + w * m(3, 2),
            x * m(0, 3) + y * m(1, 3) + z * m(2, 3) + w * m(3, 3)};
}

ZPoint& ZPoint::cartesianize() {
    if (w != 0.0 && w != 1.0) {
        x /= w;
        y /= w;
        z /= w;
        w = 1.0;
    }
    return *this;
}
