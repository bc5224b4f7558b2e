#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZStatus.h>
#include <iosfwd>
#include <string>
#include <string_view>

class ZStringArray;

// A UTF-8 text. Lengths and indices count bytes, except numChars().
class OZ_API ZString {
public:
    ZString() = default;
    ZString(const char* text)
        : m_text(text ? text : "") {}
    ZString(const char* text, int length)
        : m_text(text ? std::string(text, length) : std::string()) {}
    ZString(std::string text)
        : m_text(std::move(text)) {}
    ZString(std::string_view text)
        : m_text(text) {}

    const char* asChar() const { return m_text.c_str(); }
    const std::string& asStdString() const { return m_text; }
    std::string_view view() const { return m_text; }

    unsigned int length() const { return static_cast<unsigned int>(m_text.size()); }
    unsigned int numChars() const;
    bool isEmpty() const { return m_text.empty(); }
    void clear() { m_text.clear(); }

    ZString& operator+=(const ZString& other);
    ZString& operator+=(const char* other);
    ZString& operator+=(char c);
    ZString& operator+=(int value);
    ZString& operator+=(unsigned int value);
    ZString& operator+=(double value);
    ZString& set(double value, int precision = 6);
    ZString& set(int value);

    // Bytes [start, end], both inclusive, as the host's substring does.
    ZString substring(int start, int end) const;
    int index(char c) const;
    int rindex(char c) const;
    int indexOf(const ZString& text, int from = 0) const;
    bool startsWith(const ZString& prefix) const;
    bool endsWith(const ZString& suffix) const;
    ZStatus split(char separator, ZStringArray& parts) const;
    ZString toLowerCase() const;
    ZString toUpperCase() const;
    ZString trimmed() const;

    bool isInt() const;
    bool isDouble() const;
    int asInt() const;
    double asDouble() const;

    // Replaces this text with `format` where "^1s" … "^9s" stand for the
    // arguments in order; "^^" is a literal caret. Missing arguments leave
    // their placeholder empty.
    ZStatus format(const ZString& format, const ZString& a1 = {}, const ZString& a2 = {},
                   const ZString& a3 = {}, const ZString& a4 = {}, const ZString& a5 = {},
                   const ZString& a6 = {}, const ZString& a7 = {}, const ZString& a8 = {},
                   const ZString& a9 = {});

    friend ZString operator+(const ZString& a, const ZString& b) { return ZString(a.m_text + b.m_text); }
    friend ZString operator+(const ZString& a, const char* b) { return ZString(a.m_text + (b ? b : "")); }
    friend ZString operator+(const char* a, const ZString& b) { return ZString((a ? a : "") + b.m_text); }
    friend bool operator==(const ZString& a, const ZString& b) { return a.m_text == b.m_text; }
    friend bool operator==(const ZString& a, const char* b) { return a.m_text == (b ? b : ""); }
    friend auto operator<=>(const ZString& a, const ZString& b) { return a.m_text <=> b.m_text; }

private:
    std::string m_text;
};

OZ_API std::ostream& operator<<(std::ostream& out, const ZString& text);

template <> struct std::hash<ZString> {
    std::size_t operator()(const ZString& s) const noexcept {
        return std::hash<std::string>()(s.asStdString());
    }
};
