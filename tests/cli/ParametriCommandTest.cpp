// avlor parametri run as a user runs it: the tables of a new practice
// database, a price on the terminal and as JSON, refusals on one line with
// status 1, and an import that a bad cell leaves without effect.
#include <filesystem>
#include <fstream>
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
