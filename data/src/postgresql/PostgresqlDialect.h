#pragma once
// PostgresqlDialect: the statements of the application on PostgreSQL.
// Yes/no columns are BOOLEAN, which the server compares with 'TRUE', 'True',
// 'true' and a bare true alike, so only the date form needs a rewrite: it
// becomes the date literal DATE '2004-06-02'. A bare true / false is given
// back as the keyword itself.
#include "avlor/data/Dialect.h"

namespace avlor {

class PostgresqlDialect final : public Dialect {
public:
    [[nodiscard]] std::string_view name() const noexcept override { return "postgresql"; }

    // The shared instance (a dialect holds no state).
    [[nodiscard]] static const PostgresqlDialect& instance();

protected:
    [[nodiscard]] std::string dateLiteral(Date date) const override;
    [[nodiscard]] std::string booleanLiteral(bool value) const override;
};

} // namespace avlor
