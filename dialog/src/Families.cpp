#include "Families.h"

#include <array>

namespace avlor::dialog {

namespace {

// Diritti switch to the 2004 edition on 2 June 2004, the three fee families
// from 1 January 1994, so that in euro they take the 2004 edition for every
// day the dialog accepts: the asymmetry is how the tables are used.
constexpr std::array<TableFamily, 4> Families = {{
    {"optDiritti", "Diritti94", "Diritti94Euro", "Diritti2004Euro", "02/06/2004"},
    {"optOnorari", "Onorari94", "Onorari94Euro", "Onorari2004Euro", "01/01/1994"},
    {"optPenale", "OnorariPenali94", "OnorariPenali94Euro", "OnorariPenali2004Euro", "01/01/1994"},
    {"optStragiudiziale", "OnorariStrag94", "OnorariStrag94Euro", "OnorariStrag2004Euro", "01/01/1994"},
}};

} // namespace

std::optional<TableFamily> familyOfOption(const std::string& option)
{
    for (const TableFamily& family : Families) {
        if (option == family.option) {
            return family;
        }
    }
    return std::nullopt;
}

std::string euroEdition(const TableFamily& family, Date day)
{
    return Date::fromDayFirst(family.threshold) <= day ? family.euro2004 : family.euro94;
}

} // namespace avlor::dialog
