#pragma once
// One row of a fee table, opened read-only by its Id for the length of one
// section of the engine and closed when the section ends.
#include <cstdint>
#include <string>
#include <string_view>

#include "avlor/core/Currency.h"
#include "avlor/core/Value.h"
#include "avlor/data/clsAccessoDati.h"

namespace avlor {

class FeeRow {
public:
    // Opens "SELECT * FROM " + table + " WHERE Id = " + id. A failing
    // statement raises DataError; an empty result is found at the first read.
    FeeRow(std::string_view table, std::int32_t id);

    // A column of the row as the data layer returns it for a number (null
    // stays null). A missing row or column raises DataError.
    [[nodiscard]] Value amount(const std::string& column);
    // A column read as text; null gives "".
    [[nodiscard]] std::string text(const std::string& column);

private:
    clsAccessoDati data_;
};

// The lenient reading of a column as a number (the leading number of its
// text; empty, null or non-numeric text counts as 0) is above 0.
[[nodiscard]] bool isPositive(const Value& column);

// Reads a band from its two columns, lower first. When both are positive
// writes it to MinTar and MaxTar (in that order) and answers true; otherwise
// writes nothing.
[[nodiscard]] bool readPositiveBand(FeeRow& row, const std::string& minColumn, const std::string& maxColumn,
                                    Currency& MinTar, Currency& MaxTar);

} // namespace avlor
