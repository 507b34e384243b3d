// avlor parametri run as a user runs it: the tables of a new practice
// database, a price on the terminal and as JSON, refusals on one line with
// status 1, and an import that a bad cell leaves without effect.
#include <filesystem>
#include <fstream>
#include <sstream>
#include <unistd.h>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "CommandRun.h"

namespace avlor {
namespace {

namespace fs = std::filesystem;

class ParametriCommand : public ::testing::Test {
protected:
    static void SetUpTestSuite()
    {
        folder = fs::temp_directory_path() / ("avlor-parametri-" + std::to_string(::getpid()));
        fs::remove_all(folder);
        fs::create_directories(folder);
        database = (folder / "studio.db").string();
        const auto init = test::runAvlor({"db", "init", database}, folder);
        ASSERT_EQ(init.status, 0) << init.err;
    }
    static void TearDownTestSuite() { fs::remove_all(folder); }

    static test::CommandOutcome run(std::vector<std::string> words)
    {
        words.insert(words.begin(), {"--db", database});
        return test::runAvlor(words, folder);
    }

    static inline fs::path folder;
    static inline std::string database;
};

const std::vector<std::string> Price = {
    "parametri", "calcola",  "--data", "15/03/2024", "--tabella",
    "2",         "--valore", "30000",  "--fasi",     "studio,introduttiva,istruttoria,decisionale"};

std::vector<std::string> with(std::vector<std::string> words, const std::vector<std::string>& more)
{
    words.insert(words.end(), more.begin(), more.end());
    return words;
}

// The line of `text` that begins with `label`, or "(assente)".
std::string lineOf(const std::string& text, const std::string& label)
{
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        if (line.rfind(label, 0) == 0)
            return line;
    }
    return "(assente)";
}

// The words of a line, blanks between them taken as one.
std::vector<std::string> wordsOf(const std::string& line)
{
    std::istringstream in(line);
    std::vector<std::string> result;
    for (std::string word; in >> word;)
        result.push_back(word);
    return result;
}

std::size_t count(const std::string& text, const std::string& what)
{
    std::size_t found = 0;
    for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + 1))
        ++found;
    return found;
}

TEST_F(ParametriCommand, ListsTheVersionsAndTables)
{
    const auto listed = run({"parametri", "tabelle", "--data", "15/03/2024", "--json"});
    ASSERT_EQ(listed.status, 0) << listed.err;
    const auto json = nlohmann::json::parse(listed.out)["risultato"]["versioni"];
    ASSERT_EQ(json.size(), 1U);
    EXPECT_EQ(json[0]["versione"], "2022");
    EXPECT_EQ(json[0]["tabelle"].size(), 25U);
    const auto all = run({"parametri", "tabelle"});
    EXPECT_NE(all.out.find("NON VERIFICATA"), std::string::npos);
}

TEST_F(ParametriCommand, PricesOnTheTerminalAndAsJson)
{
    const auto shown = run(with(Price, {"--percentuale", "istruttoria=+20"}));
    ASSERT_EQ(shown.status, 0) << shown.err;
    const auto total = shown.out.find("Totale (senza CPA e IVA)");
    ASSERT_NE(total, std::string::npos) << shown.out;
    const std::string line = shown.out.substr(total, shown.out.find('\n', total) - total);
    EXPECT_EQ(line.substr(line.find_last_of(' ') + 1), "9.173,78") << shown.out;
    const auto json = run(with(Price, {"--percentuale", "istruttoria=+20", "--clienti", "3", "--json"}));
    ASSERT_EQ(json.status, 0) << json.err;
    const auto result = nlohmann::json::parse(json.out)["risultato"];
    EXPECT_EQ(result["versione"], "2022");
    EXPECT_EQ(result["fasi"][2]["scelto"], "2167.20");
    EXPECT_EQ(result["fasi"][2]["massimo"], "2709.00");
    EXPECT_EQ(result["sommaFasi"], "7977.20");
    EXPECT_EQ(result["aumentoClienti"], "4786.32");
    EXPECT_EQ(result["speseGenerali"], "1914.53");
    EXPECT_EQ(result["totale"], "14678.05");
}

// Beside the sum of the chosen amounts, the sums of the phases at their
// minimum, average and maximum, as published tables give them.
TEST_F(ParametriCommand, SumsTheMinimaAveragesAndMaxima)
{
    const auto shown = run(with(Price, {"--percentuale", "istruttoria=+20"}));
    ASSERT_EQ(shown.status, 0) << shown.err;
    EXPECT_EQ(wordsOf(lineOf(shown.out, "Somma delle fasi")),
              (std::vector<std::string>{"Somma", "delle", "fasi", "3.808,00", "7.616,00", "11.424,00", "7.977,20"}))
        << shown.out;
    const auto json = run(with(Price, {"--percentuale", "istruttoria=+20", "--json"}));
    ASSERT_EQ(json.status, 0) << json.err;
    const auto result = nlohmann::json::parse(json.out)["risultato"];
    EXPECT_EQ(result["sommaMinimi"], "3808.00");
    EXPECT_EQ(result["sommaMedi"], "7616.00");
    EXPECT_EQ(result["sommaMassimi"], "11424.00");
    EXPECT_EQ(result["sommaFasi"], "7977.20");
}

// 15 % of 437,50 is 65,625: shown, it reads 65,63, as on an invoice.
TEST_F(ParametriCommand, ShownAmountsRoundHalvesUp)
{
    const std::vector<std::string> half = {"parametri", "calcola", "--data",        "15/03/2016",
                                           "--tabella", "2",       "--valore",      "10000",
                                           "--fasi",    "studio",  "--percentuale", "studio=-50"};
    const auto shown = run(half);
    ASSERT_EQ(shown.status, 0) << shown.err;
    EXPECT_EQ(wordsOf(lineOf(shown.out, "Compenso")).back(), "437,50") << shown.out;
    EXPECT_EQ(wordsOf(lineOf(shown.out, "Spese generali (15%)")).back(), "65,63") << shown.out;
    EXPECT_EQ(wordsOf(lineOf(shown.out, "Totale (senza CPA e IVA)")).back(), "503,13") << shown.out;
    const auto json = run(with(half, {"--json"}));
    ASSERT_EQ(json.status, 0) << json.err;
    const auto result = nlohmann::json::parse(json.out)["risultato"];
    EXPECT_EQ(result["speseGenerali"], "65.63");
    EXPECT_EQ(result["totale"], "503.13");
}

// Under a result one short line says where its figures come from; the full
// provenance only when asked for.
TEST_F(ParametriCommand, OneSourceLineAndTheFullProvenanceOnRequest)
{
    const std::string source =
        "Fonte: D.M. 55/2014 come modificato dal D.M. 147/2022, tabella 2, versione 2022, affidabilità alta";
    const auto priced = run(Price);
    ASSERT_EQ(priced.status, 0) << priced.err;
    EXPECT_EQ(lineOf(priced.out, "Fonte:"), source);
    EXPECT_EQ(count(priced.out, "Fonte:"), 1U) << priced.out;
    for (const std::string word : {"github", "commit", "blob", "foroeuropeo", "Provenienza"})
        EXPECT_EQ(priced.out.find(word), std::string::npos) << word << "\n" << priced.out;
    const auto full = run(with(Price, {"--provenienza"}));
    ASSERT_EQ(full.status, 0) << full.err;
    EXPECT_EQ(lineOf(full.out, "Fonte:"), source);
    EXPECT_NE(
        full.out.find("\nProvenienza delle cifre:\n  tabella 2, versione 2022, scaglione 26.000,01 - 52.000,00 €, "
                      "fase «Fase di studio della controversia»: 1.701,00 € (affidabilità alta)\n"),
        std::string::npos)
        << full.out;
    EXPECT_NE(full.out.find("foroeuropeo"), std::string::npos);

    const auto json = run(with(Price, {"--json"}));
    const auto result = nlohmann::json::parse(json.out)["risultato"];
    EXPECT_EQ(result["fonti"],
              nlohmann::json::array(
                  {"D.M. 55/2014 come modificato dal D.M. 147/2022, tabella 2, versione 2022, affidabilità alta"}));
    EXPECT_FALSE(result.contains("provenienza"));
    EXPECT_FALSE(result["fasi"][0].contains("provenienza"));
    const auto fullJson = nlohmann::json::parse(run(with(Price, {"--json", "--provenienza"})).out)["risultato"];
    EXPECT_NE(fullJson["provenienza"].get<std::string>().find("foroeuropeo"), std::string::npos);
    EXPECT_EQ(fullJson["fasi"][0]["provenienza"], fullJson["provenienza"]);

    const auto table = run({"parametri", "mostra", "--tabella", "3", "--versione", "2022"});
    ASSERT_EQ(table.status, 0) << table.err;
    EXPECT_EQ(lineOf(table.out, "Fonte:"),
              "Fonte: D.M. 55/2014 come modificato dal D.M. 147/2022, tabella 3, versione 2022, affidabilità media");
    EXPECT_EQ(lineOf(table.out, "Nota:"), "Nota: Coerente con le cifre 2018 x 1,05; nessuna fonte indipendente");
    EXPECT_EQ(count(table.out, "Fonte:"), 1U) << table.out;
    EXPECT_EQ(table.out.find("github"), std::string::npos) << table.out;
    const auto tableFull = run({"parametri", "mostra", "--tabella", "3", "--versione", "2022", "--provenienza"});
    ASSERT_EQ(tableFull.status, 0) << tableFull.err;
    EXPECT_NE(tableFull.out.find("\nProvenienza delle cifre:\n  Fonte: file dati di un calcolatore aperto"),
              std::string::npos)
        << tableFull.out;
    const auto tableJson =
        nlohmann::json::parse(run({"parametri", "mostra", "--tabella", "3", "--versione", "2022", "--json"}).out);
    EXPECT_EQ(tableJson["risultato"]["fonti"],
              nlohmann::json::array(
                  {"D.M. 55/2014 come modificato dal D.M. 147/2022, tabella 3, versione 2022, affidabilità media"}));
    EXPECT_FALSE(tableJson["risultato"].contains("provenienza"));
}

// The criminal table's phases are named by an authority's words; the
// README's example runs as written.
TEST_F(ParametriCommand, CriminalPhasesByTheirAuthority)
{
    const auto priced = run({"parametri", "calcola", "--data", "10/05/2019", "--tabella", "15", "--fasi",
                             "corte di assise studio,corte di assise decisionale"});
    ASSERT_EQ(priced.status, 0) << priced.err;
    EXPECT_EQ(wordsOf(lineOf(priced.out, "Corte di assise - Fase di studio")).back(), "720,00") << priced.out;
    EXPECT_EQ(wordsOf(lineOf(priced.out, "Corte di assise - Fase decisionale")).back(), "2.700,00") << priced.out;
    EXPECT_EQ(wordsOf(lineOf(priced.out, "Totale (senza CPA e IVA)")).back(), "3.933,00") << priced.out;
}

TEST_F(ParametriCommand, RefusalsAreOneLineWithStatusOne)
{
    const auto early = run(
        {"parametri", "calcola", "--data", "02/04/2014", "--tabella", "2", "--valore", "30000", "--fasi", "studio"});
    EXPECT_EQ(early.status, 1);
    EXPECT_EQ(early.err,
              "avlor: error: La data 02/04/2014 è anteriore al 3 aprile 2014, giorno in cui i parametri "
              "del D.M. 55/2014 sono entrati in vigore: quel lavoro si valuta con le tariffe storiche del "
              "1994 e del 2004 (avlor tariffe)\n");
    const auto past = run(with(Price, {"--percentuale", "studio=+51"}));
    EXPECT_EQ(past.status, 1);
    EXPECT_EQ(past.err,
              "avlor: error: L'aumento del 51% della fase «Fase di studio della controversia» supera il "
              "limite del 50% (art. 4 c.1 come modificato dal D.M. 147/2022, versione 2022)\n");
}

// The value is read as tariffa reads it: as a person means it, and never at
// a scale the person did not mean.
TEST_F(ParametriCommand, TheValueIsReadAsMeant)
{
    const std::vector<std::string> base = {"parametri", "calcola", "--data", "15/03/2024", "--tabella",
                                           "2",         "--fasi",  "studio", "--json"};
    const auto totalFor = [&](const std::string& valore) {
        std::vector<std::string> words = base;
        words.insert(words.end(), {"--valore", valore});
        const auto r = run(words);
        EXPECT_EQ(r.status, 0) << valore << ": " << r.err;
        return r.status == 0 ? nlohmann::json::parse(r.out)["risultato"]["totale"].get<std::string>() : "";
    };
    const std::string plain = totalFor("30000");
    EXPECT_EQ(totalFor("30.000,00"), plain);
    EXPECT_EQ(totalFor("30000.00"), plain);
    EXPECT_EQ(totalFor("30000,5"), plain);
    std::vector<std::string> words = base;
    words.insert(words.end(), {"--valore", "30.000"});
    const auto twoWays = run(words);
    EXPECT_EQ(twoWays.status, 1);
    EXPECT_EQ(twoWays.err,
              "avlor: error: --valore: «30.000» si può leggere in due modi: 30000 oppure 30; scrivere "
              "30000 per il primo, 30 per il secondo\n");
}

TEST_F(ParametriCommand, ValueAndIndeterminateValueTogetherAreRefused)
{
    const auto both = run(with(Price, {"--indeterminabile", "alta"}));
    EXPECT_EQ(both.status, 1);
    EXPECT_EQ(both.err, "avlor: error: Indicare il valore della causa oppure che è indeterminabile, non entrambi\n");
    const auto alone = run({"parametri", "calcola", "--data", "15/03/2024", "--tabella", "2", "--indeterminabile",
                            "alta", "--fasi", "studio,introduttiva,istruttoria,decisionale"});
    ASSERT_EQ(alone.status, 0) << alone.err;
    EXPECT_EQ(wordsOf(lineOf(alone.out, "Compenso")).back(), "14.103,00") << alone.out;
}

// An import into a database of its own says what it did, in Italian.
TEST_F(ParametriCommand, AnImportSaysWhatItDid)
{
    const std::string other = (folder / "importa.db").string();
    ASSERT_EQ(test::runAvlor({"db", "init", other}, folder).status, 0);
    const fs::path good = folder / "buono.csv";
    std::ofstream(good) << "versione;tabella;scaglione_da;scaglione_a;fase;valore_medio;affidabilita;fonte\n"
                           "2022;25;0,01;1100;Compenso;283,50;media;Studio Rossi\n"
                           "2022;2;0,01;1100;Fase decisionale;540;alta;\n";
    const auto imported = test::runAvlor({"--db", other, "parametri", "importa", good.string()}, folder);
    ASSERT_EQ(imported.status, 0) << imported.err;
    EXPECT_EQ(imported.out, "Cifre importate: 2 (sostituite 1, tabelle nuove 1)\n");
    const auto shown = test::runAvlor({"--db", other, "parametri", "mostra", "--tabella", "2"}, folder);
    EXPECT_EQ(lineOf(shown.out, "Fonte: D.M. 55/2014 come modificato dal D.M. 147/2022, tabella 2, versione 2022, 1"),
              "Fonte: D.M. 55/2014 come modificato dal D.M. 147/2022, tabella 2, versione 2022, 1 cifra da «File "
              "importato: buono.csv», affidabilità alta")
        << shown.out;
}

TEST_F(ParametriCommand, ABadImportChangesNothing)
{
    const fs::path before = folder / "prima.csv";
    ASSERT_EQ(run({"parametri", "esporta", "--output", before.string()}).status, 0);
    const fs::path bad = folder / "rotto.csv";
    std::ofstream(bad) << "versione;tabella;scaglione_da;scaglione_a;fase;valore_medio;affidabilita;fonte\n"
                          "2022;25;0,01;1100;Compenso;283,50;media;x\n"
                          "2022;2;0,01;1100;Fase decisionale;;alta;\n";
    const auto refused = run({"parametri", "importa", bad.string()});
    EXPECT_EQ(refused.status, 1);
    EXPECT_EQ(refused.err,
              "avlor: error: rotto.csv, riga 3, colonna valore_medio: «» non è un importo maggiore di zero\n");
    const fs::path after = folder / "dopo.csv";
    ASSERT_EQ(run({"parametri", "esporta", "--output", after.string()}).status, 0);
    EXPECT_EQ(test::fileText(after), test::fileText(before));
}

} // namespace
} // namespace avlor
