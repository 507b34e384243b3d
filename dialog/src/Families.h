#pragma once
// The fee-table family of each of the four kind options, and the day from
// which its 2004 euro edition applies.
#include <optional>
#include <string>

#include "avlor/core/Date.h"
#include "avlor/core/FeeTables.h"

namespace avlor::dialog {

struct TableFamily {
    const char* option;
    Family family;
    const char* threshold; // day first
};

// The family of a kind option ("optDiritti", "optOnorari", "optPenale",
// "optStragiudiziale"); none for the other options.
[[nodiscard]] std::optional<TableFamily> familyOfOption(const std::string& option);

// The name of the family's table of one edition, from the one list of the
// fee tables.
[[nodiscard]] std::string tableOf(const TableFamily& family, Edition edition);

// The euro edition for a day: the 2004 one from the threshold day on.
[[nodiscard]] std::string euroEdition(const TableFamily& family, Date day);

} // namespace avlor::dialog
