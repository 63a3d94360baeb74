#include "reports/flow/rpt176.h"

#include <memory>
#include <utility>

#include "reports/detail_report.h"
#include "reports/flow/outbound_drill.h"
#include "runtime/mmts.h"
#include "runtime/mparse.h"
#include "runtime/mrpt.h"
#include "runtime/runtime.h"
#include "sqltoolkit/filter_condition.h"
#include "sqltoolkit/filter_values.h"
#include "sqltoolkit/group_columns.h"
#include "sqltoolkit/report_header.h"

namespace salerpt {

// --- Set-up: the texts that do not depend on a filter

void Rpt176::InitProperty(std::int32_t number) {
  Report::InitProperty(number);
  item_word_ = ResText("产品");
  right_ = RequestDataRight({{"t_Organization", "T2"}});

  // The texts stand as they are sent.
  // clang-format off
  item_filter_template_ = " FItemID In (Select Distinct ##ITEMID## From #Data2 )";
  column_definitions_ =
      "       FNumber  VarChar(355) Null,\r\n"
      "     FShortNumber  VarChar(355) Null,\r\n"
      "     FName  VarChar(355) Null,\r\n"
      "     FModel  VarChar(355) Null,\r\n"
      "     FUnitName  VarChar(355) Null,\r\n"
      "     FQtyDecimal SmallInt Null, \r\n"
      "     FPriceDecimal SmallInt Null, \r\n"
      "     FQtySale decimal(23,10),\r\n"
      "     FIncomeSale decimal(23,10),\r\n"
      "     FQtySend decimal(23,10),\r\n"
      "     FCostSale decimal(23,10),\r\n"
      "     FProfit Decimal(23,10),\r\n"
      "     FCUUnitName  VarChar(355) Null,\r\n"
      "     FCUUnitQtySale decimal(23,10),\r\n"
      "     FCUUnitQtySend decimal(23,10),\r\n"
      "     FUnitCost decimal(23,10),\r\n"
      "     FSumSort  SmallInt Not Null Default 0,\r\n"
      "     FID Int IDENTITY \r\n"
      "     )\r\n";
  // Behind the item's code. Names, model and units stay blank here and the unit cost 0: the middle tier fills
  // them.
  value_list_ =
      "'','','','',Max(t1.FQtyDecimal),Max(t1.FPriceDecimal),Sum(IsNull(v1.FQtySale,0)),"
      "Sum(Round(v1.FIncomeSale,2)), "
      "Sum(IsNull(v1.FQtySend,0)),Sum(IsNull(v1.FCostSale,0)),Sum(v1.FIncomeSale)-Sum(v1.FCostSale) , "
      "'', "
      "Sum(IsNull(v1.FQtySale,0)/(Case When IsNull(t3.FCoefficient,0)=0 Then 1 Else t3.FCoefficient End )) , "
      "Sum(IsNull(v1.FQtySend,0)/(Case When IsNull(t3.FCoefficient,0)=0 Then 1 Else t3.FCoefficient End )) , "
      "0, ";
  where_text_ = " Where 1=1 ";
  // clang-format on
}

// --- Title

void Rpt176::BuildTitle() {
  const Dictionary& filter = Conditions();
  const bool grouped = IsGrouped(filter);

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
           grouped ? 3 : 4);
  if (!grouped) return;

  const std::string levels = Join(FilterText(filter, "BLevel"), "--", FilterText(filter, "ELevel"));
  const std::string sum_name = FilterText(filter, "SumName");
  std::string by;
  switch (FilterInt(filter, "SumMode")) {
    case 4:
      by = Join(ResText("客户+"), levels, ResText("级物料类别"));
      break;
    case 1:
    case 2:
    case 3:
    case 8:
      by = Join(levels, ResText("级"), sum_name.empty() ? ResText("物料类别") : sum_name);
      break;
    default:
      by = FilterText(*FilterSumField(filter), "FName");
      break;
  }
  AddTitle(*title_, Join(ResText("汇总依据："), by), 4);
}

// --- Condition on items, customers, departments and employees

// It goes into all halves of #Data2. Kept: in the purchase half t2 is the supplier, and the range of
// customers is held against his code; a range that no supplier falls into leaves purchases out.
void Rpt176::BuildConditions() {
  const Dictionary& filter = Conditions();
  condition_.clear();
  AppendCodeRange(condition_, filter, "BItemNumber", "EItemNumber", " And t1.");
  AppendCodeRange(condition_, filter, "BCustNumber", "ECustNumber", " And t2.");
  AppendCodeRange(condition_, filter, "BDept", "EDept", " And TD.");
  AppendCodeRange(condition_, filter, "BEmp", "EEmp", " And TE.");
}

// --- Fetch

void Rpt176::FetchData() {
  header_ = std::make_shared<Vector>();
  if (IsGrouped(Conditions())) AddGroupColumns(FilterInt(Conditions(), "SumMode"));
  AddCommonColumns();
  const DictionaryRef request = BuildRequest();
  CompleteRequest(*request);
  ReplacePlaceholders(*request);

  const ObjectRef data = CreateObject("ORVMSaleRpt.Data");
  Progress().SetMsg(ResText("正在从服务器读取数据..."));
  rs_.reset();
  Variant sent = request;
  rs_ = As<Recordset>(Call(data, "GetSaleAmountData", GetPropsString(), sent));
}

DictionaryRef Rpt176::BuildRequest() const {
  const Dictionary& filter = Conditions();
  if (!IsGrouped(filter)) return BuildByItem();
  const int sum_mode = FilterInt(filter, "SumMode");
  switch (sum_mode) {
    case 1:
    case 3:
    case 4:
      return BuildByLevel(LevelKind::kItem, sum_mode);
    case 2:
    case 8:
      return BuildByLevel(LevelKind::kCustomer, sum_mode);
    default:
      return BuildByProperty();
  }
}

void Rpt176::CompleteRequest(Dictionary& request) const {
  request.Set("Append", "Drop Table #Data2");
  request.Set("NoPrice", "");
  request.Set("NoTaxRate", "");
  request.Set("NoDate", "");
  request.Set("RptID", "Rpt176");
  // Asks the middle tier for the unit cost, which the batch leaves at 0.
  request.Set("UnitCost", 1);
}

void Rpt176::ReplacePlaceholders(Dictionary& request) const {
  const Dictionary& filter = Conditions();
  std::string state;
  std::string stock;
  // Kept: plans hold the numbers. What reads "已审核" in the dialog (1) takes bills that are not audited.
  switch (FilterInt(filter, "CheckState")) {
    case 0:
      state = " And v1.FStatus>0 And v1.FCancelLation=0 And v1.FHookStatus > 0 ";
      stock = " And v1.FStatus>0 And v1.FCancelLation=0 ";
      break;
    case 1:
      state = " And v1.FStatus=0 And v1.FCancelLation=0 ";
      stock = " And v1.FStatus=0 And v1.FCancelLation=0 ";
      break;
    default:
      state = " And v1.FCancelLation=0 ";
      stock = " And v1.FCancelLation=0 ";
      break;
  }

  // Goods of one sale style are bought only when they are sold (20296); they cost what the purchases of kind
  // 20300 say. With any other style chosen these purchases stay out.
  constexpr double kSoldStraightOn = 20296;
  std::string sale_style;
  std::string_view purchase_style;
  const double chosen_style = FilterNumber(filter, "SaleType");
  if (chosen_style > 1) {
    sale_style = Join(" And v1.FSaleStyle = ", SqlNumber(filter.Get("SaleType")));
    if (chosen_style != kSoldStraightOn) purchase_style = " And v1.FPOStyle<>20300";
  }

  const std::string date = Join(
      " And Convert(datetime,Convert(VarChar(30),v1.FDate,111)) >='", FilterDay(filter, "BDate"), "'\r\n",
      " And Convert(datetime,Convert(VarChar(30),v1.FDate,111)) <='", FilterDay(filter, "EDate"), "'");

  std::string select = request.Get("Select").ToText();
  select = Replace(select, "##CHECKITEM##", condition_.empty() ? " " : condition_);
  select = Replace(select, "##CHECKSTATE##", state);
  select = Replace(select, "##CHECKSTOCK##", stock);
  select = Replace(select, "##CHECKPURCHASE##", purchase_style);
  select = Replace(select, "##CHECKSALE##", sale_style);
  select = Replace(select, "##CHECKDATE##", date);
  request.Set("Select", std::move(select));
}

// --- Columns

void Rpt176::AddGroupColumns(int sum_mode) {
  const Dictionary& filter = Conditions();
  GroupColumns columns;
  switch (sum_mode) {
    case 1:
      AddLevelColumns(columns, filter, "级物料类别$");
      break;
    case 2:
      AddLevelColumns(columns, filter, "级客户类别$");
      break;
    case 3:
      AddLevelColumns(columns, filter, "级物料类别$");
      AddCustomerColumn(columns);
      break;
    case 4:
      AddCustomerColumn(columns);
      AddLevelColumns(columns, filter, "级物料类别$");
      break;
    case 8:
      AddLevelColumns(columns, filter, "级客户类别$");
      AddCustomerColumn(columns);
      break;
    default:
      AddPropertyColumn(columns, filter);
      break;
  }
  for (GroupColumn& group : columns) {
    AddHeader(*header_, std::move(group.caption), "", ColumnType::kText, group.column, true);
  }
}

void Rpt176::AddCommonColumns() {
  const bool show = !(IsGrouped(Conditions()) && IsOnlySum(Conditions()));
  const auto column = [this](std::string caption, std::string_view name, ColumnType type, bool visible) {
    AddHeader(*header_, std::move(caption), "", type, name, visible);
  };
  using enum ColumnType;
  column(Join(item_word_, ResText("代码$")), CodeField(), kText, show);
  column(Join(item_word_, ResText("名称$")), "FName", kText, show);
  column(ResText("规格型号$"), "FModel", kText, show);
  column(ResText("单位(基本)$"), "FUnitName", kText, show);
  column(ResText("单位(常用)$"), "FCUUnitName", kText, show);
  column(ResText("销售数量(基本)$"), "FQtySale", kQuantity, true);
  column(ResText("销售数量(常用)$"), "FCUUnitQtySale", kQuantity, true);
  column(ResText("销售收入$"), "FIncomeSale", kAmount, true);
  column(ResText("发货数量(基本)$"), "FQtySend", kQuantity, true);
  column(ResText("发货数量(常用)$"), "FCUUnitQtySend", kQuantity, true);
  column(ResText("单位成本$"), "FUnitCost", kPrice, true);
  column(ResText("销售成本$"), "FCostSale", kAmount, true);
  column(ResText("销售毛利润$"), "FProfit", kAmount, true);
  column(ResText("销售毛利润率$"), "FRate", kPercentage, true);
}

// --- Batch by item

// The texts stand as they are sent.
// clang-format off

DictionaryRef Rpt176::BuildByItem() const {
  auto request = std::make_shared<Dictionary>();
  request->Set("Select", Join("\r\n"
                              "    Set NoCount On\r\n",
                              FillText(), "\r\n"
                              "Create Table #Data(",
                              column_definitions_,
                              "  Insert Into #Data  Select Case "
                              "  When Grouping(t1.FNumber)=1 Then '", "合计", "' "
                              " Else t1.FNumber End, ",
                              value_list_,
                              " Case  When Grouping(t1.FNumber)=1 Then 101 "
                              " Else 0 End ",
                              FromText(), where_text_, "\r\n"));
  request->Set("GROUPBY", "Group By t1.FNumber With RollUp ");
  request->Set("Filter", condition_);
  request->Set("EndSel", EndText());
  request->Set("ITEMFILTER", item_filter_template_);
  return request;
}

// The rate is a text of whole per cent, empty where nothing was earned.
std::string Rpt176::EndText() const {
  return Join(
      "Select *,Case When FIncomeSale=0 Then '' Else LTrim(Str(FProfit/FIncomeSale*100) +'%') End As FRate"
      " From #Data  ", SumOnly(Conditions(), "Where FSumSort>100"), "\r\n"
      " Order By FID \r\n"
      "Drop Table #Data  \r\n");
}
// clang-format on

// --- Drill-through

ObjectRef Rpt176::GetDetailReport(std::int32_t row) {
  if (!MoveToDetailRow(rs_, row, ClassName())) return nullptr;
  return OpenOutboundDetail(ClassName(), Conditions(), *rs_);
}

}  // namespace salerpt
