#include "ui/ManipContainerState.h"

#include <OpenZyvoUI/ZFnFreePointTriadManip.h>
#include <OpenZyvoUI/ZFnManip3D.h>
#include <OpenZyvoUI/ZFnRotateManip.h>
#include <OpenZyvoUI/ZFnScaleManip.h>

using oz::ObjectAccess;
using oz::ui::ManipContainerState;
using oz::ui::ManipKind;
using oz::ui::Manipulator;

namespace {

// The manipulator behind a function set's object while its container lives.
Manipulator* live(const ZObject& object, ZStatus* status = nullptr) {
    auto* manipulator = ObjectAccess::as<Manipulator>(object);
    const bool usable = manipulator && manipulator->container;
    if (status)
        *status = usable ? ZStatus::kSuccess : ZStatus::kInvalidParameter;
    return usable ? manipulator : nullptr;
}

bool isKind(const ZObject& object, ManipKind kind) {
    const auto* manipulator = ObjectAccess::as<Manipulator>(object);
    return manipulator && manipulator->kind == kind;
}

ManipContainerState::Value* valueOf(const ZObject& object, unsigned int offset, ZStatus* status = nullptr) {
    Manipulator* manipulator = live(object, status);
    return manipulator ? manipulator->container->value(manipulator->firstValue + offset) : nullptr;
}

ZStatus connect(const ZObject& object, unsigned int offset, const ZPlug& plug) {
    ManipContainerState::Value* value = valueOf(object, offset);
    if (!value || plug.isNull())
        return ZStatus::kInvalidParameter;
    value->direct = plug;
    return ZStatus::kSuccess;
}

ZStatus setValue(const ZObject& object, unsigned int offset, double x, double y, double z) {
    ManipContainerState::Value* value = valueOf(object, offset);
    if (!value)
        return ZStatus::kInvalidParameter;
    value->value = {x, y, z};
    return ZStatus::kSuccess;
}

ZVector vectorOf(const ZObject& object, unsigned int offset, ZStatus* status) {
    const ManipContainerState::Value* value = valueOf(object, offset, status);
    return value ? ZVector(value->value[0], value->value[1], value->value[2]) : ZVector();
}

ZManipIndex indexOf(const ZObject& object, unsigned int offset, ZStatus* status) {
    const Manipulator* manipulator = live(object, status);
    return manipulator ? manipulator->firstValue + offset : 0;
}

constexpr double kDegreesPerRadian = 57.29577951308232;

} // namespace

ZStatus ZFnManip3D::setRotation(const ZEulerRotation& rotation) {
    Manipulator* manipulator = live(m_object);
    if (!manipulator)
        return ZStatus::kInvalidParameter;
    manipulator->orientation = rotation;
    return ZStatus::kSuccess;
}

ZEulerRotation ZFnManip3D::rotation(ZStatus* status) const {
    const Manipulator* manipulator = live(m_object, status);
    return manipulator ? manipulator->orientation : ZEulerRotation();
}

ZStatus ZFnManip3D::setTranslation(const ZPoint& translation) {
    Manipulator* manipulator = live(m_object);
    if (!manipulator)
        return ZStatus::kInvalidParameter;
    manipulator->translation = translation;
    return ZStatus::kSuccess;
}

ZPoint ZFnManip3D::translation(ZStatus* status) const {
    const Manipulator* manipulator = live(m_object, status);
    return manipulator ? manipulator->translation : ZPoint();
}

ZString ZFnManip3D::name(ZStatus* status) const {
    const Manipulator* manipulator = live(m_object, status);
    return manipulator ? manipulator->name : ZString();
}

ZFnFreePointTriadManip::ZFnFreePointTriadManip(const ZObject& manipulator, ZStatus* status) {
    const ZStatus attached = setObject(manipulator);
    if (status)
        *status = attached;
}

bool ZFnFreePointTriadManip::hasObj(const ZObject& object) const {
    return isKind(object, ManipKind::FreePointTriad);
}

ZStatus ZFnFreePointTriadManip::connectToPointPlug(const ZPlug& pointPlug) {
    return connect(m_object, 0, pointPlug);
}

ZStatus ZFnFreePointTriadManip::setPoint(const ZPoint& point) {
    return setValue(m_object, 0, point.x, point.y, point.z);
}

ZPoint ZFnFreePointTriadManip::point(ZStatus* status) const {
    return ZPoint(vectorOf(m_object, 0, status));
}

ZManipIndex ZFnFreePointTriadManip::pointIndex(ZStatus* status) const {
    return indexOf(m_object, 0, status);
}

ZFnRotateManip::ZFnRotateManip(const ZObject& manipulator, ZStatus* status) {
    const ZStatus attached = setObject(manipulator);
    if (status)
        *status = attached;
}

bool ZFnRotateManip::hasObj(const ZObject& object) const {
    return isKind(object, ManipKind::Rotate);
}

ZStatus ZFnRotateManip::connectToRotationPlug(const ZPlug& rotationPlug) {
    return connect(m_object, 0, rotationPlug);
}

ZStatus ZFnRotateManip::connectToRotationCenterPlug(const ZPlug& centerPlug) {
    return connect(m_object, 1, centerPlug);
}

ZStatus ZFnRotateManip::setInitialRotation(const ZEulerRotation& rotation) {
    ZEulerRotation inOrder = rotation;
    inOrder.reorder(ZEulerRotation::kXYZ);
    return setValue(m_object, 0, inOrder.x * kDegreesPerRadian, inOrder.y * kDegreesPerRadian,
                    inOrder.z * kDegreesPerRadian);
}

ZEulerRotation ZFnRotateManip::rotationValue(ZStatus* status) const {
    return ZEulerRotation(vectorOf(m_object, 0, status) / kDegreesPerRadian);
}

ZPoint ZFnRotateManip::rotationCenter(ZStatus* status) const {
    return ZPoint(vectorOf(m_object, 1, status));
}

ZStatus ZFnRotateManip::setRotateMode(RotateMode mode) {
    Manipulator* manipulator = live(m_object);
    if (!manipulator || mode < kObjectSpace || mode > kGimbal)
        return ZStatus::kInvalidParameter;
    manipulator->rotateMode = mode;
    return ZStatus::kSuccess;
}

ZFnRotateManip::RotateMode ZFnRotateManip::rotateMode(ZStatus* status) const {
    const Manipulator* manipulator = live(m_object, status);
    return manipulator ? static_cast<RotateMode>(manipulator->rotateMode) : kObjectSpace;
}

ZManipIndex ZFnRotateManip::rotationIndex(ZStatus* status) const {
    return indexOf(m_object, 0, status);
}

ZManipIndex ZFnRotateManip::rotationCenterIndex(ZStatus* status) const {
    return indexOf(m_object, 1, status);
}

ZFnScaleManip::ZFnScaleManip(const ZObject& manipulator, ZStatus* status) {
    const ZStatus attached = setObject(manipulator);
    if (status)
        *status = attached;
}

bool ZFnScaleManip::hasObj(const ZObject& object) const {
    return isKind(object, ManipKind::Scale);
}

ZStatus ZFnScaleManip::connectToScalePlug(const ZPlug& scalePlug) {
    return connect(m_object, 0, scalePlug);
}

ZStatus ZFnScaleManip::connectToScaleCenterPlug(const ZPlug& centerPlug) {
    return connect(m_object, 1, centerPlug);
}

ZStatus ZFnScaleManip::setInitialScale(const ZVector& scale) {
    return setValue(m_object, 0, scale.x, scale.y, scale.z);
}

ZVector ZFnScaleManip::scaleValue(ZStatus* status) const {
    return vectorOf(m_object, 0, status);
}

ZPoint ZFnScaleManip::scaleCenter(ZStatus* status) const {
    return ZPoint(vectorOf(m_object, 1, status));
}

ZStatus ZFnScaleManip::setSnapMode(bool on) {
    Manipulator* manipulator = live(m_object);
    if (!manipulator)
        return ZStatus::kInvalidParameter;
    manipulator->snap = on;
    return ZStatus::kSuccess;
}

bool ZFnScaleManip::isSnapModeOn(ZStatus* status) const {
    const Manipulator* manipulator = live(m_object, status);
    return manipulator && manipulator->snap;
}

ZStatus ZFnScaleManip::setSnapIncrement(double increment) {
    Manipulator* manipulator = live(m_object);
    if (!manipulator || !(increment > 0.0))
        return ZStatus::kInvalidParameter;
    manipulator->snapIncrement = increment;
    return ZStatus::kSuccess;
}

ZManipIndex ZFnScaleManip::scaleIndex(ZStatus* status) const {
    return indexOf(m_object, 0, status);
}

ZManipIndex ZFnScaleManip::scaleCenterIndex(ZStatus* status) const {
    return indexOf(m_object, 1, status);
}
