// The delivery due warning: order lines that are to be delivered and are not.
#pragma once

#include "runtime/dictionary.h"
#include "runtime/recordset.h"
#include "suite/middletier/server.h"

namespace salerpt::middletier {

// One row for each order line whose delivery day lies in the days of the filter and that is not delivered in
// full. Lines that will not be delivered any more are left out: those of closed and of cancelled orders, and
// closed lines. The columns:
//   FDate, FBillNo, FEntryID, FStatus              of the order; "已审核" or "未审核"
//   FCustomerNumber, FCustomerShortNumber, FCustomer, FExplanation, FDept, FEmp
//   FItemNumber, FItemShortNumber, FItem, FModel, FAuxProp
//   FFetchDate                                     the delivery day
//   FUnit, FQty, FStockQty, FUnStockQty            the unit of the line; in it what was ordered, what of it
//                                                  is delivered, what is not
//   FQtyDecimal                                    decimals of the quantities
// "GroupBy" brings the rows into order: "客户" by customer code, order and line; "物料" by item code,
// delivery day, order and line; any other word by delivery day, order and line. The filter:
//   "BDate", "EDate"       days of delivery, both included
//   "BCustomerNumber", "BItemNumber", "BDeptNumber", "BSalesNumber" (employee) and their "E…"   codes, long
//                          ones where "bLongNumber" is true; an end that is absent or empty is open
//   "AuditType"            "已审核", "未审核"; "全部" or nothing: both
//   "CommodityType"        1 services, 2 all but services, else all
//   "DataRightFrom", "DataRightWhere"   o is the customer
// Raises invalid-call for a missing day or another "AuditType", what a value of the wrong kind raises, and
// the engine's errors.
RecordsetRef OrdersDue(Server& server, const Dictionary& filter);

}  // namespace salerpt::middletier
