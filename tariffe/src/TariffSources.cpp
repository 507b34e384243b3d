#include "avlor/tariffe/TariffSources.h"

#include <algorithm>
#include <limits>
#include <set>
#include <utility>

#include "RecordSource.h"
#include "TariffText.h"
#include "avlor/core/FeeTables.h"
#include "avlor/core/Text.h"
#include "avlor/tariffe/FeeColumns.h"
#include "avlor/tariffe/TariffFileError.h"

namespace avlor {

namespace {

using tariffe_detail::isValidUtf8;

const std::vector<std::string> SourceColumns{"Tabella", "Id", "Fonte", "Note"};

// The text of a cell, refused when it is not UTF-8.
std::string textOf(const CsvField& field, std::size_t line, const std::string& column)
{
    if (!isValidUtf8(field.text))
        throw TariffFileError(line, column, "non è testo UTF-8 (salvare il file come UTF-8)");
    return field.text;
}

} // namespace

std::vector<TariffSource> readTariffSources(std::string_view text)
{
    tariffe_detail::RecordSource records(text);
    const auto header = records.next();
    if (!header)
        throw TariffFileError(
            1, "", "il file è vuoto: la prima riga deve elencare le colonne " + tariffe_detail::listOf(SourceColumns));
    const std::vector<std::string> columns = tariffe_detail::matchHeader(*header, SourceColumns, SourcesTable);
    for (const std::string& required : SourceColumns) {
        if (std::find(columns.begin(), columns.end(), required) == columns.end())
            throw TariffFileError(header->line, required,
                                  "manca: l'intestazione deve comprendere la colonna " + required);
    }
    records.setColumns(&columns);

    std::vector<TariffSource> sources;
    std::set<std::pair<std::string, std::int32_t>> seen; // (table, id or 0 for the table's note)
    while (auto record = records.next()) {
        const std::size_t line = record->line;
        if (record->fields.size() != columns.size())
            throw TariffFileError(line, "",
                                  "ha " + std::to_string(record->fields.size()) + " campi, ma l'intestazione elenca " +
                                      std::to_string(columns.size()) + " colonne");
        TariffSource source;
        source.line = line;
        for (std::size_t i = 0; i < columns.size(); ++i) {
            const CsvField& field = record->fields[i];
            const std::string& column = columns[i];
            if (column == "Tabella") {
                const auto table = feeTableNamed(field.text);
                if (!table)
                    throw TariffFileError(line, column, "\"" + field.text + "\" non è una tabella delle tariffe");
                source.table = std::string(table->name);
            } else if (column == "Id") {
                if (trimBlanks(field.text, tariffe_detail::CellBlanks).empty())
                    continue;
                source.id = tariffe_detail::readPositiveId(field.text);
                if (!source.id)
                    throw TariffFileError(line, column,
                                          "\"" + field.text + "\" non è l'Id di una voce (un numero intero da 1 a " +
                                              std::to_string(std::numeric_limits<std::int32_t>::max()) +
                                              ", oppure vuoto per la nota della tabella)");
            } else if (column == "Fonte") {
                source.fonte = textOf(field, line, column);
                if (trimBlanks(source.fonte, tariffe_detail::CellBlanks).empty())
                    throw TariffFileError(line, column, "è vuota: ogni riga dice da dove vengono le sue cifre");
            } else if (!field.text.empty() || field.quoted) {
                source.note = textOf(field, line, column);
            }
        }
        if (!seen.emplace(source.table, source.id.value_or(0)).second)
            throw TariffFileError(line, "Id",
                                  source.id ? "la voce " + std::to_string(*source.id) + " di " + source.table +
                                          " ha già la sua fonte"
                                            : source.table + " ha già la sua nota");
        sources.push_back(std::move(source));
    }
    return sources;
}

} // namespace avlor
