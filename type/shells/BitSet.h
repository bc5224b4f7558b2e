#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace type {

// A set of element ids kept as bits in 32-bit words. It grows to take any id
// that is set, so a caller that sized it for one mesh can pass it on to a
// walk over a bigger one without writing past its end.
class BitSet {
public:
    BitSet() = default;
    explicit BitSet(int size)
        : m_words((static_cast<std::size_t>(size > 0 ? size : 0) + 31) / 32, 0u) {}

    bool test(int id) const {
        const std::size_t word = static_cast<std::size_t>(id) / 32;
        return id >= 0 && word < m_words.size() && (m_words[word] >> (id % 32) & 1u);
    }

    void set(int id) {
        if (id < 0)
            return;
        const std::size_t word = static_cast<std::size_t>(id) / 32;
        if (word >= m_words.size())
            m_words.resize(word + 1, 0u);
        m_words[word] |= 1u << (id % 32);
    }

private:
    std::vector<std::uint32_t> m_words;
};

} // namespace type
