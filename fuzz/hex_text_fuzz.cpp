// The hexadecimal text of "textInput" and of every generated text. Any string
// decodes, one byte per blank-separated piece, to the piece's low byte (0 for
// a piece that is not a 32-bit hexadecimal number); any bytes come back
// unchanged from an encode and decode; and layout reads one UTF-16 code unit
// per piece, its low 16 bits.
#include "textsource/HexText.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

namespace {

std::vector<std::string_view> piecesOf(std::string_view text) {
    std::vector<std::string_view> pieces;
    std::size_t start = 0;
    while (start <= text.size()) {
        const std::size_t end = std::min(text.find(' ', start), text.size());
        if (end > start)
            pieces.push_back(text.substr(start, end - start));
        start = end + 1;
    }
    return pieces;
}

int digitValue(char c) {
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

// The low `bits` bits of a piece read as an unsigned 32-bit hexadecimal
// number; a piece that is not one (junk, or more than 32 bits) reads 0.
unsigned lowBits(std::string_view piece, int bits) {
    std::uint64_t value = 0;
    for (const char c : piece) {
        const int digit = digitValue(c);
        if (digit < 0)
            return 0;
        value = value << 4 | static_cast<unsigned>(digit);
        if (value > 0xFFFFFFFFu)
            return 0;
    }
    return static_cast<unsigned>(value & ((1u << bits) - 1));
}

void require(bool condition) {
    if (!condition)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string input(reinterpret_cast<const char*>(data), size);

    const std::vector<std::string_view> pieces = piecesOf(input);
    const std::string decoded = type::decodeHexText(input);
    require(decoded.size() == pieces.size());
    for (std::size_t i = 0; i < pieces.size(); ++i)
        require(static_cast<unsigned char>(decoded[i]) == lowBits(pieces[i], 8));

    const QString units = type::hexTokensToQString(input);
    require(static_cast<std::size_t>(units.size()) == pieces.size());
    for (std::size_t i = 0; i < pieces.size(); ++i)
        require(units[static_cast<int>(i)].unicode() == lowBits(pieces[i], 16));

    const std::string encoded = type::encodeHexText(input);
    require(encoded.size() == 3 * input.size());
    require(type::decodeHexText(encoded) == input);
    return 0;
}
