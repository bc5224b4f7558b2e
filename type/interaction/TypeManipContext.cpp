#include "interaction/TypeManipContext.h"

#include "interaction/FaceShell.h"
#include "interaction/TypeManip.h"
#include "interaction/TypeNodeOf.h"
#include "plugin/ApiError.h"
#include "plugin/TypeMessages.h"
#include "shells/ShellGrouping.h"

#include <OpenZyvo/ZCommandResult.h>
#include <OpenZyvo/ZDagPath.h>
#include <OpenZyvo/ZFnDependencyNode.h>
#include <OpenZyvo/ZFnDoubleArrayData.h>
#include <OpenZyvo/ZFnMesh.h>
#include <OpenZyvo/ZFnVectorArrayData.h>
#include <OpenZyvo/ZGlobal.h>
#include <OpenZyvo/ZModelMessage.h>
#include <OpenZyvo/ZNodeMessage.h>
#include <OpenZyvo/ZSelectionList.h>
#include <array>
#include <iostream>
#include <string>

namespace type {

namespace {

constexpr const char* kUnit = "typeTRSManipContext";

void onSelectionChanged(void* context) {
    static_cast<typeManipContext*>(context)->selectionChanged();
}

// The shape's new geometry changes the element's place: the tool's settings
// panel reads the values again.
void onShapeDirty(ZObject&, ZPlug& plug, void*) {
    if (plug.partialName() == "i")
        ZGlobal::executeCommandOnIdle("typeTRSToolValues TypeManipCtx");
}

// The stored edits of one level and the words of its "not found" lines.
struct StoredLevel {
    std::array<const char*, 3> arrays;
    std::array<const char*, 3> notFound;
};

StoredLevel storedLevel(ManipulatorMode mode) {
    switch (mode) {
    case ManipulatorMode::Word:
        return {{"manipulatorWordPositionsPP", "manipulatorWordRotationsPP", "manipulatorWordScalesPP"},
                {"Position word not found ", "Rotation word not found ", "Scale word not found "}};
    case ManipulatorMode::Line:
        return {{"manipulatorLinePositionsPP", "manipulatorLineRotationsPP", "manipulatorLineScalesPP"},
                {"Position line not found ", "Rotation line not found ", "Scale line not found "}};
    case ManipulatorMode::Character:
        break;
    }
    return {{"manipulatorPositionsPP", "manipulatorRotationsPP", "manipulatorScalesPP"},
            {"Position not found ", "Rotation not found ", "Scale not found "}};
}

constexpr std::array<const char*, 3> kAdjustAttributes{".positionAdjust ", ".rotationAdjust ",
                                                       ".scaleAdjust "};

ZDoubleArray doublesOf(const ZFnDependencyNode& node, const char* name) {
    ZDoubleArray values;
    ZFnDoubleArrayData(node.findPlug(name, true).asZObject()).copyTo(values);
    return values;
}

std::string number(double value) {
    ZString text;
    text += value;
    return text.asStdString();
}

// The character under the last click on `shape`, by the shell of the face
// hit; nothing without a click or a hit.
std::optional<std::size_t> clickedCharacter(const ZPxSelectionContext& context, const ZDagPath& shape,
                                            const ShellGrouping& grouping) {
    ZPoint source;
    ZVector direction;
    if (!context.lastClickRay(source, direction))
        return std::nullopt;
    ZStatus status;
    const ZFnMesh mesh(shape.node(), &status);
    if (!status)
        return std::nullopt;
    ZFloatPoint hit;
    int face = -1;
    if (!mesh.closestIntersection(ZFloatPoint(source), ZFloatVector(direction), nullptr, nullptr, false,
                                  ZSpace::kWorld, 1e8f, false, nullptr, hit, nullptr, &face, nullptr, nullptr,
                                  nullptr, 1e-6f))
        return std::nullopt;
    const std::optional<std::size_t> shell = shellOfFace(shape.node(), face);
    if (!shell)
        return std::nullopt;
    return characterOfShell(grouping, *shell);
}

} // namespace

typeManipContext::typeManipContext() {
    setTitleString(messages::text(messages::kTypeManipName));
    setImage(kImage);
}

typeManipContext::~typeManipContext() {
    removeShapeCallback();
    if (m_selectionCallback)
        ZMessage::removeCallback(m_selectionCallback);
}

void typeManipContext::getClassName(ZString& name) const {
    name = kClassName;
}

void typeManipContext::toolOnSetup() {
    setHelpString(messages::text(messages::kTypeManipHelp));
    ZStatus status;
    m_selectionCallback =
        ZModelMessage::addCallback(ZModelMessage::kActiveListModified, onSelectionChanged, this, &status);
    if (!status)
        reportApiError(status, kUnit);
    selectionChanged();
}

void typeManipContext::toolOffCleanup() {
    removeShapeCallback();
    if (m_selectionCallback) {
        ZMessage::removeCallback(m_selectionCallback);
        m_selectionCallback = 0;
    }
    ZPxSelectionContext::toolOffCleanup();
}

void typeManipContext::removeShapeCallback() {
    if (m_shapeCallback) {
        ZMessage::removeCallback(m_shapeCallback);
        m_shapeCallback = 0;
    }
}

void typeManipContext::selectionChanged() {
    removeShapeCallback();
    deleteManipulators();
    ZSelectionList selection;
    ZGlobal::getActiveSelectionList(selection);
    if (selection.length() != 1)
        return;

    ZObject object;
    if (!selection.getDependNode(0, object) || object.isNull() || !object.hasFn(ZFn::kDependencyNode))
        return;
    const ZObject typeNode = typeNodeOf(object);
    if (typeNode.isNull())
        return;

    ZStatus status;
    const ZFnDependencyNode text(typeNode);
    const ZPlug modePlug = text.findPlug("manipulatorMode", true, &status);
    if (!status) {
        reportApiError(status, kUnit);
        return;
    }
    text.findPlug("positionAdjust", true, &status);
    if (!status) {
        reportApiError(status, kUnit);
        return;
    }
    text.findPlug("vertsPerChar", true, &status);
    if (!status) {
        reportApiError(status, kUnit);
        return;
    }
    const auto mode = static_cast<ManipulatorMode>(modePlug.asShort());

    ZDagPath shape;
    status = selection.getDagPath(0, shape);
    if (status)
        status = shape.extendToShape();
    if (!status) {
        reportApiError(status, kUnit);
        return;
    }
    ZCommandResult shells;
    ZGlobal::executeCommand("polyEvaluate -s " + ZFnDependencyNode(shape.node()).name() + ";", shells);
    if (shells.resultType() != ZCommandResult::kInt)
        std::cerr << "polyEvaluate shell failure: " << shells.resultType() << std::endl;

    const ZDoubleArray perCharacter = doublesOf(text, "solidsPerCharacter");
    const ZDoubleArray perWord = doublesOf(text, "solidsPerWord");
    const ZDoubleArray perLine = doublesOf(text, "solidsPerLine");
    const ShellGrouping grouping{perCharacter.asVector(), perWord.asVector(), perLine.asVector()};
    std::size_t element = 0;
    if (const std::optional<std::size_t> character = clickedCharacter(*this, shape, grouping))
        element = elementOfCharacter(grouping, mode, *character).value_or(0);

    const std::string name = text.name().asStdString();
    const std::string index = std::to_string(element);
    ZGlobal::executeCommand(ZString("setAttr " + name + ".manipulateId " + index), false, true);

    const StoredLevel level = storedLevel(mode);
    for (std::size_t kind = 0; kind < 3; ++kind) {
        ZVectorArray stored;
        ZFnVectorArrayData(text.findPlug(level.arrays[kind], true).asZObject()).copyTo(stored);
        if (stored.length() <= element) {
            std::cerr << level.notFound[kind] << element << std::endl;
            continue;
        }
        const ZVector& value = stored[static_cast<unsigned int>(element)];
        ZGlobal::executeCommand(ZString("setAttr " + name + kAdjustAttributes[kind] + number(value.x) + " " +
                                        number(value.y) + " " + number(value.z)),
                                false, true);
    }

    ZObject manipObject;
    auto* manip =
        dynamic_cast<typeManip*>(ZPxManipContainer::newManipulator(typeManip::kTypeName, manipObject));
    if (manip && manip->connectToDependNode(object)) {
        addManipulator(manipObject);
        m_shapeCallback = ZNodeMessage::addNodeDirtyPlugCallback(shape.node(), onShapeDirty, this);
    } else {
        ZGlobal::displayWarning(messages::text(messages::kTypeManipConnectError));
        if (manip)
            addManipulator(manipObject);
        deleteManipulators();
    }
    ZGlobal::executeCommandOnIdle("typeTRSToolValues TypeManipCtx");
}

} // namespace type
