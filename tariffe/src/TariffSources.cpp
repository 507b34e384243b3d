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
        throw TariffFileError(line, column, "is not UTF-8 text (save the file as UTF-8)");
    return field.text;
}

} // namespace

std::vector<TariffSource> readTariffSources(std::string_view text)
{
    tariffe_detail::RecordSource records(text);
    const auto header = records.next();
    if (!header)
        throw TariffFileError(
            1, "", "the file is empty: its first line must name the columns " + tariffe_detail::listOf(SourceColumns));
    const std::vector<std::string> columns = tariffe_detail::matchHeader(*header, SourceColumns, SourcesTable);
    for (const std::string& required : SourceColumns) {
        if (std::find(columns.begin(), columns.end(), required) == columns.end())
            throw TariffFileError(header->line, required, "is missing: the header must name the column " + required);
    }
    records.setColumns(&columns);

    std::vector<TariffSource> sources;
    std::set<std::pair<std::string, std::int32_t>> seen; // (table, id or 0 for the table's note)
    while (auto record = records.next()) {
        const std::size_t line = record->line;
        if (record->fields.size() != columns.size())
            throw TariffFileError(line, "",
                                  "has " + std::to_string(record->fields.size()) + " fields where the header names " +
                                      std::to_string(columns.size()) + " columns");
        TariffSource source;
        source.line = line;
        for (std::size_t i = 0; i < columns.size(); ++i) {
            const CsvField& field = record->fields[i];
            const std::string& column = columns[i];
            if (column == "Tabella") {
                const auto table = feeTableNamed(field.text);
                if (!table)
                    throw TariffFileError(line, column, "\"" + field.text + "\" is not a fee table");
                source.table = std::string(table->name);
            } else if (column == "Id") {
                if (trimBlanks(field.text, tariffe_detail::CellBlanks).empty())
                    continue;
                source.id = tariffe_detail::readPositiveId(field.text);
                if (!source.id)
                    throw TariffFileError(line, column,
                                          "\"" + field.text + "\" is not an item id (a whole number from 1 to " +
                                              std::to_string(std::numeric_limits<std::int32_t>::max()) +
                                              ", or empty for the table's note)");
            } else if (column == "Fonte") {
                source.fonte = textOf(field, line, column);
                if (trimBlanks(source.fonte, tariffe_detail::CellBlanks).empty())
                    throw TariffFileError(line, column, "is empty: every row names where its figures come from");
            } else if (!field.text.empty() || field.quoted) {
                source.note = textOf(field, line, column);
            }
        }
        if (!seen.emplace(source.table, source.id.value_or(0)).second)
            throw TariffFileError(line, "Id",
                                  source.id ? "item " + std::to_string(*source.id) + " of " + source.table +
                                          " already has its source"
                                            : source.table + " already has its note");
        sources.push_back(std::move(source));
    }
    return sources;
}

} // namespace avlor
