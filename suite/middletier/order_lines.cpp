#include "suite/middletier/order_lines.h"

#include "suite/middletier/bill_filter.h"

namespace salerpt::middletier {

// clang-format off
std::string OrderLinesText(const Dictionary& filter, std::string_view customer, std::string_view conditions) {
  return Join(
      "Create Table #OrderLines(FInterID int not null,FEntryID int not null,FSaleStyle int not null)\r\n"
      "Insert Into #OrderLines(FInterID,FEntryID,FSaleStyle)\r\n"
      "Select v1.FInterID,v2.FEntryID,v1.FSaleStyle\r\n"
      "From SEOrder v1\r\n"
      "Inner Join SEOrderEntry v2 On v1.FInterID=v2.FInterID\r\n"
      "Inner Join t_ICItem t10 On v2.FItemID=t10.FItemID\r\n"
      "Left Join t_Organization ", customer, " On v1.FCustID=", customer, ".FItemID\r\n"
      "Left Join t_SonCompany t12 On v1.FRelateBrID=t12.FItemID\r\n"
      "Left Join t_Department TD On v1.FDeptID=TD.FItemID\r\n"
      "Left Join t_Emp TE On v1.FEmpID=TE.FItemID\r\n",
      filter.Get("DataRightFrom").TextOrEmpty(), "\r\n"
      "Where 1=1", conditions, RightCondition(filter), "\r\n");
}

std::string DeliveriesText() {
  return
      "Create Table #Deliveries(FInterID int not null,FEntryID int not null,FTranType int not null,\r\n"
      "  FBillID int not null,FBillEntryID int not null,FBillNo varchar(355) not null,FDate datetime not null,\r\n"
      "  FNote varchar(355) not null,FQty decimal(23,10) not null)\r\n"
      "Insert Into #Deliveries(FInterID,FEntryID,FTranType,FBillID,FBillEntryID,FBillNo,FDate,FNote,FQty)\r\n"
      "Select k.FInterID,k.FEntryID,b.FTranType,b.FInterID,e.FEntryID,b.FBillNo,b.FDate,IsNull(e.FNote,''),e.FQty\r\n"
      "From #OrderLines k\r\n"
      "Inner Join ICStockBillEntry e On e.FOrderInterID=k.FInterID And e.FOrderEntryID=k.FEntryID\r\n"
      "Inner Join ICStockBill b On e.FInterID=b.FInterID\r\n"
      "Where b.FTranType=21 And (b.FStatus>0 Or b.FUpStockWhenSave>0) And b.FCancelLation=0\r\n"
      "Insert Into #Deliveries(FInterID,FEntryID,FTranType,FBillID,FBillEntryID,FBillNo,FDate,FNote,FQty)\r\n"
      "Select k.FInterID,k.FEntryID,b.FTranType,b.FInterID,e.FEntryID,b.FBillNo,b.FDate,IsNull(e.FNote,''),e.FQty\r\n"
      "From #OrderLines k\r\n"
      "Inner Join ICSaleEntry e On e.FOrderInterID=k.FInterID And e.FOrderEntryID=k.FEntryID\r\n"
      "Inner Join ICSale b On e.FInterID=b.FInterID\r\n"
      "Where k.FSaleStyle=20296 And b.FTranType In (80,86) And b.FStatus>0 And b.FCancelLation=0\r\n"
      "Create Table #Delivered(FInterID int not null,FEntryID int not null,FQty decimal(23,10) not null,\r\n"
      "  FLastDate datetime null)\r\n"
      "Insert Into #Delivered(FInterID,FEntryID,FQty,FLastDate)\r\n"
      "Select FInterID,FEntryID,Sum(FQty),Max(Case When FQty>0 Then FDate Else Null End)\r\n"
      "From #Deliveries Group By FInterID,FEntryID\r\n";
}
// clang-format on

std::string CloseCondition(const Dictionary& filter) {
  switch (filter.Get("CloseState").ToInt32()) {
    case 1:
      return " And v1.FStatus<>3";
    case 2:
      return " And v1.FStatus=3";
    default:
      return "";
  }
}

std::string OrderTypeCondition(const Dictionary& filter) {
  constexpr std::int32_t kAllTypes = -1;
  const std::int32_t type = filter.GetValue("OrderType", kAllTypes).ToInt32();
  return type > kAllTypes ? Join(" And v1.FAreaPS=", type) : "";
}

std::string CoefficientOf(std::string_view unit) {
  return Join("(Case When IsNull(", unit, ".FCoefficient,0)=0 Then 1 Else ", unit, ".FCoefficient End)");
}

}  // namespace salerpt::middletier
