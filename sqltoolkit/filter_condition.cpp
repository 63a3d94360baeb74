#include "sqltoolkit/filter_condition.h"

#include "runtime/mrpt.h"
#include "runtime/text.h"
#include "sqltoolkit/filter_values.h"

namespace salerpt {

void AppendBound(std::string& condition, const Dictionary& filter, std::string_view key,
                 std::string_view comparison) {
  const Variant& value = filter.Get(key);
  if (!value.TextOrEmpty().empty()) Append(condition, comparison, QuoteSql(value));
}

void AppendCodeRange(std::string& condition, const Dictionary& filter, std::string_view begin_key,
                     std::string_view end_key, std::string_view head) {
  AppendBound(condition, filter, begin_key, Join(head, CodeField(), ">="));
  AppendBound(condition, filter, end_key, Join(head, CodeField(), "<="));
}

void AppendCommodityType(std::string& condition, const Dictionary& filter) {
  switch (FilterInt(filter, "CommodityType")) {
    case 1:
      condition += " And t1.FErpClsID=4";
      break;
    case 2:
      condition += " And t1.FErpClsID<>4";
      break;
    default:
      break;
  }
}

void AppendSaleType(std::string& condition, const Dictionary& filter) {
  if (FilterNumber(filter, "SaleType") > 1) {
    Append(condition, " And v1.FSaleStyle = ", SqlNumber(filter.Get("SaleType")));
  }
}

}  // namespace salerpt
