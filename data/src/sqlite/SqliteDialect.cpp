#include "avlor/data/SqliteDialect.h"

namespace avlor {

const SqliteDialect& SqliteDialect::instance()
{
    static const SqliteDialect dialect;
    return dialect;
}

std::string SqliteDialect::dateLiteral(Date date) const
{
    // Appended piece by piece: GCC 12 at -O3 misreads "'" + text + "'" as an
    // overlapping copy (-Wrestrict).
    std::string literal(1, '\'');
    literal += date.toIso();
    literal += '\'';
    return literal;
}

std::string SqliteDialect::booleanLiteral(bool value) const { return value ? "'True'" : "'False'"; }

} // namespace avlor
