#include "textsource/HexText.h"

#include <algorithm>
#include <charconv>
#include <cstdint>

namespace type {

namespace {

// Calls `use` with each non-empty blank-separated token of `text`.
template <typename Use> void forEachToken(std::string_view text, Use&& use) {
    std::size_t start = 0;
    while (start < text.size()) {
        const std::size_t end = std::min(text.find(' ', start), text.size());
        if (end > start)
            use(text.substr(start, end - start));
        start = end + 1;
    }
}

std::uint32_t hexTokenValue(std::string_view token) {
    std::uint32_t value = 0;
    const auto [last, error] = std::from_chars(token.data(), token.data() + token.size(), value, 16);
    if (error != std::errc() || last != token.data() + token.size())
        return 0;
    return value;
}

} // namespace

std::string encodeHexText(std::string_view bytes) {
    static constexpr char digits[] = "0123456789abcdef";
    std::string hex;
    hex.reserve(bytes.size() * 3);
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        hex += digits[byte >> 4];
        hex += digits[byte & 0xF];
        hex += ' ';
    }
    return hex;
}

std::string decodeHexText(std::string_view hexText) {
    std::string bytes;
    forEachToken(hexText, [&](std::string_view token) {
        bytes += static_cast<char>(static_cast<unsigned char>(hexTokenValue(token) & 0xFF));
    });
    return bytes;
}

QString hexTokensToQString(const std::string& hexTokens) {
    QString text;
    forEachToken(hexTokens, [&](std::string_view token) {
        text += QChar(static_cast<char16_t>(hexTokenValue(token) & 0xFFFF));
    });
    return text;
}

std::string layoutTokens(std::string_view hexBytes) {
    const std::string bytes = decodeHexText(hexBytes);
    const QString text = QString::fromUtf8(bytes.data(), static_cast<int>(bytes.size()));
    std::string tokens;
    tokens.reserve(static_cast<std::size_t>(text.size()) * 5);
    char token[4];
    for (const QChar unit : text) {
        const auto [last, error] = std::to_chars(token, token + sizeof token, unit.unicode(), 16);
        tokens.append(token, last);
        tokens += ' ';
    }
    return tokens;
}

} // namespace type
