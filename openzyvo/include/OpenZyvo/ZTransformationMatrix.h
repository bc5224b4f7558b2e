#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZEulerRotation.h>
#include <OpenZyvo/ZMatrix.h>
#include <OpenZyvo/ZQuaternion.h>
#include <OpenZyvo/ZSpace.h>
#include <OpenZyvo/ZStatus.h>
#include <OpenZyvo/ZVector.h>

// A transformation kept as its components: scale, shear, rotation and
// translation. As a matrix it applies scale, then shear, then rotation, then
// translation to a row vector.
class OZ_API ZTransformationMatrix {
public:
    ZTransformationMatrix() = default;
    explicit ZTransformationMatrix(const ZMatrix& matrix);

    ZMatrix asMatrix() const;

    ZVector getTranslation(ZSpace::Space space = ZSpace::kTransform) const { return m_translation; }
    ZStatus setTranslation(const ZVector& translation, ZSpace::Space space = ZSpace::kTransform);
    ZStatus addTranslation(const ZVector& translation, ZSpace::Space space = ZSpace::kTransform);

    ZQuaternion rotation() const { return m_rotation; }
    ZEulerRotation eulerRotation() const { return m_rotation.asEulerRotation(m_order); }
    ZTransformationMatrix& setRotationQuaternion(double x, double y, double z, double w);
    ZTransformationMatrix& rotateTo(const ZEulerRotation& rotation);
    // Applies a further rotation after the current one.
    ZTransformationMatrix& rotateBy(const ZEulerRotation& rotation, ZSpace::Space space = ZSpace::kTransform,
                                    ZStatus* status = nullptr);
    ZTransformationMatrix& rotateBy(const ZQuaternion& rotation, ZSpace::Space space = ZSpace::kTransform,
                                    ZStatus* status = nullptr);

    ZStatus getScale(double scale[3], ZSpace::Space space = ZSpace::kTransform) const;
    ZStatus setScale(const double scale[3], ZSpace::Space space = ZSpace::kTransform);
    // Multiplies the current scale component-wise.
    ZStatus addScale(const double scale[3], ZSpace::Space space = ZSpace::kTransform);
    ZStatus getShear(double shear[3], ZSpace::Space space = ZSpace::kTransform) const;
    ZStatus setShear(const double shear[3], ZSpace::Space space = ZSpace::kTransform);

private:
    ZVector m_translation;
    ZQuaternion m_rotation;
    ZEulerRotation::RotationOrder m_order = ZEulerRotation::kXYZ;
    double m_scale[3] = {1.0, 1.0, 1.0};
    double m_shear[3] = {0.0, 0.0, 0.0};
};
