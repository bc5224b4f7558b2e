#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZArgList.h>
#include <OpenZyvo/ZStatus.h>
#include <OpenZyvo/ZString.h>
#include <OpenZyvo/ZStringArray.h>
#include <OpenZyvo/ZSyntax.h>
#include <memory>

namespace oz::cmd {
struct ParsedArguments;
} // namespace oz::cmd

// An argument list read against a syntax. Construction checks every flag and
// value; a list that does not fit is reported with displayError and leaves
// the parser empty with kInvalidParameter in `status`. Flags may be named by
// their short or long form, with or without the dash.
class OZ_API ZArgParser {
public:
    ZArgParser();
    ZArgParser(const ZSyntax& syntax, const ZArgList& args, ZStatus* status = nullptr);
    ZArgParser(const ZArgParser& other);
    ZArgParser& operator=(const ZArgParser& other);
    virtual ~ZArgParser();

    bool isFlagSet(const char* flag, ZStatus* status = nullptr) const;
    bool isQuery() const;
    bool isEdit() const;
    // The number of distinct flags given (query and edit not counted).
    unsigned int numberOfFlagsUsed() const;
    unsigned int numberOfFlagUses(const char* flag) const;

    // Arguments of the first use of a flag, by position among its arguments.
    ZString flagArgumentString(const char* flag, unsigned int index, ZStatus* status = nullptr) const;
    int flagArgumentInt(const char* flag, unsigned int index, ZStatus* status = nullptr) const;
    double flagArgumentDouble(const char* flag, unsigned int index, ZStatus* status = nullptr) const;
    bool flagArgumentBool(const char* flag, unsigned int index, ZStatus* status = nullptr) const;

    ZStatus getFlagArgument(const char* flag, unsigned int index, bool& result) const;
    ZStatus getFlagArgument(const char* flag, unsigned int index, int& result) const;
    ZStatus getFlagArgument(const char* flag, unsigned int index, unsigned int& result) const;
    ZStatus getFlagArgument(const char* flag, unsigned int index, double& result) const;
    ZStatus getFlagArgument(const char* flag, unsigned int index, ZString& result) const;
    // The arguments of one use of a (multi-use) flag.
    ZStatus getFlagArgumentList(const char* flag, unsigned int use, ZArgList& result) const;

    // Typed command arguments (ZSyntax::addArg), by position.
    ZStatus getCommandArgument(unsigned int index, bool& result) const;
    ZStatus getCommandArgument(unsigned int index, int& result) const;
    ZStatus getCommandArgument(unsigned int index, double& result) const;
    ZStatus getCommandArgument(unsigned int index, ZString& result) const;

    // The objects given after the command arguments, as names.
    ZStatus getObjects(ZStringArray& result) const;

protected:
    const oz::cmd::ParsedArguments* parsed() const { return m_parsed.get(); }

private:
    std::shared_ptr<const oz::cmd::ParsedArguments> m_parsed;
};
