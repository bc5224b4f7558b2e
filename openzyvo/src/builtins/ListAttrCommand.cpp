#include "builtins/ArrayData.h"
#include "builtins/NamedNodes.h"
#include "builtins/ResultValue.h"
#include "commands/BuiltinCommand.h"
#include "commands/ParsedCommand.h"
#include "core/Wildcard.h"
#include "graph/PlugRef.h"
#include "scene/CommandMessages.h"
#include "scene/SceneLookup.h"

#include <OpenZyvo/ZArgDatabase.h>
#include <OpenZyvo/ZArgList.h>
#include <OpenZyvo/ZIntArray.h>
#include <OpenZyvo/ZStringArray.h>
#include <algorithm>

namespace oz::builtins {

using namespace scene;
namespace {

constexpr const char* kName = "listAttr";

struct Filter {
    bool keyable = false;
    bool readOnly = false;
    bool writable = false;
    bool arrayData = false;
    bool userDefined = false;
    bool visible = false;
    std::vector<std::string> patterns;

    bool keeps(const Attribute& a) const {
        if ((keyable && !a.flags.keyable) || (readOnly && (!a.flags.readable || a.flags.writable)) ||
            (writable && !a.flags.writable) || (arrayData && !holdsArrayData(a)) ||
            (userDefined && !a.dynamic) || (visible && a.flags.hidden))
            return false;
        return patterns.empty() || std::any_of(patterns.begin(), patterns.end(), [&](const std::string& p) {
                   return matchesWildcard(p, a.longName.view()) || matchesWildcard(p, a.shortName.view());
               });
    }
};

class Lister {
public:
    Lister(const Filter& filter, bool shortNames, bool elements)
        : m_filter(filter)
        , m_shortNames(shortNames)
        , m_elements(elements) {}

    // `attributes` in order: parents before their children.
    void list(Node& node, const std::vector<const Attribute*>& attributes) {
        for (const Attribute* attribute : attributes) {
            if (m_filter.keeps(*attribute))
                m_names.push_back(listed(*attribute));
            if (m_elements && attribute->flags.array && !attribute->hasArrayAncestor())
                listElements(node, *attribute);
        }
    }

    std::vector<std::string> take() { return std::move(m_names); }

private:
    std::string single(const Attribute& attribute) const {
        return (m_shortNames && !attribute.shortName.isEmpty() ? attribute.shortName : attribute.longName)
            .asStdString();
    }

    // The names from below `top` (from the top when null) down to `attribute`.
    std::string dotted(const Attribute& attribute, const Attribute* top) const {
        std::string text = single(attribute);
        for (const Attribute* a = attribute.parent; a && a != top; a = a->parent)
            text = single(*a) + "." + text;
        return text;
    }

    // An attribute below an array is named from the top, as it cannot be
    // found alone: "instObjGroups.objectGroups".
    std::string listed(const Attribute& attribute) const {
        return attribute.hasArrayAncestor() ? dotted(attribute, nullptr) : single(attribute);
    }

    // The elements the array holds now, each with the attributes below it.
    void listElements(Node& node, const Attribute& array) {
        ZIntArray indices;
        PlugAccess::make(node, &array).getExistingArrayAttributeIndices(indices);
        for (const int index : indices) {
            const std::string element = listed(array) + "[" + std::to_string(index) + "]";
            if (m_filter.keeps(array))
                m_names.push_back(element);
            for (const auto& child : array.children)
                child->visit([&](const Attribute* a) {
                    if (m_filter.keeps(*a))
                        m_names.push_back(element + "." + dotted(*a, &array));
                });
        }
    }

    const Filter& m_filter;
    bool m_shortNames;
    bool m_elements;
    std::vector<std::string> m_names;
};

// listAttr [-k] [-r] [-w] [-a] [-m] [-ud] [-v] [-st pattern]... [-sn]
// [nodes or node.attribute...]: the names of the attributes of the nodes
// named (the selected ones when none are), parents before their children, or
// of an attribute and those below it. The filters keep keyable, read-only,
// writable, array-data, user-defined (dynamic), visible attributes, or
// those whose name matches a pattern; -multi adds each element that an
// array attribute holds now ("instObjGroups[0]"); -shortNames gives short
// names.
class ListAttrCommand : public cmd::ParsedCommand {
public:
    static ZSyntax newSyntax() {
        ZSyntax syntax;
        syntax.addFlag("-k", "-keyable");
        syntax.addFlag("-r", "-readOnly");
        syntax.addFlag("-w", "-writable");
        syntax.addFlag("-a", "-array");
        syntax.addFlag("-m", "-multi");
        syntax.addFlag("-ud", "-userDefined");
        syntax.addFlag("-v", "-visible");
        syntax.addFlag("-st", "-string", ZSyntax::kString);
        syntax.makeFlagMultiUse("-string");
        syntax.addFlag("-sn", "-shortNames");
        syntax.setObjectType(ZSyntax::kStringObjects);
        return syntax;
    }

    ZStatus run(const ZArgDatabase& database, const ZStringArray& objects) override {
        Filter filter;
        filter.keyable = database.isFlagSet("-keyable");
        filter.readOnly = database.isFlagSet("-readOnly");
        filter.writable = database.isFlagSet("-writable");
        filter.arrayData = database.isFlagSet("-array");
        filter.userDefined = database.isFlagSet("-userDefined");
        filter.visible = database.isFlagSet("-visible");
        for (unsigned int use = 0; use < database.numberOfFlagUses("-string"); ++use) {
            ZArgList pattern;
            database.getFlagArgumentList("-string", use, pattern);
            filter.patterns.push_back(pattern.asString(0).asStdString());
        }
        Lister lister(filter, database.isFlagSet("-shortNames"), database.isFlagSet("-multi"));

        if (objects.length() == 0) {
            std::vector<Node*> selected;
            if (!namedOrSelectedNodes(kName, objects, selected))
                return ZStatus::kNotFound;
            for (Node* node : selected)
                lister.list(*node, node->allAttributes());
        }
        for (const ZString& object : objects)
            if (!listObject(object, lister))
                return ZStatus::kNotFound;
        setResultValue(lister.take());
        return ZStatus::kSuccess;
    }

private:
    // A node (name, path or pattern) or "node.attribute".
    static bool listObject(const ZString& object, Lister& lister) {
        if (object.view().find('.') == std::string_view::npos) {
            std::vector<Node*> nodes;
            if (!namedOrSelectedNodes(kName, ZStringArray({object}), nodes))
                return false;
            for (Node* node : nodes)
                lister.list(*node, node->allAttributes());
            return true;
        }
        ZPlug plug;
        std::string error;
        if (!findPlug(object.view(), plug, error)) {
            reportError(kName, error);
            return false;
        }
        const PlugRef& ref = *PlugAccess::get(plug);
        std::vector<const Attribute*> family;
        ref.leaf()->visit([&](const Attribute* a) { family.push_back(a); });
        lister.list(*ref.node, family);
        return true;
    }
};

const cmd::BuiltinCommand registration(
    kName, [] { return std::make_unique<ListAttrCommand>(); }, ListAttrCommand::newSyntax);

} // namespace
} // namespace oz::builtins
