#include "postgresql/PostgresqlDialect.h"

namespace avlor {

const PostgresqlDialect& PostgresqlDialect::instance()
{
    static const PostgresqlDialect dialect;
    return dialect;
}

std::string PostgresqlDialect::dateLiteral(Date date) const
{
    std::string literal = "DATE '";
    literal += date.toIso();
    literal += '\'';
    return literal;
}

std::string PostgresqlDialect::booleanLiteral(bool value) const { return value ? "true" : "false"; }

} // namespace avlor
