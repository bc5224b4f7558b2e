#pragma once

#include "commands/Value.h"

#include <OpenZyvo/ZCommandResult.h>

namespace oz::cmd {

struct CommandResultData {
    Value value;
};

struct CommandResultAccess {
    static void set(ZCommandResult& result, Value value) { result.m_data->value = std::move(value); }
    static const Value& get(const ZCommandResult& result) { return result.m_data->value; }
};

} // namespace oz::cmd
