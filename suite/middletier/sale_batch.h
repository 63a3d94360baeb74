// A report's batch, as it comes in a request dictionary.
#pragma once

#include "runtime/dictionary.h"
#include "runtime/recordset.h"
#include "suite/middletier/server.h"

namespace salerpt::middletier {

// Runs the batch of a request and gives the rows of its last select. The keys, run in this order within one
// conversation:
//   "SELECT" and "GROUPBY"  one text: makes, fills and sums the temporary tables
//   "Append"                updates, the pass that brings the rows into the asked order, and drops
//   "UpdateAppend"          further updates, where the key is there
//   "EndSel"                labels, the final select, drops
// Before "Append" the blank item columns of the rows (`#TemData` where a sort order is asked for, else
// `#DATA`) are filled from the item master: the order may go by one of them. A batch that makes `#DATA` only
// in "Append" gets it filled behind that. The mark ##ITEMFILTER## becomes nothing: it would only spare rows
// that nobody joins. "NoPrice", "NoTaxRate", "NoDate" and "RptID" are not read. Raises the engine's error, or
// invalid-call for a request without "SELECT" or whose "EndSel" selects nothing. No temporary table outlives
// the call.
RecordsetRef RunSaleBatch(Server& server, const Dictionary& request);

}  // namespace salerpt::middletier
