#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZEulerRotation.h>
#include <OpenZyvo/ZFnBase.h>
#include <OpenZyvo/ZPoint.h>
#include <OpenZyvo/ZString.h>

// Base of the function sets on the manipulators of a container: the handle's
// own transform, which orients and places it in the view.
class OZ_API ZFnManip3D : public ZFnBase {
public:
    ZFn::Type type() const override { return ZFn::kManipulator; }

    ZStatus setRotation(const ZEulerRotation& rotation);
    ZEulerRotation rotation(ZStatus* status = nullptr) const;
    ZStatus setTranslation(const ZPoint& translation);
    ZPoint translation(ZStatus* status = nullptr) const;
    ZString name(ZStatus* status = nullptr) const;
};
