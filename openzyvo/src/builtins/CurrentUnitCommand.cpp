#include "builtins/ResultValue.h"
#include "commands/BuiltinCommand.h"
#include "commands/ParsedCommand.h"
#include "scene/CommandMessages.h"
#include "scene/UnitNames.h"

#include <OpenZyvo/ZArgDatabase.h>

namespace oz::builtins {

using namespace scene;
namespace {

constexpr const char* kName = "currentUnit";

// currentUnit [-l linear] [-a angle] [-t time] sets the units commands and
// scene files give lengths, angles and times in; currentUnit -q -l (or -a,
// -t) returns one. Scene files start with it, so a scene reads back in the
// units it was written in.
class CurrentUnitCommand : public cmd::ParsedCommand {
public:
    static ZSyntax newSyntax() {
        ZSyntax syntax;
        syntax.addFlag("-l", "-linear", ZSyntax::kString);
        syntax.addFlag("-a", "-angle", ZSyntax::kString);
        syntax.addFlag("-t", "-time", ZSyntax::kString);
        syntax.enableQuery();
        return syntax;
    }

    ZStatus run(const ZArgDatabase& database, const ZStringArray& objects) override {
        if (database.isQuery()) {
            if (database.isFlagSet("-linear"))
                setResultValue(std::string(linearUnitName(ZDistance::uiUnit())));
            else if (database.isFlagSet("-angle"))
                setResultValue(std::string(angularUnitName(ZAngle::uiUnit())));
            else if (database.isFlagSet("-time"))
                setResultValue(std::string(timeUnitName(ZTime::uiUnit())));
            else {
                reportError(kName, "query one of -linear, -angle or -time");
                return ZStatus::kInvalidParameter;
            }
            return ZStatus::kSuccess;
        }
        // Every name is checked before any unit changes.
        std::optional<ZDistance::Unit> linear;
        std::optional<ZAngle::Unit> angle;
        std::optional<ZTime::Unit> time;
        if (!read(database, "-linear", linearUnitNamed, linear) ||
            !read(database, "-angle", angularUnitNamed, angle) ||
            !read(database, "-time", timeUnitNamed, time))
            return ZStatus::kInvalidParameter;
        if (linear)
            ZDistance::setUIUnit(*linear);
        if (angle)
            ZAngle::setUIUnit(*angle);
        if (time)
            ZTime::setUIUnit(*time);
        return ZStatus::kSuccess;
    }

private:
    template <typename Unit, typename Lookup>
    static bool read(const ZArgDatabase& database, const char* flag, Lookup lookup,
                     std::optional<Unit>& unit) {
        if (!database.isFlagSet(flag))
            return true;
        const ZString name = database.flagArgumentString(flag, 0);
        unit = lookup(name.view());
        if (!unit)
            reportError(kName, "unknown unit \"" + name.asStdString() + "\" for " + flag);
        return unit.has_value();
    }
};

const cmd::BuiltinCommand registration(
    kName, [] { return std::make_unique<CurrentUnitCommand>(); }, CurrentUnitCommand::newSyntax);

} // namespace
} // namespace oz::builtins
