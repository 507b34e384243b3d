#pragma once
// Writing checked fee-table content through the data layer. These steps
// open no transaction of their own: the callers run them inside one
// (WriteTransaction.h).
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "avlor/tariffe/TariffFile.h"
#include "avlor/tariffe/TariffImport.h"
#include "avlor/tariffe/TariffSources.h"

namespace avlor {
class Connection;
}

namespace avlor::tariffe_detail {

// The columns of `table` as the database reports them, in its order.
[[nodiscard]] std::vector<std::string> tableColumns(const std::shared_ptr<Connection>& connection,
                                                    std::string_view table);

// Writes every item of `file`: an item whose Id the table holds is deleted
// and written anew (columns the file does not give take their defaults),
// any other is added. The rows go in batches (Connection::insertRows), so
// that a large table costs a few statements on a server, not a few per item.
TariffImportResult writeItems(const std::shared_ptr<Connection>& connection, const TariffFile& file);

// Makes each of `sources` the only FonteTariffe row of its item (or, with
// no id, of its table's note). A (table, id) pair appears once in `sources`.
void writeSources(const std::shared_ptr<Connection>& connection, const std::vector<TariffSource>& sources);

} // namespace avlor::tariffe_detail
