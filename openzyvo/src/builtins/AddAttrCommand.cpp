#include "commands/BuiltinCommand.h"
#include "commands/ParsedCommand.h"
#include "graph/Graph.h"
#include "graph/Names.h"
#include "graph/PlugRef.h"
#include "scene/AttributeDeclaration.h"
#include "scene/CommandMessages.h"
#include "scene/PendingCompounds.h"
#include "scene/SceneLookup.h"

#include <OpenZyvo/ZArgDatabase.h>
#include <OpenZyvo/ZDGModifier.h>
#include <OpenZyvo/ZStringArray.h>

namespace oz::builtins {

using namespace scene;
namespace {

constexpr const char* kName = "addAttr";

// addAttr -ln name [-sn short] (-at type | -dt type) [-dv default] [-min v]
//         [-max v] [-smn v] [-smx v] [-k bool] [-h bool] [-m] [-uac]
//         [-en "A:B:C"] [-nc children] [-p parent] [nodes...]
//
// Adds a dynamic attribute to the nodes (the selection when none are
// named). A compound ("compound" with -nc, or a tuple such as "double3")
// joins the node once all its children have been declared with -p.
class AddAttrCommand : public cmd::ParsedCommand {
public:
    static ZSyntax newSyntax() {
        ZSyntax syntax;
        syntax.addFlag("-ln", "-longName", ZSyntax::kString);
        syntax.addFlag("-sn", "-shortName", ZSyntax::kString);
        syntax.addFlag("-at", "-attributeType", ZSyntax::kString);
        syntax.addFlag("-dt", "-dataType", ZSyntax::kString);
        syntax.addFlag("-dv", "-defaultValue", ZSyntax::kDouble);
        syntax.addFlag("-min", "-minValue", ZSyntax::kDouble);
        syntax.addFlag("-max", "-maxValue", ZSyntax::kDouble);
        syntax.addFlag("-smn", "-softMinValue", ZSyntax::kDouble);
        syntax.addFlag("-smx", "-softMaxValue", ZSyntax::kDouble);
        syntax.addFlag("-k", "-keyable", ZSyntax::kBoolean);
        syntax.addFlag("-h", "-hidden", ZSyntax::kBoolean);
        syntax.addFlag("-m", "-multi");
        syntax.addFlag("-uac", "-usedAsColor");
        syntax.addFlag("-en", "-enumName", ZSyntax::kString);
        syntax.addFlag("-nc", "-numberOfChildren", ZSyntax::kUnsigned);
        syntax.addFlag("-p", "-parent", ZSyntax::kString);
        syntax.setObjectType(ZSyntax::kStringObjects);
        return syntax;
    }

    ZStatus run(const ZArgDatabase& database, const ZStringArray& objects) override {
        ZStatus status;
        const AttributeDeclaration declaration = declarationOf(database);
        std::vector<Node*> nodes;
        if (!targets(objects, nodes) || !valid(declaration))
            return ZStatus::kInvalidParameter;
        for (Node* node : nodes) {
            if (!addTo(*node, declaration)) {
                restore(true);
                return ZStatus::kInvalidParameter;
            }
        }
        if (!(status = m_modifier.doIt())) {
            restore(true);
            reportError(kName, "the attribute '" + declaration.longName +
                                   "' (or one of its children) has a name the node already uses");
            return status;
        }
        return ZStatus::kSuccess;
    }

    ZStatus undoIt() override {
        const ZStatus status = m_modifier.undoIt();
        restore(true);
        return status;
    }
    ZStatus redoIt() override {
        const ZStatus status = m_modifier.doIt();
        restore(false);
        return status;
    }
    bool isUndoable() const override { return true; }

private:
    struct Change {
        std::weak_ptr<Node> node;
        std::vector<PendingAttribute> before, after;
    };

    static AttributeDeclaration declarationOf(const ZArgDatabase& database) {
        AttributeDeclaration declaration;
        ZString text;
        auto string = [&](const char* flag, std::string& out) {
            if (database.getFlagArgument(flag, 0, text))
                out = text.asStdString();
        };
        auto number = [&](const char* flag, std::optional<double>& out) {
            double value = 0.0;
            if (database.getFlagArgument(flag, 0, value))
                out = value;
        };
        string("-longName", declaration.longName);
        string("-shortName", declaration.shortName);
        string("-attributeType", declaration.attributeType);
        string("-dataType", declaration.dataType);
        string("-enumName", declaration.enumNames);
        string("-parent", declaration.parent);
        number("-defaultValue", declaration.defaultValue);
        number("-minValue", declaration.minimum);
        number("-maxValue", declaration.maximum);
        number("-softMinValue", declaration.softMinimum);
        number("-softMaxValue", declaration.softMaximum);
        if (database.isFlagSet("-numberOfChildren"))
            declaration.childCount = database.flagArgumentInt("-numberOfChildren", 0);
        if (declaration.attributeType.empty() && declaration.dataType.empty())
            declaration.attributeType = "double";
        declaration.keyable = database.isFlagSet("-keyable") && database.flagArgumentBool("-keyable", 0);
        declaration.hidden = database.isFlagSet("-hidden") && database.flagArgumentBool("-hidden", 0);
        declaration.multi = database.isFlagSet("-multi");
        declaration.usedAsColor = database.isFlagSet("-usedAsColor");
        return declaration;
    }

    static bool targets(const ZStringArray& objects, std::vector<Node*>& nodes) {
        std::vector<std::string> names;
        for (unsigned int i = 0; i < objects.length(); ++i)
            names.push_back(objects[i].asStdString());
        if (names.empty())
            nodes = selectedNodes();
        else if (!resolveNodes(kName, names, nodes))
            return false;
        if (nodes.empty())
            reportError(kName, "name the nodes to add the attribute to, or select them");
        return !nodes.empty();
    }

    // What can be checked before the attribute is complete: its names and
    // its type (a complete one is made once on trial).
    static bool valid(const AttributeDeclaration& declaration) {
        std::string error;
        ZObject trial;
        if (declaration.longName.empty())
            error = "the attribute needs a long name (-longName)";
        else if (!isValidName(ZString(declaration.longName)) ||
                 (!declaration.shortName.empty() && !isValidName(ZString(declaration.shortName))))
            error = "\"" + declaration.longName + "\" is not a valid attribute name";
        else if (declaration.attributeType == "compound" && declaration.childCount.value_or(0) < 1)
            error = "a compound needs the number of its children (-numberOfChildren)";
        else if (childrenNeeded(declaration) == 0 && !buildAttribute(declaration, {}, trial, error))
            error = "'" + declaration.longName + "': " + error;
        if (!error.empty())
            reportError(kName, error);
        return error.empty();
    }

    bool addTo(Node& node, const AttributeDeclaration& declaration) {
        PendingCompounds& pending = PendingCompounds::instance();
        for (const std::string* name : {&declaration.longName, &declaration.shortName}) {
            if (name->empty())
                continue;
            if (node.findAttribute(ZString(*name)) || pending.declares(node, *name)) {
                reportError(kName, quoted(node.name.asStdString()) + " already has an attribute named " +
                                       quoted(*name));
                return false;
            }
        }
        Change change{PlugAccess::sharedNode(node), pending.openOn(node), {}};
        std::optional<PendingAttribute> complete;
        std::string error;
        if (!pending.declare(node, declaration, complete, error)) {
            reportError(kName, error);
            return false;
        }
        change.after = pending.openOn(node);
        m_changes.push_back(std::move(change));
        if (complete) {
            ZObject attribute;
            if (!buildPending(*complete, attribute, error)) {
                reportError(kName, error);
                return false;
            }
            m_modifier.addAttribute(wrapNode(node), attribute);
        }
        return true;
    }

    // Puts the open compounds back as they were before (or after) the command.
    void restore(bool before) {
        PendingCompounds& pending = PendingCompounds::instance();
        for (auto it = m_changes.rbegin(); it != m_changes.rend(); ++it)
            if (const auto node = it->node.lock())
                pending.setOpenOn(*node, before ? it->before : it->after);
    }

    ZDGModifier m_modifier;
    std::vector<Change> m_changes;
};

const cmd::BuiltinCommand registration(
    kName, [] { return std::make_unique<AddAttrCommand>(); }, AddAttrCommand::newSyntax);

} // namespace
} // namespace oz::builtins
