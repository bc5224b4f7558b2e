#include "builtins/ResultValue.h"
#include "commands/BuiltinCommand.h"
#include "commands/ParsedCommand.h"
#include "graph/Node.h"
#include "graph/NodeTypeRegistry.h"
#include "scene/AttributeTypeNames.h"
#include "scene/CommandMessages.h"
#include "scene/SceneLookup.h"
#include "scene/UnitConversion.h"

#include <OpenZyvo/ZArgDatabase.h>
#include <OpenZyvo/ZStringArray.h>
#include <algorithm>
#include <cctype>
#include <functional>
#include <optional>

namespace oz::builtins {

using namespace scene;
namespace {

constexpr const char* kName = "attributeQuery";

using Answer = std::function<std::optional<cmd::Value>(const Attribute&)>;

std::vector<std::string> namesOf(const std::vector<const Attribute*>& attributes) {
    std::vector<std::string> names;
    for (const Attribute* a : attributes)
        names.push_back(a->longName.asStdString());
    return names;
}

// The numbers of a range or a default, in the user's units: a leaf's own,
// a compound's as its children's in order. Empty when some leaf has none.
std::vector<double> numbersOf(const Attribute& attribute,
                              const std::function<const double*(const Attribute&)>& stored) {
    std::vector<double> out;
    if (const double* own = stored(attribute); own && attribute.children.empty()) {
        for (unsigned int i = 0; i < std::max(1u, attribute.componentCount()); ++i)
            out.push_back(toUiUnits(attribute, own[i]));
        return out;
    }
    for (const auto& child : attribute.children) {
        const std::vector<double> numbers = numbersOf(*child, stored);
        if (numbers.empty())
            return {};
        out.insert(out.end(), numbers.begin(), numbers.end());
    }
    return out;
}

std::vector<double> rangeOf(const Attribute& attribute, Attribute::Range Attribute::*bound) {
    return numbersOf(attribute, [bound](const Attribute& a) {
        return (a.*bound).set ? (a.*bound).value.data() : nullptr;
    });
}

std::vector<double> defaultOf(const Attribute& attribute) {
    return numbersOf(attribute,
                     [](const Attribute& a) { return a.isNumberLike() ? a.defaultValue.data() : nullptr; });
}

// "Off:On", with "=value" where a field does not follow its predecessor.
std::string enumText(const Attribute& attribute) {
    std::string text;
    int expected = 0;
    for (const auto& [name, value] : attribute.fields) {
        if (!text.empty())
            text += ':';
        text += name.asStdString();
        if (value != expected)
            text += "=" + std::to_string(value);
        expected = value + 1;
    }
    return text;
}

// "translateX" as a label: "Translate X".
std::string niceName(const std::string& name) {
    std::string text;
    for (std::size_t i = 0; i < name.size(); ++i) {
        const unsigned char c = static_cast<unsigned char>(name[i]);
        const unsigned char before = i ? static_cast<unsigned char>(name[i - 1]) : 0;
        if (i && ((std::isupper(c) && !std::isupper(before)) || (std::isdigit(c) && std::isalpha(before))))
            text += ' ';
        text += static_cast<char>(i ? c : std::toupper(c));
    }
    return text;
}

struct Query {
    const char* shortFlag;
    const char* longFlag;
    Answer answer;
};

std::optional<cmd::Value> flag(bool value) {
    return cmd::Value(value);
}

// A range or default, or nothing when the attribute has none.
std::optional<cmd::Value> numbers(std::vector<double> values) {
    if (values.empty())
        return std::nullopt;
    return cmd::Value(std::move(values));
}

const std::vector<Query>& queries() {
    using A = const Attribute&;
    static const std::vector<Query> table = {
        {"-at", "-attributeType",
         [](A a) {
             return cmd::Value(a.kind == Attribute::Kind::Typed ? std::string("typed")
                                                                : attributeTypeName(a));
         }},
        {"-min", "-minimum",
         [](A a) {
             return numbers(rangeOf(a, &Attribute::min));
         }},
        {"-max", "-maximum",
         [](A a) {
             return numbers(rangeOf(a, &Attribute::max));
         }},
        {"-smn", "-softMinimum",
         [](A a) {
             return numbers(rangeOf(a, &Attribute::softMin));
         }},
        {"-smx", "-softMaximum",
         [](A a) {
             return numbers(rangeOf(a, &Attribute::softMax));
         }},
        {"-mne", "-minExists",
         [](A a) {
             return flag(!rangeOf(a, &Attribute::min).empty());
         }},
        {"-mxe", "-maxExists",
         [](A a) {
             return flag(!rangeOf(a, &Attribute::max).empty());
         }},
        {"-sme", "-softMinExists",
         [](A a) {
             return flag(!rangeOf(a, &Attribute::softMin).empty());
         }},
        {"-sxe", "-softMaxExists",
         [](A a) {
             return flag(!rangeOf(a, &Attribute::softMax).empty());
         }},
        {"-ld", "-listDefault",
         [](A a) {
             return numbers(defaultOf(a));
         }},
        {"-k", "-keyable",
         [](A a) {
             return flag(a.flags.keyable);
         }},
        {"-h", "-hidden",
         [](A a) {
             return flag(a.flags.hidden);
         }},
        {"-r", "-readable",
         [](A a) {
             return flag(a.flags.readable);
         }},
        {"-w", "-writable",
         [](A a) {
             return flag(a.flags.writable);
         }},
        {"-s", "-storable",
         [](A a) {
             return flag(a.flags.storable);
         }},
        {"-c", "-connectable",
         [](A a) {
             return flag(a.flags.connectable);
         }},
        {"-m", "-multi",
         [](A a) {
             return flag(a.flags.array);
         }},
        {"-uac", "-usedAsColor",
         [](A a) {
             return flag(a.flags.usedAsColor);
         }},
        {"-e", "-enum",
         [](A a) {
             return flag(a.kind == Attribute::Kind::Enum);
         }},
        {"-le", "-listEnum",
         [](A a) -> std::optional<cmd::Value> {
             if (a.kind != Attribute::Kind::Enum)
                 return std::nullopt;
             return cmd::Value(std::vector<std::string>{enumText(a)});
         }},
        {"-lc", "-listChildren",
         [](A a) {
             std::vector<const Attribute*> children;
             for (const auto& child : a.children)
                 children.push_back(child.get());
             return cmd::Value(namesOf(children));
         }},
        {"-lp", "-listParent",
         [](A a) {
             return cmd::Value(a.parent ? namesOf({a.parent}) : std::vector<std::string>());
         }},
        {"-ls", "-listSiblings",
         [](A a) {
             std::vector<const Attribute*> siblings;
             if (a.parent)
                 for (const auto& sibling : a.parent->children)
                     if (sibling.get() != &a)
                         siblings.push_back(sibling.get());
             return cmd::Value(namesOf(siblings));
         }},
        {"-nc", "-numberOfChildren",
         [](A a) {
             return cmd::Value(static_cast<int>(a.children.size()));
         }},
        {"-sn", "-shortName",
         [](A a) {
             return cmd::Value(a.shortName.asStdString());
         }},
        {"-ln", "-longName",
         [](A a) {
             return cmd::Value(a.longName.asStdString());
         }},
        {"-nn", "-niceName",
         [](A a) {
             return cmd::Value(niceName(a.longName.asStdString()));
         }},
    };
    return table;
}

// What a missing answer means, for the error.
std::string missing(const char* longFlag) {
    const std::string query(longFlag + 1);
    if (query == "listEnum")
        return "is not an enum";
    if (query == "listDefault")
        return "has no numeric default";
    return "has no " + query + " set";
}

// attributeQuery (-node n | -type t) [query] <attribute>: what an attribute
// of a node, or a static attribute of a node type, is. The query is one of
// -exists, -attributeType, the range (-minimum, -maximum, -softMinimum,
// -softMaximum and their -...Exists), -listDefault, the properties
// (-keyable, -hidden, -readable, -writable, -storable, -connectable,
// -multi, -usedAsColor, -enum), -listEnum, the family (-listChildren,
// -listParent, -listSiblings, -numberOfChildren), the names (-shortName,
// -longName, -niceName) or -affects. Numbers are in the user's units.
class AttributeQueryCommand : public cmd::ParsedCommand {
public:
    static ZSyntax newSyntax() {
        ZSyntax syntax;
        syntax.addFlag("-n", "-node", ZSyntax::kString);
        syntax.addFlag("-typ", "-type", ZSyntax::kString);
        syntax.addFlag("-ex", "-exists");
        syntax.addFlag("-aff", "-affects");
        for (const Query& query : queries())
            syntax.addFlag(query.shortFlag, query.longFlag);
        syntax.setObjectType(ZSyntax::kStringObjects, 1, 1);
        return syntax;
    }

    ZStatus run(const ZArgDatabase& database, const ZStringArray& objects) override {
        // Only the attribute's own name counts: "translate.translateX[2]" is translateX.
        std::string name = objects[0].asStdString();
        name = name.substr(name.rfind('.') + 1);
        name = name.substr(0, name.find('['));

        std::vector<const char*> asked;
        for (const char* query : {"-exists", "-affects"})
            if (database.isFlagSet(query))
                asked.push_back(query);
        for (const Query& query : queries())
            if (database.isFlagSet(query.longFlag))
                asked.push_back(query.longFlag);
        if (asked.size() != 1) {
            reportError(kName, asked.empty() ? "give what to query, such as -exists or -attributeType"
                                             : "give one query at a time");
            return ZStatus::kInvalidParameter;
        }

        const bool byNode = database.isFlagSet("-node");
        if (byNode == database.isFlagSet("-type")) {
            reportError(kName, "give either -node or -type");
            return ZStatus::kInvalidParameter;
        }
        std::shared_ptr<NodeType> type;
        const Attribute* attribute = nullptr;
        std::string owner;
        if (byNode) {
            const ZString nodeName = database.flagArgumentString("-node", 0);
            Node* node = findNode(nodeName.view());
            if (!node) {
                reportError(kName, noObjectMatches(nodeName.asStdString()));
                return ZStatus::kNotFound;
            }
            type = node->type;
            attribute = node->findAttribute(ZString(name));
            owner = quoted(node->name.asStdString());
        } else {
            const ZString typeName = database.flagArgumentString("-type", 0);
            type = NodeTypeRegistry::instance().find(typeName);
            if (!type) {
                reportError(kName, "Unknown node type: " + typeName.asStdString());
                return ZStatus::kNotFound;
            }
            attribute = type->findAttribute(ZString(name));
            owner = "node type " + quoted(typeName.asStdString());
        }

        const std::string query(asked.front());
        if (query == "-exists") {
            setResultValue(attribute != nullptr);
            return ZStatus::kSuccess;
        }
        if (!attribute) {
            reportError(kName, owner + " has no attribute " + quoted(name));
            return ZStatus::kNotFound;
        }
        if (query == "-affects") {
            const auto found = type->affects.find(attribute);
            setResultValue(
                namesOf(found == type->affects.end() ? std::vector<const Attribute*>() : found->second));
            return ZStatus::kSuccess;
        }
        const auto entry = std::find_if(queries().begin(), queries().end(),
                                        [&](const Query& q) { return query == q.longFlag; });
        std::optional<cmd::Value> answer = entry->answer(*attribute);
        if (!answer) {
            reportError(kName, quoted(attribute->longName.asStdString()) + " " + missing(entry->longFlag));
            return ZStatus::kInvalidParameter;
        }
        setResultValue(std::move(*answer));
        return ZStatus::kSuccess;
    }
};

const cmd::BuiltinCommand registration(
    kName, [] { return std::make_unique<AttributeQueryCommand>(); }, AttributeQueryCommand::newSyntax);

} // namespace
} // namespace oz::builtins
