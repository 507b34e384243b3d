// The 2004 out-of-court items checked against the official table as it is
// printed (the reprint kept in shared/tariffe/2004_stragiudiziale.csv): every
// bracket at both its bounds, the coefficients above the last bracket and the
// indeterminate-value band, and a figure the reprint lacks proposes nothing.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "EngineCall.h"
#include "avlor/core/Messages.h"

namespace avlor {
namespace {

using test::EngineCall;

// The shared folder beside the source tree, as the test runner names it, or
// found from this file's place when the program is run by hand.
std::string sharedDir()
{
    if (const char* dir = std::getenv("AVLOR_SHARED_DIR"))
        return dir;
    return (std::filesystem::path(__FILE__).parent_path() / ".." / ".." / ".." / "shared").string();
}

// The quoted, comma-separated fields of one line ("" inside quotes is a quote).
std::vector<std::string> fieldsOf(const std::string& line)
{
    std::vector<std::string> fields;
    std::string field;
    bool quoted = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const char c = line[i];
        if (quoted) {
            if (c == '"' && i + 1 < line.size() && line[i + 1] == '"') {
                field += '"';
                ++i;
            } else if (c == '"') {
                quoted = false;
            } else {
                field += c;
            }
        } else if (c == '"') {
            quoted = true;
        } else if (c == ',') {
            fields.push_back(field);
            field.clear();
        } else if (c != '\r') {
            field += c;
        }
    }
    fields.push_back(field);
    return fields;
}

// Italian notation: "." groups thousands, "," separates decimals.
std::string plainNumber(std::string text)
{
    std::string plain;
    for (char c : text) {
        if (c == ',')
            plain += '.';
        else if (c != '.')
            plain += c;
    }
    return plain;
}

Currency euroAmount(const std::string& italian) { return Currency::fromText(plainNumber(italian)); }

// "0,000103" -> 103 millionths.
std::int64_t millionths(const std::string& italian)
{
    const auto comma = italian.find(',');
    std::string decimals = italian.substr(comma + 1);
    decimals.resize(6, '0');
    return std::stoll(italian.substr(0, comma)) * 1'000'000 + std::stoll(decimals);
}

struct PrintedTable {
    std::vector<std::string> header;
    std::map<std::string, std::vector<std::string>> rows; // by "voce_come_stampata"

    [[nodiscard]] std::size_t column(const std::string& name) const
    {
        for (std::size_t i = 0; i < header.size(); ++i) {
            if (header[i] == name)
                return i;
        }
        ADD_FAILURE() << "no column " << name;
        return 0;
    }
};

PrintedTable readPrintedTable()
{
    PrintedTable table;
    std::ifstream file(sharedDir() + "/tariffe/2004_stragiudiziale.csv");
    EXPECT_TRUE(file.good()) << "cannot read " << sharedDir() << "/tariffe/2004_stragiudiziale.csv";
    std::string line;
    while (std::getline(file, line)) {
        if (line.empty() || line[0] == '#')
            continue;
        std::vector<std::string> fields = fieldsOf(line);
        if (table.header.empty())
            table.header = std::move(fields);
        else
            table.rows[fields[0]] = std::move(fields);
    }
    return table;
}

struct Bracket {
    std::string label; // "fino a 600", "da 600,01 a 1.600", ...
    Currency from;     // 0 for the first bracket
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
            brackets.push_back({label, Currency{}, euroAmount(label.substr(7))});
        } else if (label.rfind("da ", 0) == 0) {
            const auto a = label.find(" a ");
            brackets.push_back({label, euroAmount(label.substr(3, a - 3)), euroAmount(label.substr(a + 3))});
        }
    }
    return brackets;
}

// The printed rows priced by value bracket, and their item Id.
const std::vector<std::pair<std::string, std::int32_t>> ValueBracketRows{
    {"1. B) a)", 2}, {"1. B) b)", 3}, {"2. c)", 6}, {"2. e)", 9}};

struct Priced {
    Currency result;
    Currency MinTar;
    Currency MaxTar;
    std::size_t messages;
};

Priced price(std::int32_t id, Currency value, std::int16_t bInd, std::int16_t vRil)
{
    ScopedMessageRecorder messages;
    EngineCall call;
    call.sTabella = "OnorariStrag2004Euro";
    call.idTariffa = id;
    call.cValore = value;
    call.bInd = bInd;
    call.vRil = vRil;
    const Currency result = call.run();
    return {result, call.MinTar, call.MaxTar, messages.recorder().shown().size()};
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
        const std::vector<std::string>& row = table.rows.at(voce);
        for (const Bracket& bracket : bracketsOf(table)) {
            const Currency min = euroAmount(row[table.column(bracket.label + " min")]);
            const Currency max = euroAmount(row[table.column(bracket.label + " max")]);
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
        const std::vector<std::string>& row = table.rows.at(voce);
        const std::string minCoefficient = row[table.column("oltre 5.164.600 coeff. min")];
        const std::string maxCoefficient = row[table.column("oltre 5.164.600 coeff. max")];
        const Priced priced = price(id, value, 0, 0);
        if (minCoefficient.empty() || maxCoefficient.empty()) {
            EXPECT_EQ(priced.result, Currency{}) << voce;
            EXPECT_EQ(priced.MinTar, test::MinTarBefore) << voce;
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
        const std::vector<std::string>& row = table.rows.at(voce);
        const std::string min = row[table.column("valore indeterminabile min")];
        const std::string max = row[table.column("valore indeterminabile max")];
        const Priced priced = price(id, Currency::fromText("1000"), -1, 100);
        if (min.empty() || max.empty()) {
            EXPECT_EQ(priced.result, Currency{}) << voce;
            EXPECT_EQ(priced.messages, 1u) << voce;
            continue;
        }
        EXPECT_EQ(priced.MinTar, euroAmount(min)) << voce;
        EXPECT_EQ(priced.MaxTar, euroAmount(max)) << voce;
        EXPECT_EQ(priced.result, euroAmount(max)) << voce;
    }
}

TEST(OutOfCourtPrintedTable, TheFixedItemsAsPrinted)
{
    const PrintedTable table = readPrintedTable();
    const std::size_t fixed = table.column("importo_fisso_o_fascia_unica");
    const std::vector<std::pair<std::string, std::int32_t>> bands{
        {"1. A)", 1}, {"2. b)", 5}, {"2. d) (prima riga)", 7}, {"2. d) (seconda riga)", 8}};
    for (const auto& [voce, id] : bands) {
        // "da 15 a 150"
        const std::string text = table.rows.at(voce)[fixed];
        ASSERT_EQ(text.rfind("da ", 0), 0u) << text;
        const auto a = text.find(" a ");
        const Priced atMin = price(id, Currency::fromText("1000"), 0, 0);
        EXPECT_EQ(atMin.MinTar, euroAmount(text.substr(3, a - 3))) << voce;
        EXPECT_EQ(atMin.MaxTar, euroAmount(text.substr(a + 3))) << voce;
    }
    // "diritto fisso 13"
    const std::string filing = table.rows.at("2. a)")[fixed];
    ASSERT_EQ(filing.rfind("diritto fisso ", 0), 0u);
    EXPECT_EQ(price(4, Currency::fromText("1000"), 0, 50).result, euroAmount(filing.substr(14)));
}

} // namespace
} // namespace avlor
