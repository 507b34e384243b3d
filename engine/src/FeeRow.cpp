#include "FeeRow.h"

#include "avlor/core/FeeTables.h"
#include "avlor/data/TipoCampo.h"

namespace avlor {

FeeRow::FeeRow(std::string_view table, std::int32_t id)
{
    static_cast<void>(data_.Apri(sqlFeeRow(table, id), adOpenForwardOnly, adLockReadOnly, adCmdUnspecified));
}

Value FeeRow::amount(const std::string& column) { return data_.Campo(column, TipoNumero); }

std::string FeeRow::text(const std::string& column) { return data_.Campo(column, TipoTesto).toText(Locale::neutral()); }

bool isPositive(const Value& column) { return column.numberLenient() > 0.0; }

bool readPositiveBand(FeeRow& row, const std::string& minColumn, const std::string& maxColumn, Currency& MinTar,
                      Currency& MaxTar)
{
    const Value minimum = row.amount(minColumn);
    const Value maximum = row.amount(maxColumn);
    if (!isPositive(minimum) || !isPositive(maximum))
        return false;
    MinTar = minimum.toCurrency();
    MaxTar = maximum.toCurrency();
    return true;
}

} // namespace avlor
