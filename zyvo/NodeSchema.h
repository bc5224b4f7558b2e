#pragma once

#include <OpenZyvo/ZStatus.h>
#include <optional>
#include <string>

namespace zyvo {

class Host;

// What a plug-in's node type says of its attributes, asked with the query
// scripts use, so that the program's options follow the node's own schema
// instead of copying it.
class NodeSchema {
public:
    explicit NodeSchema(std::string nodeType)
        : m_nodeType(std::move(nodeType)) {}

    // The value of the enum field `name` (ignoring case, and blanks written as
    // dashes); `option` is refused with the node's choices when it has none.
    ZStatus enumValue(const char* attribute, const std::string& name, const char* option, Host& host,
                      std::optional<short>& value) const;

    // Refuses `option` when `number` lies outside the attribute's hard
    // minimum and maximum; `ceiling` stands in for a maximum it lacks.
    ZStatus checkWholeNumber(const char* attribute, int number, const char* option, Host& host,
                             std::optional<long> ceiling = std::nullopt) const;

private:
    template <typename Result> ZStatus ask(const char* query, const char* attribute, Result& result) const;

    std::string m_nodeType;
};

} // namespace zyvo
