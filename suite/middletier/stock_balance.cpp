#include "suite/middletier/stock_balance.h"

#include <string>

#include "suite/middletier/account_switches.h"

namespace salerpt::middletier {
namespace {

std::string RightOf(Server& server) {
  const std::int32_t user = server.GetLogin().user_id;
  if (!DataRightInForce(server, user, RightKind::kStocks)) return "";
  return Join("Where CharIndex('", user, "',t2.FRightUserID)>0\r\n");
}

// clang-format off
// Issues name the stock that they take from in FSCStockID, all others theirs in FDCStockID.
constexpr std::string_view kMoved =
    "Create Table #Moved(FItemID int not null,FStockID int not null,FInQty decimal(23,10) not null,\r\n"
    "  FOutQty decimal(23,10) not null)\r\n"
    "Insert Into #Moved(FItemID,FStockID,FInQty,FOutQty)\r\n"
    "Select v2.FItemID,v2.FDCStockID,Sum(v2.FQty),0\r\n"
    "From ICStockBill v1\r\n"
    "Inner Join ICStockBillEntry v2 On v1.FInterID=v2.FInterID\r\n"
    "Where v1.FTranType In (1,2) And (v1.FStatus>0 Or v1.FUpStockWhenSave>0) And v1.FCancelLation=0\r\n"
    "Group By v2.FItemID,v2.FDCStockID\r\n"
    "Insert Into #Moved(FItemID,FStockID,FInQty,FOutQty)\r\n"
    "Select v2.FItemID,v2.FDCStockID,0,Sum(v2.FQty)\r\n"
    "From ICStockBill v1\r\n"
    "Inner Join ICStockBillEntry v2 On v1.FInterID=v2.FInterID\r\n"
    "Where v1.FTranType=21 And (v1.FStatus>0 Or v1.FUpStockWhenSave>0) And v1.FCancelLation=0\r\n"
    "Group By v2.FItemID,v2.FDCStockID\r\n"
    "Insert Into #Moved(FItemID,FStockID,FInQty,FOutQty)\r\n"
    "Select v2.FItemID,v2.FSCStockID,0,Sum(v2.FQty)\r\n"
    "From ICStockBill v1\r\n"
    "Inner Join ICStockBillEntry v2 On v1.FInterID=v2.FInterID\r\n"
    "Where v1.FTranType=24 And (v1.FStatus>0 Or v1.FUpStockWhenSave>0) And v1.FCancelLation=0\r\n"
    "Group By v2.FItemID,v2.FSCStockID\r\n"
    "Create Table #Balance(FItemID int not null,FStockID int not null,FInQty decimal(23,10) not null,\r\n"
    "  FOutQty decimal(23,10) not null)\r\n"
    "Insert Into #Balance(FItemID,FStockID,FInQty,FOutQty)\r\n"
    "Select FItemID,FStockID,Sum(FInQty),Sum(FOutQty) From #Moved Group By FItemID,FStockID\r\n";

constexpr std::string_view kRows =
    "Select t1.FNumber,t1.FShortNumber,IsNull(t1.FName,'') FName,t1.FModel,IsNull(t3.FName,'') FUnitName,\r\n"
    "  t1.FQtyDecimal,t2.FNumber FStockNumber,t2.FShortNumber FStockShortNumber,IsNull(t2.FName,'') FStockName,\r\n"
    "  b.FInQty,b.FOutQty,b.FInQty-b.FOutQty FQty\r\n"
    "From #Balance b\r\n"
    "Inner Join t_ICItem t1 On b.FItemID=t1.FItemID\r\n"
    "Inner Join t_Stock t2 On b.FStockID=t2.FItemID\r\n"
    "Left Join t_MeasureUnit t3 On t1.FUnitGroupID=t3.FUnitGroupID And t3.FStandard=1\r\n";
// clang-format on

}  // namespace

RecordsetRef StockBalances(Server& server) {
  const std::string right = RightOf(server);
  return server.Query(Join(kMoved, kRows, right, "Order By t1.FNumber,t1.FItemID,t2.FNumber,t2.FItemID"));
}

}  // namespace salerpt::middletier
