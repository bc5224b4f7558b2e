#pragma once

#include "mesh/Color.h"
#include "mesh/Status.h"
#include "mesh/Vec3.h"

#include <OpenZyvo/ZColor.h>
#include <OpenZyvo/ZFloatPoint.h>
#include <OpenZyvo/ZFloatVector.h>
#include <OpenZyvo/ZPoint.h>
#include <OpenZyvo/ZStatus.h>
#include <OpenZyvo/ZVector.h>

namespace oz {

// Between the kernel's plain values and the API's. API points are homogeneous; the kernel's are
// not, so a point with w other than 1 is made cartesian on the way in.

inline mesh::Point3 toKernel(const ZPoint& p) {
    if (p.w == 1.0 || p.w == 0.0)
        return {p.x, p.y, p.z};
    return {p.x / p.w, p.y / p.w, p.z / p.w};
}
inline mesh::Point3 toKernel(const ZFloatPoint& p) {
    return toKernel(ZPoint(p));
}
inline mesh::Vector3 toKernel(const ZVector& v) {
    return {v.x, v.y, v.z};
}
inline mesh::Color toKernel(const ZColor& c) {
    return {c.r, c.g, c.b, c.a};
}

inline ZPoint toPoint(mesh::Point3 p) {
    return {p.x, p.y, p.z};
}
inline ZVector toVector(mesh::Vector3 v) {
    return {v.x, v.y, v.z};
}
inline ZColor toColor(mesh::Color c) {
    return {c.r, c.g, c.b, c.a};
}

inline ZStatus toStatus(mesh::Status status) {
    switch (status) {
    case mesh::Status::Success:
        return ZStatus::kSuccess;
    case mesh::Status::UnknownUvSet:
        return ZStatus::kNotFound;
    case mesh::Status::TooLarge:
        return ZStatus::kInsufficientMemory;
    case mesh::Status::DegenerateLoop:
        return ZStatus::kFailure;
    case mesh::Status::InvalidIndex:
    case mesh::Status::InvalidArgument:
    case mesh::Status::SizeMismatch:
        break;
    }
    return ZStatus::kInvalidParameter;
}

} // namespace oz
