#pragma once
// TariffFileError: a fee-table file that cannot be loaded, with the place of
// the fault so that a person can correct the file: the 1-based line, and the
// column as the header names it (empty when the fault is the line as a
// whole, or when the file has no header). Nothing has been written to the
// database when it is raised.
#include <cstddef>
#include <string>

#include "avlor/core/Error.h"

namespace avlor {

class TariffFileError : public Error {
public:
    TariffFileError(std::size_t line, std::string column, const std::string& reason)
        : Error(describe(line, column, reason)), line_(line), column_(std::move(column)), reason_(reason) {}

    [[nodiscard]] std::size_t line() const noexcept { return line_; }
    [[nodiscard]] const std::string& column() const noexcept { return column_; }
    // The fault without its place.
    [[nodiscard]] const std::string& reason() const noexcept { return reason_; }

private:
    // "line 4, column SCA1MIN: ..." or "line 4: ...".
    static std::string describe(std::size_t line, const std::string& column, const std::string& reason)
    {
        std::string text = "line " + std::to_string(line);
        if (!column.empty())
            text += ", column " + column;
        return text + ": " + reason;
    }

    std::size_t line_;
    std::string column_;
    std::string reason_;
};

} // namespace avlor
