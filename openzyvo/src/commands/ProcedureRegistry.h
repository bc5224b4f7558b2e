#pragma once

#include "commands/Value.h"

#include <OpenZyvo/ZStatus.h>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace oz::cmd {

// A script procedure: called with the values of its arguments (a flag
// arrives as its text, "-name"), it reports its own errors and returns its
// result through `result`.
using Procedure = std::function<ZStatus(const std::vector<Value>& args, Value& result)>;

// Procedures of the host-side scripts, callable by name like commands
// ("typeInitPlugin", "createExtruderGroupIds(\"typeExtrude1\", 3)"). A name
// that is a registered command always means the command.
class ProcedureRegistry {
public:
    static ProcedureRegistry& instance();

    // Procedures added while an OwnerScope is open belong to its owner, so
    // that the procedures a plug-in's scripts register go away with it.
    class OwnerScope {
    public:
        explicit OwnerScope(std::string owner);
        ~OwnerScope();
        OwnerScope(const OwnerScope&) = delete;
        OwnerScope& operator=(const OwnerScope&) = delete;

    private:
        std::string m_previous;
    };

    // Replaces an earlier procedure of the same name, so that scripts can be
    // reloaded. Fails with kInvalidParameter for a name that is not an
    // identifier or an empty procedure.
    ZStatus add(const std::string& name, Procedure procedure);
    ZStatus remove(const std::string& name);
    std::vector<std::string> removeOwnedBy(const std::string& owner);
    void clear();

    // A copy, so that a procedure may replace itself while it runs.
    std::optional<Procedure> find(const std::string& name) const;
    std::vector<std::string> names() const;

private:
    ProcedureRegistry() = default;

    struct Entry {
        Procedure procedure;
        std::string owner;
    };

    mutable std::mutex m_mutex;
    std::map<std::string, Entry> m_procedures;
    std::string m_owner;
};

} // namespace oz::cmd
