// The sales order lines that a list is about, and what was delivered of them.
#pragma once

#include <string>
#include <string_view>

#include "runtime/dictionary.h"

namespace salerpt::middletier {

// A batch that makes `#OrderLines`(FInterID, FEntryID, FSaleStyle): the lines that `conditions` let through.
// In these v1 is the order, v2 its line, t10 the item, `customer` the customer, t12 the branch, TD the
// department, TE the employee. Each condition begins with " And ". The joins of "DataRightFrom" and the
// condition of "DataRightWhere" hold, too.
std::string OrderLinesText(const Dictionary& filter, std::string_view customer, std::string_view conditions);

// A batch that makes, for the lines of `#OrderLines`,
//   #Deliveries   one row for each delivery: FInterID, FEntryID of the order line; FTranType, FBillID,
//                 FBillEntryID, FBillNo, FDate, FNote of the delivering line; FQty in base units, negative
//                 for what came back
//   #Delivered    one row for each line that has any: FInterID, FEntryID, FQty in all, FLastDate, the day of
//                 the last one that went out
// Goods are delivered by outbound bills that are audited or that moved the stock when they were saved. Orders
// of straight sales have none: their goods are delivered by audited sales invoices. Cancelled bills never
// count.
std::string DeliveriesText();

// "CloseState": 1 open orders, 2 closed ones, else both.
std::string CloseCondition(const Dictionary& filter);

// "OrderType": an order type above -1; -1 and absent are all.
std::string OrderTypeCondition(const Dictionary& filter);

// The day on which a line (v2) is to be delivered.
inline constexpr std::string_view kDueDate = "IsNull(v2.FAdviceConsignDate,v2.FDate)";

// Base units in one unit of an item, `unit` being the alias of t_MeasureUnit: 1 where nobody says.
std::string CoefficientOf(std::string_view unit);

}  // namespace salerpt::middletier
