#include "suite/middletier/order_receipts.h"

#include <array>
#include <string>
#include <string_view>

#include "suite/middletier/base_currency.h"
#include "suite/middletier/bill_filter.h"
#include "suite/middletier/order_lines.h"
#include "suite/middletier/sort_list.h"

namespace salerpt::middletier {
namespace {

// --- Conditions

std::string UserCondition(const Dictionary& filter) {
  const Variant& user = filter.Get("UserID");
  if (user.IsEmptyText()) return "";
  const std::int32_t id = user.ToInt32();
  return Join(" And (Not Exists(Select 1 From t_DataRight r Where r.FUserID=", id,
              " And r.FKind=1 And r.FUsed=1) Or CharIndex('", id, "',t11.FRightUserID)>0)");
}

std::string Conditions(const Dictionary& filter) {
  const std::string_view code = CodeColumn(filter);
  return Join(StateCondition(filter), CloseCondition(filter), SaleStyleCondition(filter),
              CommodityCondition(filter, "t10"),
              RangeCondition(filter, Join("t10.", code), "BItemNumber", "EItemNumber"),
              RangeCondition(filter, Join("t11.", code), "BCustNumber", "ECustNumber"),
              RangeCondition(filter, Join("TD.", code), "BDept", "EDept"),
              RangeCondition(filter, Join("TE.", code), "BEmp", "EEmp"),
              RangeCondition(filter, "v1.FBillNo", "BBillNo", "EBillNo"), UserCondition(filter),
              DayCondition(filter.Get("BDate"), filter.Get("EDate")));
}

// --- What was invoiced of the lines, and received for it

// clang-format off
std::string InvoicedText(std::int16_t scale) {
  return Join(
      "Create Table #Invoiced(FInterID int not null,FEntryID int not null,FQty decimal(23,10) not null,\r\n"
      "  FAmountFor decimal(23,10) not null,FAmount decimal(23,10) not null,\r\n"
      "  FReceiveFor decimal(23,10) not null,FReceive decimal(23,10) not null)\r\n"
      "Insert Into #Invoiced(FInterID,FEntryID,FQty,FAmountFor,FAmount,FReceiveFor,FReceive)\r\n"
      "Select k.FInterID,k.FEntryID,Sum(e.FQty),\r\n"
      "  Sum(Case b.FTranType When 80 Then e.FAmount+e.FTaxAmount Else e.FAmount End),\r\n"
      "  Sum(Round(Case b.FTranType When 80 Then e.FStdAmount+e.FStdTaxAmount Else e.FStdAmount End,", scale, ")),\r\n"
      "  Sum(e.FReceiveAmountFor),Sum(Round(e.FReceiveAmount,", scale, "))\r\n"
      "From #OrderLines k\r\n"
      "Inner Join ICSaleEntry e On e.FOrderInterID=k.FInterID And e.FOrderEntryID=k.FEntryID\r\n"
      "Inner Join ICSale b On e.FInterID=b.FInterID\r\n"
      "Where b.FTranType In (80,86) And b.FStatus>0 And b.FCancelLation=0\r\n"
      "Group By k.FInterID,k.FEntryID\r\n");
}

// --- The rows

constexpr std::string_view kTable =
    "Create Table #Rpt1010(FInterID int null,FItemID int null,FTranType int null,FSumSort int not null default(0),\r\n"
    "  FDate datetime null,FSendDate datetime null,FBillNo varchar(355) not null default(''),\r\n"
    "  FCustNumber varchar(355) not null default(''),FCustName varchar(355) not null default(''),\r\n"
    "  FExplanation varchar(355) not null default(''),FItemNumber varchar(355) not null default(''),\r\n"
    "  FItemName varchar(355) not null default(''),FModel varchar(355) not null default(''),\r\n"
    "  FAuxPropName varchar(355) not null default(''),FUnitName varchar(355) not null default(''),\r\n"
    "  FCurrencyName varchar(355) not null default(''),FDeptNumber varchar(355) not null default(''),\r\n"
    "  FDeptName varchar(355) not null default(''),FEmpNumber varchar(355) not null default(''),\r\n"
    "  FEmpName varchar(355) not null default(''),FNote varchar(355) not null default(''),\r\n"
    "  FExchangeRate decimal(23,10) null,FOrderQty decimal(23,10) null,FOrderPriceFor decimal(23,10) null,\r\n"
    "  FOrderPrice decimal(23,10) null,FOutQty decimal(23,10) null,FNotOutQty decimal(23,10) null,\r\n"
    "  FInvoiceQty decimal(23,10) null,FNotInvoiceQty decimal(23,10) null,\r\n"
    "  FOrderAmountFor decimal(18,4) null,FOrderAmount decimal(18,4) null,FInvoiceAmountFor decimal(18,4) null,\r\n"
    "  FInvoiceAmount decimal(18,4) null,FReceiveAmount decimal(18,4) null,FOrderNotReceiveAmount decimal(18,4) null,\r\n"
    "  FInvoiceNotReceiveAmount decimal(18,4) null,FOrderDepositFor decimal(18,4) null,FOrderDeposit decimal(18,4) null,\r\n"
    "  FOrderPrePayAmountFor decimal(18,4) null,FOrderPrePayAmount decimal(18,4) null,\r\n"
    "  FOrderNo varchar(355) null,FEntryID int null,FCurrencyID int null)\r\n";

std::string LineRows(const Dictionary& filter, std::int16_t scale) {
  const std::string_view code = CodeColumn(filter);
  const std::string coefficient = CoefficientOf("t4");
  // An exact rate: a half is a half then, and is rounded away from zero.
  constexpr std::string_view kRate = "Convert(decimal(23,10),IsNull(v1.FExchangeRate,1))";
  return Join(
      "Insert Into #Rpt1010(FInterID,FItemID,FTranType,FDate,FSendDate,FBillNo,FCustNumber,FCustName,FExplanation,\r\n"
      "  FItemNumber,FItemName,FModel,FAuxPropName,FUnitName,FCurrencyName,FDeptNumber,FDeptName,FEmpNumber,FEmpName,\r\n"
      "  FNote,FExchangeRate,FOrderQty,FOrderPriceFor,FOrderPrice,FOutQty,FNotOutQty,FInvoiceQty,FNotInvoiceQty,\r\n"
      "  FOrderAmountFor,FOrderAmount,FInvoiceAmountFor,FInvoiceAmount,FReceiveAmount,FOrderNotReceiveAmount,\r\n"
      "  FInvoiceNotReceiveAmount,FOrderDepositFor,FOrderDeposit,FOrderPrePayAmountFor,FOrderPrePayAmount,\r\n"
      "  FOrderNo,FEntryID,FCurrencyID)\r\n"
      "Select v1.FInterID,v2.FItemID,v1.FTranType,v1.FDate,", kDueDate, ",v1.FBillNo,IsNull(t11.", code, ",''),\r\n"
      "  IsNull(t11.FName,''),IsNull(v1.FExplanation,''),t10.", code, ",IsNull(t10.FName,''),IsNull(t10.FModel,''),\r\n"
      "  IsNull(t7.FName,''),IsNull(t4.FName,''),IsNull(t6.FName,''),IsNull(TD.", code, ",''),IsNull(TD.FName,''),\r\n"
      "  IsNull(TE.", code, ",''),IsNull(TE.FName,''),IsNull(v2.FNote,''),", kRate, ",\r\n"
      "  v2.FQty/", coefficient, ",v2.FTaxPrice,v2.FTaxPrice*", kRate, ",IsNull(d.FQty,0)/", coefficient, ",\r\n"
      "  (v2.FQty-IsNull(d.FQty,0))/", coefficient, ",IsNull(i.FQty,0)/", coefficient, ",\r\n"
      "  (IsNull(d.FQty,0)-IsNull(i.FQty,0))/", coefficient, ",\r\n"
      "  v2.FAllAmount,Round(v2.FAllAmount*", kRate, ",", scale, "),IsNull(i.FAmountFor,0),IsNull(i.FAmount,0),\r\n"
      "  IsNull(i.FReceive,0),Round((v2.FAllAmount-IsNull(i.FReceiveFor,0))*", kRate, ",", scale, "),\r\n"
      "  IsNull(i.FAmount,0)-IsNull(i.FReceive,0),v1.FDepositFor,Round(v1.FDeposit,", scale, "),v1.FPrePayAmountFor,\r\n"
      "  Round(v1.FPrePayAmount,", scale, "),v1.FBillNo,v2.FEntryID,v1.FCurrencyID\r\n"
      "From #OrderLines k\r\n"
      "Inner Join SEOrder v1 On k.FInterID=v1.FInterID\r\n"
      "Inner Join SEOrderEntry v2 On k.FInterID=v2.FInterID And k.FEntryID=v2.FEntryID\r\n"
      "Inner Join t_ICItem t10 On v2.FItemID=t10.FItemID\r\n"
      "Left Join t_Organization t11 On v1.FCustID=t11.FItemID\r\n"
      "Left Join t_Department TD On v1.FDeptID=TD.FItemID\r\n"
      "Left Join t_Emp TE On v1.FEmpID=TE.FItemID\r\n"
      "Left Join t_MeasureUnit t4 On v2.FUnitID=t4.FMeasureUnitID\r\n"
      "Left Join t_Currency t6 On v1.FCurrencyID=t6.FCurrencyID\r\n"
      "Left Join t_AuxItem t7 On v2.FAuxPropID=t7.FItemID\r\n"
      "Left Join #Delivered d On k.FInterID=d.FInterID And k.FEntryID=d.FEntryID\r\n"
      "Left Join #Invoiced i On k.FInterID=i.FInterID And k.FEntryID=i.FEntryID\r\n");
}

// The deposits stand in every line of their order: the order has them once.
constexpr std::string_view kSums =
    "Insert Into #Rpt1010(FInterID,FTranType,FSumSort,FDate,FBillNo,FCustNumber,FCustName,FExplanation,FCurrencyName,\r\n"
    "  FDeptNumber,FDeptName,FEmpNumber,FEmpName,FExchangeRate,FOrderQty,FOutQty,FNotOutQty,FInvoiceQty,\r\n"
    "  FNotInvoiceQty,FOrderAmountFor,FOrderAmount,FInvoiceAmountFor,FInvoiceAmount,FReceiveAmount,\r\n"
    "  FOrderNotReceiveAmount,FInvoiceNotReceiveAmount,FOrderDepositFor,FOrderDeposit,FOrderPrePayAmountFor,\r\n"
    "  FOrderPrePayAmount,FOrderNo,FCurrencyID)\r\n"
    "Select FInterID,Max(FTranType),102,Max(FDate),Max(FOrderNo)+'(小计)',Max(FCustNumber),Max(FCustName),\r\n"
    "  Max(FExplanation),Max(FCurrencyName),Max(FDeptNumber),Max(FDeptName),Max(FEmpNumber),Max(FEmpName),\r\n"
    "  Max(FExchangeRate),Sum(FOrderQty),Sum(FOutQty),Sum(FNotOutQty),Sum(FInvoiceQty),Sum(FNotInvoiceQty),\r\n"
    "  Sum(FOrderAmountFor),Sum(FOrderAmount),Sum(FInvoiceAmountFor),Sum(FInvoiceAmount),Sum(FReceiveAmount),\r\n"
    "  Sum(FOrderNotReceiveAmount),Sum(FInvoiceNotReceiveAmount),Max(FOrderDepositFor),Max(FOrderDeposit),\r\n"
    "  Max(FOrderPrePayAmountFor),Max(FOrderPrePayAmount),Max(FOrderNo),Max(FCurrencyID)\r\n"
    "From #Rpt1010 Where FSumSort=0 Group By FInterID\r\n"
    "Insert Into #Rpt1010(FSumSort,FBillNo,FCurrencyName,FOrderQty,FOutQty,FNotOutQty,FInvoiceQty,FNotInvoiceQty,\r\n"
    "  FOrderAmountFor,FOrderAmount,FInvoiceAmountFor,FInvoiceAmount,FReceiveAmount,FOrderNotReceiveAmount,\r\n"
    "  FInvoiceNotReceiveAmount,FOrderDepositFor,FOrderDeposit,FOrderPrePayAmountFor,FOrderPrePayAmount)\r\n"
    "Select 101,'合计',Case When Min(FCurrencyID)=Max(FCurrencyID) Then Max(FCurrencyName) Else '' End,\r\n"
    "  Sum(FOrderQty),Sum(FOutQty),Sum(FNotOutQty),Sum(FInvoiceQty),Sum(FNotInvoiceQty),\r\n"
    "  Case When Min(FCurrencyID)=Max(FCurrencyID) Then Sum(FOrderAmountFor) Else Null End,Sum(FOrderAmount),\r\n"
    "  Case When Min(FCurrencyID)=Max(FCurrencyID) Then Sum(FInvoiceAmountFor) Else Null End,Sum(FInvoiceAmount),\r\n"
    "  Sum(FReceiveAmount),Sum(FOrderNotReceiveAmount),Sum(FInvoiceNotReceiveAmount),\r\n"
    "  Case When Min(FCurrencyID)=Max(FCurrencyID) Then Sum(FOrderDepositFor) Else Null End,Sum(FOrderDeposit),\r\n"
    "  Case When Min(FCurrencyID)=Max(FCurrencyID) Then Sum(FOrderPrePayAmountFor) Else Null End,\r\n"
    "  Sum(FOrderPrePayAmount)\r\n"
    "From #Rpt1010 Where FSumSort=102 Having Count(*)>0\r\n";

constexpr std::string_view kSelect =
    "Select FInterID,FItemID,FTranType,FSumSort,FDate,FSendDate,FBillNo,FCustNumber,FCustName,FExplanation,FItemNumber,\r\n"
    "  FItemName,FModel,FAuxPropName,FUnitName,FCurrencyName,FDeptNumber,FDeptName,FEmpNumber,FEmpName,FNote,\r\n"
    "  FExchangeRate,FOrderQty,FOrderPriceFor,FOrderPrice,FOutQty,FNotOutQty,FInvoiceQty,FNotInvoiceQty,FOrderAmountFor,\r\n"
    "  FOrderAmount,FInvoiceAmountFor,FInvoiceAmount,FReceiveAmount,FOrderNotReceiveAmount,FInvoiceNotReceiveAmount,\r\n"
    "  FOrderDepositFor,FOrderDeposit,FOrderPrePayAmountFor,FOrderPrePayAmount\r\n"
    "From #Rpt1010\r\n";
// clang-format on

std::string ShownRows(const Dictionary& filter) {
  const bool sums = filter.Get("chkIsShowSum").ToInt32() == 1;
  const bool details = filter.GetValue("chkIsShowDetail", 1).ToInt32() == 1;
  return Join("Where FSumSort=101", sums ? " Or FSumSort=102" : "", details ? " Or FSumSort=0" : "", kCrLf);
}

// --- Their order

struct SortColumn {
  std::string_view name;
  std::string_view column;
  bool of_line;  // parts the lines of one order
};
constexpr std::array kSortColumns = {SortColumn{"FOrderbyDate", "FDate", false},
                                     SortColumn{"FOrderbyBillNo", "FOrderNo", false},
                                     SortColumn{"FOrderbyCustNumber", "FCustNumber", false},
                                     SortColumn{"FOrderbyDeptNumber", "FDeptNumber", false},
                                     SortColumn{"FOrderbyEmpNumber", "FEmpNumber", false},
                                     SortColumn{"FNumber", "FItemNumber", true},
                                     SortColumn{"FShortNumber", "FItemNumber", true}};

const SortColumn& SortColumnOf(std::string_view name) {
  for (const SortColumn& column : kSortColumns) {
    if (EqualNames(name, column.name)) return column;
  }
  throw RuntimeError(error_number::kInvalidCall, "",
                     Join("\"Orderby\" names ", name, ", which the tracking of orders cannot be sorted by"));
}

// The lines of an order always lie together, its subtotal behind them: they share its deposits.
std::string OrderText(const Dictionary& filter) {
  std::string orders;
  std::string lines;
  for (const SortTerm& term : ReadSortList(filter.Get("Orderby").TextOrEmpty())) {
    const SortColumn& column = SortColumnOf(term.name);
    Append(column.of_line ? lines : orders, column.column, term.descending ? " DESC," : " ASC,");
  }
  return Join("Order By Case When FSumSort=101 Then 1 Else 0 End,", orders,
              "FDate,FOrderNo,FInterID,FSumSort,", lines, "FEntryID");
}

}  // namespace

RecordsetRef OrderReceipts(Server& server, const Dictionary& filter) {
  const std::int16_t scale = BaseCurrencyScale(server);
  return server.Query(Join(OrderLinesText(filter, "t11", Conditions(filter)), DeliveriesText(),
                           InvoicedText(scale), kTable, LineRows(filter, scale), kSums, kSelect,
                           ShownRows(filter), OrderText(filter)));
}

}  // namespace salerpt::middletier
