#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZObject.h>
#include <OpenZyvo/ZPoint.h>
#include <OpenZyvo/ZStatus.h>
#include <OpenZyvo/ZVector.h>
#include <OpenZyvoUI/ZPxContext.h>
#include <vector>

// Base of tools that work on what the user clicked: a click in the view picks
// the object under the view point and selects it (a click on nothing keeps
// the selection), and the context may attach manipulators to what is
// selected. The manipulators it adds are deleted with deleteManipulators, when
// the tool is put away and when the context goes.
class OZ_API ZPxSelectionContext : public ZPxContext {
public:
    ZPxSelectionContext();
    ~ZPxSelectionContext() override;

    void toolOffCleanup() override;

    // `manipulator` is a container made with ZPxManipContainer::newManipulator.
    ZStatus addManipulator(const ZObject& manipulator);
    ZStatus deleteManipulators();
    unsigned int numManipulators() const;
    ZObject manipulator(unsigned int index) const;

    // The world-space ray through the view point of the last click in the
    // view while this tool was current; kNotFound before any click.
    ZStatus lastClickRay(ZPoint& source, ZVector& direction) const;

private:
    std::vector<ZObject> m_manipulators;
};
