// The list of a fee table's items that a person picks from, and the count of
// those that carry an amount.
#include <gtest/gtest.h>

#include "SourceFigures.h"
#include "TestDatabase.h"
#include "avlor/tariffe/OfficialTariffs.h"
#include "avlor/tariffe/TariffImport.h"
#include "avlor/tariffe/TariffListing.h"

namespace avlor {
namespace {

using test::TestDatabase;

TEST(TariffListing, ListsIdCodeAndDescriptionInTheOrderOfId)
{
    const TestDatabase db;
    (void)importTariffText("Onorari2004Euro",
                           "Id,CodiceTariffa,Azione,SCA02MIN,SCA02MAX,MAXINDET\n"
                           "10,\"10\",\"Discussione\",45,145,0\n"
                           "2,\"2\",\"Studio controversia\",0,0,0\n"
                           "3,\"3\",,0,0,0.0001\n",
                           "prova");
    const std::vector<TariffItem> items = listTariffItems("Onorari2004Euro");
    ASSERT_EQ(items.size(), 3U);
    EXPECT_EQ(items[0].id, 2);
    EXPECT_EQ(items[0].code, "2");
    EXPECT_EQ(items[0].description, "Studio controversia");
    EXPECT_FALSE(items[0].priced); // every amount 0
    EXPECT_EQ(items[1].id, 3);
    EXPECT_EQ(items[1].description, ""); // no description
    EXPECT_TRUE(items[1].priced); // one ten-thousandth is an amount
    EXPECT_EQ(items[2].id, 10);
    EXPECT_EQ(items[2].code, "10");
    EXPECT_TRUE(items[2].priced);

    const TariffCount count = countTariffItems("onorari2004euro");
    EXPECT_EQ(count.items, 3U);
    EXPECT_EQ(count.priced, 2U);
}

TEST(TariffListing, EmptyTable)
{
    const TestDatabase db;
    EXPECT_TRUE(listTariffItems("Diritti2004Euro").empty());
    const TariffCount count = countTariffItems("Diritti2004Euro");
    EXPECT_EQ(count.items, 0U);
    EXPECT_EQ(count.priced, 0U);
}

TEST(TariffListing, UnknownTableIsRefused)
{
    const TestDatabase db;
    EXPECT_THROW((void)listTariffItems("Pratica"), Error);
    EXPECT_THROW((void)countTariffItems(""), Error);
}

TEST(TariffListing, ShippedTables)
{
    const TestDatabase db;
    (void)loadOfficialTariffs(test::shippedFolder());
    struct Expected {
        const char* table;
        std::size_t items;
        std::size_t priced;
    };
    for (const Expected& e :
         {Expected{"Onorari94", 8, 8}, Expected{"Onorari94Euro", 19, 19}, Expected{"Onorari2004Euro", 11, 11},
          Expected{"OnorariPenali94", 5, 5}, Expected{"OnorariPenali2004Euro", 4, 4},
          Expected{"OnorariStrag2004Euro", 9, 0}, Expected{"Diritti94", 0, 0}}) {
        const TariffCount count = countTariffItems(e.table);
        EXPECT_EQ(count.items, e.items) << e.table;
        EXPECT_EQ(count.priced, e.priced) << e.table;
    }
    // The out-of-court items are listed for the user to pick; their amounts
    // come from the engine.
    const std::vector<TariffItem> strag = listTariffItems("OnorariStrag2004Euro");
    std::vector<std::string> codes;
    for (const TariffItem& item : strag)
        codes.push_back(item.code);
    EXPECT_EQ(codes, (std::vector<std::string>{"1.A", "1.B.a", "1.B.b", "2.a", "2.b", "2.c", "2.d", "2.d", "2.e"}));
    EXPECT_EQ(strag[5].description, "2. Prestazioni di assistenza / Esame e studio della pratica");
}

} // namespace
} // namespace avlor
