#include "builtins/ResultValue.h"
#include "commands/ArgListData.h"
#include "commands/BuiltinCommand.h"
#include "scene/CommandMessages.h"

#include <OpenZyvoAnim/ZAnimControl.h>
#include <optional>

namespace oz::builtins {

using namespace scene;
namespace {

constexpr const char* kName = "currentTime";

// currentTime <time> moves the scene to a time (in the user's time unit)
// and returns it; currentTime -q returns the current time.
class CurrentTimeCommand : public ZPxCommand {
public:
    ZStatus doIt(const ZArgList& args) override {
        bool query = false;
        std::optional<double> time;
        const auto& items = cmd::ArgListAccess::items(args);
        for (std::size_t i = 0; i < items.size(); ++i) {
            const cmd::ArgItem& item = items[i];
            if (item.isFlag) {
                const auto& flag = std::get<std::string>(item.value);
                if (flag == "q" || flag == "query") {
                    query = true;
                } else if ((flag == "u" || flag == "update") && i + 1 < items.size() &&
                           !items[i + 1].isFlag) {
                    ++i; // every change of time updates the scene
                } else {
                    reportError(kName, "invalid flag '-" + flag + "'");
                    return ZStatus::kInvalidParameter;
                }
            } else {
                const std::optional<double> given = cmd::toDouble(item.value);
                if (time || !given) {
                    reportError(kName, "expects one time, found " + cmd::toText(item.value));
                    return ZStatus::kInvalidParameter;
                }
                time = given;
            }
        }
        if (!query) {
            if (!time) {
                reportError(kName, "give the time to go to, or -query");
                return ZStatus::kInvalidParameter;
            }
            const ZStatus status = ZAnimControl::setCurrentTime(ZTime(*time, ZTime::uiUnit()));
            if (!status)
                return status;
        }
        setResultValue(ZAnimControl::currentTime().as(ZTime::uiUnit()));
        return ZStatus::kSuccess;
    }
};

const cmd::BuiltinCommand registration(kName, [] { return std::make_unique<CurrentTimeCommand>(); });

} // namespace
} // namespace oz::builtins
