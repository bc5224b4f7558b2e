#include "builtins/ResultValue.h"
#include "commands/BuiltinCommand.h"
#include "commands/ParsedCommand.h"
#include "scene/CommandMessages.h"

#include <OpenZyvo/ZArgDatabase.h>
#include <OpenZyvoAnim/ZAnimControl.h>
#include <algorithm>
#include <array>

namespace oz::builtins {

using namespace scene;
namespace {

constexpr const char* kName = "playbackOptions";

constexpr std::array<std::pair<ZAnimControl::PlaybackMode, const char*>, 3> kModes{{
    {ZAnimControl::kPlaybackOnce, "once"},
    {ZAnimControl::kPlaybackLoop, "continuous"},
    {ZAnimControl::kPlaybackOscillate, "oscillate"},
}};

double frames(const ZTime& time) {
    return time.as(ZTime::uiUnit());
}

// playbackOptions [-min t] [-max t] [-ast t] [-aet t] [-l once|continuous|oscillate]
// sets the playback range, the animation range around it and how playback
// loops (times in the user's unit); with -q it returns one of them.
class PlaybackOptionsCommand : public cmd::ParsedCommand {
public:
    static ZSyntax newSyntax() {
        ZSyntax syntax;
        syntax.addFlag("-min", "-minTime", ZSyntax::kTime);
        syntax.addFlag("-max", "-maxTime", ZSyntax::kTime);
        syntax.addFlag("-ast", "-animationStartTime", ZSyntax::kTime);
        syntax.addFlag("-aet", "-animationEndTime", ZSyntax::kTime);
        syntax.addFlag("-l", "-loop", ZSyntax::kString);
        syntax.enableQuery();
        return syntax;
    }

    ZStatus run(const ZArgDatabase& database, const ZStringArray& objects) override {
        ZStatus status;
        if (database.isQuery())
            return query(database);
        auto time = [&](const char* flag, const ZTime& otherwise) {
            return database.isFlagSet(flag) ? ZTime(database.flagArgumentDouble(flag, 0), ZTime::uiUnit())
                                            : otherwise;
        };
        const ZTime start = time("-animationStartTime", ZAnimControl::animationStartTime());
        const ZTime end = time("-animationEndTime", ZAnimControl::animationEndTime());
        const ZTime min = time("-minTime", ZAnimControl::minTime());
        const ZTime max = time("-maxTime", ZAnimControl::maxTime());
        if (start > end || min > max) {
            reportError(kName, "a range cannot start after it ends");
            return ZStatus::kInvalidParameter;
        }
        if (database.isFlagSet("-loop")) {
            const ZString name = database.flagArgumentString("-loop", 0);
            auto mode =
                std::find_if(kModes.begin(), kModes.end(), [&](const auto& m) { return name == m.second; });
            if (mode == kModes.end()) {
                reportError(kName, "-loop takes \"once\", \"continuous\" or \"oscillate\", not \"" +
                                       name.asStdString() + "\"");
                return ZStatus::kInvalidParameter;
            }
            ZAnimControl::setPlaybackMode(mode->first);
        }
        if (!(status = ZAnimControl::setAnimationStartEndTime(start, end)))
            return status;
        return ZAnimControl::setMinMaxTime(min, max);
    }

private:
    static ZStatus query(const ZArgDatabase& database) {
        if (database.isFlagSet("-minTime"))
            setResultValue(frames(ZAnimControl::minTime()));
        else if (database.isFlagSet("-maxTime"))
            setResultValue(frames(ZAnimControl::maxTime()));
        else if (database.isFlagSet("-animationStartTime"))
            setResultValue(frames(ZAnimControl::animationStartTime()));
        else if (database.isFlagSet("-animationEndTime"))
            setResultValue(frames(ZAnimControl::animationEndTime()));
        else if (database.isFlagSet("-loop"))
            setResultValue(std::string(kModes[ZAnimControl::playbackMode()].second));
        else {
            reportError(kName,
                        "query one of -minTime, -maxTime, -animationStartTime, -animationEndTime, -loop");
            return ZStatus::kInvalidParameter;
        }
        return ZStatus::kSuccess;
    }
};

const cmd::BuiltinCommand registration(
    kName, [] { return std::make_unique<PlaybackOptionsCommand>(); }, PlaybackOptionsCommand::newSyntax);

} // namespace
} // namespace oz::builtins
