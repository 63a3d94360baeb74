// Conditions of a batch, from the ranges and choices of a report's `Filter`.
#pragma once

#include <string>
#include <string_view>

#include "runtime/dictionary.h"

namespace salerpt {

// One end of a range: `comparison` (such as " And v2.FBatchNo>=") and the quoted value of the key. Nothing is
// added where the filter leaves the end open.
void AppendBound(std::string& condition, const Dictionary& filter, std::string_view key,
                 std::string_view comparison);

// Both ends of a range of codes: `head` (such as " AND t1."), the code in use, ">=" or "<=" and the value.
void AppendCodeRange(std::string& condition, const Dictionary& filter, std::string_view begin_key,
                     std::string_view end_key, std::string_view head);

// The choice "CommodityType": 1 services alone, 2 all but services; `t1` is the item.
void AppendCommodityType(std::string& condition, const Dictionary& filter);

// The choice "SaleType": above 1 the id of one sale style, anything else all of them; `v1` is the bill.
// Raises type mismatch for a text that is no number.
void AppendSaleType(std::string& condition, const Dictionary& filter);

}  // namespace salerpt
