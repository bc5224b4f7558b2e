#include "anim/StoredKeys.h"

#include "anim/CurveAttributes.h"
#include "anim/UiTime.h"

#include <OpenZyvo/ZDGModifier.h>
#include <OpenZyvo/ZDataBlock.h>
#include <OpenZyvo/ZIntArray.h>
#include <OpenZyvo/ZPlug.h>
#include <algorithm>
#include <array>

namespace oz::anim {
namespace {

// Reads a value of the curve's kind from a data handle or a plug, in the
// curve's internal unit.
template <typename Value> double valueOf(const Value& value, CurveKind kind) {
    switch (kind) {
    case CurveKind::kAngle:
        return value.asAngle().asRadians();
    case CurveKind::kDistance:
        return value.asDistance().asCentimeters();
    case CurveKind::kTime:
        return toSeconds(value.asTime());
    case CurveKind::kUnitless:
        break;
    }
    return value.asDouble();
}

ZStatus setValueOf(const ZPlug& plug, CurveKind kind, double value) {
    switch (kind) {
    case CurveKind::kAngle:
        return ZPlug(plug).setValue(ZAngle(value));
    case CurveKind::kDistance:
        return ZPlug(plug).setValue(ZDistance(value));
    case CurveKind::kTime:
        return ZPlug(plug).setValue(uiTime(value));
    case CurveKind::kUnitless:
        break;
    }
    return ZPlug(plug).setValue(value);
}

double lookup(const StoredKeys::Column& column, unsigned int index, double fallback) {
    const auto it = std::lower_bound(column.begin(), column.end(), index,
                                     [](const auto& entry, unsigned int i) { return entry.first < i; });
    return it != column.end() && it->first == index ? it->second : fallback;
}

bool withinKeys(const StoredKeys::Column& column, std::size_t count) {
    return column.empty() || column.back().first < count;
}

// The columns of StoredKeys with the attributes that hold them.
struct ColumnSource {
    StoredKeys::Column StoredKeys::*column;
    const ZObject* attribute;
    enum class Read { kShort, kAngle, kDouble } read;
};

constexpr int kColumnCount = 6;

std::array<ColumnSource, kColumnCount> columnSources() {
    const auto& c = CurveAttributes::common;
    return {{{&StoredKeys::inType, &c.inTangentType, ColumnSource::Read::kShort},
             {&StoredKeys::outType, &c.outTangentType, ColumnSource::Read::kShort},
             {&StoredKeys::inAngle, &c.inTangentAngle, ColumnSource::Read::kAngle},
             {&StoredKeys::outAngle, &c.outTangentAngle, ColumnSource::Read::kAngle},
             {&StoredKeys::inWeight, &c.inTangentWeight, ColumnSource::Read::kDouble},
             {&StoredKeys::outWeight, &c.outTangentWeight, ColumnSource::Read::kDouble}}};
}

template <typename Value> double columnValue(const Value& value, ColumnSource::Read read) {
    switch (read) {
    case ColumnSource::Read::kShort:
        return value.asShort();
    case ColumnSource::Read::kAngle:
        return value.asAngle().asRadians();
    case ColumnSource::Read::kDouble:
        break;
    }
    return value.asDouble();
}

} // namespace

ZStatus StoredKeys::toCurve(Curve& curve, bool& canonical) const {
    std::vector<Key> list;
    list.reserve(keys.size());
    canonical = withinKeys(inType, keys.size()) && withinKeys(outType, keys.size()) &&
                withinKeys(inAngle, keys.size()) && withinKeys(outAngle, keys.size()) &&
                withinKeys(inWeight, keys.size()) && withinKeys(outWeight, keys.size());
    for (std::size_t i = 0; i < keys.size(); ++i) {
        const Entry& entry = keys[i];
        canonical = canonical && entry.index == i && (i == 0 || keys[i - 1].time < entry.time);
        Key key;
        key.time = entry.time;
        key.value = entry.value;
        const double inType = lookup(this->inType, entry.index, double(TangentType::kAuto));
        const double outType = lookup(this->outType, entry.index, double(TangentType::kAuto));
        if (inType < 0 || inType >= kTangentTypeCount || outType < 0 || outType >= kTangentTypeCount)
            return ZStatus::kInvalidParameter;
        key.in.type = static_cast<TangentType>(inType);
        key.out.type = static_cast<TangentType>(outType);
        key.in.angle = lookup(inAngle, entry.index, 0.0);
        key.out.angle = lookup(outAngle, entry.index, 0.0);
        key.in.weight = lookup(inWeight, entry.index, 1.0);
        key.out.weight = lookup(outWeight, entry.index, 1.0);
        list.push_back(key);
    }
    if (preInfinity < 0 || preInfinity >= kInfinityCount || postInfinity < 0 ||
        postInfinity >= kInfinityCount)
        return ZStatus::kInvalidParameter;
    Curve result;
    result.setWeighted(weighted);
    result.setPreInfinity(static_cast<Infinity>(preInfinity));
    result.setPostInfinity(static_cast<Infinity>(postInfinity));
    if (ZStatus status = result.assign(list); !status)
        return status;
    curve = std::move(result);
    return ZStatus::kSuccess;
}

ZStatus readKeys(ZDataBlock& block, CurveKind kind, StoredKeys& keys) {
    const auto& typed = CurveAttributes::of(kind);
    const auto& common = CurveAttributes::common;
    ZStatus status;
    keys = StoredKeys();
    ZArrayDataHandle array = block.inputArrayValue(typed.keyTimeValue, &status);
    if (!status)
        return status;
    for (unsigned int i = 0, n = array.elementCount(); i < n; ++i) {
        if (!(status = array.jumpToArrayElement(i)))
            return status;
        const ZDataHandle element = array.inputValue(&status);
        if (!status)
            return status;
        keys.keys.push_back({array.elementIndex(), toSeconds(element.child(typed.keyTime).asTime()),
                             valueOf(element.child(typed.keyValue), kind)});
    }
    for (const ColumnSource& source : columnSources()) {
        ZArrayDataHandle column = block.inputArrayValue(*source.attribute, &status);
        if (!status)
            return status;
        for (unsigned int i = 0, n = column.elementCount(); i < n; ++i) {
            if (!(status = column.jumpToArrayElement(i)))
                return status;
            (keys.*source.column)
                .emplace_back(column.elementIndex(), columnValue(column.inputValue(), source.read));
        }
    }
    keys.weighted = block.inputValue(common.weightedTangents, &status).asBool();
    keys.preInfinity = block.inputValue(common.preInfinity, &status).asShort();
    keys.postInfinity = block.inputValue(common.postInfinity, &status).asShort();
    return status;
}

ZStatus readKeys(const ZObject& node, CurveKind kind, StoredKeys& keys) {
    const auto& typed = CurveAttributes::of(kind);
    const auto& common = CurveAttributes::common;
    ZStatus status;
    keys = StoredKeys();
    const ZPlug array(node, typed.keyTimeValue);
    for (unsigned int i = 0, n = array.numElements(&status); status && i < n; ++i) {
        const ZPlug element = array.elementByPhysicalIndex(i, &status);
        if (!status)
            break;
        keys.keys.push_back({element.logicalIndex(), toSeconds(element.child(typed.keyTime).asTime(&status)),
                             valueOf(element.child(typed.keyValue), kind)});
    }
    for (const ColumnSource& source : columnSources()) {
        const ZPlug column(node, *source.attribute);
        for (unsigned int i = 0, n = column.numElements(&status); status && i < n; ++i) {
            const ZPlug element = column.elementByPhysicalIndex(i, &status);
            (keys.*source.column).emplace_back(element.logicalIndex(), columnValue(element, source.read));
        }
    }
    if (!status)
        return status;
    keys.weighted = ZPlug(node, common.weightedTangents).asBool(&status);
    keys.preInfinity = ZPlug(node, common.preInfinity).asShort(&status);
    keys.postInfinity = ZPlug(node, common.postInfinity).asShort(&status);
    return status;
}

ZStatus writeKeys(const ZObject& node, CurveKind kind, const Curve& curve, std::size_t first,
                  std::size_t last) {
    const auto& typed = CurveAttributes::of(kind);
    const auto& common = CurveAttributes::common;
    const ZPlug array(node, typed.keyTimeValue);
    for (std::size_t i = first; i < std::min(last, curve.size()); ++i) {
        const Key& key = curve.key(i);
        const auto index = static_cast<unsigned int>(i);
        ZStatus status;
        const ZPlug element = array.elementByLogicalIndex(index, &status);
        if (!status || !(status = element.child(typed.keyTime).setValue(uiTime(key.time))) ||
            !(status = setValueOf(element.child(typed.keyValue), kind, key.value)))
            return status;
        const double values[kColumnCount] = {double(key.in.type), double(key.out.type), key.in.angle,
                                             key.out.angle,       key.in.weight,        key.out.weight};
        const auto sources = columnSources();
        for (int c = 0; c < kColumnCount; ++c) {
            ZPlug plug = ZPlug(node, *sources[c].attribute).elementByLogicalIndex(index, &status);
            if (status) {
                switch (sources[c].read) {
                case ColumnSource::Read::kShort:
                    status = plug.setValue(static_cast<short>(values[c]));
                    break;
                case ColumnSource::Read::kAngle:
                    status = plug.setValue(ZAngle(values[c]));
                    break;
                case ColumnSource::Read::kDouble:
                    status = plug.setValue(values[c]);
                    break;
                }
            }
            if (!status)
                return status;
        }
    }
    ZStatus status;
    ZPlug weighted(node, common.weightedTangents), pre(node, common.preInfinity),
        post(node, common.postInfinity);
    if (weighted.asBool() != curve.isWeighted() && !(status = weighted.setValue(curve.isWeighted())))
        return status;
    if (pre.asShort() != short(curve.preInfinity()) && !(status = pre.setValue(short(curve.preInfinity()))))
        return status;
    if (post.asShort() != short(curve.postInfinity()) &&
        !(status = post.setValue(short(curve.postInfinity()))))
        return status;

    // Elements past the last key would come back as keys when read again.
    ZDGModifier modifier;
    bool removing = false;
    std::vector<const ZObject*> arrays{&typed.keyTimeValue};
    for (const ColumnSource& source : columnSources())
        arrays.push_back(source.attribute);
    for (const ZObject* attribute : arrays) {
        const ZPlug plug(node, *attribute);
        ZIntArray existing;
        plug.getExistingArrayAttributeIndices(existing);
        for (unsigned int i = 0; i < existing.length(); ++i) {
            if (static_cast<std::size_t>(existing[i]) < curve.size())
                continue;
            if (!(status = modifier.removeMultiInstance(plug.elementByLogicalIndex(existing[i]))))
                return status;
            removing = true;
        }
    }
    return removing ? modifier.doIt() : ZStatus::kSuccess;
}

} // namespace oz::anim
