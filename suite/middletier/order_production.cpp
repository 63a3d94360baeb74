#include "suite/middletier/order_production.h"

namespace salerpt::middletier {

// clang-format off
const std::string_view kProductionText =
    "Create Table #Tasks(FInterID int not null primary key,FOrderInterID int not null,FOrderEntryID int not null)\r\n"
    "Insert Into #Tasks(FInterID,FOrderInterID,FOrderEntryID)\r\n"
    "Select m.FInterID,k.FInterID,k.FEntryID From #OrderLines k\r\n"
    "Inner Join ICMO m On m.FOrderInterID=k.FInterID And m.FSourceEntryID=k.FEntryID\r\n"
    "Where m.FCancelLation=0\r\n"
    "Create Table #Receipts(FOrderInterID int not null,FOrderEntryID int not null,FWorkInterID int not null,\r\n"
    "  FBillID int not null,FBillEntryID int not null)\r\n"
    "Insert Into #Receipts(FOrderInterID,FOrderEntryID,FWorkInterID,FBillID,FBillEntryID)\r\n"
    "Select k.FOrderInterID,k.FOrderEntryID,k.FInterID,e.FInterID,e.FEntryID\r\n"
    "From #Tasks k\r\n"
    "Inner Join ICStockBillEntry e On e.FICMOInterID=k.FInterID\r\n"
    "Inner Join ICStockBill b On e.FInterID=b.FInterID\r\n"
    "Where b.FTranType=2 And (b.FStatus>0 Or b.FUpStockWhenSave>0) And b.FCancelLation=0\r\n"
    "Insert Into #Receipts(FOrderInterID,FOrderEntryID,FWorkInterID,FBillID,FBillEntryID)\r\n"
    "Select k.FInterID,k.FEntryID,0,e.FInterID,e.FEntryID\r\n"
    "From #OrderLines k\r\n"
    "Inner Join ICStockBillEntry e On e.FOrderInterID=k.FInterID And e.FOrderEntryID=k.FEntryID\r\n"
    "Inner Join ICStockBill b On e.FInterID=b.FInterID\r\n"
    "Left Join ICMO m On e.FICMOInterID=m.FInterID\r\n"
    "Where m.FInterID Is Null And b.FTranType=2 And (b.FStatus>0 Or b.FUpStockWhenSave>0) And b.FCancelLation=0\r\n";
// clang-format on

}  // namespace salerpt::middletier
