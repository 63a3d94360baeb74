// What lies in the stocks.
#pragma once

#include "runtime/recordset.h"
#include "suite/middletier/server.h"

namespace salerpt::middletier {

// A row for each item and stock that goods of it ever moved in, by code of item and stock. Receipts bring,
// issues and outbound bills take, red bills the other way round; bills count that are audited or that moved
// the stock when they were saved, cancelled ones never. Of the stocks those are shown that the user who is
// logged in may see, virtual ones too. Quantities are in base units.
//   FNumber, FShortNumber, FName, FModel, FUnitName, FQtyDecimal    of the item
//   FStockNumber, FStockShortNumber, FStockName
//   FInQty, FOutQty, FQty                                           brought, taken, left
RecordsetRef StockBalances(Server& server);

}  // namespace salerpt::middletier
