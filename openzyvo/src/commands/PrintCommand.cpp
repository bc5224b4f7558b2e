#include "commands/ArgListData.h"
#include "commands/BuiltinCommand.h"

namespace {

// print value ...: writes its arguments, separated by blanks, to the message log.
class PrintCommand : public ZPxCommand {
public:
    ZStatus doIt(const ZArgList& args) override {
        std::string line;
        for (const oz::cmd::ArgItem& item : oz::cmd::ArgListAccess::items(args)) {
            if (!line.empty())
                line += ' ';
            line += (item.isFlag ? "-" : "") + oz::cmd::toText(item.value);
        }
        displayInfo(ZString(line));
        return ZStatus::kSuccess;
    }
};

const oz::cmd::BuiltinCommand registration("print", [] { return std::make_unique<PrintCommand>(); });

} // namespace
