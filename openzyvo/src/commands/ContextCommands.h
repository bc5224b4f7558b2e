#pragma once

#include <OpenZyvo/ZArgParser.h>
#include <OpenZyvo/ZPxContextCommand.h>
#include <OpenZyvo/ZStatus.h>
#include <OpenZyvo/ZSyntax.h>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace oz::cmd {

struct ContextCommandState {
    ZSyntax syntax;
    ZArgParser parser;
};

struct ContextCommandAccess {
    static ContextCommandState& state(ZPxContextCommand& command) { return *command.m_state; }
};

using ContextCommandCreator = std::function<std::unique_ptr<ZPxContextCommand>()>;

// The tool contexts made by context commands, by name, each with the command
// instance that made it. The contexts themselves belong to the host's tool
// side, which adopts each new context and releases the ones that go away
// through the two hooks.
class ContextCommands {
public:
    using AdoptHook = std::function<void(const std::string& name, ZPxContext* context)>;
    using ReleaseHook = std::function<void(const std::string& name, ZPxContext* context)>;

    static ContextCommands& instance();

    // Registers `name` as a command that makes contexts.
    ZStatus registerCommand(const std::string& name, ContextCommandCreator create,
                            const std::string& owner = {});
    ZStatus deregisterCommand(const std::string& name);

    void setHooks(AdoptHook adopt, ReleaseHook release);

    ZPxContext* find(const std::string& contextName) const;
    std::vector<std::string> contextNames() const;
    // Releases the contexts the command made.
    void removeContextsOf(const std::string& commandName);

    // The body of every context command.
    ZStatus run(const std::string& commandName, const ContextCommandCreator& create, const ZArgList& args);

private:
    ContextCommands() = default;

    struct Entry {
        std::string commandName;
        std::unique_ptr<ZPxContextCommand> command;
        ZPxContext* context = nullptr;
    };

    ZStatus create(const std::string& commandName, const ContextCommandCreator& creator,
                   const ZArgList& args);
    ZStatus editOrQuery(const std::string& commandName, const ZArgList& args);
    std::string freshName(const std::string& commandName) const;

    std::map<std::string, Entry> m_contexts;
    AdoptHook m_adopt;
    ReleaseHook m_release;
};

} // namespace oz::cmd
