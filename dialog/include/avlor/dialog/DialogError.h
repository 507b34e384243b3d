#pragma once
// DialogError: a request the fee-entry dialog cannot carry out as asked, such
// as an unknown control, an event the control does not have, or a row that
// is not in a list. It is a mistake of the caller (a front end, a script),
// never a condition of the firm's data.
#include "avlor/core/Error.h"

namespace avlor::dialog {

class DialogError : public Error {
public:
    using Error::Error;
};

} // namespace avlor::dialog
