#include "commands/ContextCommands.h"

#include <OpenZyvo/ZPxCommand.h>
#include <OpenZyvo/ZPxContextCommand.h>

ZPxContextCommand::ZPxContextCommand()
    : m_state(std::make_unique<oz::cmd::ContextCommandState>()) {}

ZPxContextCommand::~ZPxContextCommand() = default;

ZStatus ZPxContextCommand::doEditFlags() {
    return ZStatus::kSuccess;
}

ZStatus ZPxContextCommand::doQueryFlags() {
    return ZStatus::kSuccess;
}

ZStatus ZPxContextCommand::appendSyntax() {
    return ZStatus::kSuccess;
}

ZSyntax ZPxContextCommand::syntax() const {
    return m_state->syntax;
}

ZArgParser ZPxContextCommand::parser() const {
    return m_state->parser;
}

void ZPxContextCommand::setResult(bool result) {
    ZPxCommand::setResult(result);
}

void ZPxContextCommand::setResult(int result) {
    ZPxCommand::setResult(result);
}

void ZPxContextCommand::setResult(double result) {
    ZPxCommand::setResult(result);
}

void ZPxContextCommand::setResult(const ZString& result) {
    ZPxCommand::setResult(result);
}
