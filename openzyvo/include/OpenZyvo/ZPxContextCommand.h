#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZArgParser.h>
#include <OpenZyvo/ZStatus.h>
#include <OpenZyvo/ZString.h>
#include <OpenZyvo/ZSyntax.h>
#include <memory>

class ZPxContext;

namespace oz::cmd {
struct ContextCommandAccess;
struct ContextCommandState;
} // namespace oz::cmd

// Base of the commands that make tool contexts. Called without -edit or
// -query, the command creates a context through makeObj, names it (after the
// one object given, or "<command>1", "<command>2", ...), applies its flags
// through doEditFlags and returns the name. The instance stays with its
// context: `<command> -e ... <name>` and `<command> -q ... <name>` call
// doEditFlags and doQueryFlags on it.
class OZ_API ZPxContextCommand {
public:
    ZPxContextCommand();
    virtual ~ZPxContextCommand();
    ZPxContextCommand(const ZPxContextCommand&) = delete;
    ZPxContextCommand& operator=(const ZPxContextCommand&) = delete;

    virtual ZPxContext* makeObj() = 0;
    virtual ZStatus doEditFlags();
    virtual ZStatus doQueryFlags();
    // Adds the command's own flags to syntax(); -edit and -query are there already.
    virtual ZStatus appendSyntax();

    ZSyntax syntax() const;
    // The arguments of the call being handled.
    ZArgParser parser() const;

    static void setResult(bool result);
    static void setResult(int result);
    static void setResult(double result);
    static void setResult(const ZString& result);

private:
    friend struct oz::cmd::ContextCommandAccess;
    std::unique_ptr<oz::cmd::ContextCommandState> m_state;
};
