#include <OpenZyvo/ZString.h>
#include <OpenZyvo/ZStringArray.h>
#include <algorithm>
#include <cctype>
#include <charconv>
#include <cstdio>
#include <ostream>

namespace {

std::string_view trimView(std::string_view text) {
    const auto first = text.find_first_not_of(" \t\r\n");
    if (first == std::string_view::npos)
        return {};
    const auto last = text.find_last_not_of(" \t\r\n");
    return text.substr(first, last - first + 1);
}

} // namespace

unsigned int ZString::numChars() const {
    // UTF-8 continuation bytes are 10xxxxxx; every other byte starts a character.
    return static_cast<unsigned int>(
        std::count_if(m_text.begin(), m_text.end(), [](char c) { return (c & 0xC0) != 0x80; }));
}

ZString& ZString::operator+=(const ZString& other) {
    m_text += other.m_text;
    return *this;
}

ZString& ZString::operator+=(const char* other) {
    if (other)
        m_text += other;
    return *this;
}

ZString& ZString::operator+=(char c) {
    m_text += c;
    return *this;
}

ZString& ZString::operator+=(int value) {
    m_text += std::to_string(value);
    return *this;
}

ZString& ZString::operator+=(unsigned int value) {
    m_text += std::to_string(value);
    return *this;
}

ZString& ZString::operator+=(double value) {
    ZString number;
    number.set(value);
    m_text += number.m_text;
    return *this;
}

ZString& ZString::set(double value, int precision) {
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%.*g", precision, value);
    m_text = buffer;
    return *this;
}

ZString& ZString::set(int value) {
    m_text = std::to_string(value);
    return *this;
}

ZString ZString::substring(int start, int end) const {
    const int size = static_cast<int>(m_text.size());
    start = std::max(start, 0);
    end = std::min(end, size - 1);
    if (start > end)
        return {};
    return ZString(m_text.substr(start, end - start + 1));
}

int ZString::index(char c) const {
    const auto at = m_text.find(c);
    return at == std::string::npos ? -1 : static_cast<int>(at);
}

int ZString::rindex(char c) const {
    const auto at = m_text.rfind(c);
    return at == std::string::npos ? -1 : static_cast<int>(at);
}

int ZString::indexOf(const ZString& text, int from) const {
    const auto at = m_text.find(text.m_text, static_cast<std::size_t>(std::max(from, 0)));
    return at == std::string::npos ? -1 : static_cast<int>(at);
}

bool ZString::startsWith(const ZString& prefix) const {
    return m_text.starts_with(prefix.m_text);
}

bool ZString::endsWith(const ZString& suffix) const {
    return m_text.ends_with(suffix.m_text);
}

ZStatus ZString::split(char separator, ZStringArray& parts) const {
    // Like the host's split: runs of the separator produce no empty pieces.
    parts.clear();
    std::size_t start = 0;
    while (start <= m_text.size()) {
        const auto at = m_text.find(separator, start);
        const auto end = at == std::string::npos ? m_text.size() : at;
        if (end > start)
            parts.append(ZString(m_text.substr(start, end - start)));
        if (at == std::string::npos)
            break;
        start = at + 1;
    }
    return ZStatus::kSuccess;
}

ZString ZString::toLowerCase() const {
    std::string out = m_text;
    std::transform(out.begin(), out.end(), out.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return ZString(std::move(out));
}

ZString ZString::toUpperCase() const {
    std::string out = m_text;
    std::transform(out.begin(), out.end(), out.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return ZString(std::move(out));
}

ZString ZString::trimmed() const {
    return ZString(trimView(m_text));
}

bool ZString::isInt() const {
    const auto text = trimView(m_text);
    int value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return !text.empty() && error == std::errc() && end == text.data() + text.size();
}

bool ZString::isDouble() const {
    const auto text = trimView(m_text);
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return !text.empty() && error == std::errc() && end == text.data() + text.size();
}

int ZString::asInt() const {
    const auto text = trimView(m_text);
    int value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

double ZString::asDouble() const {
    const auto text = trimView(m_text);
    double value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

ZStatus ZString::format(const ZString& format, const ZString& a1, const ZString& a2, const ZString& a3,
                        const ZString& a4, const ZString& a5, const ZString& a6, const ZString& a7,
                        const ZString& a8, const ZString& a9) {
    const ZString* args[] = {&a1, &a2, &a3, &a4, &a5, &a6, &a7, &a8, &a9};
    const std::string& in = format.m_text;
    std::string out;
    out.reserve(in.size());
    for (std::size_t i = 0; i < in.size(); ++i) {
        if (in[i] == '^' && i + 1 < in.size() && in[i + 1] == '^') {
            out += '^';
            ++i;
        } else if (in[i] == '^' && i + 2 < in.size() && in[i + 1] >= '1' && in[i + 1] <= '9' &&
                   in[i + 2] == 's') {
            out += args[in[i + 1] - '1']->m_text;
            i += 2;
        } else {
            out += in[i];
        }
    }
    m_text = std::move(out);
    return ZStatus::kSuccess;
}

std::ostream& operator<<(std::ostream& out, const ZString& text) {
    return out << text.asStdString();
}
