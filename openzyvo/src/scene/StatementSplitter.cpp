#include "scene/StatementSplitter.h"

#include <cctype>
#include <optional>

namespace oz::scene {

namespace {

class Splitter {
public:
    explicit Splitter(std::string_view source)
        : m_source(source) {}

    std::vector<StatementText> run() {
        std::vector<StatementText> statements;
        for (;;) {
            skipBlanksAndComments();
            if (m_openComment) {
                statements.push_back(openComment({}));
                return statements;
            }
            if (atEnd())
                return statements;
            statements.push_back(statement());
            if (statements.back().end == StatementText::End::OpenComment)
                return statements;
        }
    }

private:
    bool atEnd() const { return m_at >= m_source.size(); }
    char peek(std::size_t ahead = 0) const {
        return m_at + ahead < m_source.size() ? m_source[m_at + ahead] : '\0';
    }
    void advance() { m_position.advancePast(m_source, m_at++); }
    void skipLineComment() {
        while (!atEnd() && !cmd::isLineEnd(peek()))
            advance();
    }
    // False when the comment runs to the end of the file.
    bool skipBlockComment() {
        advance();
        advance();
        while (!atEnd() && !(peek() == '*' && peek(1) == '/'))
            advance();
        if (atEnd())
            return false;
        advance();
        advance();
        return true;
    }
    // Stops at a comment that is never closed and leaves `m_openComment`
    // where it starts.
    void skipBlanksAndComments() {
        while (!atEnd()) {
            if (std::isspace(static_cast<unsigned char>(peek()))) {
                advance();
            } else if (peek() == '/' && peek(1) == '/') {
                skipLineComment();
            } else if (peek() == '/' && peek(1) == '*') {
                const cmd::SourcePosition start = m_position;
                if (!skipBlockComment()) {
                    m_openComment = start;
                    return;
                }
            } else {
                break;
            }
        }
    }
    StatementText openComment(std::string_view text) const {
        StatementText out;
        out.text = text;
        out.line = m_openComment->line;
        out.column = m_openComment->column;
        out.end = StatementText::End::OpenComment;
        return out;
    }

    StatementText statement() {
        StatementText out;
        out.line = m_position.line;
        out.column = m_position.column;
        const std::size_t start = m_at;
        while (!atEnd()) {
            const char c = peek();
            if (c == ';') {
                advance();
                out.text = m_source.substr(start, m_at - start);
                return out;
            }
            if (c == '"') {
                if (!skipString()) {
                    out.text = m_source.substr(start, m_at - start);
                    out.end = atEnd() ? StatementText::End::EndOfFile : StatementText::End::BrokenString;
                    return out;
                }
            } else if (c == '/' && peek(1) == '/') {
                skipLineComment();
            } else if (c == '/' && peek(1) == '*') {
                const cmd::SourcePosition commentAt = m_position;
                if (!skipBlockComment()) {
                    m_openComment = commentAt;
                    return openComment(m_source.substr(start));
                }
            } else {
                advance();
            }
        }
        out.text = m_source.substr(start);
        out.end = StatementText::End::EndOfFile;
        return out;
    }

    // False when the string is not closed on its line.
    bool skipString() {
        advance();
        while (!atEnd() && !cmd::isLineEnd(peek())) {
            if (peek() == '"') {
                advance();
                return true;
            }
            if (peek() == '\\' && m_at + 1 < m_source.size() && !cmd::isLineEnd(peek(1)))
                advance();
            advance();
        }
        return false;
    }

    std::string_view m_source;
    std::size_t m_at = 0;
    cmd::SourcePosition m_position;
    std::optional<cmd::SourcePosition> m_openComment;
};

} // namespace

std::vector<StatementText> splitStatements(std::string_view source) {
    return Splitter(source).run();
}

} // namespace oz::scene
