#include "BufferedRecordSet.h"

#include <algorithm>
#include <cctype>
#include <limits>

#include "FaultPoint.h"
#include "avlor/data/DataError.h"

namespace avlor {

namespace {

// Field names are compared without regard to the case of their ASCII
// letters, whatever the process's locale; a lookup runs for every field of
// every row read, so it avoids the C library's locale-aware calls.
constexpr char asciiLower(char c) noexcept { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool sameName(const std::string& a, const std::string& b)
{
    return a.size() == b.size() &&
        std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) { return asciiLower(x) == asciiLower(y); });
}

} // namespace

BufferedRecordSet::BufferedRecordSet(std::unique_ptr<RowSource> source, Mode mode, Fetch fetch)
    : source_(std::move(source)), mode_(mode)
{
    if (fetch == Fetch::Now) {
        ensureFetched();
    }
}

void BufferedRecordSet::fail(const std::string& message) const { throw DataError(message, source_->statement()); }

void BufferedRecordSet::ensureFetched() const
{
    if (fetched_) {
        return;
    }
    // Rows added before the fetch are in the table by now; the one that was
    // current stays current.
    std::string currentKey;
    if (position_ < rows_.size()) {
        currentKey = rows_[position_].key;
    }
    std::vector<Row> rows;
    for (FetchedRow& fetched : source_->fetch()) {
        rows.push_back({std::move(fetched.key), std::move(fetched.values), false});
    }
    rows_ = std::move(rows);
    fetched_ = true;
    position_ = 0;
    if (!currentKey.empty()) {
        const auto found =
            std::find_if(rows_.begin(), rows_.end(), [&](const Row& row) { return row.key == currentKey; });
        if (found != rows_.end()) {
            position_ = static_cast<std::size_t>(found - rows_.begin());
        }
    }
}

void BufferedRecordSet::skipDeleted() const
{
    while (position_ < rows_.size() && rows_[position_].deleted) {
        ++position_;
    }
}

bool BufferedRecordSet::Eof() const
{
    ensureFetched();
    return position_ >= rows_.size();
}

bool BufferedRecordSet::Bof() const
{
    ensureFetched();
    return std::none_of(rows_.begin(), rows_.end(), [](const Row& row) { return !row.deleted; });
}

void BufferedRecordSet::MoveNext()
{
    commitPending();
    databaseCall("read");
    ensureFetched();
    if (position_ >= rows_.size()) {
        fail("Nessuna riga corrente: il recordset è alla fine");
    }
    ++position_;
    skipDeleted();
}

void BufferedRecordSet::MoveFirst()
{
    commitPending();
    ensureFetched();
    position_ = 0;
    skipDeleted();
}

std::int32_t BufferedRecordSet::RecordCount() const
{
    ensureFetched();
    const auto count = std::count_if(rows_.begin(), rows_.end(), [](const Row& row) { return !row.deleted; });
    return static_cast<std::int32_t>(std::min<std::ptrdiff_t>(count, std::numeric_limits<std::int32_t>::max()));
}

void BufferedRecordSet::requireWritable() const
{
    if (mode_ == Mode::ReadOnly) {
        fail("Il recordset è stato aperto in sola lettura");
    }
    if (const std::string reason = source_->whyNotUpdatable(); !reason.empty()) {
        fail("Il recordset non si può modificare: " + reason);
    }
}

void BufferedRecordSet::commitPending()
{
    if (adding_ || !pending_.empty()) {
        Update();
    }
}

void BufferedRecordSet::AddNew()
{
    requireWritable();
    commitPending();
    adding_ = true;
    pending_.clear();
}

void BufferedRecordSet::Update()
{
    requireWritable();
    if (adding_ || !pending_.empty()) {
        databaseCall("update");
    }
    if (adding_) {
        FetchedRow added = source_->insert(pending_);
        rows_.push_back({std::move(added.key), std::move(added.values), false});
        position_ = rows_.size() - 1;
        adding_ = false;
        pending_.clear();
        return;
    }
    if (pending_.empty()) {
        return;
    }
    Row& row = currentRow();
    source_->update(row.key, pending_);
    for (const auto& [index, value] : pending_) {
        row.values[index] = value;
    }
    pending_.clear();
}

void BufferedRecordSet::Delete()
{
    requireWritable();
    if (adding_) {
        fail("Nessuna riga corrente da cancellare: si sta aggiungendo una riga nuova");
    }
    Row& row = currentRow();
    databaseCall("delete");
    source_->remove(row.key);
    row.deleted = true;
    pending_.clear();
}

std::size_t BufferedRecordSet::fieldIndex(const std::string& name) const
{
    const std::vector<std::string>& names = source_->fieldNames();
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (sameName(names[i], name)) {
            return i;
        }
    }
    fail("Campo sconosciuto '" + name + "'");
}

BufferedRecordSet::Row& BufferedRecordSet::currentRow() const
{
    if (!fetched_ && position_ >= rows_.size()) {
        ensureFetched();
    }
    if (position_ >= rows_.size()) {
        fail("Nessuna riga corrente");
    }
    if (rows_[position_].deleted) {
        fail("La riga corrente è stata cancellata");
    }
    return rows_[position_];
}

Value BufferedRecordSet::Field(const std::string& name) const
{
    const std::size_t index = fieldIndex(name);
    const auto pending =
        std::find_if(pending_.begin(), pending_.end(), [&](const auto& change) { return change.first == index; });
    if (adding_) {
        return pending != pending_.end() ? pending->second : Value::null();
    }
    const Row& row = currentRow();
    return pending != pending_.end() ? pending->second : row.values[index];
}

void BufferedRecordSet::SetField(const std::string& name, const Value& value)
{
    requireWritable();
    const std::size_t index = fieldIndex(name);
    if (!adding_) {
        (void)currentRow();
    }
    Value stored = source_->normalise(index, value);
    const auto pending =
        std::find_if(pending_.begin(), pending_.end(), [&](const auto& change) { return change.first == index; });
    if (pending != pending_.end()) {
        pending->second = std::move(stored);
    } else {
        pending_.emplace_back(index, std::move(stored));
    }
}

std::vector<std::string> BufferedRecordSet::FieldNames() const { return source_->fieldNames(); }

} // namespace avlor
