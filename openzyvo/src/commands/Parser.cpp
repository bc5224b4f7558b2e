#include "commands/Parser.h"

#include "commands/Lexer.h"

namespace oz::cmd {

namespace {

// Deeper nesting than any real script uses; it keeps hostile input from
// exhausting the stack.
constexpr int kMaxNesting = 256;

class Parser {
public:
    explicit Parser(std::vector<Token> tokens)
        : m_tokens(std::move(tokens)) {}

    ParseResult run() {
        ParseResult result;
        while (current().kind != Token::Kind::End) {
            if (current().kind == Token::Kind::Semicolon) {
                ++m_index;
                continue;
            }
            Invocation statement;
            if (!parseStatement(statement))
                return ParseResult{{}, m_error};
            result.script.statements.push_back(std::move(statement));
        }
        return result;
    }

private:
    const Token& current() const { return m_tokens[m_index]; }
    const Token& peekNext() const { return m_tokens[std::min(m_index + 1, m_tokens.size() - 1)]; }

    bool fail(const Token& at, std::string message) {
        m_error = SyntaxError{at.position, std::move(message)};
        return false;
    }

    bool unexpected(const Token& at, const char* wanted) {
        return fail(at, std::string("expected ") + wanted + ", found " + describe(at.kind) +
                            (at.text.empty() ? "" : " '" + at.text + "'"));
    }

    bool parseStatement(Invocation& statement) {
        const Token& name = current();
        if (name.kind != Token::Kind::Word)
            return unexpected(name, "a command name");
        if (peekNext().kind == Token::Kind::OpenParen) {
            if (!parseCall(statement))
                return false;
        } else if (!parseCommandForm(statement)) {
            return false;
        }
        if (current().kind != Token::Kind::Semicolon && current().kind != Token::Kind::End)
            return unexpected(current(), "';'");
        return true;
    }

    bool parseCommandForm(Invocation& statement) {
        statement.name = current().text;
        statement.position = current().position;
        ++m_index;
        while (true) {
            const Token& token = current();
            switch (token.kind) {
            case Token::Kind::Flag:
                statement.arguments.push_back({FlagArgument{token.text}, token.position});
                break;
            case Token::Kind::Word:
            case Token::Kind::String:
                statement.arguments.push_back({Value(token.text), token.position});
                break;
            case Token::Kind::Int:
                statement.arguments.push_back({Value(token.intValue), token.position});
                break;
            case Token::Kind::Double:
                statement.arguments.push_back({Value(token.doubleValue), token.position});
                break;
            case Token::Kind::Semicolon:
            case Token::Kind::End:
                return true;
            default:
                return unexpected(token, "an argument or ';'");
            }
            ++m_index;
        }
    }

    bool parseCall(Invocation& call) {
        if (m_nesting == kMaxNesting)
            return fail(current(), "calls are nested too deeply");
        ++m_nesting;
        const bool parsed = parseCallBody(call);
        --m_nesting;
        return parsed;
    }

    bool parseCallBody(Invocation& call) {
        call.name = current().text;
        call.position = current().position;
        m_index += 2;
        if (current().kind == Token::Kind::CloseParen) {
            ++m_index;
            return true;
        }
        while (true) {
            if (!parseCallArgument(call))
                return false;
            if (current().kind == Token::Kind::CloseParen) {
                ++m_index;
                return true;
            }
            if (current().kind != Token::Kind::Comma)
                return unexpected(current(), "',' or ')'");
            ++m_index;
        }
    }

    bool parseCallArgument(Invocation& call) {
        const Token& token = current();
        switch (token.kind) {
        case Token::Kind::String:
            call.arguments.push_back({Value(token.text), token.position});
            break;
        case Token::Kind::Int:
            call.arguments.push_back({Value(token.intValue), token.position});
            break;
        case Token::Kind::Double:
            call.arguments.push_back({Value(token.doubleValue), token.position});
            break;
        case Token::Kind::Word:
            if (peekNext().kind == Token::Kind::OpenParen) {
                Invocation nested;
                if (!parseCall(nested))
                    return false;
                const SourcePosition at = nested.position;
                call.arguments.push_back({std::make_shared<const Invocation>(std::move(nested)), at});
                return true;
            }
            return fail(token, "'" + token.text + "' is not a value; quote it to pass it as a string");
        default:
            return unexpected(token, "a value");
        }
        ++m_index;
        return true;
    }

    std::vector<Token> m_tokens;
    std::size_t m_index = 0;
    int m_nesting = 0;
    SyntaxError m_error;
};

} // namespace

ParseResult parse(std::string_view source) {
    LexResult lexed = tokenize(source);
    if (lexed.error)
        return ParseResult{{}, lexed.error};
    return Parser(std::move(lexed.tokens)).run();
}

} // namespace oz::cmd
