#pragma once
// How values cross between the record sets and a PostgreSQL practice
// database (see sql/schema/postgresql/001_schema.sql). Values travel as
// text in both directions, so amounts are exact decimal text and never pass
// through a floating number. The type of a result column decides:
//   NUMERIC(p,s), s <= 4   amounts       <-> Value Currency
//   NUMERIC (no scale)     an expression (Sum, 1.5): Currency when it shows
//                          exactly four decimals (sums of amounts keep the
//                          amounts' scale), a whole number as Long (Double
//                          past 32 bits), anything else as Double
//   BOOLEAN                              <-> Value boolean
//   DATE                                 <-> Value date (writes also take
//                                            day-first "DD/MM/YYYY" and ISO
//                                            text); a timestamp reads as its day
//   SMALLINT, INTEGER                    <-> Value Long
//   BIGINT (Count(*))                    <-> Value Long, Double past 32 bits
//   REAL, DOUBLE PRECISION               <-> Value Double
//   TEXT and anything else               <-> Value text
// Null reads as null; writing null or an empty value stores NULL.
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "avlor/core/Value.h"

namespace avlor {

enum class PgKind { Text, Integer, BigInteger, Currency, Decimal, Real, Boolean, Date, Timestamp };

// The kind of a column of type `typeOid` with modifier `typeModifier`
// (as libpq's PQftype and PQfmod give them).
[[nodiscard]] PgKind pgKind(std::uint32_t typeOid, int typeModifier) noexcept;

// The value of a column of `kind` whose text form is `text`. A text that
// its type should never give (an amount past the Currency range, a date
// outside the calendar) raises DataError naming `column`.
[[nodiscard]] Value readPgValue(PgKind kind, std::string_view text, std::string_view column);

// `value` converted for a column of `kind`, as it will read back. Raises
// ValueError when it cannot take the kind (text that is not a number for a
// number column, a day that does not exist for a date column).
[[nodiscard]] Value normaliseForPg(PgKind kind, const Value& value);

// The text of a value returned by normaliseForPg, as a statement parameter
// of a column of `kind`; nothing for NULL.
[[nodiscard]] std::optional<std::string> pgParameter(PgKind kind, const Value& value);

} // namespace avlor
