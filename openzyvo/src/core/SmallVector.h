#pragma once

#include <algorithm>
#include <cstddef>
#include <type_traits>
#include <vector>

namespace oz {

// A vector of trivially copyable values that keeps its first N in place, so
// short ones (most plug paths) never allocate.
template <typename T, std::size_t N> class SmallVector {
    static_assert(std::is_trivially_copyable_v<T>);

public:
    SmallVector() = default;

    std::size_t size() const { return m_onHeap ? m_heap.size() : m_size; }
    bool empty() const { return size() == 0; }
    T* begin() { return m_onHeap ? m_heap.data() : m_inline; }
    T* end() { return begin() + size(); }
    const T* begin() const { return m_onHeap ? m_heap.data() : m_inline; }
    const T* end() const { return begin() + size(); }
    T& operator[](std::size_t i) { return begin()[i]; }
    const T& operator[](std::size_t i) const { return begin()[i]; }
    T& front() { return *begin(); }
    const T& front() const { return *begin(); }
    T& back() { return end()[-1]; }
    const T& back() const { return end()[-1]; }

    void push_back(const T& value) {
        if (!m_onHeap && m_size < N) {
            m_inline[m_size++] = value;
            return;
        }
        if (!m_onHeap) {
            m_heap.assign(m_inline, m_inline + m_size);
            m_onHeap = true;
        }
        m_heap.push_back(value);
    }
    void pop_back() {
        if (m_onHeap)
            m_heap.pop_back();
        else
            --m_size;
    }
    void clear() {
        m_heap.clear();
        m_onHeap = false;
        m_size = 0;
    }

    friend bool operator==(const SmallVector& a, const SmallVector& b) {
        return std::equal(a.begin(), a.end(), b.begin(), b.end());
    }

private:
    T m_inline[N]{};
    std::size_t m_size = 0;
    bool m_onHeap = false;
    std::vector<T> m_heap;
};

} // namespace oz
