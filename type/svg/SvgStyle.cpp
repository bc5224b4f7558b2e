#include "svg/SvgStyle.h"

namespace type {

namespace {

constexpr std::string_view kBlanks = " \t\r\n";

std::string_view trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

// Calls `each` with every piece of `text` between separators.
template <typename Each> void forEachPiece(std::string_view text, std::string_view separators, Each each) {
    std::size_t start = 0;
    while (start <= text.size()) {
        const auto end = text.find_first_of(separators, start);
        each(text.substr(start, end == std::string_view::npos ? std::string_view::npos : end - start));
        if (end == std::string_view::npos)
            break;
        start = end + 1;
    }
}

bool selectorListNames(std::string_view selectors, std::string_view className) {
    bool found = false;
    forEachPiece(selectors, ",", [&](std::string_view selector) {
        selector = trimmed(selector);
        found = found || (selector.size() == className.size() + 1 && selector.front() == '.' &&
                          selector.substr(1) == className);
    });
    return found;
}

} // namespace

std::vector<Declaration> splitDeclarations(std::string_view style) {
    std::vector<Declaration> declarations;
    forEachPiece(style, ";", [&](std::string_view piece) {
        const auto colon = piece.find(':');
        if (colon == std::string_view::npos)
            return;
        const std::string_view name = trimmed(piece.substr(0, colon));
        if (!name.empty())
            declarations.emplace_back(std::string(name), std::string(trimmed(piece.substr(colon + 1))));
    });
    return declarations;
}

std::vector<Declaration> classDeclarations(std::string_view styleSheet, std::string_view classes) {
    std::vector<Declaration> declarations;
    forEachPiece(classes, kBlanks, [&](std::string_view className) {
        if (className.empty())
            return;
        std::size_t pos = 0;
        while (pos < styleSheet.size()) {
            const auto open = styleSheet.find('{', pos);
            const auto close = open == std::string_view::npos ? open : styleSheet.find('}', open);
            if (close == std::string_view::npos)
                break;
            if (selectorListNames(styleSheet.substr(pos, open - pos), className)) {
                for (Declaration& d : splitDeclarations(styleSheet.substr(open + 1, close - open - 1)))
                    declarations.push_back(std::move(d));
            }
            pos = close + 1;
        }
    });
    return declarations;
}

} // namespace type
