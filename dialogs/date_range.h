// The range of dates of a dialog: `DtpBDate` to `DtpEDate`.
#pragma once

#include "dialogs/form.h"

namespace salerpt {

// Whether the range may be confirmed. A begin behind the end is told to the user and becomes the end.
bool AcceptDateRange(const Form& form);

}  // namespace salerpt
