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

    static Outcome avlor(const std::vector<std::string>& words)
    {
        std::string command = "AVLOR_TARIFFE_DIR=" + quoted(AVLOR_TARIFFE) + " AVLOR_DB= " + quoted(AVLOR_COMMAND);
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
    EXPECT_EQ(r.out, "importo 234.0000\nMinTar  156.0000\nMaxTar  312.0000\nMinS    0.0000\nMaxS    0.0000\n");
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

TEST_F(CommandTest, LateBoundCallHelpListsItsOptions)
{
    const Outcome r = avlor({"call", "--help"});
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_NE(r.out.find("--db"), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("--json"), std::string::npos) << r.out;
}

TEST_F(CommandTest, TariffeListsTheItemsAUserPicksFrom)
{
    const Outcome r = onDemo({"tariffe", "elenca", "--tabella", "OnorariStrag2004Euro"});
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.out.rfind("1\t1.A\t1. Prestazioni di consulenza / Consultazioni orali", 0), 0u) << r.out;
    EXPECT_NE(r.out.find("\n6\t2.c\t2. Prestazioni di assistenza / Esame e studio della pratica\n"), std::string::npos);
    // Out-of-court amounts come from the engine's formulas, not from columns.
    EXPECT_EQ(r.out.substr(r.out.rfind('\n', r.out.size() - 2) + 1), "9 items, 0 with amounts\n");
}

TEST_F(CommandTest, ErrorsAreOneLineWithAFailureStatus)
{
    struct Case {
        std::vector<std::string> words;
        std::string message;
    };
    const std::vector<Case> cases = {
        {{"tariffa", "--tabella", "Onorari2005", "--id", "1", "--valore", "1", "--rilevanza", "1"},
         "avlor: error: \"Onorari2005\" is not a fee table"},
        {{"tariffa", "--tabella", "Diritti94", "--id", "1", "--valore", "12abc", "--rilevanza", "1"},
         "avlor: error: --valore: '12abc' is not a number (use a point as decimal separator)\n"},
        {{"call", "AvlorLogic.clsNessuna", "Foo"},
         "avlor: error: No class is registered under the name 'AvlorLogic.clsNessuna'\n"},
        {{"call", "AvlorLogic.clsUtenti", "Foo"},
         "avlor: error: The class AvlorLogic.clsUtenti has no operation named 'Foo'\n"},
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
              "Created the practice database " + newDatabase +
                  " with 56 official fee items in 6 tables and the sample firm.\n");
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
              "avlor: error: nessun database di pratiche in " + missing + " (per crearne uno: avlor db init " +
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
    EXPECT_EQ(r.err, "avlor: error: " + empty + " non è un database di pratiche (il file è vuoto)\n");
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
    EXPECT_EQ(onDemo({"tariffe", "elenca", "--tabella", "Diritti2004Euro"}).out, "0 items, 0 with amounts\n");
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
