#include "builtins/ResultValue.h"
#include "commands/BuiltinCommand.h"
#include "commands/ParsedCommand.h"
#include "graph/Node.h"
#include "graph/NodeTypeRegistry.h"
#include "scene/CommandMessages.h"
#include "scene/SceneLookup.h"

#include <OpenZyvo/ZArgDatabase.h>
#include <OpenZyvo/ZStringArray.h>

namespace oz::builtins {

using namespace scene;
namespace {

constexpr const char* kName = "nodeType";

// The name scripts know a node's API type by.
const char* apiTypeName(ZFn::Type type) {
    switch (type) {
    case ZFn::kDependencyNode:
        return "kDependencyNode";
    case ZFn::kDagNode:
        return "kDagNode";
    case ZFn::kTransform:
        return "kTransform";
    case ZFn::kShape:
        return "kShape";
    case ZFn::kMesh:
        return "kMesh";
    case ZFn::kTime:
        return "kTime";
    case ZFn::kAnimCurve:
        return "kAnimCurve";
    case ZFn::kAnimCurveTimeToDistance:
        return "kAnimCurveTimeToDistance";
    case ZFn::kAnimCurveTimeToAngular:
        return "kAnimCurveTimeToAngular";
    case ZFn::kAnimCurveTimeToUnitless:
        return "kAnimCurveTimeToUnitless";
    case ZFn::kAnimCurveTimeToTime:
        return "kAnimCurveTimeToTime";
    case ZFn::kGroupId:
        return "kGroupId";
    case ZFn::kShadingEngine:
        return "kShadingEngine";
    case ZFn::kSurfaceShader:
        return "kSurfaceShader";
    case ZFn::kGeometryFilter:
        return "kGeometryFilter";
    case ZFn::kPluginDependNode:
        return "kPluginDependNode";
    case ZFn::kPluginLocatorNode:
        return "kPluginLocatorNode";
    case ZFn::kPluginDeformerNode:
        return "kPluginDeformerNode";
    case ZFn::kPluginManipContainer:
        return "kPluginManipContainer";
    case ZFn::kManipulator:
        return "kManipulator";
    default:
        return "kInvalid";
    }
}

// nodeType [-inherited] [-apiType] [-isTypeName] <node>: the type of a node;
// with -inherited the types it derives from, the most basic first and its
// own last; with -apiType the name of its API type. With -isTypeName the
// argument is a type name instead of a node.
class NodeTypeCommand : public cmd::ParsedCommand {
public:
    static ZSyntax newSyntax() {
        ZSyntax syntax;
        syntax.addFlag("-i", "-inherited");
        syntax.addFlag("-api", "-apiType");
        syntax.addFlag("-itn", "-isTypeName");
        syntax.setObjectType(ZSyntax::kStringObjects, 1, 1);
        return syntax;
    }

    ZStatus run(const ZArgDatabase& database, const ZStringArray& objects) override {
        const std::string& name = objects[0].asStdString();

        std::shared_ptr<NodeType> type;
        if (database.isFlagSet("-isTypeName")) {
            type = NodeTypeRegistry::instance().find(objects[0]);
            if (!type) {
                reportError(kName, "Unknown node type: " + name);
                return ZStatus::kNotFound;
            }
        } else {
            Node* node = findNode(name);
            if (!node) {
                reportError(kName, noObjectMatches(name));
                return ZStatus::kNotFound;
            }
            type = node->type;
        }

        if (database.isFlagSet("-apiType")) {
            setResultValue(std::string(apiTypeName(type->apiType)));
        } else if (database.isFlagSet("-inherited")) {
            std::vector<std::string> names;
            for (const ZString& ancestor : type->lineage)
                names.push_back(ancestor.asStdString());
            names.push_back(type->name.asStdString());
            setResultValue(std::move(names));
        } else {
            setResultValue(type->name.asStdString());
        }
        return ZStatus::kSuccess;
    }
};

const cmd::BuiltinCommand registration(
    kName, [] { return std::make_unique<NodeTypeCommand>(); }, NodeTypeCommand::newSyntax);

} // namespace
} // namespace oz::builtins
