#pragma once
// InjectedFault: a switch for tests of what a failure leaves behind. While
// one is armed, the `failAt`-th database call from the moment of arming
// fails with DataError, as a dropped connection or a full disk would make
// it fail. The calls counted are: opening a statement or a table ("open"),
// asking for a single value ("value"), moving to the next row ("read"),
// writing a row ("update"), deleting one ("delete"), and beginning, locking
// and committing a transaction ("begin", "lock", "commit"). A failed commit
// leaves nothing of its transaction, as a real one does.
//
// Off unless armed, and process-wide: the component runs on one thread.
#include <string>

namespace avlor {

class InjectedFault {
public:
    // Arms the switch: call number `failAt` from now fails (1 is the next
    // call); 0 only counts. Arming a second one while one is armed raises
    // std::logic_error.
    explicit InjectedFault(int failAt);
    // Disarms the switch.
    ~InjectedFault();
    InjectedFault(const InjectedFault&) = delete;
    InjectedFault& operator=(const InjectedFault&) = delete;

    // The calls counted since arming (the failed one included).
    [[nodiscard]] int calls() const noexcept;
    // True once the chosen call has failed.
    [[nodiscard]] bool fired() const noexcept;
    // The kind of the call that failed ("update", "commit"...); empty before.
    [[nodiscard]] const std::string& firedAt() const noexcept;
};

} // namespace avlor
