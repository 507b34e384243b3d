#pragma once
// Writing checked fee-table content through the record-access layer. These
// steps open no transaction of their own: the callers run them inside one
// (WriteTransaction.h).
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "avlor/tariffe/TariffFile.h"
#include "avlor/tariffe/TariffImport.h"

namespace avlor {
class Connection;
}

namespace avlor::tariffe_detail {

// The columns of `table` as the database reports them, in its order.
[[nodiscard]] std::vector<std::string> tableColumns(const std::shared_ptr<Connection>& connection,
                                                    std::string_view table);

// Writes every item of `file`: an item whose Id the table holds is deleted
// and written anew (columns the file does not give take their defaults),
// any other is added.
TariffImportResult writeItems(const std::shared_ptr<Connection>& connection, const TariffFile& file);

// Makes (table, id) the only FonteTariffe row of that item (or, with no id,
// of the table's note).
void writeSource(const std::shared_ptr<Connection>& connection, const std::string& table,
                 std::optional<std::int32_t> id, const std::string& fonte, const std::optional<std::string>& note);

} // namespace avlor::tariffe_detail
