#include "postgresql/PgValues.h"

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <system_error>

#include "StoredValues.h"
#include "avlor/core/Error.h"
#include "avlor/core/Locale.h"
#include "avlor/data/DataError.h"

namespace avlor {

namespace {

// Type oids of the built-in types (pg_type.h; fixed across servers).
constexpr std::uint32_t BoolOid = 16;
constexpr std::uint32_t Int8Oid = 20;
constexpr std::uint32_t Int2Oid = 21;
constexpr std::uint32_t Int4Oid = 23;
constexpr std::uint32_t Float4Oid = 700;
constexpr std::uint32_t Float8Oid = 701;
constexpr std::uint32_t DateOid = 1082;
constexpr std::uint32_t TimestampOid = 1114;
constexpr std::uint32_t TimestampTzOid = 1184;
constexpr std::uint32_t NumericOid = 1700;

// NUMERIC(p,s) keeps ((p << 16) | s) + 4 as its modifier; -1 when unset.
constexpr int VarHeaderSize = 4;

[[noreturn]] void badText(std::string_view column, std::string_view text, std::string_view expected)
{
    throw DataError("La colonna '" + std::string(column) + "' contiene '" + std::string(text) + "', che non è " +
                    std::string(expected));
}

// A whole number as Long when it fits in 32 bits, else as Double.
Value wholeNumber(std::int64_t number)
{
    if (number >= std::numeric_limits<std::int32_t>::min() && number <= std::numeric_limits<std::int32_t>::max()) {
        return Value::longValue(static_cast<std::int32_t>(number));
    }
    return Value::dbl(static_cast<double>(number));
}

std::optional<std::int64_t> wholeText(std::string_view text)
{
    std::int64_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size()) {
        return std::nullopt;
    }
    return number;
}

// The server's text of a float8 or numeric: digits, "NaN", "Infinity",
// "-Infinity" (strtod reads them all).
double doubleText(std::string_view text, std::string_view column)
{
    const std::string copy(text);
    char* end = nullptr;
    const double number = std::strtod(copy.c_str(), &end);
    if (end == copy.c_str() || *end != '\0') {
        badText(column, text, "un numero");
    }
    return number;
}

Value currencyText(std::string_view text, std::string_view column)
{
    try {
        return Value::currency(Currency::fromText(text));
    } catch (const ValueError&) {
        badText(column, text, "un importo che l'applicazione può tenere");
    }
}

// An unconstrained NUMERIC (an expression) by what it shows.
Value decimalText(std::string_view text, std::string_view column)
{
    const std::size_t point = text.find('.');
    if (point == std::string_view::npos) {
        if (const auto whole = wholeText(text)) {
            return wholeNumber(*whole);
        }
        return Value::dbl(doubleText(text, column));
    }
    if (text.size() - point - 1 == 4) {
        try {
            return Value::currency(Currency::fromText(text));
        } catch (const ValueError&) {
            // Past the range of Currency: the nearest double.
        }
    }
    return Value::dbl(doubleText(text, column));
}

// The ISO date at the start of a DATE or timestamp text.
Value dateText(std::string_view text, std::string_view column)
{
    if (const auto date = Date::parseIso(text.substr(0, 10)); date && (text.size() == 10 || text[10] == ' ')) {
        return Value::date(*date);
    }
    badText(column, text, "una data che l'applicazione può tenere");
}

std::string doubleParameter(double number, bool whole)
{
    if (std::isnan(number)) {
        return "NaN";
    }
    if (std::isinf(number)) {
        return number > 0 ? "Infinity" : "-Infinity";
    }
    char buffer[400];
    const auto result = whole ? std::to_chars(buffer, buffer + sizeof buffer, number, std::chars_format::fixed, 0)
                              : std::to_chars(buffer, buffer + sizeof buffer, number);
    return std::string(buffer, result.ptr);
}

} // namespace

PgKind pgKind(std::uint32_t typeOid, int typeModifier) noexcept
{
    switch (typeOid) {
    case BoolOid:
        return PgKind::Boolean;
    case Int2Oid:
    case Int4Oid:
        return PgKind::Integer;
    case Int8Oid:
        return PgKind::BigInteger;
    case Float4Oid:
    case Float8Oid:
        return PgKind::Real;
    case DateOid:
        return PgKind::Date;
    case TimestampOid:
    case TimestampTzOid:
        return PgKind::Timestamp;
    case NumericOid:
        if (typeModifier >= VarHeaderSize && ((typeModifier - VarHeaderSize) & 0xffff) <= 4) {
            return PgKind::Currency;
        }
        return PgKind::Decimal;
    default:
        return PgKind::Text;
    }
}

Value readPgValue(PgKind kind, std::string_view text, std::string_view column)
{
    switch (kind) {
    case PgKind::Boolean:
        if (text == "t") {
            return Value::boolean(true);
        }
        if (text == "f") {
            return Value::boolean(false);
        }
        badText(column, text, "un valore sì/no");
    case PgKind::Integer:
    case PgKind::BigInteger:
        if (const auto whole = wholeText(text)) {
            return wholeNumber(*whole);
        }
        badText(column, text, "un numero intero");
    case PgKind::Currency:
        return currencyText(text, column);
    case PgKind::Decimal:
        return decimalText(text, column);
    case PgKind::Real:
        return Value::dbl(doubleText(text, column));
    case PgKind::Date:
    case PgKind::Timestamp:
        return dateText(text, column);
    case PgKind::Text:
        break;
    }
    return Value::text(std::string(text));
}

Value normaliseForPg(PgKind kind, const Value& value)
{
    if (value.isNull() || value.isEmpty()) {
        return Value::null();
    }
    switch (kind) {
    case PgKind::Currency:
    case PgKind::Decimal:
        return Value::currency(value.toCurrency());
    case PgKind::Boolean:
        return Value::boolean(value.toBool());
    case PgKind::Date:
    case PgKind::Timestamp:
        return Value::date(storedDate(value));
    case PgKind::Integer:
    case PgKind::BigInteger:
        return storedWholeNumber(value);
    case PgKind::Real:
        return Value::dbl(value.toDouble());
    case PgKind::Text:
        break;
    }
    return Value::text(value.toText(Locale::neutral()));
}

std::optional<std::string> pgParameter(PgKind kind, const Value& value)
{
    switch (value.kind()) {
    case ValueKind::Empty:
    case ValueKind::Null:
        return std::nullopt;
    case ValueKind::Boolean:
        return std::string(value.asBoolean() ? "true" : "false");
    case ValueKind::Integer:
    case ValueKind::Long:
        return std::to_string(value.toLong());
    case ValueKind::Double:
        return doubleParameter(value.asDouble(), kind == PgKind::Integer || kind == PgKind::BigInteger);
    case ValueKind::Currency:
        return value.asCurrency().toFixed4();
    case ValueKind::Date:
        return value.asDate().toIso();
    case ValueKind::Text:
        return value.asText();
    }
    return std::nullopt;
}

} // namespace avlor
