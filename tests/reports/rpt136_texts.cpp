#include "tests/reports/rpt136_texts.h"

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
    "     FQty  decimal(23, 10) null,\r\n"
    "     FOrgAmount decimal(23, 10) null, \r\n"
    "     FAmount decimal(18, {D}) null, \r\n"
    "     FAllAmount decimal(18, {D}) null, \r\n"
    "     FCUUnitName  varchar(355) null,\r\n"
    "     FCUUnitQty  decimal(23, 10) null,\r\n"
    "     FSumSort smallint not null Default(0),\r\n"
    "     FID int IDENTITY )";

constexpr const char* kCurrencyColumns =
    " FCurrencyName varchar(355) null,\r\n"
    " FAmountDecimal smallint Default({D}),\r\n";

constexpr const char* kCommon =
    "FNumber, FShortNumber, FName, FModel, FUnitName, FQtyDecimal, FPriceDecimal, FQty, FOrgAmount, FAmount, "
    "FAllAmount, FCUUnitName, FCUUnitQty, FSumSort";

constexpr const char* kValues =
    "'','','','',4,4,SUM(v2.FQty) FQty, "
    "SUM(Round(v2.FAmount,t5.FScale)),SUM(Round(v2.FAmount*isnull(v1.FExchangeRate,1),{D})) "
    "FAmount,SUM(Round(v2.FAllAmount*isnull(v1.FExchangeRate,1),{D})) FAllAmount,'', "
    "SUM(ISNUll(v2.FQty/(Case When ISNULL(t6.FCoefficient,0)=0 Then 1 Else t6.FCoefficient End ),0)) "
    "FCUUnitQty,";

constexpr const char* kFrom =
    " From  SEOrder v1\r\n"
    "Join SEOrderEntry v2 On v2.Finterid = v1.FInterID\r\n"
    "Join t_ICItem t1 On v2.FItemID=t1.FItemID\r\n"
    "Left Join t_Organization t2 On v1.FCustID=t2.FItemID\r\n"
    "Left Join t_DepartMent t3 On v1.FDeptID=t3.FItemID\r\n"
    "Left Join t_Emp t4 On v1.FEmpID=t4.FItemID\r\n"
    "Left Join t_Currency t5 On v1.FCurrencyID =t5.FCurrencyID\r\n"
    "Left Join t_MeasureUnit t6 On t1.FSaleUnitID = t6.FMeasureUnitID\r\n";

constexpr const char* kWhere =
    " WHERE 1=1 \r\n"
    " {STATE} {DATE} {ITEM} \r\n"
    "{TAIL}\r\n";

constexpr const char* kItemFilter =
    " FItemID In (SELECT DISTINCT {ITEMFIELD} FROM SEOrderEntry v2, t_ICItem t1,t_Organization t2 "
    ",t_Currency "
    "t5 ,SEOrder v1 \r\n"
    "Left Join t_DepartMent t3 ON v1.FDeptID=t3.FItemID Left Join t_Emp t4 On v1.FEmpID=t4.FItemID \r\n"
    " WHERE v1.FInterID=v2.FInterID and v2.FItemID = t1.FItemID and v1.FCustID = t2.FItemID  \r\n"
    " {STATE} {DATE} {ITEM} )";

constexpr const char* kDecimals =
    " update  t1 set t1.FAmountDecimal = (select FScale from t_Currency where FName = "
    "replace(t1.FCurrencyName,'(小计)','')) from #DATA t1 \r\n";

constexpr const char* kDate =
    " AND convert(datetime,convert(varchar(30),v1.FDate,111)) >='2003/01/01'\r\n"
    " AND convert(datetime,convert(varchar(30),v1.FDate,111)) <='2003/03/31'";

}  // namespace

const Pieces& Rpt136Pieces() {
  static const Pieces pieces = {
      {"D", "2"},
      {"COLUMNS", kColumns},
      {"CURRENCYCOLUMNS", kCurrencyColumns},
      {"COMMON", kCommon},
      {"CURRENCYCOMMON", "FCurrencyName, FAmountDecimal"},
      {"VALUES", kValues},
      {"FROM", kFrom},
      {"WHERE", kWhere},
      {"ITEMFILTER", kItemFilter},
      {"ITEMFIELD", "##ITEMID##"},
      {"DECIMALS", kDecimals},
      {"STATE", " AND v1.FStatus>0 And v1.FCancelLation=0 "},
      {"DATE", kDate},
      {"ITEM", " "},
      {"TAIL", ""},
      {"ONLYTOTALS", ""},
      {"ONLYSUM", "0"},
  };
  return pieces;
}

}  // namespace salerpt::testing
