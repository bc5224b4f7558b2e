#include "core/StatusOut.h"
#include "graph/Graph.h"

#include <OpenZyvo/ZCurveAttribute.h>
#include <OpenZyvo/ZDoubleArray.h>
#include <OpenZyvo/ZFnCompoundAttribute.h>
#include <OpenZyvo/ZFnNumericAttribute.h>
#include <OpenZyvo/ZIntArray.h>
#include <algorithm>
#include <utility>
#include <vector>

namespace {

bool isCurvePlug(const ZPlug& plug) {
    const oz::PlugRef* ref = oz::PlugAccess::get(plug);
    return ref && ref->valid() && ref->leaf()->curve && oz::isArrayPath(ref->path);
}

// The points of the curve in index order, as (position, value).
ZStatus readPoints(const ZPlug& curve, std::vector<unsigned int>* indices,
                   std::vector<std::pair<double, double>>& points) {
    ZStatus status;
    const unsigned int count = curve.evaluateNumElements(&status);
    if (!status)
        return status;
    ZIntArray logical;
    curve.getExistingArrayAttributeIndices(logical);
    points.clear();
    for (unsigned int i = 0; i < count && i < logical.length(); ++i) {
        const ZPlug element = curve.elementByLogicalIndex(static_cast<unsigned int>(logical[i]));
        const double position = element.child(0).asDouble(&status);
        if (!status)
            return status;
        const double value = element.child(1).asDouble(&status);
        if (!status)
            return status;
        points.emplace_back(position, value);
        if (indices)
            indices->push_back(static_cast<unsigned int>(logical[i]));
    }
    return ZStatus::kSuccess;
}

double evaluate(const std::vector<std::pair<double, double>>& sorted, double position) {
    if (sorted.empty())
        return 0.0;
    if (position <= sorted.front().first)
        return sorted.front().second;
    if (position >= sorted.back().first)
        return sorted.back().second;
    auto upper =
        std::upper_bound(sorted.begin(), sorted.end(), position,
                         [](double p, const std::pair<double, double>& point) { return p < point.first; });
    const auto& [x1, y1] = *upper;
    const auto& [x0, y0] = *(upper - 1);
    if (x1 == x0)
        return y1;
    return y0 + (y1 - y0) * (position - x0) / (x1 - x0);
}

ZStatus setPoint(const ZPlug& curve, unsigned int index, double position, double value) {
    const ZPlug element = curve.elementByLogicalIndex(index);
    ZStatus status = element.child(0).setValue(position);
    return status ? element.child(1).setValue(value) : status;
}

} // namespace

ZCurveAttribute::ZCurveAttribute(const ZPlug& plug, ZStatus* status) {
    const bool ok = isCurvePlug(plug);
    oz::setStatus(status, ok ? ZStatus::kSuccess : ZStatus::kInvalidParameter);
    if (ok)
        m_plug = plug;
}

ZCurveAttribute::ZCurveAttribute(const ZObject& node, const ZObject& attribute, ZStatus* status)
    : ZCurveAttribute(ZPlug(node, attribute), status) {}

ZObject ZCurveAttribute::createCurveAttr(const ZString& longName, const ZString& shortName, ZStatus* status) {
    const ZString shortBase = shortName.isEmpty() ? longName : shortName;
    ZFnNumericAttribute number;
    ZObject position = number.create(longName + "_Position", shortBase + "p", ZFnNumericData::kDouble);
    ZObject value = number.create(longName + "_FloatValue", shortBase + "fv", ZFnNumericData::kDouble);
    ZFnCompoundAttribute compound;
    ZObject curve = compound.create(longName, shortName, status);
    if (curve.isNull())
        return curve;
    compound.addChild(position);
    compound.addChild(value);
    compound.setArray(true);
    compound.setUsesArrayDataBuilder(true);
    oz::attributeOf(curve)->curve = true;
    return curve;
}

bool ZCurveAttribute::isCurveAttribute() const {
    return isCurvePlug(m_plug);
}

unsigned int ZCurveAttribute::numEntries(ZStatus* status) const {
    if (!isCurveAttribute()) {
        oz::setStatus(status, ZStatus::kInvalidParameter);
        return 0;
    }
    return m_plug.evaluateNumElements(status);
}

ZStatus ZCurveAttribute::getEntries(ZIntArray& indices, ZDoubleArray& positions, ZDoubleArray& values) const {
    indices.clear();
    positions.clear();
    values.clear();
    if (!isCurveAttribute())
        return ZStatus::kInvalidParameter;
    std::vector<unsigned int> logical;
    std::vector<std::pair<double, double>> points;
    ZStatus status = readPoints(m_plug, &logical, points);
    for (std::size_t i = 0; status && i < points.size(); ++i) {
        indices.append(static_cast<int>(logical[i]));
        positions.append(points[i].first);
        values.append(points[i].second);
    }
    return status;
}

ZStatus ZCurveAttribute::setCurve(const ZDoubleArray& positions, const ZDoubleArray& values) {
    if (!isCurveAttribute() || positions.length() != values.length())
        return ZStatus::kInvalidParameter;
    ZIntArray existing;
    m_plug.getExistingArrayAttributeIndices(existing);
    ZIntArray stale;
    for (int index : existing)
        if (index >= static_cast<int>(positions.length()))
            stale.append(index);
    ZStatus status = deleteEntries(stale);
    for (unsigned int i = 0; status && i < positions.length(); ++i)
        status = setPoint(m_plug, i, positions[i], values[i]);
    return status;
}

ZStatus ZCurveAttribute::addEntries(const ZDoubleArray& positions, const ZDoubleArray& values) {
    if (!isCurveAttribute() || positions.length() != values.length())
        return ZStatus::kInvalidParameter;
    ZIntArray existing;
    m_plug.getExistingArrayAttributeIndices(existing);
    unsigned int next =
        existing.length() ? static_cast<unsigned int>(existing[existing.length() - 1]) + 1 : 0;
    ZStatus status;
    for (unsigned int i = 0; status && i < positions.length(); ++i)
        status = setPoint(m_plug, next++, positions[i], values[i]);
    return status;
}

ZStatus ZCurveAttribute::deleteEntries(const ZIntArray& indices) {
    if (!isCurveAttribute())
        return ZStatus::kInvalidParameter;
    const oz::PlugRef* ref = oz::PlugAccess::get(m_plug);
    for (int index : indices) {
        if (index < 0)
            return ZStatus::kInvalidParameter;
        oz::Path element = ref->path;
        element.back().index = index;
        if (ZStatus status = oz::Graph::instance().removeElement(*ref->node, element); !status)
            return status;
    }
    return ZStatus::kSuccess;
}

ZStatus ZCurveAttribute::setPositionAtIndex(double position, unsigned int index) {
    ZIntArray existing;
    m_plug.getExistingArrayAttributeIndices(existing);
    if (!isCurveAttribute() ||
        std::find(existing.begin(), existing.end(), static_cast<int>(index)) == existing.end())
        return ZStatus::kInvalidParameter;
    return m_plug.elementByLogicalIndex(index).child(0).setValue(position);
}

ZStatus ZCurveAttribute::setValueAtIndex(double value, unsigned int index) {
    ZIntArray existing;
    m_plug.getExistingArrayAttributeIndices(existing);
    if (!isCurveAttribute() ||
        std::find(existing.begin(), existing.end(), static_cast<int>(index)) == existing.end())
        return ZStatus::kInvalidParameter;
    return m_plug.elementByLogicalIndex(index).child(1).setValue(value);
}

ZStatus ZCurveAttribute::getValueAtPosition(double position, double& value) const {
    ZDoubleArray values;
    ZStatus status = getValuesAtPositions(ZDoubleArray{position}, values);
    if (status)
        value = values[0];
    return status;
}

ZStatus ZCurveAttribute::getValuesAtPositions(const ZDoubleArray& positions, ZDoubleArray& values) const {
    values.clear();
    if (!isCurveAttribute())
        return ZStatus::kInvalidParameter;
    std::vector<std::pair<double, double>> points;
    ZStatus status = readPoints(m_plug, nullptr, points);
    if (!status)
        return status;
    std::stable_sort(points.begin(), points.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    for (double position : positions)
        values.append(evaluate(points, position));
    return ZStatus::kSuccess;
}
