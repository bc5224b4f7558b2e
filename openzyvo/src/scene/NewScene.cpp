#include "scene/NewScene.h"

#include "anim/PlaybackRange.h"
#include "commands/UndoQueue.h"
#include "graph/Graph.h"
#include "nodes/ActiveSelection.h"
#include "scene/DefaultNodes.h"
#include "scene/FileState.h"
#include "scene/PendingCompounds.h"

#include <OpenZyvo/ZSelectionList.h>

namespace oz::scene {

void resetScene() {
    // Undo steps hold nodes of the old scene; they go before the nodes do.
    cmd::UndoQueue::instance().clear();
    nodes::setActiveSelection(ZSelectionList());
    PendingCompounds::instance().clear();
    Graph::instance().clear();
    anim::PlaybackRange::scene() = anim::PlaybackRange::defaults();
    FileState::instance().fileInfo.clear();
    ensureDefaultNodes();
}

} // namespace oz::scene
