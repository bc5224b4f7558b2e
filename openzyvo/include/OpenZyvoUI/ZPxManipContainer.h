#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZDagPath.h>
#include <OpenZyvo/ZObject.h>
#include <OpenZyvo/ZPlug.h>
#include <OpenZyvo/ZPoint.h>
#include <OpenZyvo/ZPxNode.h>
#include <OpenZyvo/ZStatus.h>
#include <OpenZyvo/ZString.h>
#include <OpenZyvo/ZVector.h>
#include <OpenZyvoUI/ZManipData.h>
#include <OpenZyvoUI/ZManipIndex.h>
#include <memory>

namespace oz::ui {
class ManipContainerState;
struct ManipContainerAccess;
} // namespace oz::ui

// Base of manipulator containers: nodes (registered with the kManipContainer
// kind) that group child manipulators and tie their values to plugs of the
// nodes they edit. A tool makes one with newManipulator, connects it with
// connectToDependNode and hands it to ZPxSelectionContext::addManipulator.
//
// A manipulator value and a plug are tied either directly (the children's
// connectTo... calls) or through conversion callbacks of the container: a
// plug-to-manipulator conversion gives a manipulator value from plugs (read
// them in the callback), a manipulator-to-plug conversion gives a plug's
// value from the manipulators' values (read with getConverterManipValue).
// After a drag the host sets every plug tied to the manipulators; when plugs
// change, the manipulators follow before the next drag or query.
class OZ_API ZPxManipContainer : public ZPxNode {
public:
    using plugToManipConversionCallback = ZManipData (ZPxManipContainer::*)(unsigned int manipIndex);
    using manipToPlugConversionCallback = ZManipData (ZPxManipContainer::*)(unsigned int plugIndex);

    ZPxManipContainer();
    ~ZPxManipContainer() override;

    // Makes a container node of the registered type `manipName` (not part of
    // the scene's files), calls its createChildren and returns it.
    static ZPxManipContainer* newManipulator(const ZString& manipName, ZObject& manipObject,
                                             ZStatus* status = nullptr);

    virtual ZStatus createChildren();
    // Ties the children to `node`; an override ends by calling this one, which
    // records the node the container edits.
    virtual ZStatus connectToDependNode(const ZObject& node);

    // Children, each returned as the object its function set works on.
    ZObject addFreePointTriadManip(const ZString& manipName, const ZString& pointName);
    ZObject addRotateManip(const ZString& manipName, const ZString& rotationName);
    ZObject addScaleManip(const ZString& manipName, const ZString& scaleName);

    ZStatus addPlugToManipConversionCallback(ZManipIndex manipIndex, plugToManipConversionCallback callback);
    // Returns the plug's index, handed to the callback.
    ZManipIndex addManipToPlugConversionCallback(const ZPlug& plug, manipToPlugConversionCallback callback,
                                                 ZStatus* status = nullptr);
    // The manipulators are complete: every value tied to plugs takes its plugs' values.
    ZStatus finishAddingManips();

    // Inside a manipulator-to-plug conversion: a manipulator value.
    ZStatus getConverterManipValue(ZManipIndex manipIndex, ZPoint& point) const;
    ZStatus getConverterManipValue(ZManipIndex manipIndex, ZVector& vector) const;
    ZStatus getConverterManipValue(ZManipIndex manipIndex, double& value) const;

    // The node given to connectToDependNode (null before).
    ZObject connectedNode() const;

private:
    friend struct oz::ui::ManipContainerAccess;
    std::unique_ptr<oz::ui::ManipContainerState> m_state;
};
