#include <clocale>
#include <gtest/gtest.h>

#include "EnvironmentGuard.h"
#include "avlor/core/Locale.h"

namespace avlor {
namespace {

using test::EnvironmentGuard;

void expectLocale(const Locale& actual, const Locale& expected)
{
    EXPECT_EQ(actual.groupSeparator, expected.groupSeparator);
    EXPECT_EQ(actual.decimalSeparator, expected.decimalSeparator);
    EXPECT_EQ(actual.shortDatePattern, expected.shortDatePattern);
}

TEST(Locale, FixedConventions)
{
    expectLocale(Locale::italian(), Locale{".", ",", "dd/mm/yyyy"});
    expectLocale(Locale::unitedStates(), Locale{",", ".", "m/d/yyyy"});
    expectLocale(Locale::neutral(), Locale{",", ".", "dd/mm/yyyy"});
}

class LocaleFromEnvironment : public ::testing::Test {
protected:
    void SetUp() override
    {
        EnvironmentGuard::unset("LC_ALL");
        EnvironmentGuard::unset("LC_NUMERIC");
        EnvironmentGuard::unset("LANG");
    }

    EnvironmentGuard guard_{"LC_ALL", "LC_NUMERIC", "LANG"};
};

TEST_F(LocaleFromEnvironment, NothingSetIsNeutral) { expectLocale(Locale::fromEnvironment(), Locale::neutral()); }

TEST_F(LocaleFromEnvironment, ItalianLanguage)
{
    for (const char* name : {"it_IT.UTF-8", "it_IT", "it", "it_CH.UTF-8", "it_IT@euro"}) {
        EnvironmentGuard::set("LANG", name);
        expectLocale(Locale::fromEnvironment(), Locale::italian());
    }
}

TEST_F(LocaleFromEnvironment, UnitedStates)
{
    EnvironmentGuard::set("LANG", "en_US.UTF-8");
    expectLocale(Locale::fromEnvironment(), Locale::unitedStates());
    EnvironmentGuard::set("LANG", "en_US");
    expectLocale(Locale::user(), Locale::unitedStates());
}

// Amounts shown and typed: where the environment names no real conventions
// the Italian ones apply, so that "120,00" is never read as 12,000.
TEST_F(LocaleFromEnvironment, AmountsWithoutRealConventionsAreItalian)
{
    expectLocale(Locale::user(), Locale::italian());
    for (const char* name : {"C", "POSIX", "C.UTF-8", "C.utf8", "POSIX.UTF-8", "it_IT.UTF-8", "it"}) {
        EnvironmentGuard::set("LANG", name);
        expectLocale(Locale::user(), Locale::italian());
    }
    EnvironmentGuard::set("LANG", "it_IT.UTF-8");
    EnvironmentGuard::set("LC_NUMERIC", "C.UTF-8");
    expectLocale(Locale::user(), Locale::italian());
    EnvironmentGuard::set("LC_ALL", "en_US.UTF-8");
    expectLocale(Locale::user(), Locale::unitedStates());
}

TEST_F(LocaleFromEnvironment, AmountsInALocaleTheSystemDoesNotKnowAreItalian)
{
    EnvironmentGuard::set("LANG", "xx_YY.UTF-8");
    expectLocale(Locale::user(), Locale::italian());
}

TEST_F(LocaleFromEnvironment, AmountsInAnotherRealLocaleKeepItsSeparators)
{
    // Only where the machine has the German locale's data.
    const locale_t german = newlocale(LC_NUMERIC_MASK, "de_DE.UTF-8", static_cast<locale_t>(nullptr));
    if (german == static_cast<locale_t>(nullptr))
        GTEST_SKIP() << "de_DE.UTF-8 is not installed on this machine";
    freelocale(german);
    EnvironmentGuard::set("LANG", "de_DE.UTF-8");
    expectLocale(Locale::user(), Locale{".", ",", "dd/mm/yyyy"});
}

TEST_F(LocaleFromEnvironment, OtherLanguagesAreNeutral)
{
    for (const char* name : {"C", "POSIX", "C.UTF-8", "en_GB.UTF-8", "de_DE.UTF-8", "italian", "en"}) {
        EnvironmentGuard::set("LANG", name);
        expectLocale(Locale::fromEnvironment(), Locale::neutral());
    }
}

TEST_F(LocaleFromEnvironment, FirstNonEmptyVariableWins)
{
    EnvironmentGuard::set("LANG", "it_IT.UTF-8");
    EnvironmentGuard::set("LC_NUMERIC", "en_US.UTF-8");
    expectLocale(Locale::fromEnvironment(), Locale::unitedStates());
    EnvironmentGuard::set("LC_ALL", "C");
    expectLocale(Locale::fromEnvironment(), Locale::neutral());
    EnvironmentGuard::set("LC_ALL", "");
    expectLocale(Locale::fromEnvironment(), Locale::unitedStates());
    EnvironmentGuard::set("LC_NUMERIC", "");
    expectLocale(Locale::fromEnvironment(), Locale::italian());
}

} // namespace
} // namespace avlor
