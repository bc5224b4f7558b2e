#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZFnBase.h>

// Base function set of data values (the contents of typed attributes).
class OZ_API ZFnData : public ZFnBase {
public:
    enum Type {
        kInvalid = 0,
        kNumeric,
        kString,
        kMatrix,
        kStringArray,
        kDoubleArray,
        kFloatArray,
        kIntArray,
        kPointArray,
        kVectorArray,
        kComponentList,
        kMesh,
        kDynArrayAttrs,
        kAny,
        kLast
    };

    ZFnData() = default;
    explicit ZFnData(const ZObject& object) { setObject(object); }
    ZFn::Type type() const override { return ZFn::kData; }
};
