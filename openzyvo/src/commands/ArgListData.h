#pragma once

#include "commands/Value.h"

#include <OpenZyvo/ZArgList.h>
#include <string>
#include <vector>

namespace oz::cmd {

// One argument of a call: a flag (its name, without the dash, in `value`) or a value.
struct ArgItem {
    Value value;
    bool isFlag = false;

    static ArgItem flag(std::string name) { return {Value(std::move(name)), true}; }
};

struct ArgListData {
    std::vector<ArgItem> items;
};

struct ArgListAccess {
    static const std::vector<ArgItem>& items(const ZArgList& list) { return list.m_data->items; }
    static std::vector<ArgItem>& items(ZArgList& list) { return list.m_data->items; }
    static ZArgList make(std::vector<ArgItem> items) {
        ZArgList list;
        list.m_data->items = std::move(items);
        return list;
    }
};

// "-gr" and "gr" name the same flag.
inline std::string flagName(const char* flag) {
    if (!flag)
        return {};
    return flag[0] == '-' ? std::string(flag + 1) : std::string(flag);
}

} // namespace oz::cmd
