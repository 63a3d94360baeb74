// The analyses of sales: their growth over the same period of last year, where they flow to, what they are
// made of.
#pragma once

#include "runtime/dictionary.h"
#include "runtime/recordset.h"
#include "suite/middletier/server.h"

namespace salerpt::middletier {

// Each runs the frame of a request (see report_frame.h; t1 item, t2 customer, t3 department, t4 employee, v1
// invoice, v2 its line) over the lines of the sales invoices of kinds 80 (special) and 86 (plain), red ones
// with the sign that they have there, cancelled ones never. Income is without tax, in base currency, each
// line rounded to that currency's scale. What all three have:
//   FNumber, FShortNumber, FName   of the item; "合计" in both codes of the total of a list
//   FAuxPropName                   the auxiliary property; blank where "AuxProp" is not 1
//   FUnitName, FCUUnitName         the item's base unit and its common unit
//   FQtyDecimal                    decimals of its quantities
//   Fentryid                       the place of the row among those of its item; FDate is always null
//   FSumSort, FID
// A list stands in the order of the codes, its total (FSumSort 101) last; no lines give no rows, and no
// total. The request:
//   "BItemNumber", "BCustNumber" and their "E…"   codes, long ones where "bLongNumber" is true; an end
//                                  that is absent or empty is open
//   "CheckState"                   0 audited, 1 not audited, else both
//   "CommodityType"                1 services, 2 all but services, else both
//   "AuxProp"                      1: a row for each auxiliary property of an item
//   "DataRightFrom", "DataRightWhere"   T3 is the customer
// They raise what FillFrame raises, what a value of the wrong kind raises, and the engine's errors.

// The period "BPeriod" of "BYear" against the same one of the year before; periods are natural months. Items
// sold in either have a row:
//   FModel
//   FThisQty, FCUUnitThisQty, FThisAmount   of the period; in base and common units, and the income
//   FLastQty, FCUUnitLastQty, FLastAmount   of last year's
//   FQtyAddCent, FAmountAddCent             growth in percent; null where there was nothing to grow from
//   FNote                                   blank
// Raises invalid-call for a year or period that is none.
RecordsetRef SalesGrowth(Server& server, const Dictionary& request);

// The days from "BDate" to "EDate", both included. A row for each customer of an item:
//   FRegionName, FCustomerName     the customer and its region; a list's total has "合计" in FRegionName,
//                                  which comes first, instead of its codes
//   FClassName, FModel             the item's class, that above it in the code tree
//   FQty, FCUUnitQty, FAmount      of the days
// Raises invalid-call for a missing day.
RecordsetRef SalesFlow(Server& server, const Dictionary& request);

// The periods of SalesGrowth:
//   FClassID, FClassName, FItemModel   the item's class, that above it in the code tree, and its model
//   FThisQty, FCUUnitThisQty, FThisAmount   of the period
//   FClassAmountCent               the row's share in the income of its item's class, in percent; null
//                                  where the class has none. The class counts whole, whatever items are
//                                  asked for and however they are grouped; total rows count each class in
//                                  them once
//   FLastAmount, FAmountAddCent    last year's income, and the growth
RecordsetRef SalesStructure(Server& server, const Dictionary& request);

}  // namespace salerpt::middletier
