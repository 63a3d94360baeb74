#include "tests/reports/rpt301_texts.h"

namespace salerpt::testing {
namespace {

constexpr const char* kColumns =
    "    FNumber  varchar(355) null,\r\n"
    "     FFeeType varchar(355) null,\r\n"
    "     FName  varchar(355) null,\r\n"
    "     FUnit  varchar(355) null,\r\n"
    "     FQtyDecimal smallint null, \r\n"
    "     FPriceDecimal smallint null, \r\n"
    "     FAuxQty decimal(23,10) null default (0),\r\n"
    "     FAmount decimal(23,10) null default (0),\r\n"
    "     FTaxAmount decimal(23,10) null default (0),\r\n"
    "     FAmountEx decimal(23,10) null default (0),\r\n"
    "     FSumSort smallint not null Default(0))\r\n";

constexpr const char* kValues =
    "'','','',4,4,Sum (v1.FAuxQty), Sum(v1.FAmount), Sum(v1.FTaxAmount),Sum(v1.FAmount)-Sum(v1.FTaxAmount) ,";

constexpr const char* kFrom =
    " From  #T301B v1\r\n"
    "Left Join t_Organization t2 On v1.FCustID=t2.FItemID\r\n"
    "Left Join t_Supplier t3 On v1.FSupplyID=t3.FItemID\r\n"
    "Left Join t_Fee t4 On v1.FItemID=t4.FItemID\r\n"
    "Left Join t_SubMessage k1 On t4.FFeeType=k1.FInterID\r\n";

}  // namespace

const Pieces& Rpt301Pieces() {
  static const Pieces pieces = {
      {"COLUMNS", kColumns},
      {"VALUES", kValues},
      {"FROM", kFrom},
      {"WHERE", " WHERE 1=1 "},
      {"ITEMFILTER", " FItemID In (SELECT DISTINCT {ITEMFIELD} FROM #T301B "},
      {"ITEMFIELD", "##ITEMID##"},
      {"ONLYTOTALS", ""},
  };
  return pieces;
}

}  // namespace salerpt::testing
