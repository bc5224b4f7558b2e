#include "graph/PlugRef.h"

namespace oz {

bool PlugRef::valid() const {
    if (!node || !node->usable() || path.empty())
        return false;
    const unsigned int slot = path.front().slot;
    return slot < node->rootCount() && node->rootAttribute(slot).get() == path.front().attr;
}

ZPlug PlugAccess::make(PlugRef ref) {
    ZPlug plug;
    plug.m_ref = std::make_shared<const PlugRef>(std::move(ref));
    return plug;
}

std::shared_ptr<Node> PlugAccess::sharedNode(Node& node) {
    return std::static_pointer_cast<Node>(node.shared_from_this());
}

ZPlug PlugAccess::make(Node& node, Path path) {
    if (path.empty())
        return ZPlug();
    const unsigned int slot = path.front().slot;
    std::shared_ptr<Attribute> root = slot < node.rootCount() ? node.rootAttribute(slot) : nullptr;
    return make(PlugRef{sharedNode(node), std::move(root), std::move(path)});
}

ZPlug PlugAccess::make(Node& node, const Attribute* attribute) {
    Path path;
    if (!node.pathTo(attribute, path))
        return ZPlug();
    return make(node, std::move(path));
}

} // namespace oz
