#pragma once
// How values are stored in a SQLite practice database (see
// sql/schema/sqlite/001_schema.sql) and converted on their way in and out.
// The declared type of a column decides:
//   CURRENCY  INTEGER ten-thousandths        <-> Value Currency
//   BOOLEAN   'True' / 'False' (any case; stored 0, 1, -1 also read)
//                                            <-> Value boolean
//   DATE      ISO text 'YYYY-MM-DD'          <-> Value date (writes also take
//                                                day-first text "DD/MM/YYYY")
//   INTEGER   whole numbers                  <-> Value Long when it fits in 32
//                                                bits, else Double
//   DOUBLE, REAL, FLOAT                      <-> Value Double
//   TEXT                                     <-> Value text (numbers written as
//                                                plain text, dates day first)
// A column without a declared type (an expression such as Count(...)) reads
// by what it holds: whole numbers as Long (Double past 32 bits), fractions as
// Double, text as text. Null reads as null; writing null or an empty value
// stores NULL.
#include <string>
#include <string_view>

#include <sqlite3.h>

#include "avlor/core/Value.h"

namespace avlor {

enum class SqliteColumnKind { Untyped, Integer, Real, Text, Currency, Boolean, Date };

// The kind of a column from its declared type (nullptr for expressions).
[[nodiscard]] SqliteColumnKind sqliteColumnKind(const char* declaredType);

// Column `index` of the current row of `statement`. A value stored in a form
// its column does not allow (a fraction in a CURRENCY column, a text that is
// not a date in a DATE column) raises DataError naming `column`.
[[nodiscard]] Value readSqliteColumn(sqlite3_stmt* statement, int index, SqliteColumnKind kind,
                                     std::string_view column);

// `value` converted for a column of `kind`, as it will read back. Raises
// ValueError when it cannot take the kind (text that is not a number for a
// number column, a day that does not exist for a date column).
[[nodiscard]] Value normaliseForSqlite(SqliteColumnKind kind, const Value& value);

// Binds a value returned by normaliseForSqlite to parameter `index`.
// Returns the SQLite result code.
int bindSqliteValue(sqlite3_stmt* statement, int index, SqliteColumnKind kind, const Value& value);

} // namespace avlor
