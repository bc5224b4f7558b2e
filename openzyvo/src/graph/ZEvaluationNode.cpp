#include "core/StatusOut.h"
#include "graph/BlockAccess.h"
#include "graph/PlugRef.h"

#include <OpenZyvo/ZEvaluationNode.h>
#include <OpenZyvo/ZPlug.h>
#include <OpenZyvo/ZPlugArray.h>

namespace {

// Whether the dirty plug at `path` is `attribute`, lies inside it, or
// contains it.
bool concerns(const oz::Path& path, const oz::Attribute* attribute) {
    for (const oz::PathEntry& step : path)
        if (step.attr == attribute)
            return true;
    return oz::leafAttribute(path)->isAncestorOf(attribute);
}

} // namespace

ZObject ZEvaluationNode::dependencyNode(ZStatus* status) const {
    oz::setStatus(status, m_node ? ZStatus::kSuccess : ZStatus::kInvalidParameter);
    return m_node ? oz::wrapNode(*m_node) : ZObject();
}

bool ZEvaluationNode::dirtyPlugExists(const ZObject& attribute, ZStatus* status) const {
    const oz::Attribute* a = oz::attributeOf(attribute);
    oz::setStatus(status, m_node && a ? ZStatus::kSuccess : ZStatus::kInvalidParameter);
    if (!m_node || !a)
        return false;
    for (const oz::Path& path : m_node->pending)
        if (concerns(path, a))
            return true;
    return false;
}

ZPlug ZEvaluationNode::dirtyPlug(const ZObject& attribute, ZStatus* status) const {
    const oz::Attribute* a = oz::attributeOf(attribute);
    if (m_node && a)
        for (const oz::Path& path : m_node->pending)
            if (concerns(path, a)) {
                oz::setStatus(status, ZStatus::kSuccess);
                return oz::PlugAccess::make(*m_node, path);
            }
    oz::setStatus(status, ZStatus::kNotFound);
    return ZPlug();
}

unsigned int ZEvaluationNode::dirtyPlugCount() const {
    return m_node ? static_cast<unsigned int>(m_node->pending.size()) : 0;
}

ZStatus ZEvaluationNode::dirtyPlugs(ZPlugArray& plugs) const {
    plugs.clear();
    if (!m_node)
        return ZStatus::kInvalidParameter;
    for (const oz::Path& path : m_node->pending)
        plugs.append(oz::PlugAccess::make(*m_node, path));
    return ZStatus::kSuccess;
}
