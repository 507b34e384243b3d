#include "avlor/core/Locale.h"

#include <cstdlib>
#include <string_view>

namespace avlor {

Locale Locale::italian() { return Locale{".", ",", "dd/mm/yyyy"}; }

Locale Locale::unitedStates() { return Locale{",", ".", "m/d/yyyy"}; }

Locale Locale::neutral() { return Locale{",", ".", "dd/mm/yyyy"}; }

Locale Locale::fromEnvironment()
{
    // The same precedence as the C library gives the locale variables, read
    // only: the process locale itself is never changed, so that number
    // parsing elsewhere in the host keeps its own rules.
    std::string_view name;
    for (const char* variable : {"LC_ALL", "LC_NUMERIC", "LANG"}) {
        const char* value = std::getenv(variable);
        if (value != nullptr && *value != '\0') {
            name = value;
            break;
        }
    }
    // "it", "it_IT.UTF-8", "it_CH@euro": the language is what precedes '_', '.' or '@'.
    const std::string_view language = name.substr(0, name.find_first_of("_.@"));
    if (language == "it")
        return italian();
    if (name.starts_with("en_US"))
        return unitedStates();
    return neutral();
}

} // namespace avlor
