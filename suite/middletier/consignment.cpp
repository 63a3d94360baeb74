#include "suite/middletier/consignment.h"

#include <string>
#include <string_view>

#include "suite/middletier/base_currency.h"
#include "suite/middletier/item_columns.h"
#include "suite/middletier/sale_batch.h"

namespace salerpt::middletier {
namespace {

std::int32_t SaleStyle(const Dictionary& request) {
  if (request.Lookup("FSaleStyle")) return request.Get("FSaleStyle").ToInt32();
  throw RuntimeError(error_number::kInvalidCall, "",
                     "the request has no \"FSaleStyle\"; the sale style of the list was expected");
}

std::string_view StockCondition(const Dictionary& request) {
  constexpr int kShown = 1;
  return request.GetValue("ShowVirtualStock", kShown).ToInt32() != 0 ? "" : " And IsNull(s.FTypeID,500)=500";
}

std::string DayText(const Dictionary& request, std::string_view key) {
  const Variant& day = request.Get(key);
  if (!day.IsNull() && !day.IsEmptyText()) return day.ToDate().Format('/');
  throw RuntimeError(error_number::kInvalidCall, "", Join(key, " is missing; a date was expected"));
}

// 1 for a bill that lies before the period, else 0.
std::string IsBefore(const Dictionary& request) {
  return Join("Case When u1.FDate<'", DayText(request, "BDate"), "' Then 1 Else 0 End");
}

// Bills up to the end of the period, whatever time of its last day they carry.
std::string UntilEnd(const Dictionary& request) {
  return Join(" And convert(datetime,convert(varchar(30),u1.FDate,111))<='", DayText(request, "Edate"), "'");
}

// The outbound lines up to the end of the period: u1 the bill, u2 its line.
std::string SentText(const Dictionary& request, std::int16_t scale) {
  // clang-format off
  return Join(
      "Create Table #Rpt303Sent(FInterID int not null,FEntryID int not null,FItemID int not null,"
      "FCustID int not null,FEmpID int not null,FDeptID int not null,FBatchNo varchar(200) not null,\r\n"
      "FIsBefore smallint not null,FQty decimal(23,10) not null,FAmount decimal(18,", scale, ") not null)\r\n"
      "Insert Into #Rpt303Sent(FInterID,FEntryID,FItemID,FCustID,FEmpID,FDeptID,FBatchNo,FIsBefore,FQty,"
      "FAmount)\r\n"
      "Select u1.FInterID,u2.FEntryID,u2.FItemID,u1.FSupplyID,u1.FEmpID,u1.FDeptID,u2.FBatchNo,",
      IsBefore(request), ",u2.FQty,Round(u2.FConsignAmount,", scale, ")\r\n"
      "From ICStockBill u1\r\n"
      "Inner Join ICStockBillEntry u2 On u1.FInterID=u2.FInterID\r\n"
      "Left Join t_Stock s On u2.FDCStockID=s.FItemID\r\n"
      "Where u1.FTranType=21 And u1.FSaleStyle=", SaleStyle(request),
      UntilEnd(request), StockCondition(request),
      request.Get("sWheChk").TextOrEmpty(), "\r\n");
  // clang-format on
}

// What is invoiced of each outbound line, before the period and up to its end: u1 the invoice, u2 its line.
std::string SettledText(const Dictionary& request) {
  // clang-format off
  return Join(
      "Create Table #Rpt303Settled(FInterID int not null,FEntryID int not null,"
      "FBegQty decimal(23,10) not null,FQty decimal(23,10) not null)\r\n"
      "Insert Into #Rpt303Settled(FInterID,FEntryID,FBegQty,FQty)\r\n"
      "Select u2.FSourceInterID,u2.FSourceEntryID,Sum(", IsBefore(request), "*u2.FQty),Sum(u2.FQty)\r\n"
      "From ICSale u1\r\n"
      "Inner Join ICSaleEntry u2 On u1.FInterID=u2.FInterID\r\n"
      "Where u1.FTranType In (80,86) And u2.FSourceTranType=21",
      UntilEnd(request), request.Get("sWheChk").TextOrEmpty(), "\r\n"
      "Group By u2.FSourceInterID,u2.FSourceEntryID\r\n");
  // clang-format on
}

// The share of a line's amount that a settled quantity is of the line. It is rounded over all that was
// settled up to a day, and the period takes the difference, so that roundings do not pile up.
std::string ShareText(std::string_view settled, std::int16_t scale) {
  return Join("Case When k.FQty=0 Then 0 Else Round(k.FAmount*IsNull(r.", settled, ",0)/k.FQty,", scale,
              ") End");
}

std::string BalanceText(const Dictionary& request, std::int16_t scale) {
  const std::string share_before = ShareText("FBegQty", scale);
  const std::string share = ShareText("FQty", scale);
  constexpr std::string_view kCoefficient =
      "Max(Case When IsNull(t5.FCoefficient,0)=0 Then 1 Else t5.FCoefficient End)";
  // clang-format off
  return Join(
      "Create Table #Rpt303(FItemID int not null,FCustID int not null,FEmpID int not null,FDeptID int not null,"
      "FBatchNo varchar(200) not null,FQtyDecimal smallint not null,\r\n"
      "FBegQty decimal(23,10) not null,FCUBegQty decimal(23,10) not null,"
      "FBegAmount decimal(18,", scale, ") not null,\r\n"
      "FSendQty decimal(23,10) not null,FCUSendQty decimal(23,10) not null,"
      "FSendAmount decimal(18,", scale, ") not null,\r\n"
      "FVerifQty decimal(23,10) not null,FCUVerifQty decimal(23,10) not null,"
      "FVerifAmount decimal(18,", scale, ") not null)\r\n"
      "Insert Into #Rpt303(FItemID,FCustID,FEmpID,FDeptID,FBatchNo,FQtyDecimal,FBegQty,FCUBegQty,FBegAmount,"
      "FSendQty,FCUSendQty,FSendAmount,FVerifQty,FCUVerifQty,FVerifAmount)\r\n"
      "Select v1.FItemID,v1.FCustID,v1.FEmpID,v1.FDeptID,v1.FBatchNo,Max(t1.FQtyDecimal),\r\n"
      "Sum(v1.FBegQty),Convert(decimal(23,10),Sum(v1.FBegQty))/", kCoefficient, ",Sum(v1.FBegAmount),\r\n"
      "Sum(v1.FSendQty),Convert(decimal(23,10),Sum(v1.FSendQty))/", kCoefficient, ",Sum(v1.FSendAmount),\r\n"
      "Sum(v1.FVerifQty),Convert(decimal(23,10),Sum(v1.FVerifQty))/", kCoefficient, ",Sum(v1.FVerifAmount)\r\n"
      "From (Select k.FItemID,k.FCustID,k.FEmpID,k.FDeptID,k.FBatchNo,\r\n"
      "k.FIsBefore*(k.FQty-IsNull(r.FBegQty,0)) FBegQty,"
      "k.FIsBefore*(k.FAmount-", share_before, ") FBegAmount,\r\n"
      "(1-k.FIsBefore)*k.FQty FSendQty,(1-k.FIsBefore)*k.FAmount FSendAmount,\r\n"
      "IsNull(r.FQty,0)-k.FIsBefore*IsNull(r.FBegQty,0) FVerifQty,",
      share, "-k.FIsBefore*", share_before, " FVerifAmount\r\n"
      "From #Rpt303Sent k Left Join #Rpt303Settled r On k.FInterID=r.FInterID And k.FEntryID=r.FEntryID) v1\r\n"
      "Inner Join t_ICItem t1 On v1.FItemID=t1.FItemID\r\n"
      "Left Join t_Organization t2 On v1.FCustID=t2.FItemID\r\n"
      "Left Join t_Emp t3 On v1.FEmpID=t3.FItemID\r\n"
      "Left Join t_Department t4 On v1.FDeptID=t4.FItemID\r\n"
      "Left Join t_MeasureUnit t5 On t1.FSaleUnitID=t5.FMeasureUnitID\r\n"
      "Where 1=1", request.Get("Filter").TextOrEmpty(), "\r\n"
      "Group By v1.FItemID,v1.FCustID,v1.FEmpID,v1.FDeptID,v1.FBatchNo\r\n"
      "Having Sum(v1.FBegQty)<>0 Or Sum(v1.FBegAmount)<>0 Or Sum(v1.FSendQty)<>0 Or Sum(v1.FSendAmount)<>0"
      " Or Sum(v1.FVerifQty)<>0 Or Sum(v1.FVerifAmount)<>0\r\n"
      "Drop Table #Rpt303Sent Drop Table #Rpt303Settled");
  // clang-format on
}

// Closing balance and prices, on total rows as on details.
constexpr std::string_view kClosingText =
    "Update #DATA Set FEndQty=IsNull(FBegQty,0)+IsNull(FSendQty,0)-IsNull(FVerifQty,0),"
    "FCUEndQty=IsNull(FCUBegQty,0)+IsNull(FCUSendQty,0)-IsNull(FCUVerifQty,0),"
    "FEndAmount=IsNull(FBegAmount,0)+IsNull(FSendAmount,0)-IsNull(FVerifAmount,0)\r\n"
    "Update #DATA Set FBegPrice=Case When IsNull(FBegQty,0)=0 Then 0 Else FBegAmount/FBegQty End,"
    "FCUBegPrice=Case When IsNull(FCUBegQty,0)=0 Then 0 Else FBegAmount/FCUBegQty End,"
    "FSendPrice=Case When IsNull(FSendQty,0)=0 Then 0 Else FSendAmount/FSendQty End,"
    "FCUSendPrice=Case When IsNull(FCUSendQty,0)=0 Then 0 Else FSendAmount/FCUSendQty End,"
    "FVerifPrice=Case When IsNull(FVerifQty,0)=0 Then 0 Else FVerifAmount/FVerifQty End,"
    "FCUVerifPrice=Case When IsNull(FCUVerifQty,0)=0 Then 0 Else FVerifAmount/FCUVerifQty End,"
    "FEndPrice=Case When IsNull(FEndQty,0)=0 Then 0 Else FEndAmount/FEndQty End,"
    "FCUEndPrice=Case When IsNull(FCUEndQty,0)=0 Then 0 Else FEndAmount/FCUEndQty End";

bool FillRowsOfList(tsql::Session& session, std::string_view table) {
  if (!FillItemColumns(session, table)) return false;
  session.Execute(Replace(kClosingText, "#DATA", table));
  return true;
}

}  // namespace

RecordsetRef ConsignmentList(Server& server, const Dictionary& request) {
  const std::int16_t scale = BaseCurrencyScale(server);
  const std::string fill = Join(SentText(request, scale), SettledText(request), BalanceText(request, scale));
  return server.Converse([&](tsql::Session& session) {
    session.Execute(fill);
    // The batch's conversation lies inside this one and finds #Rpt303.
    return RunSaleBatch(server, request, FillRowsOfList);
  });
}

}  // namespace salerpt::middletier
