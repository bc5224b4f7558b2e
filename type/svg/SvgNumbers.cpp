#include "svg/SvgNumbers.h"

#include <charconv>
#include <cmath>

namespace type {

namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

// Numbers are read in the C locale whatever the process's locale is: the
// host may run in one that writes a decimal comma.
double leadingNumber(std::string_view text) {
    std::size_t skip = 0;
    while (skip < text.size() &&
           (text[skip] == ' ' || text[skip] == '\t' || text[skip] == '\n' || text[skip] == '\r'))
        ++skip;
    if (skip < text.size() && text[skip] == '+')
        ++skip;
    double value = 0.0;
    if (std::from_chars(text.data() + skip, text.data() + text.size(), value).ec != std::errc())
        return 0.0;
    return value;
}

// Past this many nested exponents ("1e1e1e...") the value no longer changes
// anything but the reader's stack, so deeper ones are read flat.
constexpr int kMaxExponentDepth = 64;

double readNumber(std::string_view text, std::size_t& pos, int depth) {
    const std::size_t start = pos;
    if (pos < text.size() && (text[pos] == '+' || text[pos] == '-'))
        ++pos;
    bool seenPoint = false;
    while (pos < text.size() && (isDigit(text[pos]) || (text[pos] == '.' && !seenPoint))) {
        seenPoint = seenPoint || text[pos] == '.';
        ++pos;
    }
    double value = leadingNumber(text.substr(start, pos - start));
    if (pos < text.size() && (text[pos] == 'e' || text[pos] == 'E')) {
        ++pos;
        const double exponent = depth < kMaxExponentDepth ? readNumber(text, pos, depth + 1) : 0.0;
        value = std::pow(value, exponent);
    }
    return value;
}

} // namespace

bool startsNumber(char c) {
    return isDigit(c) || c == '.' || c == '+' || c == '-';
}

double readNumber(std::string_view text, std::size_t& pos) {
    return readNumber(text, pos, 0);
}

std::vector<double> readNumbers(std::string_view text) {
    std::vector<double> numbers;
    std::size_t pos = 0;
    while (pos < text.size()) {
        if (startsNumber(text[pos]))
            numbers.push_back(readNumber(text, pos));
        else
            ++pos;
    }
    return numbers;
}

double readAttributeNumber(std::string_view text) {
    return leadingNumber(text);
}

} // namespace type
