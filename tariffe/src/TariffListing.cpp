#include "avlor/tariffe/TariffListing.h"

#include "avlor/core/FeeTables.h"
#include "avlor/core/Locale.h"
#include "avlor/data/TipoCampo.h"
#include "avlor/data/clsAccessoDati.h"
#include "avlor/tariffe/FeeColumns.h"

namespace avlor {

namespace {

std::string textOf(const Value& value)
{
    if (value.isNull() || value.isEmpty())
        return {};
    return value.kind() == ValueKind::Text ? value.asText() : value.toText(Locale::neutral());
}

bool isAboveZero(const Value& value) { return !value.isNull() && !value.isEmpty() && value.toCurrency() > Currency(); }

} // namespace

std::vector<TariffItem> listTariffItems(std::string_view table)
{
    const std::string name(requireFeeTable(table).name);
    clsAccessoDati access;
    const auto rows =
        access.Apri("SELECT * FROM " + name + " ORDER BY Id", adOpenForwardOnly, adLockReadOnly, adCmdUnspecified);
    std::vector<std::string> amountColumns;
    for (const std::string& column : rows->FieldNames()) {
        if (feeColumnRole(column) == FeeColumnRole::Amount)
            amountColumns.push_back(column);
    }
    std::vector<TariffItem> items;
    for (; !rows->Eof(); rows->MoveNext()) {
        TariffItem item;
        item.id = rows->Field(std::string(FeeKeyColumn)).toLong();
        item.code = textOf(rows->Field(std::string(FeeCodeColumn)));
        item.description = textOf(rows->Field("Azione"));
        for (const std::string& column : amountColumns)
            item.priced = item.priced || isAboveZero(rows->Field(column));
        items.push_back(std::move(item));
    }
    return items;
}

TariffCount countTariffItems(std::string_view table)
{
    TariffCount count;
    for (const TariffItem& item : listTariffItems(table)) {
        ++count.items;
        if (item.priced)
            ++count.priced;
    }
    return count;
}

} // namespace avlor
