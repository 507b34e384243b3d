#include "avlor/dialog/Clock.h"

namespace avlor::dialog {

Date SystemClock::today() const { return Date::today(); }

} // namespace avlor::dialog
