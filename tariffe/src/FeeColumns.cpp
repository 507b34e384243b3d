#include "avlor/tariffe/FeeColumns.h"

#include "TariffText.h"

namespace avlor {

using tariffe_detail::equalsIgnoringCase;

FeeColumnRole feeColumnRole(std::string_view column)
{
    if (equalsIgnoringCase(column, FeeKeyColumn))
        return FeeColumnRole::Key;
    if (equalsIgnoringCase(column, FeeCodeColumn))
        return FeeColumnRole::Code;
    if (equalsIgnoringCase(column, "Azione") || equalsIgnoringCase(column, "Autorita"))
        return FeeColumnRole::Text;
    return FeeColumnRole::Amount;
}

} // namespace avlor
