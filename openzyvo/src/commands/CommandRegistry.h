#pragma once

#include <OpenZyvo/ZPxCommand.h>
#include <OpenZyvo/ZStatus.h>
#include <OpenZyvo/ZSyntax.h>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace oz::cmd {

using CommandCreator = std::function<std::unique_ptr<ZPxCommand>()>;
using SyntaxCreator = std::function<ZSyntax()>;

struct CommandInfo {
    std::string name;
    CommandCreator create;
    SyntaxCreator makeSyntax; // empty: the command reads its ZArgList itself
    std::string owner;        // the plug-in that registered it; empty for the host's own
};

// Every command the host knows by name: the host's built-ins, the graph
// commands and those of plug-ins alike. The command language, Python's
// zyvo.cmds and ZGlobal::executeCommand all look commands up here.
class CommandRegistry {
public:
    static CommandRegistry& instance();

    // Fails with kInvalidParameter for a name that is not an identifier, a
    // name already taken, or a missing creator.
    ZStatus add(CommandInfo info);
    ZStatus remove(const std::string& name);
    // Removes every command of a plug-in and returns their names.
    std::vector<std::string> removeOwnedBy(const std::string& owner);

    // A copy, so that a command may deregister itself while it runs.
    std::optional<CommandInfo> find(const std::string& name) const;
    std::vector<std::string> names() const;

private:
    CommandRegistry() = default;

    mutable std::mutex m_mutex;
    std::map<std::string, CommandInfo> m_commands;
};

// True for names the command language and Python can call: a letter or '_'
// followed by letters, digits and '_'.
bool isIdentifier(const std::string& name);

} // namespace oz::cmd
