#include "core/StatusOut.h"
#include "graph/Callbacks.h"
#include "graph/Node.h"
#include "graph/SceneMessages.h"

#include <OpenZyvo/ZCallbackIdArray.h>
#include <OpenZyvo/ZMessage.h>
#include <OpenZyvo/ZNodeMessage.h>
#include <OpenZyvo/ZSceneMessage.h>

using oz::CallbackEntry;
using oz::Callbacks;

namespace {

template <typename F>
ZCallbackId addToNode(const ZObject& object, CallbackEntry::Kind kind, F function, void* clientData,
                      ZStatus* status) {
    oz::Node* node = oz::nodeOf(object);
    if (!node || !function || !node->usable()) {
        oz::setStatus(status, ZStatus::kInvalidParameter);
        return 0;
    }
    oz::setStatus(status, ZStatus::kSuccess);
    return Callbacks::instance().addNodeCallback(*node, kind, function, clientData);
}

template <typename F> ZCallbackId addToScene(int message, F function, void* clientData, ZStatus* status) {
    if (!function || message < 0 || message >= ZSceneMessage::kLast) {
        oz::setStatus(status, ZStatus::kInvalidParameter);
        return 0;
    }
    oz::setStatus(status, ZStatus::kSuccess);
    return Callbacks::instance().addSceneCallback(message, function, clientData);
}

} // namespace

namespace oz {

void notifySceneMessage(ZSceneMessage::Message message, const ZStringArray& strings) {
    Callbacks::instance().scene(message, &strings);
}

} // namespace oz

ZStatus ZMessage::removeCallback(ZCallbackId id) {
    return Callbacks::instance().remove(id);
}

ZStatus ZMessage::removeCallbacks(ZCallbackIdArray& ids) {
    ZStatus result;
    for (ZCallbackId id : ids)
        if (ZStatus status = removeCallback(id); !status)
            result = status;
    return result;
}

ZCallbackId ZMessage::currentCallbackId() {
    return Callbacks::instance().current();
}

ZStatus ZMessage::nodeCallbacks(const ZObject& object, ZCallbackIdArray& ids) {
    ids.clear();
    oz::Node* node = oz::nodeOf(object);
    if (!node)
        return ZStatus::kInvalidParameter;
    for (const auto& entry : node->callbacks)
        ids.append(entry->id);
    return ZStatus::kSuccess;
}

ZCallbackId ZNodeMessage::addAttributeChangedCallback(const ZObject& node, AttributeChangedFunction function,
                                                      void* clientData, ZStatus* status) {
    return addToNode(node, CallbackEntry::Kind::AttributeChanged, function, clientData, status);
}

ZCallbackId ZNodeMessage::addNodeDirtyPlugCallback(const ZObject& node, NodeDirtyPlugFunction function,
                                                   void* clientData, ZStatus* status) {
    return addToNode(node, CallbackEntry::Kind::DirtyPlug, function, clientData, status);
}

ZCallbackId ZNodeMessage::addNodeAboutToDeleteCallback(const ZObject& node, NodeModifierFunction function,
                                                       void* clientData, ZStatus* status) {
    return addToNode(node, CallbackEntry::Kind::AboutToDelete, function, clientData, status);
}

ZCallbackId ZNodeMessage::addNodePreRemovalCallback(const ZObject& node, NodeFunction function,
                                                    void* clientData, ZStatus* status) {
    return addToNode(node, CallbackEntry::Kind::PreRemoval, function, clientData, status);
}

ZCallbackId ZNodeMessage::addNameChangedCallback(const ZObject& node, NameChangedFunction function,
                                                 void* clientData, ZStatus* status) {
    return addToNode(node, CallbackEntry::Kind::NameChanged, function, clientData, status);
}

ZCallbackId ZSceneMessage::addCallback(Message message, Function function, void* clientData,
                                       ZStatus* status) {
    return addToScene(message, function, clientData, status);
}

ZCallbackId ZSceneMessage::addStringArrayCallback(Message message, StringArrayFunction function,
                                                  void* clientData, ZStatus* status) {
    return addToScene(message, function, clientData, status);
}
