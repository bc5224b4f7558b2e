#include "builtins/ResultValue.h"
#include "commands/BuiltinCommand.h"
#include "commands/ParsedCommand.h"
#include "data/MeshData.h"
#include "graph/PlugRef.h"
#include "mesh/MeshShells.h"
#include "nodes/DagHierarchy.h"
#include "scene/CommandMessages.h"
#include "scene/SceneLookup.h"

#include <OpenZyvo/ZArgDatabase.h>
#include <OpenZyvo/ZStringArray.h>

namespace oz::builtins {

using namespace scene;
namespace {

constexpr const char* kName = "polyEvaluate";

// The mesh a shape puts out: of the node itself, or of the first child of
// a transform that has one.
std::shared_ptr<const MeshData> meshOf(Node& node) {
    if (const Attribute* out = node.findAttribute("outMesh")) {
        const ZObject value = PlugAccess::make(node, out).asZObject();
        return ObjectAccess::shared<MeshData>(value);
    }
    if (nodes::isTransform(node))
        for (Node* child : node.dagChildren)
            if (nodes::isShape(*child))
                if (auto mesh = meshOf(*child))
                    return mesh;
    return nullptr;
}

// polyEvaluate [-v] [-e] [-f] [-t] [-s] <mesh or its transform>: counts of
// vertices, edges, faces, triangles and shells (connected pieces) of the
// mesh, one int for one flag, an int array (in that order) for several.
class PolyEvaluateCommand : public cmd::ParsedCommand {
public:
    static ZSyntax newSyntax() {
        ZSyntax syntax;
        syntax.addFlag("-v", "-vertex");
        syntax.addFlag("-e", "-edge");
        syntax.addFlag("-f", "-face");
        syntax.addFlag("-t", "-triangle");
        syntax.addFlag("-s", "-shell");
        syntax.setObjectType(ZSyntax::kStringObjects, 0, 1);
        return syntax;
    }

    ZStatus run(const ZArgDatabase& database, const ZStringArray& objects) override {
        Node* node = nullptr;
        if (objects.length() == 1) {
            node = findNode(objects[0].view());
            if (!node) {
                reportError(kName, noObjectMatches(objects[0].asStdString()));
                return ZStatus::kNotFound;
            }
        } else if (const auto selected = selectedNodes(); !selected.empty()) {
            node = selected.front();
        } else {
            reportError(kName, "name a mesh or select one");
            return ZStatus::kInvalidParameter;
        }
        const auto data = meshOf(*node);
        if (!data) {
            reportError(kName, quoted(node->name.asStdString()) + " has no mesh");
            return ZStatus::kInvalidParameter;
        }
        const mesh::Mesh& mesh = data->mesh;
        std::vector<int> counts;
        if (database.isFlagSet("-vertex"))
            counts.push_back(mesh.vertexCount());
        if (database.isFlagSet("-edge"))
            counts.push_back(mesh.edgeCount());
        if (database.isFlagSet("-face"))
            counts.push_back(mesh.faceCount());
        if (database.isFlagSet("-triangle"))
            counts.push_back(static_cast<int>(mesh.triangulation()->triangles.size()));
        if (database.isFlagSet("-shell"))
            counts.push_back(mesh::countShells(mesh));
        if (counts.empty()) {
            reportError(kName, "ask for -vertex, -edge, -face, -triangle or -shell");
            return ZStatus::kInvalidParameter;
        }
        if (counts.size() == 1)
            setResultValue(counts.front());
        else
            setResultValue(std::move(counts));
        return ZStatus::kSuccess;
    }
};

const cmd::BuiltinCommand registration(
    kName, [] { return std::make_unique<PolyEvaluateCommand>(); }, PolyEvaluateCommand::newSyntax);

} // namespace
} // namespace oz::builtins
