#include "tests/reports/rpt139_texts.h"

namespace salerpt::testing {
namespace {

// Each line needs its line end: the rest of it is a comment.
constexpr const char* kColumns =
    "      FInterID int Not Null,\r\n"
    "    FEntryID int Not Null,\r\n"
    "    FDate varchar(10) Not Null,\r\n"
    "    FBillNo nvarchar(255)  Not Null,\r\n"
    "    FCustNumber varchar(80) Null,\r\n"
    "    FCustName varchar(255) Null,\r\n"
    "    FAdviceConsignDate varchar(10) null,\r\n"
    "    FItemID int Not Null, \r\n"
    "    FItemNumber  varchar(355) null, \r\n"
    "    FItemShortNumber  varchar(355) null, \r\n"
    "    FName  varchar(255) Null,\r\n"
    "    FModel varchar(255) Null,\r\n"
    "    FAuxName varchar(80) Null, \r\n"
    "    FBaseUnitName  varchar(355) null, \r\n"
    "    FStockUnitName  varchar(355) null, \r\n"
    "    FLevel int Not Null Default(0), \r\n"
    "    FQty Decimal(23,10) Not Null Default(0),             --订单(基本)数量 \r\n"
    "    FAuxQty Decimal(23,10)  Not Null Default(0),         --订单(常用)数量 \r\n"
    "    FBCommitQty Decimal(23,10)  Not Null Default(0),     --生产(基本)数量 \r\n"
    "    FAuxBCommitQty Decimal(23,10)  Not Null Default(0),  --生产(常用)数量 \r\n"
    "    FInStockQty Decimal(23,10)  Not Null Default(0),     --入库(基本)数量 \r\n"
    "    FInAuxStockQty Decimal(23,10)  Not Null Default(0),  --入库(常用)数量 \r\n"
    "    FOutStockQty Decimal(23,10)  Not Null Default(0),    --出库(基本)数量 \r\n"
    "    FOutAuxStockQty Decimal(23,10)  Not Null Default(0), --出库(常用)数量 \r\n"
    "    FUnFinishQty Decimal(23,10)  Not Null Default(0),    --未执行(基本)数量 \r\n"
    "    FUnAuxFinishQty Decimal(23,10)  Not Null Default(0), --未执行(常用)数量  \r\n"
    "    FQtyDecimal smallint null,FExecutionStatus Varchar(20),FSumSort smallint not null Default(0))   ";

constexpr const char* kValues =
    " CASE WHEN GROUPING(V1.FInterID)=1 THEN 0 ELSE V1.FInterID END, \r\n"
    " CASE WHEN GROUPING(V1.FEntryID)=1 THEN 0 ELSE V1.FEntryID END, \r\n"
    " '' as FDate, \r\n"
    " '' as FBillNo, \r\n"
    " '' as FCustNumber, \r\n"
    " '' as FCustName, \r\n"
    " '' as FAdviceConsignDate, \r\n"
    " CASE WHEN GROUPING(V1.FItemID)=1 THEN 0 ELSE V1.FItemID END, \r\n"
    " CASE WHEN GROUPING(t1.FNumber)=1 THEN '' ELSE t1.FNumber END, \r\n"
    " '' as FName, \r\n"
    " '' as FItemShortNumber, \r\n"
    " '' as FModel, \r\n"
    " '' as FAuxName, \r\n"
    " '' as FBaseUnitName, \r\n"
    " '' as FStockUnitName, \r\n"
    " 0  as FLevel, \r\n"
    " Sum(round(V1.FQty,t1.FQtyDecimal)) as FQty, \r\n"
    " Sum(round(V1.FAuxQty,t1.FQtyDecimal)) as FAuxQty, \r\n"
    " Sum(round(V1.FBCommitQty,t1.FQtyDecimal)) as FBCommitQty, \r\n"
    " Sum(round(V1.FAuxBCommitQty,t1.FQtyDecimal)) as FAuxBCommitQty, \r\n"
    " Sum(round(V1.FInStockQty,t1.FQtyDecimal)) as FInStockQty,Sum(round(V1.FInAuxStockQty,t1.FQtyDecimal)) "
    "as FInAuxStockQty, \r\n"
    " Sum(round(V1.FOutStockQty,t1.FQtyDecimal)) as FOutStockQty, \r\n"
    " Sum(round(V1.FOutAuxStockQty,t1.FQtyDecimal)) as FOutAuxStockQty, \r\n"
    " Sum(round(V1.FUnFinishQty,t1.FQtyDecimal)) as "
    "FUnFinishQty,Sum(round(V1.FUnAuxFinishQty,t1.FQtyDecimal)) as FUnAuxFinishQty, \r\n"
    " 4, '', \r\n";

constexpr const char* kRollup =
    " WITH ROLLUP having (grouping(v1.FInterID)=1 and grouping(v1.FEntryID)=1 and grouping(v1.FItemID)=1 and "
    "grouping(t1.FNumber)=1) \r\n"
    "                 or(grouping(v1.FInterID)=0 and grouping(v1.FEntryID)=0 and grouping(v1.FItemID)=0 and "
    "grouping(t1.FNumber)=0) \r\n";

}  // namespace

const Pieces& Rpt139Pieces() {
  static const Pieces pieces = {
      {"COLUMNS", kColumns},
      {"VALUES", kValues},
      {"FROM", " FROM #T139 v1\r\nJoin t_ICItem t1 On v1.FItemID=t1.FItemID\r\n"},
      {"WHERE", " WHERE 1=1 \r\n"},
      {"ROLLUP", kRollup},
      {"CONDITION", ""},
      {"ONLYTOTALS", ""},
  };
  return pieces;
}

}  // namespace salerpt::testing
