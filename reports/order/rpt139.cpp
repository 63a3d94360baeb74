#include "reports/order/rpt139.h"

#include <memory>
#include <string_view>
#include <utility>

#include "reports/returned_error.h"
#include "runtime/mmts.h"
#include "runtime/mparse.h"
#include "runtime/mrpt.h"
#include "runtime/runtime.h"
#include "sqltoolkit/data_right.h"
#include "sqltoolkit/filter_condition.h"
#include "sqltoolkit/filter_values.h"
#include "sqltoolkit/group_columns.h"
#include "sqltoolkit/report_header.h"
#include "sqltoolkit/title_lines.h"

namespace salerpt {

bool Rpt139::IsByLevel() const {
  return IsGrouped(Conditions()) && FilterNumber(Conditions(), "SumMode") == 1;
}

bool Rpt139::IsByItemRange() const {
  return FilterNumber(Conditions(), "Mode") == 0;
}

// --- Title

void Rpt139::BuildTitle() {
  const Dictionary& filter = Conditions();
  const auto day = [&filter](std::string_view key) { return Replace(FilterDay(filter, key), "/", "-"); };
  TitleLines lines;
  lines.Add(Join(ResText("起始日期："), day("BDate")));
  lines.Add(Join(ResText("截止日期："), day("EDate")));
  lines.AddRange("产品代码范围：", filter, "BItemNumber", "EItemNumber", "所有产品");
  lines.AddRange("客户代码范围：", filter, "BClientNumber", "EClientNumber", "所有客户");
  if (IsGrouped(filter)) {
    lines.Add(Join(ResText("汇总依据："), FilterText(filter, "BLevel"), "--", FilterText(filter, "ELevel"),
                   ResText("产品类别")));
  }
  title_ = lines.Lines();
}

// --- Condition on items; on everything else the middle tier selects

void Rpt139::BuildConditions() {
  const Dictionary& filter = Conditions();
  condition_.clear();
  if (IsByItemRange()) {
    AppendCodeRange(condition_, filter, "BItemNumber", "EItemNumber", " AND t1.");
  } else if (const std::string item_class = FilterText(filter, "ItemClassNumber"); !item_class.empty()) {
    Append(condition_, " AND t1.FNumber Like ", QuoteSql(Join(item_class, ".%")));
  }
  AppendCommodityType(condition_, filter);
}

// --- Fetch

void Rpt139::FetchData() {
  header_ = std::make_shared<Vector>();
  AddColumns();
  const DictionaryRef request = IsByLevel() ? BuildLevels() : BuildPlain();
  SendRights();
  ForgetReturnedError(Conditions());

  const ObjectRef data = CreateObject("ORVMSaleRpt.Data");
  Progress().SetMsg(ResText("正在从服务器读取数据,请稍候......"));
  Conditions().Set("bLongNumber", Runtime::Current().gLongNumber);
  rs_.reset();
  Variant frames = request;
  Variant filter = Filter();
  rs_ = As<Recordset>(Call(data, "GetRpt139Data", GetPropsString(), frames, filter));
  ReplaceFilter(filter);
  RaiseReturnedError(filter);
  RaiseReturnedError(frames);
}

// --- Rights on customers, items, departments and employees, under the aliases of the statement that they go
// into, which is the middle tier's

void Rpt139::SendRights() {
  const DataRight right = RequestDataRight(
      {{"t_Organization", "tc"}, {"T_ICItem", "t1"}, {"t_Department", "td"}, {"t_Emp", "te"}});
  Conditions().Set("DataRightFrom", right.from_text);
  Conditions().Set("DataRightWhere", right.where_text);
}

// --- Columns

void Rpt139::AddColumns() {
  const Dictionary& filter = Conditions();
  if (IsByLevel()) {
    GroupColumns levels;
    AddLevelColumns(levels, filter, "级产品类别$");
    for (GroupColumn& level : levels) {
      AddHeader(*header_, std::move(level.caption), "", ColumnType::kText, level.column, true, ForceHide{0});
    }
  }

  const auto text = [this](std::string_view caption, std::string_view name) {
    AddHeader(*header_, ResText(caption), "", ColumnType::kText, name, true, ForceHide{0});
  };
  // Dates come as texts.
  text("日期$", "FDate");
  text("订单编号$", "FBillNo");
  text("客户代码$", "FCustNumber");
  text("客户名称$", "FCustName");
  text("交货日期$", "FAdviceConsignDate");
  // Kept: the short code stands under a name that the rows of the frames do not have (theirs is
  // FItemShortNumber); hosts find columns by these names.
  text("产品代码$", Runtime::Current().gLongNumber ? "FItemNumber" : "FShortNumber");
  text("产品名称$", "FName");
  text("规格型号$", "FModel");
  text("辅助属性$", "FAuxName");
  text("单位（基本）$", "FBaseUnitName");
  text("单位（常用）$", "FStockUnitName");

  // The upper caption stands over the quantity in the base unit and spans that in the usual unit.
  const auto quantities = [this](std::string_view caption, std::string_view base, std::string_view usual) {
    AddHeader(*header_, ResText(caption), ResText("数量(基本)"), ColumnType::kQuantity, base, true,
              ForceHide{0});
    AddHeader(*header_, " ", ResText("数量(常用)"), ColumnType::kQuantity, usual, true, ForceHide{0});
  };
  quantities("订单数量+|", "FQty", "FAuxQty");
  quantities("生产数量+|", "FBCommitQty", "FAuxBCommitQty");
  quantities("入库数量+|", "FInStockQty", "FInAuxStockQty");
  quantities("出库数量+|", "FOutStockQty", "FOutAuxStockQty");
  quantities("未执行数量+|", "FUnFinishQty", "FUnAuxFinishQty");

  // A line has a state, a sum has none.
  if (FilterNumber(filter, "GroupBy") == 0 && FilterNumber(filter, "OnlyShowSum") == 0) {
    text("行执行状态$", "FExecutionStatus");
  }
}

}  // namespace salerpt
