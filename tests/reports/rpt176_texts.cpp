#include "tests/reports/rpt176_texts.h"

namespace salerpt::testing {
namespace {

constexpr const char* kFill =
    " Create Table #Data2( \r\n"
    "     FItemID Int Null,\r\n"
    "     FCustID Int Null, \r\n"
    "     FDeptID Int Null, \r\n"
    "     FQtySale decimal(23,10) Default(0),\r\n"
    "     FIncomeSale decimal(23,10) Default(0),\r\n"
    "     FQtySend decimal(23,10) Default(0), \r\n"
    "     FCostSale decimal(23,10) Default(0)  )\r\n"
    // Invoices
    "Insert Into #Data2(FItemID,FCustID,FDeptID,FQtySale,FIncomeSale) \r\n"
    "Select v2.FItemID,v1.FCustID,v1.FDeptID,v2.F{QTY},{INCOME}\r\n"
    "From  ICSale v1\r\n"
    "Inner Join ICSaleEntry v2 On v1.FInterID = v2.FInterID\r\n"
    "Inner Join t_ICItem t1 On v2.FItemID = t1.FItemID\r\n"
    "Left Join t_Organization t2 On v1.FCustID=t2.FItemID\r\n"
    "Left Join t_Department TD On v1.FDeptID = TD.FItemID\r\n"
    "Left Join t_Emp TE On v1.FEmpID=TE.FItemID\r\n"
    "Where v1.FTranType in (80,86) \r\n"
    "     {STATE} \r\n"
    " {DATE} {ITEM}{SALE}\r\n"
    "{TAIL}\r\n"
    // What went out
    "Insert Into #Data2(FItemID,FCustID,FDeptID,FQtySend,FCostSale) \r\n"
    "Select v2.FItemID, v1.FSupplyID,v1.FDeptID, v2.F{COSTQTY},{STOCKCOST}\r\n"
    "From ICStockBill v1\r\n"
    "Inner Join ICStockBillEntry v2 On v1.FInterID = v2.FInterID\r\n"
    "Inner Join t_ICItem t1 On v2.FItemID = t1.FItemID\r\n"
    "Left Join t_Organization t2 On v1.FSupplyID=t2.FItemID\r\n"
    "Left Join t_Department TD On v1.FDeptID = TD.FItemID\r\n"
    "Left Join t_Emp TE On v1.FEmpID=TE.FItemID\r\n"
    "{SUPPLIER}\r\n"
    "Where  v1.FSaleStyle<>20296 And v1.FTranType=21\r\n"
    "     {STOCK} \r\n"
    " {DATE} {ITEM}{SALE}\r\n"
    "{TAIL}\r\n"
    // Goods that are paid for when sold
    "Insert Into #Data2(FItemID,FCustID,FDeptID,FQtySend,FCostSale) \r\n"
    "Select v2.FItemID, v1.FSupplyID,v1.FDeptID, v2.F{COSTQTY},{PURCHASECOST}\r\n"
    "From ICPurchase v1\r\n"
    "Inner Join ICPurchaseEntry v2 On v1.FInterID = v2.FInterID\r\n"
    "Inner Join t_ICItem t1 On v2.FItemID = t1.FItemID\r\n"
    "Left Join t_Supplier t2 On v1.FSupplyID=t2.FItemID\r\n"
    "Left Join t_Department TD On v1.FDeptID = TD.FItemID\r\n"
    "Left Join t_Emp TE On v1.FEmpID=TE.FItemID\r\n"
    "Where  v1.FPOStyle=20300 And v1.FSubSystemID In (-1,0)\r\n"
    "     {STOCK} \r\n"
    " {DATE} {ITEM}{PURCHASE}\r\n"
    "{TAIL}\r\n";

constexpr const char* kColumns =
    "       FNumber  VarChar(355) Null,\r\n"
    "     FShortNumber  VarChar(355) Null,\r\n"
    "     FName  VarChar(355) Null,\r\n"
    "     FModel  VarChar(355) Null,\r\n"
    "     FUnitName  VarChar(355) Null,\r\n"
    "     FQtyDecimal SmallInt Null, \r\n"
    "     FPriceDecimal SmallInt Null, \r\n"
    "     FQtySale decimal(23,10),\r\n"
    "     FIncomeSale decimal(23,10),\r\n"
    "     FQtySend decimal(23,10),\r\n"
    "     FCostSale decimal(23,10),\r\n"
    "     FProfit Decimal(23,10),\r\n"
    "     FCUUnitName  VarChar(355) Null,\r\n"
    "     FCUUnitQtySale decimal(23,10),\r\n"
    "     FCUUnitQtySend decimal(23,10),\r\n"
    "     FUnitCost decimal(23,10),\r\n"
    "     FSumSort  SmallInt Not Null Default 0,\r\n"
    "     FID Int IDENTITY \r\n"
    "     )";

constexpr const char* kValues =
    "'','','','',Max(t1.FQtyDecimal),Max(t1.FPriceDecimal),Sum(IsNull(v1.FQtySale,0)),"
    "Sum(Round(v1.FIncomeSale,2)), Sum(IsNull(v1.FQtySend,0)),Sum(IsNull(v1.FCostSale,0)),"
    "Sum(v1.FIncomeSale)-Sum(v1.FCostSale) , '', Sum(IsNull(v1.FQtySale,0)/(Case When "
    "IsNull(t3.FCoefficient,0)=0 Then 1 Else t3.FCoefficient End )) , Sum(IsNull(v1.FQtySend,0)/(Case When "
    "IsNull(t3.FCoefficient,0)=0 Then 1 Else t3.FCoefficient End )) , 0, ";

constexpr const char* kDate =
    " And Convert(datetime,Convert(VarChar(30),v1.FDate,111)) >='2003/01/01'\r\n"
    " And Convert(datetime,Convert(VarChar(30),v1.FDate,111)) <='2003/03/31'";

}  // namespace

const Pieces& Rpt176Pieces() {
  static const Pieces pieces = {
      {"FILL", kFill},
      {"COLUMNS", kColumns},
      {"VALUES", kValues},
      {"FROM",
       " From  #Data2 v1 Join  t_ICItem t1 On v1.FItemID=t1.FItemID\r\n"
       "{PARTY}\r\n"
       "Left Join t_MeasureUnit t3 On t1.FSaleUnitID = t3.FMeasureUnitID\r\n"},
      {"PARTY", "Left Join t_Organization t2 On v1.FCustID=t2.FItemID"},
      {"QTY", "AllHookQty"},
      {"INCOME", "FAllHookAmount"},
      {"COSTQTY", "AllHookQTY"},
      {"STOCKCOST", "v2.FAmount"},
      {"PURCHASECOST", "Case FTranType When 76 Then v2.FAmount-v2.FTaxAmount Else v2.FAmount End"},
      {"SUPPLIER", ""},
      {"STATE", " And v1.FStatus>0 And v1.FCancelLation=0 And v1.FHookStatus > 0 "},
      {"STOCK", " And v1.FStatus>0 And v1.FCancelLation=0 "},
      {"DATE", kDate},
      {"ITEM", " "},
      {"SALE", ""},
      {"PURCHASE", ""},
      {"TAIL", ""},
      {"RATE",
       "Select *,Case When FIncomeSale=0 Then '' Else LTrim(Str(FProfit/FIncomeSale*100) +'%') End As FRate "
       "From #Data  "},
  };
  return pieces;
}

}  // namespace salerpt::testing
