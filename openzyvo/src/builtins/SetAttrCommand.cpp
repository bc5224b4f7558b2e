#include "builtins/PlugValues.h"
#include "commands/ArgListData.h"
#include "commands/BuiltinCommand.h"
#include "graph/Graph.h"
#include "graph/PlugRef.h"
#include "scene/CommandMessages.h"
#include "scene/SceneLookup.h"

#include <OpenZyvo/ZDGModifier.h>
#include <optional>
#include <span>

namespace oz::builtins {

using namespace scene;
namespace {

constexpr const char* kName = "setAttr";

// setAttr [-type <data type>] <node.attribute> <values...>
//
// Numbers for numeric, unit and enum attributes (one per leaf of a tuple or
// of a compound of numbers, angles and lengths in the user's units, enums
// by value or field name); typed data with -type ("string", "doubleArray",
// "Int32Array", "vectorArray", "stringArray", "matrix", "mesh"...). Naming
// an element of an array makes it. Undo restores the previous value and
// removes elements the command made.
class SetAttrCommand : public ZPxCommand {
public:
    ZStatus doIt(const ZArgList& args) override {
        std::string dataType;
        std::vector<cmd::Value> positional;
        const auto& items = cmd::ArgListAccess::items(args);
        for (std::size_t i = 0; i < items.size(); ++i) {
            if (!items[i].isFlag) {
                positional.push_back(items[i].value);
                continue;
            }
            const auto& flag = std::get<std::string>(items[i].value);
            if (flag != "type" && flag != "typ") {
                reportError(kName, "invalid flag '-" + flag + "'");
                return ZStatus::kInvalidParameter;
            }
            if (i + 1 >= items.size() || items[i + 1].isFlag ||
                !std::holds_alternative<std::string>(items[i + 1].value)) {
                reportError(kName, "flag '-" + flag + "' needs the name of a data type");
                return ZStatus::kInvalidParameter;
            }
            dataType = std::get<std::string>(items[++i].value);
        }
        if (positional.empty() || !std::holds_alternative<std::string>(positional.front())) {
            reportError(kName, "give the plug (node.attribute) and then its value");
            return ZStatus::kInvalidParameter;
        }
        const std::string& name = std::get<std::string>(positional.front());
        std::string error;
        if (!findPlug(name, m_plug, error)) {
            reportError(kName, error);
            return ZStatus::kNotFound;
        }
        const PlugRef& ref = *PlugAccess::get(m_plug);
        for (const auto& connection : ref.node->incoming)
            if (related(connection->dst, ref.path)) {
                reportError(kName, quoted(name) + " is connected from " +
                                       quoted(connection->srcNode->name.asStdString() + "." +
                                              pathName(connection->src, true, false).asStdString()) +
                                       " and cannot be set");
                return ZStatus::kInvalidParameter;
            }
        noteElementToMake(ref);
        const std::span<const cmd::Value> values(positional.begin() + 1, positional.end());
        if (!queuePlugValue(m_modifier, m_plug, dataType, values, error)) {
            reportError(kName, error);
            return ZStatus::kInvalidParameter;
        }
        const ZStatus status = m_modifier.doIt();
        if (!status) {
            removeMadeElement();
            reportError(kName,
                        quoted(name) + " could not be set (" + status.errorString().asStdString() + ")");
        }
        return status;
    }

    ZStatus undoIt() override {
        const ZStatus status = m_modifier.undoIt();
        return status ? removeMadeElement() : status;
    }
    ZStatus redoIt() override { return m_modifier.doIt(); }
    bool isUndoable() const override { return true; }

private:
    ZStatus removeMadeElement() {
        if (!m_madeElement)
            return ZStatus::kSuccess;
        const PlugRef& ref = *PlugAccess::get(m_plug);
        return Graph::instance().removeElement(*ref.node, *m_madeElement);
    }

    // The outermost array element on the plug's path that does not exist yet.
    void noteElementToMake(const PlugRef& ref) {
        Path prefix;
        for (const PathEntry& step : ref.path) {
            prefix.push_back(step);
            if (step.index >= 0 && !ref.node->resolve(ref.node->normal, prefix, false)) {
                m_madeElement = prefix;
                return;
            }
        }
    }

    ZPlug m_plug;
    ZDGModifier m_modifier;
    std::optional<Path> m_madeElement;
};

const cmd::BuiltinCommand registration(kName, [] { return std::make_unique<SetAttrCommand>(); });

} // namespace
} // namespace oz::builtins
