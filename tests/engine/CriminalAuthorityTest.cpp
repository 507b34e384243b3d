// The criminal-fee columns chosen by the authority, in each edition.
#include <gtest/gtest.h>

#include <ostream>
#include <string>

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

class CriminalAuthorityTest : public testing::TestWithParam<AuthorityCase> {};

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

INSTANTIATE_TEST_SUITE_P(
    SameInEveryEdition, CriminalAuthorityTest,
    testing::Values(AuthorityCase{"Pretura", "OnorariPenali94", L, "Pretura"},
                    AuthorityCase{"Pretura", "OnorariPenali94Euro", E94, "Pretura"},
                    AuthorityCase{"Pretura", "OnorariPenali2004Euro", E04, "Pretura"},
                    AuthorityCase{"Tribunale in comp. monocratica", "OnorariPenali94", L, "Tribunale"},
                    AuthorityCase{"Tribunale in comp. monocratica", "OnorariPenali94Euro", E94, "Tribunale"},
                    AuthorityCase{"Tribunale in comp. monocratica", "OnorariPenali2004Euro", E04, "Tribunale"},
                    AuthorityCase{"Tribunale in comp. collegiale", "OnorariPenali94", L, "Tribunale"},
                    AuthorityCase{"Tribunale in comp. collegiale", "OnorariPenali94Euro", E94, "Tribunale"},
                    AuthorityCase{"Tribunale in comp. collegiale", "OnorariPenali2004Euro", E04, "Tribunale"},
                    AuthorityCase{"Tribunale", "OnorariPenali94", L, "Tribunale"},
                    AuthorityCase{"Tribunale", "OnorariPenali94Euro", E94, "Tribunale"},
                    AuthorityCase{"Tribunale", "OnorariPenali2004Euro", E04, "Tribunale"},
                    AuthorityCase{"Corte d'Assise e d'Assise d'Appello", "OnorariPenali94", L, "AssiseApp"},
                    AuthorityCase{"Corte d'Assise e d'Assise d'Appello", "OnorariPenali94Euro", E94, "AssiseApp"},
                    AuthorityCase{"Corte d'Assise e d'Assise d'Appello", "OnorariPenali2004Euro", E04, "AssiseApp"},
                    AuthorityCase{"Corte d'Appello", "OnorariPenali94", L, "Appello"},
                    AuthorityCase{"Corte d'Appello", "OnorariPenali94Euro", E94, "Appello"},
                    AuthorityCase{"Corte d'Appello", "OnorariPenali2004Euro", E04, "Appello"},
                    AuthorityCase{"Corte Costituzionale e Cassazione", "OnorariPenali94", L, "CostCass"},
                    AuthorityCase{"Corte Costituzionale e Cassazione", "OnorariPenali94Euro", E94, "CostCass"},
                    AuthorityCase{"Corte Costituzionale e Cassazione", "OnorariPenali2004Euro", E04, "CostCass"}));

// The justice of the peace and the preliminary-hearing judge have columns of
// their own only in 2004; before, they are priced as the Tribunale.
INSTANTIATE_TEST_SUITE_P(
    OwnColumnsOnlyIn2004, CriminalAuthorityTest,
    testing::Values(AuthorityCase{"Giudice di pace", "OnorariPenali94", L, "Tribunale"},
                    AuthorityCase{"Giudice di pace", "OnorariPenali94Euro", E94, "Tribunale"},
                    AuthorityCase{"Giudice di pace", "OnorariPenali2004Euro", E04, "GiuPace"},
                    AuthorityCase{"Giudice di pace", "  onoraripenali2004EURO ", E04, "GiuPace"},
                    AuthorityCase{"Gip e Gup", "OnorariPenali94", L, "Tribunale"},
                    AuthorityCase{"Gip e Gup", "OnorariPenali94Euro", E94, "Tribunale"},
                    AuthorityCase{"Gip e Gup", "OnorariPenali2004Euro", E04, "Gip"},
                    AuthorityCase{"Gip e Gup", " onoraripenali2004euro", E04, "Gip"}));

// Compared exactly: letter case and blanks count.
INSTANTIATE_TEST_SUITE_P(
    Unknown, CriminalAuthorityTest,
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
