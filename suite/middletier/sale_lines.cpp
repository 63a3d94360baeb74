#include "suite/middletier/sale_lines.h"

#include <string_view>

#include "suite/middletier/bill_filter.h"

namespace salerpt::middletier {
namespace {

constexpr int kPeriods = 12;

Date FirstDay(Period period) {
  if (period.year < 1753 || period.year > 9999) {
    throw RuntimeError(error_number::kInvalidCall, "",
                       Join("year ", period.year, " is not between 1753 and 9999"));
  }
  if (period.period < 1 || period.period > kPeriods) {
    throw RuntimeError(error_number::kInvalidCall, "",
                       Join("period ", period.period, " is not between 1 and 12"));
  }
  return Date::FromYmd(period.year, period.period, 1);
}

// The last moment of a period belongs to it: a bill may carry the time of day.
std::string DateCondition(Period period) {
  std::string condition = Join(" And v1.FDate>='", FirstDay(period).Format('/'), "'");
  if (period.year == 9999 && period.period == kPeriods) return condition;
  const bool year_ends = period.period == kPeriods;
  const Period next{year_ends ? period.year + 1 : period.year, year_ends ? 1 : period.period + 1};
  Append(condition, " And v1.FDate<'", FirstDay(next).Format('/'), "'");
  return condition;
}

std::string RangeConditions(const Dictionary& filter) {
  const std::string_view code = CodeColumn(filter);
  return Join(RangeCondition(filter, Join("t1.", code), "BItemNumber", "EItemNumber"),
              RangeCondition(filter, Join("t5.", code), "BEmpNumber", "EEmpNumber"),
              RangeCondition(filter, Join("t6.", code), "BDptNumber", "EDptNumber"),
              RangeCondition(filter, Join("T4.", code), "BCustNumber", "ECustNumber"));
}

std::string AmountText(std::int16_t scale) {
  return Join("Convert(decimal(18,", scale,
              "),Round(Case v1.FTranType When 80 Then v2.FAmount Else v2.FAmount-v2.FTaxAmount",
              " End*IsNull(v1.FExchangeRate,1),", scale, "))");
}

}  // namespace

std::string SaleLinesSql(Period period, const Dictionary& filter, std::int16_t scale) {
  const std::string amount = AmountText(scale);
  return Join("Select v2.FQty,", amount,
              " FAmount,v1.FInterID,v2.FEntryID,v1.FDate,"
              "IsNull(g.FName+'-'+Convert(varchar(30),w.FNumber),'') "
              "FVoucherNo,v1.FNote,v1.FBillNo,v1.FTranType,v2.FItemID,"
              "t1.FNumber,t1.FShortNumber,IsNull(t1.FName,'') FName,t1.FModel,IsNull(t3.FName,'') "
              "FUnitName,t1.FQtyDecimal,"
              "t1.FPriceDecimal,Case When v2.FQty=0 Then 0 Else ",
              amount, "/v2.FQty End FPrice", kCrLf, "From ICSale v1", kCrLf,
              "Inner Join ICSaleEntry v2 On v1.FInterID=v2.FInterID", kCrLf,
              "Inner Join t_ICItem t1 On v2.FItemID=t1.FItemID", kCrLf,
              "Left Join t_MeasureUnit t3 On t1.FUnitGroupID=t3.FUnitGroupID And t3.FStandard=1", kCrLf,
              "Left Join t_Organization T4 On v1.FCustID=T4.FItemID", kCrLf,
              "Left Join t_Emp t5 On v1.FEmpID=t5.FItemID", kCrLf,
              "Left Join t_Department t6 On v1.FDeptID=t6.FItemID", kCrLf,
              "Left Join t_Voucher w On v1.FVchInterID=w.FVoucherID", kCrLf,
              "Left Join t_VoucherGroup g On w.FGroupID=g.FGroupID", kCrLf,
              filter.Get("DataRightFrom").TextOrEmpty(), kCrLf, "Where v1.FTranType In (80,86)",
              DateCondition(period), StateCondition(filter), RangeConditions(filter), RightCondition(filter),
              kCrLf, "Order By v1.FDate,v1.FBillNo,v1.FInterID,v2.FEntryID");
}

}  // namespace salerpt::middletier
