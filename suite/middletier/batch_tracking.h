// The batch tracking of orders: their lines, the tasks made for them, what these took and what came of them.
#pragma once

#include "runtime/dictionary.h"
#include "suite/middletier/server.h"

namespace salerpt::middletier {

// Four row sets. Prices are without tax; prices and amounts are in base currency, amounts rounded to its
// scale. FUnitName is the base unit of the item, in which FQty and FPrice are, FCUUnitName its common unit,
// of FCUUnitQty and FCUUnitPrice. Days of production are texts YYYY-MM-DD, null where there is none.
//   "rsOrder"     the order lines that the filter lets through, by date and number of the order, then by
//   item:
//                 FOrderInterID, FOrderEntryID, FTranType, FOrderBillNo, FItemID, FDate, FCustNumber,
//                 FCustShortNumber, FCustName, FNumber, FShortNumber, FName, FModel, FAuxPropName, FBom (the
//                 number of its bill of material), FUnitName, FQty, FPrice, FCUUnitName, FCUUnitQty,
//                 FCUUnitPrice, FAmount
//   "rsWorkBill"  the tasks made for these lines: FOrderInterID, FOrderEntryID, FItemID, FWorkInterID,
//                 FTranType, FWorkBillNo, FWorkBillQty
//   "rsInStock"   product receipts: FOrderInterID, FOrderEntryID, FItemID, FWorkInterID,
//                 FInStockInterID, FTranType, FInBillNo, FBatchNo, FKFDate, FKFPeriod, FQty, FPrice,
//                 FCUUnitQty, FCUUnitPrice, FAmount. What a task of "rsWorkBill" brought names the task
//                 alone, what came for the order without one names the order line alone, the other numbers
//                 being 0: a receipt is found either way, never both, and counts once.
//   "rsOutStock"  what these tasks took: FWorkInterID, FOutStockInterID, FTranType, FOutBillNo, FWorkShop,
//                 FNumber, FShortNumber, FName, FModel, FBatchNo, FKFDate, FKFPeriod, FUnitName, FQty,
//                 FPrice, FCUUnitName, FCUUnitQty, FCUUnitPrice, FAmount
// Stock bills count that are audited or moved the stock when they were saved; cancelled bills and tasks
// never. The filter:
//   "BDate", "EDate"              days of the order
//   "BItemNumber", "BCustNumber" and their "E…"   codes, long ones where "bLongNumber" is true, or
//                                 where it is absent and the system uses them; an end that is absent or empty
//                                 is open
//   "BBill", "EBill"              numbers of orders
//   "CheckState"                  0 audited, 1 not audited, else both; cancelled orders never
//   "CloseState"                  1 open orders, 2 closed ones, else both
//   "DataRightFrom", "DataRightWhere"   T2 is the customer
// Raises invalid-call for a missing day, what a value of the wrong kind raises, and the engine's errors.
DictionaryRef BatchTracking(Server& server, const Dictionary& filter);

}  // namespace salerpt::middletier
