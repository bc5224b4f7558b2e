#pragma once

#include <OpenZyvo/ZNodeMessage.h>
#include <OpenZyvo/ZSceneMessage.h>
#include <functional>
#include <memory>
#include <unordered_map>
#include <variant>
#include <vector>

class ZStringArray;

namespace oz {

class Node;

using CallbackFunction = std::variant<ZNodeMessage::AttributeChangedFunction,
                                      ZNodeMessage::NodeDirtyPlugFunction, ZNodeMessage::NodeModifierFunction,
                                      ZNodeMessage::NodeFunction, ZNodeMessage::NameChangedFunction,
                                      ZSceneMessage::Function, ZSceneMessage::StringArrayFunction>;

struct CallbackEntry {
    enum class Kind { AttributeChanged, DirtyPlug, AboutToDelete, PreRemoval, NameChanged, Scene };
    ZCallbackId id = 0;
    Kind kind = Kind::Scene;
    Node* node = nullptr;
    int message = 0;
    CallbackFunction function;
    void* clientData = nullptr;
    bool removed = false;
};

// Every installed callback, by id, and their dispatch. A callback removed
// while callbacks run is not called again, even in the same dispatch.
class Callbacks {
public:
    static Callbacks& instance();

    ZCallbackId addNodeCallback(Node& node, CallbackEntry::Kind kind, CallbackFunction function,
                                void* clientData);
    ZCallbackId addSceneCallback(int message, CallbackFunction function, void* clientData);
    ZStatus remove(ZCallbackId id);
    void removeAll(Node& node);
    // Removes the callbacks whose function `inside` accepts (the code of a
    // library about to be closed); returns how many went.
    std::size_t removeWhereCode(const std::function<bool(const void* code)>& inside);
    ZCallbackId current() const { return m_current; }

    void attributeChanged(Node& node, int message, const ZPlug& plug, const ZPlug& otherPlug);
    void dirtyPlug(Node& node, const ZPlug& plug);
    void aboutToDelete(Node& node, ZDGModifier& modifier);
    void preRemoval(Node& node);
    void nameChanged(Node& node, const ZString& previousName);
    void scene(int message, const ZStringArray* strings);

private:
    template <typename F>
    void dispatch(const std::vector<std::shared_ptr<CallbackEntry>>& entries, CallbackEntry::Kind kind,
                  F&& call);
    std::unordered_map<ZCallbackId, std::shared_ptr<CallbackEntry>> m_byId;
    std::vector<std::shared_ptr<CallbackEntry>> m_scene;
    ZCallbackId m_next = 1;
    ZCallbackId m_current = 0;
};

} // namespace oz
