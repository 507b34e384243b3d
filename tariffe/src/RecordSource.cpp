#include "RecordSource.h"

#include <cstdint>
#include <limits>

#include "TariffText.h"
#include "avlor/core/Text.h"
#include "avlor/tariffe/TariffFileError.h"

namespace avlor::tariffe_detail {

RecordSource::RecordSource(std::string_view text) : reader_(text, detectCsvSeparator(text)) { }

std::optional<CsvRecord> RecordSource::next()
{
    try {
        while (auto record = reader_.next()) {
            if (!record->isBlank())
                return record;
        }
        return std::nullopt;
    } catch (const CsvError& e) {
        std::string column;
        if (columns_ != nullptr && e.fieldIndex() < columns_->size())
            column = (*columns_)[e.fieldIndex()];
        throw TariffFileError(e.line(), column, e.what());
    }
}

std::vector<std::string> matchHeader(const CsvRecord& header, const std::vector<std::string>& known,
                                     std::string_view owner)
{
    std::vector<std::string> columns;
    for (std::size_t i = 0; i < header.fields.size(); ++i) {
        const std::string_view name = trimBlanks(header.fields[i].text, tariffe_detail::CellBlanks);
        if (name.empty())
            throw TariffFileError(header.line, "",
                                  "la colonna " + std::to_string(i + 1) + " dell'intestazione non ha nome");
        std::optional<std::string> spelled;
        for (const std::string& column : known) {
            if (equalsIgnoringCase(column, name))
                spelled = column;
        }
        if (!spelled)
            throw TariffFileError(header.line, std::string(name),
                                  "non è una colonna di " + std::string(owner) + " (le sue colonne sono " +
                                      listOf(known) + ")");
        for (const std::string& earlier : columns) {
            if (earlier == *spelled)
                throw TariffFileError(header.line, *spelled, "compare due volte nell'intestazione");
        }
        columns.push_back(*spelled);
    }
    return columns;
}

std::string listOf(const std::vector<std::string>& names)
{
    std::string text;
    for (const std::string& name : names)
        text += (text.empty() ? "" : ", ") + name;
    return text;
}

std::optional<std::int32_t> readPositiveId(std::string_view text)
{
    const std::string_view digits = trimBlanks(text, tariffe_detail::CellBlanks);
    if (!allDigits(digits) || digits.size() > 10)
        return std::nullopt;
    const long long id = std::stoll(std::string(digits));
    if (id < 1 || id > std::numeric_limits<std::int32_t>::max())
        return std::nullopt;
    return static_cast<std::int32_t>(id);
}

} // namespace avlor::tariffe_detail
