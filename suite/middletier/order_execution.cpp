#include "suite/middletier/order_execution.h"

#include <string>
#include <string_view>

#include "runtime/mrpt.h"
#include "suite/middletier/bill_filter.h"
#include "suite/middletier/order_lines.h"

namespace salerpt::middletier {
namespace {

// --- Conditions

std::string CustomerNameCondition(const Dictionary& filter) {
  const Variant& name = filter.Get("CustName");
  return name.IsEmptyText() ? "" : Join(" And t11.FName=", QuoteSql(name));
}

std::string Conditions(const Dictionary& filter) {
  const std::string_view code = CodeColumn(filter);
  return Join(StateCondition(filter), CloseCondition(filter), SaleStyleCondition(filter),
              OrderTypeCondition(filter), CommodityCondition(filter, "t10"),
              RangeCondition(filter, Join("t10.", code), "BItemNumber", "EItemNumber"),
              RangeCondition(filter, Join("t11.", code), "BCustNumber", "ECustNumber"),
              RangeCondition(filter, Join("t12.", code), "BCompanyNumber", "ECompanyNumber"),
              RangeCondition(filter, Join("TD.", code), "BDept", "EDept"),
              RangeCondition(filter, Join("TE.", code), "BEmp", "EEmp"),
              RangeCondition(filter, "v1.FBillNo", "BBillNo", "EBillNo"), CustomerNameCondition(filter),
              DayCondition(filter.Get("BDate"), filter.Get("EDate")));
}

std::string DayOf(std::string_view date) {
  return Join("Convert(datetime,Convert(varchar(30),", date, ",111))");
}

// What of a line is delivered stands in d.
std::string ImplementCondition(const Dictionary& filter) {
  switch (filter.Get("Implement").ToInt32()) {
    case 1:
      return Join(" And v2.FQty>IsNull(d.FQty,0) And ", DayOf(kDueDate), "<", DayOf("GetDate()"));
    case 2:
      return Join(" And v2.FQty<=IsNull(d.FQty,0) And ", DayOf(kDueDate), "<", DayOf("d.FLastDate"));
    default:
      return "";
  }
}

// --- The batch

// What is told of a line stands once, in the order of the report; the blank line behind them all is that of
// the total. FPart parts the rows of a line: 0 the line, 1 its deliveries, 2 its subtotal.
// clang-format off
constexpr std::string_view kTables =
    "Create Table #Lines(FPlace int IDENTITY,FInterID int null,FEntryID int null,FItemID int null,FTranType int null,\r\n"
    "  FDate datetime null,FSendDate datetime null,\r\n"
    "  FCustNumber varchar(355) not null default(''),FShortCustNumber varchar(355) not null default(''),\r\n"
    "  FCustName varchar(355) not null default(''),FNumber varchar(355) not null default(''),\r\n"
    "  FShortNumber varchar(355) not null default(''),FName varchar(355) not null default(''),\r\n"
    "  FModel varchar(355) not null default(''),FAuxPropName varchar(355) not null default(''),\r\n"
    "  FOrderBillNo varchar(355) not null default(''),FUnitName varchar(355) not null default(''),\r\n"
    "  FCUUnitName varchar(355) not null default(''),FNote varchar(355) not null default(''),\r\n"
    "  FEmpName varchar(355) not null default(''),FDeptName varchar(355) not null default(''),FQtyDecimal int null,\r\n"
    "  FQty decimal(23,10) null,FDelivered decimal(23,10) null,FCoefficient decimal(23,10) null)\r\n"
    "Create Table #Rows(FPlace int not null,FPart int not null,FInterID int null,FTranType int null,\r\n"
    "  FCommitDate datetime null,FNote varchar(355) not null default(''),FBillNo varchar(355) not null default(''),\r\n"
    "  FBillEntryID int null,FSaleQty decimal(23,10) null,FCUUnitSaleQty decimal(23,10) null,\r\n"
    "  FCommitQty decimal(23,10) null,FCUUnitCommitQty decimal(23,10) null,FUnCommitQty decimal(23,10) null,\r\n"
    "  FCUUnitUnCommitQty decimal(23,10) null,FSumSort int not null default(0))\r\n";

std::string LineRows(const Dictionary& filter) {
  return Join(
      "Insert Into #Lines(FInterID,FEntryID,FItemID,FTranType,FDate,FSendDate,FCustNumber,FShortCustNumber,FCustName,\r\n"
      "  FNumber,FShortNumber,FName,FModel,FAuxPropName,FOrderBillNo,FUnitName,FCUUnitName,FNote,FEmpName,FDeptName,\r\n"
      "  FQtyDecimal,FQty,FDelivered,FCoefficient)\r\n"
      "Select v1.FInterID,v2.FEntryID,v2.FItemID,v1.FTranType,v1.FDate,", kDueDate, ",IsNull(t11.FNumber,''),\r\n"
      "  IsNull(t11.FShortNumber,''),IsNull(t11.FName,''),t10.FNumber,t10.FShortNumber,IsNull(t10.FName,''),\r\n"
      "  IsNull(t10.FModel,''),IsNull(t7.FName,''),v1.FBillNo,IsNull(t3.FName,''),IsNull(t5.FName,''),\r\n"
      "  IsNull(v2.FNote,''),IsNull(TE.FName,''),IsNull(TD.FName,''),t10.FQtyDecimal,v2.FQty,IsNull(d.FQty,0),\r\n"
      "  ", CoefficientOf("t5"), "\r\n"
      "From #OrderLines k\r\n"
      "Inner Join SEOrder v1 On k.FInterID=v1.FInterID\r\n"
      "Inner Join SEOrderEntry v2 On k.FInterID=v2.FInterID And k.FEntryID=v2.FEntryID\r\n"
      "Inner Join t_ICItem t10 On v2.FItemID=t10.FItemID\r\n"
      "Left Join t_Organization t11 On v1.FCustID=t11.FItemID\r\n"
      "Left Join t_Department TD On v1.FDeptID=TD.FItemID\r\n"
      "Left Join t_Emp TE On v1.FEmpID=TE.FItemID\r\n"
      "Left Join t_MeasureUnit t3 On t10.FUnitGroupID=t3.FUnitGroupID And t3.FStandard=1\r\n"
      "Left Join t_MeasureUnit t5 On t10.FCUUnitID=t5.FMeasureUnitID\r\n"
      "Left Join t_AuxItem t7 On v2.FAuxPropID=t7.FItemID\r\n"
      "Left Join #Delivered d On k.FInterID=d.FInterID And k.FEntryID=d.FEntryID\r\n"
      "Where 1=1", ImplementCondition(filter), "\r\n"
      "Order By v1.FDate,v1.FBillNo,v1.FInterID,v2.FEntryID\r\n");
}

constexpr std::string_view kRows =
    "Insert Into #Rows(FPlace,FPart,FInterID,FTranType,FNote,FSaleQty,FCUUnitSaleQty,FUnCommitQty,FCUUnitUnCommitQty)\r\n"
    "Select FPlace,0,FInterID,FTranType,FNote,FQty,FQty/FCoefficient,FQty-FDelivered,(FQty-FDelivered)/FCoefficient\r\n"
    "From #Lines\r\n"
    "Insert Into #Rows(FPlace,FPart,FInterID,FTranType,FCommitDate,FNote,FBillNo,FBillEntryID,FCommitQty,FCUUnitCommitQty)\r\n"
    "Select l.FPlace,1,d.FBillID,d.FTranType,d.FDate,d.FNote,d.FBillNo,d.FBillEntryID,d.FQty,d.FQty/l.FCoefficient\r\n"
    "From #Deliveries d Inner Join #Lines l On d.FInterID=l.FInterID And d.FEntryID=l.FEntryID\r\n"
    "Insert Into #Rows(FPlace,FPart,FInterID,FTranType,FSaleQty,FCUUnitSaleQty,FCommitQty,FCUUnitCommitQty,FUnCommitQty,\r\n"
    "  FCUUnitUnCommitQty,FSumSort)\r\n"
    "Select FPlace,2,FInterID,FTranType,FQty,FQty/FCoefficient,FDelivered,FDelivered/FCoefficient,FQty-FDelivered,\r\n"
    "  (FQty-FDelivered)/FCoefficient,102\r\n"
    "From #Lines\r\n"
    "Insert Into #Lines(FOrderBillNo,FQtyDecimal) Select '合计',Max(FQtyDecimal) From #Lines Having Count(*)>0\r\n"
    "Insert Into #Rows(FPlace,FPart,FSaleQty,FCUUnitSaleQty,FCommitQty,FCUUnitCommitQty,FUnCommitQty,FCUUnitUnCommitQty,\r\n"
    "  FSumSort)\r\n"
    "Select Max(FPlace)+1,0,Sum(FSaleQty),Sum(FCUUnitSaleQty),Sum(FCommitQty),Sum(FCUUnitCommitQty),Sum(FUnCommitQty),\r\n"
    "  Sum(FCUUnitUnCommitQty),101\r\n"
    "From #Rows Where FSumSort=102 Having Count(*)>0\r\n";

constexpr std::string_view kSelect =
    "Select r.FInterID,l.FItemID,r.FTranType,l.FDate,l.FSendDate,r.FCommitDate,l.FCustNumber,l.FShortCustNumber,\r\n"
    "  l.FCustName,l.FNumber,l.FShortNumber,l.FName,l.FModel,l.FAuxPropName,\r\n"
    "  Case When r.FPart=2 Then Convert(varchar(355),l.FOrderBillNo+'(小计)') Else l.FOrderBillNo End FOrderBillNo,\r\n"
    "  l.FUnitName,l.FCUUnitName,\r\n"
    "  r.FNote,r.FBillNo,Case When r.FPart=2 Then '' Else l.FEmpName End FEmpName,\r\n"
    "  Case When r.FPart=2 Then '' Else l.FDeptName End FDeptName,r.FSaleQty,r.FCUUnitSaleQty,r.FCommitQty,\r\n"
    "  r.FCUUnitCommitQty,r.FUnCommitQty,r.FCUUnitUnCommitQty,r.FSumSort,l.FQtyDecimal\r\n"
    "From #Rows r Inner Join #Lines l On r.FPlace=l.FPlace\r\n"
    "Order By r.FPlace,r.FPart,r.FCommitDate,r.FBillNo,r.FInterID,r.FBillEntryID";
// clang-format on

}  // namespace

RecordsetRef OrderExecution(Server& server, const Dictionary& filter) {
  return server.Query(Join(OrderLinesText(filter, "t11", Conditions(filter)), DeliveriesText(), kTables,
                           LineRows(filter), kRows, kSelect));
}

}  // namespace salerpt::middletier
