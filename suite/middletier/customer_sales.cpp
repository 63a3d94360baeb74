#include "suite/middletier/customer_sales.h"

#include <string>
#include <string_view>

#include "suite/middletier/bill_filter.h"

namespace salerpt::middletier {
namespace {

constexpr std::int32_t kSalesList = 134;
constexpr std::int32_t kReturnsList = 135;
constexpr std::int32_t kAllHookStates = -1;

std::int32_t ListOf(const Dictionary& filter) {
  const std::int32_t list = filter.Get("RptID").ToInt32();
  if (list == kSalesList || list == kReturnsList) return list;
  throw RuntimeError(error_number::kInvalidCall, "",
                     Join("\"RptID\" of the filter is ", list, "; 134 or 135 was expected"));
}

// --- Conditions

std::string_view KindCondition(std::int32_t list) {
  return list == kReturnsList ? " And v1.FROB=-1" : "";
}

std::string HookCondition(const Dictionary& filter) {
  const std::int32_t status = filter.GetValue("HookStatus", kAllHookStates).ToInt32();
  return status == kAllHookStates ? "" : Join(" And v1.FHookStatus=", status);
}

std::string Conditions(std::int32_t list, const Dictionary& filter) {
  const std::string_view code = CodeColumn(filter);
  return Join(KindCondition(list), StateCondition(filter), HookCondition(filter), SaleStyleCondition(filter),
              CommodityCondition(filter, "t2"),
              RangeCondition(filter, Join("t2.", code), "BItemNumber", "EItemNumber"),
              RangeCondition(filter, Join("t1.", code), "BCustNumber", "ECustNumber"),
              DayCondition(filter.Get("BDate"), filter.Get("EDate")), RightCondition(filter));
}

// --- The batch

// The returns are read customer by customer: their list shows no date.
std::string OrderOf(std::int32_t list, const Dictionary& filter) {
  return Join(" Order By ", list == kReturnsList ? Join("t1.", CodeColumn(filter), ",") : "",
              "v1.FDate,v1.FBillNo,v1.FInterID,v2.FEntryID");
}

// clang-format off
constexpr std::string_view kCreate =
    "Create Table #Lines(\r\n"
    "  Fdate datetime null,FCustNumber varchar(80) not null default(''),FCustShortNumber varchar(80) not null default(''),\r\n"
    "  FCustName varchar(255) not null default(''),FNumber varchar(80) not null default(''),\r\n"
    "  FShortNumber varchar(80) not null default(''),FName varchar(255) not null default(''),\r\n"
    "  FModel varchar(255) not null default(''),FAuxPropName varchar(255) not null default(''),\r\n"
    "  FBillNo varchar(80) not null default(''),FAuxUnitName varchar(80) not null default(''),FCurrencyID int null,\r\n"
    "  FCurrencyName varchar(80) not null default(''),FExchangeRate float null,FAuxQty decimal(23,10) null,\r\n"
    "  FUnitName varchar(80) not null default(''),FQty decimal(23,10) null,FCUUnitName varchar(80) not null default(''),\r\n"
    "  FCUUnitQty decimal(23,10) null,FAmount decimal(23,10) null,FAmountFor decimal(23,10) null,\r\n"
    "  FQtyDecimal smallint null,FPriceDecimal smallint null,FSumSort smallint not null default(0),FID int IDENTITY)\r\n"
    "Declare @Scale smallint\r\n"
    "Set @Scale=2\r\n"
    "Select @Scale=FScale From t_Currency Where FCurrencyID=1\r\n";

// An exact rate: a half is a half then, and is rounded away from zero.
constexpr std::string_view kInsert =
    "Insert Into #Lines(Fdate,FCustNumber,FCustShortNumber,FCustName,FNumber,FShortNumber,FName,FModel,\r\n"
    "  FAuxPropName,FBillNo,FAuxUnitName,FCurrencyID,FCurrencyName,FExchangeRate,FAuxQty,FUnitName,FQty,\r\n"
    "  FCUUnitName,FCUUnitQty,FAmount,FAmountFor,FQtyDecimal,FPriceDecimal)\r\n"
    "Select v1.FDate,IsNull(t1.FNumber,''),IsNull(t1.FShortNumber,''),IsNull(t1.FName,''),t2.FNumber,\r\n"
    "  t2.FShortNumber,IsNull(t2.FName,''),IsNull(t2.FModel,''),IsNull(t7.FName,''),v1.FBillNo,\r\n"
    "  IsNull(t4.FName,''),v1.FCurrencyID,IsNull(t6.FName,''),IsNull(v1.FExchangeRate,1),v2.FAuxQty,\r\n"
    "  IsNull(t3.FName,''),v2.FQty,IsNull(t5.FName,''),\r\n"
    "  v2.FQty/(Case When IsNull(t5.FCoefficient,0)=0 Then 1 Else t5.FCoefficient End),\r\n"
    "  Round(Case v1.FTranType When 80 Then v2.FAmount Else v2.FAmount-v2.FTaxAmount End,IsNull(t6.FScale,@Scale)),\r\n"
    "  Round(Case v1.FTranType When 80 Then v2.FAmount Else v2.FAmount-v2.FTaxAmount End\r\n"
    "    *Convert(decimal(23,10),IsNull(v1.FExchangeRate,1)),@Scale),\r\n"
    "  t2.FQtyDecimal,t2.FPriceDecimal\r\n"
    "From ICSale v1\r\n"
    "Inner Join ICSaleEntry v2 On v1.FInterID=v2.FInterID\r\n"
    "Inner Join t_ICItem t2 On v2.FItemID=t2.FItemID\r\n"
    "Left Join t_Organization t1 On v1.FCustID=t1.FItemID\r\n"
    "Left Join t_MeasureUnit t3 On t2.FUnitGroupID=t3.FUnitGroupID And t3.FStandard=1\r\n"
    "Left Join t_MeasureUnit t4 On v2.FUnitID=t4.FMeasureUnitID\r\n"
    "Left Join t_MeasureUnit t5 On t2.FCUUnitID=t5.FMeasureUnitID\r\n"
    "Left Join t_Currency t6 On v1.FCurrencyID=t6.FCurrencyID\r\n"
    "Left Join t_AuxItem t7 On v2.FAuxPropID=t7.FItemID\r\n";

// Amounts of several currencies are never added together.
constexpr std::string_view kTotal =
    "Insert Into #Lines(FCustNumber,FCustShortNumber,FCurrencyName,FAuxQty,FQty,FCUUnitQty,FAmount,FAmountFor,\r\n"
    "  FQtyDecimal,FPriceDecimal,FSumSort)\r\n"
    "Select '合计','合计',Case When Min(FCurrencyID)=Max(FCurrencyID) Then Max(FCurrencyName) Else '' End,\r\n"
    "  Sum(FAuxQty),Sum(FQty),Sum(FCUUnitQty),\r\n"
    "  Case When Min(FCurrencyID)=Max(FCurrencyID) Then Sum(FAmount) Else Null End,Sum(FAmountFor),\r\n"
    "  Max(FQtyDecimal),Max(FPriceDecimal),101\r\n"
    "From #Lines Having Count(*)>0\r\n";
// clang-format on

std::string FinalSelect(const Dictionary& filter) {
  const bool by_property = filter.Get("AuxProp").ToInt32() == 1;
  return Join(
      "Select Fdate,FCustNumber,FCustShortNumber,FCustName,FNumber,FShortNumber,FName,FModel,",
      by_property ? "FAuxPropName," : "",
      "FBillNo,FAuxUnitName,FCurrencyName,FExchangeRate,FAuxQty,FUnitName,FQty,FCUUnitName,FCUUnitQty,"
      "FAmount,FAmountFor,FQtyDecimal,FPriceDecimal,FSumSort From #Lines Order By FID");
}

}  // namespace

RecordsetRef CustomerSales(Server& server, const Dictionary& filter) {
  const std::int32_t list = ListOf(filter);
  return server.Query(Join(kCreate, kInsert, filter.Get("DataRightFrom").TextOrEmpty(), kCrLf,
                           "Where v1.FTranType In (80,86)", Conditions(list, filter), OrderOf(list, filter),
                           kCrLf, kTotal, FinalSelect(filter)));
}

}  // namespace salerpt::middletier
