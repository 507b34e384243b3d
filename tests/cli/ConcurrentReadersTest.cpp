// Several programs reading one SQLite practice database while another one
// writes it: every read waits its turn instead of being refused, and every
// row written is there afterwards.
#include <gtest/gtest.h>

#include <unistd.h>

#include <atomic>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include <sqlite3.h>

#include "CommandRun.h"

namespace {

namespace fs = std::filesystem;
using avlor::test::shellQuoted;

// Runs a shell command and returns its standard output.
std::string shellOutput(const std::string& command)
{
    std::string out;
    FILE* pipe = ::popen(command.c_str(), "r");
    if (pipe == nullptr)
        return out;
    char buffer[4096];
    std::size_t n = 0;
    while ((n = std::fread(buffer, 1, sizeof buffer, pipe)) > 0)
        out.append(buffer, n);
    ::pclose(pipe);
    return out;
}

std::vector<std::string> linesOf(const std::string& text)
{
    std::vector<std::string> lines;
    std::istringstream in(text);
    std::string line;
    while (std::getline(in, line))
        lines.push_back(line);
    return lines;
}

class ConcurrentReadersTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        folder = fs::temp_directory_path() / ("avlor-lettori-" + std::to_string(::getpid()));
        fs::remove_all(folder);
        fs::create_directories(folder);
        database = (folder / "studio.db").string();
        settings = (folder / "Avlor32.ini").string();
        std::ofstream(settings) << "[Shared]\nId_Utente=3\n";
        const auto init = avlor::test::runAvlor({"db", "init", database, "--demo"}, folder);
        ASSERT_EQ(init.status, 0) << init.err;
    }
    void TearDown() override { fs::remove_all(folder); }

    // The command as the shell loops below run it.
    std::string command() const
    {
        return "AVLOR_TARIFFE_DIR=" + shellQuoted(AVLOR_TARIFFE) +
            " AVLOR_DB= AVLOR_SETTINGS=" + shellQuoted(settings) + " LC_ALL=C " + shellQuoted(AVLOR_COMMAND) +
            " --db " + shellQuoted(database);
    }

    // How many actions of case file 1 carry `descr`.
    long actionsNamed(const std::string& descr) const
    {
        sqlite3* db = nullptr;
        long count = -1;
        if (sqlite3_open_v2(database.c_str(), &db, SQLITE_OPEN_READONLY, nullptr) == SQLITE_OK) {
            sqlite3_stmt* statement = nullptr;
            sqlite3_prepare_v2(db, "SELECT count(*) FROM Azioni WHERE IdPra = 1 AND Descr = ?", -1, &statement,
                               nullptr);
            sqlite3_bind_text(statement, 1, descr.c_str(), -1, SQLITE_TRANSIENT);
            if (sqlite3_step(statement) == SQLITE_ROW)
                count = sqlite3_column_int64(statement, 0);
            sqlite3_finalize(statement);
        }
        sqlite3_close(db);
        return count;
    }

    fs::path folder;
    std::string database;
    std::string settings;
};

TEST_F(ConcurrentReadersTest, ReadersAreNeverRefusedWhileAnotherProgramWrites)
{
    constexpr std::size_t readers = 4;
    constexpr int readsEach = 75;
    constexpr int pressesPerRun = 1;

    // The writer: `avlor parcella` sessions one after the other, each
    // pressing Aggiungi, until the readers are done. Each session opens and
    // closes the database, as a workstation does: the last program to close
    // the file copies its log back under an exclusive lock, and a reader
    // starting at that moment must wait for it, not give up.
    const fs::path script = folder / "aggiungi.jsonl";
    {
        std::ofstream out(script);
        for (int i = 0; i < pressesPerRun; ++i) {
            out << R"({"imposta": "FNumOrdine", "valore": "1"})" << '\n'
                << R"({"imposta": "cmbVoce", "valore": "scritta in concorrenza"})" << '\n'
                << R"({"click": "cmdAggiungi"})" << '\n';
        }
    }
    const fs::path stop = folder / "basta";
    const std::string writerLoop = "while [ ! -e " + shellQuoted(stop.string()) + " ]; do " + command() +
        " parcella --pratica 1 --data 15/03/2025 --oggi 20/03/2025 --script " + shellQuoted(script.string()) +
        " >/dev/null 2>>" + shellQuoted((folder / "scrittore.err").string()) + "; echo \"#$?\"; done";
    std::string writerOut;
    std::thread writer([&] { writerOut = shellOutput(writerLoop); });

    // The readers: each prices an item `readsEach` times, one run of the
    // command after the other; a refused run says why on standard error.
    const std::string reading =
        command() + " call AvlorLogic.ClsParcella CalcolaTariffa 5200 50 OnorariStrag2004Euro 0 11 0 0 0 0 --text ''";
    std::vector<std::string> readerOut(static_cast<std::size_t>(readers));
    std::vector<std::thread> threads;
    for (std::size_t r = 0; r < readers; ++r) {
        const std::string errors = (folder / ("lettore-" + std::to_string(r) + ".err")).string();
        const std::string loop = "i=0; while [ $i -lt " + std::to_string(readsEach) + " ]; do " + reading + " 2>>" +
            shellQuoted(errors) + " || echo rifiutata; i=$((i + 1)); done";
        threads.emplace_back([&readerOut, r, loop] { readerOut[r] = shellOutput(loop); });
    }
    for (auto& t : threads)
        t.join();
    std::ofstream(stop.string()).close();
    writer.join();

    const std::string expected =
        "{\"risultato\":\"117.0000\",\"argomenti\":[\"5200.0000\",50,\"OnorariStrag2004Euro\",false,11,"
        "\"78.0000\",\"156.0000\",\"0.0000\",\"0.0000\",\"\"],\"messaggi\":[]}";
    int answered = 0;
    for (std::size_t r = 0; r < readers; ++r) {
        for (const std::string& line : linesOf(readerOut[r])) {
            EXPECT_EQ(line, expected) << "reader " << r;
            answered += line == expected ? 1 : 0;
        }
        const std::string errors =
            avlor::test::fileText(folder / ("lettore-" + std::to_string(r) + ".err")).substr(0, 2000);
        EXPECT_EQ(errors, "") << "reader " << r;
    }
    EXPECT_EQ(answered, static_cast<int>(readers) * readsEach);

    const std::vector<std::string> runs = linesOf(writerOut);
    ASSERT_GT(runs.size(), 1u); // the writer did run alongside the readers
    for (const std::string& status : runs)
        EXPECT_EQ(status, "#0");
    EXPECT_EQ(avlor::test::fileText(folder / "scrittore.err").substr(0, 2000), "");
    EXPECT_EQ(actionsNamed("scritta in concorrenza"), static_cast<long>(runs.size()) * pressesPerRun);
    RecordProperty("writer_runs", static_cast<int>(runs.size()));
}

} // namespace
