#include "builtins/ResultValue.h"
#include "commands/BuiltinCommand.h"
#include "commands/ParsedCommand.h"
#include "scene/CommandMessages.h"

#include <OpenZyvo/ZArgDatabase.h>
#include <OpenZyvo/ZFileIO.h>
#include <OpenZyvo/ZStringArray.h>

namespace oz::builtins {

using namespace scene;
namespace {

constexpr const char* kName = "file";
constexpr const char* kAsciiType = "zyvoAscii";

// file -new [-f]               a new, empty scene
// file -open [-f] <path>       the scene of a file
// file -rename <path>          the file name the scene saves to
// file -save [-type zyvoAscii] saves the scene (after -rename, to that name)
// file -q -sceneName / -modified
// Opening or starting afresh refuses to drop unsaved changes unless forced.
// Returns the scene's file name.
class FileCommand : public cmd::ParsedCommand {
public:
    static ZSyntax newSyntax() {
        ZSyntax syntax;
        syntax.addFlag("-f", "-force");
        syntax.addFlag("-new", "-newFile");
        syntax.addFlag("-o", "-open");
        syntax.addFlag("-s", "-save");
        syntax.addFlag("-rn", "-rename", ZSyntax::kString);
        syntax.addFlag("-typ", "-type", ZSyntax::kString);
        syntax.addFlag("-sn", "-sceneName");
        syntax.addFlag("-mf", "-modified");
        syntax.enableQuery();
        syntax.setObjectType(ZSyntax::kStringObjects, 0, 1);
        return syntax;
    }

    ZStatus run(const ZArgDatabase& database, const ZStringArray& objects) override {
        ZStatus status;
        if (database.isQuery())
            return query(database);
        const bool force = database.isFlagSet("-force");
        if (database.isFlagSet("-type")) {
            const ZString type = database.flagArgumentString("-type", 0);
            if (type != kAsciiType) {
                reportError(kName, "unknown file type \"" + type.asStdString() +
                                       "\" (scenes are saved as \"" + kAsciiType + "\")");
                return ZStatus::kInvalidParameter;
            }
        }
        if (database.isFlagSet("-newFile")) {
            if (!force && ZFileIO::isModified()) {
                reportError(kName, "the scene has changes that were not saved; use -force to discard them");
                return ZStatus::kFailure;
            }
            status = ZFileIO::newFile(true);
        } else if (database.isFlagSet("-open")) {
            if (objects.length() != 1) {
                reportError(kName, "give the file to open");
                return ZStatus::kInvalidParameter;
            }
            if (!force && ZFileIO::isModified()) {
                reportError(kName, "the scene has changes that were not saved; use -force to discard them");
                return ZStatus::kFailure;
            }
            status = ZFileIO::open(objects[0]);
        } else if (database.isFlagSet("-rename") || database.isFlagSet("-save")) {
            if (database.isFlagSet("-rename"))
                ZFileIO::setCurrentFile(database.flagArgumentString("-rename", 0));
            if (database.isFlagSet("-save"))
                status = ZFileIO::save();
        } else {
            reportError(kName, "give -new, -open, -rename or -save");
            return ZStatus::kInvalidParameter;
        }
        setResultValue(ZFileIO::currentFile().asStdString());
        return status;
    }

private:
    static ZStatus query(const ZArgDatabase& database) {
        if (database.isFlagSet("-sceneName"))
            setResultValue(ZFileIO::currentFile().asStdString());
        else if (database.isFlagSet("-modified"))
            setResultValue(ZFileIO::isModified());
        else {
            reportError(kName, "query -sceneName or -modified");
            return ZStatus::kInvalidParameter;
        }
        return ZStatus::kSuccess;
    }
};

const cmd::BuiltinCommand registration(
    kName, [] { return std::make_unique<FileCommand>(); }, FileCommand::newSyntax);

} // namespace
} // namespace oz::builtins
