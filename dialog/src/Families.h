#pragma once
// The fee-table families of the four kind options: the table name of each
// edition and the day from which the 2004 euro edition applies.
#include <optional>
#include <string>

#include "avlor/core/Date.h"

namespace avlor::dialog {

struct TableFamily {
    const char* option;
    const char* lire;
    const char* euro94;
    const char* euro2004;
    const char* threshold; // day first
};

// The family of a kind option ("optDiritti", "optOnorari", "optPenale",
// "optStragiudiziale"); none for the other options.
[[nodiscard]] std::optional<TableFamily> familyOfOption(const std::string& option);

// The euro edition for a day: the 2004 one from the threshold day on.
[[nodiscard]] std::string euroEdition(const TableFamily& family, Date day);

} // namespace avlor::dialog
