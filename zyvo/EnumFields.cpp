#include "EnumFields.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <limits>

namespace zyvo {

namespace {

// A field as a user types it on a command line: lower case, blanks as dashes
// ("Distance Field" is "distance-field").
std::string typedName(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return c == ' ' ? '-' : static_cast<char>(std::tolower(c)); });
    return text;
}

} // namespace

std::optional<std::vector<EnumField>> parseEnumFields(const std::string& text) {
    std::vector<EnumField> fields;
    int next = 0;
    std::size_t start = 0;
    while (start <= text.size()) {
        const std::size_t end = std::min(text.find(':', start), text.size());
        const std::string field = text.substr(start, end - start);
        const std::size_t equals = field.find('=');
        const std::string name = field.substr(0, equals);
        if (name.empty())
            return std::nullopt;
        int value = next;
        if (equals != std::string::npos) {
            const char* first = field.data() + equals + 1;
            const char* last = field.data() + field.size();
            const auto [stop, error] = std::from_chars(first, last, value);
            if (error != std::errc() || stop != last || first == last)
                return std::nullopt;
        }
        if (value < std::numeric_limits<short>::min() || value > std::numeric_limits<short>::max())
            return std::nullopt;
        fields.push_back({name, static_cast<short>(value)});
        next = value + 1;
        start = end + 1;
    }
    return fields;
}

bool sameFieldName(const std::string& a, const std::string& b) {
    return typedName(a) == typedName(b);
}

const EnumField* findField(const std::vector<EnumField>& fields, const std::string& name) {
    for (const EnumField& field : fields)
        if (sameFieldName(field.name, name))
            return &field;
    return nullptr;
}

std::string fieldChoices(const std::vector<EnumField>& fields) {
    std::string text;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (i > 0)
            text += i + 1 == fields.size() ? " or " : ", ";
        text += typedName(fields[i].name);
    }
    return text;
}

} // namespace zyvo
