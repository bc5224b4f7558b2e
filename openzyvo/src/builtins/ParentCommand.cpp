#include "builtins/NamedNodes.h"
#include "builtins/ResultValue.h"
#include "commands/BuiltinCommand.h"
#include "commands/ParsedCommand.h"
#include "graph/PlugRef.h"
#include "nodes/DagHierarchy.h"
#include "nodes/TransformNode.h"
#include "scene/CommandMessages.h"
#include "scene/SceneLookup.h"

#include <OpenZyvo/ZArgDatabase.h>
#include <OpenZyvo/ZStringArray.h>
#include <OpenZyvo/ZTransformationMatrix.h>
#include <array>
#include <cmath>
#include <limits>
#include <memory>
#include <optional>

namespace oz::builtins {

using namespace scene;
namespace {

constexpr const char* kName = "parent";

using nodes::TransformNode;

// A transform's translate, rotate and scale, as the graph holds them
// (centimetres, radians).
using Placement = std::array<double, 9>;

const std::array<const ZObject*, 9>& placementAttributes() {
    static const std::array<const ZObject*, 9> attributes = {
        &TransformNode::translateX, &TransformNode::translateY, &TransformNode::translateZ,
        &TransformNode::rotateX,    &TransformNode::rotateY,    &TransformNode::rotateZ,
        &TransformNode::scaleX,     &TransformNode::scaleY,     &TransformNode::scaleZ};
    return attributes;
}

ZPlug placementPlug(Node& node, std::size_t index) {
    return PlugAccess::make(node, attributeOf(*placementAttributes()[index]));
}

Placement placementOf(Node& node) {
    Placement placement{};
    for (std::size_t i = 0; i < placement.size(); ++i)
        placement[i] = placementPlug(node, i).asDouble();
    return placement;
}

// The placement that puts a transform under `parent` (the top of the DAG
// when null) without moving it in the world. Shear the new parent would
// need is lost, as transforms here have none.
Placement placementKeepingWorld(Node& node, Node* parent) {
    const ZMatrix local =
        nodes::worldMatrixOf(node) * (parent ? nodes::worldMatrixOf(*parent).inverse() : ZMatrix());
    const ZTransformationMatrix decomposed(local);
    const auto order = static_cast<ZEulerRotation::RotationOrder>(
        PlugAccess::make(node, attributeOf(TransformNode::rotateOrder)).asShort());
    const ZVector translation = decomposed.getTranslation();
    const ZEulerRotation rotation = decomposed.rotation().asEulerRotation(order);
    double scale[3];
    decomposed.getScale(scale);
    return {translation.x, translation.y, translation.z, rotation.x, rotation.y,
            rotation.z,    scale[0],      scale[1],      scale[2]};
}

bool same(double a, double b) {
    return std::abs(a - b) <= 1e-9 * std::max(1.0, std::abs(a));
}

// Where a moved node sits on one side of the move: under a parent or at
// the top, and with which placement when the move changed it.
constexpr std::size_t kLast = std::numeric_limits<std::size_t>::max();

struct Side {
    std::weak_ptr<Node> parent;
    bool top = false;
    std::size_t index = 0;
    std::optional<Placement> placement;
};

// One node moved, held weakly so that an undo record never keeps a node
// alive.
struct Move {
    std::weak_ptr<Node> child;
    Side from, to;
};

std::weak_ptr<Node> weakly(Node* node) {
    return node ? PlugAccess::sharedNode(*node) : std::weak_ptr<Node>();
}

// parent [-w] [-r | -a] [-s] [children...] [parent]: moves DAG nodes under
// the transform named last (the last selected when no names are given), or
// to the top of the DAG with -world. By default (-absolute) a transform
// keeps its place in the world, its translate, rotate and scale changed to
// make up for the new parent; -relative keeps its values and so moves with
// the new parent. Shapes move only with -shape, and only under a transform.
// -addObject is refused: a node here has one parent. Returns the names of
// the children; a node already under the parent stays, with a warning.
class ParentCommand : public cmd::ParsedCommand {
public:
    static ZSyntax newSyntax() {
        ZSyntax syntax;
        syntax.addFlag("-w", "-world");
        syntax.addFlag("-r", "-relative");
        syntax.addFlag("-a", "-absolute");
        syntax.addFlag("-add", "-addObject");
        syntax.addFlag("-s", "-shape");
        syntax.setObjectType(ZSyntax::kStringObjects);
        return syntax;
    }

    ZStatus run(const ZArgDatabase& database, const ZStringArray& objects) override {
        if (database.isFlagSet("-addObject")) {
            reportError(kName, "-addObject would give a node a second parent; a node here has one parent");
            return ZStatus::kInvalidParameter;
        }
        if (database.isFlagSet("-relative") && database.isFlagSet("-absolute")) {
            reportError(kName, "give -relative or -absolute, not both");
            return ZStatus::kInvalidParameter;
        }
        std::vector<Node*> named;
        Node* parent = nullptr;
        if (!gather(objects, database.isFlagSet("-world"), named, parent))
            return ZStatus::kInvalidParameter;
        const bool keepWorld = !database.isFlagSet("-relative");
        const ZStatus planned = plan(named, parent, keepWorld, database.isFlagSet("-shape"));
        if (!planned)
            return planned;
        if (!redoIt())
            return ZStatus::kFailure;
        std::vector<std::string> names;
        for (Node* child : named)
            names.push_back(child->name.asStdString());
        setResultValue(std::move(names));
        return ZStatus::kSuccess;
    }

    ZStatus redoIt() override {
        for (const Move& move : m_moves)
            if (!apply(move, move.to))
                return ZStatus::kFailure;
        return ZStatus::kSuccess;
    }

    ZStatus undoIt() override {
        for (auto move = m_moves.rbegin(); move != m_moves.rend(); ++move)
            if (!apply(*move, move->from))
                return ZStatus::kFailure;
        return ZStatus::kSuccess;
    }

    bool isUndoable() const override { return !m_moves.empty(); }

private:
    // The children and the parent: the last object named, or selected, is
    // the parent unless the move is to the top.
    static bool gather(const ZStringArray& objects, bool toWorld, std::vector<Node*>& children,
                       Node*& parent) {
        const auto missingParent = [] {
            reportError(kName, "name the nodes to move and then their new parent, or give -world");
            return false;
        };
        ZStringArray childNames;
        for (unsigned int i = 0; i < objects.length(); ++i)
            if (toWorld || i + 1 < objects.length())
                childNames.append(objects[i]);
        if (!toWorld && objects.length() != 0) {
            if (objects.length() < 2)
                return missingParent();
            const ZString& parentName = objects[objects.length() - 1];
            parent = findNode(parentName.view());
            if (!parent) {
                reportError(kName, noObjectMatches(parentName.asStdString()));
                return false;
            }
        }
        if (!namedOrSelectedNodes(kName, childNames, children))
            return false;
        if (!toWorld && objects.length() == 0) {
            if (children.size() < 2)
                return missingParent();
            parent = children.back();
            children.pop_back();
        }
        if (parent && !nodes::isTransform(*parent)) {
            reportError(kName,
                        quoted(parent->name.asStdString()) + " is not a transform and cannot be a parent");
            return false;
        }
        return true;
    }

    // Checks every child before anything moves, so that a refused child
    // leaves the scene as it was.
    ZStatus plan(const std::vector<Node*>& children, Node* parent, bool keepWorld, bool shapes) {
        for (Node* child : children) {
            const std::string name = quoted(child->name.asStdString());
            if (!nodes::isDagNode(*child)) {
                reportError(kName, name + " is not a DAG node");
                return ZStatus::kInvalidParameter;
            }
            if (child == parent) {
                reportError(kName, name + " cannot be its own parent");
                return ZStatus::kInvalidParameter;
            }
            if (child->dagParent == parent) {
                reportWarning(kName,
                              name + (parent ? " is already a child of " + quoted(parent->name.asStdString())
                                             : std::string(" is already at the top of the DAG")));
                continue;
            }
            for (Node* above = parent; above; above = above->dagParent)
                if (above == child) {
                    reportError(kName, name + " is above " + quoted(parent->name.asStdString()) +
                                           " and cannot move under it");
                    return ZStatus::kInvalidParameter;
                }
            if (nodes::isShape(*child) && !shapes) {
                reportError(kName, name + " is a shape; give -shape to move it to another transform");
                return ZStatus::kInvalidParameter;
            }
            if (nodes::isShape(*child) && !parent) {
                reportError(kName, name + " is a shape and must stay under a transform");
                return ZStatus::kInvalidParameter;
            }
            Move move{weakly(child),
                      {weakly(child->dagParent), child->dagParent == nullptr, nodes::siblingIndex(*child),
                       std::nullopt},
                      {weakly(parent), parent == nullptr, kLast, std::nullopt}};
            if (keepWorld && nodes::isTransform(*child)) {
                move.from.placement = placementOf(*child);
                move.to.placement = placementKeepingWorld(*child, parent);
                if (!placeable(*child, *move.from.placement, *move.to.placement))
                    return ZStatus::kInvalidParameter;
            }
            m_moves.push_back(std::move(move));
        }
        return ZStatus::kSuccess;
    }

    // Values that must change to keep the node in place must be free to.
    static bool placeable(Node& child, const Placement& before, const Placement& after) {
        for (std::size_t i = 0; i < before.size(); ++i) {
            const ZPlug plug = placementPlug(child, i);
            if (!same(before[i], after[i]) && plug.isDestination()) {
                reportError(kName, quoted(child.name.asStdString()) +
                                       " cannot keep its place: " + quoted(plug.name().asStdString()) +
                                       " is connected; give -relative to keep its values");
                return false;
            }
        }
        return true;
    }

    static ZStatus apply(const Move& move, const Side& side) {
        const auto child = move.child.lock();
        const auto parent = side.parent.lock();
        if (!child || !child->usable() || (!side.top && (!parent || !parent->usable()))) {
            reportError(kName, "a node moved by this parenting no longer exists");
            return ZStatus::kFailure;
        }
        if (!nodes::reparent(*child, parent.get())) {
            reportError(kName, quoted(child->name.asStdString()) + " could not be moved");
            return ZStatus::kFailure;
        }
        nodes::moveAmongSiblings(*child, side.index);
        if (side.placement)
            for (std::size_t i = 0; i < side.placement->size(); ++i) {
                ZPlug plug = placementPlug(*child, i);
                if (!same(plug.asDouble(), (*side.placement)[i]))
                    plug.setValue((*side.placement)[i]);
            }
        return ZStatus::kSuccess;
    }

    std::vector<Move> m_moves;
};

const cmd::BuiltinCommand registration(
    kName, [] { return std::make_unique<ParentCommand>(); }, ParentCommand::newSyntax);

} // namespace
} // namespace oz::builtins
