#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZFnData.h>
#include <OpenZyvo/ZMatrix.h>

// Function set of matrix data: the value of matrix attributes such as a transform's `matrix`
// and `worldMatrix`.
class OZ_API ZFnMatrixData : public ZFnData {
public:
    ZFnMatrixData() = default;
    explicit ZFnMatrixData(const ZObject& object, ZStatus* status = nullptr);
    ZFn::Type type() const override { return ZFn::kMatrixData; }

    // A new data object holding `matrix`; the function set attaches to it.
    ZObject create(const ZMatrix& matrix = ZMatrix(), ZStatus* status = nullptr);

    // The identity, with a failed status, without a compatible object.
    ZMatrix matrix(ZStatus* status = nullptr) const;
    ZStatus set(const ZMatrix& matrix);
};
