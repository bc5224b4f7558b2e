#include "fonts/DefaultFont.h"

#include <fontconfig/fontconfig.h>
#include <memory>
#include <string>

namespace type {

namespace {

struct PatternDestroy {
    void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
};
using Pattern = std::unique_ptr<FcPattern, PatternDestroy>;

} // namespace

ZString defaultFontPath() {
    const std::string name = std::string(kDefaultFontFamily) + ":style=" + kDefaultFontStyle;
    const Pattern pattern(FcNameParse(reinterpret_cast<const FcChar8*>(name.c_str())));
    if (!pattern)
        return {};
    FcConfigSubstitute(nullptr, pattern.get(), FcMatchPattern);
    FcDefaultSubstitute(pattern.get());
    FcResult result = FcResultNoMatch;
    const Pattern match(FcFontMatch(nullptr, pattern.get(), &result));
    FcChar8* file = nullptr;
    if (!match || FcPatternGetString(match.get(), FC_FILE, 0, &file) != FcResultMatch)
        return {};
    return ZString(reinterpret_cast<const char*>(file));
}

} // namespace type
