#pragma once
// Opening the fee-entry window as the public class does: a fresh dialog,
// Setta, the load, the window shown modally with no owner, and everything
// released once it has closed. No Qt type appears here, so that callers that
// do not use Qt themselves need none of its headers.
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "avlor/dialog/Clock.h"

namespace avlor::ui {

struct FeeEntryRequest {
    std::int32_t idPratica = 0;
    std::string parti;
    std::string adempimento;
    // The date of the work as Setta takes it.
    std::string data;
    // "Today" for the dialog; the machine's day when null.
    std::shared_ptr<const dialog::Clock> clock;
};

// Shows the window and returns once the user has closed it (or at once when
// the dialog could not read the case file and closed itself). Works in a
// process that already runs a Qt application (on that application's thread)
// and in one that does not: then an application is made for the time the
// window is open. Raises avlor::Error with one clear sentence when there is
// no screen to show the window on (see displayProblem), when the process runs
// a Qt application without widgets, or when called from another thread than
// the application's. Errors of the dialog's start-up go through as they are.
void showFeeEntryWindow(const FeeEntryRequest& request);

// Why a window cannot be shown in this process, or nothing when it can: the
// Qt platform chosen (QT_QPA_PLATFORM, otherwise the X display in DISPLAY or
// the Wayland one in WAYLAND_DISPLAY) must be installed and, for X, its
// display must accept a connection. Checked before an application is made,
// because Qt aborts the whole process when its platform cannot start.
[[nodiscard]] std::optional<std::string> displayProblem();

} // namespace avlor::ui
