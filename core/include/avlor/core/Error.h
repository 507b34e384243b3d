#pragma once
// Root of the component's exception hierarchy. Each layer derives its own
// error from it (values here, the database layer, the tariff engine), so a
// host can trap one type or tell the layers apart.
#include <stdexcept>
#include <string>

namespace avlor {

class Error : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// A conversion or arithmetic failure on a value: overflow of a money amount
// or of a whole number, a null used where a number is needed, text that is
// not a number where one is required, a division by zero.
class ValueError : public Error {
public:
    enum class Kind { Overflow, InvalidUseOfNull, TypeMismatch, DivisionByZero, InvalidDate };

    ValueError(Kind kind, const std::string& message) : Error(message), kind_(kind) {}
    [[nodiscard]] Kind kind() const noexcept { return kind_; }

private:
    Kind kind_;
};

} // namespace avlor
