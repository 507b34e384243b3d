// The comma-separated reader and writer under the fee-table files.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "avlor/tariffe/Csv.h"

namespace avlor {
namespace {

std::vector<CsvRecord> readAll(std::string_view text, char separator = ',')
{
    CsvReader reader(text, separator);
    std::vector<CsvRecord> records;
    while (auto record = reader.next())
        records.push_back(std::move(*record));
    return records;
}

std::vector<std::string> texts(const CsvRecord& record)
{
    std::vector<std::string> out;
    for (const CsvField& field : record.fields)
        out.push_back(field.text);
    return out;
}

using Texts = std::vector<std::string>;

TEST(Csv, ReadsPlainAndQuotedFieldsWithTheirLines)
{
    const auto records = readAll("Id,CodiceTariffa,Azione\n1,\"2.c\",\"Esame e studio, della pratica\"\n");
    ASSERT_EQ(records.size(), 2U);
    EXPECT_EQ(texts(records[0]), (Texts{"Id", "CodiceTariffa", "Azione"}));
    EXPECT_EQ(texts(records[1]), (Texts{"1", "2.c", "Esame e studio, della pratica"}));
    EXPECT_EQ(records[0].line, 1U);
    EXPECT_EQ(records[1].line, 2U);
    EXPECT_FALSE(records[1].fields[0].quoted);
    EXPECT_TRUE(records[1].fields[1].quoted);
}

TEST(Csv, DoubledQuotesInsideQuotesAreOneQuote)
{
    const auto records = readAll("\"Indennita' di \"\"accesso\"\"\"\n");
    ASSERT_EQ(records.size(), 1U);
    EXPECT_EQ(records[0].fields[0].text, "Indennita' di \"accesso\"");
}

TEST(Csv, LineBreakInsideQuotesIsTextAndCountsAsALine)
{
    const auto records = readAll("a,\"one\ntwo\"\nb,c\r\nd,e\n");
    ASSERT_EQ(records.size(), 3U);
    EXPECT_EQ(records[0].fields[1].text, "one\ntwo");
    EXPECT_EQ(records[1].line, 3U);
    EXPECT_EQ(texts(records[1]), (Texts{"b", "c"}));
    EXPECT_EQ(records[2].line, 4U);
}

TEST(Csv, CrLfAndLoneCrEndRecords)
{
    const auto records = readAll("a\r\nb\rc");
    ASSERT_EQ(records.size(), 3U);
    EXPECT_EQ(records[2].fields[0].text, "c");
    EXPECT_EQ(records[2].line, 3U);
}

TEST(Csv, NoPhantomRecordAfterTheFinalLineBreak)
{
    EXPECT_EQ(readAll("a,b\n").size(), 1U);
    EXPECT_TRUE(readAll("").empty());
}

TEST(Csv, BlankLineIsABlankRecordButAQuotedEmptyFieldIsNot)
{
    const auto records = readAll("a\n\n\"\"\n");
    ASSERT_EQ(records.size(), 3U);
    EXPECT_TRUE(records[1].isBlank());
    EXPECT_FALSE(records[2].isBlank());
    EXPECT_TRUE(records[2].fields[0].quoted);
}

TEST(Csv, EmptyFieldsAtBothEnds)
{
    const auto records = readAll(",x,\n");
    ASSERT_EQ(records.size(), 1U);
    EXPECT_EQ(texts(records[0]), (Texts{"", "x", ""}));
}

TEST(Csv, SkipsTheByteOrderMark)
{
    const auto records = readAll("\xEF\xBB\xBFId,Azione\n");
    ASSERT_EQ(records.size(), 1U);
    EXPECT_EQ(records[0].fields[0].text, "Id");
}

TEST(Csv, SemicolonSeparatorKeepsItalianCommasInTheCell)
{
    const auto records = readAll("Id;SCA1MIN\n1;1.234,56\n", ';');
    ASSERT_EQ(records.size(), 2U);
    EXPECT_EQ(texts(records[1]), (Texts{"1", "1.234,56"}));
}

TEST(Csv, UnclosedQuoteNamesTheLineWhereItOpened)
{
    CsvReader reader("a,b\n1,\"never\nclosed\n", ',');
    ASSERT_TRUE(reader.next());
    try {
        (void)reader.next();
        FAIL() << "no error";
    } catch (const CsvError& e) {
        EXPECT_EQ(e.line(), 2U);
        EXPECT_EQ(e.fieldIndex(), 1U);
        EXPECT_STREQ(e.what(), "un campo tra virgolette aperto alla riga 2 non viene mai chiuso");
    }
}

TEST(Csv, TextAfterClosingQuoteIsRefused)
{
    CsvReader reader("\"ab\"c,d\n", ',');
    try {
        (void)reader.next();
        FAIL() << "no error";
    } catch (const CsvError& e) {
        EXPECT_EQ(e.line(), 1U);
        EXPECT_EQ(e.fieldIndex(), 0U);
        EXPECT_STREQ(e.what(), "testo inatteso dopo le virgolette che chiudono un campo");
    }
}

TEST(Csv, QuoteInsideUnquotedFieldIsRefused)
{
    CsvReader reader("x,ab\"c\n", ',');
    try {
        (void)reader.next();
        FAIL() << "no error";
    } catch (const CsvError& e) {
        EXPECT_EQ(e.fieldIndex(), 1U);
        EXPECT_STREQ(e.what(),
                     "virgolette in un campo non racchiuso tra virgolette: scrivere tutto il campo tra "
                     "virgolette e raddoppiare quelle interne");
    }
}

TEST(Csv, DetectsTheSeparatorFromTheFirstLine)
{
    EXPECT_EQ(detectCsvSeparator("Id;CodiceTariffa;SCA1MIN\n1;\"a,b\";2\n"), ';');
    EXPECT_EQ(detectCsvSeparator("Id,CodiceTariffa\n1;2\n"), ',');
    EXPECT_EQ(detectCsvSeparator("\"a;b\",c\n"), ',');
    EXPECT_EQ(detectCsvSeparator("\xEF\xBB\xBFId;Azione"), ';');
    EXPECT_EQ(detectCsvSeparator(""), ',');
}

TEST(Csv, WriterQuotesAndDoublesQuotes)
{
    EXPECT_EQ(csvQuoted("Indennita' \"x\", y"), "\"Indennita' \"\"x\"\", y\"");
    EXPECT_EQ(csvQuoted(""), "\"\"");
    EXPECT_EQ(csvLine({"1", "\"2.c\"", ""}), "1,\"2.c\",\n");
}

TEST(Csv, WrittenTextReadsBackUnchanged)
{
    const std::vector<std::string> originals{"plain", "with, comma", "with \"quotes\"", "two\nlines", "", " blanks "};
    std::vector<std::string> written;
    for (const auto& text : originals)
        written.push_back(csvQuoted(text));
    const auto records = readAll(csvLine(written));
    ASSERT_EQ(records.size(), 1U);
    EXPECT_EQ(texts(records[0]), originals);
}

} // namespace
} // namespace avlor
