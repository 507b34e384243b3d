#pragma once
// Reading the records of a table file with the places of its faults: the
// pieces shared by the fee-table files and the sources file.
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "avlor/tariffe/Csv.h"

namespace avlor::tariffe_detail {

// The records of a file, blank lines left out. A malformed record becomes a
// TariffFileError naming the header's column at the fault, once the header
// is known.
class RecordSource {
public:
    explicit RecordSource(std::string_view text);

    void setColumns(const std::vector<std::string>* columns) noexcept { columns_ = columns; }

    [[nodiscard]] std::optional<CsvRecord> next();

private:
    CsvReader reader_;
    const std::vector<std::string>* columns_ = nullptr;
};

// The header's names matched, without regard to letter case, to `known`
// and given its spelling. A nameless, unknown or repeated column raises
// TariffFileError; `owner` names what the columns belong to in the message
// ("Onorari2004Euro").
[[nodiscard]] std::vector<std::string> matchHeader(const CsvRecord& header, const std::vector<std::string>& known,
                                                   std::string_view owner);

// "a, b, c".
[[nodiscard]] std::string listOf(const std::vector<std::string>& names);

// A whole number from 1 to 2147483647 (blanks around it allowed); nothing
// for any other text.
[[nodiscard]] std::optional<std::int32_t> readPositiveId(std::string_view text);

} // namespace avlor::tariffe_detail
