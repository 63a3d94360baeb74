#include "reports/order/rpt300.h"

#include <memory>
#include <utility>

#include "reports/returned_error.h"
#include "runtime/mmts.h"
#include "runtime/mparse.h"
#include "runtime/mrpt.h"
#include "runtime/runtime.h"
#include "sqltoolkit/data_right.h"
#include "sqltoolkit/filter_condition.h"
#include "sqltoolkit/group_columns.h"
#include "sqltoolkit/report_header.h"
#include "sqltoolkit/title_lines.h"

namespace salerpt {

// --- Set-up

void Rpt300::InitProperty(std::int32_t number) {
  Report::InitProperty(number);
  item_word_ = ResText("产品");
  // The text stands as it is sent.
  // clang-format off
  item_filter_template_ =
      " FItemID In (SELECT DISTINCT ##ITEMID## FROM SEOrderEntry v2, t_ICItem t1,t_Organization t2 ,"
      "t_Currency t5 ,SEOrder v1 \r\n"
      "Left Join t_DepartMent t3 ON v1.FDeptID=t3.FItemID Left Join t_Emp t4 On v1.FEmpID=t4.FItemID \r\n"
      " WHERE v1.FInterID=v2.FInterID and v2.FItemID = t1.FItemID and v1.FCustID = t2.FItemID  \r\n"
      " ##CHECKSTATE## ##CHECKDATE## ##CHECKITEM## )";
  // clang-format on
}

void Rpt300::PrepareDialog(FilterDialog& dialog) {
  Report::PrepareDialog(dialog);
  dialog.SetNeedGroup(0);
}

// --- Which grouping: "SumMode", whose codes beside the class levels mean a property where "SumField" names
// one

Rpt300::Grouping Rpt300::ChosenGrouping() const {
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

// Hosts give the levels under keys of their own; the dialog writes them as all dialogs do.
DictionaryRef Rpt300::ChosenLevels() const {
  const Dictionary& filter = Conditions();
  const auto level = [&filter](std::string_view host_key, std::string_view dialog_key) {
    return filter.Lookup(host_key) ? filter.Get(host_key) : filter.Get(dialog_key);
  };
  auto levels = std::make_shared<Dictionary>();
  levels->Set("BLevel", level("LngBLevel", "BLevel"));
  levels->Set("ELevel", level("LngELevel", "ELevel"));
  return levels;
}

// --- Title

void Rpt300::BuildTitle() {
  const Dictionary& filter = Conditions();
  TitleLines lines;
  lines.Add(Join(ResText("起始日期："), FilterText(filter, "BDate")));
  lines.Add(Join(ResText("截止日期："), FilterText(filter, "EDate")));
  lines.Add(Join(item_word_, ResText("代码范围："),
                 RangeCaption(FilterText(filter, "BItemNumber"), FilterText(filter, "EItemNumber"),
                              Join(ResText("所有"), item_word_))));
  lines.AddNarrowRange("客户代码范围：", "客户代码范围: ", filter, "BCustNumber", "ECustNumber", "所有客户");
  title_ = lines.Lines();

  const DictionaryRef chosen = ChosenLevels();
  const std::string levels = Join(FilterText(*chosen, "BLevel"), "--", FilterText(*chosen, "ELevel"));
  switch (ChosenGrouping()) {
    case Grouping::kNone:
      return;
    case Grouping::kProperty:
      lines.Add(Join(ResText("汇总依据："), FilterText(*FilterSumField(filter), "FName")));
      return;
    case Grouping::kCustomerAndItemLevels:
      lines.Add(Join(ResText("汇总依据：客户+"), levels, ResText("级物料类别")));
      return;
    case Grouping::kItemLevels:
    case Grouping::kCustomerLevels:
    case Grouping::kItemLevelsAndCustomer:
      lines.Add(Join(ResText("汇总依据："), levels, ResText("级"), FilterText(filter, "SumName")));
      return;
  }
}

// --- Condition on sales area, items, customers and sale style

void Rpt300::BuildConditions() {
  const Dictionary& filter = Conditions();
  condition_.clear();
  // 0 is an area; only -1, or no choice at all, means all of them.
  if (!FilterText(filter, "OrderType").empty() && FilterNumber(filter, "OrderType") > -1) {
    Append(condition_, " And v1.FAreaPS = ", SqlNumber(filter.Get("OrderType")));
  }
  AppendCodeRange(condition_, filter, "BItemNumber", "EItemNumber", " AND t1.");
  AppendCodeRange(condition_, filter, "BCustNumber", "ECustNumber", " AND t2.");
  AppendSaleType(condition_, filter);
}

// --- Fetch

void Rpt300::FetchData() {
  header_ = std::make_shared<Vector>();
  // The user's field right on order amounts.
  const bool can_see_amount = AccessCheck(1008, 6, 4);
  const Grouping grouping = ChosenGrouping();
  AddGroupColumns(grouping);
  AddCommonColumns(can_see_amount);
  const DictionaryRef request = BuildRequest(grouping);

  // The rights on items and customers, under the aliases of the order lines (u1) and of the order (v1): the
  // statement that they go into is the middle tier's.
  const DataRight right = RequestDataRight({{"T_ICItem", "u1"}, {"t_Organization", "v1"}});
  request->Set("DataRightFrom", right.from_text);
  request->Set("DataRightWhere", right.where_text);
  request->Set("bLongNumber", Runtime::Current().gLongNumber);
  request->Set("RptID", PlanFamily());

  const ObjectRef data = CreateObject("ORVMSaleRpt.Data");
  Progress().SetMsg(ResText("正在从服务器读取数据..."));
  rs_.reset();
  Variant sent = request;
  rs_ = As<Recordset>(Call(data, "GetRpt300Data", GetPropsString(), sent));
  RaiseReturnedError(sent);
}

// The middle tier reads the conditions from the request, beside the frame. "GROUPBY" takes the place of the
// choice "GroupBy" in it; the filter keeps that.
DictionaryRef Rpt300::BuildRequest(Grouping grouping) const {
  Frame frame;
  switch (grouping) {
    case Grouping::kNone:
      frame = BuildPlain();
      break;
    case Grouping::kProperty:
      frame = BuildBySumField();
      break;
    case Grouping::kItemLevels:
    case Grouping::kCustomerLevels:
    case Grouping::kCustomerAndItemLevels:
    case Grouping::kItemLevelsAndCustomer:
      frame = BuildLevels(grouping);
      break;
  }
  DictionaryRef request = Conditions().Copy();
  request->Set("Select", Replace(WithConditions(frame.select), "##CHECKSTOCK##", ""));
  request->Set("GROUPBY", std::move(frame.group_by));
  request->Set("ITEMFILTER", WithConditions(frame.item_filter));
  request->Set("OnlyShowSum", FilterInt(Conditions(), "OnlyShowSum"));
  request->Set("EndSel", std::move(frame.end_select));
  return request;
}

std::string Rpt300::WithConditions(std::string_view text) const {
  const Dictionary& filter = Conditions();
  std::string_view state;
  switch (FilterInt(filter, "CheckState")) {
    case 0:
      state = " AND v1.FStatus>0 And v1.FCancelLation=0 ";
      break;
    case 1:
      state = " AND v1.FStatus=0 And v1.FCancelLation=0 ";
      break;
    default:
      state = " And v1.FCancelLation=0 ";
      break;
  }
  const std::string date = Join(
      " AND convert(datetime,convert(varchar(30),v1.FDate,111)) >='", FilterDay(filter, "BDate"), "'\r\n",
      " AND convert(datetime,convert(varchar(30),v1.FDate,111)) <='", FilterDay(filter, "EDate"), "'");
  std::string filled = Replace(text, "##CHECKITEM##", condition_.empty() ? " " : condition_);
  filled = Replace(filled, "##CHECKSTATE##", state);
  return Replace(filled, "##CHECKDATE##", date);
}

// --- Columns

void Rpt300::AddGroupColumns(Grouping grouping) {
  const DictionaryRef levels = ChosenLevels();
  GroupColumns columns;
  switch (grouping) {
    case Grouping::kNone:
      break;
    case Grouping::kItemLevels:
      AddLevelColumns(columns, *levels, "级物料类别$");
      break;
    case Grouping::kCustomerLevels:
      AddLevelColumns(columns, *levels, "级客户类别$");
      break;
    case Grouping::kCustomerAndItemLevels:
      AddCustomerColumn(columns);
      AddLevelColumns(columns, *levels, "级物料类别$");
      break;
    case Grouping::kItemLevelsAndCustomer:
      AddLevelColumns(columns, *levels, "级物料类别$");
      AddCustomerColumn(columns);
      break;
    case Grouping::kProperty:
      AddPropertyColumn(columns, Conditions());
      break;
  }
  for (GroupColumn& group : columns) {
    AddHeader(*header_, std::move(group.caption), "", ColumnType::kText, group.column, true, ForceHide{0});
  }
}

void Rpt300::AddCommonColumns(bool can_see_amount) {
  const bool show = !(IsGrouped(Conditions()) && IsOnlySum(Conditions()));
  const ForceHide amount_right{static_cast<std::int16_t>(can_see_amount ? 0 : 1)};
  const auto column = [this](std::string caption, ColumnType type, std::string_view name, bool visible,
                             ForceHide force_hide = {0}) {
    AddHeader(*header_, std::move(caption), "", type, name, visible, force_hide);
  };
  using enum ColumnType;
  column(ResText("日期$"), kDate, "FDate", true);
  column(ResText("客户代码$"), kText, "FCustNumber", true);
  column(ResText("客户名称$"), kText, "FCustName", true);
  column(ResText("订单编号$"), kText, "FBillNo", true);
  column(Join(item_word_, ResText("代码$")), kText, CodeField(), show);
  column(Join(item_word_, ResText("名称$")), kText, "FName", show);
  column(ResText("子物料名称$"), kText, "FChildName", show);
  column(ResText("规格型号$"), kText, "FModel", show);
  column(ResText("单位(基本)$"), kText, "FUnitName", show);
  column(ResText("签订数量(基本)$"), kQuantity, "FSaleQty", true);
  column(ResText("子物料签订数量(基本)$"), kQuantity, "FChildSaleQty", true);
  column(ResText("签订金额$"), kBaseAmount, "FSaleAmount", true, amount_right);
  column(ResText("子物料签订金额$"), kBaseAmount, "FChildSaleAmount", true, amount_right);
  column(ResText("发货数量(基本)$"), kQuantity, "FCommitQty", true);
  column(ResText("发货差额(基本)$"), kQuantity, "FDiffQty", true);
  column(ResText("单位(常用)$"), kText, "FCUUnitName", show);
  column(ResText("签订数量(常用)$"), kQuantity, "FCUUnitSaleQty", true);
  column(ResText("子物料签订数量(常用)$"), kQuantity, "FCUUnitChildSaleQty", true);
  column(ResText("发货数量(常用)$"), kQuantity, "FCUUnitCommitQty", true);
  column(ResText("发货差额(常用)$"), kQuantity, "FCUUnitDiffQty", true);
}

}  // namespace salerpt
