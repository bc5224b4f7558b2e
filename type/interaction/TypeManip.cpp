#include "interaction/TypeManip.h"

#include "interaction/ElementBox.h"
#include "interaction/TypeNodeOf.h"
#include "plugin/ApiError.h"

#include <OpenZyvo/ZEulerRotation.h>
#include <OpenZyvo/ZFnDependencyNode.h>
#include <OpenZyvo/ZFnDoubleArrayData.h>
#include <OpenZyvo/ZFnVectorArrayData.h>
#include <OpenZyvoUI/ZFnFreePointTriadManip.h>
#include <OpenZyvoUI/ZFnRotateManip.h>
#include <OpenZyvoUI/ZFnScaleManip.h>

namespace type {

namespace {

constexpr const char* kUnit = "typeTRSManip";
constexpr double kRadiansPerDegree = 0.0174532925;

ZPlug plugOf(const ZObject& node, const char* name) {
    return ZFnDependencyNode(node).findPlug(name, true);
}

ZVector tripleOf(const ZPlug& plug) {
    return {plug.child(0).asDouble(), plug.child(1).asDouble(), plug.child(2).asDouble()};
}

ZVectorArray vectorsOf(const ZObject& node, const char* name) {
    ZVectorArray values;
    ZFnVectorArrayData(plugOf(node, name).asZObject()).copyTo(values);
    return values;
}

ZDoubleArray doublesOf(const ZObject& node, const char* name) {
    ZDoubleArray values;
    ZFnDoubleArrayData(plugOf(node, name).asZObject()).copyTo(values);
    return values;
}

} // namespace

void* typeManip::creator() {
    return new typeManip;
}

ZStatus typeManip::initialize() {
    return ZStatus::kSuccess;
}

ZStatus typeManip::createChildren() {
    m_moveManip = addFreePointTriadManip("typeMoveManip", "point");
    m_rotateManip = addRotateManip("typeRotateManip", "rotation");
    m_scaleManip = addScaleManip("typeScaleManip", "scale");
    return ZStatus::kSuccess;
}

ZStatus typeManip::connectToDependNode(const ZObject& node) {
    m_typeNode = typeNodeOf(node);
    if (m_typeNode.isNull())
        return reportApiError(ZStatus::kNotFound, kUnit);
    ZStatus status = ZDagPath::getAPathTo(node, m_path);
    if (!status)
        return reportApiError(status, kUnit);

    const ZFnDependencyNode text(m_typeNode);
    text.findPlug("manipulatorMode", true, &status);
    if (!status)
        return reportApiError(status, kUnit);

    ZFnFreePointTriadManip move(m_moveManip);
    m_positionPlug = text.findPlug("positionAdjust", true, &status);
    if (!status)
        return reportApiError(status, kUnit);
    addManipToPlugConversionCallback(m_positionPlug,
                                     static_cast<manipToPlugConversionCallback>(&typeManip::positionToPlug));
    addPlugToManipConversionCallback(move.pointIndex(),
                                     static_cast<plugToManipConversionCallback>(&typeManip::pointFromPlugs));

    const ZPlug toolPosition = ZFnDependencyNode(node).findPlug("toolPosition", true, &status);
    if (!status)
        return reportApiError(status, kUnit);
    const ZPlug rotationPlug = text.findPlug("rotationAdjust", true, &status);
    if (!status)
        return reportApiError(status, kUnit);
    m_scalePlug = text.findPlug("scaleAdjust", true, &status);
    if (!status)
        return reportApiError(status, kUnit);

    ZFnRotateManip rotate(m_rotateManip);
    rotate.connectToRotationPlug(rotationPlug);
    rotate.connectToRotationCenterPlug(toolPosition);
    rotate.setRotateMode(ZFnRotateManip::kWorldSpace);

    // The stored scales count from 1, the handle's factors from 0: the two
    // conversions keep the handle at factor 1 for an element not yet scaled.
    ZFnScaleManip scale(m_scaleManip);
    scale.connectToScalePlug(m_scalePlug);
    addPlugToManipConversionCallback(scale.scaleIndex(),
                                     static_cast<plugToManipConversionCallback>(&typeManip::scaleFromPlugs));
    addManipToPlugConversionCallback(m_scalePlug,
                                     static_cast<manipToPlugConversionCallback>(&typeManip::scaleToPlug));
    scale.connectToScaleCenterPlug(m_positionPlug);
    addPlugToManipConversionCallback(scale.scaleCenterIndex(), static_cast<plugToManipConversionCallback>(
                                                                   &typeManip::scaleCentreFromPlugs));
    scale.setSnapMode(false);

    const ZVector angles = tripleOf(rotationPlug) * kRadiansPerDegree;
    const ZEulerRotation rotation(angles);
    rotate.setInitialRotation(rotation);
    scale.setRotation(rotation);
    move.setRotation(rotation);

    status = finishAddingManips();
    if (!status)
        return reportApiError(status, kUnit);
    return ZPxManipContainer::connectToDependNode(node);
}

std::optional<ElementBox> typeManip::editedElement() const {
    const ZFnDependencyNode text(m_typeNode);
    const ZVectorArray minima = vectorsOf(m_typeNode, "characterBoundingBoxesMin");
    const ZVectorArray maxima = vectorsOf(m_typeNode, "characterBoundingBoxesMax");
    const ZDoubleArray perCharacter = doublesOf(m_typeNode, "solidsPerCharacter");
    const ZDoubleArray perWord = doublesOf(m_typeNode, "solidsPerWord");
    const ZDoubleArray perLine = doublesOf(m_typeNode, "solidsPerLine");
    const auto mode = static_cast<ManipulatorMode>(text.findPlug("manipulatorMode", true).asShort());
    const int id = text.findPlug("manipulateId", true).asInt();
    if (id < 0)
        return std::nullopt;
    const ShellGrouping grouping{perCharacter.asVector(), perWord.asVector(), perLine.asVector()};
    return elementBox({minima.asVector(), maxima.asVector()}, grouping, mode, static_cast<std::size_t>(id));
}

ZPoint typeManip::toWorld(const ZPoint& point) const {
    return point * m_path.inclusiveMatrix();
}

ZPoint typeManip::toText(const ZPoint& point) const {
    return point * m_path.inclusiveMatrixInverse();
}

// The handle stands where the element's stored offset puts it; reading the
// stored offsets has the type node store an edit not yet stored.
ZManipData typeManip::pointFromPlugs(unsigned int) {
    const std::optional<ElementBox> element = editedElement();
    const ZPoint centre = element ? element->centre() : ZPoint();
    const ZFnDependencyNode text(m_typeNode);
    const auto mode = static_cast<ManipulatorMode>(text.findPlug("manipulatorMode", true).asShort());
    const char* level = mode == ManipulatorMode::Character ? "manipulatorPositionsPP"
                        : mode == ManipulatorMode::Word    ? "manipulatorWordPositionsPP"
                                                           : "manipulatorLinePositionsPP";
    const ZVectorArray offsets = vectorsOf(m_typeNode, level);
    const int id = text.findPlug("manipulateId", true).asInt();
    const ZVector offset = id >= 0 && static_cast<unsigned int>(id) < offsets.length()
                               ? offsets[static_cast<unsigned int>(id)]
                               : tripleOf(m_positionPlug);
    return toWorld(centre + offset);
}

ZManipData typeManip::scaleCentreFromPlugs(unsigned int manipIndex) {
    return pointFromPlugs(manipIndex);
}

ZManipData typeManip::scaleFromPlugs(unsigned int) {
    return tripleOf(m_scalePlug) + ZVector(1.0, 1.0, 1.0);
}

ZManipData typeManip::positionToPlug(unsigned int) {
    ZPoint point;
    getConverterManipValue(ZFnFreePointTriadManip(m_moveManip).pointIndex(), point);
    const std::optional<ElementBox> element = editedElement();
    const ZPoint centre = element ? element->centre() : ZPoint();
    return toText(point) - centre;
}

ZManipData typeManip::scaleToPlug(unsigned int) {
    ZVector factors;
    getConverterManipValue(ZFnScaleManip(m_scaleManip).scaleIndex(), factors);
    return factors - ZVector(1.0, 1.0, 1.0);
}

} // namespace type
