#include "scene/NewScene.h"

#include "anim/PlaybackRange.h"
#include "commands/UndoQueue.h"
#include "core/EvaluationScope.h"
#include "graph/Graph.h"
#include "nodes/ActiveSelection.h"
#include "scene/DefaultNodes.h"
#include "scene/FileState.h"
#include "scene/PendingCompounds.h"

#include <OpenZyvo/ZSelectionList.h>

namespace oz::scene {

ZStatus closeScene() {
    if (const ZStatus refused = refuseDuringEvaluation("replace the scene"); !refused)
        return refused;
    // Undo steps hold nodes of the old scene; they go before the nodes do.
    cmd::UndoQueue::instance().clear();
    nodes::setActiveSelection(ZSelectionList());
    PendingCompounds::instance().clear();
    return Graph::instance().clear();
}

ZStatus resetScene() {
    if (const ZStatus closed = closeScene(); !closed)
        return closed;
    anim::PlaybackRange::scene() = anim::PlaybackRange::defaults();
    FileState::instance().fileInfo.clear();
    ensureDefaultNodes();
    return ZStatus::kSuccess;
}

} // namespace oz::scene
