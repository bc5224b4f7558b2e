#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZFnData.h>

// Function set of numeric data: one number or a tuple of 2, 3 or 4, the value
// of a numeric attribute as a data object.
class OZ_API ZFnNumericData : public ZFnData {
public:
    enum Type {
        kInvalid = 0,
        kBoolean,
        kByte,
        kChar,
        kShort,
        k2Short,
        k3Short,
        kInt,
        kLong = kInt,
        k2Int,
        k2Long = k2Int,
        k3Int,
        k3Long = k3Int,
        kInt64,
        kFloat,
        k2Float,
        k3Float,
        kDouble,
        k2Double,
        k3Double,
        k4Double,
        kAddr,
        kLast
    };

    // Number of components of a kind (1 for scalars, 0 for kInvalid).
    static unsigned int componentCount(Type kind);

    ZFnNumericData() = default;
    explicit ZFnNumericData(const ZObject& object, ZStatus* status = nullptr);
    ZFn::Type type() const override { return ZFn::kNumericData; }

    ZObject create(Type kind, ZStatus* status = nullptr);
    Type numericType(ZStatus* status = nullptr) const;

    ZStatus getData(double& value) const;
    ZStatus getData2Int(int& a, int& b) const;
    ZStatus getData3Int(int& a, int& b, int& c) const;
    ZStatus getData2Float(float& a, float& b) const;
    ZStatus getData3Float(float& a, float& b, float& c) const;
    ZStatus getData2Double(double& a, double& b) const;
    ZStatus getData3Double(double& a, double& b, double& c) const;
    ZStatus getData4Double(double& a, double& b, double& c, double& d) const;

    ZStatus setData(double value);
    ZStatus setData2Int(int a, int b);
    ZStatus setData3Int(int a, int b, int c);
    ZStatus setData2Float(float a, float b);
    ZStatus setData3Float(float a, float b, float c);
    ZStatus setData2Double(double a, double b);
    ZStatus setData3Double(double a, double b, double c);
    ZStatus setData4Double(double a, double b, double c, double d);
};
