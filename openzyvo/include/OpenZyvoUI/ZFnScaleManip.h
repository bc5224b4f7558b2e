#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZPlug.h>
#include <OpenZyvo/ZPoint.h>
#include <OpenZyvo/ZVector.h>
#include <OpenZyvoUI/ZFnManip3D.h>
#include <OpenZyvoUI/ZManipIndex.h>

// The scale handle: three scale factors about a centre.
class OZ_API ZFnScaleManip : public ZFnManip3D {
public:
    ZFnScaleManip() = default;
    explicit ZFnScaleManip(const ZObject& manipulator, ZStatus* status = nullptr);
    bool hasObj(const ZObject& object) const override;
    using ZFnBase::hasObj;

    ZStatus connectToScalePlug(const ZPlug& scalePlug);
    ZStatus connectToScaleCenterPlug(const ZPlug& centerPlug);
    ZStatus setInitialScale(const ZVector& scale);
    ZVector scaleValue(ZStatus* status = nullptr) const;
    ZPoint scaleCenter(ZStatus* status = nullptr) const;
    // With snapping on, a drag scales in whole steps of `snapIncrement`.
    ZStatus setSnapMode(bool on);
    bool isSnapModeOn(ZStatus* status = nullptr) const;
    ZStatus setSnapIncrement(double increment);
    ZManipIndex scaleIndex(ZStatus* status = nullptr) const;
    ZManipIndex scaleCenterIndex(ZStatus* status = nullptr) const;
};
