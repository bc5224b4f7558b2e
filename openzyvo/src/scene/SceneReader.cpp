#include "scene/SceneReader.h"

#include "commands/Executor.h"
#include "commands/MessageLog.h"
#include "commands/Parser.h"
#include "core/Overloaded.h"
#include "scene/PendingCompounds.h"
#include "scene/ReadContext.h"
#include "scene/SceneLookup.h"

#include <charconv>

namespace oz::scene {

namespace {

// Runs one invocation of the file; nested calls give their results as values.
ZStatus evaluate(const cmd::Invocation& invocation, const std::string& where, cmd::Value& result) {
    std::vector<cmd::ArgItem> args;
    args.reserve(invocation.arguments.size());
    ZStatus status;
    for (const cmd::Argument& argument : invocation.arguments) {
        std::visit(Overloaded{
                       [&](const cmd::Value& value) { args.push_back({value}); },
                       [&](const cmd::FlagArgument& flag) { args.push_back(cmd::ArgItem::flag(flag.name)); },
                       [&](const std::shared_ptr<const cmd::Invocation>& nested) {
                           cmd::Value nestedResult;
                           status = evaluate(*nested, where, nestedResult);
                           args.push_back({std::move(nestedResult)});
                       },
                   },
                   argument.node);
        if (!status)
            return status;
    }
    return cmd::Executor::invoke(invocation.name, args, result, where);
}

// Positions inside a statement count from its start; the file's from the top.
cmd::SourcePosition inFile(const StatementText& statement, cmd::SourcePosition inside) {
    if (inside.line == 1)
        return {statement.line, statement.column + inside.column - 1};
    return {statement.line + inside.line - 1, inside.column};
}

bool aboutSkippedNode(const cmd::Invocation& invocation, const ReadContext& context) {
    for (const cmd::Argument& argument : invocation.arguments)
        if (const auto* value = std::get_if<cmd::Value>(&argument.node))
            if (const auto* text = std::get_if<std::string>(value);
                text && context.isSkipped(nodePart(*text)))
                return true;
    return false;
}

// Errors that commands report themselves carry the file and line; others
// (a plug-in's command, say) get a line of their own.
void locateUnlocated(std::size_t errorsBefore, const ReadContext& context, const std::string& command) {
    cmd::MessageLog& log = cmd::MessageLog::instance();
    const std::size_t added = log.errorCount() - errorsBefore;
    if (added == 0) {
        cmd::Executor::reportError(context.where() + command + " failed");
        return;
    }
    const auto errors = log.texts(cmd::MessageLog::Kind::Error);
    for (std::size_t i = errors.size() >= added ? errors.size() - added : 0; i < errors.size(); ++i)
        if (errors[i].starts_with(context.where()))
            return;
    cmd::Executor::reportError(context.where() + command + " failed");
}

// Statements that set what a node stores, run before the node is constructed.
bool setsStoredValues(const std::string& command) {
    return command == "setAttr" || command == "addAttr";
}

} // namespace

std::optional<int> headerVersion(const std::vector<StatementText>& statements, std::string& stated) {
    for (const StatementText& statement : statements) {
        const cmd::ParseResult parsed = cmd::parse(statement.text);
        if (parsed.error || parsed.script.statements.empty())
            continue;
        const cmd::Invocation& invocation = parsed.script.statements.front();
        if (invocation.name == "createNode")
            break;
        if (invocation.name != "fileInfo" || invocation.arguments.size() != 2)
            continue;
        const auto* key = std::get_if<cmd::Value>(&invocation.arguments[0].node);
        const auto* value = std::get_if<cmd::Value>(&invocation.arguments[1].node);
        if (!key || !value || cmd::toText(*key) != "version")
            continue;
        stated = cmd::toText(*value);
        int version = 0;
        const auto [end, ec] = std::from_chars(stated.data(), stated.data() + stated.size(), version);
        if (ec != std::errc() || end != stated.data() + stated.size() || version <= 0)
            return std::nullopt;
        return version;
    }
    return std::nullopt;
}

void runSceneStatements(const std::vector<StatementText>& statements, const std::string& source) {
    ReadContext context(source);
    cmd::MessageLog& log = cmd::MessageLog::instance();
    for (const StatementText& statement : statements) {
        context.setPosition(statement.line, statement.column);
        if (statement.end == StatementText::End::EndOfFile) {
            cmd::Executor::reportError(context.where() +
                                       "the file ends inside this statement (is it cut off?); "
                                       "it was not run");
            continue;
        }
        const cmd::ParseResult parsed = cmd::parse(statement.text);
        if (parsed.error) {
            const cmd::SourcePosition at = inFile(statement, parsed.error->position);
            context.setPosition(at.line, at.column);
            cmd::Executor::reportError(context.where() + "syntax error: " + parsed.error->message);
            continue;
        }
        for (const cmd::Invocation& invocation : parsed.script.statements) {
            const cmd::SourcePosition at = inFile(statement, invocation.position);
            context.setPosition(at.line, at.column);
            if (!setsStoredValues(invocation.name))
                context.finishConstructions();
            if (aboutSkippedNode(invocation, context)) {
                context.countSkippedStatement();
                continue;
            }
            const std::size_t errorsBefore = log.errorCount();
            cmd::Value result;
            if (!evaluate(invocation, context.where(), result))
                locateUnlocated(errorsBefore, context, invocation.name);
        }
    }
    context.finishConstructions();
    if (context.skippedStatements() > 0)
        log.add(cmd::MessageLog::Kind::Warning,
                source + ": " + std::to_string(context.skippedStatements()) +
                    " statements about nodes that could not be made were skipped");
    for (const auto& [node, compound] : PendingCompounds::instance().unfinished()) {
        log.add(cmd::MessageLog::Kind::Error, source + ": the compound attribute '" + compound + "' of '" +
                                                  node + "' never got all its children and was not added");
    }
    PendingCompounds::instance().clear();
}

} // namespace oz::scene
