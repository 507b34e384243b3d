#include "avlor/data/Dialect.h"

#include <algorithm>
#include <cctype>
#include <optional>

#include "SqlLexer.h"
#include "avlor/core/Text.h"
#include "avlor/data/DataError.h"

namespace avlor {

namespace {

bool isTerminatedString(const SqlToken& token)
{
    return token.kind == SqlTokenKind::String && token.text.size() >= 2 && token.text.back() == '\'';
}

// The date form the application's statements use: CONVERT (SMALLDATETIME,
// 'text', 105).
// Returns the index of its closing parenthesis and the date text.
struct DateForm {
    std::size_t last;
    std::string text;
};

std::optional<DateForm> matchDateForm(const std::vector<SqlToken>& tokens, std::size_t i)
{
    if (!isKeyword(tokens[i], "CONVERT")) {
        return std::nullopt;
    }
    std::size_t j = nextMeaningful(tokens, i + 1);
    if (!isSymbol(tokens, j, '(')) {
        return std::nullopt;
    }
    j = nextMeaningful(tokens, j + 1);
    if (j >= tokens.size() || !isKeyword(tokens[j], "SMALLDATETIME")) {
        return std::nullopt;
    }
    j = nextMeaningful(tokens, j + 1);
    if (!isSymbol(tokens, j, ',')) {
        return std::nullopt;
    }
    j = nextMeaningful(tokens, j + 1);
    if (j >= tokens.size() || !isTerminatedString(tokens[j])) {
        return std::nullopt;
    }
    std::string text = unquoteString(tokens[j].text);
    j = nextMeaningful(tokens, j + 1);
    if (!isSymbol(tokens, j, ',')) {
        return std::nullopt;
    }
    j = nextMeaningful(tokens, j + 1);
    if (j >= tokens.size() || tokens[j].kind != SqlTokenKind::Number || tokens[j].text != "105") {
        return std::nullopt;
    }
    j = nextMeaningful(tokens, j + 1);
    if (!isSymbol(tokens, j, ')')) {
        return std::nullopt;
    }
    return DateForm{j, std::move(text)};
}

// A bare true / false used as a value: not a qualified name's part and not
// a function name.
bool isBareBoolean(const std::vector<SqlToken>& tokens, std::size_t i)
{
    if (!isKeyword(tokens[i], "TRUE") && !isKeyword(tokens[i], "FALSE")) {
        return false;
    }
    if (i > 0 && isSymbol(tokens, i - 1, '.')) {
        return false;
    }
    const std::size_t next = nextMeaningful(tokens, i + 1);
    return !isSymbol(tokens, next, '.') && !isSymbol(tokens, next, '(');
}

// Style 105 is day-month-year, with '-', '.' or '/' between the parts.
std::string dayFirstWithSlashes(std::string text)
{
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c == '-' || c == '.'; }, '/');
    return text;
}

} // namespace

bool Dialect::isBareTableName(std::string_view source)
{
    const std::string_view name = trimBlanks(source);
    const std::vector<SqlToken> tokens = lexSql(name);
    return tokens.size() == 1 && tokens[0].kind == SqlTokenKind::Word &&
        std::isdigit(static_cast<unsigned char>(name.front())) == 0;
}

std::string Dialect::quoteIdentifier(std::string_view name)
{
    std::string quoted = "\"";
    for (const char c : name) {
        quoted += c;
        if (c == '"') {
            quoted += '"';
        }
    }
    quoted += '"';
    return quoted;
}

std::string Dialect::translate(std::string_view source) const
{
    if (isBareTableName(source)) {
        return "SELECT * FROM " + std::string(trimBlanks(source));
    }
    const std::vector<SqlToken> tokens = lexSql(source);
    std::string result;
    result.reserve(source.size() + 16);
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        const SqlToken& token = tokens[i];
        if (auto form = matchDateForm(tokens, i)) {
            const std::optional<Date> date = Date::parseDayFirst(dayFirstWithSlashes(form->text));
            if (!date) {
                throw DataError("Conversione non riuscita: '" + form->text + "' non è una data", std::string(source));
            }
            result += dateLiteral(*date);
            i = form->last;
        } else if (isBareBoolean(tokens, i)) {
            result += booleanLiteral(isKeyword(token, "TRUE"));
        } else if (token.kind == SqlTokenKind::Symbol && token.text[0] == ';') {
            for (std::size_t j = i + 1; j < tokens.size(); ++j) {
                if (tokens[j].kind != SqlTokenKind::Blank) {
                    throw DataError("Si può eseguire una sola istruzione alla volta: dopo ';' c'è altro testo",
                                    std::string(source));
                }
            }
            break;
        } else {
            result += token.text;
        }
    }
    return result;
}

std::vector<std::string> Dialect::splitScript(std::string_view script)
{
    std::vector<std::string> statements;
    std::string current;
    bool meaningful = false;
    const auto flush = [&] {
        if (meaningful) {
            statements.push_back(current);
        }
        current.clear();
        meaningful = false;
    };
    for (const SqlToken& token : lexSql(script)) {
        if (token.kind == SqlTokenKind::Symbol && token.text[0] == ';') {
            flush();
            continue;
        }
        current += token.text;
        meaningful = meaningful || !isFiller(token);
    }
    flush();
    return statements;
}

} // namespace avlor
