// The row set of an operation that nobody recorded an answer for.
#pragma once

#include "runtime/recordset.h"

namespace salerpt::shell {

// An open set without fields and rows. It takes any filter text, since what a report filters on is not known
// here; writing into it raises wrong-arguments, reading a row no-current-row.
RecordsetRef MakeEmptyRecordset();

}  // namespace salerpt::shell
