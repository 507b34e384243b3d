#include "avlor/data/InjectedFault.h"

#include <stdexcept>

#include "FaultPoint.h"
#include "avlor/data/DataError.h"

namespace avlor {

namespace {

struct Switch {
    bool armed = false;
    int failAt = 0;
    int calls = 0;
    bool fired = false;
    std::string firedAt;
};

Switch& theSwitch()
{
    static Switch instance;
    return instance;
}

} // namespace

InjectedFault::InjectedFault(int failAt)
{
    Switch& s = theSwitch();
    if (s.armed) {
        throw std::logic_error("An injected fault is already armed");
    }
    s = Switch{true, failAt, 0, false, {}};
}

InjectedFault::~InjectedFault() { theSwitch() = Switch{}; }

int InjectedFault::calls() const noexcept { return theSwitch().calls; }

bool InjectedFault::fired() const noexcept { return theSwitch().fired; }

const std::string& InjectedFault::firedAt() const noexcept { return theSwitch().firedAt; }

void databaseCall(const char* what)
{
    Switch& s = theSwitch();
    if (!s.armed) {
        return;
    }
    ++s.calls;
    if (s.calls == s.failAt) {
        s.fired = true;
        s.firedAt = what;
        throw DataError("Guasto simulato alla chiamata al database numero " + std::to_string(s.calls) + " (" + what +
                        ")");
    }
}

} // namespace avlor
