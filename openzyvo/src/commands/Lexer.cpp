#include "commands/Lexer.h"

#include <cctype>
#include <charconv>

namespace oz::cmd {

const char* describe(Token::Kind kind) {
    switch (kind) {
    case Token::Kind::Word:
        return "a word";
    case Token::Kind::Flag:
        return "a flag";
    case Token::Kind::Int:
        return "an integer";
    case Token::Kind::Double:
        return "a number";
    case Token::Kind::String:
        return "a string";
    case Token::Kind::OpenParen:
        return "'('";
    case Token::Kind::CloseParen:
        return "')'";
    case Token::Kind::Comma:
        return "','";
    case Token::Kind::Semicolon:
        return "';'";
    case Token::Kind::End:
        return "the end of the script";
    }
    return "a token";
}

namespace {

bool isDelimiter(char c) {
    return c == ';' || c == '(' || c == ')' || c == ',' || c == '"';
}

bool looksNumeric(std::string_view run) {
    std::size_t i = (run[0] == '-' || run[0] == '+') ? 1 : 0;
    if (i < run.size() && run[i] == '.')
        ++i;
    return i < run.size() && std::isdigit(static_cast<unsigned char>(run[i]));
}

class Lexer {
public:
    explicit Lexer(std::string_view source)
        : m_source(source) {}

    LexResult run() {
        LexResult result;
        while (true) {
            if (auto error = skipBlanksAndComments()) {
                result.error = error;
                return result;
            }
            if (atEnd()) {
                result.tokens.push_back(Token{Token::Kind::End, {}, m_position});
                return result;
            }
            Token token;
            if (auto error = next(token)) {
                result.error = error;
                return result;
            }
            result.tokens.push_back(std::move(token));
        }
    }

private:
    bool atEnd() const { return m_offset >= m_source.size(); }
    char peek(std::size_t ahead = 0) const {
        return m_offset + ahead < m_source.size() ? m_source[m_offset + ahead] : '\0';
    }
    bool startsComment() const { return peek() == '/' && (peek(1) == '/' || peek(1) == '*'); }

    void advance() { m_position.advancePast(m_source, m_offset++); }

    std::optional<SyntaxError> skipBlanksAndComments() {
        while (!atEnd()) {
            if (std::isspace(static_cast<unsigned char>(peek()))) {
                advance();
            } else if (peek() == '/' && peek(1) == '/') {
                while (!atEnd() && !isLineEnd(peek()))
                    advance();
            } else if (peek() == '/' && peek(1) == '*') {
                const SourcePosition start = m_position;
                advance();
                advance();
                while (!atEnd() && !(peek() == '*' && peek(1) == '/'))
                    advance();
                if (atEnd())
                    return SyntaxError{start, "unterminated comment"};
                advance();
                advance();
            } else {
                break;
            }
        }
        return std::nullopt;
    }

    std::optional<SyntaxError> next(Token& token) {
        token.position = m_position;
        switch (peek()) {
        case '(':
            token.kind = Token::Kind::OpenParen;
            break;
        case ')':
            token.kind = Token::Kind::CloseParen;
            break;
        case ',':
            token.kind = Token::Kind::Comma;
            break;
        case ';':
            token.kind = Token::Kind::Semicolon;
            break;
        case '"':
            return quoted(token);
        default:
            bare(token);
            return std::nullopt;
        }
        token.text = std::string(1, peek());
        advance();
        return std::nullopt;
    }

    std::optional<SyntaxError> quoted(Token& token) {
        token.kind = Token::Kind::String;
        advance();
        while (true) {
            if (atEnd() || isLineEnd(peek()))
                return SyntaxError{token.position, "unterminated string"};
            const char c = peek();
            if (c == '"') {
                advance();
                return std::nullopt;
            }
            if (c != '\\') {
                token.text += c;
                advance();
                continue;
            }
            const SourcePosition escapeAt = m_position;
            advance();
            switch (peek()) {
            case '"':
                token.text += '"';
                break;
            case '\\':
                token.text += '\\';
                break;
            case 'n':
                token.text += '\n';
                break;
            case 't':
                token.text += '\t';
                break;
            case 'r':
                token.text += '\r';
                break;
            default:
                if (atEnd() || isLineEnd(peek()))
                    return SyntaxError{token.position, "unterminated string"};
                return SyntaxError{escapeAt, std::string("unknown escape sequence '\\") + peek() + "'"};
            }
            advance();
        }
    }

    void bare(Token& token) {
        const std::size_t start = m_offset;
        while (!atEnd() && !std::isspace(static_cast<unsigned char>(peek())) && !isDelimiter(peek()) &&
               !startsComment())
            advance();
        const std::string_view run = m_source.substr(start, m_offset - start);
        token.text = std::string(run);
        if (run.size() > 1 && run[0] == '-' &&
            (std::isalpha(static_cast<unsigned char>(run[1])) || run[1] == '_')) {
            token.kind = Token::Kind::Flag;
            token.text.erase(0, 1);
        } else if (looksNumeric(run) && number(run, token)) {
            return;
        } else {
            token.kind = Token::Kind::Word;
        }
    }

    static bool number(std::string_view run, Token& token) {
        const char* first = run.data() + (run[0] == '+' ? 1 : 0);
        const char* last = run.data() + run.size();
        int asInt = 0;
        const auto intResult = std::from_chars(first, last, asInt);
        if (intResult.ec == std::errc() && intResult.ptr == last) {
            token.kind = Token::Kind::Int;
            token.intValue = asInt;
            return true;
        }
        double asDouble = 0.0;
        const auto doubleResult = std::from_chars(first, last, asDouble);
        if (doubleResult.ec == std::errc() && doubleResult.ptr == last) {
            token.kind = Token::Kind::Double;
            token.doubleValue = asDouble;
            return true;
        }
        return false;
    }

    std::string_view m_source;
    std::size_t m_offset = 0;
    SourcePosition m_position;
};

} // namespace

LexResult tokenize(std::string_view source) {
    return Lexer(source).run();
}

} // namespace oz::cmd
