#include "commands/ContextCommands.h"

#include "commands/CommandRegistry.h"
#include "commands/Executor.h"

#include <OpenZyvo/ZPxCommand.h>

namespace oz::cmd {

namespace {

ZSyntax baseSyntax() {
    ZSyntax syntax;
    syntax.enableEdit();
    syntax.enableQuery();
    syntax.setObjectType(ZSyntax::kStringObjects, 0, 1);
    return syntax;
}

// What the command registry runs for a context command: each call goes to
// the context table, which knows the contexts made so far.
class ContextCommandRunner : public ZPxCommand {
public:
    ContextCommandRunner(std::string name, ContextCommandCreator create)
        : m_name(std::move(name))
        , m_create(std::move(create)) {}

    bool hasSyntax() const override { return false; }
    ZStatus doIt(const ZArgList& args) override {
        return ContextCommands::instance().run(m_name, m_create, args);
    }

private:
    std::string m_name;
    ContextCommandCreator m_create;
};

} // namespace

ContextCommands& ContextCommands::instance() {
    static ContextCommands table;
    return table;
}

ZStatus ContextCommands::registerCommand(const std::string& name, ContextCommandCreator create,
                                         const std::string& owner) {
    if (!create)
        return ZStatus::kInvalidParameter;
    return CommandRegistry::instance().add(
        {name, [name, create] { return std::make_unique<ContextCommandRunner>(name, create); }, {}, owner});
}

ZStatus ContextCommands::deregisterCommand(const std::string& name) {
    removeContextsOf(name);
    return CommandRegistry::instance().remove(name);
}

void ContextCommands::setHooks(AdoptHook adopt, ReleaseHook release) {
    m_adopt = std::move(adopt);
    m_release = std::move(release);
}

ZPxContext* ContextCommands::find(const std::string& contextName) const {
    const auto it = m_contexts.find(contextName);
    return it == m_contexts.end() ? nullptr : it->second.context;
}

std::vector<std::string> ContextCommands::contextNames() const {
    std::vector<std::string> names;
    for (const auto& entry : m_contexts)
        names.push_back(entry.first);
    return names;
}

void ContextCommands::removeContextsOf(const std::string& commandName) {
    for (auto it = m_contexts.begin(); it != m_contexts.end();) {
        if (it->second.commandName != commandName) {
            ++it;
            continue;
        }
        if (m_release)
            m_release(it->first, it->second.context);
        it = m_contexts.erase(it);
    }
}

ZStatus ContextCommands::run(const std::string& commandName, const ContextCommandCreator& creator,
                             const ZArgList& args) {
    std::unique_ptr<ZPxContextCommand> command = creator();
    if (!command)
        return ZStatus::kFailure;
    ContextCommandState& state = ContextCommandAccess::state(*command);
    state.syntax = baseSyntax();
    ZStatus status = command->appendSyntax();
    if (!status)
        return status;
    const ZArgParser parser(state.syntax, args, &status);
    if (!status)
        return status;
    ZStringArray objects;
    parser.getObjects(objects);

    if (parser.isEdit() || parser.isQuery()) {
        if (objects.length() == 0) {
            Executor::reportError(commandName + ": -edit and -query need the name of a context");
            return ZStatus::kInvalidParameter;
        }
        const auto it = m_contexts.find(objects[0].asStdString());
        if (it == m_contexts.end() || it->second.commandName != commandName) {
            Executor::reportError(commandName + ": no context named \"" + objects[0].asStdString() +
                                  "\" was made by this command");
            return ZStatus::kNotFound;
        }
        ZPxContextCommand& owner = *it->second.command;
        ContextCommandAccess::state(owner).parser = parser;
        return parser.isEdit() ? owner.doEditFlags() : owner.doQueryFlags();
    }

    const std::string name = objects.length() ? objects[0].asStdString() : freshName(commandName);
    if (m_contexts.count(name)) {
        Executor::reportError(commandName + ": a context named \"" + name + "\" already exists");
        return ZStatus::kInvalidParameter;
    }
    ZPxContext* context = command->makeObj();
    if (!context) {
        Executor::reportError(commandName + ": the context could not be made");
        return ZStatus::kFailure;
    }
    state.parser = parser;
    ZPxContextCommand& made = *command;
    m_contexts[name] = Entry{commandName, std::move(command), context};
    if (m_adopt)
        m_adopt(name, context);
    status = made.doEditFlags();
    ZPxCommand::setResult(ZString(name));
    return status;
}

std::string ContextCommands::freshName(const std::string& commandName) const {
    for (int n = 1;; ++n) {
        std::string candidate = commandName + std::to_string(n);
        if (!m_contexts.count(candidate))
            return candidate;
    }
}

} // namespace oz::cmd
