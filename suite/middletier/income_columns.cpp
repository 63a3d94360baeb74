#include "suite/middletier/income_columns.h"

#include "runtime/text.h"
#include "suite/middletier/item_columns.h"
#include "suite/middletier/price_columns.h"
#include "suite/middletier/table_columns.h"

namespace salerpt::middletier {
namespace {

// Behind a total row's block stands the row itself; before the block stands the total row that closes the
// block before it, which is of the same code or of a lower one: codes grow from the outer group to the inner.
// So a total row looks back over its own block and no further, and a row is read once for each group that it
// is in. The last row is the grand total and sums everything.
void FillCommonQuantity(tsql::Session& session, std::string_view table) {
  // clang-format off
  session.Execute(Join(
      "If Not Exists(Select * From ", table, " Where FCUUnitQty<>0)\r\n"
      "Begin\r\n"
      "  Declare @LastID int\r\n"
      "  Select @LastID=Max(FID) From ", table, "\r\n"
      "  Update t1 Set t1.FCUUnitQty=t1.FQty/(Case When IsNull(u.FCoefficient,0)=0 Then 1 Else u.FCoefficient End)\r\n"
      "  From ", table, " t1 Inner Join t_ICItem t2 On t1.FNumber=t2.FNumber\r\n"
      "  Left Join t_MeasureUnit u On t2.FCUUnitID=u.FMeasureUnitID\r\n"
      "  Where t1.FSumSort=0\r\n"
      "  Update t1 Set t1.FCUUnitQty=(Select Sum(d.FCUUnitQty) From ", table, " d\r\n"
      "    Where d.FSumSort=0 And d.FID<t1.FID And d.FID>IsNull((Select Top 1 p.FID From ", table, " p\r\n"
      "      Where p.FID<t1.FID And p.FSumSort>0 And p.FSumSort<=t1.FSumSort Order By p.FID Desc),0))\r\n"
      "  From ", table, " t1 Where t1.FSumSort>0 And t1.FID<@LastID\r\n"
      "  Update ", table, " Set FCUUnitQty=(Select Sum(d.FCUUnitQty) From ", table, " d Where d.FSumSort=0)\r\n"
      "  Where FSumSort>0 And FID=@LastID\r\n"
      "End\r\n"));
  // clang-format on
}

// Currencies are never added together.
void FillBaseCurrencyTotals(tsql::Session& session, std::string_view table) {
  session.Execute(Join("Update ", table,
                       " Set FAmount=FAmountFor,FTaxAmount=FTaxAmountFor,FCountAmount=FCountAmountFor"
                       " Where FSumSort>0"));
}

void FillTaxRate(tsql::Session& session, std::string_view table) {
  session.Execute(
      Join("Update ", table, " Set FTaxRate=Case When FAmount=0 Then 0 Else FTaxAmount*100/FAmount End"));
}

void FillCurrencyName(tsql::Session& session, std::string_view table) {
  session.Execute(Join("Update t1 Set t1.FCurrencyName=Case When c.FCurrencyID Is Not Null Then c.FName",
                       kCrLf, "When t1.FCurrencyID Is Null And t1.FSumSort>0 Then '本位币合计'", kCrLf,
                       "Else t1.FCurrencyID End From ", table, " t1", kCrLf,
                       "Left Join t_Currency c On t1.FCurrencyID=Convert(varchar(80),c.FCurrencyID)"));
}

// A subtotal of an item has -1 for its property, or none at all where a class is grouped by.
void FillAuxPropName(tsql::Session& session, std::string_view table) {
  session.Execute(Join("Update t1 Set t1.FAuxPropName=a.FName From ", table, " t1", kCrLf,
                       "Inner Join t_AuxItem a On a.FItemID=Convert(int,t1.FAuxPropID)", kCrLf,
                       "Update t1 Set t1.FAuxPropName='小计' From ", table, " t1", kCrLf,
                       "Inner Join t_ICItem t2 On t1.FNumber=t2.FNumber", kCrLf,
                       "Where t1.FSumSort>0 And IsNull(t1.FAuxPropID,'-1')='-1'"));
}

// A class of parties that a report groups by, and its columns.
struct Party {
  std::int32_t item_class;
  std::string_view short_number;
  std::string_view number;
  std::string_view name;
};
constexpr Party kParties[] = {
    {1, "FShortCustNumber", "FCustNumber", "FCustName"},
    {2, "FShortDeptNumber", "FDeptNumber", "FDeptName"},
    {3, "FShortEmpNumber", "FEmpNumber", "FEmpName"},
};

// A batch that groups by the code has it in the column of the name until its last part finds the names.
void FillShortNumber(tsql::Session& session, std::string_view table, const Party& party) {
  session.Execute(Join("Update t1 Set t1.", party.short_number, "=i.FShortNumber From ", table, " t1", kCrLf,
                       "Inner Join t_Item i On i.FItemClassID=", party.item_class,
                       " And i.FNumber=IsNull(t1.", party.number, ",Replace(t1.", party.name,
                       ",'(小计)',''))", kCrLf, "Where t1.", party.short_number, " Is Null"));
}

}  // namespace

bool FillIncomeColumns(tsql::Session& session, std::string_view table) {
  const TableColumns columns(session, table);
  if (!FillItemColumns(session, table, CommonUnit::kCommonUnit)) return false;
  if (columns.Has("FCUUnitQty")) FillCommonQuantity(session, table);
  if (columns.Has("FAmountFor")) FillBaseCurrencyTotals(session, table);
  if (columns.Has("FPrice")) FillPrice(session, table, "FPrice", "FAmount", "FQty");
  if (columns.Has("FTaxRate")) FillTaxRate(session, table);
  if (columns.Has("FCurrencyName")) FillCurrencyName(session, table);
  if (columns.Has("FAuxPropName")) FillAuxPropName(session, table);
  for (const Party& party : kParties) {
    if (columns.Has(party.short_number)) FillShortNumber(session, table, party);
  }
  return true;
}

}  // namespace salerpt::middletier
