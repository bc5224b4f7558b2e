#include "core/StatusOut.h"
#include "graph/Graph.h"
#include "graph/Names.h"
#include "graph/NodeTypeRegistry.h"
#include "graph/Report.h"
#include "graph/ValueIO.h"

#include <OpenZyvo/ZDGModifier.h>
#include <OpenZyvo/ZPlug.h>
#include <algorithm>
#include <functional>

namespace oz {

namespace {

using Writer = std::function<ZStatus(Slot&, const Attribute&)>;

PlugRef refOf(const Connection& c, bool source) {
    return source ? PlugRef{PlugAccess::sharedNode(*c.srcNode), c.srcRoot, c.src}
                  : PlugRef{PlugAccess::sharedNode(*c.dstNode), c.dstRoot, c.dst};
}

Writer restoring(const Slot& value) {
    return [value](Slot& slot, const Attribute&) {
        slot.num = value.num;
        slot.data = value.data;
        slot.children = value.children;
        slot.elements = value.elements;
        return ZStatus::kSuccess;
    };
}

bool sameNode(const PlugRef& a, const PlugRef& b) {
    return a.node == b.node;
}

} // namespace

// One queued edit and what undoing it needs.
struct ModifierOp {
    enum class Kind {
        Create,
        Delete,
        Rename,
        Connect,
        Disconnect,
        AddAttribute,
        RemoveAttribute,
        RemoveElement,
        SetValue
    };

    explicit ModifierOp(Kind kind)
        : kind(kind) {}

    Kind kind;
    std::shared_ptr<Node> node;
    ZString name;
    ZString previousName;
    PlugRef src, dst;
    std::shared_ptr<Attribute> attribute;
    Writer write;
    Slot previous;
    bool breakConnections = true;
    bool constructed = false;
    std::vector<std::shared_ptr<Connection>> broken;
    std::vector<std::shared_ptr<Node>> detached;
};

struct ModifierState {
    std::vector<ModifierOp> ops;
    std::size_t applied = 0;
};

namespace {

ZStatus reconnect(const std::vector<std::shared_ptr<Connection>>& broken) {
    Graph& graph = Graph::instance();
    for (auto it = broken.rbegin(); it != broken.rend(); ++it)
        if (ZStatus status = graph.connect(refOf(**it, true), refOf(**it, false)); !status)
            return status;
    return ZStatus::kSuccess;
}

ZStatus apply(ModifierOp& op, ZDGModifier& modifier) {
    Graph& graph = Graph::instance();
    switch (op.kind) {
    case ModifierOp::Kind::Create: {
        ZStatus status = graph.attach(*op.node, op.name);
        if (status && !op.constructed) {
            op.constructed = true;
            op.node->user->postConstructor();
        }
        return status;
    }
    case ModifierOp::Kind::Delete:
        op.broken.clear();
        op.detached.clear();
        return graph.detach(*op.node, &modifier, &op.broken, &op.detached);
    case ModifierOp::Kind::Rename:
        op.previousName = op.node->name;
        return graph.rename(*op.node, op.name);
    case ModifierOp::Kind::Connect:
        return graph.connect(op.src, op.dst);
    case ModifierOp::Kind::Disconnect:
        return graph.disconnect(op.src, op.dst);
    case ModifierOp::Kind::AddAttribute:
        return graph.addDynamicAttribute(*op.node, op.attribute);
    case ModifierOp::Kind::RemoveAttribute: {
        Path path;
        if (!op.node->pathTo(op.attribute.get(), path))
            return ZStatus::kInvalidParameter;
        op.previous = *op.node->slot(path);
        op.broken.clear();
        for (const auto& c : op.node->incoming)
            if (c->dst.front().attr == op.attribute.get())
                op.broken.push_back(c);
        for (const auto& c : op.node->outgoing)
            if (c->src.front().attr == op.attribute.get())
                op.broken.push_back(c);
        return graph.removeDynamicAttribute(*op.node, op.attribute.get());
    }
    case ModifierOp::Kind::RemoveElement: {
        Slot* slot = op.dst.node->resolve(op.dst.node->normal, op.dst.path, false);
        if (!slot)
            return ZStatus::kNotFound;
        op.previous = *slot;
        op.broken.clear();
        std::vector<std::shared_ptr<Connection>> related;
        for (const auto& c : op.dst.node->incoming)
            if (oz::related(c->dst, op.dst.path))
                related.push_back(c);
        for (const auto& c : op.dst.node->outgoing)
            if (oz::related(c->src, op.dst.path))
                related.push_back(c);
        if (!related.empty() && !op.breakConnections)
            return ZStatus::kInvalidParameter;
        for (const auto& c : related) {
            graph.disconnect(c);
            op.broken.push_back(c);
        }
        return graph.removeElement(*op.dst.node, op.dst.path);
    }
    case ModifierOp::Kind::SetValue: {
        Slot* slot = op.dst.node->slot(op.dst.path);
        if (!slot)
            return ZStatus::kInvalidParameter;
        op.previous = *slot;
        return graph.setValue(*op.dst.node, op.dst.path, op.write);
    }
    }
    return ZStatus::kFailure;
}

ZStatus reverse(ModifierOp& op) {
    Graph& graph = Graph::instance();
    switch (op.kind) {
    case ModifierOp::Kind::Create:
        return graph.detach(*op.node, nullptr, nullptr, nullptr);
    case ModifierOp::Kind::Delete:
        for (auto it = op.detached.rbegin(); it != op.detached.rend(); ++it) {
            Node& node = **it;
            if (ZStatus status = graph.attach(node, node.name); !status)
                return status;
            if (node.dagParent)
                node.dagParent->dagChildren.push_back(&node);
        }
        return reconnect(op.broken);
    case ModifierOp::Kind::Rename:
        return graph.rename(*op.node, op.previousName);
    case ModifierOp::Kind::Connect:
        return graph.disconnect(op.src, op.dst);
    case ModifierOp::Kind::Disconnect:
        return graph.connect(op.src, op.dst);
    case ModifierOp::Kind::AddAttribute:
        return graph.removeDynamicAttribute(*op.node, op.attribute.get());
    case ModifierOp::Kind::RemoveAttribute: {
        ZStatus status = graph.addDynamicAttribute(*op.node, op.attribute);
        Path path;
        if (status && op.node->pathTo(op.attribute.get(), path))
            status = graph.setValue(*op.node, path, restoring(op.previous));
        return status ? reconnect(op.broken) : status;
    }
    case ModifierOp::Kind::RemoveElement: {
        ZStatus status = graph.setValue(*op.dst.node, op.dst.path, restoring(op.previous));
        return status ? reconnect(op.broken) : status;
    }
    case ModifierOp::Kind::SetValue:
        return graph.setValue(*op.dst.node, op.dst.path, restoring(op.previous));
    }
    return ZStatus::kFailure;
}

bool usablePlug(const ZPlug& plug, PlugRef& ref) {
    const PlugRef* found = PlugAccess::get(plug);
    if (!found || !found->valid() || !isFullySpecified(found->path))
        return false;
    ref = *found;
    return true;
}

} // namespace

} // namespace oz

using oz::ModifierOp;
using oz::PlugRef;

ZDGModifier::ZDGModifier()
    : m_state(std::make_unique<oz::ModifierState>()) {}

ZDGModifier::~ZDGModifier() {
    // Nodes this modifier left out of the graph (deleted, or created and
    // undone or never applied) end with it.
    oz::Graph& graph = oz::Graph::instance();
    for (std::size_t i = 0; i < m_state->ops.size(); ++i) {
        ModifierOp& op = m_state->ops[i];
        const bool applied = i < m_state->applied;
        if (op.kind == ModifierOp::Kind::Delete && applied) {
            for (const auto& node : op.detached)
                if (node->state == oz::Node::State::Deleted)
                    graph.finalise(*node);
        } else if (op.kind == ModifierOp::Kind::Create && !applied &&
                   op.node->state != oz::Node::State::Live) {
            graph.finalise(*op.node);
        }
    }
}

ZObject ZDGModifier::createNode(const ZTypeId& typeId, ZStatus* status) {
    auto type = oz::NodeTypeRegistry::instance().find(typeId);
    std::shared_ptr<oz::Node> node;
    ZStatus result = type ? oz::Graph::instance().instantiate(type, node) : ZStatus(ZStatus::kNotFound);
    oz::setStatus(status, result);
    if (!result)
        return ZObject();
    ModifierOp op(ModifierOp::Kind::Create);
    op.node = node;
    m_state->ops.push_back(std::move(op));
    return oz::wrapNode(*node);
}

ZObject ZDGModifier::createNode(const ZString& typeName, ZStatus* status) {
    auto type = oz::NodeTypeRegistry::instance().find(typeName);
    if (!type) {
        oz::setStatus(status, ZStatus::kNotFound);
        return ZObject();
    }
    return createNode(type->id, status);
}

ZStatus ZDGModifier::deleteNode(const ZObject& node) {
    oz::Node* n = oz::nodeOf(node);
    if (!n || !n->usable())
        return ZStatus::kInvalidParameter;
    ModifierOp op(ModifierOp::Kind::Delete);
    op.node = oz::PlugAccess::sharedNode(*n);
    m_state->ops.push_back(std::move(op));
    return ZStatus::kSuccess;
}

ZStatus ZDGModifier::renameNode(const ZObject& node, const ZString& newName) {
    oz::Node* n = oz::nodeOf(node);
    if (!n || !n->usable() || !oz::isValidName(newName))
        return ZStatus::kInvalidParameter;
    ModifierOp op(ModifierOp::Kind::Rename);
    op.node = oz::PlugAccess::sharedNode(*n);
    op.name = newName;
    m_state->ops.push_back(std::move(op));
    return ZStatus::kSuccess;
}

ZStatus ZDGModifier::connect(const ZPlug& source, const ZPlug& destination) {
    PlugRef src, dst;
    if (!oz::usablePlug(source, src) || !oz::usablePlug(destination, dst))
        return ZStatus::kInvalidParameter;
    ZString reason;
    if (ZStatus status = oz::Graph::instance().canConnect(src, dst, &reason, false); !status) {
        oz::reportError(ZString("connection not made: ") + reason);
        return status;
    }
    // The destination must be free once the edits queued before this one are done.
    bool taken = false;
    for (const auto& c : dst.node->incoming)
        if (oz::related(c->dst, dst.path))
            taken = true;
    for (const ModifierOp& op : m_state->ops) {
        if (!oz::sameNode(op.dst, dst) || !oz::related(op.dst.path, dst.path))
            continue;
        if (op.kind == ModifierOp::Kind::Connect)
            taken = true;
        else if (op.kind == ModifierOp::Kind::Disconnect)
            taken = false;
    }
    if (taken) {
        oz::reportError(ZString("connection not made: '") + dst.node->name + "." +
                        oz::pathName(dst.path, true, false) + "' already has an incoming connection");
        return ZStatus::kInvalidParameter;
    }
    ModifierOp op(ModifierOp::Kind::Connect);
    op.src = std::move(src);
    op.dst = std::move(dst);
    m_state->ops.push_back(std::move(op));
    return ZStatus::kSuccess;
}

ZStatus ZDGModifier::connect(const ZObject& sourceNode, const ZObject& sourceAttribute,
                             const ZObject& destinationNode, const ZObject& destinationAttribute) {
    return connect(ZPlug(sourceNode, sourceAttribute), ZPlug(destinationNode, destinationAttribute));
}

ZStatus ZDGModifier::disconnect(const ZPlug& source, const ZPlug& destination) {
    PlugRef src, dst;
    if (!oz::usablePlug(source, src) || !oz::usablePlug(destination, dst))
        return ZStatus::kInvalidParameter;
    ModifierOp op(ModifierOp::Kind::Disconnect);
    op.src = std::move(src);
    op.dst = std::move(dst);
    m_state->ops.push_back(std::move(op));
    return ZStatus::kSuccess;
}

ZStatus ZDGModifier::disconnect(const ZObject& sourceNode, const ZObject& sourceAttribute,
                                const ZObject& destinationNode, const ZObject& destinationAttribute) {
    return disconnect(ZPlug(sourceNode, sourceAttribute), ZPlug(destinationNode, destinationAttribute));
}

ZStatus ZDGModifier::addAttribute(const ZObject& node, const ZObject& attribute) {
    oz::Node* n = oz::nodeOf(node);
    auto a = oz::sharedAttributeOf(attribute);
    if (!n || !n->usable() || !a || a->parent || a->attachedToNode)
        return ZStatus::kInvalidParameter;
    ModifierOp op(ModifierOp::Kind::AddAttribute);
    op.node = oz::PlugAccess::sharedNode(*n);
    op.attribute = std::move(a);
    m_state->ops.push_back(std::move(op));
    return ZStatus::kSuccess;
}

ZStatus ZDGModifier::removeAttribute(const ZObject& node, const ZObject& attribute) {
    oz::Node* n = oz::nodeOf(node);
    auto a = oz::sharedAttributeOf(attribute);
    if (!n || !n->usable() || !a || !a->dynamic || a->parent)
        return ZStatus::kInvalidParameter;
    ModifierOp op(ModifierOp::Kind::RemoveAttribute);
    op.node = oz::PlugAccess::sharedNode(*n);
    op.attribute = std::move(a);
    m_state->ops.push_back(std::move(op));
    return ZStatus::kSuccess;
}

ZStatus ZDGModifier::removeMultiInstance(const ZPlug& element, bool breakConnections) {
    PlugRef ref;
    if (!oz::usablePlug(element, ref) || !oz::isElementPath(ref.path))
        return ZStatus::kInvalidParameter;
    ModifierOp op(ModifierOp::Kind::RemoveElement);
    op.dst = std::move(ref);
    op.breakConnections = breakConnections;
    m_state->ops.push_back(std::move(op));
    return ZStatus::kSuccess;
}

namespace {

ZStatus queueValue(oz::ModifierState& state, const ZPlug& plug, oz::Writer write) {
    PlugRef ref;
    if (!oz::usablePlug(plug, ref))
        return ZStatus::kInvalidParameter;
    ModifierOp op(ModifierOp::Kind::SetValue);
    op.dst = std::move(ref);
    op.write = std::move(write);
    state.ops.push_back(std::move(op));
    return ZStatus::kSuccess;
}

ZStatus queueNumber(oz::ModifierState& state, const ZPlug& plug, double value) {
    return queueValue(state, plug, [value](oz::Slot& slot, const oz::Attribute& attribute) {
        return oz::writeNumber(slot, attribute, value, true);
    });
}

} // namespace

ZStatus ZDGModifier::newPlugValue(const ZPlug& plug, const ZObject& value) {
    return queueValue(*m_state, plug, [value](oz::Slot& slot, const oz::Attribute& attribute) {
        return oz::writeObject(slot, attribute, value);
    });
}

ZStatus ZDGModifier::newPlugValueBool(const ZPlug& plug, bool value) {
    return queueNumber(*m_state, plug, value);
}
ZStatus ZDGModifier::newPlugValueShort(const ZPlug& plug, short value) {
    return queueNumber(*m_state, plug, value);
}
ZStatus ZDGModifier::newPlugValueInt(const ZPlug& plug, int value) {
    return queueNumber(*m_state, plug, value);
}
ZStatus ZDGModifier::newPlugValueFloat(const ZPlug& plug, float value) {
    return queueNumber(*m_state, plug, value);
}
ZStatus ZDGModifier::newPlugValueDouble(const ZPlug& plug, double value) {
    return queueNumber(*m_state, plug, value);
}
ZStatus ZDGModifier::newPlugValueTime(const ZPlug& plug, const ZTime& value) {
    return queueNumber(*m_state, plug, value.as(ZTime::uiUnit()));
}
ZStatus ZDGModifier::newPlugValueDistance(const ZPlug& plug, const ZDistance& value) {
    return queueNumber(*m_state, plug, value.as(ZDistance::kCentimeters));
}
ZStatus ZDGModifier::newPlugValueAngle(const ZPlug& plug, const ZAngle& value) {
    return queueNumber(*m_state, plug, value.as(ZAngle::kRadians));
}

ZStatus ZDGModifier::newPlugValueString(const ZPlug& plug, const ZString& value) {
    return queueValue(*m_state, plug, [value](oz::Slot& slot, const oz::Attribute& attribute) {
        return oz::writeString(slot, attribute, value);
    });
}

ZStatus ZDGModifier::doIt() {
    const std::size_t start = m_state->applied;
    for (std::size_t i = start; i < m_state->ops.size(); ++i) {
        ZStatus status = oz::apply(m_state->ops[i], *this);
        if (!status) {
            for (std::size_t j = i; j-- > start;)
                oz::reverse(m_state->ops[j]);
            m_state->applied = start;
            return status;
        }
        m_state->applied = i + 1;
    }
    return ZStatus::kSuccess;
}

ZStatus ZDGModifier::undoIt() {
    ZStatus result;
    for (std::size_t i = m_state->applied; i-- > 0;) {
        if (ZStatus status = oz::reverse(m_state->ops[i]); !status)
            result = status;
        m_state->applied = i;
    }
    return result;
}
