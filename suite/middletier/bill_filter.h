// Conditions that the filter keys of several reports make, for statements in which `v1` is the bill. Each is
// empty or begins with " And ". They raise what a value of the wrong kind raises.
#pragma once

#include <string>
#include <string_view>

#include "runtime/dictionary.h"

namespace salerpt::middletier {

// Bills from one day to another, both included, whatever the time of day they carry. Days are dates or texts
// of one. Raises invalid-call, naming "BDate" or "EDate", for a day that is missing.
std::string DayCondition(const Variant& first_day, const Variant& last_day);
// The same for another date than the bill's own, such as "v2.FDate".
std::string DayCondition(std::string_view date, const Variant& first_day, const Variant& last_day);

// Rows whose code, such as "t1.FNumber", lies between two keys of the filter, both ends included; an empty or
// absent end is open.
std::string RangeCondition(const Dictionary& filter, std::string_view code, std::string_view begin_key,
                           std::string_view end_key);

// "CheckState": 0 audited bills, 1 not audited ones, else both; cancelled ones never.
std::string StateCondition(const Dictionary& filter);

// "SaleType": a sale style. The dialogs' row "all" has the number 1.
std::string SaleStyleCondition(const Dictionary& filter);

// "CommodityType": 1 services, 2 all but services, else both; `item` is the alias of t_ICItem.
std::string CommodityCondition(const Dictionary& filter, std::string_view item);

// The column of the codes in use: "FNumber" where "bLongNumber" is true, "FShortNumber" otherwise.
std::string_view CodeColumn(const Dictionary& filter);

// The condition of "DataRightWhere"; its joins stand in "DataRightFrom".
std::string RightCondition(const Dictionary& filter);

}  // namespace salerpt::middletier
