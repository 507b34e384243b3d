#include "avlor/tariffe/Csv.h"

namespace avlor {

namespace {

constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

bool isLineBreak(char c) noexcept { return c == '\n' || c == '\r'; }

} // namespace

CsvReader::CsvReader(std::string_view text, char separator) : text_(text), separator_(separator)
{
    if (text_.starts_with(ByteOrderMark))
        pos_ = ByteOrderMark.size();
}

std::optional<CsvRecord> CsvReader::next()
{
    if (pos_ >= text_.size())
        return std::nullopt;

    CsvRecord record;
    record.line = line_;
    CsvField field;
    // Consumes one line break ("\r\n" counts as one) at pos_.
    auto skipLineBreak = [this] {
        if (text_[pos_] == '\r' && pos_ + 1 < text_.size() && text_[pos_ + 1] == '\n')
            ++pos_;
        ++pos_;
        ++line_;
    };

    while (true) {
        if (pos_ < text_.size() && text_[pos_] == '"' && field.text.empty() && !field.quoted) {
            field.quoted = true;
            const std::size_t openingLine = line_;
            ++pos_;
            while (true) {
                if (pos_ >= text_.size())
                    throw CsvError(openingLine, record.fields.size(),
                                   "un campo tra virgolette aperto alla riga " + std::to_string(openingLine) +
                                       " non viene mai chiuso");
                const char c = text_[pos_];
                if (c == '"') {
                    if (pos_ + 1 < text_.size() && text_[pos_ + 1] == '"') {
                        field.text += '"';
                        pos_ += 2;
                        continue;
                    }
                    ++pos_;
                    break;
                }
                if (isLineBreak(c)) {
                    // A line break inside quotes belongs to the text; it is
                    // kept as written but still counts as a line of the file.
                    const std::size_t start = pos_;
                    skipLineBreak();
                    field.text.append(text_.substr(start, pos_ - start));
                    continue;
                }
                field.text += c;
                ++pos_;
            }
            if (pos_ < text_.size() && text_[pos_] != separator_ && !isLineBreak(text_[pos_]))
                throw CsvError(line_, record.fields.size(), "testo inatteso dopo le virgolette che chiudono un campo");
        }

        if (pos_ >= text_.size()) {
            record.fields.push_back(std::move(field));
            return record;
        }
        const char c = text_[pos_];
        if (c == separator_) {
            record.fields.push_back(std::move(field));
            field = CsvField{};
            ++pos_;
            continue;
        }
        if (isLineBreak(c)) {
            record.fields.push_back(std::move(field));
            skipLineBreak();
            return record;
        }
        if (c == '"')
            throw CsvError(line_, record.fields.size(),
                           "virgolette in un campo non racchiuso tra virgolette: scrivere tutto il campo tra "
                           "virgolette e raddoppiare quelle interne");
        field.text += c;
        ++pos_;
    }
}

char detectCsvSeparator(std::string_view text)
{
    if (text.starts_with(ByteOrderMark))
        text.remove_prefix(ByteOrderMark.size());
    bool inQuotes = false;
    bool comma = false;
    bool semicolon = false;
    for (const char c : text) {
        if (c == '"')
            inQuotes = !inQuotes;
        else if (!inQuotes && isLineBreak(c))
            break;
        else if (!inQuotes && c == ',')
            comma = true;
        else if (!inQuotes && c == ';')
            semicolon = true;
    }
    return semicolon && !comma ? ';' : ',';
}

std::string csvQuoted(std::string_view text)
{
    std::string out;
    out.reserve(text.size() + 2);
    out += '"';
    for (const char c : text) {
        if (c == '"')
            out += '"';
        out += c;
    }
    out += '"';
    return out;
}

std::string csvLine(const std::vector<std::string>& writtenFields)
{
    std::string out;
    for (std::size_t i = 0; i < writtenFields.size(); ++i) {
        if (i > 0)
            out += ',';
        out += writtenFields[i];
    }
    out += '\n';
    return out;
}

} // namespace avlor
