// The criminal-fee columns chosen by the authority, in each edition.
#include <gtest/gtest.h>

#include <initializer_list>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "avlor/engine/CriminalAuthority.h"

namespace avlor {
namespace {

struct AuthorityCase {
    std::string autorita;
    std::string sTabella;
    Edition edition;
    std::string prefix; // "" for an authority the tables do not know
    friend void PrintTo(const AuthorityCase& c, std::ostream* os)
    {
        *os << "'" << c.autorita << "' in '" << c.sTabella << "' -> '" << c.prefix << "'";
    }
};

class CriminalAuthorityTest : public testing::TestWithParam<AuthorityCase> { };

TEST_P(CriminalAuthorityTest, ChoosesTheColumnPrefix)
{
    const AuthorityCase& c = GetParam();
    const std::optional<std::string> prefix = criminalColumnPrefix(c.autorita, c.sTabella, c.edition);
    if (c.prefix.empty()) {
        EXPECT_FALSE(prefix.has_value());
    } else {
        ASSERT_TRUE(prefix.has_value());
        EXPECT_EQ(*prefix, c.prefix);
    }
}

constexpr auto L = Edition::Lire94;
constexpr auto E94 = Edition::Euro94;
constexpr auto E04 = Edition::Euro2004;

// Each authority with its prefix in the three tables, edition by edition.
std::vector<AuthorityCase> inEveryEdition(std::initializer_list<std::pair<const char*, const char*>> authorities)
{
    std::vector<AuthorityCase> cases;
    for (const auto& [autorita, prefix] : authorities) {
        cases.push_back({autorita, "OnorariPenali94", L, prefix});
        cases.push_back({autorita, "OnorariPenali94Euro", E94, prefix});
        cases.push_back({autorita, "OnorariPenali2004Euro", E04, prefix});
    }
    return cases;
}

INSTANTIATE_TEST_SUITE_P(SameInEveryEdition, CriminalAuthorityTest,
                         testing::ValuesIn(inEveryEdition({{"Pretura", "Pretura"},
                                                           {"Tribunale in comp. monocratica", "Tribunale"},
                                                           {"Tribunale in comp. collegiale", "Tribunale"},
                                                           {"Tribunale", "Tribunale"},
                                                           {"Corte d'Assise e d'Assise d'Appello", "AssiseApp"},
                                                           {"Corte d'Appello", "Appello"},
                                                           {"Corte Costituzionale e Cassazione", "CostCass"}})));

// The justice of the peace and the preliminary-hearing judge have columns of
// their own only in 2004; before, they are priced as the Tribunale.
INSTANTIATE_TEST_SUITE_P(OwnColumnsOnlyIn2004, CriminalAuthorityTest,
                         testing::Values(AuthorityCase{"Giudice di pace", "OnorariPenali94", L, "Tribunale"},
                                         AuthorityCase{"Giudice di pace", "OnorariPenali94Euro", E94, "Tribunale"},
                                         AuthorityCase{"Giudice di pace", "OnorariPenali2004Euro", E04, "GiuPace"},
                                         AuthorityCase{"Giudice di pace", "  onoraripenali2004EURO ", E04, "GiuPace"},
                                         AuthorityCase{"Gip e Gup", "OnorariPenali94", L, "Tribunale"},
                                         AuthorityCase{"Gip e Gup", "OnorariPenali94Euro", E94, "Tribunale"},
                                         AuthorityCase{"Gip e Gup", "OnorariPenali2004Euro", E04, "Gip"},
                                         AuthorityCase{"Gip e Gup", " onoraripenali2004euro", E04, "Gip"}));

// Compared exactly: letter case and blanks count.
INSTANTIATE_TEST_SUITE_P(Unknown, CriminalAuthorityTest,
                         testing::Values(AuthorityCase{"", "OnorariPenali94", L, ""},
                                         AuthorityCase{"tribunale", "OnorariPenali94", L, ""},
                                         AuthorityCase{"TRIBUNALE", "OnorariPenali2004Euro", E04, ""},
                                         AuthorityCase{"Tribunale ", "OnorariPenali94Euro", E94, ""},
                                         AuthorityCase{" Tribunale", "OnorariPenali94Euro", E94, ""},
                                         AuthorityCase{"Giudice di Pace", "OnorariPenali2004Euro", E04, ""},
                                         AuthorityCase{"Gip e GUP", "OnorariPenali2004Euro", E04, ""},
                                         AuthorityCase{"Corte d Appello", "OnorariPenali2004Euro", E04, ""},
                                         AuthorityCase{"Corte d'Assise", "OnorariPenali2004Euro", E04, ""},
                                         AuthorityCase{"Cassazione", "OnorariPenali2004Euro", E04, ""}));

} // namespace
} // namespace avlor
