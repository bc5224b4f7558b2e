#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace zyvo {

// Whole frames from `first` to `last` by `step`.
struct FrameRange {
    long first = 0;
    long last = 0;
    long step = 1;

    std::size_t count() const { return static_cast<std::size_t>((last - first) / step) + 1; }
    long operator[](std::size_t index) const { return first + static_cast<long>(index) * step; }
};

// Frames further from 0 than this are refused, so that ranges cannot overflow.
inline constexpr long kFrameLimit = 1000000000;
// A frame number pattern may pad to the digits of the largest frame, no wider:
// a name is built for every frame written.
inline constexpr int kMaxPatternWidth = 10;

// "A:B" or "A:B:STEP", whole frames within the limit, A <= B, STEP > 0;
// nothing for anything else.
std::optional<FrameRange> parseFrameRange(const std::string& text);

// An output name with a frame number pattern: a run of '#' (out.####.glb,
// padded to the run's length) or a printf-style "%d" / "%04d".
class FramePattern {
public:
    explicit FramePattern(std::string path);

    bool hasPattern() const { return m_width >= 0; }
    // Wider than kMaxPatternWidth; such a pattern makes no names.
    bool tooWide() const { return m_width > kMaxPatternWidth; }
    // The name for `frame`; the name itself when it has no pattern. Not for
    // a pattern that is too wide.
    std::string forFrame(long frame) const;

private:
    std::string m_prefix;
    std::string m_suffix;
    int m_width = -1;
};

} // namespace zyvo
