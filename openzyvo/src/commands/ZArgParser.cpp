#include "commands/Executor.h"
#include "commands/ParsedArguments.h"
#include "core/StatusOut.h"

#include <OpenZyvo/ZArgParser.h>

using oz::setStatus;
using oz::cmd::ParsedArguments;
using oz::cmd::Value;

namespace {

const Value* flagArgument(const ParsedArguments* parsed, const char* flag, unsigned int index) {
    if (!parsed)
        return nullptr;
    const ParsedArguments::FlagUse* use = parsed->use(oz::cmd::flagName(flag));
    if (!use || index >= use->args.size())
        return nullptr;
    return &use->args[index];
}

template <typename T, typename Convert> ZStatus readValue(const Value* value, T& result, Convert convert) {
    if (!value)
        return ZStatus::kInvalidParameter;
    const auto converted = convert(*value);
    if (!converted)
        return ZStatus::kInvalidParameter;
    result = static_cast<T>(*converted);
    return ZStatus::kSuccess;
}

std::optional<std::string> asText(const Value& value) {
    return oz::cmd::toString(value);
}

const Value* commandArgument(const ParsedArguments* parsed, unsigned int index) {
    if (!parsed || index >= parsed->commandArgs.size())
        return nullptr;
    return &parsed->commandArgs[index];
}

} // namespace

ZArgParser::ZArgParser() = default;

ZArgParser::ZArgParser(const ZSyntax& syntax, const ZArgList& args, ZStatus* status) {
    oz::cmd::ParseOutcome outcome =
        oz::cmd::parseArguments(oz::cmd::SyntaxAccess::data(syntax), oz::cmd::ArgListAccess::items(args));
    if (!outcome.parsed) {
        const std::string command = oz::cmd::Executor::currentCommandName();
        oz::cmd::Executor::reportError(command.empty() ? outcome.error : command + ": " + outcome.error);
        setStatus(status, ZStatus::kInvalidParameter);
        return;
    }
    m_parsed = std::make_shared<const ParsedArguments>(std::move(*outcome.parsed));
    setStatus(status, ZStatus::kSuccess);
}

ZArgParser::ZArgParser(const ZArgParser& other) = default;
ZArgParser& ZArgParser::operator=(const ZArgParser& other) = default;
ZArgParser::~ZArgParser() = default;

bool ZArgParser::isFlagSet(const char* flag, ZStatus* status) const {
    setStatus(status, m_parsed ? ZStatus::kSuccess : ZStatus::kInvalidParameter);
    return m_parsed && m_parsed->use(oz::cmd::flagName(flag));
}

bool ZArgParser::isQuery() const {
    return m_parsed && m_parsed->query;
}

bool ZArgParser::isEdit() const {
    return m_parsed && m_parsed->edit;
}

unsigned int ZArgParser::numberOfFlagsUsed() const {
    return m_parsed ? m_parsed->distinctFlags() : 0;
}

unsigned int ZArgParser::numberOfFlagUses(const char* flag) const {
    return m_parsed ? m_parsed->useCount(oz::cmd::flagName(flag)) : 0;
}

ZString ZArgParser::flagArgumentString(const char* flag, unsigned int index, ZStatus* status) const {
    ZString result;
    setStatus(status, getFlagArgument(flag, index, result));
    return result;
}

int ZArgParser::flagArgumentInt(const char* flag, unsigned int index, ZStatus* status) const {
    int result = 0;
    setStatus(status, getFlagArgument(flag, index, result));
    return result;
}

double ZArgParser::flagArgumentDouble(const char* flag, unsigned int index, ZStatus* status) const {
    double result = 0.0;
    setStatus(status, getFlagArgument(flag, index, result));
    return result;
}

bool ZArgParser::flagArgumentBool(const char* flag, unsigned int index, ZStatus* status) const {
    bool result = false;
    setStatus(status, getFlagArgument(flag, index, result));
    return result;
}

ZStatus ZArgParser::getFlagArgument(const char* flag, unsigned int index, bool& result) const {
    return readValue(flagArgument(m_parsed.get(), flag, index), result, oz::cmd::toBool);
}

ZStatus ZArgParser::getFlagArgument(const char* flag, unsigned int index, int& result) const {
    return readValue(flagArgument(m_parsed.get(), flag, index), result, oz::cmd::toInt);
}

ZStatus ZArgParser::getFlagArgument(const char* flag, unsigned int index, unsigned int& result) const {
    int value = 0;
    const ZStatus status = getFlagArgument(flag, index, value);
    if (!status || value < 0)
        return ZStatus::kInvalidParameter;
    result = static_cast<unsigned int>(value);
    return status;
}

ZStatus ZArgParser::getFlagArgument(const char* flag, unsigned int index, double& result) const {
    return readValue(flagArgument(m_parsed.get(), flag, index), result, oz::cmd::toDouble);
}

ZStatus ZArgParser::getFlagArgument(const char* flag, unsigned int index, ZString& result) const {
    std::string text;
    const ZStatus status = readValue(flagArgument(m_parsed.get(), flag, index), text, asText);
    if (status)
        result = ZString(std::move(text));
    return status;
}

ZStatus ZArgParser::getFlagArgumentList(const char* flag, unsigned int use, ZArgList& result) const {
    if (!m_parsed)
        return ZStatus::kInvalidParameter;
    const ParsedArguments::FlagUse* flagUse = m_parsed->use(oz::cmd::flagName(flag), use);
    if (!flagUse)
        return ZStatus::kInvalidParameter;
    std::vector<oz::cmd::ArgItem> items;
    for (const Value& value : flagUse->args)
        items.push_back({value});
    result = oz::cmd::ArgListAccess::make(std::move(items));
    return ZStatus::kSuccess;
}

ZStatus ZArgParser::getCommandArgument(unsigned int index, bool& result) const {
    return readValue(commandArgument(m_parsed.get(), index), result, oz::cmd::toBool);
}

ZStatus ZArgParser::getCommandArgument(unsigned int index, int& result) const {
    return readValue(commandArgument(m_parsed.get(), index), result, oz::cmd::toInt);
}

ZStatus ZArgParser::getCommandArgument(unsigned int index, double& result) const {
    return readValue(commandArgument(m_parsed.get(), index), result, oz::cmd::toDouble);
}

ZStatus ZArgParser::getCommandArgument(unsigned int index, ZString& result) const {
    std::string text;
    const ZStatus status = readValue(commandArgument(m_parsed.get(), index), text, asText);
    if (status)
        result = ZString(std::move(text));
    return status;
}

ZStatus ZArgParser::getObjects(ZStringArray& result) const {
    if (!m_parsed)
        return ZStatus::kInvalidParameter;
    result.clear();
    for (const std::string& name : m_parsed->objects)
        result.append(ZString(name));
    return ZStatus::kSuccess;
}
