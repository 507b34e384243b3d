#include "avlor/tariffe/TariffExport.h"

#include <vector>

#include "avlor/core/FeeTables.h"
#include "avlor/core/Locale.h"
#include "avlor/data/TipoCampo.h"
#include "avlor/data/clsAccessoDati.h"
#include "avlor/tariffe/Csv.h"
#include "avlor/tariffe/FeeColumns.h"

namespace avlor {

namespace {

// One cell as the import reads it back to the same value.
std::string exportCell(FeeColumnRole role, const Value& value)
{
    if (value.isNull() || value.isEmpty())
        return {};
    switch (role) {
    case FeeColumnRole::Key:
        return std::to_string(value.toLong());
    case FeeColumnRole::Code:
    case FeeColumnRole::Text:
        return csvQuoted(value.kind() == ValueKind::Text ? value.asText() : value.toText(Locale::neutral()));
    case FeeColumnRole::Amount:
        break;
    }
    // Four decimals always: a cell such as "1.055" would leave the reader to
    // guess whether the point groups thousands.
    return value.toCurrency().toFixed4();
}

} // namespace

std::string exportTariffText(std::string_view table)
{
    const std::string name(requireFeeTable(table).name);
    clsAccessoDati access;
    const auto rows =
        access.Apri("SELECT * FROM " + name + " ORDER BY Id", adOpenForwardOnly, adLockReadOnly, adCmdUnspecified);
    const std::vector<std::string> columns = rows->FieldNames();
    std::vector<FeeColumnRole> roles;
    for (const std::string& column : columns)
        roles.push_back(feeColumnRole(column));

    std::string text = csvLine(columns);
    for (; !rows->Eof(); rows->MoveNext()) {
        std::vector<std::string> cells;
        for (std::size_t i = 0; i < columns.size(); ++i)
            cells.push_back(exportCell(roles[i], rows->Field(columns[i])));
        text += csvLine(cells);
    }
    return text;
}

} // namespace avlor
