#include "graph/NodeTypeRegistry.h"

#include "core/EvaluationScope.h"
#include "graph/Graph.h"
#include "graph/Names.h"

#include <OpenZyvo/ZFnMessageAttribute.h>
#include <algorithm>

namespace oz {

namespace {

const char* const kBaseTypeName = "node";

ZFn::Type pluginApiType(ZPxNode::Type kind) {
    switch (kind) {
    case ZPxNode::kLocatorNode:
        return ZFn::kPluginLocatorNode;
    case ZPxNode::kDeformerNode:
        return ZFn::kPluginDeformerNode;
    case ZPxNode::kManipContainer:
        return ZFn::kPluginManipContainer;
    case ZPxNode::kSurfaceShape:
        return ZFn::kShape;
    case ZPxNode::kTransformNode:
        return ZFn::kTransform;
    default:
        return ZFn::kPluginDependNode;
    }
}

bool isDagKind(ZPxNode::Type kind) {
    return kind == ZPxNode::kLocatorNode || kind == ZPxNode::kManipContainer ||
           kind == ZPxNode::kSurfaceShape || kind == ZPxNode::kTransformNode;
}

void explain(ZString* error, const ZString& text) {
    if (error)
        *error = text;
}

// The attributes every node has.
void initializeBaseType(NodeType& base) {
    ZFnMessageAttribute fn;
    ZObject message = fn.create("message", "msg");
    fn.setHidden(true);
    base.addRoot(sharedAttributeOf(message));
}

} // namespace

NodeTypeRegistry& NodeTypeRegistry::instance() {
    static NodeTypeRegistry registry;
    return registry;
}

NodeTypeRegistry::NodeTypeRegistry() {
    auto base = std::make_shared<NodeType>();
    base->name = kBaseTypeName;
    base->id = ZTypeId(0x4e4f4445u);
    base->abstract = true;
    base->apiType = ZFn::kDependencyNode;
    initializeBaseType(*base);
    m_types.push_back(std::move(base));
}

ZStatus NodeTypeRegistry::registerType(NodeTypeInfo info, ZString* error) {
    if (m_initialising) {
        explain(error, "node types cannot be registered from an initialiser");
        return ZStatus::kFailure;
    }
    if (!isValidName(info.name)) {
        explain(error, ZString("invalid node type name '") + info.name + "'");
        return ZStatus::kInvalidParameter;
    }
    if (find(info.name)) {
        explain(error, ZString("node type '") + info.name + "' is already registered");
        return ZStatus::kInvalidParameter;
    }
    if (find(info.id)) {
        explain(error, ZString("the id of node type '") + info.name + "' is already used by '" +
                           find(info.id)->name + "'");
        return ZStatus::kInvalidParameter;
    }
    if (!info.creator && !info.abstract) {
        explain(error, ZString("node type '") + info.name + "' has no creator");
        return ZStatus::kInvalidParameter;
    }

    auto type = std::make_shared<NodeType>();
    type->name = info.name;
    type->id = info.id;
    type->kind = info.kind;
    type->apiType = info.apiType == ZFn::kInvalid ? pluginApiType(info.kind) : info.apiType;
    type->fnTypes = info.fnTypes;
    if (info.kind == ZPxNode::kDeformerNode)
        type->fnTypes.push_back(ZFn::kGeometryFilter);
    type->dag = isDagKind(info.kind) ||
                std::find(info.fnTypes.begin(), info.fnTypes.end(), ZFn::kDagNode) != info.fnTypes.end();
    type->abstract = info.abstract;
    type->creator = std::move(info.creator);
    type->classification = info.classification;
    type->pluginName = info.pluginName;

    std::vector<ZString> parents{kBaseTypeName};
    for (const auto& [kind, baseName] : m_kindBases)
        if (kind == info.kind && baseName != info.name)
            parents.push_back(baseName);
    if (!info.parentTypeName.isEmpty())
        parents.push_back(info.parentTypeName);
    for (const ZString& parentName : parents) {
        auto parent = find(parentName);
        if (!parent) {
            explain(error,
                    ZString("node type '") + info.name + "' derives from unknown type '" + parentName + "'");
            return ZStatus::kNotFound;
        }
        if (!type->inherit(*parent)) {
            explain(error, ZString("attribute names of node type '") + info.name + "' clash with those of '" +
                               parentName + "'");
            return ZStatus::kInvalidParameter;
        }
    }

    if (info.initializer) {
        m_initialising = type.get();
        ZStatus status = info.initializer();
        m_initialising = nullptr;
        if (!status) {
            explain(error, ZString("the initialiser of node type '") + info.name +
                               "' failed: " + status.errorString());
            return status;
        }
    }
    m_types.push_back(std::move(type));
    return ZStatus::kSuccess;
}

ZStatus NodeTypeRegistry::deregisterType(const ZTypeId& id, ZString* error) {
    if (const ZStatus refused = refuseDuringEvaluation("deregister node types"); !refused) {
        explain(error, "an evaluation is under way");
        return refused;
    }
    auto type = find(id);
    if (!type) {
        explain(error, ZString("no node type has id ") + ZString(std::to_string(id.id())));
        return ZStatus::kNotFound;
    }
    if (type->name == kBaseTypeName) {
        explain(error, "the base node type cannot be deregistered");
        return ZStatus::kInvalidParameter;
    }
    if (type->liveInstances > 0) {
        explain(error, ZString("cannot deregister node type '") + type->name +
                           "': " + ZString(std::to_string(type->liveInstances)) + " node(s) of it exist");
        return ZStatus::kFailure;
    }
    // Deleted nodes kept for undo run code of the type's owner; end them now.
    Graph::instance().finaliseDetached(*type);
    m_types.erase(std::find(m_types.begin(), m_types.end(), type));
    return ZStatus::kSuccess;
}

ZStatus NodeTypeRegistry::deregisterType(const ZString& name, ZString* error) {
    auto type = find(name);
    if (!type) {
        explain(error, ZString("no node type is called '") + name + "'");
        return ZStatus::kNotFound;
    }
    return deregisterType(type->id, error);
}

std::shared_ptr<NodeType> NodeTypeRegistry::find(const ZString& name) const {
    for (const auto& type : m_types)
        if (type->name == name)
            return type;
    return nullptr;
}

std::shared_ptr<NodeType> NodeTypeRegistry::find(const ZTypeId& id) const {
    for (const auto& type : m_types)
        if (type->id == id)
            return type;
    return nullptr;
}

std::vector<std::shared_ptr<NodeType>> NodeTypeRegistry::types() const {
    return m_types;
}

void NodeTypeRegistry::setKindBase(ZPxNode::Type kind, const ZString& baseTypeName) {
    for (auto& entry : m_kindBases)
        if (entry.first == kind) {
            entry.second = baseTypeName;
            return;
        }
    m_kindBases.emplace_back(kind, baseTypeName);
}

ZStatus NodeTypeRegistry::declareTimeDriven(const ZObject& attribute) {
    NodeType* type = instance().m_initialising;
    const Attribute* a = attributeOf(attribute);
    if (!type || !a || !type->hasAttribute(a))
        return ZStatus::kInvalidParameter;
    if (std::find(type->timeDriven.begin(), type->timeDriven.end(), a) == type->timeDriven.end())
        type->timeDriven.push_back(a);
    return ZStatus::kSuccess;
}

} // namespace oz
