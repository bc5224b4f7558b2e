#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZFnAttribute.h>
#include <OpenZyvo/ZFnNumericData.h>

// Function set of numeric attributes: booleans, integers and reals, single or
// as tuples, and compounds of numeric children (points, colours).
//
// Ranges: a hard min/max clamps every value set through a plug (a value out of
// range is clamped, not rejected); soft min/max are slider hints only. Values
// are given as doubles for every numeric kind.
class OZ_API ZFnNumericAttribute : public ZFnAttribute {
public:
    ZFnNumericAttribute() = default;
    explicit ZFnNumericAttribute(const ZObject& attribute, ZStatus* status = nullptr);
    ZFn::Type type() const override { return ZFn::kNumericAttribute; }

    ZObject create(const ZString& longName, const ZString& shortName, ZFnNumericData::Type kind,
                   double defaultValue = 0.0, ZStatus* status = nullptr);
    // A compound of two or three numeric children; its kind is the matching
    // tuple of the first child's kind (three doubles make a k3Double).
    ZObject create(const ZString& longName, const ZString& shortName, const ZObject& child1,
                   const ZObject& child2, const ZObject& child3 = ZObject::kNullObj,
                   ZStatus* status = nullptr);
    // Compounds of three doubles (children named <name>X/Y/Z) and three floats
    // (children <name>R/G/B) flagged as a colour.
    ZObject createPoint(const ZString& longName, const ZString& shortName, ZStatus* status = nullptr);
    ZObject createColor(const ZString& longName, const ZString& shortName, ZStatus* status = nullptr);

    ZFnNumericData::Type unitType(ZStatus* status = nullptr) const;
    ZFnNumericData::Type numericType(ZStatus* status = nullptr) const { return unitType(status); }

    ZStatus setDefault(double a);
    ZStatus setDefault(double a, double b);
    ZStatus setDefault(double a, double b, double c);
    ZStatus getDefault(double& a) const;
    ZStatus getDefault(double& a, double& b) const;
    ZStatus getDefault(double& a, double& b, double& c) const;

    ZStatus setMin(double a);
    ZStatus setMin(double a, double b);
    ZStatus setMin(double a, double b, double c);
    ZStatus setMax(double a);
    ZStatus setMax(double a, double b);
    ZStatus setMax(double a, double b, double c);
    ZStatus setSoftMin(double a);
    ZStatus setSoftMax(double a);
    bool hasMin(ZStatus* status = nullptr) const;
    bool hasMax(ZStatus* status = nullptr) const;
    bool hasSoftMin(ZStatus* status = nullptr) const;
    bool hasSoftMax(ZStatus* status = nullptr) const;
    ZStatus getMin(double& a) const;
    ZStatus getMin(double& a, double& b, double& c) const;
    ZStatus getMax(double& a) const;
    ZStatus getMax(double& a, double& b, double& c) const;
    ZStatus getSoftMin(double& a) const;
    ZStatus getSoftMax(double& a) const;
};
