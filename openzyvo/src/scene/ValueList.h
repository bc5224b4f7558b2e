#pragma once

#include "commands/Value.h"

#include <cstddef>
#include <span>
#include <string>
#include <vector>

namespace oz::scene {

// The values a command was given for an attribute, read one scalar at a
// time. Array values (a list from Python, a command's array result) are
// read item by item. A list of array values stands for the whole array, so
// it needs no leading item count; plain scalars give the count first, as
// scene files write it.
class ValueList {
public:
    explicit ValueList(std::span<const cmd::Value> values);

    std::size_t remaining() const { return m_items.size() - m_next; }
    bool empty() const { return remaining() == 0; }
    bool givenAsArrays() const { return m_arrays; }
    // Every value, arrays spread into their items.
    const std::vector<cmd::Value>& items() const { return m_items; }

    // Each fails (and keeps its place) when the next value is missing or of
    // another kind; `error` then says which value was wrong.
    bool number(double& value, std::string& error);
    bool integer(int& value, std::string& error);
    bool text(std::string& value, std::string& error);
    // How many items of `width` values follow: the leading count, or all
    // that remain when the values came as arrays.
    bool count(std::size_t width, std::size_t& items, std::string& error);
    // Fails when values are left over.
    bool finished(std::string& error) const;

private:
    std::vector<cmd::Value> m_items;
    std::size_t m_next = 0;
    bool m_arrays = false;
};

// A number given as a value: numbers, booleans, and the texts "inf",
// "-inf" and "nan" that scene files use for values that are not finite.
bool numberOf(const cmd::Value& value, double& number);

} // namespace oz::scene
