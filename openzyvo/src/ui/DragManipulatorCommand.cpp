#include "commands/BuiltinCommand.h"
#include "commands/Executor.h"
#include "commands/ParsedCommand.h"
#include "ui/ManipDrag.h"
#include "ui/ToolManager.h"

#include <OpenZyvo/ZDGModifier.h>
#include <OpenZyvo/ZFnDependencyNode.h>
#include <OpenZyvo/ZSyntax.h>
#include <OpenZyvoUI/ZPxSelectionContext.h>

namespace oz::ui {

namespace {

constexpr const char* kName = "dragManipulator: ";

// dragManipulator -move x y z | -rotate degrees [-axis x y z] | -scale x y z:
// drags a handle of the current tool's manipulator as a user would: the move
// handle by an offset, the rotate handle about an axis (Z unless given), the
// scale handle by factors. Every plug tied to the manipulator follows; undo
// sets them back.
class DragManipulatorCommand : public cmd::ParsedCommand {
public:
    static ZSyntax newSyntax() {
        ZSyntax syntax;
        syntax.addFlag("-m", "-move", ZSyntax::kDouble, ZSyntax::kDouble, ZSyntax::kDouble);
        syntax.addFlag("-r", "-rotate", ZSyntax::kDouble);
        syntax.addFlag("-ax", "-axis", ZSyntax::kDouble, ZSyntax::kDouble, ZSyntax::kDouble);
        syntax.addFlag("-s", "-scale", ZSyntax::kDouble, ZSyntax::kDouble, ZSyntax::kDouble);
        return syntax;
    }

    ZStatus run(const ZArgDatabase& database, const ZStringArray&) override {
        const int kinds =
            database.isFlagSet("-move") + database.isFlagSet("-rotate") + database.isFlagSet("-scale");
        if (kinds != 1) {
            cmd::Executor::reportError(std::string(kName) + "give exactly one of -move, -rotate and -scale");
            return ZStatus::kInvalidParameter;
        }
        ZPxManipContainer* container = currentManipulator();
        if (!container) {
            cmd::Executor::reportError(std::string(kName) + "the current tool shows no manipulator");
            return ZStatus::kNotFound;
        }
        ZStatus status;
        if (database.isFlagSet("-move")) {
            status = dragMove(*container, vector(database, "-move", {}), m_modifier);
        } else if (database.isFlagSet("-rotate")) {
            double degrees = 0.0;
            database.getFlagArgument("-rotate", 0, degrees);
            status = dragRotate(*container, vector(database, "-axis", ZVector(0.0, 0.0, 1.0)), degrees,
                                m_modifier);
        } else {
            status = dragScale(*container, vector(database, "-scale", {}), m_modifier);
        }
        if (status == ZStatus::kNotFound)
            cmd::Executor::reportError(std::string(kName) + "the manipulator has no such handle");
        else if (status == ZStatus::kInvalidParameter)
            cmd::Executor::reportError(std::string(kName) +
                                       "the amount must be finite (and an axis not zero)");
        return status;
    }

    ZStatus undoIt() override { return m_modifier.undoIt(); }
    ZStatus redoIt() override { return m_modifier.doIt(); }
    bool isUndoable() const override { return true; }

private:
    static ZVector vector(const ZArgDatabase& database, const char* flag, const ZVector& fallback) {
        if (!database.isFlagSet(flag))
            return fallback;
        ZVector value;
        for (unsigned int i = 0; i < 3; ++i)
            database.getFlagArgument(flag, i, value[i]);
        return value;
    }

    static ZPxManipContainer* currentManipulator() {
        auto* context = dynamic_cast<ZPxSelectionContext*>(ToolManager::instance().current());
        if (!context)
            return nullptr;
        for (unsigned int i = 0; i < context->numManipulators(); ++i) {
            ZFnDependencyNode fn(context->manipulator(i));
            if (auto* container = dynamic_cast<ZPxManipContainer*>(fn.userNode()))
                return container;
        }
        return nullptr;
    }

    ZDGModifier m_modifier;
};

const cmd::BuiltinCommand registration(
    "dragManipulator", [] { return std::make_unique<DragManipulatorCommand>(); },
    DragManipulatorCommand::newSyntax);

} // namespace

} // namespace oz::ui
