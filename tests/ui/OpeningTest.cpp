// Opening the window from the shell as a user does: `avlor parcella` on a
// demo database, on Qt's offscreen platform, closed after a moment as a user
// would. When all is well nothing is written on standard error, whether or
// not the session names a runtime folder for Qt; Qt's own warnings about a
// real problem still are.
#include <gtest/gtest.h>

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "../cli/CommandRun.h"

namespace {

namespace fs = std::filesystem;
using Outcome = avlor::test::CommandOutcome;
using avlor::test::shellQuoted;

class OpeningFromTheShell : public ::testing::Test {
protected:
    static void SetUpTestSuite()
    {
        folder = fs::temp_directory_path() / ("avlor-ui-opening-" + std::to_string(::getpid()));
        fs::remove_all(folder);
        fs::create_directories(folder);
        database = (folder / "demo.db").string();
        settings = (folder / "Avlor32.ini").string();
        std::ofstream(settings) << "[Shared]\nId_Utente=1\n";
        const Outcome init = avlor::test::runAvlor({"db", "init", database, "--demo"}, folder);
        ASSERT_EQ(init.status, 0) << init.err;
    }
    static void TearDownTestSuite() { fs::remove_all(folder); }

    void SetUp() override
    {
        fs::remove_all(temporary());
        fs::create_directories(temporary());
    }

    // The temporary folder the command is given (TMPDIR).
    static fs::path temporary() { return folder / "tmp"; }

    // Opens the window on case file 1 with these further environment words
    // and this wrapper, and returns once it has closed itself.
    static Outcome open(const std::string& environment, const std::string& wrapper = "")
    {
        avlor::test::RunOptions options;
        options.environment = "AVLOR_SETTINGS=" + shellQuoted(settings) +
            " TMPDIR=" + shellQuoted(temporary().string()) + " QT_QPA_PLATFORM=offscreen AVLOR_UI_CLOSE_AFTER_MS=300 " +
            environment;
        options.wrapper = wrapper;
        return avlor::test::runAvlor({"--db", database, "parcella", "--pratica", "1", "--parti", "Rossi / Bianchi",
                                      "--adempimento", "Udienza", "--data", "15/03/2025"},
                                     folder, options);
    }

    static std::string userName()
    {
        const passwd* entry = ::getpwuid(::geteuid());
        return entry != nullptr ? std::string(entry->pw_name) : std::to_string(::geteuid());
    }

    static void expectPrivateFolder(const fs::path& path)
    {
        struct stat info { };
        ASSERT_EQ(::lstat(path.c_str(), &info), 0) << path;
        EXPECT_TRUE(S_ISDIR(info.st_mode)) << path;
        EXPECT_EQ(info.st_mode & 07777, 0700u) << path;
        EXPECT_EQ(info.st_uid, ::geteuid()) << path;
    }

    static inline fs::path folder;
    static inline std::string database;
    static inline std::string settings;
};

TEST_F(OpeningFromTheShell, WithoutARuntimeFolderNothingIsWrittenOnStandardError)
{
    const Outcome run = open("", "env -u XDG_RUNTIME_DIR");
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.out, "");
    // Qt's session files go to this user's private folder in the temporary
    // folder, the one Qt itself falls back to.
    expectPrivateFolder(temporary() / ("runtime-" + userName()));
}

TEST_F(OpeningFromTheShell, AnEmptyRuntimeFolderIsNoRuntimeFolder)
{
    const Outcome run = open("XDG_RUNTIME_DIR=");
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "");
    expectPrivateFolder(temporary() / ("runtime-" + userName()));
}

TEST_F(OpeningFromTheShell, AFolderOfTheSameNameWithLooserRightsIsMadePrivate)
{
    const fs::path runtime = temporary() / ("runtime-" + userName());
    fs::create_directories(runtime);
    fs::permissions(runtime,
                    fs::perms::owner_all | fs::perms::group_read | fs::perms::group_exec | fs::perms::others_read |
                        fs::perms::others_exec);
    const Outcome run = open("", "env -u XDG_RUNTIME_DIR");
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "");
    expectPrivateFolder(runtime);
}

TEST_F(OpeningFromTheShell, TheSessionsRuntimeFolderIsTheOneUsed)
{
    const fs::path session = folder / "sessione";
    fs::remove_all(session);
    fs::create_directories(session);
    fs::permissions(session, fs::perms::owner_all);
    const Outcome run = open("XDG_RUNTIME_DIR=" + shellQuoted(session.string()));
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "");
    EXPECT_FALSE(fs::exists(temporary() / ("runtime-" + userName())));
}

TEST_F(OpeningFromTheShell, QtsWarningsAboutARealProblemStillReachStandardError)
{
    // A runtime folder that others may read is the session's to put right:
    // Qt says so, and the window leaves it as it is.
    const fs::path session = folder / "aperta";
    fs::remove_all(session);
    fs::create_directories(session);
    fs::permissions(session,
                    fs::perms::owner_all | fs::perms::group_read | fs::perms::group_exec | fs::perms::others_read |
                        fs::perms::others_exec);
    const Outcome run = open("XDG_RUNTIME_DIR=" + shellQuoted(session.string()));
    EXPECT_EQ(run.status, 0);
    EXPECT_NE(run.err.find("QStandardPaths: wrong permissions on runtime directory " + session.string()),
              std::string::npos)
        << run.err;
}

} // namespace
