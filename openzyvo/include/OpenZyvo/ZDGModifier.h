#pragma once

#include <OpenZyvo/ZAngle.h>
#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZDistance.h>
#include <OpenZyvo/ZObject.h>
#include <OpenZyvo/ZStatus.h>
#include <OpenZyvo/ZString.h>
#include <OpenZyvo/ZTime.h>
#include <OpenZyvo/ZTypeId.h>
#include <memory>

class ZPlug;

namespace oz {
struct ModifierState;
}

// Queues graph edits and applies them with doIt(); undoIt() reverses exactly
// what doIt() applied, in reverse order, and a later doIt() redoes it. If an
// edit fails in doIt(), the edits applied before it in that call are reversed
// and the failure is returned.
//
// Queuing checks what it can at once (null plugs, kinds that cannot connect,
// a destination that already has a source and no queued disconnect); doIt()
// checks again against the graph as it is then.
class OZ_API ZDGModifier {
public:
    ZDGModifier();
    virtual ~ZDGModifier();
    ZDGModifier(const ZDGModifier&) = delete;
    ZDGModifier& operator=(const ZDGModifier&) = delete;

    // The node exists (and is returned) at once; it joins the graph in doIt().
    ZObject createNode(const ZTypeId& typeId, ZStatus* status = nullptr);
    ZObject createNode(const ZString& typeName, ZStatus* status = nullptr);
    ZStatus deleteNode(const ZObject& node);
    ZStatus renameNode(const ZObject& node, const ZString& newName);

    ZStatus connect(const ZPlug& source, const ZPlug& destination);
    ZStatus connect(const ZObject& sourceNode, const ZObject& sourceAttribute, const ZObject& destinationNode,
                    const ZObject& destinationAttribute);
    ZStatus disconnect(const ZPlug& source, const ZPlug& destination);
    ZStatus disconnect(const ZObject& sourceNode, const ZObject& sourceAttribute,
                       const ZObject& destinationNode, const ZObject& destinationAttribute);

    ZStatus addAttribute(const ZObject& node, const ZObject& attribute);
    ZStatus removeAttribute(const ZObject& node, const ZObject& attribute);
    // Removes an array element, breaking its connections first.
    ZStatus removeMultiInstance(const ZPlug& element, bool breakConnections = true);

    ZStatus newPlugValue(const ZPlug& plug, const ZObject& value);
    ZStatus newPlugValueBool(const ZPlug& plug, bool value);
    ZStatus newPlugValueShort(const ZPlug& plug, short value);
    ZStatus newPlugValueInt(const ZPlug& plug, int value);
    ZStatus newPlugValueFloat(const ZPlug& plug, float value);
    ZStatus newPlugValueDouble(const ZPlug& plug, double value);
    ZStatus newPlugValueString(const ZPlug& plug, const ZString& value);
    ZStatus newPlugValueTime(const ZPlug& plug, const ZTime& value);
    ZStatus newPlugValueDistance(const ZPlug& plug, const ZDistance& value);
    ZStatus newPlugValueAngle(const ZPlug& plug, const ZAngle& value);

    ZStatus doIt();
    ZStatus undoIt();

private:
    std::unique_ptr<oz::ModifierState> m_state;
};
