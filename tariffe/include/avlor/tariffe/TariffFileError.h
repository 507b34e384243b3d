#pragma once
// TariffFileError: a fee-table file that cannot be loaded, with the place of
// the fault so that a person can correct the file: the 1-based line, and the
// column as the header names it (empty when the fault is the line as a
// whole, or when the file has no header), and, where several files are read
// together, the file's name. Nothing has been written to the database when
// it is raised.
#include <cstddef>
#include <string>

#include "avlor/core/Error.h"

namespace avlor {

class TariffFileError : public Error {
public:
    TariffFileError(std::size_t line, std::string column, const std::string& reason, std::string file = {})
        : Error(describe(file, line, column, reason)), line_(line), column_(std::move(column)), reason_(reason),
          file_(std::move(file))
    {
    }

    // The same fault, placed in the named file.
    [[nodiscard]] TariffFileError inFile(std::string file) const { return {line_, column_, reason_, std::move(file)}; }

    [[nodiscard]] std::size_t line() const noexcept { return line_; }
    [[nodiscard]] const std::string& column() const noexcept { return column_; }
    // The fault without its place.
    [[nodiscard]] const std::string& reason() const noexcept { return reason_; }
    // Empty when the fault was found in text not read from a named file.
    [[nodiscard]] const std::string& file() const noexcept { return file_; }

private:
    // "riga 4, colonna SCA1MIN: ...", "riga 4: ..." or, with a file,
    // "Onorari94.csv, riga 4, colonna SCA1MIN: ...".
    static std::string describe(const std::string& file, std::size_t line, const std::string& column,
                                const std::string& reason)
    {
        std::string text = (file.empty() ? "" : file + ", ") + "riga " + std::to_string(line);
        if (!column.empty())
            text += ", colonna " + column;
        return text + ": " + reason;
    }

    std::size_t line_;
    std::string column_;
    std::string reason_;
    std::string file_;
};

} // namespace avlor
