// Connection::insertRows on PostgreSQL. Each statement costs a round trip
// to the server, which dwarfs the work of writing one row, and a multi-row
// INSERT of a few thousand parameters costs the server more to parse and
// bind than to write. So the rows are copied (COPY ... FROM STDIN, text
// form), InsertBatchRows to a statement, which keeps every statement well
// inside the statement time limit however many rows are loaded.
//
// Each value travels as the very text a statement parameter would carry
// (pgParameter), read by the server's input function of its column as a
// parameter is: amounts stay exact decimal text, dates follow the session's
// DateStyle. The text form only needs its four special characters escaped
// and NULL written as \N.
#include <algorithm>
#include <cctype>

#include "avlor/data/DataError.h"
#include "avlor/data/Dialect.h"
#include "postgresql/PgConnection.h"

namespace avlor {

namespace {

bool sameName(const std::string& a, const std::string& b)
{
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
               return std::tolower(static_cast<unsigned char>(x)) == std::tolower(static_cast<unsigned char>(y));
           });
}

// The attribute of `column` in `table`: its exact name first, else the one
// that differs only in letter case (the server keeps unquoted names in
// lower case). Zero when none.
int attributeOf(const PgTable& table, const std::string& column)
{
    for (const auto& [attribute, name] : table.columns) {
        if (name == column) {
            return attribute;
        }
    }
    for (const auto& [attribute, name] : table.columns) {
        if (sameName(name, column)) {
            return attribute;
        }
    }
    return 0;
}

// Appends one field of COPY's text form. A statement parameter ends at its
// first NUL (libpq passes C strings), and so does the field, so that a text
// is stored the same whichever way it travels.
void appendField(std::string& data, const std::optional<std::string>& value)
{
    if (!value) {
        data += "\\N";
        return;
    }
    for (const char c : *value) {
        switch (c) {
        case '\0':
            return;
        case '\\':
            data += "\\\\";
            break;
        case '\t':
            data += "\\t";
            break;
        case '\n':
            data += "\\n";
            break;
        case '\r':
            data += "\\r";
            break;
        default:
            data += c;
        }
    }
}

} // namespace

void PgConnection::insertRows(const std::string& table, const std::vector<std::string>& columns,
                              const std::vector<std::vector<Value>>& rows)
{
    if (rows.empty()) {
        return;
    }
    std::string written = "INSERT INTO " + table + " (";
    for (std::size_t i = 0; i < columns.size(); ++i) {
        written += (i == 0 ? "" : ", ") + columns[i];
    }
    written += ")";
    if (columns.empty()) {
        throw DataError("Nessuna colonna da scrivere", written);
    }
    for (std::size_t row = 0; row < rows.size(); ++row) {
        if (rows[row].size() != columns.size()) {
            throw DataError("La riga " + std::to_string(row + 1) + " dà " + std::to_string(rows[row].size()) +
                                " valori per " + std::to_string(columns.size()) + " colonne",
                            written);
        }
    }
    const std::shared_ptr<const PgTable> target = findTable(table);
    if (!target || !target->writable) {
        throw DataError("Non esiste una tabella " + table + " a cui aggiungere righe", written, "42P01");
    }
    std::vector<PgKind> kinds;
    std::string copy = "COPY " + target->reference + " (";
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const int attribute = attributeOf(*target, columns[i]);
        if (attribute == 0) {
            throw DataError("La tabella " + table + " non ha la colonna " + columns[i], written, "42703");
        }
        kinds.push_back(target->kinds.at(attribute));
        copy += (i == 0 ? "" : ", ") + Dialect::quoteIdentifier(target->columns.at(attribute));
    }
    copy += ") FROM STDIN";

    const bool own = transaction_ == Transaction::None;
    command(own ? "BEGIN READ WRITE" : "SAVEPOINT avlor_rows", written);
    try {
        std::string data;
        for (std::size_t first = 0; first < rows.size(); first += InsertBatchRows) {
            const std::size_t count = std::min(InsertBatchRows, rows.size() - first);
            // The whole batch is converted before the copy starts, so that a
            // value its column cannot take stops nothing half-sent.
            data.clear();
            for (std::size_t row = first; row < first + count; ++row) {
                for (std::size_t i = 0; i < columns.size(); ++i) {
                    if (i > 0) {
                        data += '\t';
                    }
                    appendField(data, pgParameter(kinds[i], normaliseForPg(kinds[i], rows[row][i])));
                }
                data += '\n';
            }
            copyIn(copy, data,
                   written + ", rows " + std::to_string(first + 1) + " to " + std::to_string(first + count) + " of " +
                       std::to_string(rows.size()));
        }
        command(own ? "COMMIT" : "RELEASE SAVEPOINT avlor_rows", written);
    } catch (...) {
        if (own) {
            rollbackQuietly();
        } else if (transaction_ == Transaction::Open && session_ != nullptr && PQstatus(session_) == CONNECTION_OK) {
            PQclear(PQexec(session_, "ROLLBACK TO SAVEPOINT avlor_rows; RELEASE SAVEPOINT avlor_rows"));
        }
        throw;
    }
}

void PgConnection::copyIn(const std::string& copy, const std::string& data, const std::string& reportAs)
{
    PGconn* live = session();
    const PgResult started(PQexec(live, copy.c_str()));
    if (PQresultStatus(started.get()) != PGRES_COPY_IN) {
        fail(started.get(), reportAs);
    }
    // A failure to send leaves the copy to be ended all the same, so that
    // the session leaves the copy state whatever happened.
    const bool sent = PQputCopyData(live, data.data(), static_cast<int>(data.size())) == 1;
    PQputCopyEnd(live, sent ? nullptr : "non è stato possibile inviare le righe");
    PgResult finished(PQgetResult(live));
    while (PGresult* more = PQgetResult(live)) {
        PQclear(more);
    }
    if (PQresultStatus(finished.get()) != PGRES_COMMAND_OK) {
        fail(finished.get(), reportAs);
    }
    if (!sent) {
        fail(nullptr, reportAs);
    }
}

} // namespace avlor
