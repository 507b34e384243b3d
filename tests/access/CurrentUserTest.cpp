// GetIdOfCurrentUser: the current user of the workstation, from the per-user
// settings file.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <stdexcept>
#include <string>

#include "avlor/access/clsUtenti.h"
#include "avlor/core/Settings.h"

namespace avlor::test {
namespace {

// Each test gets its own settings file, named by AVLOR_SETTINGS; the
// variable is put back as it was afterwards.
class CurrentUserTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        if (const char* value = std::getenv("AVLOR_SETTINGS")) {
            previous_ = value;
        }
        std::string pattern = (std::filesystem::temp_directory_path() / "avlor-settings-XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr) {
            throw std::runtime_error("Cannot make a temporary folder for the settings");
        }
        folder_ = pattern;
        file_ = folder_ / "Avlor32.ini";
        ::setenv("AVLOR_SETTINGS", file_.c_str(), 1);
    }

    void TearDown() override
    {
        if (previous_) {
            ::setenv("AVLOR_SETTINGS", previous_->c_str(), 1);
        } else {
            ::unsetenv("AVLOR_SETTINGS");
        }
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }

    void writeSettings(const std::string& content) const { std::ofstream(file_) << content; }

    void storeCurrentUser(const std::string& text) const { writeSettings("[Shared]\nId_Utente=" + text + "\n"); }

    [[nodiscard]] Value currentUser() const { return clsUtenti().GetIdOfCurrentUser(); }

    std::filesystem::path file_;

private:
    std::optional<std::string> previous_;
    std::filesystem::path folder_;
};

void expectLong(const Value& value, std::int32_t expected)
{
    EXPECT_EQ(value.kind(), ValueKind::Long);
    EXPECT_EQ(value.toLong(), expected);
}

TEST_F(CurrentUserTest, WithoutSettingsFileTheCurrentUserIsOne)
{
    ASSERT_FALSE(std::filesystem::exists(file_));
    expectLong(currentUser(), 1);
}

TEST_F(CurrentUserTest, WithoutSharedSectionTheCurrentUserIsOne)
{
    writeSettings("[Altro]\nId_Utente=7\n");
    expectLong(currentUser(), 1);
}

TEST_F(CurrentUserTest, WithoutKeyTheCurrentUserIsOne)
{
    writeSettings("[Shared]\nNomeUtente=Rossi\n");
    expectLong(currentUser(), 1);
}

TEST_F(CurrentUserTest, StoredIdIsTheCurrentUser)
{
    storeCurrentUser("7");
    expectLong(currentUser(), 7);
}

TEST_F(CurrentUserTest, IdWrittenThroughTheSettingsStoreIsRead)
{
    SettingsStore::write(AppAvlor, SezioneShared, ChiaveIdUtente, "42");
    expectLong(currentUser(), 42);
}

// The -1 that the fee-entry dialog uses as its own default is a stored
// value like any other here.
TEST_F(CurrentUserTest, NegativeIdIsKept)
{
    storeCurrentUser("-1");
    expectLong(currentUser(), -1);
}

TEST_F(CurrentUserTest, LeadingNumberOfTextIsTaken)
{
    storeCurrentUser("12abc");
    expectLong(currentUser(), 12);
}

TEST_F(CurrentUserTest, TextThatIsNoNumberGivesZero)
{
    storeCurrentUser("abc");
    expectLong(currentUser(), 0);
}

TEST_F(CurrentUserTest, EmptyStoredTextGivesZero)
{
    storeCurrentUser("");
    expectLong(currentUser(), 0);
}

TEST_F(CurrentUserTest, FractionIsKeptAsDouble)
{
    storeCurrentUser("1.5");
    const Value user = currentUser();
    EXPECT_EQ(user.kind(), ValueKind::Double);
    EXPECT_EQ(user.toDouble(), 1.5);
}

TEST_F(CurrentUserTest, LargestLongStaysLong)
{
    storeCurrentUser("2147483647");
    expectLong(currentUser(), 2147483647);
}

TEST_F(CurrentUserTest, NumberBeyondLongIsKeptAsDouble)
{
    storeCurrentUser("2147483648");
    const Value user = currentUser();
    EXPECT_EQ(user.kind(), ValueKind::Double);
    EXPECT_EQ(user.toDouble(), 2147483648.0);
}

TEST_F(CurrentUserTest, WholeNumberWrittenWithExponentIsLong)
{
    storeCurrentUser("1.5e2");
    expectLong(currentUser(), 150);
}

// A number too large for any number of the component to hold is no user:
// the stated fallback, user 1.
TEST_F(CurrentUserTest, NumberBeyondEveryNumberGivesUserOne)
{
    storeCurrentUser("1e400");
    expectLong(currentUser(), 1);
    storeCurrentUser("-1e400");
    expectLong(currentUser(), 1);
}

// A malformed line elsewhere in the file does not hide the key.
TEST_F(CurrentUserTest, MalformedLineElsewhereDoesNotChangeTheUser)
{
    writeSettings("[Other]\nfoo bar\n[Shared]\nId_Utente=5\n");
    expectLong(currentUser(), 5);
}

TEST_F(CurrentUserTest, MalformedLineInTheSharedSectionDoesNotChangeTheUser)
{
    writeSettings("[Shared]\nnot a setting\nId_Utente=7\n");
    expectLong(currentUser(), 7);
}

} // namespace
} // namespace avlor::test
