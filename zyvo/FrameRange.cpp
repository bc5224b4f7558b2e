#include "FrameRange.h"

#include <charconv>
#include <cstdlib>
#include <regex>

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
    static const std::regex form(R"((-?\d+):(-?\d+)(?::(\d+))?)");
    std::smatch match;
    if (!std::regex_match(text, match, form))
        return std::nullopt;
    const auto first = parseFrame(match[1]);
    const auto last = parseFrame(match[2]);
    const auto step = match[3].matched ? parseFrame(match[3]) : std::optional<long>(1);
    if (!first || !last || !step || *first > *last || *step <= 0)
        return std::nullopt;
    return FrameRange{*first, *last, *step};
}

FramePattern::FramePattern(std::string path) {
    // The last pattern in the name is the frame number, so folders with '#'
    // or '%' in their names stay as they are.
    static const std::regex pattern(R"((#+|%(0?\d+)?d)(?!.*(#|%0?\d*d)))");
    std::smatch match;
    if (!std::regex_search(path, match, pattern)) {
        m_prefix = std::move(path);
        return;
    }
    const std::string found = match[1];
    m_width = found[0] == '#' ? static_cast<int>(found.size())
                              : (match[2].matched ? std::atoi(match[2].str().c_str()) : 0);
    m_prefix = match.prefix();
    m_suffix = match.suffix();
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
