#pragma once

#include <OpenZyvo/ZPlug.h>
#include <string>
#include <string_view>
#include <vector>

namespace oz {
class Node;
}

namespace oz::scene {

// A node by its name or its DAG path ("|group1|pCube1"); null when none has
// it. Default nodes are made on first use.
Node* findNode(std::string_view name);

// "node.attr[2].child" to a plug; on failure `error` says why, in the words
// the commands show.
bool findPlug(std::string_view text, ZPlug& plug, std::string& error);

// The nodes that names, DAG paths and patterns ("*Shape?") name, each once,
// in the order given (a pattern's matches in scene order). A name or
// pattern that matches nothing is reported as an error of `command`, and
// the call returns false.
bool resolveNodes(std::string_view command, const std::vector<std::string>& names, std::vector<Node*>& nodes);

// The nodes of the active selection, plug items by their node.
std::vector<Node*> selectedNodes();

// The node part of "node.attr..." (the whole text without a '.').
std::string_view nodePart(std::string_view text);

} // namespace oz::scene
