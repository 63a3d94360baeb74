// A report's batch, as it comes in a request dictionary.
#pragma once

#include <functional>
#include <string_view>

#include "runtime/dictionary.h"
#include "runtime/recordset.h"
#include "suite/middletier/server.h"

namespace salerpt::middletier {

// Fills what a batch left blank in a table of its rows, given by name. False where there is no such table.
using FillRows = std::function<bool(tsql::Session& session, std::string_view table)>;

// Runs the batch of a request and gives the rows of its last select. The keys, run in this order within one
// conversation:
//   "SELECT" and "GROUPBY"  one text: makes, fills and sums the temporary tables
//   "Append"                updates, the pass that brings the rows into the asked order, and drops
//   "UpdateAppend"          further updates, where the key is there
//   "EndSel"                labels, the final select, drops
// Before "Append" the rows (`#TemData` where a sort order is asked for, else `#DATA`) are given to `fill`:
// the order may go by a column that it fills. A batch that makes `#DATA` only in "Append" gets it filled
// behind that. Updates that stand behind the clause of "GROUPBY" address `#DATA`, which is empty there where
// an order is asked for: they run once more behind "Append" then. The mark ##ITEMFILTER## becomes nothing: it
// would only spare rows that nobody joins. "NoPrice", "NoTaxRate", "NoDate" and "RptID" are not read. Raises
// the engine's error, or invalid-call for a request without "SELECT" or whose "EndSel" selects nothing. No
// temporary table outlives the call.
RecordsetRef RunSaleBatch(Server& server, const Dictionary& request, const FillRows& fill);
// The same; the item columns are filled (see item_columns.h), the common unit being the sale unit.
RecordsetRef RunSaleBatch(Server& server, const Dictionary& request);

}  // namespace salerpt::middletier
