#pragma once
// The comma-separated text in which fee tables are imported, exported and
// shipped: one record per line, fields separated by a comma (or by a
// semicolon, the separator of spreadsheets set up for Italian), a field that
// holds the separator, a quote or a line break written between quotes with
// each inner quote doubled. The reader reports every record with the line on
// which it starts, so that a person can find a bad cell in the file; the
// writer produces text that the reader reads back unchanged.
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "avlor/core/Error.h"

namespace avlor {

struct CsvField {
    std::string text;
    // Written between quotes: lets a reader tell a quoted empty text from an
    // empty (missing) cell.
    bool quoted = false;
};

struct CsvRecord {
    std::size_t line = 0; // 1-based line on which the record starts
    std::vector<CsvField> fields;

    // A line with nothing but blanks on it (not even a quoted empty field).
    [[nodiscard]] bool isBlank() const noexcept
    {
        return fields.size() == 1 && !fields.front().quoted &&
            fields.front().text.find_first_not_of(" \t") == std::string::npos;
    }
};

// A malformed record: an opening quote never closed, or characters between a
// closing quote and the next separator.
class CsvError : public Error {
public:
    CsvError(std::size_t line, std::size_t fieldIndex, const std::string& message)
        : Error(message), line_(line), fieldIndex_(fieldIndex)
    {
    }
    [[nodiscard]] std::size_t line() const noexcept { return line_; }
    // 0-based position of the field within its record.
    [[nodiscard]] std::size_t fieldIndex() const noexcept { return fieldIndex_; }

private:
    std::size_t line_;
    std::size_t fieldIndex_;
};

// Reads records one at a time, so that the caller can name the columns of
// a bad record from the header it has already read. A UTF-8 byte-order mark
// at the start is skipped; "\r\n", "\n" and a lone "\r" all end a record.
class CsvReader {
public:
    CsvReader(std::string_view text, char separator);

    // The next record, or nothing at the end of the text. Raises CsvError.
    [[nodiscard]] std::optional<CsvRecord> next();

private:
    std::string_view text_;
    std::size_t pos_ = 0;
    std::size_t line_ = 1;
    char separator_ = ',';
};

// The separator of a file, from its first line: a semicolon when that line
// has semicolons and no comma outside quotes, otherwise a comma.
[[nodiscard]] char detectCsvSeparator(std::string_view text);

// A text field, always between quotes, inner quotes doubled.
[[nodiscard]] std::string csvQuoted(std::string_view text);
// Joins already written fields with commas and ends the line with "\n".
[[nodiscard]] std::string csvLine(const std::vector<std::string>& writtenFields);

} // namespace avlor
