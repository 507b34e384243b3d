#pragma once
// clsDataBase: which version the practice database has.
#include "avlor/core/Value.h"

namespace avlor {

class clsDataBase {
public:
    // Field "Versione" of the first row of the table "Versioni", read as a
    // number. Any failure (no table, no row, database down) answers -1, which
    // the host reads as "unknown version, needs upgrading".
    [[nodiscard]] Value VersioneMdb() const;
};

} // namespace avlor
