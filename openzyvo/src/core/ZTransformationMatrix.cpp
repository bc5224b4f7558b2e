#include "core/StatusOut.h"

#include <OpenZyvo/ZTransformationMatrix.h>
#include <cmath>

ZTransformationMatrix::ZTransformationMatrix(const ZMatrix& m) {
    // Decompose M = S * H * R * T (row vectors) by Gram-Schmidt on the rows.
    m_translation = ZVector(m(3, 0), m(3, 1), m(3, 2));
    ZVector row[3] = {{m(0, 0), m(0, 1), m(0, 2)}, {m(1, 0), m(1, 1), m(1, 2)}, {m(2, 0), m(2, 1), m(2, 2)}};
    m_scale[0] = row[0].length();
    row[0] = row[0].normal();
    double xy = row[0] * row[1];
    row[1] -= row[0] * xy;
    m_scale[1] = row[1].length();
    row[1] = row[1].normal();
    double xz = row[0] * row[2];
    row[2] -= row[0] * xz;
    double yz = row[1] * row[2];
    row[2] -= row[1] * yz;
    m_scale[2] = row[2].length();
    row[2] = row[2].normal();
    if ((row[0] ^ row[1]) * row[2] < 0.0) {
        for (auto& r : row)
            r = -r;
        for (double& s : m_scale)
            s = -s;
    }
    m_shear[0] = m_scale[0] != 0.0 ? xy / m_scale[0] : 0.0;
    m_shear[1] = m_scale[0] != 0.0 ? xz / m_scale[0] : 0.0;
    m_shear[2] = m_scale[1] != 0.0 ? yz / m_scale[1] : 0.0;
    ZMatrix rotation;
    for (int r = 0; r < 3; ++r)
        for (int c = 0; c < 3; ++c)
            rotation(r, c) = row[r][c];
    const ZEulerRotation euler = ZEulerRotation::decompose(rotation, m_order);
    m_rotation = euler.asQuaternion();
}

ZMatrix ZTransformationMatrix::asMatrix() const {
    ZMatrix scale;
    for (int i = 0; i < 3; ++i)
        scale(i, i) = m_scale[i];
    ZMatrix shear;
    shear(1, 0) = m_shear[0];
    shear(2, 0) = m_shear[1];
    shear(2, 1) = m_shear[2];
    ZMatrix result = scale * shear * m_rotation.asMatrix();
    result(3, 0) = m_translation.x;
    result(3, 1) = m_translation.y;
    result(3, 2) = m_translation.z;
    return result;
}

ZStatus ZTransformationMatrix::setTranslation(const ZVector& translation, ZSpace::Space) {
    m_translation = translation;
    return ZStatus::kSuccess;
}

ZStatus ZTransformationMatrix::addTranslation(const ZVector& translation, ZSpace::Space) {
    m_translation += translation;
    return ZStatus::kSuccess;
}

ZTransformationMatrix& ZTransformationMatrix::setRotationQuaternion(double x, double y, double z, double w) {
    m_rotation = ZQuaternion(x, y, z, w).normal();
    return *this;
}

ZTransformationMatrix& ZTransformationMatrix::rotateTo(const ZEulerRotation& rotation) {
    m_rotation = rotation.asQuaternion();
    m_order = rotation.order;
    return *this;
}

ZTransformationMatrix& ZTransformationMatrix::rotateBy(const ZEulerRotation& rotation, ZSpace::Space space,
                                                       ZStatus* status) {
    m_order = rotation.order;
    return rotateBy(rotation.asQuaternion(), space, status);
}

ZTransformationMatrix& ZTransformationMatrix::rotateBy(const ZQuaternion& rotation, ZSpace::Space,
                                                       ZStatus* status) {
    m_rotation = (m_rotation * rotation).normal();
    oz::setStatus(status, ZStatus::kSuccess);
    return *this;
}

ZStatus ZTransformationMatrix::getScale(double scale[3], ZSpace::Space) const {
    for (int i = 0; i < 3; ++i)
        scale[i] = m_scale[i];
    return ZStatus::kSuccess;
}

ZStatus ZTransformationMatrix::setScale(const double scale[3], ZSpace::Space) {
    for (int i = 0; i < 3; ++i)
        m_scale[i] = scale[i];
    return ZStatus::kSuccess;
}

ZStatus ZTransformationMatrix::addScale(const double scale[3], ZSpace::Space) {
    for (int i = 0; i < 3; ++i)
        m_scale[i] *= scale[i];
    return ZStatus::kSuccess;
}

ZStatus ZTransformationMatrix::getShear(double shear[3], ZSpace::Space) const {
    for (int i = 0; i < 3; ++i)
        shear[i] = m_shear[i];
    return ZStatus::kSuccess;
}

ZStatus ZTransformationMatrix::setShear(const double shear[3], ZSpace::Space) {
    for (int i = 0; i < 3; ++i)
        m_shear[i] = shear[i];
    return ZStatus::kSuccess;
}
