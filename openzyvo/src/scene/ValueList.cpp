#include "scene/ValueList.h"

#include <cmath>
#include <limits>

namespace oz::scene {

bool numberOf(const cmd::Value& value, double& number) {
    if (const auto* text = std::get_if<std::string>(&value)) {
        if (*text == "inf")
            number = std::numeric_limits<double>::infinity();
        else if (*text == "-inf")
            number = -std::numeric_limits<double>::infinity();
        else if (*text == "nan")
            number = std::numeric_limits<double>::quiet_NaN();
        else
            return false;
        return true;
    }
    if (std::holds_alternative<bool>(value) || std::holds_alternative<int>(value) ||
        std::holds_alternative<double>(value)) {
        number = *cmd::toDouble(value);
        return true;
    }
    return false;
}

ValueList::ValueList(std::span<const cmd::Value> values) {
    for (const cmd::Value& value : values) {
        if (const auto* ints = std::get_if<std::vector<int>>(&value)) {
            m_arrays = true;
            m_items.insert(m_items.end(), ints->begin(), ints->end());
        } else if (const auto* doubles = std::get_if<std::vector<double>>(&value)) {
            m_arrays = true;
            m_items.insert(m_items.end(), doubles->begin(), doubles->end());
        } else if (const auto* texts = std::get_if<std::vector<std::string>>(&value)) {
            m_arrays = true;
            m_items.insert(m_items.end(), texts->begin(), texts->end());
        } else {
            m_items.push_back(value);
        }
    }
}

namespace {

std::string shown(const cmd::Value& value) {
    return std::holds_alternative<std::string>(value) ? "\"" + cmd::toText(value) + "\"" : cmd::toText(value);
}

} // namespace

bool ValueList::number(double& value, std::string& error) {
    if (empty()) {
        error = "a value is missing";
        return false;
    }
    if (!numberOf(m_items[m_next], value)) {
        error = "expected a number, found " + shown(m_items[m_next]);
        return false;
    }
    ++m_next;
    return true;
}

bool ValueList::integer(int& value, std::string& error) {
    double number = 0.0;
    const std::size_t at = m_next;
    if (!this->number(number, error))
        return false;
    if (!(number == std::floor(number)) || std::abs(number) > std::numeric_limits<int>::max()) {
        m_next = at;
        error = "expected a whole number, found " + shown(m_items[at]);
        return false;
    }
    value = static_cast<int>(number);
    return true;
}

bool ValueList::text(std::string& value, std::string& error) {
    if (empty()) {
        error = "a value is missing";
        return false;
    }
    const auto* text = std::get_if<std::string>(&m_items[m_next]);
    if (!text) {
        error = "expected a string, found " + shown(m_items[m_next]);
        return false;
    }
    value = *text;
    ++m_next;
    return true;
}

bool ValueList::count(std::size_t width, std::size_t& items, std::string& error) {
    if (m_arrays) {
        if (remaining() % width != 0) {
            error =
                std::to_string(remaining()) + " values do not make whole items of " + std::to_string(width);
            return false;
        }
        items = remaining() / width;
        return true;
    }
    int given = 0;
    if (!integer(given, error) || given < 0) {
        if (given < 0)
            error = "the item count cannot be negative";
        error = "expected the number of items first: " + error;
        return false;
    }
    items = static_cast<std::size_t>(given);
    if (remaining() < items * width) {
        error = "expected " + std::to_string(items * width) + " values after the count " +
                std::to_string(items) + ", found " + std::to_string(remaining());
        return false;
    }
    return true;
}

bool ValueList::finished(std::string& error) const {
    if (empty())
        return true;
    error = std::to_string(remaining()) + " value" + (remaining() == 1 ? " is" : "s are") + " left over";
    return false;
}

} // namespace oz::scene
