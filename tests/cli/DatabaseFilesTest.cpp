// What the avlor command does to files: it never overwrites the practice
// database, writes an export whole or not at all, cleans up after a failed
// or killed `db init` exactly what that run made, and looks at a database
// without changing it.
#include <gtest/gtest.h>

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include <sqlite3.h>

#include "CommandRun.h"

extern char** environ;

namespace {

namespace fs = std::filesystem;
using avlor::test::CommandOutcome;
using avlor::test::fileText;
using avlor::test::RunOptions;

void writeText(const fs::path& file, const std::string& text)
{
    std::ofstream out(file, std::ios::binary);
    out << text;
}

// The names in a folder, hidden ones included.
std::set<std::string> namesIn(const fs::path& folder)
{
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder))
        names.insert(entry.path().filename().string());
    return names;
}

class DatabaseFilesTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        folder = fs::temp_directory_path() /
            ("avlor-files-" + std::to_string(::getpid()) + "-" +
             ::testing::UnitTest::GetInstance()->current_test_info()->name());
        fs::remove_all(folder);
        fs::create_directories(folder / "work");
        scratch = folder / "scratch";
        fs::create_directories(scratch);
        work = folder / "work";
    }
    void TearDown() override
    {
        std::error_code ignored;
        fs::permissions(folder, fs::perms::owner_all, fs::perm_options::add, ignored);
        for (const auto& entry : fs::recursive_directory_iterator(folder, ignored))
            fs::permissions(entry.path(), fs::perms::owner_all, fs::perm_options::add, ignored);
        fs::remove_all(folder, ignored);
    }

    CommandOutcome avlor(const std::vector<std::string>& words, const RunOptions& options = {}) const
    {
        return avlor::test::runAvlor(words, scratch, options);
    }

    std::string makeDemo(const std::string& name) const
    {
        const std::string db = (work / name).string();
        const CommandOutcome init = avlor({"db", "init", db, "--demo"});
        EXPECT_EQ(init.status, 0) << init.err;
        return db;
    }

    // A copy of the shipped fee tables with one bad line in the last table
    // loaded: `db init` fails after the schema and most tables are in.
    RunOptions brokenTariffs() const
    {
        const fs::path broken = folder / "tariffe-rotte";
        fs::copy(AVLOR_TARIFFE, broken, fs::copy_options::recursive);
        std::ofstream(broken / "OnorariStrag2004Euro.csv", std::ios::app) << "99,\"99\",\"Voce\",abc\n";
        return RunOptions{"", "AVLOR_TARIFFE_DIR=" + avlor::test::shellQuoted(broken.string()), ""};
    }

    fs::path folder;
    fs::path work;
    fs::path scratch;
};

TEST_F(DatabaseFilesTest, ExportNeverWritesOverTheDatabaseOrItsCompanionFiles)
{
    const std::string db = makeDemo("p.db");
    const std::string before = fileText(db);
    const std::vector<std::string> outputs = {db, db + "-wal", db + "-shm", db + "-journal",
                                              (work / "." / ".." / "work" / "p.db").string()};
    for (const auto& output : outputs) {
        const CommandOutcome r = avlor({"--db", db, "tariffe", "esporta", "--tabella", "Onorari94", "-o", output});
        EXPECT_EQ(r.status, 1) << output;
        const std::string what = output == db + "-wal" || output == db + "-shm" || output == db + "-journal"
            ? "un file di servizio del database delle pratiche (" + output + ")"
            : "il database delle pratiche " + db;
        EXPECT_EQ(r.err, "avlor: error: non scrivo " + output + ": è " + what + "\n");
    }
    // The same file under another name (a hard link) is refused too.
    fs::create_hard_link(db, work / "altro-nome.db");
    const CommandOutcome r =
        avlor({"--db", db, "tariffe", "esporta", "--tabella", "Onorari94", "-o", (work / "altro-nome.db").string()});
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(fileText(db), before);
    EXPECT_EQ(avlor({"--db", db, "db", "versione"}).out, "1\n");
    EXPECT_EQ(namesIn(work), (std::set<std::string>{"p.db", "altro-nome.db"}));
}

// The database named one way and the output another: a relative name against
// an absolute one, a link against the file it leads to. SQLite names its
// companion files after the file it reaches, so they are refused by the file
// they resolve to, not by how they are spelled.
TEST_F(DatabaseFilesTest, ExportRefusesTheCompanionFilesUnderAnySpelling)
{
    const std::string db = makeDemo("p.db");
    const std::string before = fileText(db);
    RunOptions inWork;
    inWork.shellBefore = "cd " + avlor::test::shellQuoted(work.string()) + " &&";
    const CommandOutcome wal =
        avlor({"--db", "p.db", "tariffe", "esporta", "--tabella", "Onorari94", "-o", db + "-wal"}, inWork);
    EXPECT_EQ(wal.status, 1);
    EXPECT_EQ(wal.err,
              "avlor: error: non scrivo " + db +
                  "-wal: è un file di servizio del database delle pratiche (p.db-wal)\n");
    fs::create_symlink(db, work / "collegamento.db");
    const std::string link = (work / "collegamento.db").string();
    for (const std::string suffix : {"-journal", "-wal", "-shm"}) {
        const CommandOutcome r =
            avlor({"--db", link, "tariffe", "esporta", "--tabella", "Onorari94", "-o", db + suffix});
        EXPECT_EQ(r.status, 1) << suffix;
        EXPECT_EQ(r.err,
                  "avlor: error: non scrivo " + db + suffix + ": è un file di servizio del database delle pratiche (" +
                      db + suffix + ")\n");
    }
    EXPECT_EQ(fileText(db), before);
    EXPECT_EQ(namesIn(work), (std::set<std::string>{"p.db", "collegamento.db"}));
    // Elsewhere in the same folder is fine.
    const CommandOutcome ok =
        avlor({"--db", link, "tariffe", "esporta", "--tabella", "Onorari94", "-o", (work / "p.csv").string()});
    EXPECT_EQ(ok.status, 0) << ok.err;
    EXPECT_TRUE(fs::exists(work / "p.csv"));
}

TEST_F(DatabaseFilesTest, AnExportThatCannotBeWrittenWholeLeavesThePreviousFile)
{
    const std::string db = makeDemo("p.db");
    // A table of 2,000 items: its export is far past the limit below, while
    // the database's own working files stay within it.
    const fs::path items = scratch / "voci.csv";
    {
        std::ofstream out(items, std::ios::binary);
        out << "Id,CodiceTariffa,Azione,Autorita,VALORESCA1,VALORESCA2,VALORESCA3,VALORESCA4,VALORESCA5,VALORESCA6,"
               "VALORESCA7,VALORESCA8,VALORESCA9,VALORESCA10,VALORESCA11,VALORESCA12,VALORESCA13,VALOREINDETMIN,"
               "VALOREINDETMAX\n";
        for (int i = 1; i <= 2000; ++i) {
            out << i << ",\"" << i << "\",\"Voce " << i << "\",\"\"";
            for (int column = 0; column < 15; ++column)
                out << ",1.5000";
            out << '\n';
        }
    }
    ASSERT_EQ(avlor({"--db", db, "tariffe", "importa", "--tabella", "Diritti2004Euro", items.string()}).status, 0);
    const CommandOutcome full = avlor({"--db", db, "tariffe", "esporta", "--tabella", "Diritti2004Euro"});
    ASSERT_EQ(full.status, 0) << full.err;
    ASSERT_GT(full.out.size(), 200U * 1024U);
    const fs::path csv = work / "diritti.csv";
    writeText(csv, "il file di prima\n");
    // A file-size limit of 100 KiB stops the write half-way, as a full disk
    // would.
    const CommandOutcome r =
        avlor({"--db", db, "tariffe", "esporta", "--tabella", "Diritti2004Euro", "-o", csv.string()},
              RunOptions{"ulimit -f 100;", "", ""});
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.err,
              "avlor: error: impossibile scrivere " + csv.string() + ": File too large; il file è rimasto com'era\n");
    EXPECT_EQ(fileText(csv), "il file di prima\n");
    EXPECT_EQ(namesIn(work), (std::set<std::string>{"p.db", "diritti.csv"}));
    // Without the limit the file is replaced whole.
    const CommandOutcome ok =
        avlor({"--db", db, "tariffe", "esporta", "--tabella", "Diritti2004Euro", "-o", csv.string()});
    EXPECT_EQ(ok.status, 0) << ok.err;
    EXPECT_EQ(fileText(csv), full.out);
    EXPECT_EQ(namesIn(work), (std::set<std::string>{"p.db", "diritti.csv"}));
}

TEST_F(DatabaseFilesTest, AFailedInitOnAPercentEncodedUriTouchesNothingElse)
{
    const fs::path unrelated = work / "a%20b.db";
    writeText(unrelated, "x\n");
    const std::string uri = "file:" + (work / "a%20b.db").string();
    const CommandOutcome failed = avlor({"db", "init", uri}, brokenTariffs());
    EXPECT_EQ(failed.status, 1);
    EXPECT_EQ(fileText(unrelated), "x\n");
    EXPECT_EQ(namesIn(work), (std::set<std::string>{"a%20b.db"}));

    // Done again with sound tables, the URI names "a b.db", and every
    // command finds it under the same URI.
    const CommandOutcome made = avlor({"db", "init", uri});
    EXPECT_EQ(made.status, 0) << made.err;
    EXPECT_EQ(namesIn(work), (std::set<std::string>{"a%20b.db", "a b.db"}));
    EXPECT_EQ(fileText(unrelated), "x\n");
    const CommandOutcome version = avlor({"--db", uri, "db", "versione"});
    EXPECT_EQ(version.status, 0) << version.err;
    EXPECT_EQ(version.out, "1\n");
}

TEST_F(DatabaseFilesTest, AFileUriWithLocalhostNamesTheAbsolutePath)
{
    fs::create_directories(work / "localhost" / work.relative_path());
    const std::string uri = "file://localhost" + (work / "p.db").string();
    const CommandOutcome made = avlor({"db", "init", uri});
    EXPECT_EQ(made.status, 0) << made.err;
    EXPECT_TRUE(fs::exists(work / "p.db"));
    EXPECT_EQ(avlor({"--db", uri, "db", "versione"}).out, "1\n");
}

TEST_F(DatabaseFilesTest, AFailedInitLeavesNoDatabaseAndNoFolderItMade)
{
    const fs::path db = work / "nuova" / "cartella" / "p.db";
    const CommandOutcome failed = avlor({"db", "init", db.string(), "--demo"}, brokenTariffs());
    EXPECT_EQ(failed.status, 1);
    EXPECT_EQ(failed.err,
              "avlor: error: OnorariStrag2004Euro.csv, riga 11, colonna Id: la voce 99 non ha la sua "
              "fonte in FonteTariffe.csv\n");
    EXPECT_EQ(namesIn(work), std::set<std::string>{});
    // ... and a new run simply works.
    const CommandOutcome made = avlor({"db", "init", db.string(), "--demo"});
    EXPECT_EQ(made.status, 0) << made.err;
    EXPECT_EQ(namesIn(db.parent_path()), std::set<std::string>{"p.db"});
}

TEST_F(DatabaseFilesTest, InitRefusesWhatCannotHoldAPracticeDatabase)
{
    CommandOutcome r = avlor({"db", "init", ":memory:"});
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.err,
              "avlor: error: Un database in memoria sparisce alla chiusura del programma; indicare un file per "
              "il database delle pratiche [:memory:]\n");
    r = avlor({"db", "init", work.string()});
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.err,
              "avlor: error: Questa posizione è una cartella; indicare un file al suo interno per il database delle "
              "pratiche [" +
                  work.string() + "]\n");
    EXPECT_EQ(namesIn(work), std::set<std::string>{});
    const fs::path taken = work / "altro.txt";
    writeText(taken, "x\n");
    r = avlor({"db", "init", taken.string()});
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.err,
              "avlor: error: In questa posizione esiste già un database; è stato lasciato com'era [" + taken.string() +
                  "]\n");
    EXPECT_EQ(fileText(taken), "x\n");
}

// `db init` killed at moments spread over its whole run: afterwards the
// location holds either nothing (not even a folder the run was to make) or a
// complete database, and a new run works.
TEST_F(DatabaseFilesTest, AKilledInitLeavesNothingOrACompleteDatabase)
{
    const std::string reference = makeDemo("riferimento.db");
    const std::string expected = avlor({"--db", reference, "tariffe", "esporta", "--tabella", "Onorari94Euro"}).out;
    ASSERT_FALSE(expected.empty());

    const auto started = std::chrono::steady_clock::now();
    (void)makeDemo("misura.db");
    const auto whole = std::chrono::steady_clock::now() - started;

    const std::string tariffe = std::string("AVLOR_TARIFFE_DIR=") + AVLOR_TARIFFE;
    std::vector<std::string> environment = {tariffe, "AVLOR_DB="};
    for (char** e = environ; *e != nullptr; ++e) {
        const std::string entry = *e;
        if (entry.rfind("AVLOR_TARIFFE_DIR=", 0) != 0 && entry.rfind("AVLOR_DB=", 0) != 0)
            environment.push_back(entry);
    }
    std::vector<char*> envp;
    for (auto& entry : environment)
        envp.push_back(entry.data());
    envp.push_back(nullptr);

    constexpr int runs = 12;
    int leftNothing = 0;
    int leftComplete = 0;
    for (int i = 0; i < runs; ++i) {
        const fs::path db = work / ("c" + std::to_string(i)) / "sotto" / "p.db";
        std::string program = AVLOR_COMMAND;
        std::string verb1 = "db", verb2 = "init", where = db.string(), demo = "--demo";
        std::string devnull = "/dev/null";
        char* argv[] = {program.data(), verb1.data(), verb2.data(), where.data(), demo.data(), nullptr};
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_addopen(&actions, 1, devnull.c_str(), O_WRONLY, 0);
        posix_spawn_file_actions_addopen(&actions, 2, devnull.c_str(), O_WRONLY, 0);
        pid_t child = 0;
        ASSERT_EQ(posix_spawn(&child, program.c_str(), &actions, nullptr, argv, envp.data()), 0);
        posix_spawn_file_actions_destroy(&actions);
        std::this_thread::sleep_for(whole * i / runs);
        ::kill(child, SIGKILL);
        int status = 0;
        ::waitpid(child, &status, 0);

        if (!fs::exists(db)) {
            ++leftNothing;
            EXPECT_FALSE(fs::exists(work / ("c" + std::to_string(i)))) << i;
            const CommandOutcome r = avlor({"--db", db.string(), "db", "versione"});
            EXPECT_EQ(r.status, 1);
            continue;
        }
        ++leftComplete;
        EXPECT_EQ(avlor({"--db", db.string(), "db", "versione"}).out, "1\n") << i;
        EXPECT_EQ(avlor({"--db", db.string(), "tariffe", "esporta", "--tabella", "Onorari94Euro"}).out, expected) << i;
        EXPECT_EQ(avlor({"--db", db.string(), "utenti", "livello", "3"}).out, "2\n") << i;
    }
    EXPECT_EQ(leftNothing + leftComplete, runs);
    EXPECT_GT(leftNothing, 0); // the kills did land during the runs

    // A new run after the kills cleans up what they left beside and works.
    for (int i = 0; i < runs; ++i) {
        const fs::path again = work / ("c" + std::to_string(i)) / "sotto" / "p.db";
        if (fs::exists(again))
            continue;
        const CommandOutcome made = avlor({"db", "init", again.string()});
        EXPECT_EQ(made.status, 0) << made.err;
    }
    for (const auto& name : namesIn(work))
        EXPECT_NE(name.front(), '.') << name;
}

// A run killed while removing its database in the making may leave only a
// companion file of it: the next run removes that too.
TEST_F(DatabaseFilesTest, AKilledRunsLoneCompanionFileIsRemovedByTheNextRun)
{
    const pid_t gone = ::fork();
    ASSERT_GE(gone, 0);
    if (gone == 0)
        ::_exit(0);
    int status = 0;
    ::waitpid(gone, &status, 0);
    const std::string left = ".p.db.nuovo-" + std::to_string(gone);
    for (const char* companion : {"-shm", "-wal", "-journal"})
        std::ofstream(work / (left + companion)) << "resto";
    // A file that only looks alike stays.
    std::ofstream(work / ".p.db.nuovo-12x-shm") << "altro";
    const CommandOutcome made = avlor({"db", "init", (work / "p.db").string()});
    ASSERT_EQ(made.status, 0) << made.err;
    EXPECT_EQ(namesIn(work), (std::set<std::string>{"p.db", ".p.db.nuovo-12x-shm"}));
}

// A foreign SQLite database, kept in rollback-journal mode.
void makeForeignDatabase(const fs::path& file)
{
    sqlite3* db = nullptr;
    ASSERT_EQ(sqlite3_open(file.c_str(), &db), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(db, "CREATE TABLE Clienti (Nome TEXT); INSERT INTO Clienti VALUES ('Rossi')", nullptr,
                           nullptr, nullptr),
              SQLITE_OK);
    sqlite3_close(db);
}

TEST_F(DatabaseFilesTest, LookingAtADatabaseChangesNothing)
{
    const fs::path foreign = work / "altro.db";
    makeForeignDatabase(foreign);
    const std::string before = fileText(foreign);
    for (const std::vector<std::string>& words :
         {std::vector<std::string>{"db", "versione"},
          std::vector<std::string>{"call", "AvlorLogic.clsDataBase", "VersioneMdb"},
          std::vector<std::string>{"utenti", "livello", "1"}}) {
        std::vector<std::string> all = {"--db", foreign.string()};
        all.insert(all.end(), words.begin(), words.end());
        const CommandOutcome r = avlor(all);
        EXPECT_EQ(r.status, 1) << words[0];
        EXPECT_EQ(r.err,
                  "avlor: error: " + foreign.string() +
                      " non è un database delle pratiche (non contiene la tabella Versioni)\n");
    }
    EXPECT_EQ(fileText(foreign), before); // still in rollback-journal mode, same bytes
    EXPECT_EQ(namesIn(work), std::set<std::string>{"altro.db"});

    // A call on a missing or empty file is refused like every other verb.
    CommandOutcome r = avlor({"--db", (work / "typo.db").string(), "call", "AvlorLogic.clsDataBase", "VersioneMdb"});
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.err,
              "avlor: error: nessun database delle pratiche in " + (work / "typo.db").string() +
                  " (per crearne uno: avlor db init " + (work / "typo.db").string() + ")\n");
    writeText(work / "vuoto.db", "");
    r = avlor({"--db", (work / "vuoto.db").string(), "call", "AvlorLogic.clsDataBase", "VersioneMdb"});
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.err,
              "avlor: error: " + (work / "vuoto.db").string() +
                  " non è un database delle pratiche (il file è vuoto)\n");
    EXPECT_EQ(fs::file_size(work / "vuoto.db"), 0u);
    EXPECT_EQ(namesIn(work), (std::set<std::string>{"altro.db", "vuoto.db"}));

    r = avlor({"--db", "/dev/null", "db", "versione"});
    EXPECT_EQ(r.status, 1);
    EXPECT_FALSE(fs::exists("/dev/null-journal"));
    EXPECT_FALSE(fs::exists("/dev/null-wal"));
}

// A user who may only read: the database file and its folder read-only.
TEST_F(DatabaseFilesTest, AReadOnlyDatabaseCanBeReadAndIsLeftAsItWas)
{
    const std::string db = makeDemo("p.db");
    const std::string before = fileText(db);
    fs::permissions(db, fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
    fs::permissions(work,
                    fs::perms::owner_read | fs::perms::owner_exec | fs::perms::group_read | fs::perms::group_exec |
                        fs::perms::others_read | fs::perms::others_exec);
    fs::permissions(folder, fs::perms::others_exec | fs::perms::others_read, fs::perm_options::add);
    fs::permissions(scratch, fs::perms::all);
    // Root may write anything: the command then runs as nobody.
    const RunOptions reader{"", "", ::geteuid() == 0 ? "setpriv --reuid=65534 --regid=65534 --clear-groups" : ""};
    CommandOutcome r = avlor({"--db", db, "db", "versione"}, reader);
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.out, "1\n");
    r = avlor({"--db", db, "utenti", "livello", "3"}, reader);
    EXPECT_EQ(r.out, "2\n") << r.err;

    // The folder writable, the file still read-only: nothing appears beside it.
    fs::permissions(work, fs::perms::all);
    r = avlor({"--db", db, "pratica", "clienti", "1"}, reader);
    EXPECT_EQ(r.out, "3\n") << r.err;
    EXPECT_EQ(namesIn(work), std::set<std::string>{"p.db"});
    EXPECT_EQ(fileText(db), before);
}

} // namespace

namespace {

TEST_F(DatabaseFilesTest, AnImportFilePastTheLimitIsRefusedBeforeItIsRead)
{
    const std::string db = makeDemo("p.db");
    const fs::path huge = work / "enorme.csv";
    {
        std::ofstream out(huge, std::ios::binary);
        out << "Id,CodiceTariffa,Azione\n";
    }
    fs::resize_file(huge, 16U * 1024U * 1024U + 1U); // sparse: no disk used
    const CommandOutcome r = avlor({"--db", db, "tariffe", "importa", "--tabella", "Diritti2004Euro", huge.string()});
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.err,
              "avlor: error: " + huge.string() +
                  " contiene 16777217 byte; un file di tariffe può contenerne al più 16777216 (16 MiB)\n");
    const std::string listed = avlor({"--db", db, "tariffe", "elenca", "--tabella", "Diritti2004Euro"}).out;
    EXPECT_EQ(listed.substr(listed.rfind('\n', listed.size() - 2) + 1),
              "Diritti2004Euro: voci 1; con importi dalla tabella 0; dalle regole del programma 1; senza importi 0\n");
}

} // namespace
