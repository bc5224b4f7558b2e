#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZPlug.h>
#include <OpenZyvo/ZPoint.h>
#include <OpenZyvoUI/ZFnManip3D.h>
#include <OpenZyvoUI/ZManipIndex.h>

// The move handle: a point dragged freely or along one axis.
class OZ_API ZFnFreePointTriadManip : public ZFnManip3D {
public:
    ZFnFreePointTriadManip() = default;
    explicit ZFnFreePointTriadManip(const ZObject& manipulator, ZStatus* status = nullptr);
    bool hasObj(const ZObject& object) const override;
    using ZFnBase::hasObj;

    // The point follows the plug (three numbers) and the plug the point.
    ZStatus connectToPointPlug(const ZPlug& pointPlug);
    ZStatus setPoint(const ZPoint& point);
    ZPoint point(ZStatus* status = nullptr) const;
    ZManipIndex pointIndex(ZStatus* status = nullptr) const;
};
