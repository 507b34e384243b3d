#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>

#include "EnvironmentGuard.h"
#include "avlor/core/Error.h"
#include "avlor/core/Settings.h"

namespace avlor {
namespace {

namespace fs = std::filesystem;
using test::EnvironmentGuard;

class SettingsStoreTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        std::string pattern = (fs::temp_directory_path() / "avlor-settings-XXXXXX").string();
        ASSERT_NE(mkdtemp(pattern.data()), nullptr);
        folder_ = pattern;
        EnvironmentGuard::unset("AVLOR_SETTINGS");
        EnvironmentGuard::unset("XDG_CONFIG_HOME");
        EnvironmentGuard::set("HOME", (folder_ / "home").string());
    }

    void TearDown() override { fs::remove_all(folder_); }

    void useFile(const fs::path& path) { EnvironmentGuard::set("AVLOR_SETTINGS", path.string()); }

    static void writeText(const fs::path& path, const std::string& text)
    {
        fs::create_directories(path.parent_path());
        std::ofstream(path) << text;
    }

    static std::string readText(const fs::path& path)
    {
        std::ifstream in(path);
        std::ostringstream text;
        text << in.rdbuf();
        return text.str();
    }

    EnvironmentGuard guard_{"AVLOR_SETTINGS", "XDG_CONFIG_HOME", "HOME"};
    fs::path folder_;
};

TEST_F(SettingsStoreTest, PathFromAvlorSettings)
{
    useFile(folder_ / "custom.ini");
    EXPECT_EQ(SettingsStore::pathFor(AppAvlor), folder_ / "custom.ini");
    EXPECT_EQ(SettingsStore::pathFor("Other"), folder_ / "custom.ini");
}

TEST_F(SettingsStoreTest, PathUnderXdgConfigHome)
{
    EnvironmentGuard::set("XDG_CONFIG_HOME", (folder_ / "config").string());
    EXPECT_EQ(SettingsStore::pathFor(AppAvlor), folder_ / "config" / "avlor" / "Avlor32.ini");
    EXPECT_EQ(SettingsStore::pathFor("Other"), folder_ / "config" / "avlor" / "Other.ini");
}

TEST_F(SettingsStoreTest, PathUnderHomeWhenXdgConfigHomeIsUnsetOrEmpty)
{
    EXPECT_EQ(SettingsStore::pathFor(AppAvlor), folder_ / "home" / ".config" / "avlor" / "Avlor32.ini");
    EnvironmentGuard::set("XDG_CONFIG_HOME", "");
    EnvironmentGuard::set("AVLOR_SETTINGS", "");
    EXPECT_EQ(SettingsStore::pathFor(AppAvlor), folder_ / "home" / ".config" / "avlor" / "Avlor32.ini");
}

TEST_F(SettingsStoreTest, MissingFileGivesTheDefault)
{
    useFile(folder_ / "absent.ini");
    EXPECT_EQ(SettingsStore::read(AppAvlor, SezioneShared, ChiaveIdUtente, "-1"), "-1");
    EXPECT_EQ(SettingsStore::read(AppAvlor, SezioneShared, ChiaveIdUtente, "1"), "1");
    EXPECT_FALSE(fs::exists(folder_ / "absent.ini"));
}

TEST_F(SettingsStoreTest, MissingSectionOrKeyGivesTheDefault)
{
    useFile(folder_ / "s.ini");
    writeText(folder_ / "s.ini", "[Other]\nId_Utente=9\n[Shared]\nAltro=3\n");
    EXPECT_EQ(SettingsStore::read(AppAvlor, SezioneShared, ChiaveIdUtente, "-1"), "-1");
    EXPECT_EQ(SettingsStore::read(AppAvlor, "Other", ChiaveIdUtente, "-1"), "9");
}

TEST_F(SettingsStoreTest, ReadsSectionsAndKeysWithoutRegardToCase)
{
    useFile(folder_ / "s.ini");
    writeText(folder_ / "s.ini", "; user settings\n[SHARED]\nid_utente = 42 \n");
    EXPECT_EQ(SettingsStore::read(AppAvlor, SezioneShared, ChiaveIdUtente, "-1"), "42");
}

TEST_F(SettingsStoreTest, AnEmptyValueIsAValue)
{
    useFile(folder_ / "s.ini");
    writeText(folder_ / "s.ini", "[Shared]\nId_Utente=\n");
    EXPECT_EQ(SettingsStore::read(AppAvlor, SezioneShared, ChiaveIdUtente, "-1"), "");
}

TEST_F(SettingsStoreTest, AMalformedLineIsSkippedAndReportedAndTheRestIsRead)
{
    useFile(folder_ / "bad.ini");
    writeText(folder_ / "bad.ini", "[Shared]\nId_Utente=5\nthis line is not an entry\n");
    testing::internal::CaptureStderr();
    EXPECT_EQ(SettingsStore::read(AppAvlor, SezioneShared, ChiaveIdUtente, "-1"), "5");
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "Impostazioni: la riga 3 di " + (folder_ / "bad.ini").string() +
                  " non è né una sezione né una riga chiave=valore e viene ignorata\n");
    writeText(folder_ / "bad.ini", "[Other]\nfoo bar\n[Shared]\nId_Utente=5\n");
    testing::internal::CaptureStderr();
    EXPECT_EQ(SettingsStore::read(AppAvlor, SezioneShared, ChiaveIdUtente, "-1"), "5");
    static_cast<void>(testing::internal::GetCapturedStderr());
}

TEST_F(SettingsStoreTest, AKeyUnderABrokenSectionLineBelongsToNoSection)
{
    useFile(folder_ / "bad.ini");
    writeText(folder_ / "bad.ini", "[Shared\nId_Utente=5\n");
    testing::internal::CaptureStderr();
    EXPECT_EQ(SettingsStore::read(AppAvlor, SezioneShared, ChiaveIdUtente, "-1"), "-1");
    EXPECT_NE(testing::internal::GetCapturedStderr(), "");
}

TEST_F(SettingsStoreTest, WriteCreatesFolderAndFileAndReadsBack)
{
    const fs::path path = folder_ / "a" / "b" / "settings.ini";
    useFile(path);
    SettingsStore::write(AppAvlor, SezioneShared, ChiaveIdUtente, "7");
    EXPECT_EQ(readText(path), "[Shared]\nId_Utente=7\n");
    EXPECT_EQ(SettingsStore::read(AppAvlor, SezioneShared, ChiaveIdUtente, "-1"), "7");
    EXPECT_FALSE(fs::exists(path.string() + ".tmp"));
}

TEST_F(SettingsStoreTest, WriteUnderXdgConfigHome)
{
    EnvironmentGuard::set("XDG_CONFIG_HOME", (folder_ / "config").string());
    SettingsStore::write(AppAvlor, SezioneShared, ChiaveIdUtente, "12");
    EXPECT_EQ(readText(folder_ / "config" / "avlor" / "Avlor32.ini"), "[Shared]\nId_Utente=12\n");
    EXPECT_EQ(SettingsStore::read(AppAvlor, SezioneShared, ChiaveIdUtente, "-1"), "12");
}

TEST_F(SettingsStoreTest, WriteUnderHome)
{
    SettingsStore::write(AppAvlor, SezioneShared, ChiaveIdUtente, "3");
    EXPECT_EQ(readText(folder_ / "home" / ".config" / "avlor" / "Avlor32.ini"), "[Shared]\nId_Utente=3\n");
}

TEST_F(SettingsStoreTest, WriteReplacesTheKeyAndKeepsEverythingElse)
{
    const fs::path path = folder_ / "s.ini";
    useFile(path);
    writeText(path, "; kept comment\n[Other]\nA=1\n\n[shared]\nBefore = x\nID_UTENTE = 5\nAfter=y\n\n[Last]\nZ=26\n");
    SettingsStore::write(AppAvlor, SezioneShared, ChiaveIdUtente, "8");
    EXPECT_EQ(readText(path),
              "; kept comment\n[Other]\nA=1\n\n[shared]\nBefore = x\nId_Utente=8\nAfter=y\n\n[Last]\nZ=26\n");
    EXPECT_EQ(SettingsStore::read(AppAvlor, SezioneShared, ChiaveIdUtente, "-1"), "8");
    EXPECT_EQ(SettingsStore::read(AppAvlor, "Other", "A", ""), "1");
    EXPECT_EQ(SettingsStore::read(AppAvlor, "Last", "Z", ""), "26");
}

TEST_F(SettingsStoreTest, WriteAddsAKeyAtTheEndOfItsSection)
{
    const fs::path path = folder_ / "s.ini";
    useFile(path);
    writeText(path, "[Shared]\nAltro=1\n\n[Last]\nZ=26\n");
    SettingsStore::write(AppAvlor, SezioneShared, ChiaveIdUtente, "4");
    EXPECT_EQ(readText(path), "[Shared]\nAltro=1\nId_Utente=4\n\n[Last]\nZ=26\n");
}

TEST_F(SettingsStoreTest, WriteAddsAMissingSectionAtTheEnd)
{
    const fs::path path = folder_ / "s.ini";
    useFile(path);
    writeText(path, "[Other]\nA=1\n");
    SettingsStore::write(AppAvlor, SezioneShared, ChiaveIdUtente, "4");
    EXPECT_EQ(readText(path), "[Other]\nA=1\n\n[Shared]\nId_Utente=4\n");
}

TEST_F(SettingsStoreTest, WriteRefusesWhatTheFileCannotHold)
{
    useFile(folder_ / "s.ini");
    EXPECT_THROW(SettingsStore::write(AppAvlor, SezioneShared, ChiaveIdUtente, "a\nb"), UsageError);
    EXPECT_THROW(SettingsStore::write(AppAvlor, SezioneShared, "a=b", "1"), UsageError);
    EXPECT_THROW(SettingsStore::write(AppAvlor, "Sha]red", ChiaveIdUtente, "1"), UsageError);
    EXPECT_THROW(SettingsStore::write(AppAvlor, SezioneShared, "", "1"), UsageError);
    EXPECT_THROW(SettingsStore::write(AppAvlor, "", ChiaveIdUtente, "1"), UsageError);
    EXPECT_FALSE(fs::exists(folder_ / "s.ini"));
}

} // namespace
} // namespace avlor
