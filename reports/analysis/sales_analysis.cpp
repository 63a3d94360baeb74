#include "reports/analysis/sales_analysis.h"

#include <memory>
#include <string>
#include <utility>

#include "reports/returned_error.h"
#include "runtime/mmts.h"
#include "runtime/mparse.h"
#include "runtime/runtime.h"
#include "runtime/text.h"
#include "sqltoolkit/data_right.h"
#include "sqltoolkit/filter_condition.h"
#include "sqltoolkit/group_columns.h"

namespace salerpt {
namespace {

std::string ItemWord() {
  return ResText("产品");
}

}  // namespace

// --- Title

void SalesAnalysis::BuildTitle() {
  const Dictionary& filter = Conditions();
  TitleLines lines;
  AddPeriodLines(lines);
  lines.Add(Join(ItemWord(), ResText("代码范围："),
                 RangeCaption(FilterText(filter, "BItemNumber"), FilterText(filter, "EItemNumber"),
                              Join(ResText("所有"), ItemWord()))));
  lines.AddNarrowRange("客户代码范围：", "客户代码范围: ", filter, "BCustNumber", "ECustNumber", "所有客户");
  title_ = lines.Lines();
}

// --- Fetch

void SalesAnalysis::FetchData() {
  if (!Filter()) {
    throw RuntimeError(error_number::kObjectNotSet, std::string(ClassName()), ResText("请选择过滤条件！"));
  }
  header_ = std::make_shared<Vector>();
  const Grouping grouping = ChosenGrouping();
  AddGroupColumns(grouping);
  AddColumns();
  const DictionaryRef request = BuildRequest(grouping);

  // The conditions hold these too: a host that keeps them has what the rows rest on.
  const DataRight right = RequestDataRight({{"t_Organization", "T3"}});
  for (Dictionary* keys : {&Conditions(), request.get()}) {
    keys->Set("DataRightFrom", right.from_text);
    keys->Set("DataRightWhere", right.where_text);
    keys->Set("bLongNumber", Runtime::Current().gLongNumber);
    keys->Set("RptID", PlanFamily());
  }

  const ObjectRef data = CreateObject("ORVMSaleRpt.Data");
  Progress().SetMsg(ResText("正在从服务器读取数据..."));
  rs_.reset();
  Variant sent = request;
  rs_ = As<Recordset>(Call(data, Operation(), GetPropsString(), sent));
  RaiseReturnedError(sent);
}

// The middle tier reads the conditions from the request, beside the frame. "GROUPBY" takes the place of the
// choice "GroupBy" in it; the filter keeps that.
DictionaryRef SalesAnalysis::BuildRequest(Grouping grouping) const {
  Frame frame = BuildFrame(grouping);
  DictionaryRef request = Conditions().Copy();
  request->Set(FirstTextKey(), WithConditions(frame.select));
  request->Set("GROUPBY", std::move(frame.group_by));
  // Kept: the condition on items goes with its placeholders. One of them is the period, which is the middle
  // tier's to find; it has the conditions for the others beside it.
  request->Set("ITEMFILTER", std::move(frame.item_filter));
  request->Set("OnlyShowSum", FilterInt(Conditions(), "OnlyShowSum"));
  request->Set("EndSel", std::move(frame.end_select));
  return request;
}

// Conditions where a text asks for them. The frames do not, by themselves; a property of "SumField" may.
std::string SalesAnalysis::WithConditions(std::string_view text) const {
  const Dictionary& filter = Conditions();
  std::string condition;
  AppendCodeRange(condition, filter, "BItemNumber", "EItemNumber", " AND t1.");
  AppendCodeRange(condition, filter, "BCustNumber", "ECustNumber", " AND t2.");
  std::string filled = Replace(text, "##CHECKITEM##", condition.empty() ? " " : condition);
  filled = Replace(filled, "##CHECKSTATE##", StateCondition());
  return Replace(filled, "##CHECKSTOCK##", "");
}

// --- Which grouping: "SumMode", whose codes beside the class levels mean a property where "SumField" names
// one

SalesAnalysis::Grouping SalesAnalysis::ChosenGrouping() const {
  const Dictionary& filter = Conditions();
  if (!IsGrouped(filter)) return Grouping::kNone;
  switch (FilterInt(filter, "SumMode")) {
    case 1:
      return Grouping::kItemLevels;
    case 2:
      return Grouping::kCustomerLevels;
    case 4:
      return Grouping::kCustomerAndItemLevels;
    default:
      return FilterText(*FilterSumField(filter), "FName").empty() ? Grouping::kItemLevelsAndCustomer
                                                                  : Grouping::kProperty;
  }
}

// --- Columns

void SalesAnalysis::AddGroupColumns(Grouping grouping) {
  const Dictionary& filter = Conditions();
  GroupColumns columns;
  switch (grouping) {
    case Grouping::kNone:
      break;
    case Grouping::kItemLevels:
      AddLevelColumns(columns, filter, "级物料类别$");
      break;
    case Grouping::kCustomerLevels:
      AddLevelColumns(columns, filter, "级客户类别$");
      break;
    case Grouping::kCustomerAndItemLevels:
      AddCustomerColumn(columns);
      AddLevelColumns(columns, filter, "级物料类别$");
      break;
    case Grouping::kItemLevelsAndCustomer:
      AddLevelColumns(columns, filter, "级物料类别$");
      AddCustomerColumn(columns);
      break;
    case Grouping::kProperty:
      AddPropertyColumn(columns, filter);
      break;
  }
  for (GroupColumn& group : columns) {
    AddHeader(*header_, std::move(group.caption), "", ColumnType::kText, group.column, true);
  }
}

bool SalesAnalysis::ShowsItems() const {
  return !(IsGrouped(Conditions()) && IsOnlySum(Conditions()));
}

void SalesAnalysis::AddCodeColumn() {
  AddHeader(*header_, Join(ItemWord(), ResText("代码$")), "", ColumnType::kText, CodeField(), ShowsItems());
}

void SalesAnalysis::AddNameColumn() {
  AddHeader(*header_, Join(ItemWord(), ResText("名称$")), "", ColumnType::kText, "FName", ShowsItems());
}

void SalesAnalysis::AddAuxPropColumn() {
  if (FilterNumber(Conditions(), "AuxProp") == 1) AddColumn("辅助属性$", ColumnType::kText, "FAuxPropName");
}

void SalesAnalysis::AddColumn(std::string_view caption, ColumnType type, std::string_view name) {
  AddHeader(*header_, ResText(caption), "", type, name, true);
}

}  // namespace salerpt
