// The batches of the outbound and order summaries and the gross profit: what they leave to the middle tier.
#pragma once

#include "runtime/dictionary.h"
#include "runtime/recordset.h"
#include "suite/middletier/server.h"

namespace salerpt::middletier {

// Runs the batch of a request (see sale_batch.h) and fills the item columns of its rows (see item_columns.h),
// the common unit being the one that the batch counts in: the item's own where it names FCUUnitID, else the
// sale unit. Where "UnitCost" of the request is 1, `FUnitCost` too: FCostSale by FQtySend, see
// price_columns.h. Raises what RunSaleBatch raises.
RecordsetRef SaleAmounts(Server& server, const Dictionary& request);

// Runs the batch of the outbound detail. One that lists bill lines names their items itself and is left
// alone; one with a "GROUPBY" has its item columns filled. Raises what RunSaleBatch raises.
RecordsetRef SaleDetail(Server& server, const Dictionary& request);

}  // namespace salerpt::middletier
