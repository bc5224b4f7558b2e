#pragma once

#include <OpenZyvo/ZMessage.h>
#include <OpenZyvoUI/ZPxSelectionContext.h>

namespace type {

// "typeManipContext", the type manipulator tool: on each new selection of one
// text object it picks the character, word or line under the last click,
// loads that element's stored edits into the type node's adjust attributes
// and attaches a typeManip manipulator to the object.
class typeManipContext : public ZPxSelectionContext {
public:
    static constexpr const char* kClassName = "typeTRSTool";
    static constexpr const char* kImage = "TypeMoveTool.png";

    typeManipContext();
    ~typeManipContext() override;

    void toolOnSetup() override;
    void toolOffCleanup() override;
    void getClassName(ZString& name) const override;

    // Runs whenever the selection changes while the tool is current.
    void selectionChanged();

private:
    void removeShapeCallback();

    ZCallbackId m_selectionCallback = 0;
    ZCallbackId m_shapeCallback = 0;
};

} // namespace type
