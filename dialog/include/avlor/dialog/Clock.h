#pragma once
// Clock: where the fee-entry dialog learns which day it is. The dialog never
// reads the machine's date itself, so that a host, the scriptable driver and
// the tests can pin "today".
#include "avlor/core/Date.h"

namespace avlor::dialog {

class Clock {
public:
    virtual ~Clock() = default;
    [[nodiscard]] virtual Date today() const = 0;
};

// The local calendar day of the machine.
class SystemClock final : public Clock {
public:
    [[nodiscard]] Date today() const override;
};

// A day fixed by whoever holds the clock; it can be moved at any time.
class FixedClock final : public Clock {
public:
    explicit FixedClock(Date day) noexcept : day_(day) { }
    [[nodiscard]] Date today() const override { return day_; }
    void set(Date day) noexcept { day_ = day; }

private:
    Date day_;
};

} // namespace avlor::dialog
