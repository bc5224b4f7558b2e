#include "commands/BuiltinCommand.h"
#include "commands/Executor.h"
#include "commands/ParsedCommand.h"
#include "ui/ToolManager.h"

#include <OpenZyvo/ZSyntax.h>

namespace oz::ui {

namespace {

// setToolTo <context>: makes the context a context command made the current
// tool. Undo brings the tool before back.
class SetToolToCommand : public cmd::ParsedCommand {
public:
    static ZSyntax newSyntax() {
        ZSyntax syntax;
        syntax.setObjectType(ZSyntax::kStringObjects, 1, 1);
        return syntax;
    }

    ZStatus run(const ZArgDatabase&, const ZStringArray& objects) override {
        ToolManager& tools = ToolManager::instance();
        m_before = tools.currentName();
        m_after = objects[0].asStdString();
        if (!tools.has(m_after)) {
            cmd::Executor::reportError("setToolTo: no tool context named \"" + m_after + "\"");
            return ZStatus::kNotFound;
        }
        return tools.setTool(m_after);
    }

    ZStatus undoIt() override { return ToolManager::instance().setTool(m_before); }
    ZStatus redoIt() override { return ToolManager::instance().setTool(m_after); }
    bool isUndoable() const override { return true; }

private:
    std::string m_before;
    std::string m_after;
};

const cmd::BuiltinCommand registration(
    "setToolTo", [] { return std::make_unique<SetToolToCommand>(); }, SetToolToCommand::newSyntax);

} // namespace

} // namespace oz::ui
