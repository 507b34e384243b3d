#include "avlor/core/Locale.h"

#include <clocale>
#include <cstdlib>
#include <langinfo.h>
#include <optional>
#include <string_view>

namespace avlor {

Locale Locale::italian() { return Locale{".", ",", "dd/mm/yyyy"}; }

Locale Locale::unitedStates() { return Locale{",", ".", "m/d/yyyy"}; }

Locale Locale::neutral() { return Locale{",", ".", "dd/mm/yyyy"}; }

namespace {

// The locale name that governs numbers: the same precedence as the C library
// gives the locale variables, read only. The process locale itself is never
// changed, so that number parsing elsewhere in the host keeps its own rules.
std::string_view numericLocaleName()
{
    for (const char* variable : {"LC_ALL", "LC_NUMERIC", "LANG"}) {
        const char* value = std::getenv(variable);
        if (value != nullptr && *value != '\0')
            return value;
    }
    return {};
}

// "it", "it_IT.UTF-8", "it_CH@euro": the language is what precedes '_', '.' or '@'.
std::string_view languageOf(std::string_view name) { return name.substr(0, name.find_first_of("_.@")); }

// The separators the system's locale data give a locale name, with day-first
// dates; nothing when the system does not know the name.
std::optional<Locale> systemConventions(std::string_view name)
{
    const std::string wanted(name);
    const locale_t system = newlocale(LC_NUMERIC_MASK, wanted.c_str(), static_cast<locale_t>(nullptr));
    if (system == static_cast<locale_t>(nullptr))
        return std::nullopt;
    Locale result{nl_langinfo_l(THOUSEP, system), nl_langinfo_l(RADIXCHAR, system), "dd/mm/yyyy"};
    freelocale(system);
    if (result.decimalSeparator.empty() || result.decimalSeparator == result.groupSeparator)
        return std::nullopt;
    return result;
}

} // namespace

Locale Locale::fromEnvironment()
{
    const std::string_view name = numericLocaleName();
    if (languageOf(name) == "it")
        return italian();
    if (name.starts_with("en_US"))
        return unitedStates();
    return neutral();
}

Locale Locale::user()
{
    const std::string_view name = numericLocaleName();
    const std::string_view language = languageOf(name);
    if (language.empty() || language == "C" || language == "POSIX" || language == "it")
        return italian();
    if (name.starts_with("en_US"))
        return unitedStates();
    return systemConventions(name).value_or(italian());
}

} // namespace avlor
