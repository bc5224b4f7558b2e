#include "svg/PathTokens.h"

#include "svg/SvgNumbers.h"

#include <cctype>

namespace type {

namespace {

constexpr std::string_view kLetters = "mzlhvcsqta";

char lower(char c) {
    return static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
}

} // namespace

std::size_t argumentCount(char letter) {
    switch (letter) {
    case 'h':
    case 'v':
        return 1;
    case 'q':
    case 's':
        return 4;
    case 'c':
        return 6;
    case 'a':
        return 7;
    case 'z':
        return 0;
    default:
        return 2;
    }
}

std::vector<PathCommand> tokenisePath(std::string_view data) {
    std::vector<PathCommand> commands;
    std::size_t pos = 0;
    while (pos < data.size()) {
        const char c = data[pos];
        if (kLetters.find(lower(c)) != std::string_view::npos) {
            commands.push_back({lower(c), lower(c) == c, {}});
            ++pos;
        } else if (startsNumber(c)) {
            const double number = readNumber(data, pos);
            // Numbers before the first command have nothing to belong to.
            if (commands.empty())
                continue;
            const PathCommand& current = commands.back();
            if (current.numbers.size() >= argumentCount(current.letter)) {
                const char letter = current.letter == 'm' ? 'l' : current.letter;
                commands.push_back({letter, current.isRelative, {}});
            }
            commands.back().numbers.push_back(number);
        } else {
            ++pos;
        }
    }
    return commands;
}

} // namespace type
