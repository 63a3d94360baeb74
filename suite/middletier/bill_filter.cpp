#include "suite/middletier/bill_filter.h"

#include "runtime/mrpt.h"

namespace salerpt::middletier {
namespace {

Date DayOf(const Variant& day, std::string_view key) {
  if (day.IsNull() || day.IsEmptyText()) {
    throw RuntimeError(error_number::kInvalidCall, "", Join(key, " is missing; a date was expected"));
  }
  return day.ToDate();
}

}  // namespace

std::string DayCondition(const Variant& first_day, const Variant& last_day) {
  return DayCondition("v1.FDate", first_day, last_day);
}

std::string DayCondition(std::string_view date, const Variant& first_day, const Variant& last_day) {
  const Date first = DayOf(first_day, "BDate");
  const Date last = DayOf(last_day, "EDate");
  return Join(" AND convert(datetime,convert(varchar(30),", date, ",111)) >='", first.Format('/'), "'", kCrLf,
              " AND convert(datetime,convert(varchar(30),", date, ",111)) <='", last.Format('/'), "'");
}

std::string RangeCondition(const Dictionary& filter, std::string_view code, std::string_view begin_key,
                           std::string_view end_key) {
  std::string condition;
  if (const Variant& value = filter.Get(begin_key); !value.IsEmptyText()) {
    Append(condition, " And ", code, ">=", QuoteSql(value));
  }
  if (const Variant& value = filter.Get(end_key); !value.IsEmptyText()) {
    Append(condition, " And ", code, "<=", QuoteSql(value));
  }
  return condition;
}

std::string StateCondition(const Dictionary& filter) {
  switch (filter.Get("CheckState").ToInt32()) {
    case 0:
      return " And v1.FStatus>0 And v1.FCancelLation=0";
    case 1:
      return " And v1.FStatus=0 And v1.FCancelLation=0";
    default:
      return " And v1.FCancelLation=0";
  }
}

std::string SaleStyleCondition(const Dictionary& filter) {
  const std::int32_t style = filter.Get("SaleType").ToInt32();
  return style > 1 ? Join(" And v1.FSaleStyle=", style) : "";
}

std::string CommodityCondition(const Dictionary& filter, std::string_view item) {
  switch (filter.Get("CommodityType").ToInt32()) {
    case 1:
      return Join(" And ", item, ".FErpClsID=4");
    case 2:
      return Join(" And ", item, ".FErpClsID<>4");
    default:
      return "";
  }
}

std::string_view CodeColumn(const Dictionary& filter) {
  return filter.Get("bLongNumber").ToBoolean() ? "FNumber" : "FShortNumber";
}

std::string RightCondition(const Dictionary& filter) {
  const std::string condition = filter.GetValue("DataRightWhere", "").TextOrEmpty();
  return Trim(condition).empty() ? "" : Join(" And ", condition);
}

}  // namespace salerpt::middletier
