#pragma once

#include <optional>
#include <string>
#include <vector>

namespace zyvo {

// One field of an enum attribute: the name a user picks and the value stored.
struct EnumField {
    std::string name;
    short value = 0;
};

// The fields as the runtime lists them ("attributeQuery -listEnum"): names
// separated by ':', each with "=value" where it does not follow its
// predecessor, so "Left=1:Centre:Right" is Left 1, Centre 2, Right 3. Nothing
// for a list that is not of that form.
std::optional<std::vector<EnumField>> parseEnumFields(const std::string& text);

// Whether two names are the same, ignoring case and taking a dash for a
// blank, as fields are picked.
bool sameFieldName(const std::string& a, const std::string& b);

// The field called `name`, ignoring case; nothing when there is none.
const EnumField* findField(const std::vector<EnumField>& fields, const std::string& name);

// "left, centre or right", "distance-field or normals": the names as a user
// types them.
std::string fieldChoices(const std::vector<EnumField>& fields);

} // namespace zyvo
