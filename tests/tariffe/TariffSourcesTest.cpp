// Reading the sources file that goes with the shipped fee tables.
#include <gtest/gtest.h>

#include "avlor/tariffe/TariffFileError.h"
#include "avlor/tariffe/TariffSources.h"

namespace avlor {
namespace {

TEST(TariffSources, ReadsItemSourcesAndTableNotes)
{
    const auto sources = readTariffSources("Tabella,Id,Fonte,Note\n"
                                           "\"onorari2004euro\",,\"D.M. 127/2004\",\"Par. I, completo\"\n"
                                           "\"Onorari2004Euro\",3,\"D.M. 127/2004\",\n"
                                           "\"Onorari2004Euro\",4,\"D.M. 127/2004\",\"\"\n");
    ASSERT_EQ(sources.size(), 3U);
    EXPECT_EQ(sources[0].line, 2U);
    EXPECT_EQ(sources[0].table, "Onorari2004Euro");
    EXPECT_FALSE(sources[0].id.has_value());
    EXPECT_EQ(sources[0].fonte, "D.M. 127/2004");
    EXPECT_EQ(sources[0].note, "Par. I, completo");
    EXPECT_EQ(sources[1].id, 3);
    EXPECT_FALSE(sources[1].note.has_value());
    EXPECT_EQ(sources[2].note, ""); // a quoted empty note is an empty text
}

TEST(TariffSources, ColumnsInAnyOrderAndCase)
{
    const auto sources = readTariffSources("NOTE;fonte;ID;tabella\n;\"GU\";7;\"Onorari94\"\n");
    ASSERT_EQ(sources.size(), 1U);
    EXPECT_EQ(sources[0].table, "Onorari94");
    EXPECT_EQ(sources[0].id, 7);
    EXPECT_EQ(sources[0].fonte, "GU");
}

struct Fault {
    const char* text;
    std::size_t line;
    const char* column;
    const char* reason;
};

class TariffSourcesFault : public testing::TestWithParam<Fault> { };

TEST_P(TariffSourcesFault, IsRefusedWithItsPlace)
{
    try {
        (void)readTariffSources(GetParam().text);
        FAIL() << "accepted";
    } catch (const TariffFileError& e) {
        EXPECT_EQ(e.line(), GetParam().line);
        EXPECT_EQ(e.column(), GetParam().column);
        EXPECT_EQ(e.reason(), GetParam().reason);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Faults, TariffSourcesFault,
    testing::Values(Fault{"", 1, "",
                          "il file è vuoto: la prima riga deve elencare le colonne Tabella, Id, Fonte, Note"},
                    Fault{"Tabella,Id,Fonte\n", 1, "Note", "manca: l'intestazione deve comprendere la colonna Note"},
                    Fault{"Tabella,Id,Fonte,Note,Data\n", 1, "Data",
                          "non è una colonna di FonteTariffe (le sue colonne sono Tabella, Id, Fonte, Note)"},
                    Fault{"Tabella,Id,Fonte,Note\n\"Azioni\",1,\"x\",\n", 2, "Tabella",
                          "\"Azioni\" non è una tabella delle tariffe"},
                    Fault{"Tabella,Id,Fonte,Note\n\"Onorari94\",0,\"x\",\n", 2, "Id",
                          "\"0\" non è l'Id di una voce (un numero intero da 1 a 2147483647, oppure vuoto per la nota "
                          "della tabella)"},
                    Fault{"Tabella,Id,Fonte,Note\n\"Onorari94\",1,\" \",\n", 2, "Fonte",
                          "è vuota: ogni riga dice da dove vengono le sue cifre"},
                    Fault{"Tabella,Id,Fonte,Note\n\"Onorari94\",1,\"a\",\n\"Onorari94\",1,\"b\",\n", 3, "Id",
                          "la voce 1 di Onorari94 ha già la sua fonte"},
                    Fault{"Tabella,Id,Fonte,Note\n\"Onorari94\",,\"a\",\n\"Onorari94\",,\"b\",\n", 3, "Id",
                          "Onorari94 ha già la sua nota"},
                    Fault{"Tabella,Id,Fonte,Note\n\"Onorari94\",1,\"a\"\n", 2, "",
                          "ha 3 campi, ma l'intestazione elenca 4 colonne"},
                    Fault{"Tabella,Id,Fonte,Note\n\"Onorari94\",1,\"a\",\"Nota \xE8\"\n", 2, "Note",
                          "non è testo UTF-8 (salvare il file come UTF-8)"}));

} // namespace
} // namespace avlor
