// The production and sales tracking of orders.
#pragma once

#include "runtime/dictionary.h"
#include "runtime/recordset.h"
#include "suite/middletier/server.h"

namespace salerpt::middletier {

// Fills `#T139`, one row for each order line that `filter` lets through, and runs the batch of `frames` over
// it (of its keys those of RunSaleBatch are read, see sale_batch.h; the item conditions stand in it):
//   FInterID, FEntryID, FItemID          the line
//   FQty, FAuxQty                        ordered
//   FBCommitQty, FAuxBCommitQty          produced by the tasks made for it
//   FInStockQty, FInAuxStockQty          received from production
//   FOutStockQty, FOutAuxStockQty        delivered, see order_lines.h
//   FUnFinishQty, FUnAuxFinishQty        ordered and not delivered
//   FState                               0 nothing delivered, 1 part of it, 2 all
// The first of each pair is in the base unit, the second in the common unit of the item. In the rows of
// `#DATA` that name a line the blank columns are filled: FDate, FBillNo, FCustNumber, FCustName (codes are
// those in use), FAdviceConsignDate, FItemShortNumber, FName, FModel, FAuxName, FBaseUnitName,
// FStockUnitName, FQtyDecimal and FExecutionStatus ("未执行", "部分执行", "完全执行"). A plain list has its
// label of the total, "合计", in FDate; class levels bring their own. Where short codes are in use the rows
// get a column FShortNumber, if the batch did not make one: the column that shows the code reads it. The
// filter:
//   "BDate", "EDate"            days of the order
//   "BClientNumber", "BDept", "BEmp" and their "E…"   codes, long ones where "bLongNumber" is true; an end
//   that
//                               is absent or empty is open
//   "BBillNo", "EBillNo"        numbers of orders
//   "FSaleStyle"                0 cash, 1 credit, 2 instalment, 3 consignment, else and where absent all
//   "CheckState"                0 audited, 1 not audited, else both; cancelled orders never
//   "CheckClose"                0 closed orders, 1 open ones, else and where absent both
//   "Unexecuted", "Partialexecution", "Fullyexecuted"   1 for the states that are wanted, none being all.
//                               Not read where "GroupBy" or "OnlyShowSum" is 1: sums are of all lines
//   "DataRightFrom", "DataRightWhere"   tc is the customer, td the department, te the employee
// Raises invalid-call for a missing day, what a value of the wrong kind raises, and the engine's errors.
RecordsetRef OrderTracking(Server& server, const Dictionary& frames, const Dictionary& filter);

}  // namespace salerpt::middletier
