#include "tests/reports/rpt138_texts.h"

namespace salerpt::testing {
namespace {

constexpr const char* kColumns =
    "    FNumber  varchar(355)  null,\r\n"
    "    FShortNumber  varchar(355) null,\r\n"
    "    FName  varchar(355) null,\r\n"
    "    FModel  varchar(355) null,\r\n"
    "    FUnitName  varchar(355) null,\r\n"
    "    FQtyDecimal smallint null, \r\n"
    "    FPriceDecimal smallint null, \r\n"
    "    FOrderQty decimal(23, 10) null, \r\n"
    "    FCommitQty decimal(23, 10) null, \r\n"
    "    FUnCommitQty decimal(23, 10) null, \r\n"
    "    FCUUnitName  varchar(355) null,\r\n"
    "    FCUUnitOrderQty decimal(23, 10) null, \r\n"
    "    FCUUnitCommitQty decimal(23, 10) null, \r\n"
    "    FCUUnitUnCommitQty decimal(23, 10) null, \r\n"
    "    FSumSort smallint not null Default(0),\r\n"
    "    FID int IDENTITY ) ";

constexpr const char* kValues =
    "'','','','',4,4,sum(isnull(v1.FOrderQty,0)), sum(isnull(v1.FCommitQty,0)), "
    "sum(isnull(v1.FOrderQty,0))-sum(isnull(v1.FCommitQty,0)), \r\n"
    "'',Sum(ISNull(v1.FOrderQty,0)/(Case When ISNULL(t3.FCoefficient,0)=0 Then 1 Else t3.FCoefficient End )),"
    "SUM(ISNull(v1.FCommitQty,0)/(Case When ISNULL(t3.FCoefficient,0)=0 Then 1 Else t3.FCoefficient End )), "
    "SUM((ISNull(v1.FOrderQty,0)- ISNull(v1.FCommitQty,0))/(Case When ISNULL(t3.FCoefficient,0)=0 Then 1 "
    "Else t3.FCoefficient End )), ";

constexpr const char* kCreateWork =
    "Create Table #DATA2 \r\n"
    "   (FCustID int null, \r\n"
    "    FItemID int null, \r\n"
    "    FOrderQty Decimal(23,10) not null Default(0), \r\n"
    "    FCommitQty Decimal(23,10) not null Default(0), \r\n"
    "    FCompanyID int null )\r\n";

constexpr const char* kOrders =
    "Insert Into #Data2 \r\n"
    "  (FCustID,FItemID, FOrderQty,FCompanyID) \r\n"
    "Select t3.FCustID,v1.FitemID,v1.FQty,t3.FRelateBrID \r\n"
    "From SEOrder t3\r\n"
    "   Inner Join SEOrderEntry v1 On t3.FBrNo=v1.FBrNo  And  t3.FInterID=v1.FInterID\r\n"
    "   Inner Join t_ICItem t10 On v1.FItemID=t10.FItemID\r\n"
    "   Left Join t_Organization t11 On t3.FCustID=t11.FItemID\r\n"
    "   Left Join t_SOnCompany t12 On t3.FRelateBrID = t12.FItemID\r\n"
    "   Left Join t_Department TD On t3.FDeptID=TD.FItemID\r\n"
    "   Left Join t_Emp TE On t3.FEmpID=TE.FItemID\r\n"
    "{ORDERSWHERE}";

// The line that begins with a comment mark goes along as it stands.
constexpr const char* kOrdersWhere =
    "Where 1=1\r\n"
    "    {STATE} {DATE} {ITEM} \r\n"
    " --And t3.FCheckerID is not Null And t3.FCheckerID<>0 \r\n"
    "Order By t3.FDate,t3.FInterID,v1.FItemID \r\n";

constexpr const char* kDeliveryJoins =
    "   Left Join t_MeasureUnit t5 On t5.FMeasureUnitID=t4.FUnitID\r\n"
    "   Inner Join t_ICItem t10 On t4.Fitemid =t10.Fitemid\r\n"
    "   Left Join t_OrganizatiOn t11 On t3.FCustID = t11.FItemID\r\n"
    "   Left Join t_SOnCompany t12 On t3.FRelateBrID = t12.FItemID\r\n"
    "   Left Join T_Department TD On t3.FDeptID=TD.FItemID\r\n"
    "   Left Join T_Emp TE On t3.FEmpID=TE.FItemID\r\n";

constexpr const char* kStockBills =
    "Insert Into #Data2 \r\n"
    "   ({FIELD},FItemID, FCommitQty) \r\n"
    "Select t1.{STOCKFIELD},t4.FItemID,Case When t1.FRob=1 Then t4.FQty Else t4.FQty End \r\n"
    "From SEOrder t3\r\n"
    "   Inner Join SEOrderEntry t8 On t8.FInterID = t3.FInterID\r\n"
    "   Inner Join ICStockBillEntry t4 On t3.FInterId=t4.FOrderInterID And t4.FOrderEntryID = t8.FEntryID\r\n"
    "   inner Join t_Stock t99 On t4.FDCStockID = t99.FItemID \r\n"
    "   Inner Join ICStockBill t1 On t4.FInterID = t1.FInterID And t1.FTrantype =21 \r\n"
    "{DELIVERYJOINS}"
    "Where 1=1    {STATEDELIVERED}    {DATE}  {ITEM}\r\n";

constexpr const char* kInvoices =
    "Insert Into #Data2 \r\n"
    "   ({FIELD},FItemID, FCommitQty) \r\n"
    "Select t1.{FIELD},t4.FItemID,Case When t1.FRob=1 Then t4.FQty Else t4.FQty End\r\n"
    "From SEOrder t3\r\n"
    "   Inner Join SEOrderEntry t8 On t8.FInterID = t3.FInterID\r\n"
    "   Inner Join ICSaleEntry t4 On t3.FInterId=t4.FOrderInterID And t4.FOrderEntryID = t8.FEntryID\r\n"
    "   Inner Join ICSale t1 On t4.FInterID = t1.FInterID\r\n"
    "{DELIVERYJOINS}"
    "Where t3.FSaleStyle=20296   {DATE}  {ITEM}\r\n";

constexpr const char* kCreateWorkBy =
    "Create Table #DATA2 \r\n"
    "   ( {FIELD}  int null, \r\n"
    "    FItemID int null, \r\n"
    "    FOrderQty decimal(23,10) not null Default(0), \r\n"
    "    FCommitQty decimal(23,10) not null Default(0), \r\n"
    "    FCompanyID int null )";

constexpr const char* kOrdersByHead =
    "Insert Into #Data2 ({FIELD},FItemID, FOrderQty,FCompanyID) \r\n"
    "Select t3.{FIELD},v1.FitemID,v1.FQty,t3.FRelateBrID \r\n"
    "From SEOrder t3   Inner Join SEOrderEntry v1 On t3.FInterID=v1.FInterID\r\n";

constexpr const char* kFrom =
    " From  #DATA2 v1\r\n"
    "Join t_ICItem t1 On v1.FItemID=t1.FItemID\r\n"
    "Left Join t_Organization t2 On v1.FCustID=t2.FItemID\r\n"
    "Left Join t_MeasureUnit t3 On t1.FCUUnitID = t3.FMeasureUnitID";

constexpr const char* kFromBy =
    " From  #DATA2 v1 Inner Join t_ICItem t1 On v1.FItemID=t1.FItemID \r\n"
    " Left Join {TABLE} t2 On v1.{FIELD}=t2.{KEY}\r\n"
    " Left Join t_MeasureUnit t3 On t1.FCUUnitID = t3.FMeasureUnitID ";

constexpr const char* kDate =
    " And convert(datetime,convert(varchar(30),t3.FDate,111)) >='2003/01/01'\r\n"
    " And convert(datetime,convert(varchar(30),t3.FDate,111)) <='2003/03/31'";

constexpr const char* kDelivered =
    " And (t1.FStatus > 0 or (t1.FUpStockWhenSave > 0 And t1.FCancellation <1 )) ";

}  // namespace

const Pieces& Rpt138Pieces() {
  static const Pieces pieces = {
      {"COLUMNS", kColumns},
      {"VALUES", kValues},
      {"WORK", "{CREATEWORK}{ORDERS}{STOCKBILLS}{INVOICES}"},
      {"CREATEWORK", kCreateWork},
      {"ORDERS", kOrders},
      {"ORDERSWHERE", kOrdersWhere},
      {"STOCKBILLS", kStockBills},
      {"INVOICES", kInvoices},
      {"DELIVERYJOINS", kDeliveryJoins},
      {"FIELD", "FCustID"},
      {"STOCKFIELD", "FSupplyID"},
      {"CREATEWORKBY", kCreateWorkBy},
      {"ORDERSBYHEAD", kOrdersByHead},
      {"FROM", kFrom},
      {"BRANCHFROM", "{FROM}\r\nLeft Join t_SonCompany t4 On v1.FCompanyID =t4.FItemID"},
      {"FROMBY", kFromBy},
      {"WHERE", " Where 1=1 {BRANCHBOUND}"},
      {"BRANCHBOUND", ""},
      {"STATE", " And t3.FStatus>0 And t3.FCancelLation=0 "},
      {"DELIVERED", kDelivered},
      {"STATEDELIVERED", "{DELIVERED}{STATE}"},
      {"DATE", kDate},
      {"ITEM", " "},
      {"ONLYTOTALS", ""},
  };
  return pieces;
}

}  // namespace salerpt::testing
