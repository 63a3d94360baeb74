// The order execution detail: each order line with its deliveries and what of it is still to come.
#pragma once

#include "runtime/dictionary.h"
#include "runtime/recordset.h"
#include "suite/middletier/server.h"

namespace salerpt::middletier {

// For each order line that the filter lets through, one after the other:
//   the line itself (FTranType 81)   FSaleQty what was ordered, FUnCommitQty what of it is not delivered yet
//   each of its deliveries           FTranType and FInterID of the delivering bill, FBillNo, FCommitDate,
//                                    FCommitQty; negative for what came back
//   its subtotal (FSumSort 102)      all three; "(小计)" stands behind FOrderBillNo
// and at the end, where there is any line, the total (FSumSort 101, "合计" in FOrderBillNo). A measure that a
// row does not speak of is null, so that details, subtotals and total each add up. Deliveries repeat what
// tells their order line. The lines stand by date, number and line of the order, deliveries by their date.
// The columns, in this order:
//   FInterID, FItemID, FTranType, FDate, FSendDate (to be delivered), FCommitDate (delivered)
//   FCustNumber, FShortCustNumber, FCustName, FNumber, FShortNumber, FName, FModel, FAuxPropName
//   FOrderBillNo, FUnitName, FCUUnitName (base and common unit), FNote (of the line), FBillNo
//   FEmpName, FDeptName
//   FSaleQty, FCUUnitSaleQty, FCommitQty, FCUUnitCommitQty, FUnCommitQty, FCUUnitUnCommitQty
//   FSumSort, FQtyDecimal
// The filter:
//   "BDate", "EDate"              days of the order
//   "BItemNumber", "BCustNumber", "BCompanyNumber", "BDept", "BEmp" and their "E…"   codes, long ones where
//                                 "bLongNumber" is true; an end that is absent or empty is open
//   "BBillNo", "EBillNo"          numbers of orders
//   "CustName"                    name of a customer, where one row of the summary is looked into
//   "CheckState"                  0 audited, 1 not audited, else both; cancelled orders never
//   "CloseState"                  1 open orders, 2 closed ones, else both
//   "SaleType", "OrderType"       one sale style above 1; one order type above -1
//   "Implement"                   1 lines that are late: to be delivered before today and not all of it
//                                 delivered; 2 lines that were late: all delivered, the last of it behind
//                                 its day; else all
//   "CommodityType"               1 services, 2 all but services, else all
//   "DataRightFrom", "DataRightWhere"   t11 is the customer
// Raises invalid-call for a missing day, what a value of the wrong kind raises, and the engine's errors.
RecordsetRef OrderExecution(Server& server, const Dictionary& filter);

}  // namespace salerpt::middletier
