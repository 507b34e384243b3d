#include "postgresql/PgStatementShape.h"

#include <algorithm>
#include <cctype>

#include "SqlLexer.h"
#include "avlor/data/DataError.h"

namespace avlor {

namespace {

bool isName(const std::vector<SqlToken>& tokens, std::size_t i)
{
    return i < tokens.size() && (tokens[i].kind == SqlTokenKind::Word || tokens[i].kind == SqlTokenKind::QuotedName);
}

// Words that end a table reference instead of naming its alias.
bool endsTableReference(const SqlToken& token)
{
    return isAnyKeyword(token, {"WHERE",  "ORDER", "GROUP",     "HAVING", "LIMIT", "OFFSET",     "FETCH", "FOR",
                                "WINDOW", "UNION", "INTERSECT", "EXCEPT", "JOIN",  "INNER",      "LEFT",  "RIGHT",
                                "FULL",   "CROSS", "NATURAL",   "ON",     "USING", "TABLESAMPLE"});
}

bool joinsAnotherTable(const std::vector<SqlToken>& tokens, std::size_t i)
{
    return isSymbol(tokens, i, ',') ||
        (i < tokens.size() && isAnyKeyword(tokens[i], {"JOIN", "INNER", "LEFT", "RIGHT", "FULL", "CROSS", "NATURAL"}));
}

[[noreturn]] void notAQuery(const std::string& reportAs)
{
    throw DataError("Non è un'interrogazione: si può aprire solo un'istruzione SELECT o il nome di una tabella",
                    reportAs);
}

} // namespace

void requirePgQuery(std::string_view sql, const std::string& reportAs)
{
    const std::vector<SqlToken> tokens = lexSql(sql);
    std::size_t first = nextMeaningful(tokens, 0);
    while (isSymbol(tokens, first, '(')) {
        first = nextMeaningful(tokens, first + 1);
    }
    if (first == tokens.size() || tokens[first].kind != SqlTokenKind::Word) {
        return; // nothing to run, or not a statement: the server says which
    }
    const SqlToken& head = tokens[first];
    if (isKeyword(head, "VALUES") || isKeyword(head, "TABLE")) {
        return;
    }
    if (isKeyword(head, "SELECT")) {
        for (std::size_t i = first; i < tokens.size(); ++i) {
            if (tokens[i].depth == 0 && isKeyword(tokens[i], "INTO")) {
                notAQuery(reportAs);
            }
        }
        return;
    }
    if (isKeyword(head, "WITH")) {
        for (const SqlToken& token : tokens) {
            if (isAnyKeyword(token, {"INSERT", "UPDATE", "DELETE", "MERGE", "INTO"})) {
                notAQuery(reportAs);
            }
        }
        return;
    }
    // Any other command, even one that changes nothing stored (SET, BEGIN,
    // SHOW), would change or reveal the session the layer relies on. A word
    // that starts no command at all is left to the server, whose syntax
    // error says more.
    if (isAnyKeyword(head,
                     {"ABORT",    "ALTER",   "ANALYZE", "BEGIN",   "CALL",       "CHECKPOINT", "CLOSE",    "CLUSTER",
                      "COMMENT",  "COMMIT",  "COPY",    "CREATE",  "DEALLOCATE", "DECLARE",    "DELETE",   "DISCARD",
                      "DO",       "DROP",    "END",     "EXECUTE", "EXPLAIN",    "FETCH",      "GRANT",    "IMPORT",
                      "INSERT",   "LISTEN",  "LOAD",    "LOCK",    "MERGE",      "MOVE",       "NOTIFY",   "PREPARE",
                      "REASSIGN", "REFRESH", "REINDEX", "RELEASE", "RESET",      "REVOKE",     "ROLLBACK", "SAVEPOINT",
                      "SECURITY", "SET",     "SHOW",    "START",   "TRUNCATE",   "UNLISTEN",   "UPDATE",   "VACUUM"})) {
        notAQuery(reportAs);
    }
}

bool isTransactionCommand(std::string_view sql)
{
    const std::vector<SqlToken> tokens = lexSql(sql);
    const std::size_t first = nextMeaningful(tokens, 0);
    if (first == tokens.size()) {
        return false;
    }
    if (isKeyword(tokens[first], "PREPARE")) {
        const std::size_t next = nextMeaningful(tokens, first + 1);
        return next < tokens.size() && isKeyword(tokens[next], "TRANSACTION");
    }
    return isAnyKeyword(tokens[first],
                        {"BEGIN", "START", "COMMIT", "END", "ROLLBACK", "ABORT", "SAVEPOINT", "RELEASE"});
}

std::optional<SingleTableQuery> singleTableQuery(std::string_view sql, std::string& whyNot)
{
    const std::vector<SqlToken> tokens = lexSql(sql);
    const std::size_t select = nextMeaningful(tokens, 0);
    if (select == tokens.size() || !isKeyword(tokens[select], "SELECT")) {
        whyNot = "non è una semplice SELECT";
        return std::nullopt;
    }
    std::size_t columnsAfter = select;
    const std::size_t quantifier = nextMeaningful(tokens, select + 1);
    if (quantifier < tokens.size() && isKeyword(tokens[quantifier], "DISTINCT")) {
        whyNot = "seleziona righe distinte";
        return std::nullopt;
    }
    if (quantifier < tokens.size() && isKeyword(tokens[quantifier], "ALL")) {
        columnsAfter = quantifier;
    }
    std::size_t from = tokens.size();
    for (std::size_t i = quantifier; i < tokens.size(); ++i) {
        if (tokens[i].depth != 0) {
            continue;
        }
        if (isKeyword(tokens[i], "GROUP")) {
            whyNot = "raggruppa le righe";
            return std::nullopt;
        }
        if (isAnyKeyword(tokens[i], {"UNION", "INTERSECT", "EXCEPT"})) {
            whyNot = "combina più interrogazioni";
            return std::nullopt;
        }
        if (from == tokens.size() && isKeyword(tokens[i], "FROM")) {
            from = i;
        }
    }
    whyNot = "le sue colonne non vengono tutte da una sola tabella";
    std::size_t i = nextMeaningful(tokens, from + 1);
    if (from == tokens.size() || !isName(tokens, i) || isKeyword(tokens[i], "ONLY") ||
        isKeyword(tokens[i], "LATERAL")) {
        return std::nullopt;
    }
    SingleTableQuery shape;
    shape.table = std::string(tokens[i].text);
    i = nextMeaningful(tokens, i + 1);
    if (isSymbol(tokens, i, '.')) {
        const std::size_t name = nextMeaningful(tokens, i + 1);
        if (!isName(tokens, name)) {
            return std::nullopt;
        }
        shape.table += ".";
        shape.table += tokens[name].text;
        i = nextMeaningful(tokens, name + 1);
    }
    if (isSymbol(tokens, i, '(')) {
        return std::nullopt; // a function in FROM
    }
    shape.qualifier = shape.table;
    if (i < tokens.size() && isKeyword(tokens[i], "AS")) {
        i = nextMeaningful(tokens, i + 1);
        if (!isName(tokens, i)) {
            return std::nullopt;
        }
        shape.qualifier = std::string(tokens[i].text);
        i = nextMeaningful(tokens, i + 1);
    } else if (isName(tokens, i) && !endsTableReference(tokens[i])) {
        shape.qualifier = std::string(tokens[i].text);
        i = nextMeaningful(tokens, i + 1);
    }
    if (isSymbol(tokens, i, '(') || joinsAnotherTable(tokens, i)) {
        return std::nullopt; // column aliases, or further tables
    }
    const std::string_view keyword = tokens[columnsAfter].text;
    shape.columnsAt = static_cast<std::size_t>(keyword.data() - sql.data()) + keyword.size();
    whyNot.clear();
    return shape;
}

std::string withLeadingColumns(std::string_view sql, const SingleTableQuery& shape,
                               const std::vector<std::string>& columns)
{
    std::string result(sql.substr(0, shape.columnsAt));
    result += ' ';
    for (const std::string& column : columns) {
        result += column;
        result += ", ";
    }
    result += sql.substr(shape.columnsAt);
    return result;
}

std::optional<std::string> spellingInStatement(std::string_view sql, std::string_view name)
{
    for (const SqlToken& token : lexSql(sql)) {
        if (token.kind == SqlTokenKind::Word && isKeyword(token, name)) {
            return std::string(token.text);
        }
    }
    return std::nullopt;
}

} // namespace avlor
