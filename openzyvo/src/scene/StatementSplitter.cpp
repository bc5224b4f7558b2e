#include "scene/StatementSplitter.h"

#include <cctype>

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
            if (atEnd())
                return statements;
            statements.push_back(statement());
        }
    }

private:
    bool atEnd() const { return m_at >= m_source.size(); }
    char peek(std::size_t ahead = 0) const {
        return m_at + ahead < m_source.size() ? m_source[m_at + ahead] : '\0';
    }
    void advance() {
        const char c = m_source[m_at++];
        if (c == '\n') {
            ++m_line;
            m_column = 1;
        } else if ((static_cast<unsigned char>(c) & 0xC0) != 0x80) {
            ++m_column;
        }
    }
    void skipLineComment() {
        while (!atEnd() && peek() != '\n')
            advance();
    }
    void skipBlockComment() {
        advance();
        advance();
        while (!atEnd() && !(peek() == '*' && peek(1) == '/'))
            advance();
        if (!atEnd()) {
            advance();
            advance();
        }
    }
    void skipBlanksAndComments() {
        while (!atEnd()) {
            if (std::isspace(static_cast<unsigned char>(peek())))
                advance();
            else if (peek() == '/' && peek(1) == '/')
                skipLineComment();
            else if (peek() == '/' && peek(1) == '*')
                skipBlockComment();
            else
                break;
        }
    }

    StatementText statement() {
        StatementText out;
        out.line = m_line;
        out.column = m_column;
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
                skipBlockComment();
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
        while (!atEnd() && peek() != '\n') {
            if (peek() == '"') {
                advance();
                return true;
            }
            if (peek() == '\\' && m_at + 1 < m_source.size() && peek(1) != '\n')
                advance();
            advance();
        }
        return false;
    }

    std::string_view m_source;
    std::size_t m_at = 0;
    int m_line = 1;
    int m_column = 1;
};

} // namespace

std::vector<StatementText> splitStatements(std::string_view source) {
    return Splitter(source).run();
}

} // namespace oz::scene
