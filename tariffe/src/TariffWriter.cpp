#include "TariffWriter.h"

#include "avlor/data/TipoCampo.h"
#include "avlor/data/clsAccessoDati.h"
#include "avlor/data/clsUtilitaDati.h"
#include "avlor/tariffe/FeeColumns.h"

namespace avlor::tariffe_detail {

namespace {

std::shared_ptr<RecordSet> openEditable(clsAccessoDati& access, const std::string& statement)
{
    return access.Apri(statement, adOpenKeyset, adLockOptimistic, adCmdUnspecified);
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
    for (const TariffFileRow& row : file.rows) {
        clsAccessoDati access(connection);
        const auto items =
            openEditable(access, "SELECT * FROM " + file.table + " WHERE Id = " + std::to_string(row.id));
        if (items->Eof()) {
            ++result.added;
        } else {
            // Replaced whole, so that the row holds exactly what the file
            // says and nothing of the item it replaces.
            items->Delete();
            ++result.replaced;
        }
        items->AddNew();
        for (std::size_t i = 0; i < file.columns.size(); ++i)
            items->SetField(file.columns[i], row.values[i]);
        items->Update();
    }
    return result;
}

void writeSource(const std::shared_ptr<Connection>& connection, const std::string& table,
                 std::optional<std::int32_t> id, const std::string& fonte, const std::optional<std::string>& note)
{
    clsAccessoDati access(connection);
    const auto rows = openEditable(access,
                                   "SELECT * FROM " + std::string(SourcesTable) +
                                       " WHERE Tabella = " + clsUtilitaDati::instance().FormattaTestoSql(table) +
                                       (id ? " AND Id = " + std::to_string(*id) : " AND Id IS NULL"));
    while (!rows->Eof()) {
        rows->Delete();
        rows->MoveNext();
    }
    rows->AddNew();
    rows->SetField("Tabella", Value::text(table));
    rows->SetField("Id", id ? Value::longValue(*id) : Value::null());
    rows->SetField("Fonte", Value::text(fonte));
    rows->SetField("Note", note ? Value::text(*note) : Value::null());
    rows->Update();
}

} // namespace avlor::tariffe_detail
