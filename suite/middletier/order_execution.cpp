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

// FPart parts the rows of a line: 0 the line, 1 its deliveries, 2 its subtotal.
// clang-format off
constexpr std::string_view kTable =
    "Create Table #Rpt137(FInterID int null,FItemID int null,FTranType int null,\r\n"
    "  FDate datetime null,FSendDate datetime null,FCommitDate datetime null,\r\n"
    "  FCustNumber varchar(355) not null default(''),FShortCustNumber varchar(355) not null default(''),\r\n"
    "  FCustName varchar(355) not null default(''),FNumber varchar(355) not null default(''),\r\n"
    "  FShortNumber varchar(355) not null default(''),FName varchar(355) not null default(''),\r\n"
    "  FModel varchar(355) not null default(''),FAuxPropName varchar(355) not null default(''),\r\n"
    "  FOrderBillNo varchar(355) not null default(''),FUnitName varchar(355) not null default(''),\r\n"
    "  FCUUnitName varchar(355) not null default(''),FNote varchar(355) not null default(''),\r\n"
    "  FBillNo varchar(355) not null default(''),FEmpName varchar(355) not null default(''),\r\n"
    "  FDeptName varchar(355) not null default(''),\r\n"
    "  FSaleQty decimal(23,10) null,FCUUnitSaleQty decimal(23,10) null,FCommitQty decimal(23,10) null,\r\n"
    "  FCUUnitCommitQty decimal(23,10) null,FUnCommitQty decimal(23,10) null,FCUUnitUnCommitQty decimal(23,10) null,\r\n"
    "  FSumSort int not null default(0),FQtyDecimal int null,FPart int not null default(0),FOrderNo varchar(355) null,\r\n"
    "  FOrderID int null,FEntryID int null,FBillEntryID int null,FCoefficient decimal(23,10) null,FDelivered decimal(23,10) null)\r\n";

std::string LineRows(const Dictionary& filter) {
  return Join(
      "Insert Into #Rpt137(FInterID,FItemID,FTranType,FDate,FSendDate,FCustNumber,FShortCustNumber,FCustName,\r\n"
      "  FNumber,FShortNumber,FName,FModel,FAuxPropName,FOrderBillNo,FUnitName,FCUUnitName,FNote,FEmpName,FDeptName,\r\n"
      "  FSaleQty,FCUUnitSaleQty,FUnCommitQty,FCUUnitUnCommitQty,FQtyDecimal,FOrderNo,FOrderID,FEntryID,FCoefficient,\r\n"
      "  FDelivered)\r\n"
      "Select v1.FInterID,v2.FItemID,v1.FTranType,v1.FDate,", kDueDate, ",IsNull(t11.FNumber,''),\r\n"
      "  IsNull(t11.FShortNumber,''),IsNull(t11.FName,''),t10.FNumber,t10.FShortNumber,IsNull(t10.FName,''),\r\n"
      "  IsNull(t10.FModel,''),IsNull(t7.FName,''),v1.FBillNo,IsNull(t3.FName,''),IsNull(t5.FName,''),\r\n"
      "  IsNull(v2.FNote,''),IsNull(TE.FName,''),IsNull(TD.FName,''),\r\n"
      "  v2.FQty,v2.FQty/", CoefficientOf("t5"), ",v2.FQty-IsNull(d.FQty,0),\r\n"
      "  (v2.FQty-IsNull(d.FQty,0))/", CoefficientOf("t5"), ",t10.FQtyDecimal,v1.FBillNo,v1.FInterID,v2.FEntryID,\r\n"
      "  ", CoefficientOf("t5"), ",IsNull(d.FQty,0)\r\n"
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
      "Where 1=1", ImplementCondition(filter), "\r\n");
}

constexpr std::string_view kDeliveryRows =
    "Insert Into #Rpt137(FInterID,FItemID,FTranType,FDate,FSendDate,FCommitDate,FCustNumber,FShortCustNumber,FCustName,\r\n"
    "  FNumber,FShortNumber,FName,FModel,FAuxPropName,FOrderBillNo,FUnitName,FCUUnitName,FNote,FBillNo,FEmpName,\r\n"
    "  FDeptName,FCommitQty,FCUUnitCommitQty,FQtyDecimal,FPart,FOrderNo,FOrderID,FEntryID,FBillEntryID)\r\n"
    "Select d.FBillID,r.FItemID,d.FTranType,r.FDate,r.FSendDate,d.FDate,r.FCustNumber,r.FShortCustNumber,r.FCustName,\r\n"
    "  r.FNumber,r.FShortNumber,r.FName,r.FModel,r.FAuxPropName,r.FOrderBillNo,r.FUnitName,r.FCUUnitName,d.FNote,\r\n"
    "  d.FBillNo,r.FEmpName,r.FDeptName,d.FQty,d.FQty/r.FCoefficient,r.FQtyDecimal,1,r.FOrderNo,r.FOrderID,r.FEntryID,\r\n"
    "  d.FBillEntryID\r\n"
    "From #Deliveries d\r\n"
    "Inner Join #Rpt137 r On d.FInterID=r.FOrderID And d.FEntryID=r.FEntryID\r\n";

constexpr std::string_view kSums =
    "Insert Into #Rpt137(FInterID,FItemID,FTranType,FDate,FSendDate,FCustNumber,FShortCustNumber,FCustName,\r\n"
    "  FNumber,FShortNumber,FName,FModel,FAuxPropName,FOrderBillNo,FUnitName,FCUUnitName,\r\n"
    "  FSaleQty,FCUUnitSaleQty,FCommitQty,FCUUnitCommitQty,FUnCommitQty,FCUUnitUnCommitQty,FSumSort,FQtyDecimal,FPart,\r\n"
    "  FOrderNo,FOrderID,FEntryID)\r\n"
    "Select FInterID,FItemID,FTranType,FDate,FSendDate,FCustNumber,FShortCustNumber,FCustName,\r\n"
    "  FNumber,FShortNumber,FName,FModel,FAuxPropName,FOrderBillNo+'(小计)',FUnitName,FCUUnitName,\r\n"
    "  FSaleQty,FCUUnitSaleQty,FDelivered,FDelivered/FCoefficient,FUnCommitQty,FCUUnitUnCommitQty,102,FQtyDecimal,2,\r\n"
    "  FOrderNo,FOrderID,FEntryID\r\n"
    "From #Rpt137 Where FPart=0\r\n"
    "Insert Into #Rpt137(FOrderBillNo,FSaleQty,FCUUnitSaleQty,FCommitQty,FCUUnitCommitQty,FUnCommitQty,\r\n"
    "  FCUUnitUnCommitQty,FSumSort,FQtyDecimal)\r\n"
    "Select '合计',Sum(FSaleQty),Sum(FCUUnitSaleQty),Sum(FCommitQty),Sum(FCUUnitCommitQty),Sum(FUnCommitQty),\r\n"
    "  Sum(FCUUnitUnCommitQty),101,Max(FQtyDecimal)\r\n"
    "From #Rpt137 Where FSumSort=102 Having Count(*)>0\r\n";

constexpr std::string_view kSelect =
    "Select FInterID,FItemID,FTranType,FDate,FSendDate,FCommitDate,FCustNumber,FShortCustNumber,FCustName,FNumber,\r\n"
    "  FShortNumber,FName,FModel,FAuxPropName,FOrderBillNo,FUnitName,FCUUnitName,FNote,FBillNo,FEmpName,FDeptName,\r\n"
    "  FSaleQty,FCUUnitSaleQty,FCommitQty,FCUUnitCommitQty,FUnCommitQty,FCUUnitUnCommitQty,FSumSort,FQtyDecimal\r\n"
    "From #Rpt137\r\n"
    "Order By Case When FSumSort=101 Then 1 Else 0 End,FDate,FOrderNo,FOrderID,FEntryID,FPart,FCommitDate,FBillNo,\r\n"
    "  FInterID,FBillEntryID";
// clang-format on

}  // namespace

RecordsetRef OrderExecution(Server& server, const Dictionary& filter) {
  return server.Query(Join(OrderLinesText(filter, "t11", Conditions(filter)), DeliveriesText(), kTable,
                           LineRows(filter), kDeliveryRows, kSums, kSelect));
}

}  // namespace salerpt::middletier
