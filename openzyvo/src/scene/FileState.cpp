#include "scene/FileState.h"

#include "graph/Graph.h"
#include "scene/DefaultNodes.h"

#include <algorithm>

namespace oz::scene {

FileState& FileState::instance() {
    static FileState state;
    return state;
}

void FileState::setFileInfo(const std::string& key, const std::string& value) {
    auto it =
        std::find_if(fileInfo.begin(), fileInfo.end(), [&](const auto& entry) { return entry.first == key; });
    if (it == fileInfo.end())
        fileInfo.emplace_back(key, value);
    else
        it->second = value;
}

std::optional<std::string> FileState::findFileInfo(const std::string& key) const {
    for (const auto& [k, v] : fileInfo)
        if (k == key)
            return v;
    return std::nullopt;
}

bool FileState::modified() const {
    if (cleanGeneration != 0)
        return Graph::instance().editGeneration() != cleanGeneration;
    // Before any scene was opened, saved or made new, only nodes of the
    // user's own are worth keeping.
    const auto& nodes = Graph::instance().nodes();
    return std::any_of(nodes.begin(), nodes.end(), [](const auto& node) { return !isDefaultNode(*node); });
}

void FileState::markClean() {
    cleanGeneration = Graph::instance().editGeneration();
}

} // namespace oz::scene
