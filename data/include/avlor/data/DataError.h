#pragma once
// DataError: a failure of the database layer. It carries what a person needs
// to act on it: the statement (or table) that failed, the driver's code
// (SQLite result code or PostgreSQL SQLSTATE) and the driver's message.
#include <string>

#include "avlor/core/Error.h"

namespace avlor {

class DataError : public Error {
public:
    DataError(std::string message, std::string statement = {}, std::string driverCode = {})
        : Error(statement.empty() ? message : message + " [" + statement + "]"), statement_(std::move(statement)),
          driverCode_(std::move(driverCode))
    {
    }

    [[nodiscard]] const std::string& statement() const noexcept { return statement_; }
    [[nodiscard]] const std::string& driverCode() const noexcept { return driverCode_; }

private:
    std::string statement_;
    std::string driverCode_;
};

} // namespace avlor
