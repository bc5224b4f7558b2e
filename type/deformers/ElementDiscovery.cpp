#include "deformers/ElementDiscovery.h"

#include "shells/ShellDiscovery.h"

namespace type {

bool discoverElements(FaceListTopology& mesh, const std::vector<std::vector<int>>& groupLists,
                      Elements& elements) {
    elements = {};
    BitSet reached(mesh.faceCount());
    std::size_t nextGroup = 0;
    for (int face = 0; face < mesh.faceCount(); ++face) {
        while (!reached.test(face)) {
            const bool fromGroup = nextGroup < groupLists.size();
            std::span<const int> seeds =
                fromGroup ? std::span<const int>(groupLists[nextGroup++]) : mesh.faceVertices(face);
            std::vector<int> shell;
            Box3 box;
            if (!discoverShell(mesh, seeds, shell, box, &reached))
                return false;
            if (!fromGroup)
                reached.set(face); // a face without vertices reaches nothing, not even itself
            if (!box.empty()) {
                elements.textBounds.extend(box.min);
                elements.textBounds.extend(box.max);
            }
            elements.bounds.push_back(box);
            elements.vertices.push_back(std::move(shell));
        }
    }
    return true;
}

} // namespace type
