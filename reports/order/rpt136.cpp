#include "reports/order/rpt136.h"

#include <memory>
#include <optional>
#include <utility>

#include "reports/detail_report.h"
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

namespace salerpt {

// --- Set-up: the texts that do not depend on a filter

void Rpt136::InitProperty(std::int32_t number) {
  Report::InitProperty(number);
  item_word_ = ResText("产品");
  amount_scale_ = AmountScale();
  const int d = amount_scale_;

  const DataRight right = RequestDataRight({{"t_Organization", "t2"}});
  // The texts stand as they are sent.
  // clang-format off
  item_filter_template_ =
      " FItemID In (SELECT DISTINCT ##ITEMID## FROM SEOrderEntry v2, t_ICItem t1,t_Organization t2 ,"
      "t_Currency t5 ,SEOrder v1 \r\n"
      "Left Join t_DepartMent t3 ON v1.FDeptID=t3.FItemID Left Join t_Emp t4 On v1.FEmpID=t4.FItemID \r\n"
      " WHERE v1.FInterID=v2.FInterID and v2.FItemID = t1.FItemID and v1.FCustID = t2.FItemID  \r\n"
      " ##CHECKSTATE## ##CHECKDATE## ##CHECKITEM## )";
  column_definitions_ = Join(
      "       FNumber  varchar(355) null,\r\n"
      "     FShortNumber  varchar(355) null,\r\n"
      "     FName  varchar(355) null,\r\n"
      "     FModel  varchar(355) null,\r\n"
      "     FUnitName  varchar(355) null,\r\n"
      "     FQtyDecimal smallint null, \r\n"
      "     FPriceDecimal smallint null, \r\n"
      "     FQty  decimal(23, 10) null,\r\n"
      "     FOrgAmount decimal(23, 10) null, \r\n"
      "     FAmount decimal(18, ", d, ") null, \r\n"
      "     FAllAmount decimal(18, ", d, ") null, \r\n"
      "     FCUUnitName  varchar(355) null,\r\n"
      "     FCUUnitQty  decimal(23, 10) null,\r\n"
      "     FSumSort smallint not null Default(0),\r\n"
      "     FID int IDENTITY )\r\n");
  // Behind the item's code. Short code, names, model and units stay blank here: the middle tier fills them.
  value_list_ = Join(
      "'','','','',4,4,"
      "SUM(v2.FQty) FQty, SUM(Round(v2.FAmount,t5.FScale)),SUM(Round(v2.FAmount*isnull(v1.FExchangeRate,1),", d,
      ")) FAmount,SUM(Round(v2.FAllAmount*isnull(v1.FExchangeRate,1),", d, ")) FAllAmount,'',"
      " SUM(ISNUll(v2.FQty/(Case When ISNULL(t6.FCoefficient,0)=0 Then 1 Else t6.FCoefficient End ),0))"
      " FCUUnitQty,");
  from_text_ = Join(
      " From  SEOrder v1\r\n"
      "Join SEOrderEntry v2 On v2.Finterid = v1.FInterID\r\n"
      "Join t_ICItem t1 On v2.FItemID=t1.FItemID\r\n"
      "Left Join t_Organization t2 On v1.FCustID=t2.FItemID\r\n"
      "Left Join t_DepartMent t3 On v1.FDeptID=t3.FItemID\r\n"
      "Left Join t_Emp t4 On v1.FEmpID=t4.FItemID\r\n"
      "Left Join t_Currency t5 On v1.FCurrencyID =t5.FCurrencyID\r\n"
      "Left Join t_MeasureUnit t6 On t1.FSaleUnitID = t6.FMeasureUnitID", right.from_text, "\r\n");
  where_text_ = Join(
      " WHERE 1=1 \r\n"
      " ##CHECKSTATE## ##CHECKDATE## ##CHECKITEM## \r\n",
      AndIfAny(right.where_text), "\r\n");
  // clang-format on
}

// --- Which grouping: "SumMode", whose codes beside the class levels mean a property where "SumField" names
// one

Rpt136::Grouping Rpt136::ChosenGrouping() const {
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

bool Rpt136::IsByCurrency() const {
  return FilterNumber(Conditions(), "ChkbyCurrency") == 1;
}

// --- Title

void Rpt136::BuildTitle() {
  const Dictionary& filter = Conditions();
  const Grouping grouping = ChosenGrouping();

  title_ = std::make_shared<Vector>();
  AddTitle(*title_, Join(ResText("起始日期："), FilterText(filter, "BDate")), 0);
  AddTitle(*title_, Join(ResText("截止日期："), FilterText(filter, "EDate")), 1);
  AddTitle(*title_,
           Join(item_word_, ResText("代码范围："),
                RangeCaption(FilterText(filter, "BItemNumber"), FilterText(filter, "EItemNumber"),
                             Join(ResText("所有"), item_word_))),
           2);
  AddTitle(*title_,
           NarrowRangeCaption("客户代码范围：", "客户代码范围: ", FilterText(filter, "BCustNumber"),
                              FilterText(filter, "ECustNumber"), "所有客户"),
           3);
  AddTitle(*title_,
           NarrowRangeCaption("部门代码范围：", "部门代码范围: ", FilterText(filter, "BDepartNumber"),
                              FilterText(filter, "EDepartNumber"), "所有部门"),
           4);
  AddTitle(*title_,
           NarrowRangeCaption("职员代码范围：", "职员代码范围: ", FilterText(filter, "BEmpNumber"),
                              FilterText(filter, "EEmpNumber"), "所有职员"),
           5);
  // Kept: without a grouping the place of the line before it stays free. Hosts hold the numbers.
  AddTitle(*title_,
           NarrowRangeCaption("币别代码范围：", "币别代码范围: ", FilterText(filter, "BCurrencyNumber"),
                              FilterText(filter, "ECurrencyNumber"), "所有币别"),
           grouping == Grouping::kNone ? 7 : 6);

  const std::string levels = Join(FilterText(filter, "BLevel"), "--", FilterText(filter, "ELevel"));
  switch (grouping) {
    case Grouping::kNone:
      return;
    case Grouping::kProperty:
      AddTitle(*title_, Join(ResText("汇总依据："), FilterText(*FilterSumField(filter), "FName")), 7);
      return;
    case Grouping::kCustomerAndItemLevels:
      AddTitle(*title_, Join(ResText("汇总依据：客户+"), levels, ResText("级物料类别")), 7);
      return;
    case Grouping::kItemLevels:
    case Grouping::kCustomerLevels:
    case Grouping::kItemLevelsAndCustomer:
      AddTitle(*title_, Join(ResText("汇总依据："), levels, ResText("级"), FilterText(filter, "SumName")), 7);
      return;
  }
}

// --- Condition on items, customers, departments, employees, currencies and sale style

void Rpt136::BuildConditions() {
  const Dictionary& filter = Conditions();
  const std::string_view code = CodeField();
  condition_.clear();
  AppendCodeRange(condition_, filter, "BItemNumber", "EItemNumber", " AND t1.");
  AppendCommodityType(condition_, filter);
  AppendCodeRange(condition_, filter, "BCustNumber", "ECustNumber", " AND t2.");
  AppendBound(condition_, filter, "BDepartNumber", Join(" and t3.", code, " >= "));
  AppendBound(condition_, filter, "EDepartNumber", Join(" and t3.", code, " <= "));
  AppendBound(condition_, filter, "BEmpNumber", Join(" and t4.", code, " >= "));
  AppendBound(condition_, filter, "EEmpNumber", Join(" and t4.", code, " <= "));
  // A currency has one code, whatever codes are in use.
  AppendBound(condition_, filter, "BCurrencyNumber", " and t5.FNumber >= ");
  AppendBound(condition_, filter, "ECurrencyNumber", " and t5.FNumber <= ");
  AppendSaleType(condition_, filter);
}

// --- Fetch

void Rpt136::FetchData() {
  header_ = std::make_shared<Vector>();
  // The user's field right on order amounts.
  const bool can_see_amount = AccessCheck(1008, 6, 4);
  const Grouping grouping = ChosenGrouping();
  AddGroupColumns(grouping);
  const DictionaryRef request = BuildRequest(grouping);
  AddCommonColumns(can_see_amount);
  ReplacePlaceholders(*request);

  const ObjectRef data = CreateObject("ORVMSaleRpt.Data");
  Progress().SetMsg(ResText("正在从服务器读取数据..."));
  rs_.reset();
  Variant sent = request;
  rs_ = As<Recordset>(Call(data, "GetSaleAmountData", GetPropsString(), sent));
  RaiseReturnedError(sent);
}

DictionaryRef Rpt136::BuildRequest(Grouping grouping) const {
  Batch batch;
  switch (grouping) {
    case Grouping::kNone:
      batch = IsByCurrency() ? BuildPlainByCurrency() : BuildPlain();
      break;
    case Grouping::kProperty:
      batch = IsByCurrency() ? BuildBySumFieldByCurrency() : BuildBySumField();
      break;
    case Grouping::kItemLevels:
    case Grouping::kCustomerLevels:
    case Grouping::kCustomerAndItemLevels:
    case Grouping::kItemLevelsAndCustomer:
      batch = BuildLevels(grouping);
      break;
  }

  // The texts stand as they are sent.
  // clang-format off
  auto request = std::make_shared<Dictionary>();
  // The empty line is the place of a text before the batch, of which this report has none.
  request->Set("SElECT", Join("SET NOCOUNT ON\r\n"
                              "\r\n",
                              batch.level_sql,
                              batch.create, "\r\n",
                              batch.insert));
  request->Set("GROUPBY", std::move(batch.group_by));
  request->Set("ITEMFILTER", std::move(batch.item_filter));
  request->Set("Append", std::move(batch.append));
  request->Set("NoPrice", "");
  request->Set("NoTaxRate", "");
  request->Set("NoDate", "");
  request->Set("OnlyShowSum", FilterInt(Conditions(), "OnlyShowSum"));
  request->Set("EndSel", Join("SELECT * FROM #DATA  ", SumOnly(Conditions(), "WHERE FSumSort>100"), "\r\n"
                              " Order by FID \r\n"
                              "DROP TABLE #DATA  \r\n",
                              batch.end));
  // clang-format on
  return request;
}

void Rpt136::ReplacePlaceholders(Dictionary& request) const {
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
  const auto replaced = [&](std::string_view key) {
    std::string text = request.Get(key).ToText();
    text = Replace(text, "##CHECKITEM##", condition_.empty() ? " " : condition_);
    text = Replace(text, "##CHECKSTATE##", state);
    return Replace(text, "##CHECKDATE##", date);
  };
  request.Set("SElECT", Replace(replaced("SElECT"), "##CHECKSTOCK##", ""));
  request.Set("ITEMFILTER", replaced("ITEMFILTER"));
}

// --- Columns

void Rpt136::AddGroupColumns(Grouping grouping) {
  const Dictionary& filter = Conditions();
  GroupColumns columns;
  if (IsByCurrency()) columns.push_back({ResText("币别$"), "FCurrencyName"});
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
    AddHeader(*header_, std::move(group.caption), "", ColumnType::kText, group.column, true, ForceHide{0});
  }
}

void Rpt136::AddCommonColumns(bool can_see_amount) {
  const bool show_all = !(IsGrouped(Conditions()) && IsOnlySum(Conditions()));
  const ForceHide amount_right{static_cast<std::int16_t>(can_see_amount ? 0 : 1)};
  const auto column = [this](std::string caption, ColumnType type, std::string_view name, bool visible,
                             ForceHide force_hide = {0}) {
    AddHeader(*header_, std::move(caption), "", type, name, visible, force_hide);
  };
  using enum ColumnType;
  column(Join(item_word_, ResText("代码$")), kText, CodeField(), show_all);
  // Kept: stays in view where only totals are asked for. Hosts know the columns of this report.
  column(Join(item_word_, ResText("名称$")), kText, "FName", true);
  column(ResText("规格型号$"), kText, "FModel", show_all);
  column(ResText("单位(基本)$"), kText, "FUnitName", show_all);
  column(ResText("签订数量(基本)$"), kQuantity, "FQty", true);
  column(ResText("单位(常用)$"), kText, "FCUUnitName", show_all);
  column(ResText("签订数量(常用)$"), kQuantity, "FCUUnitQty", true);
  if (IsByCurrency()) column(ResText("签订金额(原币)$"), kAmount, "FOrgAmount", true, amount_right);
  column(ResText("签订金额(本位币)$"), kBaseAmount, "FAmount", true, amount_right);
  column(ResText("签订金额价税合计(本位币)$"), kBaseAmount, "FAllAmount", true, amount_right);
}

// --- Drill-through

ObjectRef Rpt136::GetDetailReport(std::int32_t row) {
  if (!MoveToDetailRow(rs_, row, ClassName())) return nullptr;
  const Dictionary& filter = Conditions();
  auto detail_filter = std::make_shared<Dictionary>();
  for (const std::string_view key : {"BDate", "EDate", "CheckState", "BCustNumber", "ECustNumber"}) {
    detail_filter->Set(key, filter.Get(key));
  }
  const Variant code = rs_->Value(CodeField());
  detail_filter->Set("BItemNumber", code);
  detail_filter->Set("EItemNumber", code);
  detail_filter->Set("GroupBy", 0);
  detail_filter->Set("OnlyShowSum", 0);
  // The number that summaries are known by to the outbound detail, which keeps its own plan family here.
  constexpr std::int32_t kSummary = 128;
  return RunDetailReport(ClassName(), "ORVSaleRpt.Rpt129", kSummary, std::nullopt, detail_filter);
}

}  // namespace salerpt
