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
ZStatus evaluate(const cmd::Invocation& invocation, cmd::Value& result) {
    std::vector<cmd::ArgItem> args;
    args.reserve(invocation.arguments.size());
    ZStatus status;
    for (const cmd::Argument& argument : invocation.arguments) {
        std::visit(Overloaded{
                       [&](const cmd::Value& value) { args.push_back({value}); },
                       [&](const cmd::FlagArgument& flag) { args.push_back(cmd::ArgItem::flag(flag.name)); },
                       [&](const std::shared_ptr<const cmd::Invocation>& nested) {
                           cmd::Value nestedResult;
                           status = evaluate(*nested, nestedResult);
                           args.push_back({std::move(nestedResult)});
                       },
                   },
                   argument.node);
        if (!status)
            return status;
    }
    return cmd::Executor::invoke(invocation.name, args, result);
}

// Positions inside a statement count from its start; the file's from the top.
cmd::SourcePosition inFile(const StatementText& statement, cmd::SourcePosition inside) {
    if (inside.line == 1)
        return {statement.line, statement.column + inside.column - 1};
    return {statement.line + inside.line - 1, inside.column};
}

// "scene.zya: line 3, column 1: ", where every message of a statement starts.
std::string where(const std::string& source, cmd::SourcePosition at) {
    return source + ": " + cmd::located(at, "");
}

bool aboutSkippedNode(const cmd::Invocation& invocation, const ReadContext& context) {
    for (const cmd::Argument& argument : invocation.arguments)
        if (const auto* value = std::get_if<cmd::Value>(&argument.node))
            if (const auto* text = std::get_if<std::string>(value);
                text && context.isSkipped(nodePart(*text)))
                return true;
    return false;
}

// Statements that set what a node stores, run before the node is constructed.
bool setsStoredValues(const std::string& command) {
    return command == "setAttr" || command == "addAttr";
}

// Runs one statement of the file. A statement that fails is reported and
// the reading goes on; the errors of its commands, whoever reports them,
// carry the file, line and column through the message log's origin.
void runStatement(const StatementText& statement, const std::string& source, ReadContext& context) {
    const cmd::SourcePosition start{statement.line, statement.column};
    switch (statement.end) {
    case StatementText::End::EndOfFile: {
        const cmd::MessageOrigin at(where(source, start));
        cmd::Executor::reportError("the file ends inside this statement (is it cut off?); it was not run");
        return;
    }
    case StatementText::End::OpenComment: {
        const cmd::MessageOrigin at(where(source, start));
        cmd::Executor::reportError("this comment is never closed; nothing after it was read");
        return;
    }
    case StatementText::End::Semicolon:
    case StatementText::End::BrokenString:
        break;
    }
    const cmd::ParseResult parsed = cmd::parse(statement.text);
    if (parsed.error) {
        const cmd::MessageOrigin at(where(source, inFile(statement, parsed.error->position)));
        cmd::Executor::reportError("syntax error: " + parsed.error->message);
        return;
    }
    for (const cmd::Invocation& invocation : parsed.script.statements) {
        const cmd::MessageOrigin at(where(source, inFile(statement, invocation.position)));
        if (!setsStoredValues(invocation.name))
            context.finishConstructions();
        if (aboutSkippedNode(invocation, context)) {
            context.countSkippedStatement();
            continue;
        }
        cmd::Value result;
        evaluate(invocation, result);
    }
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
    ReadContext context;
    cmd::MessageLog& log = cmd::MessageLog::instance();
    {
        // What runs between statements (a postConstructor, say) still names the file.
        const cmd::MessageOrigin inFile(source + ": ");
        for (const StatementText& statement : statements)
            runStatement(statement, source, context);
        context.finishConstructions();
    }
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
