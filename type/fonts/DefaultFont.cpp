#include "fonts/DefaultFont.h"

#include <fontconfig/fontconfig.h>
#include <memory>

namespace type {

namespace {

struct PatternDestroy {
    void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
};
using Pattern = std::unique_ptr<FcPattern, PatternDestroy>;

} // namespace

ZString defaultFontPath() {
    const Pattern pattern(FcNameParse(reinterpret_cast<const FcChar8*>("Times New Roman:style=Italic")));
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
