#include "tests/reports/rpt128_texts.h"

namespace salerpt::testing {
namespace {

constexpr const char* kColumns =
    "       FNumber  varchar(355) null,\r\n"
    "     FShortNumber  varchar(355) null,\r\n"
    "     FName  varchar(355) null,\r\n"
    "     FModel  varchar(355) null,\r\n"
    "     FUnitName  varchar(355) null,\r\n"
    "     FQtyDecimal smallint null, \r\n"
    "     FPriceDecimal smallint null, \r\n"
    "     FOutQty decimal(23, 10) null, \r\n"
    "     FOutAmount decimal(18,{D}) null, \r\n"
    "     FCommitQty decimal(23, 10) null, \r\n"
    "     FCommitAmount decimal(18,{D}) null, \r\n"
    "     FNotCommitAmount decimal(18,{D}) null, \r\n"
    "     FNotCommitQty decimal(23, 10) null, \r\n"
    "     FConsignAmount decimal(18,{D}) null,\r\n"
    "     FCUUnitName  varchar(355) null,\r\n"
    "     FCUUnitOutQty decimal(23, 10) null, \r\n"
    "     FCUUnitCommitQty decimal(23, 10) null, \r\n"
    "     FCUUnitNotCommitQty decimal(23, 10) null, \r\n"
    "     FSecUnitName  varchar(355) null,\r\n"
    "     FSecQty decimal(23, 10) null, \r\n"
    "     FSecInvoiceQty decimal(23, 10) null, \r\n"
    "     FSecNInvoiceQty decimal(23, 10) null, \r\n"
    "     FSumSort smallint not null Default(0), \r\n"
    "     FID int IDENTITY )\r\n";

constexpr const char* kColumnList =
    "FNumber, FShortNumber, FName, FModel, FUnitName, FQtyDecimal, FPriceDecimal, FOutQty, FOutAmount, "
    "FCommitQty, FCommitAmount, FNotCommitAmount, FNotCommitQty, FConsignAmount, FCUUnitName, FCUUnitOutQty, "
    "FCUUnitCommitQty, FCUUnitNotCommitQty, FSecUnitName, FSecQty, FSecInvoiceQty, FSecNInvoiceQty, FSumSort";

constexpr const char* kValues =
    "'' FShortNumber,'' FName,'' FModel,'' FUnitName,4 FQtyDecimal,4 FPriceDecimal,sum(isnull(v1.FOutQty,0)) "
    "FOutQty,sum(isnull(v1.FOutAmount,0)) FOutAmount,sum(isnull(v1.FCommitQty,0)) "
    "FCommitQty,sum(isnull(v1.FCommitAmount,0)) FCommitAmount,0 FNotCommitAmount,0 FNotCommitQty,\r\n"
    "sum(isnull(v1.FConsignAmount,0)) FConsignAmount,'' FCUUnitName, \r\n"
    " SUM(ISNULL(v1.FOutQty,0)/(Case When ISNULL(t3.FCoefficient,0)=0 Then 1 Else t3.FCoefficient End )) "
    "FCUUnitOutQty, \r\n"
    " SUM(ISNULL(v1.FCommitQty,0)/(Case When ISNULL(t3.FCoefficient,0)=0 Then 1 Else t3.FCoefficient End )) "
    "FCUUnitCommitQty, \r\n"
    " 0 FCUUnitNotCommitQty,'',sum(isnull(v1.FSecQty,0)) ,sum(isnull(v1.FSecInvoiceQty,0)) "
    ",sum(isnull(v1.FSecQty,0) - isnull(v1.FSecInvoiceQty,0)), ";

constexpr const char* kFrom =
    " From #DATA2 v1\r\n"
    " Inner Join t_ICItem t1 On v1.FItemID=t1.FItemID\r\n"
    " Left Join t_Organization t2 On v1.FCustID=t2.FItemID\r\n"
    " Inner Join T_MeasureUnit t3 On t1.FSaleUnitID = t3.FMeasureUnitID\r\n";

constexpr const char* kUpdate =
    " Update {TABLE} set  FNotCommitAmount = isnull(FOutAmount,0) - isnull(FCommitAmount,0),  FNotCommitQty "
    "= FOutQty-(case when FCommitQty is null then 0 else FCommitQty end ) \r\n"
    " Update {TABLE} set  FCUUnitNotCommitQty = FCUUnitOutQty-(case when FCUUnitCommitQty is null then 0 "
    "else FCUUnitCommitQty end ) \r\n";

constexpr const char* kFill =
    " Create Table #DATA2 (      FIndex int IDENTITY, \r\n"
    "     FItemID int null,\r\n"
    "     FCustID int null, \r\n"
    "     {OTHERCOL}\r\n"
    "     FOutQty Decimal(23,10) not null Default(0),\r\n"
    "     FOutAmount Decimal(18,{D}) not null Default(0),\r\n"
    "     FConsignAmount Decimal(18,{D}) not null Default(0),\r\n"
    "     FCommitQty Decimal(23,10) not null Default(0), \r\n"
    "     FCommitAmount Decimal(18,{D}) not null Default(0),FSaleStyle  int,FSecQty decimal(23, 10) "
    "null,FSecInvoiceQty decimal(23, 10) null) \r\n"
    "Insert Into #DATA2 "
    "(FItemID,FCustID,{COLNAME}FOutQty,FOutAmount,FConsignAmount,FSaleStyle,FSecQty,FSecInvoiceQty) \r\n"
    "Select v2.FItemID, v1.FSupplyID,{COLVALUE} "
    "v2.FQty,round(v2.FAmount,{D}),round(v2.FConsignAmount,{D}),FSaleStyle,FSecQty,0 FSecInvoiceQty\r\n"
    "From ICStockBill v1\r\n"
    "Join ICStockBillEntry v2 On v1.FInterID = v2.FInterID\r\n"
    "Join t_ICItem t1 On v2.FItemID = t1.FItemID\r\n"
    "Left Join t_Organization t2 On v1.FSupplyID=t2.FItemID\r\n"
    "Left Join t_Stock t99 On v2.FDCStockID=t99.FItemID\r\n"
    "{JOINTABLE}\r\n"
    "\r\n"
    " Where v1.FTranType =21 \r\n"
    " {STOCK}  {DATE} {ITEM}\r\n"
    "{TAIL}\r\n"
    " Insert Into #DATA2 (FItemID,FCustID,{COLNAME}FCommitQty,FCommitAmount,FSecQty,FSecInvoiceQty) \r\n"
    " Select v2.FItemID,v1.FCustID,{COLVALUE}v2.FQty, Round(case v1.FTranType when 80 then v2.FAmount * "
    "isnull(v1.FExchangeRate,1) else  (v2.FAmount - v2.FTaxAmount)* isnull(v1.FExchangeRate,1)  "
    "end,{D}),0,v2.FSecQty\r\n"
    " FROM  ICSale v1\r\n"
    "Join ICSaleEntry v2 On v1.FInterID = v2.FInterID\r\n"
    "Join t_ICItem t1 On v2.FItemID = t1.FItemID\r\n"
    "Left Join t_Organization t2 On v1.FCustID = t2.FItemID\r\n"
    "{JOINTABLE}\r\n"
    "\r\n"
    " Where v1.FTranType in (80,86) \r\n"
    " {STATE}  {DATE} {ITEM}\r\n"
    "{TAIL}\r\n";

constexpr const char* kResort =
    "Declare @SumID int,@MaxID int,@MinID int \r\n"
    "Select Top 1 @SumID=FSumSort From #TemData Order By FID DESC \r\n"
    "Select Top 1 @SumID=FSumSort From #TemData Where FSumSort>@SumID Order By FID DESC \r\n"
    "Select FID,Row_Number() over(Order By {ORDER}) as RowId Into #TemOrder From #TemData Where "
    "FSumSort=@SumID Order By {ORDER}\r\n"
    "While Exists(Select * From #TemOrder) \r\n"
    "Begin  \r\n"
    "  Set @MinID=0   Select Top 1 @MaxID=FID From #TemOrder  order by RowId \r\n"
    "  Select Top 1 @MinID=IsNull(FID,0) From #TemData Where FSumSort=@SumID And FID<@MaxID Order By FID "
    "DESC  \r\n"
    "  Insert Into #Data Select  {LIST} From #TemData Where FID>ISNull(@MinID,0) And FID<=@MaxID  \r\n"
    "  Delete From #TemOrder Where FID=@MaxID  \r\n"
    "End \r\n"
    "Insert Into #Data Select {LIST} From #TemData Where FSumSort>1 And FSumSort<@SumID \r\n";

// One blank before "order" and two behind, where a property or a person is grouped by.
constexpr const char* kResortPeople =
    "Declare @SumID int,@MaxID int,@MinID int \r\n"
    "Select Top 1 @SumID=FSumSort From #TemData Order By FID DESC \r\n"
    "Select Top 1 @SumID=FSumSort From #TemData Where FSumSort>@SumID Order By FID DESC \r\n"
    "Select FID,Row_Number() over(Order By {ORDER}) as RowId Into #TemOrder From #TemData Where "
    "FSumSort=@SumID Order By {ORDER}\r\n"
    "While Exists(Select * From #TemOrder) \r\n"
    "Begin  \r\n"
    "  Set @MinID=0   Select Top 1 @MaxID=FID From #TemOrder order by RowId  \r\n"
    "  Select Top 1 @MinID=IsNull(FID,0) From #TemData Where FSumSort=@SumID And FID<@MaxID Order By FID "
    "DESC  \r\n"
    "  Insert Into #Data Select  {LIST} From #TemData Where FID>ISNull(@MinID,0) And FID<=@MaxID  \r\n"
    "  Delete From #TemOrder Where FID=@MaxID  \r\n"
    "End \r\n"
    "Insert Into #Data Select {LIST} From #TemData Where FSumSort>1 And FSumSort<@SumID \r\n";

constexpr const char* kDate =
    " AND convert(datetime,convert(varchar(30),v1.FDate,111)) >='2003/01/01'\r\n"
    " AND convert(datetime,convert(varchar(30),v1.FDate,111)) <='2003/03/31'";

}  // namespace

const Pieces& Rpt128Pieces() {
  static const Pieces pieces = {
      {"D", "2"},
      {"COLUMNS", kColumns},
      {"COMMON", kColumnList},
      {"LIST", " {COMMON}"},
      {"VALUES", kValues},
      {"FROM", kFrom},
      {"UPDATE", kUpdate},
      {"TABLE", "#DATA"},
      {"FILL", kFill},
      {"OTHERCOL", "/*OTHERCOL*/"},
      {"COLNAME", "/*COLNAME*/"},
      {"COLVALUE", "/*COLVALUE*/"},
      {"JOINTABLE", "/*JOINTABLE*/"},
      {"RESORT", kResort},
      {"RESORTPEOPLE", kResortPeople},
      {"STOCK", " AND v1.FStatus>0 And v1.FCancelLation=0 "},
      {"STATE", " AND v1.FStatus>0 And v1.FCancelLation=0 "},
      {"DATE", kDate},
      {"ITEM", " "},
      {"TAIL", ""},
  };
  return pieces;
}

}  // namespace salerpt::testing
