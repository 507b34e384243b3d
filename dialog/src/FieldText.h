#pragma once
// How the dialog turns the fields it reads into the texts and amounts it
// shows: null and empty fields count as empty text and as 0.
#include <string>

#include "avlor/core/Currency.h"
#include "avlor/core/Locale.h"
#include "avlor/core/Value.h"

namespace avlor::dialog {

// The field as plain text ("12", "0.5", "Tribunale"); null and empty give "".
inline std::string plainText(const Value& value)
{
    return value.isNull() || value.isEmpty() ? std::string() : value.toText(Locale::neutral());
}

// The field as an amount; null and empty give 0.
inline Currency amountOrZero(const Value& value)
{
    return value.isNull() || value.isEmpty() ? Currency{} : value.toCurrency();
}

// The text without leading and trailing blanks.
inline std::string trimmed(const std::string& text)
{
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

} // namespace avlor::dialog
