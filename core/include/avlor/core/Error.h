#pragma once
// Root of the component's exception hierarchy. Each layer derives its own
// error from it (values, usage and settings here; DataError in the database
// layer; TariffFileError for the fee-table files), so a host can trap one
// type or tell the layers apart. The tariff engine has no failure of its
// own: it lets the errors of the layers below pass unchanged.
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

    ValueError(Kind kind, const std::string& message) : Error(message), kind_(kind) { }
    [[nodiscard]] Kind kind() const noexcept { return kind_; }

private:
    Kind kind_;
};

// A request that an operation cannot serve as asked: a key already present
// in a collection or an index outside it, an amount pattern that does not
// exist, a setting that the settings file cannot hold, a late-bound call to
// a class or operation that does not exist or with the wrong number of
// arguments.
class UsageError : public Error {
public:
    using Error::Error;
};

// The per-user settings file could not be written.
class SettingsError : public Error {
public:
    using Error::Error;
};

} // namespace avlor
