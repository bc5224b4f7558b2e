#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZMessage.h>

class ZPlug;
class ZString;
class ZDGModifier;

// Callbacks about one node. They are removed with the node when it is deleted.
class OZ_API ZNodeMessage : public ZMessage {
public:
    // Bits of the message handed to attribute-changed callbacks.
    enum AttributeMessage {
        kConnectionMade = 0x01,
        kConnectionBroken = 0x02,
        kAttributeEval = 0x04,
        kAttributeSet = 0x08,
        kAttributeLocked = 0x10,
        kAttributeUnlocked = 0x20,
        kAttributeAdded = 0x40,
        kAttributeRemoved = 0x80,
        kAttributeRenamed = 0x100,
        kAttributeKeyable = 0x200,
        kAttributeUnkeyable = 0x400,
        // The plug of this node is the destination of the connection.
        kIncomingDirection = 0x800,
        kAttributeArrayAdded = 0x1000,
        kAttributeArrayRemoved = 0x2000,
        // The source plug connected to this node's plug was set.
        kOtherPlugSet = 0x4000,
        kLast = 0x8000
    };

    using AttributeChangedFunction = void (*)(AttributeMessage message, ZPlug& plug, ZPlug& otherPlug,
                                              void* clientData);
    using NodeDirtyPlugFunction = void (*)(ZObject& node, ZPlug& plug, void* clientData);
    using NodeFunction = void (*)(ZObject& node, void* clientData);
    using NodeModifierFunction = void (*)(ZObject& node, ZDGModifier& modifier, void* clientData);
    using NameChangedFunction = void (*)(ZObject& node, const ZString& previousName, void* clientData);

    // Values set, connections made or broken, attributes added or removed and
    // computed plugs of the node.
    static ZCallbackId addAttributeChangedCallback(const ZObject& node, AttributeChangedFunction function,
                                                   void* clientData = nullptr, ZStatus* status = nullptr);
    // Each plug of the node that becomes dirty.
    static ZCallbackId addNodeDirtyPlugCallback(const ZObject& node, NodeDirtyPlugFunction function,
                                                void* clientData = nullptr, ZStatus* status = nullptr);
    // The node is about to be deleted; `modifier` is the one deleting it.
    static ZCallbackId addNodeAboutToDeleteCallback(const ZObject& node, NodeModifierFunction function,
                                                    void* clientData = nullptr, ZStatus* status = nullptr);
    // The node leaves the graph (its connections are already broken).
    static ZCallbackId addNodePreRemovalCallback(const ZObject& node, NodeFunction function,
                                                 void* clientData = nullptr, ZStatus* status = nullptr);
    static ZCallbackId addNameChangedCallback(const ZObject& node, NameChangedFunction function,
                                              void* clientData = nullptr, ZStatus* status = nullptr);
};
