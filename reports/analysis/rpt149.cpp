#include "reports/analysis/rpt149.h"

#include <string>

#include "runtime/mparse.h"
#include "runtime/mrpt.h"
#include "sqltoolkit/filter_values.h"

namespace salerpt {
namespace {

// The rate under either of its names: the filter dialog writes "FRate", hosts "FExchangeRate".
std::string ExchangeRate(const Dictionary& filter) {
  const std::string rate = FilterText(filter, "FExchangeRate");
  return rate.empty() ? FilterText(filter, "FRate") : rate;
}

}  // namespace

// --- Title

void Rpt149::BuildTitle() {
  const Dictionary& filter = Conditions();
  TitleLines lines;
  lines.Add(Join(ResText("计算日期："), FilterText(filter, "FDate")));
  AddCreditObjectRange(lines, filter);
  lines.Add(Join(ResText("信用管理范围: "), FilterText(filter, "CreditTypeName")));
  const std::string currency = FilterText(filter, "FCurrencyName");
  if (currency.empty()) {
    lines.Add(Join(ResText("折算币别: "), ResText("本位币")));
    lines.Add(Join(ResText("折算汇率: "), "1.00"));
  } else {
    lines.Add(Join(ResText("折算币别: "), currency));
    lines.Add(Join(ResText("折算汇率: "), ExchangeRate(filter)));
  }
  title_ = lines.Lines();
}

// --- Fetch

std::string Rpt149::NoFormulaTitle() const {
  return NoticeTitle();
}

// --- Columns

void Rpt149::AddColumns() {
  using enum ColumnType;
  AddColumn("信用期限(天)$", "", kText, "FCreditTime");
  AddColumn("信用级次$", "", kText, "FCreditLevel");
  AddColumn("客户欠款余额+|+|", "金额", kAmount, "FAmount");
  AddColumn(" ", "现金折扣", kText, "FDiscountRate");
  AddColumn(" ", "折后金额", kAmount, "FDicAmount");
}

// --- Menu

VectorRef Rpt149::PackMenuInfo() const {
  return MenuOf({"iViewBillUp", "iViewBillDown", "iDecimal"});
}

}  // namespace salerpt
