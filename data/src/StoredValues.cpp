#include "StoredValues.h"

#include <cmath>
#include <cstdint>
#include <limits>
#include <string>

#include "avlor/core/Error.h"

namespace avlor {

std::optional<Date> isoDatePrefix(std::string_view text)
{
    if (text.size() > 10 && (text[10] == ' ' || text[10] == 'T')) {
        text = text.substr(0, 10);
    }
    return Date::parseIso(text);
}

Date storedDate(const Value& value)
{
    if (value.kind() == ValueKind::Text) {
        if (const auto iso = isoDatePrefix(value.asText())) {
            return *iso;
        }
    }
    return value.toDate();
}

Value storedWholeNumber(const Value& value)
{
    switch (value.kind()) {
    case ValueKind::Boolean:
    case ValueKind::Integer:
    case ValueKind::Long:
        return Value::longValue(value.toLong());
    default:
        break;
    }
    const double rounded = roundHalfEven(value.toDouble());
    if (rounded >= std::numeric_limits<std::int32_t>::min() && rounded <= std::numeric_limits<std::int32_t>::max()) {
        return Value::longValue(static_cast<std::int32_t>(rounded));
    }
    if (std::fabs(rounded) < 9.2e18) {
        return Value::dbl(rounded);
    }
    throw ValueError(ValueError::Kind::Overflow, "Overflow: " + value.toText(Locale::neutral()));
}

} // namespace avlor
