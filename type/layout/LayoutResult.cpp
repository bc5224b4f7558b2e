#include "layout/LayoutResult.h"

namespace type {

std::int32_t numberOfShells(const LayoutResult& result) {
    std::int32_t shells = 0;
    for (const double count : result.shellsPerCharacter)
        shells += static_cast<std::int32_t>(count);
    return shells;
}

} // namespace type
