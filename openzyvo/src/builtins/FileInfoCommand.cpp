#include "builtins/ResultValue.h"
#include "commands/BuiltinCommand.h"
#include "commands/ParsedCommand.h"
#include "scene/CommandMessages.h"
#include "scene/FileState.h"

#include <OpenZyvo/ZArgDatabase.h>
#include <OpenZyvo/ZStringArray.h>

namespace oz::builtins {

using namespace scene;
namespace {

// fileInfo <key> <value> keeps a note that the scene file stores;
// fileInfo -q <key> returns it (empty when there is none). Scene files
// state their version with the key "version".
class FileInfoCommand : public cmd::ParsedCommand {
public:
    static ZSyntax newSyntax() {
        ZSyntax syntax;
        syntax.enableQuery();
        syntax.setObjectType(ZSyntax::kStringObjects, 1, 2);
        return syntax;
    }

    ZStatus run(const ZArgDatabase& database, const ZStringArray& objects) override {
        FileState& state = FileState::instance();
        if (database.isQuery()) {
            setResultValue(state.findFileInfo(objects[0].asStdString()).value_or(std::string()));
            return ZStatus::kSuccess;
        }
        if (objects.length() != 2) {
            reportError("fileInfo", "give a key and its value");
            return ZStatus::kInvalidParameter;
        }
        state.setFileInfo(objects[0].asStdString(), objects[1].asStdString());
        return ZStatus::kSuccess;
    }
};

const cmd::BuiltinCommand registration(
    "fileInfo", [] { return std::make_unique<FileInfoCommand>(); }, FileInfoCommand::newSyntax);

} // namespace
} // namespace oz::builtins
