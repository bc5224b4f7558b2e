#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZStatus.h>
#include <memory>

namespace oz::cmd {
struct SyntaxAccess;
struct SyntaxData;
} // namespace oz::cmd

// What a command accepts: its flags with the types of their arguments, its
// typed command arguments and the objects that may follow them. The runtime
// checks every call of a command with a syntax against it before the command
// runs. A ZSyntax is a handle: copies share one description, so that a
// command can add to the syntax it was given.
class OZ_API ZSyntax {
public:
    enum ZArgType {
        kInvalidArgType,
        kNoArg,
        kBoolean,
        kLong,
        kDouble,
        kString,
        kUnsigned,
        kDistance,
        kAngle,
        kTime,
        kSelectionItem,
        kLastArgType,
    };

    enum ZObjectFormat {
        kInvalidObjectFormat,
        kNone,          // no objects (the default)
        kStringObjects, // object names as strings
        kSelectionList, // object names, the active selection when none are given
        kLastObjectFormat,
    };

    static constexpr unsigned int kUnlimited = 0xFFFFFFFFu;

    ZSyntax();

    // Flag names start with a dash ("-gr", "-groupIdNode"). A flag takes up to
    // six arguments; kNoArg ends the list. Fails with kInvalidParameter for a
    // missing dash or a name already in use.
    ZStatus addFlag(const char* shortName, const char* longName, ZArgType arg1 = kNoArg,
                    ZArgType arg2 = kNoArg, ZArgType arg3 = kNoArg, ZArgType arg4 = kNoArg,
                    ZArgType arg5 = kNoArg, ZArgType arg6 = kNoArg);
    // The flag may be given several times; each use keeps its own arguments.
    ZStatus makeFlagMultiUse(const char* flag);
    // In query mode the flag still takes its arguments (when `optional`, only
    // if they are given).
    ZStatus makeFlagQueryWithFullArgs(const char* flag, bool optional);

    // A typed argument that follows the flags, before any objects.
    ZStatus addArg(ZArgType type);

    ZStatus setObjectType(ZObjectFormat format, unsigned int minimum = 0, unsigned int maximum = kUnlimited);
    ZStatus setMinObjects(unsigned int minimum);
    ZStatus setMaxObjects(unsigned int maximum);
    void useSelectionAsDefault(bool useSelection);

    // Accept "-q"/"-query" and "-e"/"-edit".
    void enableQuery(bool enable = true);
    void enableEdit(bool enable = true);
    bool canQuery() const;
    bool canEdit() const;

private:
    friend struct oz::cmd::SyntaxAccess;
    std::shared_ptr<oz::cmd::SyntaxData> m_data;
};
