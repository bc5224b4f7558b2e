#pragma once

#include <optional>
#include <string>
#include <vector>

namespace zyvo {

// "A:B" or "A:B:STEP", whole frames, A <= B, STEP > 0; nothing for anything
// else.
std::optional<std::vector<long>> parseFrameRange(const std::string& text);

// An output name with a frame number pattern: a run of '#' (out.####.glb,
// padded to the run's length) or a printf-style "%d" / "%04d".
class FramePattern {
public:
    explicit FramePattern(std::string path);

    bool hasPattern() const { return m_width >= 0; }
    // The name for `frame`; the name itself when it has no pattern.
    std::string forFrame(long frame) const;

private:
    std::string m_prefix;
    std::string m_suffix;
    int m_width = -1;
};

} // namespace zyvo
