#pragma once
// Value: the loosely typed value ("any type") that crosses the component's
// boundaries: field values read from the database, arguments of the public
// operations, results of the small queries. It is empty, null, a boolean
// (true counts as -1), a 16- or 32-bit whole number, a double, a Currency, a
// date or a text, and converts between these kinds by fixed rules:
//   - whole-number conversions round halves to even and raise
//     ValueError(Overflow) out of range (32767 + 1 fails as a 16-bit number);
//   - converting null to a number raises ValueError(InvalidUseOfNull);
//   - text converts strictly (ValueError(TypeMismatch) unless it is a number);
//     the lenient reading of text is `numberLenient`;
//   - empty counts as 0 and as empty text.
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

#include "avlor/core/Currency.h"
#include "avlor/core/Date.h"
#include "avlor/core/Locale.h"

namespace avlor {

enum class ValueKind { Empty, Null, Boolean, Integer, Long, Double, Currency, Date, Text };

class Value {
public:
    // Empty.
    Value() noexcept = default;

    [[nodiscard]] static Value null() noexcept;
    [[nodiscard]] static Value boolean(bool b) noexcept;
    [[nodiscard]] static Value integer(std::int16_t i) noexcept;
    [[nodiscard]] static Value longValue(std::int32_t l) noexcept;
    [[nodiscard]] static Value dbl(double d) noexcept;
    [[nodiscard]] static Value currency(Currency c) noexcept;
    [[nodiscard]] static Value date(Date d) noexcept;
    [[nodiscard]] static Value text(std::string s);

    explicit Value(bool b) noexcept : Value(boolean(b)) { }
    explicit Value(std::int16_t i) noexcept : Value(integer(i)) { }
    explicit Value(std::int32_t l) noexcept : Value(longValue(l)) { }
    explicit Value(double d) noexcept : Value(dbl(d)) { }
    explicit Value(Currency c) noexcept : Value(currency(c)) { }
    explicit Value(Date d) noexcept : Value(date(d)) { }
    explicit Value(std::string s) : Value(text(std::move(s))) { }
    explicit Value(const char* s) : Value(text(std::string(s))) { }

    [[nodiscard]] ValueKind kind() const noexcept;
    [[nodiscard]] bool isEmpty() const noexcept { return kind() == ValueKind::Empty; }
    [[nodiscard]] bool isNull() const noexcept { return kind() == ValueKind::Null; }
    [[nodiscard]] bool isNumeric() const noexcept; // boolean, whole numbers, double, Currency

    // Strict conversions (see the rules above). Booleans give -1 and 0; dates
    // give their day count.
    [[nodiscard]] std::int16_t toInteger() const;
    [[nodiscard]] std::int32_t toLong() const;
    [[nodiscard]] double toDouble() const;
    [[nodiscard]] Currency toCurrency() const;
    // Numbers are true when not 0; the texts "True"/"False" (any case) and
    // numeric text convert; null raises InvalidUseOfNull.
    [[nodiscard]] bool toBool() const;
    // Dates as they are, day-first text, numbers as day counts.
    [[nodiscard]] Date toDate() const;

    // The value joined to text: numbers as their plain text ("12", "0.5",
    // "-3.25"), booleans "True"/"False", dates in the locale's short date
    // form, empty and null as "".
    [[nodiscard]] std::string toText(const Locale& locale) const;
    [[nodiscard]] std::string toText() const { return toText(Locale::fromEnvironment()); }

    // The lenient reading as a number: the text of the value read by
    // numberLenient. Null and empty give 0.
    [[nodiscard]] double numberLenient() const;

    // Raw access for code that switches on kind().
    [[nodiscard]] bool asBoolean() const;
    [[nodiscard]] std::int16_t asInteger() const;
    [[nodiscard]] std::int32_t asLong() const;
    [[nodiscard]] double asDouble() const;
    [[nodiscard]] Currency asCurrency() const;
    [[nodiscard]] Date asDate() const;
    [[nodiscard]] const std::string& asText() const;

    // Same kind and same content (null equals null).
    [[nodiscard]] bool identicalTo(const Value& other) const noexcept;

private:
    struct NullTag {
        bool operator==(const NullTag&) const = default;
    };
    struct BoolBox {
        bool value;
        bool operator==(const BoolBox&) const = default;
    };
    using Storage =
        std::variant<std::monostate, NullTag, BoolBox, std::int16_t, std::int32_t, double, Currency, Date, std::string>;
    explicit Value(Storage s) : storage_(std::move(s)) { }
    Storage storage_;
};

// The lenient reading of text as a number: leading blanks are skipped, then
// the longest leading number is taken (sign, digits, a point as decimal
// separator, an exponent); anything after it is ignored. Empty or
// non-numeric text gives 0: " 7" -> 7, "12abc" -> 12, "abc" -> 0, "1.5e2" -> 150.
[[nodiscard]] double numberLenient(std::string_view text) noexcept;

// Logical negation of a value: booleans are negated, whole numbers (and
// numbers rounded to whole, halves to even) are complemented bit by bit
// (0 -> -1, -1 -> 0, 5 -> -6), null stays null, empty gives -1.
[[nodiscard]] Value logicalNot(const Value& value);

// Sum of two values: null with anything is null; empty counts as 0; numbers
// add in the wider of the two kinds (whole numbers widen on overflow,
// Currency stays exact, doubles stay doubles); numeric text takes part as a
// double. Non-numeric text raises ValueError(TypeMismatch).
[[nodiscard]] Value add(const Value& a, const Value& b);

} // namespace avlor
