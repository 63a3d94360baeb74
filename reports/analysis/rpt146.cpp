#include "reports/analysis/rpt146.h"

#include <string>

#include "runtime/mparse.h"
#include "runtime/mrpt.h"
#include "sqltoolkit/filter_values.h"

namespace salerpt {

// --- Title

void Rpt146::BuildTitle() {
  const Dictionary& filter = Conditions();
  TitleLines lines;
  lines.Add(Join(ResText("信用管理范围: "), FilterText(filter, "CreditTypeName")));
  // Kept: the line of items tells the range of the credit object, as the line below it does; the report knows
  // no items, and hosts place the lines by their number.
  lines.AddRange("产品代码范围：", filter, "FItemIDFrom", "FItemIDTo", "所有产品");
  AddCreditObjectRange(lines, filter);
  title_ = lines.Lines();
}

// --- Fetch

std::string Rpt146::NoFormulaTitle() const {
  return std::string(kHintTitle);
}

// --- Columns

// Kept: the one field of the currency stands three times, at the head of each group.
void Rpt146::AddColumns() {
  using enum ColumnType;
  AddColumn("信用级次$", "", kText, "FCreditLevel");

  AddColumn("信用占用额度+|+|", "币别", kText, "FCurrencyName");
  AddColumn(" ", "金额", kAmount, "FStdAmt");
  AddColumn(" ", "折算金额", kAmount, "FAmt");

  AddColumn("信用额度+|+|", "币别", kText, "FCurrencyName");
  AddColumn(" ", "金额", kAmount, "FCreditStdAmt");
  AddColumn(" ", "折算金额", kAmount, "FCreditAmt");

  AddColumn("差额+|+|", "币别", kText, "FCurrencyName");
  AddColumn(" ", "金额", kAmount, "FBalStdAmt");
  AddColumn(" ", "折算金额", kAmount, "FBalAmt");
}

// --- Menu

VectorRef Rpt146::PackMenuInfo() const {
  return MenuOf({"iViewBillUp", "iViewBillDown"});
}

}  // namespace salerpt
