#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZStatus.h>
#include <algorithm>
#include <initializer_list>
#include <vector>

// The value array behind the API's typed arrays (ZIntArray, ZPointArray, ...).
template <typename T> class OZ_API ZArray {
public:
    ZArray() = default;
    explicit ZArray(unsigned int count, const T& initial = T())
        : m_items(count, initial) {}
    ZArray(std::initializer_list<T> items)
        : m_items(items) {}
    ZArray(const T* items, unsigned int count)
        : m_items(items, items + count) {}
    explicit ZArray(std::vector<T> items)
        : m_items(std::move(items)) {}

    unsigned int length() const { return static_cast<unsigned int>(m_items.size()); }
    ZStatus setLength(unsigned int length) {
        m_items.resize(length);
        return ZStatus::kSuccess;
    }
    void setSizeIncrement(unsigned int) {}
    ZStatus append(const T& item) {
        m_items.push_back(item);
        return ZStatus::kSuccess;
    }
    ZStatus insert(const T& item, unsigned int index) {
        if (index > m_items.size())
            return ZStatus::kInvalidParameter;
        m_items.insert(m_items.begin() + index, item);
        return ZStatus::kSuccess;
    }
    ZStatus remove(unsigned int index) {
        if (index >= m_items.size())
            return ZStatus::kInvalidParameter;
        m_items.erase(m_items.begin() + index);
        return ZStatus::kSuccess;
    }
    ZStatus set(const T& item, unsigned int index) {
        if (index >= m_items.size())
            return ZStatus::kInvalidParameter;
        m_items[index] = item;
        return ZStatus::kSuccess;
    }
    ZStatus clear() {
        m_items.clear();
        return ZStatus::kSuccess;
    }
    ZStatus copy(const ZArray& other) {
        m_items = other.m_items;
        return ZStatus::kSuccess;
    }
    ZStatus get(T* out) const {
        std::copy(m_items.begin(), m_items.end(), out);
        return ZStatus::kSuccess;
    }

    T& operator[](unsigned int index) { return m_items[index]; }
    const T& operator[](unsigned int index) const { return m_items[index]; }

    T* data() { return m_items.data(); }
    const T* data() const { return m_items.data(); }
    auto begin() { return m_items.begin(); }
    auto end() { return m_items.end(); }
    auto begin() const { return m_items.begin(); }
    auto end() const { return m_items.end(); }
    const std::vector<T>& asVector() const { return m_items; }
    std::vector<T>& asVector() { return m_items; }

    friend bool operator==(const ZArray& a, const ZArray& b) { return a.m_items == b.m_items; }

private:
    std::vector<T> m_items;
};
