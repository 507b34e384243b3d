#include "avlor/data/SqliteDialect.h"

namespace avlor {

const SqliteDialect& SqliteDialect::instance() {
    static const SqliteDialect dialect;
    return dialect;
}

std::string SqliteDialect::dateLiteral(Date date) const { return "'" + date.toIso() + "'"; }

std::string SqliteDialect::booleanLiteral(bool value) const { return value ? "'True'" : "'False'"; }

} // namespace avlor
