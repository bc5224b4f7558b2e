#include "ui/ToolManager.h"

#include <OpenZyvo/ZDGModifier.h>
#include <OpenZyvoUI/ZPxSelectionContext.h>

ZPxSelectionContext::ZPxSelectionContext() = default;

ZPxSelectionContext::~ZPxSelectionContext() {
    deleteManipulators();
}

void ZPxSelectionContext::toolOffCleanup() {
    deleteManipulators();
}

ZStatus ZPxSelectionContext::addManipulator(const ZObject& manipulator) {
    if (!manipulator.hasFn(ZFn::kPluginManipContainer))
        return ZStatus::kInvalidParameter;
    m_manipulators.push_back(manipulator);
    return ZStatus::kSuccess;
}

ZStatus ZPxSelectionContext::deleteManipulators() {
    ZDGModifier modifier;
    // Manipulators deleted with the scene are gone already.
    for (const ZObject& manipulator : m_manipulators)
        if (manipulator.hasFn(ZFn::kPluginManipContainer))
            modifier.deleteNode(manipulator);
    m_manipulators.clear();
    return modifier.doIt();
}

unsigned int ZPxSelectionContext::numManipulators() const {
    return static_cast<unsigned int>(m_manipulators.size());
}

ZObject ZPxSelectionContext::manipulator(unsigned int index) const {
    return index < m_manipulators.size() ? m_manipulators[index] : ZObject();
}

ZStatus ZPxSelectionContext::lastClickRay(ZPoint& source, ZVector& direction) const {
    oz::ui::ToolManager& tools = oz::ui::ToolManager::instance();
    if (tools.current() != this || !tools.lastClick())
        return ZStatus::kNotFound;
    source = tools.lastClick()->source;
    direction = tools.lastClick()->direction;
    return ZStatus::kSuccess;
}
