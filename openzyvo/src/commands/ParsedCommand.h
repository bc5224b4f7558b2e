#pragma once

#include <OpenZyvo/ZArgDatabase.h>
#include <OpenZyvo/ZPxCommand.h>
#include <OpenZyvo/ZStringArray.h>

namespace oz::cmd {

// A built-in command that reads its arguments through the syntax it was registered with: every
// such command starts the same way, so the reading happens once here and run() begins with the
// flags and the objects named. A call the syntax refuses has been reported by the parser and
// never reaches run().
class ParsedCommand : public ZPxCommand {
public:
    ZStatus doIt(const ZArgList& args) final;

protected:
    virtual ZStatus run(const ZArgDatabase& database, const ZStringArray& objects) = 0;
};

} // namespace oz::cmd
