#include "scene/SceneWriter.h"

#include "anim/PlaybackRange.h"
#include "graph/Graph.h"
#include "scene/AttributeDeclaration.h"
#include "scene/DefaultNodes.h"
#include "scene/FileState.h"
#include "scene/PluginQuery.h"
#include "scene/SceneText.h"
#include "scene/StoredValues.h"
#include "scene/UnitNames.h"

#include <OpenZyvo/ZPxNode.h>
#include <OpenZyvoAnim/ZAnimControl.h>
#include <algorithm>
#include <functional>
#include <unordered_set>

namespace oz::scene {

namespace {

// Manipulators belong to the tools of a session, not to the scene.
bool saved(const Node& node) {
    return node.type->kind != ZPxNode::kManipContainer;
}

// Creation order, except that a DAG parent comes before its children.
std::vector<Node*> nodesInOrder() {
    std::vector<Node*> order;
    std::unordered_set<const Node*> placed;
    std::function<void(Node*)> place = [&](Node* node) {
        if (placed.count(node) || !saved(*node))
            return;
        if (node->dagParent)
            place(node->dagParent);
        placed.insert(node);
        order.push_back(node);
    };
    for (const auto& node : Graph::instance().nodes())
        place(node.get());
    return order;
}

void appendHeader(const std::vector<Node*>& nodes, std::string& out) {
    out += "//Zyvo ASCII scene\n";
    out += "fileInfo \"version\" \"" + std::to_string(kLatestFileVersion) + "\";\n";
    for (const auto& [key, value] : FileState::instance().fileInfo) {
        if (key == "version")
            continue;
        out += "fileInfo ";
        appendQuoted(out, key);
        out += ' ';
        appendQuoted(out, value);
        out += ";\n";
    }
    std::vector<std::string> plugins;
    for (const Node* node : nodes) {
        const std::string& plugin = node->type->pluginName.asStdString();
        if (!plugin.empty() && std::find(plugins.begin(), plugins.end(), plugin) == plugins.end())
            plugins.push_back(plugin);
    }
    for (const std::string& plugin : plugins) {
        out += "requires ";
        appendQuoted(out, plugin);
        out += ' ';
        appendQuoted(out, pluginVersion(plugin));
        out += ";\n";
    }
    out += std::string("currentUnit -l \"") + linearUnitName(ZDistance::uiUnit()) + "\" -a \"" +
           angularUnitName(ZAngle::uiUnit()) + "\" -t \"" + timeUnitName(ZTime::uiUnit()) + "\";\n";
    const anim::PlaybackRange& range = anim::PlaybackRange::scene();
    const anim::PlaybackRange usual = anim::PlaybackRange::defaults();
    if (range.minTime != usual.minTime || range.maxTime != usual.maxTime ||
        range.startTime != usual.startTime || range.endTime != usual.endTime || range.mode != usual.mode) {
        static const char* const modes[] = {"once", "continuous", "oscillate"};
        out += "playbackOptions -min";
        appendNumber(out, range.minTime);
        out += " -max";
        appendNumber(out, range.maxTime);
        out += " -ast";
        appendNumber(out, range.startTime);
        out += " -aet";
        appendNumber(out, range.endTime);
        out += std::string(" -l \"") + modes[range.mode] + "\";\n";
    }
    const double now = ZAnimControl::currentTime().as(ZTime::uiUnit());
    if (now != 0.0) {
        out += "currentTime";
        appendNumber(out, now);
        out += ";\n";
    }
}

void appendDynamicAttribute(const Attribute& attribute, const std::string& node, std::string& out) {
    out += "addAttr" + addAttrFlags(describeAttribute(attribute)) + " ";
    appendQuoted(out, node);
    out += ";\n";
    for (const auto& child : attribute.children)
        appendDynamicAttribute(*child, node, out);
}

void appendNode(Node& node, std::string& out) {
    if (!isDefaultNode(node)) {
        out += "createNode " + node.type->name.asStdString() + " -n ";
        appendQuoted(out, node.name.asStdString());
        if (node.dagParent) {
            out += " -p ";
            appendQuoted(out, node.dagParent->name.asStdString());
        }
        out += ";\n";
    }
    for (const auto& attribute : node.dynamicAttrs)
        if (attribute)
            appendDynamicAttribute(*attribute, node.name.asStdString(), out);
    appendStoredValues(node, out);
}

void appendConnections(const std::vector<Node*>& nodes, std::string& out) {
    for (const Node* node : nodes)
        for (const auto& c : node->incoming) {
            if (!saved(*c->srcNode))
                continue;
            out += "connectAttr ";
            appendQuoted(out,
                         c->srcNode->name.asStdString() + "." + pathName(c->src, true, false).asStdString());
            out += ' ';
            appendQuoted(out, node->name.asStdString() + "." + pathName(c->dst, true, false).asStdString());
            out += ";\n";
        }
}

} // namespace

std::string writeScene() {
    ensureDefaultNodes();
    const std::vector<Node*> nodes = nodesInOrder();
    std::string out;
    appendHeader(nodes, out);
    for (Node* node : nodes)
        appendNode(*node, out);
    appendConnections(nodes, out);
    return out;
}

} // namespace oz::scene
