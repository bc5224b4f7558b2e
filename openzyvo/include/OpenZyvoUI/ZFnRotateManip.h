#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZEulerRotation.h>
#include <OpenZyvo/ZPlug.h>
#include <OpenZyvo/ZPoint.h>
#include <OpenZyvoUI/ZFnManip3D.h>
#include <OpenZyvoUI/ZManipIndex.h>

// The rotate handle: a rotation (Euler angles in degrees, order XYZ) turned
// about a centre.
class OZ_API ZFnRotateManip : public ZFnManip3D {
public:
    // How the rings are oriented: along the object's axes, the world's, or the Euler axes.
    enum RotateMode { kObjectSpace = 0, kWorldSpace = 1, kGimbal = 2 };

    ZFnRotateManip() = default;
    explicit ZFnRotateManip(const ZObject& manipulator, ZStatus* status = nullptr);
    bool hasObj(const ZObject& object) const override;
    using ZFnBase::hasObj;

    ZStatus connectToRotationPlug(const ZPlug& rotationPlug);
    ZStatus connectToRotationCenterPlug(const ZPlug& centerPlug);
    ZStatus setInitialRotation(const ZEulerRotation& rotation);
    ZEulerRotation rotationValue(ZStatus* status = nullptr) const;
    ZPoint rotationCenter(ZStatus* status = nullptr) const;
    ZStatus setRotateMode(RotateMode mode);
    RotateMode rotateMode(ZStatus* status = nullptr) const;
    ZManipIndex rotationIndex(ZStatus* status = nullptr) const;
    ZManipIndex rotationCenterIndex(ZStatus* status = nullptr) const;
};
