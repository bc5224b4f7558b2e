#include "builtins/NamedNodes.h"

#include "scene/CommandMessages.h"
#include "scene/SceneLookup.h"

namespace oz::builtins {

using namespace scene;

bool namedOrSelectedNodes(std::string_view command, const ZStringArray& objects, std::vector<Node*>& nodes) {
    if (objects.length() == 0) {
        nodes = selectedNodes();
        if (nodes.empty())
            reportError(command, "nothing is selected: name the nodes or select them");
        return !nodes.empty();
    }
    std::vector<std::string> names;
    for (const ZString& object : objects)
        names.push_back(object.asStdString());
    return resolveNodes(command, names, nodes);
}

} // namespace oz::builtins
