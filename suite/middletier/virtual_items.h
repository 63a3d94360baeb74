// The orders of virtual items, sets that are sold as one and put together from other items.
#pragma once

#include "runtime/dictionary.h"
#include "runtime/recordset.h"
#include "suite/middletier/server.h"

namespace salerpt::middletier {

// Runs the frame of a request over the order lines of virtual items (FErpClsID 5). The frame leaves its
// columns, its joins and its conditions empty: they are put in here. "Select" makes `#Data` with the columns
// of its groups, or none, inserts into it and selects; "GROUPBY" groups; "EndSel" gives the rows. In the
// statement t1 is the item, t2 the customer, t3 the department, t4 the employee, v1 the order, v2 its line,
// t5 the currency, t6 the sale unit of the item. The columns behind those of the groups:
//   FNumber, FDate, FCustNumber, FCustName, FBillNo, FShortNumber, FName   of the line and its virtual item;
//   the
//                                     code of the customer is the one in use
//   FChildName, FModel, FUnitName, FQtyDecimal   of the row's own item; FUnitName is the base unit
//   FSaleQty, FSaleAmount             ordered; without tax, base currency
//   FChildSaleQty, FChildSaleAmount   the same for the items that the virtual item is put together from
//   FCommitQty, FDiffQty              what of the virtual item is delivered (see order_lines.h), and is not
//   FCUUnitName, FCUUnitSaleQty, FCUUnitChildSaleQty, FCUUnitCommitQty, FCUUnitDiffQty   in the sale unit
//   Fentryid                          the place of the row
//   FSumSort, FID
// A plain list has a row for each line, behind it one for each item of the bill of material that the line
// names, or of the one in use for its virtual item, and a total (FSumSort 101, "合计" in both codes) where
// there is any line. The amount of the line is parted among these items by quantity and sale price, to the
// last coin. A grouped report has a row for each virtual item, and its child columns sum up all items in it.
// The request:
//   "BDate", "EDate"               days of the order
//   "BItemNumber", "BCustNumber" and their "E…"   codes, long ones where "bLongNumber" is true; an end that
//   is
//                                  absent or empty is open
//   "CheckState"                   0 audited, 1 not audited, else both; cancelled orders never
//   "SaleType", "OrderType"        one sale style above 1; one order type above -1
//   "DataRightFrom", "DataRightWhere"   v1 is the customer
// Raises invalid-call for a missing day or a "Select" that makes no `#Data`, what a value of the wrong kind
// raises, and the engine's errors.
RecordsetRef VirtualItemOrders(Server& server, const Dictionary& request);

}  // namespace salerpt::middletier
