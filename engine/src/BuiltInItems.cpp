#include "avlor/engine/BuiltInItems.h"

#include <algorithm>

#include "Sections.h"
#include "avlor/engine/OutOfCourt.h"

namespace avlor {

namespace {

std::vector<BuiltInItem> outOfCourtItems(Edition edition)
{
    const OutOfCourtEditionTable& official = outOfCourtTable(edition);
    std::vector<BuiltInItem> items;
    for (const FixedBandItem& item : official.fixedBands)
        items.push_back({item.id, "fascia fissa"});
    if (official.fixedAmountItem != 0)
        items.push_back({official.fixedAmountItem, "importo fisso"});
    for (const ValueBracketItem& item : official.valueBracketItems)
        items.push_back({item.id, "fascia per scaglione di valore"});
    if (!official.percentageBrackets.empty()) {
        for (std::int32_t id = PercentageItemFirst; id <= PercentageItemLast; ++id)
            items.push_back({id,
                             id == PercentageItemHalved ? "metà della fascia a percentuale del valore"
                                                        : "fascia a percentuale del valore"});
    }
    std::sort(items.begin(), items.end(), [](const BuiltInItem& a, const BuiltInItem& b) { return a.id < b.id; });
    return items;
}

} // namespace

std::vector<BuiltInItem> builtInItems(const FeeTable& table)
{
    switch (table.family) {
    case Family::Rights:
        return {{rightsFixedItem(table.edition), "voce fissa: fascia stabilita dalla tariffa"}};
    case Family::Civil:
        return {{civilFixedItem(table.edition), "voce fissa: fascia stabilita dalla tariffa"}};
    case Family::Criminal:
        return {};
    case Family::OutOfCourt:
        return outOfCourtItems(table.edition);
    }
    return {};
}

} // namespace avlor
