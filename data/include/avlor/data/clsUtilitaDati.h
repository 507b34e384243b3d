#pragma once
// clsUtilitaDati: small helpers of the data layer, one instance per process.
#include <string>

#include "avlor/core/Collection.h"

namespace avlor {

class clsUtilitaDati {
public:
    // The process-wide instance, created on first use.
    static clsUtilitaDati& instance();

    // The text as a single-quoted SQL literal with every inner quote doubled:
    // Civile -> 'Civile', D'Amico -> 'D''Amico'.
    [[nodiscard]] std::string FormattaTestoSql(const std::string& text) const;
    // True when the collection holds an item under `key`.
    [[nodiscard]] bool EsisteInCollezione(const Collection& collection, const std::string& key) const;
};

} // namespace avlor
