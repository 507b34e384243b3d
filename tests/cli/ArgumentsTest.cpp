// What the avlor command does with words it cannot take: every argument
// error is one line on standard error with status 1, no word crashes it,
// and the ids of its own question verbs are whole numbers only.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "CommandRun.h"

namespace {

namespace fs = std::filesystem;
using avlor::test::CommandOutcome;

class ArgumentsTest : public ::testing::Test {
protected:
    static void SetUpTestSuite()
    {
        folder = fs::temp_directory_path() / ("avlor-arguments-" + std::to_string(::getpid()));
        fs::remove_all(folder);
        fs::create_directories(folder);
        database = (folder / "demo.db").string();
        const CommandOutcome init = avlor::test::runAvlor({"db", "init", database, "--demo"}, folder);
        ASSERT_EQ(init.status, 0) << init.err;
    }
    static void TearDownTestSuite() { fs::remove_all(folder); }

    static CommandOutcome onDemo(std::vector<std::string> words)
    {
        words.insert(words.begin(), {"--db", database});
        return avlor::test::runAvlor(words, folder);
    }

    static void expectOneLineError(const CommandOutcome& r, const std::string& line, const std::string& what)
    {
        EXPECT_EQ(r.status, 1) << what;
        EXPECT_EQ(r.out, "") << what;
        EXPECT_EQ(r.err, "avlor: error: " + line + "\n") << what;
    }

    static inline fs::path folder;
    static inline std::string database;
};

// Every verb that takes an id, with the words that put text into a statement
// or used to crash or print a library's message.
TEST_F(ArgumentsTest, EveryIdVerbTakesOnlyAWholeNumber)
{
    const std::vector<std::vector<std::string>> verbs = {
        {"utenti", "livello"},      {"utenti", "gruppi"},          {"utenti", "contabilita"},
        {"utenti", "riservatezza"}, {"utenti", "filtro-pratiche"}, {"utenti", "filtro-anagrafiche"},
        {"pratica", "clienti"},     {"pratica", "controparti"},    {"anagrafica", "giuridico"},
        {"fattura", "residuo"},
    };
    const std::string digits400(400, '7');
    const std::string digits30000(30000, '9');
    struct Word {
        std::string word;
        std::string complaint;
    };
    const std::vector<Word> words = {
        {"1 AND lo_from_bytea(0,'x'::bytea) > 0", "'1 AND lo_from_bytea(0,'x'::bytea) > 0' non è un numero intero"},
        {"1.0e999", "'1.0e999' non è un numero intero"},
        {"1.5", "'1.5' non è un numero intero"},
        {"", "'' non è un numero intero"},
        {"3)", "'3)' non è un numero intero"},
        {"2147483648", "'2147483648' è fuori intervallo (un numero intero da -2147483648 a 2147483647)"},
        {digits400,
         "'" + digits400.substr(0, 40) +
             "...' (400 characters) è fuori intervallo (un numero intero da -2147483648 a 2147483647)"},
        {digits30000,
         "'" + digits30000.substr(0, 40) +
             "...' (30000 characters) è fuori intervallo (un numero intero da -2147483648 a 2147483647)"},
    };
    for (const auto& verb : verbs) {
        for (const auto& w : words) {
            const CommandOutcome r = onDemo({verb[0], verb[1], w.word});
            expectOneLineError(r, "ID: " + w.complaint, verb[1] + " " + w.word.substr(0, 40));
        }
    }
    const CommandOutcome r = onDemo({"utenti", "in-gruppo", digits30000, "Penale"});
    expectOneLineError(r, "ID: " + words.back().complaint, "in-gruppo");
    // The limits themselves are whole numbers of 32 bits.
    EXPECT_EQ(onDemo({"pratica", "clienti", "-2147483648"}).out, "1\n");
    EXPECT_EQ(onDemo({"pratica", "clienti", "+1"}).out, "3\n");
}

TEST_F(ArgumentsTest, CallReadsAnyWordWithoutCrashing)
{
    const std::string digits30000(30000, '9');
    CommandOutcome r = onDemo({"call", "AvlorLogic.clsUtenti", "GetLivelloRiservatezza", digits30000});
    expectOneLineError(r, "il numero '" + digits30000.substr(0, 40) + "...' (30000 characters) è troppo grande",
                       "30000 digits");
    r = onDemo({"call", "AvlorLogic.clsUtenti", "GetLivelloRiservatezza", "1.0e999"});
    expectOneLineError(r, "il numero '1.0e999' è troppo grande", "1.0e999");
    r = onDemo({"call", "AvlorLogic.clsUtenti", "GetLivelloRiservatezza", std::string(400, '4')});
    expectOneLineError(r, "il numero '" + std::string(40, '4') + "...' (400 characters) è troppo grande", "400 digits");
    // A long word that is not a number is a text, read in one pass.
    r = onDemo({"call", "AvlorLogic.clsUtenti", "GetUtentiDelGruppo", std::string(30000, 'x') + "1"});
    EXPECT_EQ(r.status, 0) << r.err.substr(0, 200);
    EXPECT_EQ(r.out.rfind("{\"risultato\":[],\"argomenti\":[\"xxx", 0), 0u) << r.out.substr(0, 200);
    // A number that a double holds is still a number.
    r = onDemo({"call", "AvlorLogic.clsUtenti", "GetLivelloRiservatezza", "3.0"});
    EXPECT_EQ(r.out, "{\"risultato\":2,\"argomenti\":[3],\"messaggi\":[]}\n") << r.err;
}

TEST_F(ArgumentsTest, TextThatIsNotUtf8ReachesJsonAsLatin1)
{
    // 0xFF and 0xE0 alone are not UTF-8; as Latin-1 they are "ÿ" and "à".
    CommandOutcome r = onDemo({"call", "AvlorLogic.clsUtenti", "GetUtentiDelGruppo", "\xff"});
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.out, "{\"risultato\":[],\"argomenti\":[\"\xc3\xbf\"],\"messaggi\":[]}\n");
    // Valid UTF-8 passes unchanged.
    r = onDemo({"call", "AvlorLogic.clsUtenti", "GetUtentiDelGruppo", "Attivit\xc3\xa0"});
    EXPECT_EQ(r.out, "{\"risultato\":[],\"argomenti\":[\"Attivit\xc3\xa0\"],\"messaggi\":[]}\n");
    r = onDemo({"utenti", "membri", "\xe0", "--json"});
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.out, "{\"risultato\":[]}\n");
}

TEST_F(ArgumentsTest, ArgumentErrorsAreOneLineWithStatusOne)
{
    const std::vector<std::vector<std::string>> cases = {
        {"tariffa", "--tabella", "Diritti94"},
        {"tariffa", "--tabella", "Diritti94", "--id", "1", "--valore", "1", "--rilevanza", "abc"},
        {"db", "versione", "--nessuna"},
        {"utenti"},
        {"nessuno"},
        {"pratica", "clienti"},
        {"pratica", "clienti", "1", "2"},
    };
    for (const auto& words : cases) {
        const CommandOutcome r = onDemo(words);
        EXPECT_EQ(r.status, 1) << words[0] << ": " << r.err;
        EXPECT_EQ(r.out, "");
        EXPECT_EQ(r.err.rfind("avlor: error: ", 0), 0u) << r.err;
        EXPECT_EQ(std::count(r.err.begin(), r.err.end(), '\n'), 1) << r.err;
    }
    // --help still answers with status 0.
    const CommandOutcome help = onDemo({"tariffa", "--help"});
    EXPECT_EQ(help.status, 0);
    EXPECT_NE(help.out.find("--rilevanza"), std::string::npos);
}

TEST_F(ArgumentsTest, TariffaRefusesRelevanceOutsideZeroToHundred)
{
    for (const std::string rilevanza : {"-1000", "-1", "101", "32767"}) {
        const CommandOutcome r = onDemo(
            {"tariffa", "--tabella", "Diritti94", "--id", "132", "--valore", "1000000", "--rilevanza", rilevanza});
        expectOneLineError(r, "--rilevanza: " + rilevanza + " è fuori dall'intervallo da 0 (minimo) a 100 (massimo)",
                           rilevanza);
    }
    for (const std::string rilevanza : {"0", "100"}) {
        const CommandOutcome r = onDemo(
            {"tariffa", "--tabella", "Diritti94", "--id", "132", "--valore", "1000000", "--rilevanza", rilevanza});
        EXPECT_EQ(r.status, 0) << r.err;
    }
}

TEST_F(ArgumentsTest, TariffaRefusesMoreThanFourDecimals)
{
    for (const std::string valore : {"1.00001", "5200.123456", "0.00000"}) {
        const CommandOutcome r = onDemo(
            {"tariffa", "--tabella", "OnorariStrag2004Euro", "--id", "10", "--valore", valore, "--rilevanza", "50"});
        expectOneLineError(
            r, "--valore: «" + valore + "» ha più di quattro decimali: gli importi si tengono esatti al decimillesimo",
            valore);
    }
    const CommandOutcome r = onDemo(
        {"tariffa", "--tabella", "OnorariStrag2004Euro", "--id", "10", "--valore", "5200.0000", "--rilevanza", "50"});
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.out.rfind("importo 234,00 \u20AC\n", 0), 0u) << r.out;
}

TEST_F(ArgumentsTest, TariffaSaysWhenAFigureOverflows)
{
    // Item 10 of the 1994 out-of-court table in lire rounds a figure to a
    // 32-bit whole number of lire; a large value does not fit it.
    for (const std::string id : {"10", "11", "12"}) {
        const CommandOutcome r = onDemo(
            {"tariffa", "--tabella", "OnorariStrag94", "--id", id, "--valore", "922337203685", "--rilevanza", "100"});
        EXPECT_EQ(r.status, 1) << r.out;
        EXPECT_EQ(r.out, "");
        EXPECT_EQ(r.err.rfind("avlor: error: le cifre superano l'intervallo degli importi (Overflow: ", 0), 0u)
            << r.err;
        EXPECT_EQ(std::count(r.err.begin(), r.err.end(), '\n'), 1) << r.err;
    }
    const CommandOutcome r = onDemo(
        {"tariffa", "--tabella", "OnorariStrag94", "--id", "10", "--valore", "922337203685", "--rilevanza", "100"});
    EXPECT_EQ(r.err,
              "avlor: error: le cifre superano l'intervallo degli importi (Overflow: 9298322037 non rientra in un "
              "numero intero a 32 bit)\n");
}

// A server location written with its "@host" left out: libpq reads the
// password as a port, and no message shows it.
TEST_F(ArgumentsTest, APasswordWrittenWithoutTheHostIsNeverShown)
{
    for (const std::string location : {"postgresql://studio:Secr3tPw", "postgresql://studio:Secr3tPw/pratiche",
                                       "postgres://studio:Secr3tPw?sslmode=disable"}) {
        for (const std::vector<std::string>& words : {std::vector<std::string>{"--db", location, "db", "versione"},
                                                      {"--db", location, "tariffe", "elenca", "--tabella", "Diritti94"},
                                                      {"db", "init", location}}) {
            const CommandOutcome r = avlor::test::runAvlor(words, folder);
            EXPECT_EQ(r.status, 1) << location;
            EXPECT_EQ(r.err.find("Secr3tPw"), std::string::npos) << r.err;
            EXPECT_NE(r.err.find("studio:***"), std::string::npos) << r.err;
        }
    }
}

} // namespace
