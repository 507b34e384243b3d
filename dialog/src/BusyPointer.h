#pragma once
// The busy pointer around one database routine of the dialog: on when the
// routine starts, off however it ends.
#include "avlor/dialog/DialogView.h"

namespace avlor::dialog {

class BusyPointer {
public:
    explicit BusyPointer(DialogView& view) : view_(view) { view_.busy(true); }
    ~BusyPointer() { view_.busy(false); }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;

private:
    DialogView& view_;
};

} // namespace avlor::dialog
