#pragma once

#include <cstddef>
#include <string>

namespace type::bench {

// Ten lines of 100 characters of running text, 1,000 characters in all: the
// paragraph the layout and compute benchmarks share, so their figures compare.
inline std::string paragraph() {
    const std::string words = "The quick brown fox jumps over the lazy dog while 0123456789 clocks tick; ";
    std::string text;
    std::size_t next = 0;
    for (int line = 0; line < 10; ++line) {
        if (line > 0)
            text += '\n';
        for (int i = 0; i < 100; ++i)
            text += words[next++ % words.size()];
    }
    return text;
}

} // namespace type::bench
