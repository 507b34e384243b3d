#pragma once
// BufferedRecordSet: the record set of every backend. It holds the fetched
// rows and the current position, buffers the fields set on the current or
// new row until Update, and hands reads and writes of the database to its
// RowSource.
//
// Behaviour kept from the record sets the application was written against:
//   - moving (MoveNext, MoveFirst) or starting a new row with pending
//     changes writes them first, as an implicit Update;
//   - after Update of a new row, that row is current and shows its
//     generated key and defaults;
//   - after Delete the deleted row stays current until the next move, and
//     reading it raises DataError; deleted rows are skipped and not counted;
//   - changes still pending when the record set is dropped are discarded.
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "RowSource.h"
#include "avlor/data/RecordSet.h"

namespace avlor {

class BufferedRecordSet final : public RecordSet {
public:
    enum class Mode { ReadOnly, Editable };
    enum class Fetch { Now, WhenNeeded };

    BufferedRecordSet(std::unique_ptr<RowSource> source, Mode mode, Fetch fetch);

    [[nodiscard]] bool Eof() const override;
    [[nodiscard]] bool Bof() const override;
    void MoveNext() override;
    void MoveFirst() override;
    [[nodiscard]] std::int32_t RecordCount() const override;
    void AddNew() override;
    void Update() override;
    void Delete() override;
    [[nodiscard]] Value Field(const std::string& name) const override;
    void SetField(const std::string& name, const Value& value) override;
    [[nodiscard]] std::vector<std::string> FieldNames() const override;

private:
    struct Row {
        std::string key;
        std::vector<Value> values;
        bool deleted = false;
    };

    // Reads the rows when they are first needed; keeps the row added last
    // current.
    void ensureFetched() const;
    void skipDeleted() const;
    void commitPending();
    void requireWritable() const;
    [[nodiscard]] std::size_t fieldIndex(const std::string& name) const;
    // The current row (rows_ is a cache, so a const record set may hand it
    // out for change by its non-const members). DataError when none.
    [[nodiscard]] Row& currentRow() const;
    [[noreturn]] void fail(const std::string& message) const;

    std::unique_ptr<RowSource> source_;
    Mode mode_;
    // Fetching on first need changes only the cache, not what the record
    // set shows, hence mutable.
    mutable bool fetched_ = false;
    mutable std::vector<Row> rows_;
    mutable std::size_t position_ = 0;
    bool adding_ = false;
    FieldChanges pending_;
};

} // namespace avlor
