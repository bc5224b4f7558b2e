#include "graph/Callbacks.h"
#include "graph/Graph.h"
#include "graph/Report.h"

#include <algorithm>

namespace oz {

namespace {

// Number of numbers a numeric value carries, through children or as a tuple.
unsigned int numericWidth(const Attribute& a) {
    if (!a.children.empty()) {
        for (const auto& child : a.children)
            if (!child->isNumberLike() || !child->children.empty() || child->flags.array)
                return 0;
        return static_cast<unsigned int>(a.children.size());
    }
    return a.componentCount();
}

bool compatible(const Attribute& src, const Attribute& dst) {
    using Kind = Attribute::Kind;
    if (src.kind == Kind::Message || dst.kind == Kind::Message)
        return src.kind == dst.kind;
    if (src.kind == Kind::Typed || dst.kind == Kind::Typed) {
        if (src.kind != dst.kind)
            return false;
        return src.dataType == dst.dataType || src.dataType == ZFnData::kAny || dst.dataType == ZFnData::kAny;
    }
    const unsigned int srcWidth = numericWidth(src), dstWidth = numericWidth(dst);
    if (srcWidth && dstWidth)
        return srcWidth == dstWidth;
    if (src.children.empty() || dst.children.empty() || src.children.size() != dst.children.size())
        return false;
    for (std::size_t i = 0; i < src.children.size(); ++i) {
        if (src.children[i]->flags.array != dst.children[i]->flags.array)
            return false;
        if (!compatible(*src.children[i], *dst.children[i]))
            return false;
    }
    return true;
}

void explain(ZString* reason, const ZString& text) {
    if (reason)
        *reason = text;
}

ZString plugText(const PlugRef& plug) {
    return plug.node->name + "." + pathName(plug.path, true, false);
}

} // namespace

ZStatus Graph::canConnect(const PlugRef& src, const PlugRef& dst, ZString* reason, bool checkExisting) const {
    if (!src.valid() || !dst.valid()) {
        explain(reason, "a plug of the connection is null or its node is gone");
        return ZStatus::kInvalidParameter;
    }
    if (!isFullySpecified(src.path) || !isFullySpecified(dst.path)) {
        explain(reason, "a plug of the connection has an array ancestor without an element index");
        return ZStatus::kInvalidParameter;
    }
    const Attribute& s = *src.leaf();
    const Attribute& d = *dst.leaf();
    if (src.node == dst.node && related(src.path, dst.path)) {
        explain(reason, ZString("cannot connect '") + plugText(src) + "' to itself");
        return ZStatus::kInvalidParameter;
    }
    if (!s.flags.readable || !s.flags.connectable) {
        explain(reason,
                ZString("'") + plugText(src) + "' cannot be a source (not readable or not connectable)");
        return ZStatus::kInvalidParameter;
    }
    if (!d.flags.writable || !d.flags.connectable) {
        explain(reason,
                ZString("'") + plugText(dst) + "' cannot be a destination (not writable or not connectable)");
        return ZStatus::kInvalidParameter;
    }
    if (isArrayPath(src.path) != isArrayPath(dst.path) || !compatible(s, d)) {
        explain(reason,
                ZString("the kinds of '") + plugText(src) + "' and '" + plugText(dst) + "' do not match");
        return ZStatus::kInvalidParameter;
    }
    for (const auto& c : dst.node->incoming)
        if (checkExisting && related(c->dst, dst.path)) {
            explain(reason, ZString("'") + plugText(dst) + "' already has an incoming connection from '" +
                                c->srcNode->name + "." + pathName(c->src, true, false) + "'");
            return ZStatus::kInvalidParameter;
        }
    return ZStatus::kSuccess;
}

ZStatus Graph::connect(const PlugRef& src, const PlugRef& dst) {
    ZString reason;
    ZStatus status = canConnect(src, dst, &reason);
    if (!status) {
        reportError(ZString("connection not made: ") + reason);
        return status;
    }
    auto c = std::make_shared<Connection>();
    c->srcNode = src.node.get();
    c->src = src.path;
    c->srcRoot = src.root;
    c->dstNode = dst.node.get();
    c->dst = dst.path;
    c->dstRoot = dst.root;
    src.node->outgoing.push_back(c);
    dst.node->incoming.push_back(c);
    src.node->slot(src.path);
    touch(true);
    dirty(*dst.node, dst.path, true);

    const ZPlug srcPlug = PlugAccess::make(src), dstPlug = PlugAccess::make(dst);
    if (src.node->user)
        src.node->user->connectionMade(srcPlug, dstPlug, true);
    if (dst.node->user)
        dst.node->user->connectionMade(dstPlug, srcPlug, false);
    Callbacks::instance().attributeChanged(*src.node, ZNodeMessage::kConnectionMade, srcPlug, dstPlug);
    Callbacks::instance().attributeChanged(
        *dst.node, ZNodeMessage::kConnectionMade | ZNodeMessage::kIncomingDirection, dstPlug, srcPlug);
    return ZStatus::kSuccess;
}

std::shared_ptr<Connection> Graph::findConnection(const PlugRef& src, const PlugRef& dst) const {
    if (!src.node || !dst.node)
        return nullptr;
    for (const auto& c : dst.node->incoming)
        if (c->srcNode == src.node.get() && c->src == src.path && c->dst == dst.path)
            return c;
    return nullptr;
}

ZStatus Graph::disconnect(const PlugRef& src, const PlugRef& dst) {
    auto c = findConnection(src, dst);
    if (!c)
        return ZStatus::kNotFound;
    return disconnect(c);
}

void Graph::breakConnection(const std::shared_ptr<Connection>& c) {
    auto& out = c->srcNode->outgoing;
    out.erase(std::remove(out.begin(), out.end(), c), out.end());
    auto& in = c->dstNode->incoming;
    in.erase(std::remove(in.begin(), in.end(), c), in.end());
}

ZStatus Graph::disconnect(const std::shared_ptr<Connection>& c) {
    auto& in = c->dstNode->incoming;
    if (std::find(in.begin(), in.end(), c) == in.end())
        return ZStatus::kNotFound;
    breakConnection(c);
    touch(true);
    Node& srcNode = *c->srcNode;
    Node& dstNode = *c->dstNode;
    dirty(dstNode, c->dst, true);

    const ZPlug srcPlug = PlugAccess::make(PlugRef{PlugAccess::sharedNode(srcNode), c->srcRoot, c->src});
    const ZPlug dstPlug = PlugAccess::make(PlugRef{PlugAccess::sharedNode(dstNode), c->dstRoot, c->dst});
    if (srcNode.user)
        srcNode.user->connectionBroken(srcPlug, dstPlug, true);
    if (dstNode.user)
        dstNode.user->connectionBroken(dstPlug, srcPlug, false);
    Callbacks::instance().attributeChanged(srcNode, ZNodeMessage::kConnectionBroken, srcPlug, dstPlug);
    Callbacks::instance().attributeChanged(
        dstNode, ZNodeMessage::kConnectionBroken | ZNodeMessage::kIncomingDirection, dstPlug, srcPlug);
    return ZStatus::kSuccess;
}

std::shared_ptr<Connection> Graph::driver(const Node& node, const Path& path) const {
    for (const auto& c : node.incoming)
        if (covers(c->dst, path))
            return c;
    return nullptr;
}

} // namespace oz
