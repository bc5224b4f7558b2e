#include "commands/BuiltinCommand.h"
#include "commands/ParsedCommand.h"
#include "nodes/ActiveSelection.h"
#include "scene/CommandMessages.h"

#include <OpenZyvo/ZArgDatabase.h>
#include <OpenZyvo/ZSelectionList.h>
#include <OpenZyvo/ZStringArray.h>
#include <algorithm>

namespace oz::builtins {

using namespace scene;
namespace {

constexpr const char* kName = "select";

// select [-r | -add | -d | -cl] [names, patterns or plugs...]: replaces the
// active selection (the default), adds to it, takes items out of it, or
// clears it. Undo restores the selection before.
class SelectCommand : public cmd::ParsedCommand {
public:
    static ZSyntax newSyntax() {
        ZSyntax syntax;
        syntax.addFlag("-r", "-replace");
        syntax.addFlag("-add", "-add");
        syntax.addFlag("-d", "-deselect");
        syntax.addFlag("-cl", "-clear");
        syntax.setObjectType(ZSyntax::kStringObjects);
        return syntax;
    }

    ZStatus run(const ZArgDatabase& database, const ZStringArray& objects) override {
        ZSelectionList named;
        for (unsigned int i = 0; i < objects.length(); ++i) {
            if (!named.add(objects[i])) {
                reportError(kName, noObjectMatches(objects[i].asStdString()));
                return ZStatus::kNotFound;
            }
        }
        m_before = nodes::activeSelection();
        if (database.isFlagSet("-clear")) {
            m_after = ZSelectionList();
        } else if (database.isFlagSet("-add")) {
            m_after = m_before;
            m_after.merge(named);
        } else if (database.isFlagSet("-deselect")) {
            m_after = without(m_before, named);
        } else {
            m_after = named;
        }
        nodes::setActiveSelection(m_after);
        return ZStatus::kSuccess;
    }

    ZStatus undoIt() override {
        nodes::setActiveSelection(m_before);
        return ZStatus::kSuccess;
    }
    ZStatus redoIt() override {
        nodes::setActiveSelection(m_after);
        return ZStatus::kSuccess;
    }
    bool isUndoable() const override { return true; }

private:
    static ZSelectionList without(const ZSelectionList& from, const ZSelectionList& removed) {
        ZStringArray all, gone;
        from.getSelectionStrings(all);
        removed.getSelectionStrings(gone);
        ZSelectionList kept;
        for (unsigned int i = 0; i < all.length(); ++i) {
            bool remove = false;
            for (unsigned int j = 0; j < gone.length() && !remove; ++j)
                remove = all[i] == gone[j];
            if (!remove)
                kept.add(all[i]);
        }
        return kept;
    }

    ZSelectionList m_before, m_after;
};

const cmd::BuiltinCommand registration(
    kName, [] { return std::make_unique<SelectCommand>(); }, SelectCommand::newSyntax);

} // namespace
} // namespace oz::builtins
