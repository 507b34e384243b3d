#pragma once
// SqliteDialect: the statements of the application on SQLite. Dates are ISO
// texts ('2004-06-02') and yes/no values the texts 'True' / 'False' compared
// without regard to case (see sql/schema/sqlite), so a date form becomes an
// ISO literal and a bare true / false becomes 'True' / 'False'.
#include "avlor/data/Dialect.h"

namespace avlor {

class SqliteDialect final : public Dialect {
public:
    [[nodiscard]] std::string_view name() const noexcept override { return "sqlite"; }

    // The shared instance (a dialect holds no state).
    [[nodiscard]] static const SqliteDialect& instance();

protected:
    [[nodiscard]] std::string dateLiteral(Date date) const override;
    [[nodiscard]] std::string booleanLiteral(bool value) const override;
};

} // namespace avlor
