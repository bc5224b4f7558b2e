#pragma once

#include <string>
#include <vector>

namespace oz::plugins {

class Plugin;

// The names of the nodes in the scene whose types belong to the plug-in.
std::vector<std::string> liveNodesOf(const std::string& plugin);

// Removes everything the plug-in still has registered, so that none of its
// code can be reached once its library is closed: the contexts of its
// context commands and its commands, its script procedures, the undo steps
// that hold its commands, its draw overrides and its node types. A plug-in
// that ever had node types also empties the undo queue, whose deleted nodes
// may be of those types. Returns the node types that could not go because
// nodes of them exist.
std::vector<std::string> removeOwnedBy(const Plugin& plugin);

} // namespace oz::plugins
