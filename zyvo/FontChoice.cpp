#include "FontChoice.h"

#include <algorithm>
#include <array>
#include <strings.h>
#include <unordered_map>

namespace zyvo {

namespace {

constexpr std::array<const char*, 4> kRegularStyles{"Regular", "Book", "Roman", "Normal"};

const std::string* findStyle(const FontFamily& family, const std::string& style) {
    const auto exact = std::find(family.styles.begin(), family.styles.end(), style);
    if (exact != family.styles.end())
        return &*exact;
    const auto caseless =
        std::find_if(family.styles.begin(), family.styles.end(),
                     [&](const std::string& own) { return ::strcasecmp(own.c_str(), style.c_str()) == 0; });
    return caseless != family.styles.end() ? &*caseless : nullptr;
}

std::string regularStyle(const FontFamily& family) {
    for (const char* regular : kRegularStyles)
        if (std::find(family.styles.begin(), family.styles.end(), regular) != family.styles.end())
            return regular;
    return family.styles.empty() ? std::string() : family.styles.front();
}

} // namespace

std::vector<FontFamily> fontFamilies(const std::vector<std::string>& familyStylePairs) {
    std::vector<FontFamily> families;
    std::unordered_map<std::string, std::size_t> indexOf;
    for (std::size_t i = 0; i + 1 < familyStylePairs.size(); i += 2) {
        const std::string& name = familyStylePairs[i];
        const auto [found, added] = indexOf.try_emplace(name, families.size());
        if (added)
            families.push_back({name, {}});
        families[found->second].styles.push_back(familyStylePairs[i + 1]);
    }
    return families;
}

const FontFamily* findFamily(const std::vector<FontFamily>& families, const std::string& name) {
    const auto found = std::find_if(families.begin(), families.end(),
                                    [&](const FontFamily& family) { return family.name == name; });
    return found != families.end() ? &*found : nullptr;
}

StyleChoice chooseStyle(const FontFamily& family, const std::optional<std::string>& requested) {
    if (requested)
        if (const std::string* style = findStyle(family, *requested))
            return {*style, false};
    return {regularStyle(family), requested.has_value()};
}

} // namespace zyvo
