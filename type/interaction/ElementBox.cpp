#include "interaction/ElementBox.h"

#include <algorithm>

namespace type {

ZPoint ElementBox::centre() const {
    return ZPoint((minimum.x + maximum.x) / 2.0, (minimum.y + maximum.y) / 2.0,
                  (minimum.z + maximum.z) / 2.0);
}

std::optional<ElementBox> elementBox(const CharacterBoxes& boxes, const ShellGrouping& grouping,
                                     ManipulatorMode mode, std::size_t element) {
    std::optional<ElementBox> box;
    const std::size_t characters = std::min(boxes.minima.size(), boxes.maxima.size());
    for (std::size_t character = 0; character < characters; ++character) {
        if (elementOfCharacter(grouping, mode, character) != element)
            continue;
        const ZVector& low = boxes.minima[character];
        const ZVector& high = boxes.maxima[character];
        if (!box) {
            box = ElementBox{ZPoint(low), ZPoint(high)};
            continue;
        }
        box->minimum = ZPoint(std::min(box->minimum.x, low.x), std::min(box->minimum.y, low.y),
                              std::min(box->minimum.z, low.z));
        box->maximum = ZPoint(std::max(box->maximum.x, high.x), std::max(box->maximum.y, high.y),
                              std::max(box->maximum.z, high.z));
    }
    return box;
}

} // namespace type
