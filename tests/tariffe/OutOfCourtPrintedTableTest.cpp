// The 2004 out-of-court items checked against the official table as it is
// printed (the reprint transcribed in sql/tariffe/fonti/2004_stragiudiziale.csv): every
// bracket at both its bounds, the coefficients above the last bracket and the
// indeterminate-value band, and a figure the reprint lacks proposes nothing.
#include <gtest/gtest.h>

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "SourceFigures.h"
#include "avlor/core/Currency.h"
#include "avlor/core/Messages.h"
#include "avlor/engine/CalcolaTariffaModulo.h"

namespace avlor {
namespace {

// "0,000103" -> 103 millionths.
std::int64_t millionths(const std::string& italian)
{
    const auto comma = italian.find(',');
    std::string decimals = italian.substr(comma + 1);
    decimals.resize(6, '0');
    return std::stoll(italian.substr(0, comma)) * 1'000'000 + std::stoll(decimals);
}

// The printed table, read through the project's own CSV reader: the column
// names in printed order and the rows by "voce_come_stampata".
struct PrintedTable {
    std::vector<std::string> header;
    std::map<std::string, test::SourceRow> rows;

    [[nodiscard]] const std::string& cell(const std::string& voce, const std::string& column) const
    {
        return rows.at(voce).at(column);
    }
};

PrintedTable readPrintedTable()
{
    PrintedTable table;
    table.header = test::sourceFileHeader("2004_stragiudiziale.csv");
    for (test::SourceRow& row : test::readSourceFile("2004_stragiudiziale.csv")) {
        const std::string voce = row.at("voce_come_stampata");
        table.rows.emplace(voce, std::move(row));
    }
    return table;
}

struct Bracket {
    std::string label; // "fino a 600", "da 600,01 a 1.600", ...
    Currency from; // 0 for the first bracket
    Currency to;
};

// The closed brackets, from the header's "... min" columns.
std::vector<Bracket> bracketsOf(const PrintedTable& table)
{
    std::vector<Bracket> brackets;
    for (const std::string& name : table.header) {
        if (name.size() < 4 || name.substr(name.size() - 4) != " min")
            continue;
        const std::string label = name.substr(0, name.size() - 4);
        if (label.rfind("fino a ", 0) == 0) {
            brackets.push_back({label, Currency{}, test::printed(label.substr(7))});
        } else if (label.rfind("da ", 0) == 0) {
            const auto a = label.find(" a ");
            brackets.push_back({label, test::printed(label.substr(3, a - 3)), test::printed(label.substr(a + 3))});
        }
    }
    return brackets;
}

// The printed rows priced by value bracket, and their item Id.
const std::vector<std::pair<std::string, std::int32_t>> ValueBracketRows{
    {"1. B) a)", 2}, {"1. B) b)", 3}, {"2. c)", 6}, {"2. e)", 9}};

// A band the engine never writes, to show MinTar left untouched.
const Currency MinTarBefore = Currency::fromRaw(11);

struct Priced {
    Currency result;
    Currency MinTar;
    Currency MaxTar;
    std::size_t messages;
};

Priced price(std::int32_t id, Currency value, std::int16_t bInd, std::int16_t vRil)
{
    ScopedMessageRecorder messages;
    Currency MinTar = MinTarBefore;
    Currency MaxTar;
    Currency MinS;
    Currency MaxS;
    std::string Autorita;
    std::string sTabella = "OnorariStrag2004Euro";
    const Currency result = CalcolaTariffaModulo(value, vRil, sTabella, bInd, id, MinTar, MaxTar, MinS, MaxS, Autorita);
    return {result, MinTar, MaxTar, messages.recorder().shown().size()};
}

TEST(OutOfCourtPrintedTable, ElevenBracketsEndingAt5164600)
{
    const std::vector<Bracket> brackets = bracketsOf(readPrintedTable());
    ASSERT_EQ(brackets.size(), 11u);
    EXPECT_EQ(brackets.back().to.toFixed4(), "5164600.0000");
    for (std::size_t i = 1; i < brackets.size(); ++i)
        EXPECT_EQ(brackets[i].from, brackets[i - 1].to + Currency::fromText("0.01")) << brackets[i].label;
}

TEST(OutOfCourtPrintedTable, EveryBracketAtBothBoundsGivesThePrintedBand)
{
    const PrintedTable table = readPrintedTable();
    for (const auto& [voce, id] : ValueBracketRows) {
        ASSERT_TRUE(table.rows.count(voce)) << voce;
        const test::SourceRow& row = table.rows.at(voce);
        for (const Bracket& bracket : bracketsOf(table)) {
            const Currency min = test::printed(row.at(bracket.label + " min"));
            const Currency max = test::printed(row.at(bracket.label + " max"));
            for (Currency value : {bracket.from, bracket.to}) {
                const Priced atMin = price(id, value, 0, 0);
                EXPECT_EQ(atMin.MinTar, min) << voce << " " << bracket.label << " at " << value.toText();
                EXPECT_EQ(atMin.MaxTar, max) << voce << " " << bracket.label << " at " << value.toText();
                EXPECT_EQ(atMin.result, min) << voce << " " << bracket.label;
                EXPECT_EQ(price(id, value, 0, 100).result, max) << voce << " " << bracket.label;
            }
        }
    }
}

TEST(OutOfCourtPrintedTable, AboveTheLastBracketTheCoefficientsApplyToTheWholeValue)
{
    const PrintedTable table = readPrintedTable();
    const Currency value = Currency::fromText("10000000");
    for (const auto& [voce, id] : ValueBracketRows) {
        const test::SourceRow& row = table.rows.at(voce);
        const std::string minCoefficient = row.at("oltre 5.164.600 coeff. min");
        const std::string maxCoefficient = row.at("oltre 5.164.600 coeff. max");
        const Priced priced = price(id, value, 0, 0);
        if (minCoefficient.empty() || maxCoefficient.empty()) {
            EXPECT_EQ(priced.result, Currency{}) << voce;
            EXPECT_EQ(priced.MinTar, MinTarBefore) << voce;
            EXPECT_EQ(priced.messages, 1u) << voce;
            continue;
        }
        // 10,000,000 x coefficient = 10 x the coefficient's millionths.
        EXPECT_EQ(priced.MinTar, Currency::fromWhole(10 * millionths(minCoefficient))) << voce;
        EXPECT_EQ(priced.MaxTar, Currency::fromWhole(10 * millionths(maxCoefficient))) << voce;
        EXPECT_EQ(priced.result, priced.MinTar) << voce;
    }
}

TEST(OutOfCourtPrintedTable, TheIndeterminateValueBandWherePrinted)
{
    const PrintedTable table = readPrintedTable();
    for (const auto& [voce, id] : ValueBracketRows) {
        const test::SourceRow& row = table.rows.at(voce);
        const std::string min = row.at("valore indeterminabile min");
        const std::string max = row.at("valore indeterminabile max");
        const Priced priced = price(id, Currency::fromText("1000"), -1, 100);
        if (min.empty() || max.empty()) {
            EXPECT_EQ(priced.result, Currency{}) << voce;
            EXPECT_EQ(priced.messages, 1u) << voce;
            continue;
        }
        EXPECT_EQ(priced.MinTar, test::printed(min)) << voce;
        EXPECT_EQ(priced.MaxTar, test::printed(max)) << voce;
        EXPECT_EQ(priced.result, test::printed(max)) << voce;
    }
}

TEST(OutOfCourtPrintedTable, TheFixedItemsAsPrinted)
{
    const PrintedTable table = readPrintedTable();
    const std::string fixed = "importo_fisso_o_fascia_unica";
    const std::vector<std::pair<std::string, std::int32_t>> bands{
        {"1. A)", 1}, {"2. b)", 5}, {"2. d) (prima riga)", 7}, {"2. d) (seconda riga)", 8}};
    for (const auto& [voce, id] : bands) {
        // "da 15 a 150"
        const std::string text = table.cell(voce, fixed);
        ASSERT_EQ(text.rfind("da ", 0), 0u) << text;
        const auto a = text.find(" a ");
        const Priced atMin = price(id, Currency::fromText("1000"), 0, 0);
        EXPECT_EQ(atMin.MinTar, test::printed(text.substr(3, a - 3))) << voce;
        EXPECT_EQ(atMin.MaxTar, test::printed(text.substr(a + 3))) << voce;
    }
    // "diritto fisso 13"
    const std::string filing = table.cell("2. a)", fixed);
    ASSERT_EQ(filing.rfind("diritto fisso ", 0), 0u);
    EXPECT_EQ(price(4, Currency::fromText("1000"), 0, 50).result, test::printed(filing.substr(14)));
}

} // namespace
} // namespace avlor
