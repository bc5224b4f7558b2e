// The SVG reader and its path-data tokeniser, fed any bytes. The first byte
// picks the curve resolution and legacy mode; the rest is the document, and
// also a path's data on its own. Whatever comes in, the read ends with a
// status, every outline it keeps is finite and non-empty, the limits hold,
// and a path is refused exactly when one of its commands holds the wrong
// count of numbers.
#include "svg/PathInterpreter.h"
#include "svg/SvgReader.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace {

void require(bool condition) {
    if (!condition)
        std::abort();
}

bool finite(const type::Contour& outline) {
    for (const type::Point2& p : outline) {
        if (!std::isfinite(p.x) || !std::isfinite(p.y))
            return false;
    }
    return true;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0)
        return 0;
    // Small resolutions keep one input cheap; the reader clamps any other.
    type::SvgReadSettings settings;
    settings.curveResolution = 1 + data[0] % 16;
    settings.legacy = (data[0] & 0x80) != 0;
    const std::string_view text(reinterpret_cast<const char*>(data + 1), size - 1);

    const type::SvgReadResult read =
        type::readSvg(QByteArray(text.data(), static_cast<int>(text.size())), settings);
    std::size_t points = 0;
    for (const type::SvgShape& shape : read.artwork.shapes) {
        for (const type::Contour& outline : shape.outlines) {
            require(!outline.empty() && finite(outline));
            points += outline.size();
        }
    }
    require(points <= type::svgLimits::kMaxPoints);
    if (read.status != type::SvgReadStatus::ok)
        require(read.artwork.shapes.empty());

    const std::vector<type::PathCommand> commands = type::tokenisePath(text);
    bool counted = true;
    for (const type::PathCommand& command : commands)
        counted = counted && command.numbers.size() == type::argumentCount(command.letter);
    const auto outlines = type::interpretPath(commands, settings.curveResolution);
    require(outlines.has_value() == counted);
    return 0;
}
