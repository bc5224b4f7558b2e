#include "commands/BuiltinCommand.h"
#include "commands/Executor.h"
#include "commands/ParsedCommand.h"
#include "nodes/ActiveSelection.h"
#include "ui/ScenePick.h"
#include "ui/ToolManager.h"

#include <OpenZyvo/ZSyntax.h>

namespace oz::ui {

namespace {

// viewClick -x <pixels> -y <pixels>: a click of the current tool in the view
// at that view point (from the lower-left corner). The mesh under it becomes
// the selection (its transform); a click on nothing keeps the selection. The
// current tool sees the new selection and the click's ray. Undo brings back
// the selection and the click before.
class ViewClickCommand : public cmd::ParsedCommand {
public:
    static ZSyntax newSyntax() {
        ZSyntax syntax;
        syntax.addFlag("-x", "-x", ZSyntax::kLong);
        syntax.addFlag("-y", "-y", ZSyntax::kLong);
        return syntax;
    }

    ZStatus run(const ZArgDatabase& database, const ZStringArray&) override {
        int x = 0, y = 0;
        if (!database.getFlagArgument("-x", 0, x) || !database.getFlagArgument("-y", 0, y)) {
            cmd::Executor::reportError("viewClick: give the view point with -x and -y");
            return ZStatus::kInvalidParameter;
        }
        ToolManager& tools = ToolManager::instance();
        if (!isUsable(tools.camera())) {
            cmd::Executor::reportError("viewClick: the view's camera cannot form a view");
            return ZStatus::kFailure;
        }
        const ViewRay ray = rayThrough(tools.camera(), x, y);
        m_selectionBefore = nodes::activeSelection();
        m_clickBefore = tools.lastClick();
        m_selectionAfter = m_selectionBefore;
        if (const ZObject picked = pickTransform(ray); !picked.isNull()) {
            m_selectionAfter.clear();
            m_selectionAfter.add(picked);
        }
        m_clickAfter = ray;
        return redoIt();
    }

    ZStatus undoIt() override { return apply(m_clickBefore, m_selectionBefore); }
    ZStatus redoIt() override { return apply(m_clickAfter, m_selectionAfter); }
    bool isUndoable() const override { return true; }

private:
    static ZStatus apply(const std::optional<ViewRay>& click, const ZSelectionList& selection) {
        ToolManager::instance().setLastClick(click);
        nodes::setActiveSelection(selection);
        return ZStatus::kSuccess;
    }

    ZSelectionList m_selectionBefore;
    ZSelectionList m_selectionAfter;
    std::optional<ViewRay> m_clickBefore;
    std::optional<ViewRay> m_clickAfter;
};

const cmd::BuiltinCommand registration(
    "viewClick", [] { return std::make_unique<ViewClickCommand>(); }, ViewClickCommand::newSyntax);

} // namespace

} // namespace oz::ui
