#include "extrude/BevelStyle.h"

namespace type {

InternalBevel resolveBevelStyle(int bevelStyle, bool enableOuterBevel, bool enableFrontBevel) {
    int style = bevelStyle;
    if (!enableOuterBevel && style == 1)
        style = 0;
    if (!enableFrontBevel && style == 2)
        style = 0;
    if (style == 1)
        return InternalBevel::kOuter;
    if (style == 2)
        return InternalBevel::kInner;
    return InternalBevel::kNone;
}

} // namespace type
