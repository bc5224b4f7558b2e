#pragma once

#include <OpenZyvo/ZAngle.h>
#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZDistance.h>
#include <OpenZyvo/ZFnAttribute.h>
#include <OpenZyvo/ZTime.h>

// Function set of attributes holding a distance, an angle or a time. Values
// given as doubles are in the graph's units: centimetres, radians, and times
// in the current UI time unit. Hard min/max clamp like numeric attributes.
class OZ_API ZFnUnitAttribute : public ZFnAttribute {
public:
    enum Type { kInvalid = 0, kAngle, kDistance, kTime, kLast };

    ZFnUnitAttribute() = default;
    explicit ZFnUnitAttribute(const ZObject& attribute, ZStatus* status = nullptr);
    ZFn::Type type() const override { return ZFn::kUnitAttribute; }

    ZObject create(const ZString& longName, const ZString& shortName, Type unitType,
                   double defaultValue = 0.0, ZStatus* status = nullptr);
    ZObject create(const ZString& longName, const ZString& shortName, const ZTime& defaultValue,
                   ZStatus* status = nullptr);
    ZObject create(const ZString& longName, const ZString& shortName, const ZDistance& defaultValue,
                   ZStatus* status = nullptr);
    ZObject create(const ZString& longName, const ZString& shortName, const ZAngle& defaultValue,
                   ZStatus* status = nullptr);

    Type unitType(ZStatus* status = nullptr) const;

    ZStatus setDefault(double value);
    ZStatus setDefault(const ZTime& value);
    ZStatus setDefault(const ZDistance& value);
    ZStatus setDefault(const ZAngle& value);
    ZStatus getDefault(double& value) const;

    ZStatus setMin(double value);
    ZStatus setMax(double value);
    ZStatus setSoftMin(double value);
    ZStatus setSoftMax(double value);
    bool hasMin(ZStatus* status = nullptr) const;
    bool hasMax(ZStatus* status = nullptr) const;
    bool hasSoftMin(ZStatus* status = nullptr) const;
    bool hasSoftMax(ZStatus* status = nullptr) const;
    ZStatus getMin(double& value) const;
    ZStatus getMax(double& value) const;
    ZStatus getSoftMin(double& value) const;
    ZStatus getSoftMax(double& value) const;
};
