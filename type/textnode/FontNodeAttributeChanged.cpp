#include "textnode/FontNode.h"

#include <OpenZyvo/ZFnDependencyNode.h>
#include <OpenZyvo/ZGlobal.h>
#include <OpenZyvo/ZPlug.h>
#include <OpenZyvo/ZPlugArray.h>

namespace type {

namespace {

// Lets the host-side scripts rebuild the manipulator for the new level.
constexpr char kFlipManipulator[] =
    "import zyvo.cmds as cmds; cmds.evalDeferred('import zyvo.app.type.typeUtilityScripts; "
    "zyvo.app.type.typeUtilityScripts.flipTypeManipulator()')";

bool drivenByTimeNode(const ZPlug& timePlug) {
    ZPlugArray sources;
    if (!timePlug.connectedTo(sources, true, false) || sources.length() == 0)
        return false;
    return ZFnDependencyNode(sources[0].node()).typeName() == "time";
}

// A generator needs the scene time; "Off" lets go of it again, but only of a
// time node, never of a source the user connected.
void followGenerator(const ZPlug& generatorPlug) {
    const ZPlug timePlug(generatorPlug.node(), fontNode::time);
    ZString command;
    if (generatorPlug.asShort() < 1) {
        if (!drivenByTimeNode(timePlug))
            return;
        command = "disconnectAttr ";
    } else {
        if (timePlug.isConnected())
            return;
        command = "connectAttr ";
    }
    // Queued: the graph must not change while the host is still setting the
    // generator.
    ZGlobal::executeCommandOnIdle(command + "time1.outTime " + timePlug.name() + ";");
}

} // namespace

void fontNode::attributeChanged(ZNodeMessage::AttributeMessage message, ZPlug& plug, ZPlug&, void*) {
    if (!(message & ZNodeMessage::kAttributeSet))
        return;
    if (plug == manipulatorMode)
        ZGlobal::executePythonCommandOnIdle(kFlipManipulator);
    else if (plug == generator)
        followGenerator(plug);
}

} // namespace type
