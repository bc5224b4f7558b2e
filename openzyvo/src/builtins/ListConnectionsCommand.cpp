#include "builtins/ResultValue.h"
#include "commands/BuiltinCommand.h"
#include "commands/ParsedCommand.h"
#include "graph/Graph.h"
#include "graph/PlugRef.h"
#include "scene/CommandMessages.h"
#include "scene/SceneLookup.h"

#include <OpenZyvo/ZArgDatabase.h>
#include <OpenZyvo/ZStringArray.h>
#include <algorithm>

namespace oz::builtins {

using namespace scene;
namespace {

constexpr const char* kName = "listConnections";

std::string plugText(const Node& node, const Path& path) {
    return node.name.asStdString() + "." + pathName(path, true, false).asStdString();
}

// listConnections [-s bool] [-d bool] [-p bool] [-c bool] [-t type] <node or plug...>:
// what the nodes or plugs (the selection when none are named) are connected
// to: the nodes at the other ends, each once, or with -plugs the plugs.
// -source and -destination (both on by default) choose the direction;
// -connections puts each of our plugs before what it connects to; -type
// keeps the other ends of one node type.
class ListConnectionsCommand : public cmd::ParsedCommand {
public:
    static ZSyntax newSyntax() {
        ZSyntax syntax;
        syntax.addFlag("-s", "-source", ZSyntax::kBoolean);
        syntax.addFlag("-d", "-destination", ZSyntax::kBoolean);
        syntax.addFlag("-p", "-plugs", ZSyntax::kBoolean);
        syntax.addFlag("-c", "-connections", ZSyntax::kBoolean);
        syntax.addFlag("-t", "-type", ZSyntax::kString);
        syntax.setObjectType(ZSyntax::kStringObjects);
        return syntax;
    }

    ZStatus run(const ZArgDatabase& database, const ZStringArray& objects) override {
        auto flag = [&](const char* name, bool otherwise) {
            return database.isFlagSet(name) ? database.flagArgumentBool(name, 0) : otherwise;
        };
        m_sources = flag("-source", true);
        m_destinations = flag("-destination", true);
        m_plugs = flag("-plugs", false);
        m_pairs = flag("-connections", false);
        if (database.isFlagSet("-type"))
            m_type = database.flagArgumentString("-type", 0).asStdString();

        if (objects.length() == 0) {
            for (Node* node : selectedNodes())
                list(*node, nullptr);
        }
        for (unsigned int i = 0; i < objects.length(); ++i) {
            const std::string name = objects[i].asStdString();
            if (name.find('.') == std::string::npos) {
                Node* node = findNode(name);
                if (!node) {
                    reportError(kName, noObjectMatches(name));
                    return ZStatus::kNotFound;
                }
                list(*node, nullptr);
                continue;
            }
            ZPlug plug;
            std::string error;
            if (!findPlug(name, plug, error)) {
                reportError(kName, error);
                return ZStatus::kNotFound;
            }
            const PlugRef& ref = *PlugAccess::get(plug);
            list(*ref.node, &ref.path);
        }
        setResultValue(std::move(m_result));
        return ZStatus::kSuccess;
    }

private:
    void list(Node& node, const Path* plug) {
        if (m_sources)
            for (const auto& c : node.incoming)
                if (!plug || covers(*plug, c->dst))
                    add(node, c->dst, *c->srcNode, c->src);
        if (m_destinations)
            for (const auto& c : node.outgoing)
                if (!plug || covers(*plug, c->src))
                    add(node, c->src, *c->dstNode, c->dst);
    }

    void add(const Node& node, const Path& ours, const Node& other, const Path& theirs) {
        if (!m_type.empty() && other.type->name.asStdString() != m_type)
            return;
        std::string shown = m_plugs ? plugText(other, theirs) : other.name.asStdString();
        if (m_pairs) {
            m_result.push_back(plugText(node, ours));
            m_result.push_back(std::move(shown));
        } else if (m_plugs || std::find(m_result.begin(), m_result.end(), shown) == m_result.end()) {
            m_result.push_back(std::move(shown));
        }
    }

    bool m_sources = true, m_destinations = true, m_plugs = false, m_pairs = false;
    std::string m_type;
    std::vector<std::string> m_result;
};

const cmd::BuiltinCommand registration(
    kName, [] { return std::make_unique<ListConnectionsCommand>(); }, ListConnectionsCommand::newSyntax);

} // namespace
} // namespace oz::builtins
