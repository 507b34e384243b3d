// The avlor command on a PostgreSQL server: "db init" makes a practice
// database in an empty database and refuses one that holds tables, and the
// commands read it as they read a SQLite file, down to the bytes of a
// fee-table export.
#include <gtest/gtest.h>

#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "ServerSupport.h"
#include "TestDatabase.h"

namespace avlor::test {
namespace {

namespace fs = std::filesystem;

struct Outcome {
    int status = -1;
    std::string out;
    std::string err;
};

std::string quoted(const std::string& word)
{
    std::string q = "'";
    for (const char c : word) {
        q += c == '\'' ? std::string("'\\''") : std::string(1, c);
    }
    return q + "'";
}

class ServerCommand : public testing::Test {
protected:
    Outcome avlor(const std::vector<std::string>& words) const
    {
        std::string command = "AVLOR_TARIFFE_DIR=" + quoted(AVLOR_TARIFFE) + " AVLOR_DB= " + quoted(AVLOR_COMMAND);
        for (const std::string& word : words) {
            command += " " + quoted(word);
        }
        const fs::path errors = scratch.folder() / "stderr.txt";
        command += " 2>" + quoted(errors.string());
        Outcome run;
        FILE* pipe = ::popen(command.c_str(), "r");
        if (pipe == nullptr) {
            return run;
        }
        std::array<char, 4096> buffer{};
        std::size_t n = 0;
        while ((n = std::fread(buffer.data(), 1, buffer.size(), pipe)) > 0) {
            run.out.append(buffer.data(), n);
        }
        const int raw = ::pclose(pipe);
        run.status = WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
        std::ifstream in(errors);
        std::ostringstream text;
        text << in.rdbuf();
        run.err = text.str();
        return run;
    }

    TestDatabase scratch; // its folder holds the files of the commands
};

TEST_F(ServerCommand, InitMakesThePracticeDatabaseAndTheCommandsReadIt)
{
    const EmptyServerDatabase server("init");
    const Outcome init = avlor({"db", "init", server.location(), "--demo"});
    ASSERT_EQ(init.status, 0) << init.err;
    EXPECT_EQ(init.out,
              "Creato il database delle pratiche " + server.location() +
                  " con 56 voci delle tariffe ufficiali in 6 tabelle e lo studio di prova.\n");
    EXPECT_EQ(avlor({"--db", server.location(), "db", "versione"}).out, "1\n");
    const Outcome priced = avlor({"--db", server.location(), "tariffa", "--tabella", "Diritti94", "--id", "132",
                                  "--valore", "1000000", "--rilevanza", "37", "--json"});
    EXPECT_EQ(priced.status, 0) << priced.err;
    EXPECT_EQ(priced.out,
              "{\"importo\":\"30000.0000\",\"MinTar\":\"15000.0000\",\"MaxTar\":\"50000.0000\","
              "\"MinS\":\"0.0000\",\"MaxS\":\"0.0000\",\"messaggio\":null}\n");

    // The same database made in a SQLite file gives the same exports, byte
    // for byte: headers in the schema's spelling, amounts with four decimals.
    const std::string file = (scratch.folder() / "studio.db").string();
    ASSERT_EQ(avlor({"db", "init", file, "--demo"}).status, 0);
    for (const char* table : {"Diritti94", "Onorari2004Euro", "OnorariPenali94", "OnorariStrag2004Euro"}) {
        const Outcome fromServer = avlor({"--db", server.location(), "tariffe", "esporta", "--tabella", table});
        const Outcome fromFile = avlor({"--db", file, "tariffe", "esporta", "--tabella", table});
        EXPECT_EQ(fromServer.status, 0) << fromServer.err;
        EXPECT_FALSE(fromServer.out.empty()) << table;
        EXPECT_EQ(fromServer.out, fromFile.out) << table;
    }
    EXPECT_EQ(avlor({"--db", server.location(), "utenti", "filtro-pratiche", "3"}).out,
              avlor({"--db", file, "utenti", "filtro-pratiche", "3"}).out);
}

TEST_F(ServerCommand, InitRefusesADatabaseThatHoldsTablesAndWritesNothing)
{
    const EmptyServerDatabase server("doppio");
    ASSERT_EQ(avlor({"db", "init", server.location()}).status, 0);
    RawSession session(server.location());
    const std::string before =
        session.text("SELECT (SELECT count(*) FROM Diritti94) || '/' || "
                     "(SELECT count(*) FROM FonteTariffe) || '/' || (SELECT count(*) FROM Utenti)");
    const Outcome again = avlor({"db", "init", server.location(), "--demo"});
    EXPECT_NE(again.status, 0);
    EXPECT_NE(again.err.find("Il database contiene già delle tabelle; è stato lasciato com'era"), std::string::npos)
        << again.err;
    EXPECT_EQ(session.text("SELECT (SELECT count(*) FROM Diritti94) || '/' || (SELECT count(*) FROM FonteTariffe) || "
                           "'/' || (SELECT count(*) FROM Utenti)"),
              before);
    EXPECT_EQ(before.substr(before.rfind('/')), "/0");
}

TEST_F(ServerCommand, InitOnADatabaseWithoutRightsOrServerSaysWhy)
{
    const Outcome refused = avlor({"db", "init", withPort(TestDatabase::serverUri(), freePort())});
    EXPECT_NE(refused.status, 0);
    EXPECT_NE(refused.err.find("Connection refused"), std::string::npos) << refused.err;
}

} // namespace
} // namespace avlor::test
