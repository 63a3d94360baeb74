#include "tests/reports/rpt129_texts.h"

namespace salerpt::testing {
namespace {

constexpr const char* kFill =
    " Create Table #DATA2 ( \r\n"
    "      FAuxPropID varchar(355) null,\r\n"
    "     FAuxPropName Varchar(255),\r\n"
    "     FDate  datetime null,\r\n"
    "     FTranType int null, \r\n"
    "     FInterID int null, \r\n"
    "     FEntryID int null, \r\n"
    "     FBillNo varchar(355) null, \r\n"
    "     FItemID  int null,\r\n"
    "     FUnitID  int null,\r\n"
    "     FAuxOutQty decimal(23, 10) null, \r\n"
    "     FOutQty decimal(23, 10) null, \r\n"
    "     FOutAmount decimal(28,{D}) null, \r\n"
    "     FConsignAmount decimal(28,{D}) null,\r\n"
    "     FAuxCommitQty decimal(23, 10) null, \r\n"
    "     FCommitQty decimal(23, 10) null, \r\n"
    "     FCurrencyName varchar(355) null, \r\n"
    "     FAmountDecimal int default({D}), \r\n"
    "     FCommitAmount decimal(28, 10) null, \r\n"
    "     FGlCommitAmount decimal(28,{D}) null, \r\n"
    "     FCustShortNumber varchar(355) null, \r\n"
    "     FCustNumber varchar(355) null, \r\n"
    "     FCustName varchar(355) null, \r\n"
    "     FNote varchar(355) null, \r\n"
    "     FSaleUnitPrice decimal(18, 2) null, \r\n"
    "     FDStock varchar(355) null, \r\n"
    "     FBatchNo varchar(200) null,FSecQty decimal(23, 10) null,FSecInvoiceQty decimal(23, 10) null) \r\n"
    // Outbound lines
    "Insert Into #DATA2 ( \r\n"
    "FAuxPropID,FAuxPropName,\r\n"
    "FDate,FTranType,FInterID,FEntryID,FBillNo,FItemID,FUnitID,FAuxOutQty,FOutQty,FOutAmount,\r\n"
    " FConsignAmount,FCustShortNumber, FCustNumber, FCustName,FSaleUnitPrice,FDStock,FBatchNo,FSecQty,"
    "FSecInvoiceQty) \r\n"
    "Select V2.FAuxPropID,T3.FName,v1.Fdate,v1.FTranType,v1.FInterID,v2.FEntryID,v1.FBillNo,v2.FItemID,"
    "v2.FUnitID,\r\n"
    " v2.FAuxQty,v2.FQty,round(v2.FAmount,{D}),round(v2.FConsignAmount,{D}), t2.FShortNumber, t2.FNumber, "
    "t2.FName, v2.FConsignPrice, t99.FName, V2.FBatchNo \r\n"
    " ,v2.FSecQty,0 \r\n"
    "     From ICStockBill v1\r\n"
    "     Join ICStockBillEntry v2 On v1.FInterID = v2.FInterID\r\n"
    "     Join t_ICItem t1 On v2.FItemID = t1.FItemID\r\n"
    "     Left Join t_Organization t2 On v1.FSupplyID = t2.FItemID\r\n"
    "     Left Join t_Stock t99 On v2.FDCStockID = t99.FItemID\r\n"
    "     Left Join t_AuxItem T3 On V2.FAuxPropID=T3.FItemID\r\n"
    "     Where v1.FTrantype = 21 \r\n"
    "     {STOCK} {DATE} {ITEM}\r\n"
    "{TAIL}\r\n"
    // Invoice lines
    "Insert Into #DATA2 ( \r\n"
    "     FAuxPropID,FAuxPropName,FDate,FTranType,FInterID,FEntryID,FBillNo,FItemID,FUnitID,\r\n"
    "     FAuxCommitQty,FCommitQty,FCurrencyName,FAmountDecimal,FCommitAmount,FGlCommitAmount, "
    "FCustShortNumber, \r\n"
    "     FCustNumber, FCustName,FBatchNo,FSecQty,FSecInvoiceQty) \r\n"
    "     Select V2.FAuxPropID,T4.FName,v1.FDate,v1.FTranType,v1.FInterID,v2.FEntryID,v1.FBillNo,\r\n"
    "     v2.FItemID,v2.FUnitID,v2.FAuxQty,v2.FQty,t3.FName,t3.FScale, \r\n"
    "     round(case v1.FTranType when 80 then v2.FAmount else (v2.FAmount - v2.FTaxAmount) end,t3.FScale), "
    "\r\n"
    "     round(case v1.FTranType when 80 then v2.FAmount*v1.FExchangeRate else (v2.FAmount - "
    "v2.FTaxAmount)*v1.FExchangeRate end,{D}), \r\n"
    "     t2.FShortNumber, t2.FNumber, t2.FName,v2.FBatchNo\r\n"
    "     ,0,v2.FSecQty \r\n"
    "     From ICSale v1\r\n"
    "     Join ICSaleEntry v2 On v1.FInterID = v2.FInterID\r\n"
    "     Join t_ICItem t1 On v2.FItemID = t1.FItemID\r\n"
    "     Left Join t_Organization t2 On v1.FCustID = t2.FItemID\r\n"
    "     Left Join t_Currency T3 On v1.FCurrencyID=t3.FCurrencyID\r\n"
    "     Left Join t_AuxItem T4 On V2.FAuxPropID=T4.FItemID\r\n"
    "     Where v1.FTranType in (80,86) \r\n"
    "     {STATE} {DATE} {ITEM}\r\n"
    "{TAIL}\r\n";

constexpr const char* kValues =
    "v1.FItemID,V1.FAuxPropID,V1.FAuxPropName,convert(varchar(10),v1.Fdate,121) as "
    "FDate,v1.FTranType,v1.FInterID,v1.FEntryID,v1.FBillNo,t1.FNumber,'','','',v1.FUnitID,'','',4,4,"
    "v1.FAuxOutQty,v1.FOutQty,round(v1.FOutAmount,{D}),round(FConsignAmount,{D}), "
    "v1.FAuxCommitQty,v1.FCommitQty,v1.FCurrencyName,v1.FAmountDecimal,round(v1.FCommitAmount,"
    "v1.FAmountDecimal),round(v1.FGlCommitAmount,{D}),'', t2.FName, v1.FOutQty/(Case When "
    "ISNULL(t2.FCoefficient,0)=0 Then 1 Else t2.FCoefficient End ), v1.FCommitQty/(Case When "
    "ISNULL(t2.FCoefficient,0)=0 Then 1 Else t2.FCoefficient End ), 0,'',v1.FSecQty,v1.FSecInvoiceQty , "
    "v1.FCustName, v1.FCustNumber, v1.FCustShortNumber, v1.FSaleUnitPrice, v1.FDStock, v1.FBatchNo";

constexpr const char* kFrom =
    " From  #DATA2 v1\r\n"
    "Join t_ICItem t1 On v1.FItemID=t1.FItemID\r\n"
    "Left Join t_MeasureUnit t2 On t1.FSaleUnitID =t2.FMeasureUnitID";

constexpr const char* kNames =
    " Update t1 SET t1.FName=t2.FName,t1.FShortNumber=t2.FShortNumber,t1.FModel=t2.FModel,t1.FAuxUnitName = "
    "u1.FName, t1.FUnitName=t3.FName,t1.FQtyDecimal=t2.FQtyDecimal,t1.FPriceDecimal=t2.FPriceDecimal,"
    "t1.FSecUnitName= (case when ISNULL(t4.FName,'') = '' then '' when t4.FName = '*' then '' else t4.FName "
    "end)  From #DATA t1,t_ICItem t2 left join t_MeasureUnit t4 on t2.FSecUnitID = t4.FMeasureUnitID "
    ",t_MeasureUnit t3,t_MeasureUnit u1  Where t1.FItemID=t2.FItemID  And t2.FUnitGroupID=t3.FUnitGroupID  "
    "And t3.FStAndard=1 And u1.FMeasureUnitID = t1.FUnitID";

constexpr const char* kItemSection =
    " {ITEMOPEN} Insert Into "
    "#Data(FNumber,FName,FAuxOutQty,FOutQty,FoutAmount,FConsignAmount,FAuxCommitQty,FCommitQty,FCommitAmount,"
    "FGlCommitAmount,FCUUnitOutQty,FCUUnitCommitQty,FSumSort,FSecQty,FSecInvoiceQty ) Select FNumber,Fname + "
    "'(小计)', sum(round(isnull(v1.FAuxOutQty,0),FQtyDecimal)), "
    "sum(round(isnull(v1.FOutQty,0),FQtyDecimal)), "
    "sum(isnull(v1.FOutAmount,0)),sum(isnull(v1.FConsignAmount,0)),"
    "sum(round(isnull(v1.FAuxCommitQty,0),FQtyDecimal)), "
    "sum(round(isnull(v1.FCommitQty,0),FQtyDecimal)),sum(isnull(v1.FCommitAmount,0)),"
    "sum(isnull(v1.FGlCommitAmount,0)),Sum(round(isnull(v1.FCUUnitOutQty,0),FQtyDecimal)),"
    "Sum(round(isnull(v1.FCUUnitCommitQty,0),FQtyDecimal)),100 "
    ",Sum(round(isnull(v1.FSecQty,0),FQtyDecimal)),Sum(round(isnull(v1.FSecInvoiceQty,0),FQtyDecimal)) From "
    "#Data v1 group by FNumber,Fname {ITEMCLOSE} ";

constexpr const char* kDateSection =
    " {DATEOPEN} Insert Into "
    "#Data(FNumber,FName,FDate,FAuxOutQty,FOutQty,FoutAmount,FConsignAmount,FAuxCommitQty,FCommitQty,"
    "FCommitAmount,FGlCommitAmount,FCUUnitOutQty,FCUUnitCommitQty,FSumSort,FSecQty,FSecInvoiceQty ) Select "
    "'','',isnull(FDate,'') + '(小计)', sum(round(isnull(v1.FAuxOutQty,0),FQtyDecimal)), "
    "sum(round(isnull(v1.FOutQty,0),FQtyDecimal)), "
    "sum(isnull(v1.FOutAmount,0)),sum(isnull(v1.FConsignAmount,0)),"
    "sum(round(isnull(v1.FAuxCommitQty,0),FQtyDecimal)), "
    "sum(round(isnull(v1.FCommitQty,0),FQtyDecimal)),sum(isnull(v1.FCommitAmount,0)),"
    "sum(isnull(v1.FGlCommitAmount,0)),Sum(round(isnull(v1.FCUUnitOutQty,0),FQtyDecimal)),"
    "Sum(round(isnull(v1.FCUUnitCommitQty,0),FQtyDecimal)),100 "
    ",Sum(round(isnull(v1.FSecQty,0),FQtyDecimal)),Sum(round(isnull(v1.FSecInvoiceQty,0),FQtyDecimal)) From "
    "#Data v1 group by FDate {DATECLOSE} ";

constexpr const char* kRawSums =
    ",FAuxOutQty,FOutQty,FoutAmount,FConsignAmount,FAuxCommitQty,FCommitQty,FCommitAmount,FGlCommitAmount,"
    "FCUUnitOutQty,FCUUnitCommitQty,FSumSort,FSecQty,FSecInvoiceQty ) Select '合计', "
    "sum(isnull(v1.FAuxOutQty,0)), sum(isnull(v1.FOutQty,0)), "
    "sum(isnull(v1.FOutAmount,0)),sum(isnull(v1.FConsignAmount,0)),sum(isnull(v1.FAuxCommitQty,0)), "
    "sum(isnull(v1.FCommitQty,0)),sum(isnull(v1.FCommitAmount,0)),sum(isnull(v1.FGlCommitAmount,0)),"
    "Sum(isnull(v1.FCUUnitOutQty,0)),Sum(isnull(v1.FCUUnitCommitQty,0)),101 "
    ",Sum(isnull(v1.FSecQty,0)),Sum(isnull(v1.FSecInvoiceQty,0)) ";

constexpr const char* kTotals =
    " {NOTDATEOPEN} Insert Into #Data(FName{RAWSUMS} From #DATA v1 where 1 = 1 {ITEMOPEN} and FSumSort = 100 "
    "{ITEMCLOSE} {NOTDATECLOSE} "
    " {DATEOPEN} Insert Into #Data(FDate{RAWSUMS} From #DATA v1 where 1 = 1 and FSumSort = 100 {DATECLOSE} ";

constexpr const char* kDate =
    " And convert(datetime,convert(varchar(30),v1.FDate,111)) >='2003/01/01'\r\n"
    " And convert(datetime,convert(varchar(30),v1.FDate,111)) <='2003/03/31'";

}  // namespace

const Pieces& Rpt129Pieces() {
  static const Pieces pieces = {
      {"D", "2"},
      {"FILL", kFill},
      {"VALUES", kValues},
      {"FROM", kFrom},
      {"NAMES", kNames},
      {"ITEMSECTION", kItemSection},
      {"DATESECTION", kDateSection},
      {"TOTALS", kTotals},
      {"RAWSUMS", kRawSums},
      {"APPEND", "{NAMES} Drop Table #DATA2 {ITEMSECTION}{DATESECTION}{TOTALS}"},
      {"ITEMOPEN", "/*##chkShowItemSum##"},
      {"ITEMCLOSE", "##chkShowItemSum##*/"},
      {"DATEOPEN", "/*##chkShowDateSum##"},
      {"DATECLOSE", "##chkShowDateSum##*/"},
      {"NOTDATEOPEN", "/*##chkShowNotDateSum##"},
      {"NOTDATECLOSE", "##chkShowNotDateSum##*/"},
      {"STOCK", " And v1.FStatus>0 And v1.FCancelLation=0 "},
      {"STATE", " And v1.FStatus>0 And v1.FCancelLation=0 "},
      {"DATE", kDate},
      {"ITEM", " "},
      {"TAIL", ""},
  };
  return pieces;
}

Pieces OpenItemSection() {
  return {{"ITEMOPEN", " "}, {"ITEMCLOSE", " "}};
}
Pieces OpenDateSections() {
  return {{"DATEOPEN", " "}, {"DATECLOSE", " "}};
}
Pieces OpenTotalWithoutDates() {
  return {{"NOTDATEOPEN", " "}, {"NOTDATECLOSE", " "}};
}
Pieces Both(Pieces pieces, const Pieces& more) {
  for (const auto& [name, text] : more) pieces[name] = text;
  return pieces;
}

}  // namespace salerpt::testing
