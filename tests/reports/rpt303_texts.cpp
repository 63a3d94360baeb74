#include "tests/reports/rpt303_texts.h"

namespace salerpt::testing {
namespace {

constexpr const char* kColumns =
    "      FNumber  VARCHAR(355) null, FShortNumber  VARCHAR(355) null,\r\n"
    "     FName  VARCHAR(355) null,FModel  VARCHAR(355) null,\r\n"
    "     FUnitName  VARCHAR(355) null,FCUUnitName  VARCHAR(355) null,\r\n"
    "     FQtyDecimal smallint null,FPriceDecimal smallint null,\r\n"
    "     FBegQty     decimal(23,10)  null,  FBegPrice   decimal(23,10)  null,\r\n"
    "     FCUBegQty     decimal(23,10)  null,FCUBegPrice   decimal(23,10)  null,\r\n"
    "     FBegAmount  decimal(18,{D})  null,\r\n"
    "     FSendQty     decimal(23,10)  null,\r\n"
    "     FSendPrice   decimal(23,10)  null,\r\n"
    "     FCUSendQty     decimal(23,10)  null,\r\n"
    "     FCUSendPrice   decimal(23,10)  null,\r\n"
    "     FSendAmount  decimal(18,{D})  null,\r\n"
    "     FVerifQty     decimal(23,10)  null,\r\n"
    "     FVerifPrice   decimal(23,10)  null,\r\n"
    "     FCUVerifQty     decimal(23,10)  null,\r\n"
    "     FCUVerifPrice   decimal(23,10)  null,\r\n"
    "     FVerifAmount  decimal(18,{D})  null,\r\n"
    "     FEndQty     decimal(23,10)  null,\r\n"
    "     FEndPrice   decimal(23,10)  null,\r\n"
    "     FCUEndQty     decimal(23,10)  null,\r\n"
    "     FCUEndPrice   decimal(23,10)  null,\r\n"
    "     FEndAmount  decimal(18,{D})  null,\r\n"
    "     FSumSort smallint not null Default(0),\r\n"
    "     FID int IDENTITY)\r\n";

constexpr const char* kList =
    "FNumber,FShortNumber,FName,FModel,FUnitName,FCUUnitName,\r\n"
    " FQtyDecimal,FPriceDecimal,FBegQty,FBegPrice,FCUBegQty,FCUBegPrice,\r\n"
    " FBegAmount,FSendQty,FSendPrice,FCUSendQty,FCUSendPrice,FSendAmount,FVerifQty,FVerifPrice,\r\n"
    " FCUVerifQty,FCUVerifPrice,FVerifAmount,FEndQty,FEndPrice,FCUEndQty,FCUEndPrice,FEndAmount,FSumSort)"
    "\r\n";

constexpr const char* kValues =
    "'','','','','',4,4, Sum (round(FBegQty,v1.FQtyDecimal)),0,Sum "
    "(round(FCUBegQty,v1.FQtyDecimal)),0,Sum(round(FBegAmount,{D})), Sum "
    "(round(FSendQty,v1.FQtyDecimal)),0,Sum "
    "(round(FCUSendQty,v1.FQtyDecimal)),0,Sum(round(FSendAmount,{D})), Sum "
    "(round(FVerifQty,v1.FQtyDecimal)),0,Sum "
    "(round(FCUVerifQty,v1.FQtyDecimal)),0,Sum(round(FVerifAmount,{D})), 0,0,0, 0,0, ";

constexpr const char* kFrom =
    " FROM #Rpt303 v1 \r\n"
    " Inner Join t_ICItem t1 on v1.FItemID=t1.FItemID  \r\n"
    " Inner Join t_Organization t2 on v1.FCustID=t2.FItemID \r\n"
    " Left  Join t_Emp t3 on v1.FEmpID=t3.FItemID \r\n"
    " Left  Join t_DepartMent t4 on  v1.FDeptID=t4.FItemID \r\n";

}  // namespace

const Pieces& Rpt303Pieces() {
  static const Pieces pieces = {
      {"D", "2"},
      {"COLUMNS", kColumns},
      {"LIST", kList},
      {"VALUES", kValues},
      {"FROM", kFrom},
      {"WHERE", " WHERE  1=1 {TAIL}"},
      {"TAIL", ""},
      {"CONDITION", ""},
      {"ITEMFILTER", " And FItemID In (SELECT DISTINCT {ITEMFIELD} FROM #Rpt303 v1) "},
      {"ITEMFIELD", "##ITEMID##"},
      {"ONLYTOTALS", ""},
  };
  return pieces;
}

}  // namespace salerpt::testing
