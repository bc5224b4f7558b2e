#include "FrameRange.h"

#include <algorithm>
#include <charconv>
#include <vector>

namespace zyvo {

namespace {

std::optional<long> parseFrame(const std::string& text) {
    long value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (text.empty() || error != std::errc() || end != text.data() + text.size() || value > kFrameLimit ||
        value < -kFrameLimit)
        return std::nullopt;
    return value;
}

} // namespace

std::optional<FrameRange> parseFrameRange(const std::string& text) {
    std::vector<std::optional<long>> parts;
    for (std::size_t at = 0; at <= text.size() && parts.size() <= 3;) {
        const std::size_t colon = std::min(text.find(':', at), text.size());
        parts.push_back(parseFrame(text.substr(at, colon - at)));
        at = colon + 1;
    }
    if (parts.size() < 2 || parts.size() > 3 ||
        std::any_of(parts.begin(), parts.end(), [](const auto& part) { return !part; }))
        return std::nullopt;
    const long first = *parts[0], last = *parts[1], step = parts.size() == 3 ? *parts[2] : 1;
    if (first > last || step <= 0)
        return std::nullopt;
    return FrameRange{first, last, step};
}

FramePattern::FramePattern(std::string path) {
    // The last pattern in the name is the frame number, so folders with '#'
    // or '%' in their names stay as they are. A plain scan: names can be as
    // long as the command line allows.
    std::size_t begin = std::string::npos, end = 0;
    for (std::size_t at = 0; at < path.size();) {
        if (path[at] == '#') {
            const std::size_t after = std::min(path.find_first_not_of('#', at), path.size());
            begin = at;
            end = after;
            m_width = static_cast<int>(std::min<std::size_t>(after - at, kMaxPatternWidth + 1));
            at = after;
        } else if (path[at] == '%') {
            const std::size_t digits = at + 1;
            const std::size_t letter = std::min(path.find_first_not_of("0123456789", digits), path.size());
            if (letter == path.size() || path[letter] != 'd') {
                ++at;
                continue;
            }
            begin = at;
            end = letter + 1;
            m_width = 0;
            // Any width past the limit counts as too wide, however many digits it has.
            const auto read = std::from_chars(path.data() + digits, path.data() + letter, m_width);
            if (letter > digits && (read.ec != std::errc() || m_width > kMaxPatternWidth))
                m_width = kMaxPatternWidth + 1;
            at = end;
        } else {
            ++at;
        }
    }
    if (begin == std::string::npos) {
        m_prefix = std::move(path);
        return;
    }
    m_prefix = path.substr(0, begin);
    m_suffix = path.substr(end);
}

std::string FramePattern::forFrame(long frame) const {
    if (!hasPattern())
        return m_prefix;
    std::string digits = std::to_string(frame < 0 ? -frame : frame);
    if (static_cast<int>(digits.size()) < m_width)
        digits.insert(0, m_width - digits.size(), '0');
    return m_prefix + (frame < 0 ? "-" : "") + digits + m_suffix;
}

} // namespace zyvo
