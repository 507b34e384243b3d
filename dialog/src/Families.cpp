#include "Families.h"

#include <array>

namespace avlor::dialog {

namespace {

// Rights switch to the 2004 edition on 2 June 2004, the three fee families
// on 1 January 1994, so that in euro they take the 2004 edition for every
// day the dialog accepts: the asymmetry is how the tables are used.
constexpr std::array<TableFamily, 4> Families = {{
    {"optDiritti", Family::Rights, "02/06/2004"},
    {"optOnorari", Family::Civil, "01/01/1994"},
    {"optPenale", Family::Criminal, "01/01/1994"},
    {"optStragiudiziale", Family::OutOfCourt, "01/01/1994"},
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

std::string tableOf(const TableFamily& family, Edition edition)
{
    for (const FeeTable& table : feeTables()) {
        if (table.family == family.family && table.edition == edition) {
            return std::string(table.name);
        }
    }
    return {};
}

std::string euroEdition(const TableFamily& family, Date day)
{
    return tableOf(family, Date::fromDayFirst(family.threshold) <= day ? Edition::Euro2004 : Edition::Euro94);
}

} // namespace avlor::dialog
