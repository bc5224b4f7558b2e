#include "commands/BuiltinCommand.h"
#include "commands/Executor.h"
#include "commands/ParsedCommand.h"
#include "ui/ToolManager.h"

#include <OpenZyvo/ZSyntax.h>

namespace oz::ui {

namespace {

// viewCamera [-p x y z] [-a x y z] [-hfv degrees] [-o on] [-ow width]
// [-ps width height]: sets the camera of the view (its position, aim point,
// horizontal field of view, orthographic or not, orthographic width and the
// port's size in pixels). The camera is the view's, not the scene's: it is
// not undone.
class ViewCameraCommand : public cmd::ParsedCommand {
public:
    static ZSyntax newSyntax() {
        ZSyntax syntax;
        syntax.addFlag("-p", "-position", ZSyntax::kDouble, ZSyntax::kDouble, ZSyntax::kDouble);
        syntax.addFlag("-a", "-aim", ZSyntax::kDouble, ZSyntax::kDouble, ZSyntax::kDouble);
        syntax.addFlag("-hfv", "-horizontalFieldOfView", ZSyntax::kDouble);
        syntax.addFlag("-o", "-orthographic", ZSyntax::kBoolean);
        syntax.addFlag("-ow", "-orthographicWidth", ZSyntax::kDouble);
        syntax.addFlag("-ps", "-portSize", ZSyntax::kLong, ZSyntax::kLong);
        return syntax;
    }

    ZStatus run(const ZArgDatabase& database, const ZStringArray&) override {
        ViewCamera camera = ToolManager::instance().camera();
        const auto point = [&](const char* flag, ZPoint& into) {
            if (database.isFlagSet(flag))
                for (unsigned int i = 0; i < 3; ++i)
                    database.getFlagArgument(flag, i, into[i]);
        };
        point("-position", camera.position);
        point("-aim", camera.aim);
        if (database.isFlagSet("-horizontalFieldOfView"))
            database.getFlagArgument("-horizontalFieldOfView", 0, camera.horizontalFieldOfView);
        if (database.isFlagSet("-orthographic"))
            database.getFlagArgument("-orthographic", 0, camera.orthographic);
        if (database.isFlagSet("-orthographicWidth"))
            database.getFlagArgument("-orthographicWidth", 0, camera.orthographicWidth);
        if (database.isFlagSet("-portSize")) {
            database.getFlagArgument("-portSize", 0, camera.width);
            database.getFlagArgument("-portSize", 1, camera.height);
        }
        if (!isUsable(camera)) {
            cmd::Executor::reportError("viewCamera: the camera needs an aim point apart from its position, a "
                                       "port of pixels and a field of view (or width) above zero");
            return ZStatus::kInvalidParameter;
        }
        ToolManager::instance().camera() = camera;
        return ZStatus::kSuccess;
    }
};

const cmd::BuiltinCommand registration(
    "viewCamera", [] { return std::make_unique<ViewCameraCommand>(); }, ViewCameraCommand::newSyntax);

} // namespace

} // namespace oz::ui
