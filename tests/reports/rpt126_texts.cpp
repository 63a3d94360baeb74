#include "tests/reports/rpt126_texts.h"

namespace salerpt::testing {
namespace {

constexpr const char* kColumns =
    "{AUXCOLUMNS}     FNumber Varchar(355),\r\n"
    "     FShortNumber  Varchar(355) Null,\r\n"
    "     FName  Varchar(355) Null,\r\n"
    "     FModel  Varchar(355) Null,\r\n"
    "     FUnitName  Varchar(355) Null,\r\n"
    "     FQtyDecimal smallint Null, \r\n"
    "     FPriceDecimal smallint Null, \r\n"
    "     FQty     decimal(23,10)  Null,\r\n"
    "     FCUUnitName  Varchar(355) Null,\r\n"
    "     FCUUnitQty     decimal(23,10)  Null,\r\n"
    "     FPrice   decimal(23,10)  Null,\r\n"
    "     FAmount  decimal(23,10)  Null,\r\n"
    "     FTaxRate  decimal(23,10)  Null,\r\n"
    "     FTaxAmount  decimal(23,10)  Null,\r\n"
    "     FCountAmount decimal(23,10) Null,\r\n"
    "     {CURRENCYCOLUMNS} \r\n"
    "     FSumSort smallint not Null Default(0), \r\n"
    "     FID int IDENTITY \r\n"
    "     ) \r\n";

constexpr const char* kCurrencyColumns =
    "FCurrencyID Varchar(80) Null,\r\n"
    "FCurrencyName Varchar(80) Null,\r\n"
    "FAmountDecimal smallint default({D}),";

constexpr const char* kValues =
    "'','','','',4,4, Sum (round(v2.FQty,t1.FQtyDecimal)), '',  Sum(round(cast(ISNull(v2.FQty,0) as "
    "decimal(23,10))/(Case When ISNULL(t5.FCoefficient,0)=0 Then 1 Else t5.FCoefficient End "
    "),t1.FQtyDecimal)),  0,Sum(Round((Case v1.FTranType When 80 Then v2.{AMOUNT}   Else v2.{AMOUNT}- "
    "v2.{TAX} End),{SCALE})),0,Sum(Round(v2.{TAX},{SCALE})),Sum(Round(Case v1.FTranType When 80 Then "
    "(v2.{AMOUNT} + v2.{TAX})  Else v2.{AMOUNT} End,{SCALE})), {CURRENCYVALUES} ";

constexpr const char* kFrom =
    " From ICSale v1\r\n"
    "Join ICSaleEntry v2 On v1.FInterID=v2.FInterID\r\n"
    "Left Join t_ICItem t1 On v2.FItemID=t1.FItemID\r\n"
    "Left Join t_Organization t2 On v1.FCustID=t2.FItemID\r\n"
    "Left Join t_Department t3 On FDeptID =t3.FItemID\r\n"
    "Left Join t_Emp t4 On FEmpID =t4.FItemID\r\n"
    "Left Join t_MeasureUnit t5 On t1.FCUUnitID = t5.FMeasureUnitID\r\n"
    "Left Join t_Currency t6 On v1.FCurrencyID = t6.FCurrencyID";

constexpr const char* kWhere =
    " Where v1.FTranType in (80,86) \r\n"
    " {STATE}  ##CHECKDATE## \r\n"
    "{TAIL}";

constexpr const char* kItemFilter =
    " FItemID In (Select DISTINCT {ITEMFIELD} From ICSale v1,ICSaleEntry v2  Where v1.FInterID=v2.FInterID "
    "And v1.FTranType in (80,86) \r\n"
    " {STATE} ##CHECKDATE##)";

bool IsBlank(char c) {
  return c == ' ' || c == '\r' || c == '\n';
}
bool StandsAlone(char c) {
  return c == '(' || c == ')' || c == ',';
}

}  // namespace

const Pieces& Rpt126Pieces() {
  static const Pieces pieces = {
      {"D", "2"},
      {"COLUMNS", kColumns},
      {"AUXCOLUMNS", ""},
      {"CURRENCYCOLUMNS", kCurrencyColumns},
      {"VALUES", kValues},
      {"AMOUNT", "FStdAmount"},
      {"TAX", "FStdTaxAmount"},
      {"SCALE", "{D}"},
      {"CURRENCYVALUES", "'','',{D},"},
      {"FROM", kFrom},
      {"WHERE", kWhere},
      {"STATE", " And v1.FStatus>0 And v1.FCancelLation=0 "},
      {"TAIL", ""},
      {"CONDITION", ""},
      {"ITEMFILTER", kItemFilter},
      {"ITEMFIELD", "##ITEMID##"},
      {"ONLYTOTALS", ""},
  };
  return pieces;
}

Pieces BillCurrency() {
  return {{"AMOUNT", "FAmount"}, {"TAX", "FTaxAmount"}, {"SCALE", "t6.FScale"}};
}

Pieces AuxiliaryColumns() {
  return {{"AUXCOLUMNS",
           "      FAuxPropID Varchar(355) Null,\r\n"
           "     FAuxPropName Varchar(255),\r\n"}};
}

std::string AsTheServerReads(std::string_view text) {
  std::string read;
  for (const char c : text) {
    if (IsBlank(c)) {
      if (!read.empty() && read.back() != ' ' && !StandsAlone(read.back())) read += ' ';
      continue;
    }
    if (StandsAlone(c) && !read.empty() && read.back() == ' ') read.pop_back();
    read += c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  }
  if (!read.empty() && read.back() == ' ') read.pop_back();
  return read;
}

}  // namespace salerpt::testing
