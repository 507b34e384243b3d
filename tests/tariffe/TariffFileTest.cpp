// Checking a fee-table file before anything is written: every fault is
// refused with its line and column.
#include <gtest/gtest.h>

#include <cctype>
#include <string>
#include <vector>

#include "avlor/tariffe/TariffFile.h"
#include "avlor/tariffe/TariffFileError.h"

namespace avlor {
namespace {

const std::vector<std::string> Columns{"Id",      "CodiceTariffa", "Azione",  "Autorita",
                                       "SCA1MIN", "SCA1MAX",       "SCA2MIN", "SCA2MAX"};

TariffFile read(std::string_view text) { return readTariffFile("Onorari94Euro", text, Columns); }

// The error that reading `text` raises.
TariffFileError refusal(std::string_view text)
{
    try {
        (void)read(text);
    } catch (const TariffFileError& e) {
        return e;
    }
    ADD_FAILURE() << "accepted: " << text;
    return TariffFileError(0, "", "");
}

Currency amount(const char* text) { return Currency::fromText(text); }

TEST(TariffFile, ReadsAValidFile)
{
    const TariffFile file = read("Id,CodiceTariffa,Azione,SCA1MIN,SCA1MAX\n"
                                 "2,\"2\",\"Studio controversia\",43.90,116.20\n"
                                 "10,\"10\",\"Opera prestata per la conciliazione\",30.99,92.45\n");
    EXPECT_EQ(file.table, "Onorari94Euro");
    EXPECT_EQ(file.columns, (std::vector<std::string>{"Id", "CodiceTariffa", "Azione", "SCA1MIN", "SCA1MAX"}));
    ASSERT_EQ(file.rows.size(), 2U);
    EXPECT_EQ(file.rows[0].line, 2U);
    EXPECT_EQ(file.rows[0].id, 2);
    EXPECT_EQ(file.rows[1].id, 10);
    EXPECT_EQ(file.rows[1].line, 3U);
    const auto& values = file.rows[0].values;
    ASSERT_EQ(values.size(), 5U);
    EXPECT_EQ(values[0].kind(), ValueKind::Long);
    EXPECT_EQ(values[0].asLong(), 2);
    EXPECT_EQ(values[1].asText(), "2");
    EXPECT_EQ(values[2].asText(), "Studio controversia");
    EXPECT_EQ(values[3].asCurrency(), amount("43.9"));
    EXPECT_EQ(values[4].asCurrency(), amount("116.2"));
}

TEST(TariffFile, HeaderNamesAreMatchedWithoutRegardToCaseAndTakeTheTablesSpelling)
{
    const TariffFile file = read("id, codicetariffa ,sca1min\n1,a,5\n");
    EXPECT_EQ(file.columns, (std::vector<std::string>{"Id", "CodiceTariffa", "SCA1MIN"}));
}

TEST(TariffFile, ItalianAndPointFilesGiveTheSameAmounts)
{
    const TariffFile italian = read("Id;CodiceTariffa;SCA1MIN;SCA1MAX\n11;11;1.007,09;1301,47\n12;12;1.055;2,5\n");
    const TariffFile point = read("Id,CodiceTariffa,SCA1MIN,SCA1MAX\n11,11,1007.09,1301.47\n12,12,1055,2.5\n");
    for (const TariffFile* file : {&italian, &point}) {
        ASSERT_EQ(file->rows.size(), 2U);
        EXPECT_EQ(file->rows[0].values[2].asCurrency(), amount("1007.09"));
        EXPECT_EQ(file->rows[0].values[3].asCurrency(), amount("1301.47"));
        EXPECT_EQ(file->rows[1].values[2].asCurrency(), amount("1055"));
        EXPECT_EQ(file->rows[1].values[3].asCurrency(), amount("2.5"));
    }
}

TEST(TariffFile, AnAmbiguousCellTakesTheNotationShownLaterInTheFile)
{
    const TariffFile italian = read("Id,CodiceTariffa,SCA1MIN,SCA1MAX\n1,a,1.055,0\n2,b,\"2,5\",0\n");
    EXPECT_EQ(italian.rows[0].values[2].asCurrency(), amount("1055"));
    const TariffFile point = read("Id,CodiceTariffa,SCA1MIN,SCA1MAX\n1,a,1.055,0\n2,b,2.50,0\n");
    EXPECT_EQ(point.rows[0].values[2].asCurrency(), amount("1.055"));
}

TEST(TariffFile, AnAmbiguousCellInAFileThatShowsNoNotationIsRefused)
{
    const TariffFileError e = refusal("Id,CodiceTariffa,SCA1MIN,SCA1MAX\n1,a,85,90\n2,b,1.055,2000\n");
    EXPECT_EQ(e.line(), 3U);
    EXPECT_EQ(e.column(), "SCA1MIN");
}

TEST(TariffFile, MixedNotationsAreRefusedAtTheSecondNotation)
{
    const TariffFileError e = refusal("Id;CodiceTariffa;SCA1MIN;SCA1MAX\n1;a;1.234,50;0\n2;b;12.50;0\n");
    EXPECT_EQ(e.line(), 3U);
    EXPECT_EQ(e.column(), "SCA1MIN");
    EXPECT_STREQ(e.what(),
                 "riga 3, colonna SCA1MIN: \"12.50\" è scritto con il punto decimale (1234.56), ma alla riga 2 "
                 "(colonna SCA1MIN) \"1.234,50\" è scritto all'italiana (1.234,56): usare una sola "
                 "scrittura in tutto il file");
}

TEST(TariffFile, EmptyAmountIsZeroAndUnquotedEmptyTextIsNull)
{
    const TariffFile file = read("Id,CodiceTariffa,Azione,Autorita,SCA1MIN\n1,a,,\"\",\n");
    const auto& values = file.rows[0].values;
    EXPECT_TRUE(values[2].isNull());
    EXPECT_EQ(values[3].kind(), ValueKind::Text);
    EXPECT_EQ(values[3].asText(), "");
    EXPECT_EQ(values[4].asCurrency(), Currency());
}

TEST(TariffFile, BlankLinesAreSkippedAndLinesStillCount)
{
    const TariffFile file = read("\nId,CodiceTariffa\n\n1,a\n\n2,b\n\n");
    ASSERT_EQ(file.rows.size(), 2U);
    EXPECT_EQ(file.rows[0].line, 4U);
    EXPECT_EQ(file.rows[1].line, 6U);
}

TEST(TariffFile, TextKeepsItsBlanksAndQuotes)
{
    const TariffFile file = read("Id,CodiceTariffa,Azione\n1,\" 1.A \",\"Indennita' \"\"x\"\", y\"\n");
    EXPECT_EQ(file.rows[0].values[1].asText(), " 1.A ");
    EXPECT_EQ(file.rows[0].values[2].asText(), "Indennita' \"x\", y");
}

struct Fault {
    const char* what;
    const char* text;
    std::size_t line;
    const char* column;
    const char* message;
};

class TariffFileFault : public testing::TestWithParam<Fault> { };

TEST_P(TariffFileFault, IsRefusedWithItsLineAndColumn)
{
    const Fault& fault = GetParam();
    const TariffFileError e = refusal(fault.text);
    EXPECT_EQ(e.line(), fault.line);
    EXPECT_EQ(e.column(), fault.column);
    EXPECT_EQ(std::string(e.what()), fault.message);
}

INSTANTIATE_TEST_SUITE_P(
    Faults, TariffFileFault,
    testing::Values(
        Fault{"empty", "", 1, "",
              "riga 1: il file è vuoto: la prima riga deve elencare le colonne di Onorari94Euro (Id, CodiceTariffa, "
              "Azione, Autorita, SCA1MIN, SCA1MAX, SCA2MIN, SCA2MAX)"},
        Fault{"blank lines only", "\n\r\n  \n", 1, "",
              "riga 1: il file è vuoto: la prima riga deve elencare le colonne di Onorari94Euro (Id, CodiceTariffa, "
              "Azione, Autorita, SCA1MIN, SCA1MAX, SCA2MIN, SCA2MAX)"},
        Fault{"header only", "Id,CodiceTariffa\n", 2, "", "riga 2: il file non ha voci dopo l'intestazione"},
        Fault{"unknown column", "Id,CodiceTariffa,SCA12MIN\n1,a,3\n", 1, "SCA12MIN",
              "riga 1, colonna SCA12MIN: non è una colonna di Onorari94Euro (le sue colonne sono Id, CodiceTariffa, "
              "Azione, "
              "Autorita, SCA1MIN, SCA1MAX, SCA2MIN, SCA2MAX)"},
        Fault{"column named twice", "Id,CodiceTariffa,SCA1MIN,sca1min\n1,a,3,4\n", 1, "SCA1MIN",
              "riga 1, colonna SCA1MIN: compare due volte nell'intestazione"},
        Fault{"nameless column", "Id,,CodiceTariffa\n1,2,a\n", 1, "",
              "riga 1: la colonna 2 dell'intestazione non ha nome"},
        Fault{"no Id column", "CodiceTariffa,SCA1MIN\na,3\n", 1, "Id",
              "riga 1, colonna Id: manca: l'intestazione deve comprendere la colonna Id"},
        Fault{"no code column", "Id,SCA1MIN\n1,3\n", 1, "CodiceTariffa",
              "riga 1, colonna CodiceTariffa: manca: l'intestazione deve comprendere la colonna CodiceTariffa"},
        Fault{"bad number", "Id,CodiceTariffa,SCA1MIN\n1,a,3\n2,b,12abc\n", 3, "SCA1MIN",
              "riga 3, colonna SCA1MIN: \"12abc\" non è un importo"},
        Fault{"negative amount", "Id,CodiceTariffa,SCA1MAX\n1,a,-3\n", 2, "SCA1MAX",
              "riga 2, colonna SCA1MAX: \"-3\" è negativo: gli importi delle tariffe non sono mai sotto lo 0"},
        Fault{"duplicate Id", "Id,CodiceTariffa\n4,a\n5,b\n4,c\n", 4, "Id",
              "riga 4, colonna Id: la voce 4 compare già alla riga 2"},
        Fault{"Id not a number", "Id,CodiceTariffa\nx,a\n", 2, "Id",
              "riga 2, colonna Id: \"x\" non è l'Id di una voce (un numero intero da 1 a 2147483647)"},
        Fault{"Id zero", "Id,CodiceTariffa\n0,a\n", 2, "Id",
              "riga 2, colonna Id: \"0\" non è l'Id di una voce (un numero intero da 1 a 2147483647)"},
        Fault{"Id above 32 bits", "Id,CodiceTariffa\n2147483648,a\n", 2, "Id",
              "riga 2, colonna Id: \"2147483648\" non è l'Id di una voce (un numero intero da 1 a 2147483647)"},
        Fault{"Id with decimals", "Id,CodiceTariffa\n3.0,a\n", 2, "Id",
              "riga 2, colonna Id: \"3.0\" non è l'Id di una voce (un numero intero da 1 a 2147483647)"},
        Fault{"missing code", "Id,CodiceTariffa,Azione\n1,a,x\n2,,y\n", 3, "CodiceTariffa",
              "riga 3, colonna CodiceTariffa: è vuota: ogni voce deve avere il suo codice come lo stampa la tariffa"},
        Fault{"blank code", "Id,CodiceTariffa\n1,\"  \"\n", 2, "CodiceTariffa",
              "riga 2, colonna CodiceTariffa: è vuota: ogni voce deve avere il suo codice come lo stampa la tariffa"},
        Fault{"too many fields", "Id,CodiceTariffa,SCA1MIN\n1,a,1,5\n", 2, "",
              "riga 2: ha 4 campi, ma l'intestazione elenca 3 colonne (un testo che contiene una virgola va scritto "
              "tra virgolette)"},
        Fault{"too few fields", "Id,CodiceTariffa,SCA1MIN\n1,a\n", 2, "",
              "riga 2: ha 2 campi, ma l'intestazione elenca 3 colonne (un testo che contiene una virgola va scritto "
              "tra virgolette)"},
        Fault{"unclosed quote", "Id,CodiceTariffa,Azione\n1,a,\"open\n", 2, "Azione",
              "riga 2, colonna Azione: un campo tra virgolette aperto alla riga 2 non viene mai chiuso"},
        Fault{"not UTF-8", "Id,CodiceTariffa,Azione\n1,a,\"Indennit\xE0\"\n", 2, "Azione",
              "riga 2, colonna Azione: non è testo UTF-8 (salvare il file come UTF-8)"},
        Fault{"five decimals", "Id,CodiceTariffa,SCA2MIN\n1,a,0.00001\n", 2, "SCA2MIN",
              "riga 2, colonna SCA2MIN: \"0.00001\" ha più di quattro decimali e non si può tenere esatto"}),
    [](const testing::TestParamInfo<Fault>& param) {
        std::string name;
        for (const char c : std::string(param.param.what))
            name += std::isalnum(static_cast<unsigned char>(c)) ? c : '_';
        return name;
    });

} // namespace
} // namespace avlor
