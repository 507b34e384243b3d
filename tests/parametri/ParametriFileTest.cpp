// The shipped figures as the program reads them: every version and table
// with its count, provenance and confidence; and the import file's checks.
#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "avlor/parametri/ParametriFile.h"

namespace avlor::parametri {
namespace {

std::size_t figures(const std::string& versione)
{
    std::size_t count = 0;
    for (const Tabella& t : catalogoSpedito().tabelle) {
        if (t.versione == versione)
            count += t.cifre.size();
    }
    return count;
}

std::size_t tables(const std::string& versione)
{
    std::size_t count = 0;
    for (const Tabella& t : catalogoSpedito().tabelle)
        count += t.versione == versione ? 1U : 0U;
    return count;
}

TEST(ParametriSpediti, EveryVersionWithItsTablesAndFigures)
{
    EXPECT_EQ(tables("2014"), 26U);
    EXPECT_EQ(figures("2014"), 477U);
    EXPECT_EQ(tables("2018"), 27U);
    EXPECT_EQ(figures("2018"), 495U);
    EXPECT_EQ(tables("2022"), 25U); // 24 tables and the criminal one not verified
    EXPECT_EQ(figures("2022"), 430U + 53U);
}

TEST(ParametriSpediti, ProvenanceAndConfidence)
{
    const Catalogo& c = catalogoSpedito();
    const Tabella* criminal = c.trova("2022", "15");
    ASSERT_NE(criminal, nullptr);
    EXPECT_FALSE(criminal->verificata);
    EXPECT_EQ(criminal->affidabilita, "bassa");
    EXPECT_EQ(criminal->titolo, "GIUDIZI PENALI");
    const Tabella* tribunale = c.trova("2022", "2");
    ASSERT_NE(tribunale, nullptr);
    EXPECT_EQ(tribunale->affidabilita, "alta");
    EXPECT_TRUE(tribunale->verificata);
    EXPECT_EQ(tribunale->titolo, "GIUDIZI ORDINARI E SOMMARI DI COGNIZIONE INNANZI AL TRIBUNALE");
    EXPECT_NE(tribunale->fonte.find("foroeuropeo"), std::string::npos);
    EXPECT_EQ(c.trova("2022", "3")->affidabilita, "media");
    EXPECT_EQ(c.trova("2014", "3")->affidabilita, "alta");
    EXPECT_NE(c.trova("2014", "3")->fonte.find("Gazzetta Ufficiale"), std::string::npos);
    EXPECT_NE(c.trova("2018", "25-bis"), nullptr);
    EXPECT_EQ(c.trova("2014", "25-bis"), nullptr);
    EXPECT_EQ(c.trova("2022", "25"), nullptr);
    EXPECT_EQ(tribunale->cifre.front().affidabilita, "alta");
    EXPECT_EQ(tribunale->cifre.front().fonte, tribunale->fonte);
}

std::string lower(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

// A note that holds the separator is read whole.
TEST(ParametriSpediti, NotesAreReadWhole)
{
    const Catalogo& c = catalogoSpedito();
    EXPECT_EQ(c.trova("2022", "3")->nota, "Coerente con le cifre 2018 x 1,05; nessuna fonte indipendente");
    EXPECT_EQ(c.trova("2022", "6")->nota, "Primo scaglione (0-5.200) non recuperato; coerente con 2018 x 1,05");
    EXPECT_EQ(c.trova("2022", "21")->nota,
              "Fase introduttiva = 2018 x 1,05 x 1,2, anomalia non risolta; fase cautelare monocratica non verificata");
}

// The shipped files speak of their sources only, and every file they send
// the reader to ships beside them.
// Words of research notes, not of a product's sources (spelled in pieces so
// that this test itself holds none of them).
const std::vector<std::string> ResearchWords = {std::string("cor") + "pus", std::string("search ") + "index",
                                                std::string("search ") + "tool", std::string("indice di ") + "ricerca"};

TEST(ParametriSpediti, ShippedFilesNameOnlyTheirSourcesAndWhatShipsBesideThem)
{
    const std::filesystem::path folder = AVLOR_PARAMETRI_DIR;
    std::size_t files = 0;
    std::set<std::string> named;
    const std::regex reference(R"(([A-Za-z_-]+\.md))");
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        if (!entry.is_regular_file())
            continue;
        ++files;
        std::ifstream in(entry.path(), std::ios::binary);
        std::ostringstream text;
        text << in.rdbuf();
        const std::string content = lower(text.str());
        for (const std::string& word : ResearchWords)
            EXPECT_EQ(content.find(word), std::string::npos) << entry.path() << " holds «" << word << "»";
        if (entry.path().extension() != ".csv")
            continue;
        const std::string original = text.str();
        for (std::sregex_iterator it(original.begin(), original.end(), reference), end; it != end; ++it)
            named.insert((*it)[1].str());
    }
    EXPECT_EQ(files, 26U + 27U + 25U + 3U); // the tables, Affidabilita.csv, CROSSCHECK.md, DISCREPANCIES.md
    EXPECT_EQ(named.count("CROSSCHECK.md"), 1U);
    for (const std::string& name : named) {
        if (name == "raw-research.md") // a file of the calculator's repository, named as its source
            continue;
        EXPECT_TRUE(std::filesystem::exists(folder / name)) << name << " is named but does not ship";
    }
    for (const Tabella& t : catalogoSpedito().tabelle) {
        for (const std::string& word : ResearchWords) {
            EXPECT_EQ(lower(t.fonte).find(word), std::string::npos) << t.versione << " " << t.numero;
            EXPECT_EQ(lower(t.nota).find(word), std::string::npos) << t.versione << " " << t.numero;
        }
    }
    const std::string fonte = catalogoSpedito().trova("2022", "3")->fonte;
    EXPECT_NE(fonte.find("Verifica indipendente: nessuna fonte indipendente consultata riporta questa tabella;"),
              std::string::npos)
        << fonte;
}

// One short line per source of a set of figures: the decree, the table, the
// version and the confidence; a figure from elsewhere names its source once.
TEST(ParametriSpediti, ShortSourceLines)
{
    const Catalogo& c = catalogoSpedito();
    const Tabella& tribunale = *c.trova("2022", "2");
    EXPECT_EQ(fontiBrevi(tribunale, tribunale.cifre),
              (std::vector<std::string>{
                  "D.M. 55/2014 come modificato dal D.M. 147/2022, tabella 2, versione 2022, affidabilità alta"}));
    const Tabella& penale = *c.trova("2022", "15");
    EXPECT_EQ(fontiBrevi(penale, penale.cifre),
              (std::vector<std::string>{"D.M. 55/2014 come modificato dal D.M. 147/2022, tabella 15, versione 2022, "
                                        "affidabilità bassa, non verificata"}));
    const Tabella& lavoro = *c.trova("2018", "3");
    std::vector<Cifra> mixed = lavoro.cifre;
    mixed[1].fonte = "Fonte: Studio Rossi, delibera del 2/2/2020";
    mixed[1].affidabilita = "media";
    mixed[4].fonte = mixed[1].fonte;
    mixed[4].affidabilita = "media";
    mixed[5].fonte = "File importato: correzioni.csv";
    mixed[5].affidabilita = "bassa";
    EXPECT_EQ(fontiBrevi(lavoro, mixed),
              (std::vector<std::string>{
                  "D.M. 55/2014 come modificato dal D.M. 37/2018, tabella 3, versione 2018, affidabilità alta",
                  "D.M. 55/2014 come modificato dal D.M. 37/2018, tabella 3, versione 2018, 2 cifre da «Studio Rossi, "
                  "delibera del 2/2/2020», affidabilità media",
                  "D.M. 55/2014 come modificato dal D.M. 37/2018, tabella 3, versione 2018, 1 cifra da «File "
                  "importato: correzioni.csv», affidabilità bassa"}));
    // A table an import added has no source of the decree's own.
    Tabella added;
    added.versione = "2022";
    added.numero = "25";
    added.fonte = "File importato: studio.csv";
    added.affidabilita = "media";
    added.cifre = {{std::nullopt, std::nullopt, "Compenso", Currency::fromWhole(300), added.fonte, "media"}};
    EXPECT_EQ(fontiBrevi(added, added.cifre),
              (std::vector<std::string>{"D.M. 55/2014 come modificato dal D.M. 147/2022, tabella 25, versione 2022, "
                                        "1 cifra da «File importato: studio.csv», affidabilità media"}));
}

TEST(ParametriFile, ExportReadsBackUnchanged)
{
    const std::string text = scriviFileParametri(catalogoSpedito());
    const std::vector<RigaImportata> rows = leggiFileParametri(text, "x");
    EXPECT_EQ(rows.size(), 477U + 495U + 483U);
    EXPECT_EQ(rows.front().versione, "2014");
    EXPECT_EQ(rows.front().tabella, "1");
    EXPECT_EQ(rows.front().cifra.valoreMedio, Currency::fromWhole(65));
    EXPECT_EQ(rows.front().cifra.fonte, catalogoSpedito().tabelle.front().fonte);
}

std::string fault(const std::string& text)
{
    try {
        (void)leggiFileParametri(text, "x");
    } catch (const ParametriFileError& e) {
        return e.what();
    }
    return "(nessun errore)";
}

TEST(ParametriFile, MalformedFilesAreRefusedWithLineAndColumn)
{
    const std::string header = "versione;tabella;scaglione_da;scaglione_a;fase;valore_medio;affidabilita;fonte\n";
    EXPECT_EQ(fault(""),
              "riga 1: il file è vuoto: manca l'intestazione "
              "versione;tabella;scaglione_da;scaglione_a;fase;valore_medio;affidabilita;fonte");
    EXPECT_EQ(fault("a;b\n"),
              "riga 1: l'intestazione deve essere "
              "versione;tabella;scaglione_da;scaglione_a;fase;valore_medio;affidabilita;fonte");
    EXPECT_EQ(fault(header + "2022;25;0,01;1100;Compenso;abc;alta;x\n"),
              "riga 2, colonna valore_medio: «abc» non è un importo maggiore di zero");
    EXPECT_EQ(fault(header + "2023;25;0,01;1100;Compenso;10;alta;x\n"),
              "riga 2, colonna versione: Non esiste una versione «2023» dei parametri: le versioni sono 2014, 2018 e "
              "2022");
    EXPECT_EQ(fault(header + "2022;25;1100;0,01;Compenso;10;alta;x\n"),
              "riga 2, colonna scaglione_a: lo scaglione deve finire dopo il suo inizio");
    EXPECT_EQ(fault(header + "2022;25;0,01;1100;Compenso;10;certa;x\n"),
              "riga 2, colonna affidabilita: «certa» non è un'affidabilità: alta, media o bassa");
    EXPECT_EQ(fault(header + "2022;25;0,01;1100;Compenso;10;alta;x\n2022;25;0,01;1100;Compenso;12;alta;y\n"),
              "riga 3, colonna fase: la cifra della tabella 25 (versione 2022), 0,01 - 1.100,00 €, fase «Compenso» "
              "è già in una riga precedente");
    EXPECT_EQ(fault(header + "2022;25;0,01;1100;Compenso;10\n"), "riga 2: la riga ha 6 colonne invece di 8");
    EXPECT_EQ(fault(header + "2022;25;0,01;1100;Compenso;10,123;alta;x\n"),
              "riga 2, colonna valore_medio: «10,123» non è un importo maggiore di zero");
    // A table is named by its number, "bis" after at most one blank or
    // hyphen: "-1" names no table, and is not read as table 1.
    const std::string noTable = "non è una tabella dei parametri: le tabelle sono numerate da 1 a 26, con 20-bis e "
                                "25-bis";
    for (const std::string tabella : {"-1", "1-", "--1", "2 5", "1-2", "-25-bis", "25--bis", "0", "27", "20-ter"}) {
        EXPECT_EQ(fault(header + "2022;" + tabella + ";0,01;1100;Compenso;10;alta;x\n"),
                  "riga 2, colonna tabella: «" + tabella + "» " + noTable)
            << tabella;
    }
    // Text that is not UTF-8 (a Latin-1 "à") in any cell.
    EXPECT_EQ(fault(header + "2022;25;0,01;1100;Attivit\xE0;10;alta;x\n"),
              "riga 2, colonna fase: il testo non è UTF-8 (salvare il file in UTF-8)");
    EXPECT_EQ(fault(header + "2022;25;0,01;1100;Compenso;10;alta;\xC3\n"),
              "riga 2, colonna fonte: il testo non è UTF-8 (salvare il file in UTF-8)");
}

TEST(ParametriFile, TablesAreNamedByNumberWithBisAfterOneBlankOrHyphen)
{
    EXPECT_EQ(numeroTabella("2"), "2");
    EXPECT_EQ(numeroTabella(" 25-bis "), "25-bis");
    EXPECT_EQ(numeroTabella("25 bis"), "25-bis");
    EXPECT_EQ(numeroTabella("20BIS"), "20-bis");
    EXPECT_EQ(numeroTabella("026"), "26");
    EXPECT_THROW((void)numeroTabella("-1"), ParametriError);
    EXPECT_THROW((void)numeroTabella("bis"), ParametriError);
    EXPECT_THROW((void)numeroTabella(""), ParametriError);
}

TEST(ParametriFile, ReadsAmounts)
{
    EXPECT_EQ(leggiImporto("1100,00"), Currency::fromWhole(1100));
    EXPECT_EQ(leggiImporto("0.01"), Currency::fromText("0.01"));
    EXPECT_EQ(leggiImporto(" 3544 "), Currency::fromWhole(3544));
    EXPECT_FALSE(leggiImporto("1.100,00"));
    EXPECT_FALSE(leggiImporto("12,"));
    EXPECT_FALSE(leggiImporto("-5"));
}

} // namespace
} // namespace avlor::parametri
