#include "commands/ParsedCommand.h"

namespace oz::cmd {

ZStatus ParsedCommand::doIt(const ZArgList& args) {
    ZStatus status;
    const ZArgDatabase database(syntax(), args, &status);
    if (!status)
        return status;
    ZStringArray objects;
    database.getObjects(objects);
    return run(database, objects);
}

} // namespace oz::cmd
