// avlor parcella: the fee-entry dialog driven without a screen by a script, run
// as a support person or a script runs it, against a demo practice database.
// Each step's answer line is compared field by field; the error paths end
// with exit status 2 and one line on standard error.
#include <gtest/gtest.h>

#include <sqlite3.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "CommandRun.h"

namespace {

namespace fs = std::filesystem;
using Outcome = avlor::test::CommandOutcome;
using nlohmann::json;

class ParcellaCommandTest : public ::testing::Test {
protected:
    static void SetUpTestSuite()
    {
        folder = fs::temp_directory_path() / ("avlor-parcella-" + std::to_string(::getpid()));
        fs::remove_all(folder);
        fs::create_directories(folder);
        database = (folder / "demo.db").string();
        settings = (folder / "Avlor32.ini").string();
        std::ofstream(settings) << "[Shared]\nId_Utente=3\n";
        const Outcome init = avlor({"db", "init", database, "--demo"});
        ASSERT_EQ(init.status, 0) << init.err;
    }
    static void TearDownTestSuite() { fs::remove_all(folder); }

    static Outcome avlor(const std::vector<std::string>& words, const fs::path& input = {},
                         const std::string& environment = "")
    {
        // The C locale, Debian's default: it names no number conventions, so
        // amounts are shown and read the Italian way ("1.234,50").
        avlor::test::RunOptions options;
        options.environment = "AVLOR_SETTINGS=" + avlor::test::shellQuoted(settings) + " LC_ALL=C " + environment;
        if (!input.empty())
            options.shellBefore = "exec <" + avlor::test::shellQuoted(input.string()) + ";";
        return avlor::test::runAvlor(words, folder, options);
    }

    // Runs a script (its lines given here) on case file `pratica`, with the
    // work dated 15/03/2025 and today pinned to 20/03/2025.
    static Outcome script(const std::vector<std::string>& lines, int pratica = 1, std::vector<std::string> extra = {})
    {
        const fs::path file = folder / "script.jsonl";
        std::ofstream out(file, std::ios::trunc);
        for (const auto& l : lines)
            out << l << '\n';
        out.close();
        std::vector<std::string> words = {"--db",       database,     "parcella", "--pratica",  std::to_string(pratica),
                                          "--data",     "15/03/2025", "--oggi",   "20/03/2025", "--script",
                                          file.string()};
        words.insert(words.end(), extra.begin(), extra.end());
        return avlor(words);
    }

    static std::vector<json> answers(const Outcome& run)
    {
        std::vector<json> lines;
        std::istringstream in(run.out);
        std::string line;
        while (std::getline(in, line))
            lines.push_back(json::parse(line));
        return lines;
    }

    static inline fs::path folder;
    static inline std::string database;
    static inline std::string settings;
};

TEST_F(ParcellaCommandTest, StartUpReadsTheCaseFileTheConfigurationAndTheActions)
{
    const Outcome run = script({R"({"stato": true})"}, 1, {"--parti", "Rossi / Bianchi", "--adempimento", "Udienza"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.err, "");
    const auto lines = answers(run);
    ASSERT_EQ(lines.size(), 1u);
    const json& a = lines[0];
    EXPECT_EQ(a["messaggi"], json::array());
    EXPECT_EQ(a["chiuso"], false);

    const json& form = a["form"];
    EXPECT_EQ(form["idPratica"], 1);
    EXPECT_EQ(form["sParti"], "Rossi / Bianchi");
    EXPECT_EQ(form["sAdempEff"], "Udienza");
    EXPECT_EQ(form["sData"], "15/03/2025");
    EXPECT_EQ(form["idUtenteCorrente"], 3);
    EXPECT_EQ(form["Valore"], "25000.0000");
    EXPECT_EQ(form["bIndeterminato"], false);
    EXPECT_EQ(form["Rilevanza"], 50);
    EXPECT_EQ(form["Autorita"], "Tribunale");
    EXPECT_EQ(form["ValutaPratica"], "EURO");
    EXPECT_EQ(form["CambioPratica"], "1.0000");
    EXPECT_EQ(form["ValutaDefault"], "EURO");
    EXPECT_EQ(form["CambioLiraEuro"], "1936.2700");
    // A euro firm, work dated after 2 June 2004: the 2004 rights table.
    EXPECT_EQ(form["sTabella"], "Diritti2004Euro");
    EXPECT_EQ(form["NomiCampi"],
              json({"IdAzione", "bFattura", "NOrdine", "Data", "Descr", "Quantita", "Diritti", "Onorari", "Imponibili",
                    "Esenti", "NomeUtente", "Ore", "IdEseguitoDa", "InNotaSpese"}));
    EXPECT_EQ(form["bModifica"], false);
    EXPECT_EQ(form["idAzioneCorrente"], 0);

    const json& c = a["controlli"];
    EXPECT_EQ(c["lblClienteContro"]["caption"], "Rossi / Bianchi");
    EXPECT_EQ(c["lblAdempimento"]["caption"], "Udienza");
    EXPECT_EQ(c["optDiritti"]["valore"], true);
    EXPECT_EQ(c["optOraria"]["valore"], false);
    EXPECT_EQ(c["FData"]["testo"], "15/03/2025");
    // The tariff action of 10/03/2025 holds number 1; the one of 17/03/2025
    // is later than the work date and does not count.
    EXPECT_EQ(c["FNumOrdine"]["testo"], "2");
    EXPECT_EQ(c["cmdAggiungi"]["caption"], "&Aggiungi");
    EXPECT_EQ(c["fraTempo"]["visibile"], false);
    EXPECT_EQ(c["fraMinMax"]["visibile"], true);

    // The grid: the two tariff actions in order, amounts in euro.
    const json& grid = c["GrigliaParcella"];
    ASSERT_EQ(grid["righe"].size(), 2u);
    EXPECT_EQ(grid["colonne"][7], "Onorari  ");
    EXPECT_EQ(grid["righe"][0][0], "1");
    EXPECT_EQ(grid["righe"][0][4], "Esame e studio della pratica");
    EXPECT_EQ(grid["righe"][0][7], "\xE2\x82\xAC  450,00");
    EXPECT_EQ(grid["righe"][1][7], "\xE2\x82\xAC  82,50");
    EXPECT_EQ(grid["righe"][1][10], "Avv. Rossi");
    EXPECT_EQ(form["ArrayAzioni"], grid["righe"]);

    // The performer list: every user, the current user 3 chosen.
    const json& eseguito = c["cmbEseguito"];
    EXPECT_EQ(eseguito["chiavi"], json({1, 2, 3, 4, 5}));
    EXPECT_EQ(eseguito["corrente"], 2);
}

TEST_F(ParcellaCommandTest, ChoosingAnOutOfCourtItemProposesTheAmountTimesTheQuantity)
{
    const Outcome run = script({R"({"click": "optStragiudiziale"})", R"({"imposta": "FQuantita", "valore": "2"})",
                                R"({"apri": "cmbCodice"})", R"({"scegli": "cmbCodice", "chiave": 1})"});
    ASSERT_EQ(run.status, 0) << run.err;
    const auto lines = answers(run);
    ASSERT_EQ(lines.size(), 4u);
    // The option resets the date to today and takes the 2004 out-of-court table.
    EXPECT_EQ(lines[0]["form"]["sTabella"], "OnorariStrag2004Euro");
    EXPECT_EQ(lines[0]["controlli"]["FData"]["testo"], "20/03/2025");
    const json& listed = lines[2]["controlli"]["cmbCodice"];
    EXPECT_EQ(listed["colonne"], json({"Codice", "Azione"}));
    ASSERT_FALSE(listed["righe"].empty());
    EXPECT_EQ(listed["righe"][0][0], "1.A");
    EXPECT_EQ(listed["chiavi"][0], 1);

    // 25,000 euro at relevance 50: 82.50 a unit, between 15 and 150.
    const json& chosen = lines[3];
    EXPECT_EQ(chosen["messaggi"], json::array());
    EXPECT_EQ(chosen["form"]["idTariffa"], 1);
    EXPECT_EQ(chosen["form"]["ImportoVoce"], "82.5000");
    EXPECT_EQ(chosen["controlli"]["FImporto"]["testo"], "165,00");
    EXPECT_EQ(chosen["controlli"]["FDenMinT"]["testo"], "15,00");
    EXPECT_EQ(chosen["controlli"]["FDenMaxT"]["testo"], "150,00");
    EXPECT_EQ(chosen["controlli"]["cmbCodice"]["corrente"], 0);
}

TEST_F(ParcellaCommandTest, ACriminalListWithoutAuthorityWarnsAndStillFills)
{
    // Case 3 names no authority.
    const Outcome run = script({R"({"click": "optPenale"})", R"({"apri": "cmbCodice"})"}, 3);
    ASSERT_EQ(run.status, 0) << run.err;
    const auto lines = answers(run);
    ASSERT_EQ(lines.size(), 2u);
    const json& messages = lines[1]["messaggi"];
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_EQ(messages[0]["testo"],
              "ATTENZIONE : Non e' selezionata nessuna Autorita' per la Pratica. \r"
              "Sara' impossibile calcolare in automatico l'importo degli Onorari di Tipo "
              "Penale.");
    EXPECT_EQ(messages[0]["icona"], "informazione");
    EXPECT_EQ(messages[0]["pulsanti"], json({"OK"}));
    EXPECT_EQ(messages[0]["risposta"], "OK");
    EXPECT_FALSE(lines[1]["controlli"]["cmbCodice"]["righe"].empty());
}

TEST_F(ParcellaCommandTest, HourlyAmountBelowAThousandEuroIsRoundedUpToAThousand)
{
    // User 3 bills 120 euro an hour: 1 h 30 min is 180 euro, which the
    // dialog's rounding to thousands turns into 1,000.
    const Outcome run = script({R"({"click": "optOraria"})", R"({"scegli": "cmbEseguito", "chiave": 3})",
                                R"({"imposta": "FOre", "valore": "1"})", R"({"imposta": "FMinuti", "valore": "30"})"});
    ASSERT_EQ(run.status, 0) << run.err;
    const auto lines = answers(run);
    ASSERT_EQ(lines.size(), 4u);
    EXPECT_EQ(lines[0]["controlli"]["fraTempo"]["visibile"], true);
    EXPECT_EQ(lines[0]["controlli"]["GrigliaParcella"]["colonne"][7], "Importo  ");
    EXPECT_EQ(lines[1]["form"]["TariffaEuro"], "120.0000");
    EXPECT_EQ(lines[3]["controlli"]["FImporto"]["testo"], "1.000,00");
}

TEST_F(ParcellaCommandTest, AnUnknownCaseFileClosesTheDialogAtOnceAndTheCommandFails)
{
    const Outcome run = script({R"({"stato": true})", R"({"click": "optOnorari"})"}, 999);
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err, "avlor: error: la pratica 999 non esiste nel database\n");
    const auto lines = answers(run);
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0]["chiuso"], true);
    EXPECT_EQ(lines[0]["messaggi"], json::array());
    // A closed dialog takes no more events.
    EXPECT_EQ(lines[1]["chiuso"], true);
    EXPECT_EQ(lines[1]["controlli"]["optOnorari"]["valore"], false);
}

TEST_F(ParcellaCommandTest, TheWindowIsNotOpenedOnAnUnknownCaseFile)
{
    const Outcome run = avlor({"--db", database, "parcella", "--pratica", "999"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, "avlor: error: la pratica 999 non esiste nel database\n");
}

TEST_F(ParcellaCommandTest, ThePerformersLireRatesShowTheItalianWay)
{
    const Outcome run = script({R"({"stato": true})"});
    ASSERT_EQ(run.status, 0) << run.err;
    const auto lines = answers(run);
    ASSERT_EQ(lines.size(), 1u);
    const json& eseguito = lines[0]["controlli"]["cmbEseguito"];
    EXPECT_EQ(eseguito["colonne"], json({"Utente", "TAREURO", "TARLIRE"}));
    ASSERT_EQ(eseguito["righe"].size(), 5u);
    EXPECT_EQ(eseguito["righe"][0], json({"Amministratore", "100,00", "195.000"}));
    EXPECT_EQ(eseguito["righe"][2], json({"Avv. Rossi", "120,00", "230.000"}));
}

TEST_F(ParcellaCommandTest, ReadsTheScriptFromStandardInputAndSkipsBlankLines)
{
    const fs::path input = folder / "stdin.jsonl";
    std::ofstream(input) << "\n{\"stato\": true}\n   \n{\"click\": \"optOnorari\"}\n";
    const Outcome run = avlor({"--db", database, "parcella", "--pratica", "1", "--data", "15/03/2025", "--oggi",
                               "20/03/2025", "--script", "-"},
                              input);
    ASSERT_EQ(run.status, 0) << run.err;
    const auto lines = answers(run);
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[1]["form"]["sTabella"], "Onorari2004Euro");
}

TEST_F(ParcellaCommandTest, AnUnknownControlStopsTheScriptAfterTheLinesBeforeIt)
{
    const Outcome run = script({R"({"stato": true})", R"({"click": "nonesiste"})", R"({"stato": true})"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(answers(run).size(), 1u);
    EXPECT_EQ(run.err,
              "avlor: error: riga 2: Il dialogo \"Parcellazione Adempimento\" non ha un controllo di nome "
              "\"nonesiste\"\n");
}

TEST_F(ParcellaCommandTest, MalformedLinesStopTheScriptWithOneLine)
{
    struct Case {
        const char* line;
        const char* message;
    };
    const Case cases[] = {
        {"garbage", "non è un oggetto JSON"},
        {"[1, 2]", "non è un oggetto JSON"},
        {"{}", "un passo vuole uno fra \"click\", \"imposta\", \"apri\", \"scegli\", \"stato\""},
        {R"({"click": "optOnorari", "apri": "cmbCodice"})", "un passo fa una cosa sola: \"click\" e \"apri\" insieme"},
        {R"({"click": "optOnorari", "colore": 1})", "membro sconosciuto \"colore\""},
        {R"({"click": 5})", "\"click\" vuole il nome di un controllo"},
        {R"({"imposta": "FData"})", "\"imposta\" vuole \"valore\", il testo da scrivere"},
        {R"({"scegli": "cmbCodice"})", "\"scegli\" vuole \"chiave\" oppure \"riga\""},
        {R"({"scegli": "cmbCodice", "chiave": 1, "riga": 0})", "\"scegli\" vuole \"chiave\" oppure \"riga\""},
        {R"({"scegli": "cmbCodice", "riga": "zero"})", "\"riga\" vuole un numero intero"},
        {R"({"scegli": "cmbCodice", "chiave": 99999999999})", "\"chiave\" è fuori intervallo"},
        {R"({"scegli": "GrigliaParcella", "riga": 1e400})",
         "un numero è fuori dall'intervallo che JSON può rappresentare"},
        {R"({"stato": true, "risposte": ["Forse"]})",
         "risposta sconosciuta \"Forse\" (le risposte sono OK, Annulla, Si, No)"},
        {R"({"stato": true, "risposte": "Si"})", "\"risposte\" vuole un elenco di risposte (OK, Annulla, Si, No)"},
    };
    for (const auto& c : cases) {
        const Outcome run = script({c.line});
        EXPECT_EQ(run.status, 2) << c.line;
        EXPECT_EQ(run.out, "") << c.line;
        EXPECT_EQ(run.err, std::string("avlor: error: riga 1: ") + c.message + "\n") << c.line;
    }
}

// The three buttons write; each test works on a demo database of its own so
// that the other tests keep theirs as made.
class ParcellaWritingTest : public ParcellaCommandTest {
protected:
    void SetUp() override
    {
        own = (folder /
               ("scrittura-" + std::string(::testing::UnitTest::GetInstance()->current_test_info()->name()) + ".db"))
                  .string();
        fs::remove(own);
        const Outcome init = avlor({"db", "init", own, "--demo"});
        ASSERT_EQ(init.status, 0) << init.err;
    }

    Outcome writing(const std::vector<std::string>& lines) const
    {
        const fs::path file = folder / "scrittura.jsonl";
        std::ofstream out(file, std::ios::trunc);
        for (const auto& l : lines)
            out << l << '\n';
        out.close();
        return avlor({"--db", own, "parcella", "--pratica", "1", "--data", "15/03/2025", "--oggi", "20/03/2025",
                      "--script", file.string()});
    }

    static std::vector<std::string> descriptions(const json& answer)
    {
        std::vector<std::string> result;
        for (const json& row : answer["controlli"]["GrigliaParcella"]["righe"])
            result.push_back(row[4].get<std::string>() + ":" + row[2].get<std::string>());
        return result;
    }

    // Every row of Azioni, each column as its stored type and text.
    std::vector<std::string> storedActions() const
    {
        sqlite3* db = nullptr;
        std::vector<std::string> rows;
        if (sqlite3_open_v2(own.c_str(), &db, SQLITE_OPEN_READONLY, nullptr) == SQLITE_OK) {
            sqlite3_stmt* statement = nullptr;
            sqlite3_prepare_v2(db, "SELECT * FROM Azioni ORDER BY IdAzione", -1, &statement, nullptr);
            while (statement != nullptr && sqlite3_step(statement) == SQLITE_ROW) {
                std::string row;
                for (int c = 0; c < sqlite3_column_count(statement); ++c) {
                    const unsigned char* text = sqlite3_column_text(statement, c);
                    row += std::string(sqlite3_column_name(statement, c)) + "=" +
                        std::to_string(sqlite3_column_type(statement, c)) + ":" +
                        (text != nullptr ? reinterpret_cast<const char*>(text) : "NULL") + " ";
                }
                rows.push_back(row);
            }
            sqlite3_finalize(statement);
        }
        sqlite3_close(db);
        return rows;
    }

    std::string own;
};

// Each demo action is what the dialog itself writes: loaded and changed with
// nothing touched (by its performer, user 3), its row stays as it was.
TEST_F(ParcellaWritingTest, EveryDemoActionIsStoredAsTheDialogStoresIt)
{
    const std::vector<std::string> before = storedActions();
    ASSERT_EQ(before.size(), 3u);
    const std::vector<std::vector<std::string>> presses = {
        {R"({"scegli": "GrigliaParcella", "riga": 0})", R"({"click": "cmdModifica"})"},
        {R"({"scegli": "GrigliaParcella", "riga": 1})", R"({"click": "cmdModifica"})"},
        {R"({"click": "optOraria"})", R"({"scegli": "GrigliaParcella", "riga": 0})", R"({"click": "cmdModifica"})"},
    };
    for (const auto& press : presses) {
        const Outcome run = writing(press);
        ASSERT_EQ(run.status, 0) << run.err;
        const auto lines = answers(run);
        ASSERT_EQ(lines.size(), press.size());
        EXPECT_EQ(lines.back()["messaggi"], json::array()) << press[press.size() - 2];
        EXPECT_EQ(storedActions(), before) << press[press.size() - 2];
    }
}

TEST_F(ParcellaWritingTest, AddingAtOneMovesTheOthersUp)
{
    const Outcome run =
        writing({R"({"imposta": "FNumOrdine", "valore": "1"})", R"({"imposta": "cmbVoce", "valore": "Sopralluogo"})",
                 R"({"imposta": "FImporto", "valore": "10.00"})", R"({"click": "cmdAggiungi"})"});
    ASSERT_EQ(run.status, 0) << run.err;
    const auto lines = answers(run);
    ASSERT_EQ(lines.size(), 4u);
    EXPECT_EQ(lines[3]["messaggi"], json::array());
    const std::vector<std::string> before = descriptions(lines[2]);
    ASSERT_EQ(before.size(), 2u);
    EXPECT_EQ(descriptions(lines[3]),
              (std::vector<std::string>{"Sopralluogo:1", "Esame e studio della pratica:2",
                                        before[1].substr(0, before[1].find(':')) + ":3"}));
    // Ready for the next action, proposed for today (20/03/2025): after the
    // action of 17/03/2025, now number 3.
    EXPECT_EQ(lines[3]["controlli"]["FNumOrdine"]["testo"], "4");
    EXPECT_EQ(lines[3]["controlli"]["FData"]["testo"], "20/03/2025");
}

// Under the C locale (Debian's default) an amount typed the Italian way is
// stored at the scale it is shown in, and one typed with a decimal point
// too.
TEST_F(ParcellaWritingTest, AmountsTypedTheItalianWayAreStoredAtTheirScale)
{
    const Outcome run =
        writing({R"({"scegli": "GrigliaParcella", "riga": 0})", R"({"imposta": "FImporto", "valore": "120,00"})",
                 R"({"imposta": "FEsenti", "valore": "16,00"})", R"({"imposta": "FImponibili", "valore": "2.5"})",
                 R"({"click": "cmdModifica"})", R"({"scegli": "GrigliaParcella", "riga": 0})"});
    ASSERT_EQ(run.status, 0) << run.err;
    const auto lines = answers(run);
    ASSERT_EQ(lines.size(), 6u);
    EXPECT_EQ(lines[4]["messaggi"], json::array());
    const json& row = lines[4]["controlli"]["GrigliaParcella"]["righe"][0];
    EXPECT_EQ(row[7], "\xE2\x82\xAC  120,00");
    EXPECT_EQ(row[8], "\xE2\x82\xAC  2,50");
    EXPECT_EQ(row[9], "\xE2\x82\xAC  16,00");
    const json& loaded = lines[5]["controlli"];
    EXPECT_EQ(loaded["FImporto"]["testo"], "120,00");
    EXPECT_EQ(loaded["FEsenti"]["testo"], "16,00");
    EXPECT_EQ(loaded["FImponibili"]["testo"], "2,50");
}

// An amount past what can be stored is named with its field, and the session
// goes on; only an order number past 32767 is called that.
TEST_F(ParcellaWritingTest, AnAmountPastTheLimitIsNamedWithItsField)
{
    const std::string huge = "99999999999999999999";
    const Outcome run = writing(
        {R"({"imposta": "cmbVoce", "valore": "Troppo"})", R"({"imposta": "FDenMaxT", "valore": "5,00"})",
         R"({"imposta": "FImporto", "valore": ")" + huge + R"("})", R"({"click": "cmdAggiungi"})",
         R"({"imposta": "FImporto", "valore": "10,00"})", R"({"imposta": "FEsenti", "valore": ")" + huge + R"("})",
         R"({"click": "cmdAggiungi", "risposte": ["OK"]})", R"({"stato": true})"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.err, "");
    const auto lines = answers(run);
    ASSERT_EQ(lines.size(), 8u);
    ASSERT_EQ(lines[3]["messaggi"].size(), 1u);
    EXPECT_EQ(lines[3]["messaggi"][0]["testo"],
              "ATTENZIONE : L'importo «" + huge + "» del campo Importo supera il massimo che si può registrare.");
    EXPECT_EQ(lines[3]["messaggi"][0]["icona"], "esclamazione");
    EXPECT_EQ(lines[3]["focus"], "FImporto");
    // 10 is above the maximum of 5: the question first, then the failure.
    ASSERT_EQ(lines[6]["messaggi"].size(), 2u);
    EXPECT_EQ(lines[6]["messaggi"][0]["risposta"], "OK");
    EXPECT_EQ(lines[6]["messaggi"][1]["testo"],
              "ATTENZIONE : Operazione non eseguita.\rNessuna modifica e' stata registrata.\r\rL'importo «" + huge +
                  "» del campo Spese Esenti supera il massimo che si può registrare.");
    EXPECT_EQ(lines[6]["messaggi"][1]["icona"], "critico");
    // Nothing was added.
    EXPECT_EQ(descriptions(lines[7]).size(), 2u);
}

TEST_F(ParcellaWritingTest, TheOverMaximumQuestionTakesTheScriptsAnswer)
{
    const std::string question = "ATTENZIONE : L'importo e' superiore al massimo tariffario.\r\r"
                                 "[OK]              Effettua il salvataggio\r"
                                 "[ANNULLA]   Annulla l'operazione.";
    const Outcome run = writing(
        {R"({"imposta": "FNumOrdine", "valore": "1"})", R"({"imposta": "cmbVoce", "valore": "Oltre il massimo"})",
         R"({"imposta": "FDenMaxT", "valore": "5.00"})", R"({"imposta": "FImporto", "valore": "10.00"})",
         R"({"click": "cmdAggiungi", "risposte": ["Annulla"]})", R"({"click": "cmdAggiungi", "risposte": ["OK"]})"});
    ASSERT_EQ(run.status, 0) << run.err;
    const auto lines = answers(run);
    ASSERT_EQ(lines.size(), 6u);
    ASSERT_EQ(lines[4]["messaggi"].size(), 1u);
    EXPECT_EQ(lines[4]["messaggi"][0]["testo"], question);
    EXPECT_EQ(lines[4]["messaggi"][0]["pulsanti"], json({"OK", "Annulla"}));
    EXPECT_EQ(lines[4]["messaggi"][0]["risposta"], "Annulla");
    EXPECT_EQ(descriptions(lines[4]).size(), 2u);
    EXPECT_EQ(lines[5]["messaggi"][0]["risposta"], "OK");
    EXPECT_EQ(descriptions(lines[5]).front(), "Oltre il massimo:1");
    EXPECT_EQ(descriptions(lines[5]).size(), 3u);
}

TEST_F(ParcellaWritingTest, DeletingAsksAndTakesTheAnswers)
{
    const Outcome run =
        writing({R"({"scegli": "GrigliaParcella", "riga": 0})", R"({"click": "cmdCancella", "risposte": ["No"]})",
                 R"({"scegli": "GrigliaParcella", "riga": 0})", R"({"click": "cmdCancella", "risposte": ["Si"]})"});
    ASSERT_EQ(run.status, 0) << run.err;
    const auto lines = answers(run);
    ASSERT_EQ(lines.size(), 4u);
    EXPECT_EQ(lines[1]["messaggi"][0]["testo"],
              "ATTENZIONE : Confermi la cancellazione dell'Azione \rEsame e studio della pratica ? ");
    EXPECT_EQ(lines[1]["messaggi"][0]["pulsanti"], json({"Si", "No"}));
    EXPECT_EQ(descriptions(lines[1]).size(), 2u);
    EXPECT_EQ(descriptions(lines[3]).size(), 1u);
    EXPECT_EQ(descriptions(lines[3])[0].substr(descriptions(lines[3])[0].find(':')), ":1");
}

TEST_F(ParcellaWritingTest, AnUnansweredDeleteQuestionStopsBeforeAnythingIsWritten)
{
    const Outcome run = writing({R"({"scegli": "GrigliaParcella", "riga": 0})", R"({"click": "cmdCancella"})"});
    EXPECT_EQ(run.status, 2);
    EXPECT_NE(run.err.find("riga 2: una domanda senza risposta: ATTENZIONE : Confermi la cancellazione"),
              std::string::npos)
        << run.err;
    // The database still holds both tariff actions.
    const Outcome again = writing({R"({"stato": true})"});
    ASSERT_EQ(again.status, 0) << again.err;
    EXPECT_EQ(descriptions(answers(again)[0]).size(), 2u);
}

TEST_F(ParcellaCommandTest, BadArgumentsAreRefusedWithStatusOne)
{
    const Outcome badDate =
        avlor({"--db", database, "parcella", "--pratica", "1", "--data", "31/02/2025", "--script", "-"});
    EXPECT_EQ(badDate.status, 1);
    EXPECT_EQ(badDate.err, "avlor: error: --data vuole una data GG/MM/AAAA, non \"31/02/2025\"\n");

    const Outcome noWindow = avlor({"--db", database, "parcella", "--pratica", "1", "--data", "31/02/2025"});
    EXPECT_EQ(noWindow.status, 1);
    EXPECT_EQ(noWindow.err, "avlor: error: --data vuole una data GG/MM/AAAA, non \"31/02/2025\"\n");

    const Outcome missingScript =
        avlor({"--db", database, "parcella", "--pratica", "1", "--script", (folder / "none.jsonl").string()});
    EXPECT_EQ(missingScript.status, 1);
    EXPECT_EQ(missingScript.err,
              "avlor: error: impossibile leggere lo script " + (folder / "none.jsonl").string() + "\n");

    const std::string missingDb = (folder / "missing.db").string();
    const Outcome noDatabase = avlor({"--db", missingDb, "parcella", "--pratica", "1", "--script", "-"});
    EXPECT_EQ(noDatabase.status, 1);
    EXPECT_EQ(noDatabase.err.rfind("avlor: error: nessun database delle pratiche in " + missingDb, 0), 0u)
        << noDatabase.err;
}

// Without --script the command opens the window, as a user at a desktop
// opens the fee entry from the shell.
TEST_F(ParcellaCommandTest, WithoutAScriptTheWindowOpensAndTheCommandEndsWhenItIsClosed)
{
    const Outcome run = avlor({"--db", database, "parcella", "--pratica", "1", "--parti", "Rossi / Bianchi",
                               "--adempimento", "Udienza", "--data", "15/03/2025"},
                              {}, "QT_QPA_PLATFORM=offscreen AVLOR_UI_CLOSE_AFTER_MS=300");
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out, "");
}

TEST_F(ParcellaCommandTest, WithoutAScriptAndWithoutADisplayTheCommandSaysSo)
{
    const Outcome run =
        avlor({"--db", database, "parcella", "--pratica", "1"}, {}, "DISPLAY= WAYLAND_DISPLAY= QT_QPA_PLATFORM=");
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err,
              "avlor: error: Il dialogo \"Parcellazione Adempimento\" non si può mostrare: non c'è uno schermo "
              "(DISPLAY, WAYLAND_DISPLAY e QT_QPA_PLATFORM non sono impostate).\n");
}

} // namespace
