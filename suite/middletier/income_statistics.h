// The sales income statistics and the customer sales summary: what their batches leave to the middle tier.
#pragma once

#include "runtime/dictionary.h"
#include "runtime/recordset.h"
#include "suite/middletier/server.h"

namespace salerpt::middletier {

// Runs the batch of a request over the bills from one day to another, both included, and gives its rows; see
// sale_batch.h for the keys. The mark ##CHECKDATE##, which stands behind other conditions on the bill `v1`,
// becomes the condition on its day, in every text of the request; the request itself stays as it is. The rows
// are completed as income_columns.h tells; which columns there are is told by the table, so "CurrencyShow",
// "AuxProp" and "IsUseCust" are not read. A day comes as a date or as a text of one. Raises invalid-call,
// naming it, for a day that is missing, type mismatch for a text that is no date, and what RunSaleBatch
// raises.
RecordsetRef IncomeStatistics(Server& server, const Variant& first_day, const Variant& last_day,
                              const Dictionary& request);

}  // namespace salerpt::middletier
