#include "avlor/core/Value.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <string>
#include <type_traits>

#include "NumberText.h"
#include "avlor/core/Error.h"
#include "avlor/core/Format.h"

namespace avlor {

namespace {

template <class... Ts>
struct Overloaded : Ts... {
    using Ts::operator()...;
};
template <class... Ts>
Overloaded(Ts...) -> Overloaded<Ts...>;

[[noreturn]] void invalidUseOfNull() { throw ValueError(ValueError::Kind::InvalidUseOfNull, "Invalid use of Null"); }

[[noreturn]] void typeMismatch(const std::string& text, const char* target)
{
    throw ValueError(ValueError::Kind::TypeMismatch, "Type mismatch: \"" + text + "\" non è " + target);
}

[[noreturn]] void overflow(const std::string& what, const char* target)
{
    throw ValueError(ValueError::Kind::Overflow, "Overflow: " + what + " non rientra in " + target);
}

template <class Int>
constexpr const char* wholeName()
{
    return sizeof(Int) == 2 ? "un numero intero a 16 bit" : "un numero intero a 32 bit";
}

// The strict reading of text as a number: the whole trimmed text must be one.
double strictNumber(const std::string& text)
{
    const auto number = detail::parseStrictDouble(text);
    if (!number)
        typeMismatch(text, "un numero");
    if (!std::isfinite(*number))
        overflow("\"" + text + "\"", "un numero a doppia precisione");
    return *number;
}

template <class Int>
Int wholeFromInt64(std::int64_t n)
{
    if (n < std::numeric_limits<Int>::min() || n > std::numeric_limits<Int>::max())
        overflow(std::to_string(n), wholeName<Int>());
    return static_cast<Int>(n);
}

template <class Int>
Int wholeFromDouble(double value)
{
    const double rounded = roundHalfEven(value);
    if (std::isnan(rounded) || rounded < static_cast<double>(std::numeric_limits<Int>::min()) ||
        rounded > static_cast<double>(std::numeric_limits<Int>::max()))
        overflow(std::to_string(value), wholeName<Int>());
    return static_cast<Int>(rounded);
}

// Whole-number conversion of any value: halves to even, range checked.
template <class Int>
Int toWhole(const Value& v)
{
    switch (v.kind()) {
    case ValueKind::Empty:
        return 0;
    case ValueKind::Null:
        invalidUseOfNull();
    case ValueKind::Boolean:
        return static_cast<Int>(v.asBoolean() ? -1 : 0);
    case ValueKind::Integer:
        return wholeFromInt64<Int>(v.asInteger());
    case ValueKind::Long:
        return wholeFromInt64<Int>(v.asLong());
    case ValueKind::Double:
        return wholeFromDouble<Int>(v.asDouble());
    case ValueKind::Currency:
        // Exactly on the count of ten-thousandths.
        return wholeFromInt64<Int>(v.asCurrency().multiplesOf(Currency::fromWhole(1), Rounding::HalfEven));
    case ValueKind::Date:
        return wholeFromInt64<Int>(v.asDate().dayCount());
    case ValueKind::Text:
        return wholeFromDouble<Int>(strictNumber(v.asText()));
    }
    return 0;
}

std::string digitsOf(std::int64_t n) { return std::to_string(n); }

// A double as plain text, with the fifteen significant digits the amounts
// were always shown with (so 0.1 + 0.2 reads "0.3"), a point as decimal
// separator and no grouping: this is the text that goes into SQL statements
// and captions when a number is joined to text. Magnitudes from 1e-6 up to
// below 1e21 are written out in full; others take an exponent ("1E+21",
// "1.5E-07").
std::string doubleText(double value)
{
    if (std::isnan(value))
        return "NaN";
    if (std::isinf(value))
        return value < 0 ? "-Infinity" : "Infinity";
    if (value == 0.0)
        return "0";

    char buffer[64];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::scientific, 14);
    std::string_view scientific(buffer, static_cast<std::size_t>(result.ptr - buffer)); // "-1.23450000000000e+02"
    std::string sign;
    if (scientific.front() == '-') {
        sign = "-";
        scientific.remove_prefix(1);
    }
    const std::size_t e = scientific.find('e');
    std::string digits(1, scientific[0]);
    digits += scientific.substr(2, e - 2);
    int exponent = 0;
    std::string_view expText = scientific.substr(e + 1);
    const bool negativeExponent = expText.front() == '-';
    expText.remove_prefix(1);
    std::from_chars(expText.data(), expText.data() + expText.size(), exponent);
    if (negativeExponent)
        exponent = -exponent;
    digits.erase(digits.find_last_not_of('0') + 1);

    if (exponent >= 21 || exponent < -6) {
        std::string mantissa = digits.substr(0, 1);
        if (digits.size() > 1)
            mantissa += "." + digits.substr(1);
        const std::string magnitude = std::to_string(exponent < 0 ? -exponent : exponent);
        return sign + mantissa + (exponent < 0 ? "E-" : "E+") + (magnitude.size() < 2 ? "0" : "") + magnitude;
    }
    if (exponent < 0)
        return sign + "0." + std::string(static_cast<std::size_t>(-exponent - 1), '0') + digits;
    const std::size_t integerCount = static_cast<std::size_t>(exponent) + 1;
    if (digits.size() <= integerCount)
        return sign + digits + std::string(integerCount - digits.size(), '0');
    return sign + digits.substr(0, integerCount) + "." + digits.substr(integerCount);
}

// The operand of a sum as a number: empty counts as a 16-bit 0, booleans as
// 16-bit -1 and 0, numeric text as a double.
Value numericOperand(const Value& v)
{
    switch (v.kind()) {
    case ValueKind::Empty:
        return Value::integer(0);
    case ValueKind::Boolean:
        return Value::integer(static_cast<std::int16_t>(v.asBoolean() ? -1 : 0));
    case ValueKind::Text:
        return Value::dbl(strictNumber(v.asText()));
    default:
        return v;
    }
}

bool isWholeKind(ValueKind k) noexcept { return k == ValueKind::Integer || k == ValueKind::Long; }

std::int64_t wholeOf(const Value& v) { return v.kind() == ValueKind::Integer ? v.asInteger() : v.asLong(); }

} // namespace

Value Value::null() noexcept { return Value(Storage(NullTag{})); }
Value Value::boolean(bool b) noexcept { return Value(Storage(BoolBox{b})); }
Value Value::integer(std::int16_t i) noexcept { return Value(Storage(std::in_place_type<std::int16_t>, i)); }
Value Value::longValue(std::int32_t l) noexcept { return Value(Storage(std::in_place_type<std::int32_t>, l)); }
Value Value::dbl(double d) noexcept { return Value(Storage(std::in_place_type<double>, d)); }
Value Value::currency(Currency c) noexcept { return Value(Storage(std::in_place_type<Currency>, c)); }
Value Value::date(Date d) noexcept { return Value(Storage(std::in_place_type<Date>, d)); }
Value Value::text(std::string s) { return Value(Storage(std::in_place_type<std::string>, std::move(s))); }

ValueKind Value::kind() const noexcept
{
    // The order of the alternatives in Storage is the order of ValueKind.
    return static_cast<ValueKind>(storage_.index());
}

bool Value::isNumeric() const noexcept
{
    switch (kind()) {
    case ValueKind::Boolean:
    case ValueKind::Integer:
    case ValueKind::Long:
    case ValueKind::Double:
    case ValueKind::Currency:
        return true;
    default:
        return false;
    }
}

std::int16_t Value::toInteger() const { return toWhole<std::int16_t>(*this); }

std::int32_t Value::toLong() const { return toWhole<std::int32_t>(*this); }

double Value::toDouble() const
{
    return std::visit(Overloaded{
                          [](std::monostate) { return 0.0; },
                          [](NullTag) -> double { invalidUseOfNull(); },
                          [](BoolBox b) { return b.value ? -1.0 : 0.0; },
                          [](std::int16_t i) { return static_cast<double>(i); },
                          [](std::int32_t l) { return static_cast<double>(l); },
                          [](double d) { return d; },
                          [](Currency c) { return c.toDouble(); },
                          [](Date d) { return static_cast<double>(d.dayCount()); },
                          [](const std::string& s) { return strictNumber(s); },
                      },
                      storage_);
}

Currency Value::toCurrency() const
{
    return std::visit(Overloaded{
                          [](std::monostate) { return Currency(); },
                          [](NullTag) -> Currency { invalidUseOfNull(); },
                          [](BoolBox b) { return Currency::fromWhole(b.value ? -1 : 0); },
                          [](std::int16_t i) { return Currency::fromWhole(i); },
                          [](std::int32_t l) { return Currency::fromWhole(l); },
                          [](double d) { return Currency::fromDouble(d); },
                          [](Currency c) { return c; },
                          [](Date d) { return Currency::fromWhole(d.dayCount()); },
                          [](const std::string& s) { return Currency::fromText(s); },
                      },
                      storage_);
}

bool Value::toBool() const
{
    return std::visit(Overloaded{
                          [](std::monostate) { return false; },
                          [](NullTag) -> bool { invalidUseOfNull(); },
                          [](BoolBox b) { return b.value; },
                          [](std::int16_t i) { return i != 0; },
                          [](std::int32_t l) { return l != 0; },
                          [](double d) { return d != 0.0; },
                          [](Currency c) { return c.raw() != 0; },
                          [](Date d) { return d.dayCount() != 0; },
                          [](const std::string& s) {
                              const std::string_view word = trimBlanks(s);
                              if (detail::equalsIgnoreCase(word, "True"))
                                  return true;
                              if (detail::equalsIgnoreCase(word, "False"))
                                  return false;
                              return strictNumber(s) != 0.0;
                          },
                      },
                      storage_);
}

Date Value::toDate() const
{
    // A number is a day count; its fraction (a time of day on the original
    // platform) is dropped toward zero.
    auto fromDays = [](double days) {
        const double whole = std::trunc(days);
        if (std::isnan(whole) || whole < static_cast<double>(std::numeric_limits<std::int32_t>::min()) ||
            whole > static_cast<double>(std::numeric_limits<std::int32_t>::max()))
            overflow(std::to_string(days), "una data");
        return Date::fromDayCount(static_cast<std::int32_t>(whole));
    };
    return std::visit(
        Overloaded{
            [](std::monostate) { return Date(); },
            [](NullTag) -> Date { invalidUseOfNull(); },
            [](BoolBox b) { return Date::fromDayCount(b.value ? -1 : 0); },
            [](std::int16_t i) { return Date::fromDayCount(i); },
            [](std::int32_t l) { return Date::fromDayCount(l); },
            [&](double d) { return fromDays(d); },
            [](Currency c) { return Date::fromDayCount(wholeFromInt64<std::int32_t>(c.raw() / Currency::Scale)); },
            [](Date d) { return d; },
            [](const std::string& s) { return Date::fromDayFirst(s); },
        },
        storage_);
}

std::string Value::toText(const Locale& locale) const
{
    return std::visit(Overloaded{
                          [](std::monostate) { return std::string(); },
                          [](NullTag) { return std::string(); },
                          [](BoolBox b) { return std::string(b.value ? "True" : "False"); },
                          [](std::int16_t i) { return digitsOf(i); },
                          [](std::int32_t l) { return digitsOf(l); },
                          [](double d) { return doubleText(d); },
                          [](Currency c) { return c.toText(); },
                          [&locale](Date d) { return formatShortDate(d, locale); },
                          [](const std::string& s) { return s; },
                      },
                      storage_);
}

double Value::numberLenient() const
{
    // The value's own text, read leniently. Dates are taken in the neutral
    // day-first form so that the reading does not depend on the user's locale.
    if (kind() == ValueKind::Text)
        return avlor::numberLenient(asText());
    return avlor::numberLenient(toText(Locale::neutral()));
}

namespace {

template <class T>
const T& rawAccess(const auto& storage, const char* kindName)
{
    if (const T* p = std::get_if<T>(&storage))
        return *p;
    throw ValueError(ValueError::Kind::TypeMismatch, std::string("Type mismatch: il valore non è ") + kindName);
}

} // namespace

bool Value::asBoolean() const { return rawAccess<BoolBox>(storage_, "un valore sì/no").value; }
std::int16_t Value::asInteger() const { return rawAccess<std::int16_t>(storage_, "un numero intero a 16 bit"); }
std::int32_t Value::asLong() const { return rawAccess<std::int32_t>(storage_, "un numero intero a 32 bit"); }
double Value::asDouble() const { return rawAccess<double>(storage_, "un numero a doppia precisione"); }
Currency Value::asCurrency() const { return rawAccess<Currency>(storage_, "un importo"); }
Date Value::asDate() const { return rawAccess<Date>(storage_, "una data"); }
const std::string& Value::asText() const { return rawAccess<std::string>(storage_, "un testo"); }

bool Value::identicalTo(const Value& other) const noexcept { return storage_ == other.storage_; }

double numberLenient(std::string_view text) noexcept
{
    while (!text.empty() && detail::isBlank(text.front()))
        text.remove_prefix(1);
    const auto number = detail::scanNumber(text);
    if (!number)
        return 0.0;
    return detail::toDouble(text, *number);
}

Value logicalNot(const Value& value)
{
    switch (value.kind()) {
    case ValueKind::Null:
        return Value::null();
    case ValueKind::Empty:
        return Value::integer(-1);
    case ValueKind::Boolean:
        return Value::boolean(!value.asBoolean());
    case ValueKind::Integer:
        return Value::integer(static_cast<std::int16_t>(~value.asInteger()));
    case ValueKind::Text: {
        const std::string_view word = trimBlanks(value.asText());
        if (detail::equalsIgnoreCase(word, "True") || detail::equalsIgnoreCase(word, "False"))
            return Value::boolean(!value.toBool());
        break;
    }
    default:
        break;
    }
    // Longs, doubles, amounts, dates and numeric text: the nearest 32-bit
    // whole number, complemented bit by bit.
    return Value::longValue(static_cast<std::int32_t>(~value.toLong()));
}

Value add(const Value& a, const Value& b)
{
    if (a.isNull() || b.isNull())
        return Value::null();
    const Value x = numericOperand(a);
    const Value y = numericOperand(b);
    const ValueKind kx = x.kind();
    const ValueKind ky = y.kind();

    if (kx == ValueKind::Date || ky == ValueKind::Date) {
        // A date moved by a whole number of days stays a date; other mixes
        // have no day of their own and give the sum of the numbers.
        const Value& date = kx == ValueKind::Date ? x : y;
        const Value& other = kx == ValueKind::Date ? y : x;
        if (isWholeKind(other.kind())) {
            const std::int64_t days = std::int64_t{date.asDate().dayCount()} + wholeOf(other);
            return Value::date(Date::fromDayCount(wholeFromInt64<std::int32_t>(days)));
        }
        return Value::dbl(x.toDouble() + y.toDouble());
    }
    if (kx == ValueKind::Currency || ky == ValueKind::Currency)
        return Value::currency(x.toCurrency() + y.toCurrency());
    if (kx == ValueKind::Double || ky == ValueKind::Double)
        return Value::dbl(x.toDouble() + y.toDouble());

    // Whole numbers: the sum in the wider of the two kinds, widened further
    // when it does not fit.
    const std::int64_t sum = wholeOf(x) + wholeOf(y);
    const bool bothInteger = kx == ValueKind::Integer && ky == ValueKind::Integer;
    if (bothInteger && sum >= std::numeric_limits<std::int16_t>::min() &&
        sum <= std::numeric_limits<std::int16_t>::max())
        return Value::integer(static_cast<std::int16_t>(sum));
    if (sum >= std::numeric_limits<std::int32_t>::min() && sum <= std::numeric_limits<std::int32_t>::max())
        return Value::longValue(static_cast<std::int32_t>(sum));
    return Value::dbl(static_cast<double>(sum));
}

} // namespace avlor
