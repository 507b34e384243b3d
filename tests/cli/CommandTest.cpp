// The avlor command against a demo practice database: exact printed amounts
// and texts, the JSON forms other tools rely on, and the error paths.
#include <gtest/gtest.h>

#include <sys/wait.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include <nlohmann/json.hpp>

namespace {

namespace fs = std::filesystem;

struct Outcome {
    int status = -1;
    std::string out; // standard output
    std::string err; // standard error
};

std::string quoted(const std::string& word)
{
    std::string q = "'";
    for (char c : word) {
        if (c == '\'')
            q += "'\\''";
        else
            q += c;
    }
    return q + "'";
}

std::string readFile(const fs::path& p)
{
    std::ifstream in(p, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

class CommandTest : public ::testing::Test {
protected:
    static void SetUpTestSuite()
    {
        folder = fs::temp_directory_path() / ("avlor-cli-" + std::to_string(::getpid()));
        fs::remove_all(folder);
        fs::create_directories(folder);
        database = (folder / "demo.db").string();
        const Outcome init = avlor({"db", "init", database, "--demo"});
        ASSERT_EQ(init.status, 0) << init.err;
    }
    static void TearDownTestSuite() { fs::remove_all(folder); }

    static Outcome avlor(const std::vector<std::string>& words, const std::string& environment = "")
    {
        std::string command =
            environment + " AVLOR_TARIFFE_DIR=" + quoted(AVLOR_TARIFFE) + " AVLOR_DB= " + quoted(AVLOR_COMMAND);
        for (const auto& w : words)
            command += " " + quoted(w);
        const fs::path errFile = folder / "stderr.txt";
        command += " 2>" + quoted(errFile.string());
        Outcome run;
        FILE* pipe = ::popen(command.c_str(), "r");
        if (!pipe)
            return run;
        std::array<char, 4096> buffer{};
        std::size_t n = 0;
        while ((n = std::fread(buffer.data(), 1, buffer.size(), pipe)) > 0)
            run.out.append(buffer.data(), n);
        const int raw = ::pclose(pipe);
        run.status = WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
        run.err = readFile(errFile);
        return run;
    }

    static Outcome onDemo(std::vector<std::string> words)
    {
        words.insert(words.begin(), {"--db", database});
        return avlor(words);
    }

    static inline fs::path folder;
    static inline std::string database;
};

TEST_F(CommandTest, PricesTheFixedRightsItemAsCalcolaTariffa)
{
    // 15,000 + 35,000 x 37 / 100 = 27,950 lire, rounded up to 30,000.
    const Outcome r = onDemo(
        {"tariffa", "--tabella", "Diritti94", "--id", "132", "--valore", "1000000", "--rilevanza", "37", "--json"});
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.out,
              "{\"importo\":\"30000.0000\",\"MinTar\":\"15000.0000\",\"MaxTar\":\"50000.0000\","
              "\"MinS\":\"0.0000\",\"MaxS\":\"0.0000\",\"messaggio\":null}\n");
}

TEST_F(CommandTest, PricesAnOutOfCourtItemWithADecimalValue)
{
    const Outcome r = onDemo(
        {"tariffa", "--tabella", "OnorariStrag2004Euro", "--id", "10", "--valore", "5200.00", "--rilevanza", "50"});
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.out,
              "importo 234,00 \u20AC\nMinTar  156,00 \u20AC\nMaxTar  312,00 \u20AC\nMinS    0,00 \u20AC\n"
              "MaxS    0,00 \u20AC\n");
}

TEST_F(CommandTest, ShowsTheAttenzioneMessageWhenNothingIsProposed)
{
    const Outcome r = onDemo({"tariffa", "--tabella", "OnorariStrag2004Euro", "--id", "99", "--valore", "1000",
                              "--rilevanza", "50", "--json"});
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.out,
              "{\"importo\":\"0.0000\",\"MinTar\":\"0.0000\",\"MaxTar\":\"0.0000\",\"MinS\":\"0.0000\","
              "\"MaxS\":\"0.0000\",\"messaggio\":\" codice <> non previsto per una pratica di questo "
              "valore.\\rNessun valore proposto.\"}\n");
}

TEST_F(CommandTest, PricesACriminalItemByAuthority)
{
    // Item 1.1 of the 1994 criminal table, 15,000-25,000 lire; halfway
    // 20,000 stays a multiple of 5,000 lire.
    const Outcome r = onDemo({"tariffa", "--tabella", "OnorariPenali94", "--id", "1", "--valore", "0", "--rilevanza",
                              "50", "--autorita", "Tribunale", "--json"});
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.out,
              "{\"importo\":\"20000.0000\",\"MinTar\":\"15000.0000\",\"MaxTar\":\"25000.0000\","
              "\"MinS\":\"0.0000\",\"MaxS\":\"0.0000\",\"messaggio\":null}\n");
}

TEST_F(CommandTest, UsersQuestionsAndFilters)
{
    EXPECT_EQ(onDemo({"utenti", "livello", "3", "--json"}).out, "{\"risultato\":2}\n");
    EXPECT_EQ(onDemo({"utenti", "gruppi", "5", "--json"}).out, "{\"risultato\":[\"AMMINISTRAZIONE\",\"Penale\"]}\n");
    EXPECT_EQ(onDemo({"utenti", "membri", "Civile", "--json"}).out, "{\"risultato\":[3,4]}\n");
    EXPECT_EQ(onDemo({"utenti", "contabilita", "5", "--json"}).out, "{\"risultato\":true}\n");
    EXPECT_EQ(onDemo({"utenti", "in-gruppo", "4", "Penale", "--json"}).out, "{\"risultato\":false}\n");
    EXPECT_EQ(onDemo({"utenti", "riservatezza", "3", "--json"}).out, "{\"risultato\":\"(0,3,4)\"}\n");
    // Level 4 leaves AMMINISTRAZIONE out: only Penale's members 2 and 5.
    EXPECT_EQ(onDemo({"utenti", "riservatezza", "5"}).out, "(0,2,5)\n");
    EXPECT_EQ(onDemo({"utenti", "filtro-pratiche", "3"}).out,
              "((Id_Riservata IN (0,3))  AND (fk_Gruppo IS NULL))  OR ((Id_Riservata=0) AND (fk_Gruppo IN "
              "('Civile')))\n");
    EXPECT_EQ(onDemo({"utenti", "filtro-anagrafiche", "4", "--json"}).out,
              "{\"risultato\":\"(IdRiservata IN (0,4) OR (fkGruppo  IN ('Civile')))\"}\n");
    EXPECT_EQ(onDemo({"utenti", "filtro-pratiche", "2"}).out, "1=1\n");
}

TEST_F(CommandTest, CaseFilePersonInvoiceAndVersion)
{
    EXPECT_EQ(onDemo({"pratica", "clienti", "1", "--json"}).out, "{\"risultato\":3}\n");
    EXPECT_EQ(onDemo({"pratica", "controparti", "1", "--json"}).out, "{\"risultato\":2}\n");
    EXPECT_EQ(onDemo({"pratica", "clienti", "2"}).out, "1\n");
    EXPECT_EQ(onDemo({"anagrafica", "giuridico", "1", "--json"}).out, "{\"risultato\":false}\n");
    EXPECT_EQ(onDemo({"anagrafica", "giuridico", "2", "--json"}).out, "{\"risultato\":true}\n");
    EXPECT_EQ(onDemo({"fattura", "residuo", "1", "--json"}).out, "{\"risultato\":\"1250.5000\"}\n");
    EXPECT_EQ(onDemo({"fattura", "residuo", "99", "--json"}).out, "{\"risultato\":null}\n");
    EXPECT_EQ(onDemo({"fattura", "residuo", "1"}).out, "1.250,50\n");
    EXPECT_EQ(onDemo({"db", "versione", "--json"}).out, "{\"risultato\":1}\n");
}

TEST_F(CommandTest, LateBoundCallShowsResultArgumentsAndMessages)
{
    Outcome r = onDemo({"call", "AvlorLogic.clsUtenti", "GetSqlFiltroPratiche", "5"});
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.out,
              "{\"risultato\":\"((Id_Riservata IN (0,5))  AND (fk_Gruppo IS NULL))  OR ((Id_Riservata=0) AND "
              "(fk_Gruppo IN ('AMMINISTRAZIONE','Penale')))\",\"argomenti\":[5],\"messaggi\":[]}\n");

    r = onDemo({"call", "AvlorLogic.ClsParcella", "CalcolaTariffa", "5200", "50", "OnorariStrag2004Euro", "0", "11",
                "0", "0", "0", "0", "--text", ""});
    EXPECT_EQ(r.status, 0) << r.err;
    // Item 11 halves the band of item 10: 78-156, halfway 117.
    EXPECT_EQ(r.out,
              "{\"risultato\":\"117.0000\",\"argomenti\":[\"5200.0000\",50,\"OnorariStrag2004Euro\",false,11,"
              "\"78.0000\",\"156.0000\",\"0.0000\",\"0.0000\",\"\"],\"messaggi\":[]}\n");

    r = onDemo({"call", "AvlorLogic.ClsParcella", "CalcolaTariffa", "5200", "50", "OnorariStrag2004Euro", "0", "99",
                "0", "0", "0", "0", "null"});
    EXPECT_EQ(r.out,
              "{\"risultato\":\"0.0000\",\"argomenti\":[\"5200.0000\",50,\"OnorariStrag2004Euro\",false,99,"
              "\"0.0000\",\"0.0000\",\"0.0000\",\"0.0000\",\"\"],\"messaggi\":[\" codice <> non previsto per "
              "una pratica di questo valore.\\rNessun valore proposto.\"]}\n");

    // --text keeps a number as text.
    r = onDemo({"call", "AvlorLogic.clsUtenti", "GetUtentiDelGruppo", "--text", "Civile"});
    EXPECT_EQ(r.out, "{\"risultato\":[3,4],\"argomenti\":[\"Civile\"],\"messaggi\":[]}\n");
    r = onDemo({"call", "AvlorLogic.clsUtenti", "GetSqlRiservatezza", "--text", "3"});
    EXPECT_EQ(r.out, "{\"risultato\":\"(0,3,4)\",\"argomenti\":[\"3\"],\"messaggi\":[]}\n");
}

TEST_F(CommandTest, LateBoundCallTakesTheDatabaseAfterTheCommandName)
{
    const Outcome r = avlor({"call", "--db", database, "--json", "AvlorLogic.clsUtenti", "GetSqlRiservatezza", "3"});
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.out, "{\"risultato\":\"(0,3,4)\",\"argomenti\":[3],\"messaggi\":[]}\n");
    const Outcome joined = avlor({"call", "--db=" + database, "AvlorLogic.clsDataBase", "VersioneMdb"});
    EXPECT_EQ(joined.status, 0) << joined.err;
    EXPECT_EQ(joined.out, "{\"risultato\":1,\"argomenti\":[],\"messaggi\":[]}\n");
}

// An id that names nothing still gets the class's fallback, and a warning.
TEST_F(CommandTest, QuestionsWarnWhenTheIdNamesNothing)
{
    const Outcome clienti = onDemo({"pratica", "clienti", "99"});
    EXPECT_EQ(clienti.status, 0);
    EXPECT_EQ(clienti.out, "1\n");
    EXPECT_EQ(clienti.err, "avlor: avviso: la pratica 99 non esiste nel database\n");
    const Outcome livello = onDemo({"utenti", "livello", "77", "--json"});
    EXPECT_EQ(livello.out, "{\"risultato\":1}\n");
    EXPECT_EQ(livello.err, "avlor: avviso: l'utente 77 non esiste nel database\n");
    EXPECT_EQ(onDemo({"anagrafica", "giuridico", "9"}).err, "avlor: avviso: l'anagrafica 9 non esiste nel database\n");
    EXPECT_EQ(onDemo({"fattura", "residuo", "-4"}).err, "avlor: avviso: la fattura -4 non esiste nel database\n");
    EXPECT_EQ(onDemo({"utenti", "in-gruppo", "0", "Civile"}).err,
              "avlor: avviso: l'utente 0 non esiste nel database\n");
    // Ids that exist say nothing more.
    EXPECT_EQ(onDemo({"pratica", "clienti", "1"}).err, "");
    EXPECT_EQ(onDemo({"fattura", "residuo", "2"}).err, "");
}

TEST_F(CommandTest, AMissingOrMistypedCommandListsTheCommands)
{
    const std::string all = "db, tariffa, tariffe, utenti, pratica, anagrafica, fattura, call, parcella, parametri";
    const Outcome none = avlor({});
    EXPECT_EQ(none.status, 1);
    EXPECT_EQ(none.err, "avlor: error: avlor vuole un comando: " + all + " (avlor --help per l'aiuto)\n");
    const Outcome typo = avlor({"tariff"});
    EXPECT_EQ(typo.status, 1);
    EXPECT_EQ(typo.err,
              "avlor: error: comando sconosciuto «tariff»: forse «tariffa»? I comandi di avlor sono: " + all +
                  " (avlor --help per l'aiuto)\n");
    const Outcome group = onDemo({"utenti"});
    EXPECT_EQ(group.status, 1);
    EXPECT_EQ(group.err,
              "avlor: error: avlor utenti vuole un comando: livello, gruppi, membri, contabilita, in-gruppo, corrente, "
              "riservatezza, filtro-pratiche, filtro-anagrafiche (avlor utenti --help per l'aiuto)\n");
    const Outcome far = onDemo({"utenti", "zzzzzz"});
    EXPECT_EQ(far.err.rfind("avlor: error: comando sconosciuto «zzzzzz». I comandi di avlor utenti sono: livello,", 0),
              0u)
        << far.err;
}

TEST_F(CommandTest, EveryCommandsHelpShowsTheSharedOptionsAndTheDefaultDatabase)
{
    for (const std::vector<std::string>& words : {std::vector<std::string>{"--help"},
                                                  {"tariffa", "--help"},
                                                  {"utenti", "livello", "--help"},
                                                  {"tariffe", "elenca", "--help"},
                                                  {"parcella", "--help"},
                                                  {"db", "init", "--help"}}) {
        const Outcome r = avlor(words, "XDG_DATA_HOME=/srv/dati");
        EXPECT_EQ(r.status, 0) << r.err;
        EXPECT_NE(r.out.find("--db"), std::string::npos) << words[0];
        EXPECT_NE(r.out.find("--json"), std::string::npos) << words[0];
        EXPECT_NE(r.out.find("/srv/dati/avlor/avlor.db"), std::string::npos) << r.out;
        EXPECT_EQ(r.out.find(".local/share"), std::string::npos) << r.out;
    }
    const Outcome id = avlor({"pratica", "clienti", "--help"});
    EXPECT_NE(id.out.find("Id del record (Pratica.ID_Pra), numero intero"), std::string::npos) << id.out;
}

TEST_F(CommandTest, LateBoundCallListsTheClassesTheirOperationsAndArguments)
{
    const Outcome all = avlor({"call", "--elenco"});
    EXPECT_EQ(all.status, 0) << all.err;
    EXPECT_EQ(all.out.rfind("AvlorLogic.ClsParcella\n"
                            "  ShowDialogParcellazione(IdPratica, aszParti, aszAdempimento, aData)\n"
                            "  CalcolaTariffa(cValore, vRil, sTabella, bInd, idTariffa, MinTar, MaxTar, MinS, MaxS, "
                            "Autorita)\n"
                            "AvlorLogic.clsUtenti\n"
                            "  GetSqlRiservatezza(alIdUtente)\n",
                            0),
              0u)
        << all.out;
    EXPECT_NE(all.out.find("\nAvlorLogic.clsDataBase\n  VersioneMdb()\n"), std::string::npos) << all.out;
    EXPECT_NE(all.out.find("\nAvlorLogic.clsParametri\n  Calcola(Data, Tabella, Valore, Fasi, Percentuali, Clienti)\n"),
              std::string::npos)
        << all.out;
    const Outcome one = avlor({"call", "--json", "--elenco", "avlorlogic.clsfatture"});
    EXPECT_EQ(one.status, 0) << one.err;
    EXPECT_EQ(one.out,
              "{\"risultato\":[{\"classe\":\"AvlorLogic.clsFatture\",\"operazioni\":[{\"nome\":"
              "\"GetResiduoFattura\",\"argomenti\":[\"avIdFattura\"]}]}]}\n");
    const Outcome unknown = avlor({"call", "--elenco", "AvlorLogic.clsNessuna"});
    EXPECT_EQ(unknown.status, 1);
    EXPECT_EQ(unknown.err.rfind("avlor: error: Nessuna classe è registrata col nome 'AvlorLogic.clsNessuna' (le "
                                "classi: AvlorLogic.ClsParcella, ",
                                0),
              0u)
        << unknown.err;
}

TEST_F(CommandTest, LateBoundCallHelpListsItsOptions)
{
    const Outcome r = avlor({"call", "--help"});
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_NE(r.out.find("--db"), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("--json"), std::string::npos) << r.out;
}

// What the shipped Diritti2004Euro lists: no row, the fixed item the engine
// prices.
const std::string EmptyRights2004 = "Id\tCodice\tDescrizione\tImporti\n"
                                    "391\t\tvoce fissa: fascia stabilita dalla tariffa\tregole\n"
                                    "Diritti2004Euro: voci 1; con importi dalla tabella 0; dalle regole del "
                                    "programma 1; senza importi 0\n";

TEST_F(CommandTest, TariffeListsEverythingTheEnginePrices)
{
    // The shipped lire rights table has no row; item 132 prices all the same.
    const Outcome r = onDemo({"tariffe", "elenca", "--tabella", "Diritti94"});
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.out,
              "Id\tCodice\tDescrizione\tImporti\n"
              "132\t\tvoce fissa: fascia stabilita dalla tariffa\tregole\n"
              "Diritti94: voci 1; con importi dalla tabella 0; dalle regole del programma 1; senza importi 0\n");
    const Outcome civil = onDemo({"--json", "tariffe", "elenca", "--tabella", "Onorari2004Euro"});
    EXPECT_EQ(civil.status, 0) << civil.err;
    const auto listed = nlohmann::json::parse(civil.out)["risultato"];
    EXPECT_EQ(listed["dallaTabella"], 11);
    EXPECT_EQ(listed["dalleRegole"], 1);
    EXPECT_EQ(listed["voci"].back()["Id"], 62);
    EXPECT_EQ(listed["voci"].back()["importi"], "regole");
    EXPECT_EQ(listed["voci"][0]["importi"], "tabella");
}

TEST_F(CommandTest, TariffeListsTheItemsAUserPicksFrom)
{
    const Outcome r = onDemo({"tariffe", "elenca", "--tabella", "OnorariStrag2004Euro"});
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(
        r.out.rfind("Id\tCodice\tDescrizione\tImporti\n1\t1.A\t1. Prestazioni di consulenza / Consultazioni orali", 0),
        0u)
        << r.out;
    EXPECT_NE(r.out.find("\n6\t2.c\t2. Prestazioni di assistenza / Esame e studio della pratica\tregole\n"),
              std::string::npos);
    // Items 10 to 13 have no row: the engine prices them by its own rules.
    EXPECT_NE(r.out.find("\n10\t\tfascia a percentuale del valore\tregole\n"
                         "11\t\tmetà della fascia a percentuale del valore\tregole\n"
                         "12\t\tfascia a percentuale del valore\tregole\n"
                         "13\t\tfascia fissa\tregole\n"),
              std::string::npos)
        << r.out;
    // Out-of-court amounts come from the engine's formulas, not from columns.
    EXPECT_EQ(r.out.substr(r.out.rfind('\n', r.out.size() - 2) + 1),
              "OnorariStrag2004Euro: voci 13; con importi dalla tabella 0; dalle regole del programma 13; senza "
              "importi 0\n");
}

TEST_F(CommandTest, ErrorsAreOneLineWithAFailureStatus)
{
    struct Case {
        std::vector<std::string> words;
        std::string message;
    };
    const std::vector<Case> cases = {
        {{"tariffa", "--tabella", "Onorari2005", "--id", "1", "--valore", "1", "--rilevanza", "1"},
         "avlor: error: \"Onorari2005\" non è una tabella delle tariffe (le tabelle sono Diritti94, "},
        {{"tariffa", "--tabella", "Diritti94", "--id", "1", "--valore", "12abc", "--rilevanza", "1"},
         "avlor: error: --valore: «12abc» non è un importo: scriverlo per esempio 30000, 30000,50 o 30.000,50\n"},
        {{"call", "AvlorLogic.clsNessuna", "Foo"},
         "avlor: error: Nessuna classe è registrata col nome 'AvlorLogic.clsNessuna' (le classi: AvlorLogic."},
        {{"call", "AvlorLogic.clsUtenti", "Foo"},
         "avlor: error: La classe AvlorLogic.clsUtenti non ha un'operazione di nome 'Foo' (le sue operazioni: "
         "GetSqlRiservatezza, "},
    };
    for (const auto& c : cases) {
        const Outcome r = onDemo(c.words);
        EXPECT_EQ(r.status, 1) << c.words[0];
        EXPECT_EQ(r.out, "");
        EXPECT_EQ(r.err.rfind(c.message, 0), 0u) << r.err;
        EXPECT_EQ(std::count(r.err.begin(), r.err.end(), '\n'), 1) << r.err;
    }
}

// A build placed anywhere makes a database: the figures are inside the
// program. Here the program is copied out of the source tree and run from
// another folder, with nothing in the environment pointing back at the tree.
TEST_F(CommandTest, AProgramOutsideTheSourceTreeMakesADatabaseWithTheFigures)
{
    const fs::path elsewhere = folder / "elsewhere";
    fs::create_directories(elsewhere);
    fs::copy_file(AVLOR_COMMAND, elsewhere / "avlor", fs::copy_options::overwrite_existing);
    const std::string newDatabase = (elsewhere / "new.db").string();
    const std::string command = "cd " + quoted(elsewhere.string()) +
        " && env -u AVLOR_TARIFFE_DIR -u AVLOR_SOURCE_DIR AVLOR_DB= ./avlor db init " + quoted(newDatabase) +
        " --demo 2>&1";
    FILE* pipe = ::popen(command.c_str(), "r");
    ASSERT_NE(pipe, nullptr);
    std::string out;
    std::array<char, 4096> buffer{};
    for (std::size_t n = 0; (n = std::fread(buffer.data(), 1, buffer.size(), pipe)) > 0;)
        out.append(buffer.data(), n);
    const int raw = ::pclose(pipe);
    EXPECT_TRUE(WIFEXITED(raw) && WEXITSTATUS(raw) == 0) << out;
    EXPECT_EQ(out,
              "Creato il database delle pratiche " + newDatabase +
                  " con 56 voci delle tariffe ufficiali in 6 tabelle e lo studio di prova.\n");
}

// A file: URI names its file with percent escapes, as SQLite reads it.
TEST_F(CommandTest, AFileUriWithEscapesNamesItsFile)
{
    const fs::path spaced = folder / "studio legale.db";
    fs::copy_file(database, spaced, fs::copy_options::overwrite_existing);
    const Outcome r = avlor({"--db", "file://" + (folder / "studio%20legale.db").string(), "db", "versione"});
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.out, "1\n");
}

TEST_F(CommandTest, AMissingDatabaseIsReportedAndNotCreated)
{
    const std::string missing = (folder / "missing.db").string();
    const Outcome r = avlor({"--db", missing, "db", "versione"});
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.err,
              "avlor: error: nessun database delle pratiche in " + missing + " (per crearne uno: avlor db init " +
                  missing + ")\n");
    EXPECT_FALSE(fs::exists(missing));
}

TEST_F(CommandTest, ADatabaseWithoutTheSchemaIsReported)
{
    const std::string empty = (folder / "empty.db").string();
    {
        std::ofstream touch(empty);
    }
    const Outcome r = avlor({"--db", empty, "pratica", "clienti", "1"});
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.err, "avlor: error: " + empty + " non è un database delle pratiche (il file è vuoto)\n");
    EXPECT_EQ(fs::file_size(empty), 0u);
}

TEST_F(CommandTest, InitRefusesToOverwriteAnExistingDatabase)
{
    const auto before = readFile(database);
    const Outcome r = avlor({"db", "init", database});
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.err.rfind("avlor: error: ", 0), 0u);
    EXPECT_EQ(readFile(database), before);
}

TEST_F(CommandTest, ImportOfABadFileChangesNothing)
{
    const fs::path file = folder / "bad.csv";
    {
        std::ofstream out(file);
        out << "Id,CodiceTariffa,Azione,VALORESCA1\n1,\"1\",\"Voce uno\",\"10,50\"\n2,\"2\",\"Voce due\",abc\n";
    }
    const Outcome r = onDemo({"tariffe", "importa", "--tabella", "Diritti2004Euro", file.string()});
    EXPECT_EQ(r.status, 1);
    EXPECT_NE(r.err.find("VALORESCA1"), std::string::npos) << r.err;
    EXPECT_EQ(onDemo({"tariffe", "elenca", "--tabella", "Diritti2004Euro"}).out, EmptyRights2004);
}

TEST_F(CommandTest, ExportThenImportIsLossless)
{
    const Outcome exported = onDemo({"tariffe", "esporta", "--tabella", "Onorari2004Euro"});
    ASSERT_EQ(exported.status, 0) << exported.err;
    const fs::path file = folder / "onorari.csv";
    {
        std::ofstream out(file, std::ios::binary);
        out << exported.out;
    }
    const Outcome imported = onDemo({"tariffe", "importa", "--tabella", "Onorari2004Euro", file.string()});
    EXPECT_EQ(imported.status, 0) << imported.err;
    EXPECT_EQ(onDemo({"tariffe", "esporta", "--tabella", "Onorari2004Euro"}).out, exported.out);
}

} // namespace
