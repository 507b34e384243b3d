#include "sqlite/SqliteValues.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>

#include "StoredValues.h"
#include "avlor/core/Error.h"
#include "avlor/core/Locale.h"
#include "avlor/data/DataError.h"

namespace avlor {

namespace {

std::string upper(std::string_view text)
{
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(),
                   [](char c) { return static_cast<char>(std::toupper(static_cast<unsigned char>(c))); });
    return result;
}

std::string_view columnText(sqlite3_stmt* statement, int index)
{
    const auto* bytes = sqlite3_column_text(statement, index);
    const int size = sqlite3_column_bytes(statement, index);
    return bytes == nullptr ? std::string_view()
                            : std::string_view(reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(size));
}

// A whole number as Long when it fits in 32 bits, else as Double.
Value wholeNumber(std::int64_t number)
{
    if (number >= std::numeric_limits<std::int32_t>::min() && number <= std::numeric_limits<std::int32_t>::max()) {
        return Value::longValue(static_cast<std::int32_t>(number));
    }
    return Value::dbl(static_cast<double>(number));
}

[[noreturn]] void badStorage(std::string_view column, std::string_view expected)
{
    throw DataError("La colonna '" + std::string(column) + "' contiene un valore che non è " + std::string(expected));
}

std::optional<bool> booleanText(std::string_view text)
{
    const std::string word = upper(text);
    if (word == "TRUE") {
        return true;
    }
    if (word == "FALSE") {
        return false;
    }
    return std::nullopt;
}

// An ISO date, or the date part of an ISO date and time.
Value readDynamic(sqlite3_stmt* statement, int index)
{
    switch (sqlite3_column_type(statement, index)) {
    case SQLITE_INTEGER:
        return wholeNumber(sqlite3_column_int64(statement, index));
    case SQLITE_FLOAT:
        return Value::dbl(sqlite3_column_double(statement, index));
    case SQLITE_NULL:
        return Value::null();
    default:
        return Value::text(std::string(columnText(statement, index)));
    }
}

} // namespace

SqliteColumnKind sqliteColumnKind(const char* declaredType)
{
    if (declaredType == nullptr || *declaredType == '\0') {
        return SqliteColumnKind::Untyped;
    }
    const std::string type = upper(declaredType);
    if (type == "CURRENCY" || type == "MONEY") {
        return SqliteColumnKind::Currency;
    }
    if (type == "BOOLEAN" || type == "BOOL" || type == "YESNO") {
        return SqliteColumnKind::Boolean;
    }
    if (type == "DATE") {
        return SqliteColumnKind::Date;
    }
    // SQLite's own affinity rules for the rest.
    if (type.find("INT") != std::string::npos) {
        return SqliteColumnKind::Integer;
    }
    if (type.find("CHAR") != std::string::npos || type.find("CLOB") != std::string::npos ||
        type.find("TEXT") != std::string::npos) {
        return SqliteColumnKind::Text;
    }
    if (type.find("REAL") != std::string::npos || type.find("FLOA") != std::string::npos ||
        type.find("DOUB") != std::string::npos) {
        return SqliteColumnKind::Real;
    }
    return SqliteColumnKind::Untyped;
}

Value readSqliteColumn(sqlite3_stmt* statement, int index, SqliteColumnKind kind, std::string_view column)
{
    const int stored = sqlite3_column_type(statement, index);
    if (stored == SQLITE_NULL) {
        return Value::null();
    }
    switch (kind) {
    case SqliteColumnKind::Currency:
        if (stored != SQLITE_INTEGER) {
            badStorage(column, "un importo in decimillesimi");
        }
        return Value::currency(Currency::fromRaw(sqlite3_column_int64(statement, index)));
    case SqliteColumnKind::Boolean:
        if (stored == SQLITE_INTEGER) {
            return Value::boolean(sqlite3_column_int64(statement, index) != 0);
        }
        if (stored == SQLITE_TEXT) {
            if (auto flag = booleanText(columnText(statement, index))) {
                return Value::boolean(*flag);
            }
        }
        badStorage(column, "'True' or 'False'");
    case SqliteColumnKind::Date:
        if (stored == SQLITE_TEXT) {
            if (auto date = isoDatePrefix(columnText(statement, index))) {
                return Value::date(*date);
            }
        }
        badStorage(column, "una data 'AAAA-MM-GG'");
    default:
        return readDynamic(statement, index);
    }
}

Value normaliseForSqlite(SqliteColumnKind kind, const Value& value)
{
    if (value.isNull() || value.isEmpty()) {
        return Value::null();
    }
    switch (kind) {
    case SqliteColumnKind::Currency:
        return Value::currency(value.toCurrency());
    case SqliteColumnKind::Boolean:
        return Value::boolean(value.toBool());
    case SqliteColumnKind::Date:
        return Value::date(storedDate(value));
    case SqliteColumnKind::Integer:
        return storedWholeNumber(value);
    case SqliteColumnKind::Real:
        return Value::dbl(value.toDouble());
    case SqliteColumnKind::Text:
        return Value::text(value.toText(Locale::neutral()));
    case SqliteColumnKind::Untyped:
        break;
    }
    return value;
}

int bindSqliteValue(sqlite3_stmt* statement, int index, SqliteColumnKind kind, const Value& value)
{
    switch (value.kind()) {
    case ValueKind::Empty:
    case ValueKind::Null:
        return sqlite3_bind_null(statement, index);
    case ValueKind::Boolean:
        return sqlite3_bind_text(statement, index, value.asBoolean() ? "True" : "False", -1, SQLITE_STATIC);
    case ValueKind::Integer:
    case ValueKind::Long:
        return sqlite3_bind_int64(statement, index, value.toLong());
    case ValueKind::Double: {
        const double number = value.asDouble();
        if (kind == SqliteColumnKind::Integer) {
            return sqlite3_bind_int64(statement, index, static_cast<sqlite3_int64>(number));
        }
        return sqlite3_bind_double(statement, index, number);
    }
    case ValueKind::Currency:
        if (kind == SqliteColumnKind::Currency) {
            return sqlite3_bind_int64(statement, index, value.asCurrency().raw());
        }
        // Outside an amount column an amount goes as exact decimal text.
        return sqlite3_bind_text(statement, index, value.asCurrency().toFixed4().c_str(), -1, SQLITE_TRANSIENT);
    case ValueKind::Date:
        return sqlite3_bind_text(statement, index, value.asDate().toIso().c_str(), -1, SQLITE_TRANSIENT);
    case ValueKind::Text:
        return sqlite3_bind_text(statement, index, value.asText().data(), static_cast<int>(value.asText().size()),
                                 SQLITE_TRANSIENT);
    }
    return SQLITE_MISUSE;
}

} // namespace avlor
