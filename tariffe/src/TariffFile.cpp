#include "avlor/tariffe/TariffFile.h"

#include <limits>
#include <map>
#include <optional>
#include <utility>

#include "RecordSource.h"
#include "TariffText.h"
#include "avlor/core/Error.h"
#include "avlor/core/Text.h"
#include "avlor/tariffe/AmountText.h"
#include "avlor/tariffe/Csv.h"
#include "avlor/tariffe/FeeColumns.h"
#include "avlor/tariffe/TariffFileError.h"

namespace avlor {

namespace {

using tariffe_detail::isValidUtf8;
using tariffe_detail::listOf;
using tariffe_detail::matchHeader;
using tariffe_detail::readPositiveId;
using tariffe_detail::RecordSource;

struct Header {
    std::size_t line = 0;
    std::vector<std::string> columns; // spelled as the table
    std::vector<FeeColumnRole> roles;
};

Header readHeader(RecordSource& source, std::string_view table, const std::vector<std::string>& tableColumns)
{
    const auto record = source.next();
    if (!record)
        throw TariffFileError(1, "",
                              "il file è vuoto: la prima riga deve elencare le colonne di " + std::string(table) +
                                  " (" + listOf(tableColumns) + ")");
    Header header;
    header.line = record->line;
    header.columns = matchHeader(*record, tableColumns, table);
    for (const std::string& column : header.columns)
        header.roles.push_back(feeColumnRole(column));
    for (const FeeColumnRole required : {FeeColumnRole::Key, FeeColumnRole::Code}) {
        bool present = false;
        for (const FeeColumnRole role : header.roles)
            present = present || role == required;
        if (!present) {
            const std::string name(required == FeeColumnRole::Key ? FeeKeyColumn : FeeCodeColumn);
            throw TariffFileError(header.line, name, "manca: l'intestazione deve comprendere la colonna " + name);
        }
    }
    return header;
}

std::int32_t readItemId(const std::string& cell, std::size_t line, const std::string& column)
{
    if (const auto id = readPositiveId(cell))
        return *id;
    throw TariffFileError(line, column,
                          "\"" + cell + "\" non è l'Id di una voce (un numero intero da 1 a " +
                              std::to_string(std::numeric_limits<std::int32_t>::max()) + ")");
}

// An amount cell that only the notation of the whole file can read.
struct PendingAmount {
    std::size_t row;
    std::size_t column;
    AmountText cell;
    std::string text;
};

// Follows the notation that the file's amounts show, so that a file mixing
// the two is refused and an ambiguous cell can be read once the file is read.
class NotationTracker {
public:
    void note(const AmountText& cell, std::size_t line, const std::string& column, const std::string& text)
    {
        const DecimalStyle shown = styleShownBy(cell);
        if (shown == DecimalStyle::Unknown)
            return;
        if (style_ == DecimalStyle::Unknown) {
            style_ = shown;
            where_ = "alla riga " + std::to_string(line) + " (colonna " + column + ") \"" + text + "\"";
            return;
        }
        if (shown != style_)
            throw TariffFileError(line, column,
                                  "\"" + text + "\" è scritto " + describe(shown) + ", ma " + where_ + " è scritto " +
                                      describe(style_) + ": usare una sola scrittura in tutto il file");
    }

    [[nodiscard]] DecimalStyle style() const noexcept { return style_; }

private:
    static std::string describe(DecimalStyle style)
    {
        return style == DecimalStyle::Italian ? "all'italiana (1.234,56)" : "con il punto decimale (1234.56)";
    }

    DecimalStyle style_ = DecimalStyle::Unknown;
    std::string where_;
};

// Reads the items of a file, cell by cell, once its header is known.
class ItemReader {
public:
    ItemReader(std::string_view table, Header header) : header_(std::move(header))
    {
        file_.table = std::string(table);
        file_.columns = header_.columns;
    }

    void read(const CsvRecord& record)
    {
        if (record.fields.size() != header_.columns.size())
            throw TariffFileError(record.line, "",
                                  "ha " + std::to_string(record.fields.size()) + " campi, ma l'intestazione elenca " +
                                      std::to_string(header_.columns.size()) +
                                      " colonne (un testo che contiene una virgola va scritto tra virgolette)");
        TariffFileRow row;
        row.line = record.line;
        for (std::size_t i = 0; i < header_.columns.size(); ++i)
            row.values.push_back(readCell(row, i, record.fields[i]));
        file_.rows.push_back(std::move(row));
    }

    // The content, once every item is read: ambiguous amounts take the
    // notation the file has shown.
    TariffFile finish()
    {
        if (file_.rows.empty())
            throw TariffFileError(header_.line + 1, "", "il file non ha voci dopo l'intestazione");
        for (const PendingAmount& amount : pending_) {
            TariffFileRow& row = file_.rows[amount.row];
            try {
                row.values[amount.column] = Value::currency(amountInStyle(amount.cell, amount.text, notation_.style()));
            } catch (const ValueError& e) {
                throw TariffFileError(row.line, file_.columns[amount.column], e.what());
            }
        }
        return std::move(file_);
    }

private:
    Value readCell(TariffFileRow& row, std::size_t index, const CsvField& field)
    {
        const std::string& column = header_.columns[index];
        switch (header_.roles[index]) {
        case FeeColumnRole::Key:
            row.id = readItemId(field.text, row.line, column);
            if (const auto [earlier, added] = lineOfId_.emplace(row.id, row.line); !added)
                throw TariffFileError(row.line, column,
                                      "la voce " + std::to_string(row.id) + " compare già alla riga " +
                                          std::to_string(earlier->second));
            return Value::longValue(row.id);
        case FeeColumnRole::Code:
            if (trimBlanks(field.text, tariffe_detail::CellBlanks).empty())
                throw TariffFileError(row.line, column,
                                      "è vuota: ogni voce deve avere il suo codice come lo stampa la tariffa");
            return readText(field, row.line, column);
        case FeeColumnRole::Text:
            return readText(field, row.line, column);
        case FeeColumnRole::Amount:
            break;
        }
        return readAmount(field, row.line, index);
    }

    static Value readText(const CsvField& field, std::size_t line, const std::string& column)
    {
        if (!isValidUtf8(field.text))
            throw TariffFileError(line, column, "non è testo UTF-8 (salvare il file come UTF-8)");
        return field.text.empty() && !field.quoted ? Value::null() : Value::text(field.text);
    }

    Value readAmount(const CsvField& field, std::size_t line, std::size_t index)
    {
        const std::string& column = header_.columns[index];
        const std::string trimmed(trimBlanks(field.text, tariffe_detail::CellBlanks));
        if (trimmed.empty())
            return Value::currency(Currency());
        AmountText cell;
        try {
            cell = readAmountText(trimmed);
        } catch (const ValueError& e) {
            throw TariffFileError(line, column, e.what());
        }
        notation_.note(cell, line, column, trimmed);
        if (cell.form == AmountText::Form::Ambiguous)
            pending_.push_back({file_.rows.size(), index, cell, trimmed});
        return Value::currency(cell.amount);
    }

    Header header_;
    TariffFile file_;
    std::map<std::int32_t, std::size_t> lineOfId_;
    std::vector<PendingAmount> pending_;
    NotationTracker notation_;
};

} // namespace

TariffFile readTariffFile(std::string_view table, std::string_view text, const std::vector<std::string>& tableColumns)
{
    RecordSource source(text);
    Header header = readHeader(source, table, tableColumns);
    // The reader names the columns of a malformed record from the header.
    const std::vector<std::string> columns = header.columns;
    source.setColumns(&columns);
    ItemReader items(table, std::move(header));
    while (const auto record = source.next())
        items.read(*record);
    return items.finish();
}

} // namespace avlor
