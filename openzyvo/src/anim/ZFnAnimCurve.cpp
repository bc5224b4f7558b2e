#include "anim/AnimCurveNode.h"
#include "anim/CurveAttributes.h"
#include "anim/CurveValue.h"
#include "anim/UiTime.h"
#include "core/StatusOut.h"

#include <OpenZyvo/ZAngle.h>
#include <OpenZyvo/ZDGModifier.h>
#include <OpenZyvo/ZDoubleArray.h>
#include <OpenZyvo/ZFnEnumAttribute.h>
#include <OpenZyvo/ZFnNumericAttribute.h>
#include <OpenZyvo/ZFnUnitAttribute.h>
#include <OpenZyvo/ZPlug.h>
#include <OpenZyvo/ZTimeArray.h>
#include <OpenZyvoAnim/ZFnAnimCurve.h>
#include <cmath>
#include <limits>

using oz::anim::AnimCurveNode;
using oz::anim::Curve;
using oz::anim::CurveKind;
using oz::anim::Key;

namespace {

constexpr std::size_t kToEnd = std::numeric_limits<std::size_t>::max();

bool validTangent(ZFnAnimCurve::TangentType type) {
    return type >= ZFnAnimCurve::kTangentFixed && type <= ZFnAnimCurve::kTangentAuto;
}

bool validTime(const ZTime& time) {
    return std::isfinite(time.value()) && ZTime::unitsPerSecond(time.unit()) > 0.0;
}

Key makeKey(double seconds, double value, ZFnAnimCurve::TangentType in, ZFnAnimCurve::TangentType out) {
    Key key;
    key.time = seconds;
    key.value = value;
    key.in.type = static_cast<oz::anim::TangentType>(in);
    key.out.type = static_cast<oz::anim::TangentType>(out);
    return key;
}

// The node and its keys, for the calls that only read.
struct Reader {
    AnimCurveNode* node = nullptr;
    const Curve* curve = nullptr;
    ZStatus status;

    explicit Reader(const ZObject& object) {
        node = AnimCurveNode::from(object);
        status = node ? node->curve(curve) : ZStatus::kInvalidParameter;
    }
    bool has(unsigned int index) {
        if (status && index >= curve->size())
            status = ZStatus::kInvalidParameter;
        return status == ZStatus::kSuccess;
    }
};

// Applies `change` to a copy of the keys and stores the result. The change
// returns the first key index it touched and, optionally, one past the last.
template <typename Change> ZStatus editKeys(const ZObject& object, Change change) {
    Reader reader(object);
    if (!reader.status)
        return reader.status;
    Curve edited = *reader.curve;
    std::size_t first = kToEnd, last = kToEnd;
    if (ZStatus status = change(edited, first, last); !status)
        return status;
    return reader.node->setCurve(edited, first, last);
}

} // namespace

ZFnAnimCurve::ZFnAnimCurve(const ZObject& node, ZStatus* status) {
    oz::setStatus(status, setObject(node));
}

ZFnAnimCurve::ZFnAnimCurve(const ZPlug& plug, ZStatus* status) {
    ZStatus result;
    const ZPlug source = plug.source(&result);
    if (result && (source.isNull() || !AnimCurveNode::from(source.node())))
        result = ZStatus::kNotFound;
    if (result)
        result = setObject(source.node());
    oz::setStatus(status, result);
}

ZFnAnimCurve::AnimCurveType ZFnAnimCurve::curveTypeFor(const ZPlug& plug, ZStatus* status) {
    ZStatus result;
    const ZObject attribute = plug.attribute(&result);
    AnimCurveType type = kAnimCurveUnknown;
    if (result && !plug.isArray() && !plug.isCompound()) {
        if (attribute.hasFn(ZFn::kUnitAttribute)) {
            switch (ZFnUnitAttribute(attribute).unitType()) {
            case ZFnUnitAttribute::kAngle:
                type = kAnimCurveTA;
                break;
            case ZFnUnitAttribute::kDistance:
                type = kAnimCurveTL;
                break;
            case ZFnUnitAttribute::kTime:
                type = kAnimCurveTT;
                break;
            default:
                break;
            }
        } else if (attribute.hasFn(ZFn::kNumericAttribute)) {
            if (ZFnNumericData::componentCount(ZFnNumericAttribute(attribute).numericType()) == 1)
                type = kAnimCurveTU;
        } else if (attribute.hasFn(ZFn::kEnumAttribute)) {
            type = kAnimCurveTU;
        }
    }
    oz::setStatus(status, result);
    return type;
}

ZObject ZFnAnimCurve::create(AnimCurveType type, ZDGModifier* modifier, ZStatus* status) {
    if (type < kAnimCurveTA || type >= kAnimCurveUnknown) {
        oz::setStatus(status, ZStatus::kInvalidParameter);
        return ZObject();
    }
    const char* typeName = oz::anim::info(static_cast<CurveKind>(type)).typeName;
    ZStatus result;
    ZObject node =
        modifier ? modifier->createNode(typeName, &result) : ZFnDependencyNode().create(typeName, &result);
    if (result)
        result = setObject(node);
    oz::setStatus(status, result);
    return result ? node : ZObject();
}

ZObject ZFnAnimCurve::create(const ZPlug& plug, ZDGModifier* modifier, ZStatus* status) {
    ZStatus result;
    const AnimCurveType type = curveTypeFor(plug, &result);
    if (result && (type == kAnimCurveUnknown || !plug.isWritable() || plug.isDestination()))
        result = ZStatus::kInvalidParameter;
    if (!result) {
        oz::setStatus(status, result);
        return ZObject();
    }
    ZDGModifier local;
    ZDGModifier& edits = modifier ? *modifier : local;
    ZObject node = create(type, modifier, &result);
    if (result)
        result = edits.connect(
            ZPlug(node, oz::anim::CurveAttributes::of(static_cast<CurveKind>(type)).output), plug);
    if (result && !modifier)
        result = local.doIt();
    oz::setStatus(status, result);
    return result ? node : ZObject();
}

ZFnAnimCurve::AnimCurveType ZFnAnimCurve::animCurveType(ZStatus* status) const {
    const AnimCurveNode* node = AnimCurveNode::from(m_object);
    oz::setStatus(status, node ? ZStatus::kSuccess : ZStatus::kInvalidParameter);
    return node ? static_cast<AnimCurveType>(node->kind()) : kAnimCurveUnknown;
}

unsigned int ZFnAnimCurve::numKeys(ZStatus* status) const {
    Reader reader(m_object);
    oz::setStatus(status, reader.status);
    return reader.status ? static_cast<unsigned int>(reader.curve->size()) : 0u;
}

ZStatus ZFnAnimCurve::addKey(const ZTime& time, double value, TangentType inType, TangentType outType,
                             unsigned int* index) {
    if (!validTime(time) || !validTangent(inType) || !validTangent(outType))
        return ZStatus::kInvalidParameter;
    const AnimCurveNode* node = AnimCurveNode::from(m_object);
    if (!node)
        return ZStatus::kInvalidParameter;
    const Key key =
        makeKey(oz::anim::toSeconds(time), oz::anim::toCurveValue(node->kind(), value), inType, outType);
    return editKeys(m_object, [&](Curve& curve, std::size_t& first, std::size_t&) {
        std::size_t at = 0;
        ZStatus status = curve.insert(key, &at);
        first = at;
        if (status && index)
            *index = static_cast<unsigned int>(at);
        return status;
    });
}

ZStatus ZFnAnimCurve::addKeys(const ZTimeArray& times, const ZDoubleArray& values, TangentType inType,
                              TangentType outType) {
    if (times.length() != values.length() || !validTangent(inType) || !validTangent(outType))
        return ZStatus::kInvalidParameter;
    const AnimCurveNode* node = AnimCurveNode::from(m_object);
    if (!node)
        return ZStatus::kInvalidParameter;
    std::vector<Key> added;
    for (unsigned int i = 0; i < times.length(); ++i) {
        if (!validTime(times[i]))
            return ZStatus::kInvalidParameter;
        added.push_back(makeKey(oz::anim::toSeconds(times[i]),
                                oz::anim::toCurveValue(node->kind(), values[i]), inType, outType));
    }
    return editKeys(m_object, [&](Curve& curve, std::size_t& first, std::size_t&) {
        std::vector<Key> all(curve.keys().begin(), curve.keys().end());
        all.insert(all.end(), added.begin(), added.end());
        first = 0;
        return curve.assign(all);
    });
}

ZStatus ZFnAnimCurve::addKeyframe(const ZTime& time, double value, TangentType inType, TangentType outType,
                                  unsigned int* index) {
    unsigned int at = 0;
    ZStatus status;
    if (!validTime(time))
        return ZStatus::kInvalidParameter;
    if (!find(time, at, &status))
        return status ? addKey(time, value, inType, outType, index) : status;
    if (index)
        *index = at;
    return setValue(at, value);
}

ZStatus ZFnAnimCurve::remove(unsigned int index) {
    return editKeys(m_object, [&](Curve& curve, std::size_t& first, std::size_t&) {
        first = index;
        return curve.remove(index);
    });
}

ZStatus ZFnAnimCurve::removeAllKeys() {
    return editKeys(m_object, [](Curve& curve, std::size_t& first, std::size_t&) {
        curve.clear();
        first = 0;
        return ZStatus::kSuccess;
    });
}

bool ZFnAnimCurve::find(const ZTime& time, unsigned int& index, ZStatus* status) const {
    Reader reader(m_object);
    std::size_t at = 0;
    const bool found = reader.status && validTime(time) && reader.curve->find(oz::anim::toSeconds(time), at);
    if (found)
        index = static_cast<unsigned int>(at);
    oz::setStatus(status, reader.status);
    return found;
}

ZTime ZFnAnimCurve::time(unsigned int index, ZStatus* status) const {
    Reader reader(m_object);
    const bool ok = reader.has(index);
    oz::setStatus(status, reader.status);
    return ok ? oz::anim::uiTime(reader.curve->key(index).time) : ZTime();
}

double ZFnAnimCurve::value(unsigned int index, ZStatus* status) const {
    Reader reader(m_object);
    const bool ok = reader.has(index);
    oz::setStatus(status, reader.status);
    return ok ? oz::anim::fromCurveValue(reader.node->kind(), reader.curve->key(index).value) : 0.0;
}

ZStatus ZFnAnimCurve::setValue(unsigned int index, double value) {
    const AnimCurveNode* node = AnimCurveNode::from(m_object);
    if (!node)
        return ZStatus::kInvalidParameter;
    const double internal = oz::anim::toCurveValue(node->kind(), value);
    return editKeys(m_object, [&](Curve& curve, std::size_t& first, std::size_t& last) {
        if (index >= curve.size())
            return ZStatus(ZStatus::kInvalidParameter);
        Key key = curve.key(index);
        key.value = internal;
        first = index;
        last = index + 1;
        return curve.replace(index, key);
    });
}

ZStatus ZFnAnimCurve::setTime(unsigned int index, const ZTime& time, unsigned int* newIndex) {
    if (!validTime(time))
        return ZStatus::kInvalidParameter;
    return editKeys(m_object, [&](Curve& curve, std::size_t& first, std::size_t&) {
        if (index >= curve.size())
            return ZStatus(ZStatus::kInvalidParameter);
        Key key = curve.key(index);
        key.time = oz::anim::toSeconds(time);
        std::size_t at = 0;
        ZStatus status = curve.replace(index, key, &at);
        first = std::min<std::size_t>(index, at);
        if (status && newIndex)
            *newIndex = static_cast<unsigned int>(at);
        return status;
    });
}

ZFnAnimCurve::TangentType ZFnAnimCurve::inTangentType(unsigned int index, ZStatus* status) const {
    Reader reader(m_object);
    const bool ok = reader.has(index);
    oz::setStatus(status, reader.status);
    return ok ? static_cast<TangentType>(reader.curve->key(index).in.type) : kTangentAuto;
}

ZFnAnimCurve::TangentType ZFnAnimCurve::outTangentType(unsigned int index, ZStatus* status) const {
    Reader reader(m_object);
    const bool ok = reader.has(index);
    oz::setStatus(status, reader.status);
    return ok ? static_cast<TangentType>(reader.curve->key(index).out.type) : kTangentAuto;
}

ZStatus ZFnAnimCurve::setTangentTypes(unsigned int index, TangentType inType, TangentType outType) {
    if (!validTangent(inType) || !validTangent(outType))
        return ZStatus::kInvalidParameter;
    return editKeys(m_object, [&](Curve& curve, std::size_t& first, std::size_t& last) {
        if (index >= curve.size())
            return ZStatus(ZStatus::kInvalidParameter);
        Key key = curve.key(index);
        key.in.type = static_cast<oz::anim::TangentType>(inType);
        key.out.type = static_cast<oz::anim::TangentType>(outType);
        first = index;
        last = index + 1;
        return curve.replace(index, key);
    });
}

ZStatus ZFnAnimCurve::getTangent(unsigned int index, ZAngle& angle, double& weight, bool inTangent) const {
    Reader reader(m_object);
    if (!reader.has(index))
        return reader.status;
    const Key& key = reader.curve->key(index);
    const double slope = inTangent ? reader.curve->inSlope(index) : reader.curve->outSlope(index);
    angle = ZAngle(std::atan(slope));
    weight = inTangent ? key.in.weight : key.out.weight;
    return ZStatus::kSuccess;
}

ZStatus ZFnAnimCurve::setTangent(unsigned int index, const ZAngle& angle, double weight, bool inTangent) {
    const double radians = angle.asRadians();
    return editKeys(m_object, [&](Curve& curve, std::size_t& first, std::size_t& last) {
        if (index >= curve.size())
            return ZStatus(ZStatus::kInvalidParameter);
        Key key = curve.key(index);
        oz::anim::Tangent& side = inTangent ? key.in : key.out;
        side.type = oz::anim::TangentType::kFixed;
        side.angle = radians;
        side.weight = weight;
        first = index;
        last = index + 1;
        return curve.replace(index, key);
    });
}

bool ZFnAnimCurve::isWeighted(ZStatus* status) const {
    Reader reader(m_object);
    oz::setStatus(status, reader.status);
    return reader.status && reader.curve->isWeighted();
}

ZStatus ZFnAnimCurve::setIsWeighted(bool weighted) {
    return editKeys(m_object, [&](Curve& curve, std::size_t&, std::size_t&) {
        curve.setWeighted(weighted);
        return ZStatus(ZStatus::kSuccess);
    });
}

ZFnAnimCurve::InfinityType ZFnAnimCurve::preInfinity(ZStatus* status) const {
    Reader reader(m_object);
    oz::setStatus(status, reader.status);
    return reader.status ? static_cast<InfinityType>(reader.curve->preInfinity()) : kConstant;
}

ZFnAnimCurve::InfinityType ZFnAnimCurve::postInfinity(ZStatus* status) const {
    Reader reader(m_object);
    oz::setStatus(status, reader.status);
    return reader.status ? static_cast<InfinityType>(reader.curve->postInfinity()) : kConstant;
}

ZStatus ZFnAnimCurve::setPreInfinity(InfinityType type) {
    if (type < kConstant || type > kOscillate)
        return ZStatus::kInvalidParameter;
    return editKeys(m_object, [&](Curve& curve, std::size_t&, std::size_t&) {
        curve.setPreInfinity(static_cast<oz::anim::Infinity>(type));
        return ZStatus(ZStatus::kSuccess);
    });
}

ZStatus ZFnAnimCurve::setPostInfinity(InfinityType type) {
    if (type < kConstant || type > kOscillate)
        return ZStatus::kInvalidParameter;
    return editKeys(m_object, [&](Curve& curve, std::size_t&, std::size_t&) {
        curve.setPostInfinity(static_cast<oz::anim::Infinity>(type));
        return ZStatus(ZStatus::kSuccess);
    });
}

ZStatus ZFnAnimCurve::evaluate(const ZTime& time, double& value) const {
    Reader reader(m_object);
    if (!reader.status)
        return reader.status;
    if (!validTime(time))
        return ZStatus::kInvalidParameter;
    value = oz::anim::fromCurveValue(reader.node->kind(), reader.curve->evaluate(oz::anim::toSeconds(time)));
    return ZStatus::kSuccess;
}

ZStatus ZFnAnimCurve::evaluate(const ZTime& time, ZTime& value) const {
    Reader reader(m_object);
    if (!reader.status)
        return reader.status;
    if (!validTime(time) || reader.node->kind() != CurveKind::kTime)
        return ZStatus::kInvalidParameter;
    value = oz::anim::uiTime(reader.curve->evaluate(oz::anim::toSeconds(time)));
    return ZStatus::kSuccess;
}
