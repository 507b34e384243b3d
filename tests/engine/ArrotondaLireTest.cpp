// The rounding of 1994 lire amounts up to a multiple of 5,000 lire.
#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "avlor/core/Error.h"
#include "avlor/engine/ArrotondaLire.h"

namespace avlor {
namespace {

struct RoundingCase {
    std::string importo;
    std::string expected;
    friend void PrintTo(const RoundingCase& c, std::ostream* os) { *os << c.importo << " -> " << c.expected; }
};

class ArrotondaLireTest : public testing::TestWithParam<RoundingCase> { };

TEST_P(ArrotondaLireTest, RoundsUpToTheNextStepOfFiveThousand)
{
    const RoundingCase& c = GetParam();
    EXPECT_EQ(ArrotondaLire(Currency::fromText(c.importo)).toFixed4(), Currency::fromText(c.expected).toFixed4());
}

INSTANTIATE_TEST_SUITE_P(Amounts, ArrotondaLireTest,
                         testing::Values(RoundingCase{"0", "0"}, RoundingCase{"-1", "0"}, RoundingCase{"-5000", "0"},
                                         RoundingCase{"-0.0001", "0"}, RoundingCase{"1", "5000"},
                                         RoundingCase{"4999", "5000"}, RoundingCase{"5000", "5000"},
                                         RoundingCase{"5001", "10000"},
                                         // The remainder is tested on the amount rounded to whole lire.
                                         RoundingCase{"5000.4", "5000"}, RoundingCase{"5000.5", "5000"},
                                         RoundingCase{"5000.6", "10000"}, RoundingCase{"5001.5", "10000"},
                                         // Just below a step, the whole steps are counted on the exact
                                         // amount (none here) and the rounded amount leaves no
                                         // remainder: the rule gives 0.
                                         RoundingCase{"4999.6", "0"}, RoundingCase{"0.4", "0"},
                                         RoundingCase{"0.5", "0"}, RoundingCase{"0.6", "5000"},
                                         RoundingCase{"1.5", "5000"}, RoundingCase{"27950", "30000"},
                                         RoundingCase{"15000", "15000"}, RoundingCase{"10000.0001", "10000"},
                                         RoundingCase{"2147483647", "2147485000"}));

TEST(ArrotondaLire, AmountBeyondAWholeNumberOfThirtyTwoBitsOverflows)
{
    EXPECT_THROW(static_cast<void>(ArrotondaLire(Currency::fromText("2147483648"))), ValueError);
    // 2,147,483,647.5 rounds half to even to 2,147,483,648, out of range too.
    EXPECT_THROW(static_cast<void>(ArrotondaLire(Currency::fromText("2147483647.5"))), ValueError);
}

} // namespace
} // namespace avlor
