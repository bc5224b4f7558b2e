#include "commands/CommandState.h"
#include "commands/Executor.h"
#include "commands/MessageLog.h"

#include <OpenZyvo/ZPxCommand.h>

using oz::cmd::Executor;
using oz::cmd::Value;

namespace {

void store(Value value) {
    if (Value* result = Executor::currentResult())
        *result = std::move(value);
}

template <typename T> void append(T item) {
    Value* result = Executor::currentResult();
    if (!result)
        return;
    if (auto* items = std::get_if<std::vector<T>>(result)) {
        items->push_back(std::move(item));
    } else if (auto* scalar = std::get_if<T>(result)) {
        *result = std::vector<T>{std::move(*scalar), std::move(item)};
    } else {
        *result = std::vector<T>{std::move(item)};
    }
}

} // namespace

ZPxCommand::ZPxCommand()
    : m_state(std::make_unique<oz::cmd::CommandState>()) {}

ZPxCommand::~ZPxCommand() = default;

ZStatus ZPxCommand::doIt(const ZArgList&) {
    return ZStatus::kNotImplemented;
}

ZStatus ZPxCommand::undoIt() {
    return ZStatus::kNotImplemented;
}

ZStatus ZPxCommand::redoIt() {
    return ZStatus::kNotImplemented;
}

bool ZPxCommand::isUndoable() const {
    return false;
}

bool ZPxCommand::hasSyntax() const {
    return true;
}

ZSyntax ZPxCommand::syntax() const {
    return m_state->syntax;
}

ZString ZPxCommand::commandName() const {
    return ZString(m_state->name);
}

void ZPxCommand::clearResult() {
    store(Value());
}

void ZPxCommand::setResult(bool result) {
    store(Value(result));
}

void ZPxCommand::setResult(int result) {
    store(Value(result));
}

void ZPxCommand::setResult(double result) {
    store(Value(result));
}

void ZPxCommand::setResult(const ZString& result) {
    store(Value(result.asStdString()));
}

void ZPxCommand::setResult(const char* result) {
    store(Value(std::string(result ? result : "")));
}

void ZPxCommand::setResult(const ZIntArray& result) {
    store(Value(result.asVector()));
}

void ZPxCommand::setResult(const ZDoubleArray& result) {
    store(Value(result.asVector()));
}

void ZPxCommand::setResult(const ZStringArray& result) {
    std::vector<std::string> texts;
    for (const ZString& text : result)
        texts.push_back(text.asStdString());
    store(Value(std::move(texts)));
}

void ZPxCommand::appendToResult(int result) {
    append(result);
}

void ZPxCommand::appendToResult(double result) {
    append(result);
}

void ZPxCommand::appendToResult(const ZString& result) {
    append(result.asStdString());
}

void ZPxCommand::appendToResult(const char* result) {
    append(std::string(result ? result : ""));
}

void ZPxCommand::displayInfo(const ZString& text) {
    oz::cmd::MessageLog::instance().add(oz::cmd::MessageLog::Kind::Info, text.asStdString());
}

void ZPxCommand::displayWarning(const ZString& text) {
    oz::cmd::MessageLog::instance().add(oz::cmd::MessageLog::Kind::Warning, text.asStdString());
}

void ZPxCommand::displayError(const ZString& text) {
    oz::cmd::MessageLog::instance().add(oz::cmd::MessageLog::Kind::Error, text.asStdString());
}
