// Value brackets of the rights and civil-fee tables: each bracket at its
// upper bound, one smallest unit above it, and in the gap between the two.
#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "BracketBounds.h"
#include "avlor/engine/Brackets.h"

namespace avlor {
namespace {

using namespace test;

const char* editionName(Edition edition)
{
    switch (edition) {
    case Edition::Lire94:
        return "Lire94";
    case Edition::Euro94:
        return "Euro94";
    case Edition::Euro2004:
        break;
    }
    return "Euro2004";
}

struct BracketCase {
    Edition edition;
    std::string value;
    std::string word;
    bool aboveLast = false;
    std::int32_t idTariffa = 1;
    friend void PrintTo(const BracketCase& c, std::ostream* os)
    {
        *os << editionName(c.edition) << " item " << c.idTariffa << " value " << c.value << " -> '" << c.word << "'"
            << (c.aboveLast ? " above last" : "");
    }
};

// For each closed bracket: its upper bound gives its word, one unit above
// gives the next word, and a fraction of a unit above gives none.
std::vector<BracketCase> casesOf(const Bounds& b, bool civil)
{
    std::vector<BracketCase> cases;
    for (std::size_t i = 0; i < b.uppers.size(); ++i) {
        const Currency upper = Currency::fromText(b.uppers[i]);
        const bool nextIsOpen = i + 1 == b.uppers.size();
        cases.push_back({b.edition, b.uppers[i], b.words[i], false});
        cases.push_back(
            {b.edition, (upper + Currency::fromText(b.unit)).toText(), b.words[i + 1], civil && nextIsOpen});
        cases.push_back({b.edition, (upper + Currency::fromText(b.inGap)).toText(), "", false});
    }
    return cases;
}

std::vector<BracketCase> rightsCases()
{
    std::vector<BracketCase> all;
    for (const Bounds* b : {&RightsLire94, &RightsEuro94, &RightsEuro2004}) {
        auto cases = casesOf(*b, false);
        all.insert(all.end(), cases.begin(), cases.end());
        // The first bracket has no lower bound, the last no upper bound.
        all.push_back({b->edition, "0", "VALORESCA1"});
        all.push_back({b->edition, "-1", "VALORESCA1"});
        all.push_back({b->edition, "-922337203685477.5808", "VALORESCA1"});
        all.push_back({b->edition, "922337203685477.5807", "VALORESCA13"});
    }
    return all;
}

std::vector<BracketCase> civilCases()
{
    std::vector<BracketCase> all;
    for (const Bounds* b : {&CivilLire94, &CivilEuro94, &CivilEuro2004}) {
        auto cases = casesOf(*b, true);
        all.insert(all.end(), cases.begin(), cases.end());
        all.push_back({b->edition, "0", b->words.front()});
        all.push_back({b->edition, "-1", b->words.front()});
        all.push_back({b->edition, "922337203685477.5807", b->words.back(), true});
    }
    return all;
}

class RightsBracketTest : public testing::TestWithParam<BracketCase> { };

TEST_P(RightsBracketTest, ChoosesTheColumnOfTheBracket)
{
    const BracketCase& c = GetParam();
    EXPECT_EQ(rightsColumn(c.edition, Currency::fromText(c.value)), c.word);
}

INSTANTIATE_TEST_SUITE_P(EveryBound, RightsBracketTest, testing::ValuesIn(rightsCases()));

class CivilBracketTest : public testing::TestWithParam<BracketCase> { };

TEST_P(CivilBracketTest, ChoosesTheWordAndFlagOfTheBracket)
{
    const BracketCase& c = GetParam();
    const CivilBracket bracket = civilBracket(c.edition, Currency::fromText(c.value), c.idTariffa);
    EXPECT_EQ(bracket.word, c.word);
    EXPECT_EQ(bracket.aboveLast, c.aboveLast);
}

INSTANTIATE_TEST_SUITE_P(EveryBound, CivilBracketTest, testing::ValuesIn(civilCases()));

// In the lire table only item 13 uses the sub-brackets, and only up to
// 1,000,000 lire; other items keep SCA1.
INSTANTIATE_TEST_SUITE_P(Lire94SubBrackets, CivilBracketTest,
                         testing::Values(BracketCase{Edition::Lire94, "800000", "SCA03", false, 13},
                                         BracketCase{Edition::Lire94, "800000", "SCA1", false, 14},
                                         BracketCase{Edition::Lire94, "800000", "SCA1", false, 1},
                                         BracketCase{Edition::Lire94, "0", "SCA01", false, 13},
                                         BracketCase{Edition::Lire94, "-1", "SCA01", false, 13},
                                         BracketCase{Edition::Lire94, "250000", "SCA01", false, 13},
                                         BracketCase{Edition::Lire94, "250001", "SCA02", false, 13},
                                         BracketCase{Edition::Lire94, "500000", "SCA02", false, 13},
                                         BracketCase{Edition::Lire94, "500001", "SCA03", false, 13},
                                         BracketCase{Edition::Lire94, "1000000", "SCA03", false, 13},
                                         BracketCase{Edition::Lire94, "1000001", "SCA1", false, 13},
                                         BracketCase{Edition::Lire94, "250000", "SCA1", false, 12},
                                         // In a sub-bracket gap the main bracket's word stays.
                                         BracketCase{Edition::Lire94, "250000.5", "SCA1", false, 13},
                                         BracketCase{Edition::Lire94, "500000.5", "SCA1", false, 13},
                                         // The euro tables use the sub-brackets for every item.
                                         BracketCase{Edition::Euro94, "100", "SCA01", false, 14},
                                         BracketCase{Edition::Euro2004, "100", "SCA01", false, 14}));

TEST(CivilBracket, TheDocumentedExamples)
{
    EXPECT_EQ(civilBracket(Edition::Lire94, Currency::fromText("6000000000"), 1).word, "SCA11");
    EXPECT_TRUE(civilBracket(Edition::Lire94, Currency::fromText("6000000000"), 1).aboveLast);
    EXPECT_EQ(civilBracket(Edition::Euro2004, Currency::fromText("6000000"), 1).word, "SCA10");
    EXPECT_TRUE(civilBracket(Edition::Euro2004, Currency::fromText("6000000"), 1).aboveLast);
    EXPECT_EQ(civilBracket(Edition::Euro94, Currency::fromText("400000"), 1).word, "SCA9");
    EXPECT_FALSE(civilBracket(Edition::Euro94, Currency::fromText("400000"), 1).aboveLast);
}

TEST(RightsBracket, TheDocumentedExamples)
{
    EXPECT_EQ(rightsColumn(Edition::Lire94, Currency::fromText("250000")), "VALORESCA1");
    EXPECT_EQ(rightsColumn(Edition::Lire94, Currency::fromText("250001")), "VALORESCA2");
    EXPECT_EQ(rightsColumn(Edition::Lire94, Currency::fromText("3000000001")), "VALORESCA13");
    EXPECT_EQ(rightsColumn(Edition::Euro94, Currency::fromRaw(1'291'100)), "VALORESCA1");
    EXPECT_EQ(rightsColumn(Edition::Euro94, Currency::fromRaw(1'291'200)), "VALORESCA2");
    EXPECT_EQ(rightsColumn(Edition::Euro94, Currency::fromRaw(1'291'150)), "");
    EXPECT_EQ(rightsColumn(Edition::Euro94, Currency::fromRaw(1'291'101)), "");
    EXPECT_EQ(rightsColumn(Edition::Euro94, Currency::fromRaw(1'291'199)), "");
}

} // namespace
} // namespace avlor
