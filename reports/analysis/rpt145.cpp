#include "reports/analysis/rpt145.h"

#include <string>

#include "runtime/mparse.h"
#include "runtime/mrpt.h"
#include "runtime/runtime.h"
#include "sqltoolkit/filter_values.h"

namespace salerpt {

// --- Title

void Rpt145::BuildTitle() {
  const Dictionary& filter = Conditions();
  TitleLines lines;
  lines.Add(Join(ResText("信用管理范围: "), FilterText(filter, "CreditTypeName")));
  if (FilterText(filter, "FICItemIDFrom").empty() && FilterText(filter, "FICItemIDTo").empty()) {
    lines.Add(Join(ResText("产品代码范围："), ResText("所有产品")));
  } else {
    // Kept: the line shows the range of the credit object, empty where only items are limited. It tells that
    // not all items were asked for; the rows name them.
    lines.Add(Join(ResText("产品代码范围："), FilterText(filter, "FItemIDFrom"), "  --  ",
                   FilterText(filter, "FItemIDTo")));
  }
  AddCreditObjectRange(lines, filter);
  title_ = lines.Lines();
}

// --- Fetch

std::string Rpt145::NoFormulaTitle() const {
  return NoticeTitle();
}

// --- Columns

void Rpt145::AddColumns() {
  using enum ColumnType;
  AddColumn("产品代码$", "", kText, Runtime::Current().gLongNumber ? "FICNumber" : "FICShortNumber");
  AddColumn("产品名称$", "", kText, "FICName");
  AddColumn("规格型号$", "", kText, "FModel");
  AddColumn("单位(基本)$", "", kText, "FUnitName");
  AddColumn("信用数量(基本)$", "", kQuantity, "FCreditQty");
  AddColumn("产品信用数量占用(基本)$", "", kQuantity, "FQty");
  AddColumn("差额(基本)$", "", kQuantity, "FBalQty");
  AddColumn("单位(常用)$", "", kText, "FSaleUnitName");
  AddColumn("信用数量(常用)$", "", kQuantity, "FSaleUnitCreditQty");
  AddColumn("产品信用数量占用(常用)$", "", kQuantity, "FSaleUnitQty");
  AddColumn("差额(常用)$", "", kQuantity, "FSaleUnitBalQty");
}

// --- Menu

VectorRef Rpt145::PackMenuInfo() const {
  return MenuOf({"iViewBillUp", "iViewBillDown"});
}

}  // namespace salerpt
