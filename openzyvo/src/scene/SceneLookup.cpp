#include "scene/SceneLookup.h"

#include "core/Wildcard.h"
#include "graph/Graph.h"
#include "graph/PlugParse.h"
#include "graph/PlugRef.h"
#include "nodes/ActiveSelection.h"
#include "nodes/DagHierarchy.h"
#include "scene/CommandMessages.h"
#include "scene/DefaultNodes.h"

#include <algorithm>

namespace oz::scene {

Node* findNode(std::string_view name) {
    if (name.empty())
        return nullptr;
    if (name.front() == '|')
        return nodes::findByFullPath(ZString(name));
    const ZString key(name);
    Node* node = Graph::instance().findNode(key);
    if (!node && isDefaultNodeName(name)) {
        ensureDefaultNodes();
        node = Graph::instance().findNode(key);
    }
    return node;
}

bool resolveNodes(std::string_view command, const std::vector<std::string>& names,
                  std::vector<Node*>& nodes) {
    bool all = true;
    auto add = [&](Node* node) {
        if (std::find(nodes.begin(), nodes.end(), node) == nodes.end())
            nodes.push_back(node);
    };
    for (const std::string& name : names) {
        if (Node* node = findNode(name)) {
            add(node);
            continue;
        }
        bool matched = false;
        if (hasWildcards(name)) {
            ensureDefaultNodes();
            for (const auto& node : Graph::instance().nodes())
                if (matchesWildcard(name, node->name.view())) {
                    add(node.get());
                    matched = true;
                }
        }
        if (!matched) {
            reportError(command, noObjectMatches(name));
            all = false;
        }
    }
    return all;
}

std::vector<Node*> selectedNodes() {
    const ZSelectionList selection = nodes::activeSelection();
    std::vector<Node*> out;
    for (unsigned int i = 0; i < selection.length(); ++i) {
        ZObject object;
        selection.getDependNode(i, object);
        Node* node = nodeOf(object);
        if (node && node->state == Node::State::Live && std::find(out.begin(), out.end(), node) == out.end())
            out.push_back(node);
    }
    return out;
}

std::string_view nodePart(std::string_view text) {
    return text.substr(0, text.find('.'));
}

bool findPlug(std::string_view text, ZPlug& plug, std::string& error) {
    const std::size_t dot = text.find('.');
    Node* node = dot == std::string_view::npos ? nullptr : findNode(text.substr(0, dot));
    if (!node) {
        error = noObjectMatches(std::string(text));
        return false;
    }
    Path path;
    const ZStatus status = parsePlugPath(*node, text.substr(dot + 1), path);
    if (status == ZStatus::kNotFound) {
        error = noObjectMatches(std::string(text));
        return false;
    }
    if (!status) {
        error = "Invalid plug name: " + std::string(text) +
                " (an element index must be a number, on an attribute that is an array)";
        return false;
    }
    plug = PlugAccess::make(*node, std::move(path));
    return true;
}

} // namespace oz::scene
