#include "TariffWriter.h"

#include <algorithm>
#include <map>
#include <set>

#include "avlor/data/Connection.h"
#include "avlor/data/TipoCampo.h"
#include "avlor/data/clsAccessoDati.h"
#include "avlor/data/clsUtilitaDati.h"
#include "avlor/tariffe/FeeColumns.h"

namespace avlor::tariffe_detail {

namespace {

// Ids go into IN lists this many at a time: a statement of a few kilobytes,
// one round trip to a server, whatever the size of the table.
constexpr std::size_t IdsPerStatement = 500;

std::string idList(const std::vector<std::int32_t>& ids, std::size_t first, std::size_t count)
{
    std::string list;
    for (std::size_t i = first; i < first + count; ++i)
        list += (list.empty() ? "" : ", ") + std::to_string(ids[i]);
    return list;
}

// The ids of `ids` that `table` holds.
std::vector<std::int32_t> idsInTable(const std::shared_ptr<Connection>& connection, const std::string& table,
                                     const std::vector<std::int32_t>& ids)
{
    std::vector<std::int32_t> present;
    for (std::size_t first = 0; first < ids.size(); first += IdsPerStatement) {
        const std::size_t count = std::min(IdsPerStatement, ids.size() - first);
        clsAccessoDati access(connection);
        const auto rows = access.Apri("SELECT Id FROM " + table + " WHERE Id IN (" + idList(ids, first, count) + ")",
                                      adOpenForwardOnly, adLockReadOnly, adCmdUnspecified);
        for (; !rows->Eof(); rows->MoveNext())
            present.push_back(rows->Field("Id").toLong());
    }
    return present;
}

// Deletes the rows that `condition` followed by "IN (ids...)" selects, for
// every id of `ids`.
void deleteIds(const std::shared_ptr<Connection>& connection, const std::string& condition,
               const std::vector<std::int32_t>& ids)
{
    for (std::size_t first = 0; first < ids.size(); first += IdsPerStatement) {
        const std::size_t count = std::min(IdsPerStatement, ids.size() - first);
        connection->executeScript(condition + " IN (" + idList(ids, first, count) + ")");
    }
}

} // namespace

std::vector<std::string> tableColumns(const std::shared_ptr<Connection>& connection, std::string_view table)
{
    clsAccessoDati access(connection);
    // No row is wanted, only the columns the statement yields.
    return access
        .Apri("SELECT * FROM " + std::string(table) + " WHERE 1 = 0", adOpenForwardOnly, adLockReadOnly,
              adCmdUnspecified)
        ->FieldNames();
}

TariffImportResult writeItems(const std::shared_ptr<Connection>& connection, const TariffFile& file)
{
    TariffImportResult result;
    result.table = file.table;
    std::vector<std::int32_t> ids;
    ids.reserve(file.rows.size());
    for (const TariffFileRow& row : file.rows)
        ids.push_back(row.id);
    const std::vector<std::int32_t> present = idsInTable(connection, file.table, ids);
    result.replaced = present.size();
    result.added = file.rows.size() - present.size();
    // Replaced whole, so that the row holds exactly what the file says and
    // nothing of the item it replaces.
    deleteIds(connection, "DELETE FROM " + file.table + " WHERE Id", present);
    std::vector<std::vector<Value>> rows;
    rows.reserve(file.rows.size());
    for (const TariffFileRow& row : file.rows)
        rows.push_back(row.values);
    connection->insertRows(file.table, file.columns, rows);
    return result;
}

void writeSources(const std::shared_ptr<Connection>& connection, const std::vector<TariffSource>& sources)
{
    // The rows these sources take the place of, table by table.
    std::map<std::string, std::vector<std::int32_t>> items;
    std::set<std::string> notes;
    for (const TariffSource& source : sources) {
        if (source.id)
            items[source.table].push_back(*source.id);
        else
            notes.insert(source.table);
    }
    const clsUtilitaDati& sql = clsUtilitaDati::instance();
    for (const auto& [table, ids] : items)
        deleteIds(connection,
                  "DELETE FROM " + std::string(SourcesTable) + " WHERE Tabella = " + sql.FormattaTestoSql(table) +
                      " AND Id",
                  ids);
    for (const std::string& table : notes)
        connection->executeScript("DELETE FROM " + std::string(SourcesTable) +
                                  " WHERE Tabella = " + sql.FormattaTestoSql(table) + " AND Id IS NULL");
    std::vector<std::vector<Value>> rows;
    rows.reserve(sources.size());
    for (const TariffSource& source : sources)
        rows.push_back({Value::text(source.table), source.id ? Value::longValue(*source.id) : Value::null(),
                        Value::text(source.fonte), source.note ? Value::text(*source.note) : Value::null()});
    connection->insertRows(std::string(SourcesTable), {"Tabella", "Id", "Fonte", "Note"}, rows);
}

} // namespace avlor::tariffe_detail
