#include "anim/CurveAttributes.h"

#include "anim/Infinity.h"
#include "anim/TangentType.h"

#include <OpenZyvo/ZFnCompoundAttribute.h>
#include <OpenZyvo/ZFnEnumAttribute.h>
#include <OpenZyvo/ZFnNumericAttribute.h>
#include <OpenZyvo/ZFnUnitAttribute.h>
#include <OpenZyvo/ZPxNode.h>
#include <initializer_list>

namespace oz::anim {

CurveAttributes::Common CurveAttributes::common;
CurveAttributes::Typed CurveAttributes::typed[kCurveKindCount];

namespace {

constexpr const char* kTangentNames[kTangentTypeCount] = {"fixed",  "linear",  "flat",    "step", "stepNext",
                                                          "smooth", "clamped", "plateau", "auto"};
constexpr const char* kInfinityNames[kInfinityCount] = {"constant", "linear", "cycle", "cycleRelative",
                                                        "oscillate"};

// Collects the first failure of a run of attribute calls.
struct Check {
    ZStatus status;
    void operator()(const ZStatus& next) {
        if (status && !next)
            status = next;
    }
};

ZObject tangentTypeArray(const char* name, const char* shortName, Check& check) {
    ZFnEnumAttribute fn;
    ZStatus status;
    ZObject attribute = fn.create(name, shortName, static_cast<short>(TangentType::kAuto), &status);
    check(status);
    for (int i = 0; i < kTangentTypeCount; ++i)
        check(fn.addField(kTangentNames[i], static_cast<short>(i)));
    check(fn.setArray(true));
    return attribute;
}

ZObject infinity(const char* name, const char* shortName, Check& check) {
    ZFnEnumAttribute fn;
    ZStatus status;
    ZObject attribute = fn.create(name, shortName, 0, &status);
    check(status);
    for (int i = 0; i < kInfinityCount; ++i)
        check(fn.addField(kInfinityNames[i], static_cast<short>(i)));
    return attribute;
}

ZObject angleArray(const char* name, const char* shortName, Check& check) {
    ZFnUnitAttribute fn;
    ZStatus status;
    ZObject attribute = fn.create(name, shortName, ZFnUnitAttribute::kAngle, 0.0, &status);
    check(status);
    check(fn.setArray(true));
    return attribute;
}

ZObject weightArray(const char* name, const char* shortName, Check& check) {
    ZFnNumericAttribute fn;
    ZStatus status;
    ZObject attribute = fn.create(name, shortName, ZFnNumericData::kDouble, 1.0, &status);
    check(status);
    check(fn.setArray(true));
    return attribute;
}

// An attribute holding a value of the curve's output kind.
ZObject valueAttribute(CurveKind kind, const char* name, const char* shortName, Check& check) {
    ZStatus status;
    ZObject attribute;
    switch (kind) {
    case CurveKind::kAngle:
        attribute = ZFnUnitAttribute().create(name, shortName, ZFnUnitAttribute::kAngle, 0.0, &status);
        break;
    case CurveKind::kDistance:
        attribute = ZFnUnitAttribute().create(name, shortName, ZFnUnitAttribute::kDistance, 0.0, &status);
        break;
    case CurveKind::kTime:
        attribute = ZFnUnitAttribute().create(name, shortName, ZFnUnitAttribute::kTime, 0.0, &status);
        break;
    case CurveKind::kUnitless:
        attribute = ZFnNumericAttribute().create(name, shortName, ZFnNumericData::kDouble, 0.0, &status);
        break;
    }
    check(status);
    return attribute;
}

} // namespace

ZStatus CurveAttributes::initializeCommon() {
    Check check;
    Common& c = common;
    ZFnUnitAttribute time;
    ZStatus status;
    c.input = time.create("input", "i", ZFnUnitAttribute::kTime, 0.0, &status);
    check(status);
    c.inTangentType = tangentTypeArray("keyTanInType", "kit", check);
    c.outTangentType = tangentTypeArray("keyTanOutType", "kot", check);
    c.inTangentAngle = angleArray("keyTanInAngle", "kia", check);
    c.outTangentAngle = angleArray("keyTanOutAngle", "koa", check);
    c.inTangentWeight = weightArray("keyTanInWeight", "kiw", check);
    c.outTangentWeight = weightArray("keyTanOutWeight", "kow", check);
    c.weightedTangents =
        ZFnNumericAttribute().create("weightedTangents", "wt", ZFnNumericData::kBoolean, 0.0, &status);
    check(status);
    c.preInfinity = infinity("preInfinity", "pre", check);
    c.postInfinity = infinity("postInfinity", "pst", check);
    if (!check.status)
        return check.status;
    for (const ZObject* a :
         {&c.input, &c.inTangentType, &c.outTangentType, &c.inTangentAngle, &c.outTangentAngle,
          &c.inTangentWeight, &c.outTangentWeight, &c.weightedTangents, &c.preInfinity, &c.postInfinity})
        check(ZPxNode::addAttribute(*a));
    return check.status;
}

ZStatus CurveAttributes::initializeTyped(CurveKind kind) {
    Check check;
    Typed& t = typed[static_cast<int>(kind)];
    t.output = valueAttribute(kind, "output", "o", check);
    ZFnAttribute out(t.output);
    check(out.setWritable(false));
    check(out.setStorable(false));
    t.keyTime = valueAttribute(CurveKind::kTime, "keyTime", "kt", check);
    t.keyValue = valueAttribute(kind, "keyValue", "kv", check);
    ZFnCompoundAttribute compound;
    ZStatus status;
    t.keyTimeValue = compound.create("keyTimeValue", "ktv", &status);
    check(status);
    check(compound.addChild(t.keyTime));
    check(compound.addChild(t.keyValue));
    check(compound.setArray(true));
    if (!check.status)
        return check.status;
    check(ZPxNode::addAttribute(t.output));
    check(ZPxNode::addAttribute(t.keyTimeValue));
    const Common& c = common;
    for (const ZObject* a : std::initializer_list<const ZObject*>{
             &c.input, &t.keyTimeValue, &c.inTangentType, &c.outTangentType, &c.inTangentAngle,
             &c.outTangentAngle, &c.inTangentWeight, &c.outTangentWeight, &c.weightedTangents, &c.preInfinity,
             &c.postInfinity})
        check(ZPxNode::attributeAffects(*a, t.output));
    return check.status;
}

} // namespace oz::anim
