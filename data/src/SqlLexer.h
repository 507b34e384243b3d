#pragma once
// A small lexer for the statements the application writes: enough to tell
// literals, quoted names and comments from the words and symbols around
// them, so that the dialects rewrite only what stands outside quotes and the
// layer can find a statement's top-level shape. It never rejects input: an
// unterminated literal runs to the end of the text, and the database then
// reports the error.
#include <cstddef>
#include <initializer_list>
#include <string_view>
#include <vector>

namespace avlor {

enum class SqlTokenKind {
    Blank, // spaces, tabs, line ends
    Comment, // -- to the end of the line, or /* ... */
    Word, // keywords and names
    Number, // 105, 12.5
    String, // 'text', with '' inside
    QuotedName, // "name", [name] or `name`
    Symbol, // any other single character
};

struct SqlToken {
    SqlTokenKind kind;
    std::string_view text; // a view into the lexed statement
    int depth; // parentheses open before the token
};

[[nodiscard]] std::vector<SqlToken> lexSql(std::string_view sql);

// True for a word equal to `keyword` without regard to letter case.
[[nodiscard]] bool isKeyword(const SqlToken& token, std::string_view keyword) noexcept;
// Blanks and comments: the tokens that do not change a statement's meaning.
[[nodiscard]] bool isFiller(const SqlToken& token) noexcept;
// True for a word equal to one of `keywords`, without regard to letter case.
[[nodiscard]] bool isAnyKeyword(const SqlToken& token, std::initializer_list<const char*> keywords) noexcept;
// The index of the first token at or after `i` that is not filler;
// tokens.size() when there is none.
[[nodiscard]] std::size_t nextMeaningful(const std::vector<SqlToken>& tokens, std::size_t i) noexcept;
// True when token `i` exists and is the single-character symbol `symbol`.
[[nodiscard]] bool isSymbol(const std::vector<SqlToken>& tokens, std::size_t i, char symbol) noexcept;
// The content of a string literal token, quotes removed and '' made '.
[[nodiscard]] std::string unquoteString(std::string_view literal);

} // namespace avlor
