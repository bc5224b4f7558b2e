#include "graph/Callbacks.h"

#include "graph/Node.h"
#include "graph/PlugRef.h"

#include <OpenZyvo/ZStringArray.h>
#include <algorithm>
#include <variant>

namespace oz {

namespace {

// Keeps the id of the running callback visible to ZMessage::currentCallbackId.
class CurrentId {
public:
    CurrentId(ZCallbackId& slot, ZCallbackId id)
        : m_slot(slot)
        , m_previous(slot) {
        slot = id;
    }
    ~CurrentId() { m_slot = m_previous; }
    CurrentId(const CurrentId&) = delete;
    CurrentId& operator=(const CurrentId&) = delete;

private:
    ZCallbackId& m_slot;
    ZCallbackId m_previous;
};

void count(Node& node, CallbackEntry::Kind kind, int delta) {
    if (kind == CallbackEntry::Kind::AttributeChanged)
        node.attributeChangedCallbacks += delta;
    else if (kind == CallbackEntry::Kind::DirtyPlug)
        node.dirtyPlugCallbacks += delta;
}

} // namespace

Callbacks& Callbacks::instance() {
    // Never destroyed: nodes and plug-ins still remove their callbacks while
    // the process exits, after function-local statics have gone.
    static Callbacks* const callbacks = new Callbacks;
    return *callbacks;
}

ZCallbackId Callbacks::addNodeCallback(Node& node, CallbackEntry::Kind kind, CallbackFunction function,
                                       void* clientData) {
    auto entry = std::make_shared<CallbackEntry>();
    entry->id = m_next++;
    entry->kind = kind;
    entry->node = &node;
    entry->function = function;
    entry->clientData = clientData;
    m_byId.emplace(entry->id, entry);
    node.callbacks.push_back(entry);
    count(node, kind, 1);
    return entry->id;
}

ZCallbackId Callbacks::addSceneCallback(int message, CallbackFunction function, void* clientData) {
    auto entry = std::make_shared<CallbackEntry>();
    entry->id = m_next++;
    entry->kind = CallbackEntry::Kind::Scene;
    entry->message = message;
    entry->function = function;
    entry->clientData = clientData;
    m_byId.emplace(entry->id, entry);
    m_scene.push_back(entry);
    return entry->id;
}

ZStatus Callbacks::remove(ZCallbackId id) {
    auto it = m_byId.find(id);
    if (it == m_byId.end())
        return ZStatus::kNotFound;
    std::shared_ptr<CallbackEntry> entry = it->second;
    m_byId.erase(it);
    entry->removed = true;
    if (Node* node = entry->node) {
        auto& list = node->callbacks;
        list.erase(std::remove(list.begin(), list.end(), entry), list.end());
        count(*node, entry->kind, -1);
    } else {
        m_scene.erase(std::remove(m_scene.begin(), m_scene.end(), entry), m_scene.end());
    }
    return ZStatus::kSuccess;
}

void Callbacks::removeAll(Node& node) {
    const auto entries = node.callbacks;
    for (const auto& entry : entries)
        remove(entry->id);
}

std::size_t Callbacks::removeWhereCode(const std::function<bool(const void* code)>& inside) {
    std::vector<ZCallbackId> doomed;
    for (const auto& [id, entry] : m_byId) {
        const void* code = std::visit([](auto function) { return reinterpret_cast<const void*>(function); },
                                      entry->function);
        if (inside(code))
            doomed.push_back(id);
    }
    for (const ZCallbackId id : doomed)
        remove(id);
    return doomed.size();
}

template <typename F>
void Callbacks::dispatch(const std::vector<std::shared_ptr<CallbackEntry>>& entries, CallbackEntry::Kind kind,
                         F&& call) {
    const auto snapshot = entries;
    for (const auto& entry : snapshot) {
        if (entry->removed || entry->kind != kind)
            continue;
        CurrentId running(m_current, entry->id);
        call(*entry);
    }
}

void Callbacks::attributeChanged(Node& node, int message, const ZPlug& plug, const ZPlug& otherPlug) {
    if (!node.attributeChangedCallbacks)
        return;
    dispatch(node.callbacks, CallbackEntry::Kind::AttributeChanged, [&](CallbackEntry& entry) {
        ZPlug a = plug, b = otherPlug;
        std::get<ZNodeMessage::AttributeChangedFunction>(entry.function)(
            static_cast<ZNodeMessage::AttributeMessage>(message), a, b, entry.clientData);
    });
}

void Callbacks::dirtyPlug(Node& node, const ZPlug& plug) {
    if (!node.dirtyPlugCallbacks)
        return;
    ZObject object = ObjectAccess::wrap(node.shared_from_this());
    dispatch(node.callbacks, CallbackEntry::Kind::DirtyPlug, [&](CallbackEntry& entry) {
        ZPlug p = plug;
        std::get<ZNodeMessage::NodeDirtyPlugFunction>(entry.function)(object, p, entry.clientData);
    });
}

void Callbacks::aboutToDelete(Node& node, ZDGModifier& modifier) {
    ZObject object = ObjectAccess::wrap(node.shared_from_this());
    dispatch(node.callbacks, CallbackEntry::Kind::AboutToDelete, [&](CallbackEntry& entry) {
        std::get<ZNodeMessage::NodeModifierFunction>(entry.function)(object, modifier, entry.clientData);
    });
}

void Callbacks::preRemoval(Node& node) {
    ZObject object = ObjectAccess::wrap(node.shared_from_this());
    dispatch(node.callbacks, CallbackEntry::Kind::PreRemoval, [&](CallbackEntry& entry) {
        std::get<ZNodeMessage::NodeFunction>(entry.function)(object, entry.clientData);
    });
}

void Callbacks::nameChanged(Node& node, const ZString& previousName) {
    ZObject object = ObjectAccess::wrap(node.shared_from_this());
    dispatch(node.callbacks, CallbackEntry::Kind::NameChanged, [&](CallbackEntry& entry) {
        std::get<ZNodeMessage::NameChangedFunction>(entry.function)(object, previousName, entry.clientData);
    });
}

void Callbacks::scene(int message, const ZStringArray* strings) {
    const ZStringArray none;
    const auto snapshot = m_scene;
    for (const auto& entry : snapshot) {
        if (entry->removed || entry->message != message)
            continue;
        CurrentId running(m_current, entry->id);
        if (auto* plain = std::get_if<ZSceneMessage::Function>(&entry->function))
            (*plain)(entry->clientData);
        else if (auto* withStrings = std::get_if<ZSceneMessage::StringArrayFunction>(&entry->function))
            (*withStrings)(strings ? *strings : none, entry->clientData);
    }
}

} // namespace oz
