#pragma once
// Currency: a money amount held as a signed 64-bit count of ten-thousandths
// of the unit (lira or euro). Sums, differences and products by whole numbers
// are exact; products by non-whole numbers and divisions go through a double
// and come back rounded to the nearest ten-thousandth, halves to even. Every
// operation that would leave the 64-bit range raises ValueError(Overflow).
#include <compare>
#include <cstdint>
#include <string>
#include <string_view>

namespace avlor {

// How an exact result is brought back to the precision it is kept or shown
// at: halves to the even neighbour (the component's own arithmetic) or halves
// away from zero (invoices and every published fee computation).
enum class Rounding { HalfEven, HalfUp };

class Currency {
public:
    static constexpr std::int64_t Scale = 10000;

    constexpr Currency() noexcept = default;

    // The amount whose count of ten-thousandths is `raw`.
    [[nodiscard]] static constexpr Currency fromRaw(std::int64_t raw) noexcept { return Currency(raw); }
    // A whole number of units (12 -> 12.0000).
    [[nodiscard]] static Currency fromWhole(std::int64_t units);
    // A double rounded to the nearest ten-thousandth, halves to even.
    // NaN, infinities and values out of range raise ValueError.
    [[nodiscard]] static Currency fromDouble(double value);
    // Decimal text with a point as separator ("1234.5", "-0.25", " 7 "):
    // surrounding blanks are ignored, digits beyond the fourth decimal are
    // rounded halves to even. Anything else raises ValueError(TypeMismatch).
    [[nodiscard]] static Currency fromText(std::string_view text);

    [[nodiscard]] static constexpr Currency max() noexcept { return Currency(INT64_MAX); }
    [[nodiscard]] static constexpr Currency min() noexcept { return Currency(INT64_MIN); }

    [[nodiscard]] constexpr std::int64_t raw() const noexcept { return raw_; }
    [[nodiscard]] double toDouble() const noexcept;
    // Plain text without trailing zeros, as the amount reads when joined to
    // text: "27950", "0.5", "-3.25", "0".
    [[nodiscard]] std::string toText() const;
    // Exact text with four decimals: "27950.0000", "-0.5000".
    [[nodiscard]] std::string toFixed4() const;

    [[nodiscard]] Currency operator+(Currency other) const;
    [[nodiscard]] Currency operator-(Currency other) const;
    [[nodiscard]] Currency operator-() const;
    // Exact product by a whole number.
    [[nodiscard]] Currency times(std::int64_t factor) const;
    // Product by a non-whole number, through a double, halves to even.
    [[nodiscard]] Currency timesDouble(double factor) const;
    // Quotient through a double, halves to even; dividing by 0 raises
    // ValueError(DivisionByZero).
    [[nodiscard]] Currency dividedBy(double divisor) const;
    // amount × numerator / denominator computed exactly (128-bit) and
    // brought back to ten-thousandths once, by `mode`. A result past the
    // range raises ValueError(Overflow), a zero denominator
    // ValueError(DivisionByZero).
    [[nodiscard]] Currency scaled(std::int64_t numerator, std::int64_t denominator,
                                  Rounding mode = Rounding::HalfEven) const;
    // How many times `step` (a cent is fromRaw(100), a unit fromWhole(1))
    // goes into the amount, rounded by `mode`; `step` must be above 0.
    [[nodiscard]] std::int64_t multiplesOf(Currency step, Rounding mode) const;
    // The nearest multiple of `step`, ties decided by `mode`; past the range
    // raises ValueError(Overflow).
    [[nodiscard]] Currency roundedTo(Currency step, Rounding mode) const;

    constexpr auto operator<=>(const Currency&) const noexcept = default;
    constexpr bool operator==(const Currency&) const noexcept = default;

private:
    explicit constexpr Currency(std::int64_t raw) noexcept : raw_(raw) { }
    std::int64_t raw_ = 0;
};

// Rounds a double to the nearest whole number, halves to the even neighbour
// (2.5 -> 2, 3.5 -> 4, -2.5 -> -2). The rule of every whole-number conversion
// in the component.
[[nodiscard]] double roundHalfEven(double value) noexcept;

} // namespace avlor
