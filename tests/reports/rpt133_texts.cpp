#include "tests/reports/rpt133_texts.h"

namespace salerpt::testing {
namespace {

constexpr const char* kColumns =
    "     FNumber  varchar(355) null,\r\n"
    "     FShortNumber  varchar(355) null,\r\n"
    "     FName  varchar(355) null,\r\n"
    "     FModel  varchar(355) null,\r\n"
    "     FUnitName  varchar(355) null,\r\n"
    "     FQtyDecimal smallint null, \r\n"
    "     FPriceDecimal smallint null, \r\n"
    "     FQty     decimal(23,10)  null,\r\n"
    "     FPrice   decimal(23,10)  null,\r\n"
    "     FAmount  decimal(23,10)  null,\r\n"
    "     FTaxRate  decimal(23,10)  null,\r\n"
    "     FTaxAmount  decimal(23,10)  null,\r\n"
    "     FCountAmount money null,\r\n"
    "     FCUUnitName  varchar(355) null,\r\n"
    "     FCUUnitQty     decimal(23,10)  null,\r\n"
    "     FSumSort smallint not null Default(0),\r\n"
    "     FID int IDENTITY )";

constexpr const char* kValues =
    "'','','','',6,4, Sum (v2.FQty), 0,Sum(ROUND((CASE v1.FTranType WHEN 80 THEN v2.FAmount   else "
    "v2.FAmount- v2.FTaxAmount END)*ISNULL(v1.FExchangeRate,1),2)),0,sum(ROUND(v2.FTaxAmount*"
    "ISNULL(v1.FExchangeRate,1),2)),sum(Round(case v1.FTranType when 80 then (v2.FTaxAmount + "
    "v2.FAmount)*ISNULL(v1.FExchangeRate,1)  else v2.FAmount*ISNULL(v1.FExchangeRate,1) end,2)),'',0,";

constexpr const char* kFrom = " FROM ICSale v1{JOINS},ICSaleEntry v2,t_ICItem t1,t_Organization t2";

constexpr const char* kWhere =
    " WHERE v1.FInterID=v2.FInterID  AND v1.FTranType in (80,86) \r\n"
    " {STATE}  ##CHECKDATE##  AND  v2.FItemID=t1.FItemID \r\n"
    " AND  v1.FCustID=t2.FItemID \r\n"
    "{TAIL}";

constexpr const char* kItemFilter =
    " FItemID In (SELECT DISTINCT {ITEMFIELD} FROM ICSale v1,ICSaleEntry v2  WHERE v1.FInterID=v2.FInterID  "
    "AND v1.FTranType in (80,86) \r\n"
    " {STATE} ##CHECKDATE##)";

}  // namespace

const Pieces& Rpt133Pieces() {
  static const Pieces pieces = {
      {"COLUMNS", kColumns},
      {"VALUES", kValues},
      {"FROM", kFrom},
      {"JOINS", ""},
      {"PEOPLE",
       " LEFT JOIN t_Department t3 ON v1.FDeptID=t3.FItemID LEFT JOIN t_Emp t4 ON v1.FEmpID=t4.FItemID"},
      {"WHERE", kWhere},
      {"ITEMFILTER", kItemFilter},
      {"ITEMFIELD", "##ITEMID##"},
      {"STATE", " AND v1.FStatus>0 And v1.FCancelLation=0 "},
      {"TAIL", ""},
      {"CONDITION", ""},
      {"ONLYTOTALS", ""},
  };
  return pieces;
}

}  // namespace salerpt::testing
