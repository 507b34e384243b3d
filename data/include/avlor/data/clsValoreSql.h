#pragma once
// clsValoreSql: the single value of a query, one instance per process.
#include <string>

#include "avlor/core/Value.h"

namespace avlor {

class clsValoreSql {
public:
    static clsValoreSql& instance();

    // The first column of the first row of the statement's result, as
    // stored; an empty result gives an empty value. A failing statement
    // raises DataError.
    [[nodiscard]] Value ValoreSql(const std::string& statement) const;
};

} // namespace avlor
