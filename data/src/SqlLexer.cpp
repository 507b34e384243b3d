#include "SqlLexer.h"

#include <cctype>
#include <string>

namespace avlor {

namespace {

bool isWordStart(char c) noexcept
{
    const auto u = static_cast<unsigned char>(c);
    return std::isalpha(u) != 0 || c == '_' || u >= 0x80;
}

bool isWordChar(char c) noexcept
{
    const auto u = static_cast<unsigned char>(c);
    return std::isalnum(u) != 0 || c == '_' || c == '$' || u >= 0x80;
}

bool isDigit(char c) noexcept { return std::isdigit(static_cast<unsigned char>(c)) != 0; }

bool isBlank(char c) noexcept { return std::isspace(static_cast<unsigned char>(c)) != 0; }

// End of a quoted run starting at `start` (the opening quote), where a doubled
// closing quote stands for itself.
std::size_t quotedEnd(std::string_view sql, std::size_t start, char close)
{
    std::size_t i = start + 1;
    while (i < sql.size()) {
        if (sql[i] == close) {
            if (close != ']' && i + 1 < sql.size() && sql[i + 1] == close) {
                i += 2;
                continue;
            }
            return i + 1;
        }
        ++i;
    }
    return sql.size();
}

} // namespace

std::vector<SqlToken> lexSql(std::string_view sql)
{
    std::vector<SqlToken> tokens;
    int depth = 0;
    std::size_t i = 0;
    while (i < sql.size()) {
        const char c = sql[i];
        std::size_t end = i + 1;
        SqlTokenKind kind = SqlTokenKind::Symbol;
        if (isBlank(c)) {
            kind = SqlTokenKind::Blank;
            while (end < sql.size() && isBlank(sql[end])) {
                ++end;
            }
        } else if (c == '-' && i + 1 < sql.size() && sql[i + 1] == '-') {
            kind = SqlTokenKind::Comment;
            end = sql.find('\n', i);
            end = end == std::string_view::npos ? sql.size() : end;
        } else if (c == '/' && i + 1 < sql.size() && sql[i + 1] == '*') {
            kind = SqlTokenKind::Comment;
            end = sql.find("*/", i + 2);
            end = end == std::string_view::npos ? sql.size() : end + 2;
        } else if (c == '\'') {
            kind = SqlTokenKind::String;
            end = quotedEnd(sql, i, '\'');
        } else if (c == '"' || c == '`' || c == '[') {
            kind = SqlTokenKind::QuotedName;
            end = quotedEnd(sql, i, c == '[' ? ']' : c);
        } else if (isDigit(c) || (c == '.' && i + 1 < sql.size() && isDigit(sql[i + 1]))) {
            kind = SqlTokenKind::Number;
            while (end < sql.size() && (isDigit(sql[end]) || sql[end] == '.')) {
                ++end;
            }
        } else if (isWordStart(c)) {
            kind = SqlTokenKind::Word;
            while (end < sql.size() && isWordChar(sql[end])) {
                ++end;
            }
        }
        if (kind == SqlTokenKind::Symbol && c == ')') {
            --depth;
        }
        tokens.push_back({kind, sql.substr(i, end - i), depth});
        if (kind == SqlTokenKind::Symbol && c == '(') {
            ++depth;
        }
        i = end;
    }
    return tokens;
}

bool isKeyword(const SqlToken& token, std::string_view keyword) noexcept
{
    if (token.kind != SqlTokenKind::Word || token.text.size() != keyword.size()) {
        return false;
    }
    for (std::size_t i = 0; i < keyword.size(); ++i) {
        if (std::toupper(static_cast<unsigned char>(token.text[i])) !=
            std::toupper(static_cast<unsigned char>(keyword[i]))) {
            return false;
        }
    }
    return true;
}

bool isFiller(const SqlToken& token) noexcept
{
    return token.kind == SqlTokenKind::Blank || token.kind == SqlTokenKind::Comment;
}

bool isAnyKeyword(const SqlToken& token, std::initializer_list<const char*> keywords) noexcept
{
    for (const char* keyword : keywords) {
        if (isKeyword(token, keyword)) {
            return true;
        }
    }
    return false;
}

std::size_t nextMeaningful(const std::vector<SqlToken>& tokens, std::size_t i) noexcept
{
    while (i < tokens.size() && isFiller(tokens[i])) {
        ++i;
    }
    return i;
}

bool isSymbol(const std::vector<SqlToken>& tokens, std::size_t i, char symbol) noexcept
{
    return i < tokens.size() && tokens[i].kind == SqlTokenKind::Symbol && tokens[i].text[0] == symbol;
}

std::string unquoteString(std::string_view literal)
{
    std::string text;
    if (literal.size() < 2) {
        return text;
    }
    const std::string_view inner = literal.substr(1, literal.size() - 2);
    for (std::size_t i = 0; i < inner.size(); ++i) {
        text += inner[i];
        if (inner[i] == '\'' && i + 1 < inner.size() && inner[i + 1] == '\'') {
            ++i;
        }
    }
    return text;
}

} // namespace avlor
