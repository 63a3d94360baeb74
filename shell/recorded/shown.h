// From the values of the library to JSON.
#pragma once

#include "runtime/object.h"
#include "runtime/recordset.h"
#include "shell/recorded/json_place.h"

namespace salerpt::shell {

// A deep copy, as the value stands now. Empty, null and nothing are null; whole doubles print without a
// point; currency with its decimals, exact up to 15 digits; dates are texts "YYYY-MM-DD", with " HH:MM:SS"
// behind where there is a time; dictionaries are objects in the order and spelling of first setting; vectors
// are arrays; row sets as ShowRecordset; any other object its class name in angle brackets. Raises invalid
// call for values nested deeper than JsonPlace::kMaxDepth (one that holds itself among them).
Json Show(const Variant& value);

// `{"fields": [[name, type, size], …], "rows": [[…], …]}`: the rows that pass the set's filter; null for a
// set that is not open. Leaves the set on its first row.
Json ShowRecordset(Recordset& rows);

}  // namespace salerpt::shell
