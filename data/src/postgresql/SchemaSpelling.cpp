#include "postgresql/SchemaSpelling.h"

#include <algorithm>
#include <cctype>
#include <map>
#include <vector>

#include "SchemaScripts.h"
#include "SqlLexer.h"

namespace avlor {

namespace {

std::string lower(std::string_view text)
{
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(),
                   [](char c) { return static_cast<char>(std::tolower(static_cast<unsigned char>(c))); });
    return result;
}

struct TableSpelling {
    std::string name;
    std::map<std::string, std::string> columns; // lower case -> spelling
};

using Spellings = std::map<std::string, TableSpelling>; // lower case table -> spelling

// A table constraint, not a column, where a column definition could start.
bool startsConstraint(const SqlToken& token)
{
    for (const char* keyword : {"CONSTRAINT", "PRIMARY", "UNIQUE", "CHECK", "FOREIGN", "EXCLUDE", "LIKE"}) {
        if (isKeyword(token, keyword)) {
            return true;
        }
    }
    return false;
}

// The column definitions of the CREATE TABLE whose '(' is at `open`.
void readColumns(const std::vector<SqlToken>& tokens, std::size_t open, TableSpelling& table)
{
    const int inside = tokens[open].depth + 1;
    bool columnStarts = true;
    for (std::size_t i = open + 1; i < tokens.size(); ++i) {
        const SqlToken& token = tokens[i];
        if (token.kind == SqlTokenKind::Symbol && token.text[0] == ')' && token.depth < inside) {
            return;
        }
        if (token.depth != inside || isFiller(token)) {
            continue;
        }
        if (token.kind == SqlTokenKind::Symbol && token.text[0] == ',') {
            columnStarts = true;
            continue;
        }
        if (columnStarts && token.kind == SqlTokenKind::Word && !startsConstraint(token)) {
            table.columns.emplace(lower(token.text), std::string(token.text));
        }
        columnStarts = false;
    }
}

Spellings readSpellings()
{
    Spellings spellings;
    for (const SchemaScript& script : schemaScripts("postgresql")) {
        const std::vector<SqlToken> tokens = lexSql(script.sql);
        for (std::size_t i = 0; i < tokens.size(); ++i) {
            if (!isKeyword(tokens[i], "CREATE")) {
                continue;
            }
            const std::size_t table = nextMeaningful(tokens, i + 1);
            if (table >= tokens.size() || !isKeyword(tokens[table], "TABLE")) {
                continue;
            }
            const std::size_t name = nextMeaningful(tokens, table + 1);
            const std::size_t open = nextMeaningful(tokens, name + 1);
            if (name >= tokens.size() || tokens[name].kind != SqlTokenKind::Word || !isSymbol(tokens, open, '(')) {
                continue;
            }
            TableSpelling& entry = spellings[lower(tokens[name].text)];
            entry.name = std::string(tokens[name].text);
            readColumns(tokens, open, entry);
        }
    }
    return spellings;
}

const Spellings& spellings()
{
    static const Spellings all = readSpellings();
    return all;
}

const TableSpelling* findTable(std::string_view table)
{
    const auto found = spellings().find(lower(table));
    return found == spellings().end() ? nullptr : &found->second;
}

} // namespace

std::string spelledTable(std::string_view table)
{
    const TableSpelling* known = findTable(table);
    return known != nullptr ? known->name : std::string(table);
}

std::string spelledColumn(std::string_view table, std::string_view column)
{
    if (const TableSpelling* known = findTable(table)) {
        if (const auto found = known->columns.find(lower(column)); found != known->columns.end()) {
            return found->second;
        }
    }
    return std::string(column);
}

bool schemaHasColumn(std::string_view table, std::string_view column)
{
    const TableSpelling* known = findTable(table);
    return known != nullptr && known->columns.count(lower(column)) != 0;
}

} // namespace avlor
