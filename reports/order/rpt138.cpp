#include "reports/order/rpt138.h"

#include <memory>
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

// --- Set-up: the texts that do not depend on a filter

void Rpt138::InitProperty(std::int32_t number) {
  Report::InitProperty(number);
  item_word_ = ResText("产品");
  DataRight right = RequestDataRight({{"t_OrganizatiOn", "t11"}});
  right_from_ = std::move(right.from_text);
  right_where_ = std::move(right.where_text);

  // The texts stand as they are sent.
  // clang-format off
  item_filter_template_ = " FItemID In (Select DISTINCT ##ITEMID## From #DATA2 )";

  work_batch_ = Join(
      "Create Table #DATA2 \r\n"
      "   (FCustID int null, \r\n"
      "    FItemID int null, \r\n"
      "    FOrderQty Decimal(23,10) not null Default(0), \r\n"
      "    FCommitQty Decimal(23,10) not null Default(0), \r\n"
      "    FCompanyID int null )\r\n"
      // Order lines
      "Insert Into #Data2 \r\n"
      "  (FCustID,FItemID, FOrderQty,FCompanyID) \r\n"
      "Select t3.FCustID,v1.FitemID,v1.FQty,t3.FRelateBrID \r\n"
      "From SEOrder t3\r\n"
      "   Inner Join SEOrderEntry v1 On t3.FBrNo=v1.FBrNo  And  t3.FInterID=v1.FInterID\r\n"
      "   Inner Join t_ICItem t10 On v1.FItemID=t10.FItemID\r\n"
      "   Left Join t_Organization t11 On t3.FCustID=t11.FItemID\r\n"
      "   Left Join t_SOnCompany t12 On t3.FRelateBrID = t12.FItemID\r\n"
      "   Left Join t_Department TD On t3.FDeptID=TD.FItemID\r\n"
      "   Left Join t_Emp TE On t3.FEmpID=TE.FItemID\r\n",
      right_from_,
      "Where 1=1\r\n"
      "    ##CHECKSTATE138## ##CHECKDATE138## ##CHECKITEM## \r\n"
      // Kept: the condition that is commented out is sent along; sent texts are fixed.
      " --And t3.FCheckerID is not Null And t3.FCheckerID<>0 \r\n"
      "Order By t3.FDate,t3.FInterID,v1.FItemID \r\n",
      DeliveriesText("FCustID", "FSupplyID", "FCustID"));

  column_definitions_ =
      "    FNumber  varchar(355)  null,\r\n"
      "    FShortNumber  varchar(355) null,\r\n"
      "    FName  varchar(355) null,\r\n"
      "    FModel  varchar(355) null,\r\n"
      "    FUnitName  varchar(355) null,\r\n"
      "    FQtyDecimal smallint null, \r\n"
      "    FPriceDecimal smallint null, \r\n"
      "    FOrderQty decimal(23, 10) null, \r\n"
      "    FCommitQty decimal(23, 10) null, \r\n"
      "    FUnCommitQty decimal(23, 10) null, \r\n"
      "    FCUUnitName  varchar(355) null,\r\n"
      "    FCUUnitOrderQty decimal(23, 10) null, \r\n"
      "    FCUUnitCommitQty decimal(23, 10) null, \r\n"
      "    FCUUnitUnCommitQty decimal(23, 10) null, \r\n"
      "    FSumSort smallint not null Default(0),\r\n"
      "    FID int IDENTITY ) \r\n";

  // Behind the item's code. Short code, name, model and units stay blank here: the middle tier fills them
  // from the item master.
  value_list_ =
      "'','','','',4,4,sum(isnull(v1.FOrderQty,0)), sum(isnull(v1.FCommitQty,0)), "
      "sum(isnull(v1.FOrderQty,0))-sum(isnull(v1.FCommitQty,0)), \r\n"
      "'',Sum(ISNull(v1.FOrderQty,0)/(Case When ISNULL(t3.FCoefficient,0)=0 Then 1 Else t3.FCoefficient End )),"
      "SUM(ISNull(v1.FCommitQty,0)/(Case When ISNULL(t3.FCoefficient,0)=0 Then 1 Else t3.FCoefficient End )), "
      "SUM((ISNull(v1.FOrderQty,0)- ISNull(v1.FCommitQty,0))/"
      "(Case When ISNULL(t3.FCoefficient,0)=0 Then 1 Else t3.FCoefficient End )), ";
  // clang-format on
}

// The deliveries of the orders into #DATA2: by stock bill and, for orders of sale style 20296, by sales
// invoice. `column` tells whose figures they are, its value comes from the head of the delivering bill.
std::string Rpt138::DeliveriesText(std::string_view column, std::string_view stock_value,
                                   std::string_view invoice_value) const {
  const std::string right_from = Replace(right_from_, "v1", "t8");
  // Kept: the red-ink flag changes nothing, both arms of its case are the quantity as it stands; quantities
  // of red bills are below zero.
  // clang-format off
  return Join(
      // By stock bill
      "Insert Into #Data2 \r\n"
      "   (", column, ",FItemID, FCommitQty) \r\n"
      "Select t1.", stock_value, ",t4.FItemID,Case When t1.FRob=1 Then t4.FQty Else t4.FQty End \r\n"
      "From SEOrder t3\r\n"
      "   Inner Join SEOrderEntry t8 On t8.FInterID = t3.FInterID\r\n"
      "   Inner Join ICStockBillEntry t4 On t3.FInterId=t4.FOrderInterID And t4.FOrderEntryID = t8.FEntryID\r\n"
      "   inner Join t_Stock t99 On t4.FDCStockID = t99.FItemID \r\n"
      "   Inner Join ICStockBill t1 On t4.FInterID = t1.FInterID And t1.FTrantype =21 \r\n"
      "   Left Join t_MeasureUnit t5 On t5.FMeasureUnitID=t4.FUnitID\r\n"
      "   Inner Join t_ICItem t10 On t4.Fitemid =t10.Fitemid\r\n"
      "   Left Join t_OrganizatiOn t11 On t3.FCustID = t11.FItemID\r\n"
      "   Left Join t_SOnCompany t12 On t3.FRelateBrID = t12.FItemID\r\n"
      "   Left Join T_Department TD On t3.FDeptID=TD.FItemID\r\n"
      "   Left Join T_Emp TE On t3.FEmpID=TE.FItemID\r\n",
      right_from,
      "Where 1=1    ##CHECKSTATE138_1##  ##CHECKSTOCK## "
      " ##CHECKDATE138_1##  ##CHECKITEM##\r\n"
      // By sales invoice. Kept: whatever the state of order and invoice; the figures rest on it.
      "Insert Into #Data2 \r\n"
      "   (", column, ",FItemID, FCommitQty) \r\n"
      "Select t1.", invoice_value, ",t4.FItemID,Case When t1.FRob=1 Then t4.FQty Else t4.FQty End\r\n"
      "From SEOrder t3\r\n"
      "   Inner Join SEOrderEntry t8 On t8.FInterID = t3.FInterID\r\n"
      "   Inner Join ICSaleEntry t4 On t3.FInterId=t4.FOrderInterID And t4.FOrderEntryID = t8.FEntryID\r\n"
      "   Inner Join ICSale t1 On t4.FInterID = t1.FInterID\r\n"
      "   Left Join t_MeasureUnit t5 On t5.FMeasureUnitID=t4.FUnitID\r\n"
      "   Inner Join t_ICItem t10 On t4.Fitemid =t10.Fitemid\r\n"
      "   Left Join t_OrganizatiOn t11 On t3.FCustID = t11.FItemID\r\n"
      "   Left Join t_SOnCompany t12 On t3.FRelateBrID = t12.FItemID\r\n"
      "   Left Join T_Department TD On t3.FDeptID=TD.FItemID\r\n"
      "   Left Join T_Emp TE On t3.FEmpID=TE.FItemID\r\n",
      right_from,
      "Where t3.FSaleStyle=20296  "
      " ##CHECKDATE138_1##  ##CHECKITEM##\r\n");
  // clang-format on
}

// --- What the rows are grouped by

Rpt138::Grouping Rpt138::GroupingOf(const Dictionary& filter) {
  if (!IsGrouped(filter)) return Grouping::kItem;
  switch (FilterInt(filter, "SumMode")) {
    case 1:
      return Grouping::kItemLevels;
    case 2:
      return Grouping::kCustomerLevels;
    case 3:
      return Grouping::kItemLevelsCustomer;
    case 4:
      return Grouping::kCustomerItemLevels;
    case 6:
      return Grouping::kBranchLevels;
    case 0:
    case 5:
    case 7: {
      // Classes other than these three name no field of the head: they are properties.
      const int item_class = FilterInt(*FilterSumField(filter), "FItemClassID");
      return item_class >= 1 && item_class <= 3 ? Grouping::kHeadField : Grouping::kProperty;
    }
    default:
      return Grouping::kProperty;
  }
}

// --- Title

void Rpt138::BuildTitle() {
  const Dictionary& filter = Conditions();
  const std::string begin_item = FilterText(filter, "BItemNumber");
  const std::string end_item = FilterText(filter, "EItemNumber");
  TitleLines lines;
  lines.Add(Join(ResText("起始日期："), FilterText(filter, "BDate")));
  lines.Add(Join(ResText("截止日期："), FilterText(filter, "EDate")));
  lines.Add(Join(item_word_, ResText("代码范围："),
                 begin_item.empty() && end_item.empty() ? Join(ResText("所有"), item_word_)
                                                        : Join(begin_item, " -- ", end_item)));
  lines.AddNarrowRange("客户代码范围：", "客户代码范围: ", filter, "BCustNumber", "ECustNumber", "所有客户");
  title_ = lines.Lines();

  const std::string levels = Join(FilterText(filter, "BLevel"), "--", FilterText(filter, "ELevel"));
  switch (GroupingOf(filter)) {
    case Grouping::kItem:
      break;
    case Grouping::kHeadField:
    case Grouping::kProperty:
      lines.Add(Join(ResText("汇总依据："), FilterText(*FilterSumField(filter), "FName")));
      break;
    case Grouping::kCustomerItemLevels:
      lines.Add(Join(ResText("汇总依据：客户+"), levels, ResText("级物料类别")));
      break;
    default:
      lines.Add(Join(ResText("汇总依据："), levels, ResText("级"), FilterText(filter, "SumName")));
      break;
  }
}

// --- Condition on items, customers, branch companies, departments, employees and order numbers

void Rpt138::BuildConditions() {
  const Dictionary& filter = Conditions();
  condition_.clear();
  AppendCodeRange(condition_, filter, "BItemNumber", "EItemNumber", " And t10.");
  switch (FilterInt(filter, "CommodityType")) {
    case 1:
      condition_ += " And t10.FErpClsID=4";
      break;
    case 2:
      condition_ += " And t10.FErpClsID<>4";
      break;
    default:
      break;
  }
  AppendCodeRange(condition_, filter, "BCustNumber", "ECustNumber", " And t11.");
  // Kept: both ends of the branch companies are upper bounds, here and in the summing step; the figures of
  // this report rest on it.
  AppendBound(condition_, filter, "BCompanyNumber", Join(" And t12.", CodeField(), "<="));
  AppendBound(condition_, filter, "ECompanyNumber", Join(" And t12.", CodeField(), "<="));
  AppendCodeRange(condition_, filter, "BDept", "EDept", " And TD.");
  AppendCodeRange(condition_, filter, "BEmp", "EEmp", " And TE.");
  AppendBound(condition_, filter, "BBillNo", " And T3.FBillNo>=");
  AppendBound(condition_, filter, "EBillNo", " And T3.FBillNo<=");
}

// --- Fetch

void Rpt138::FetchData() {
  header_ = std::make_shared<Vector>();
  const Grouping grouping = GroupingOf(Conditions());
  AddGroupColumns(grouping);
  const DictionaryRef request = BuildRequest(grouping);
  AddCommonColumns();
  ReplacePlaceholders(*request);

  const ObjectRef data = CreateObject("ORVMSaleRpt.Data");
  Progress().SetMsg(ResText("正在从服务器读取数据..."));
  rs_.reset();
  Variant sent = request;
  const Variant rows = Call(data, "GetSaleAmountData", GetPropsString(), sent);
  RaiseReturnedError(sent);
  rs_ = As<Recordset>(rows);
}

DictionaryRef Rpt138::BuildRequest(Grouping grouping) const {
  switch (grouping) {
    case Grouping::kItem:
      return BuildByItem();
    case Grouping::kHeadField:
      return BuildByHeadField();
    case Grouping::kProperty:
      return BuildByProperty();
    default:
      return BuildByLevel(grouping);
  }
}

namespace {

// The choice of audited or open orders.
std::string_view CheckStateOf(const Dictionary& filter) {
  switch (FilterInt(filter, "CheckState")) {
    case 0:
      return " And t3.FStatus>0 And t3.FCancelLation=0 ";
    case 1:
      return " And t3.FStatus=0 And t3.FCancelLation=0 ";
    default:
      return " And t3.FCancelLation=0 ";
  }
}

// The choice of closed or open orders.
std::string_view CloseStateOf(const Dictionary& filter) {
  switch (FilterInt(filter, "CloseState")) {
    case 1:
      return " And t3.FStatus <> 3 ";
    case 2:
      return " And t3.FStatus = 3 ";
    default:
      return "";
  }
}

// Above 1 the id of one sale style, anything else all of them.
std::string SaleStyleOf(const Dictionary& filter, std::string_view comparison) {
  if (FilterNumber(filter, "SaleType") <= 1) return {};
  return Join(comparison, SqlNumber(filter.Get("SaleType")));
}

}  // namespace

void Rpt138::ReplacePlaceholders(Dictionary& request) const {
  const Dictionary& filter = Conditions();
  const std::string order_state =
      Join(CheckStateOf(filter), SaleStyleOf(filter, " And t3.FSaleStyle = "), CloseStateOf(filter));
  const std::string delivery_state =
      Join(" And (t1.FStatus > 0 or (t1.FUpStockWhenSave > 0 And t1.FCancellation <1 )) ",
           CheckStateOf(filter), CloseStateOf(filter), SaleStyleOf(filter, " And t1.FSaleStyle = "));
  // Kept: deliveries too are chosen by the date of their order. The report tells how far the orders of a time
  // were executed, whenever that was.
  const std::string date = Join(
      " And convert(datetime,convert(varchar(30),t3.FDate,111)) >='", FilterDay(filter, "BDate"), "'\r\n",
      " And convert(datetime,convert(varchar(30),t3.FDate,111)) <='", FilterDay(filter, "EDate"), "'");
  std::string condition = Join(condition_, AndIfAny(right_where_));
  if (condition.empty()) condition = " ";

  std::string select = request.Get("Select").ToText();
  select = Replace(select, "##CHECKITEM##", condition);
  // Of the texts written here none holds this one; a property's own text may.
  select = Replace(select, "##CheckCompany##", condition);
  select = Replace(select, "##CHECKSTATE138##", order_state);
  select = Replace(select, "##CHECKSTATE138_1##", delivery_state);
  select = Replace(select, "##CHECKSTOCK##", "");
  select = Replace(select, "##CHECKDATE138##", date);
  select = Replace(select, "##CHECKDATE138_1##", date);
  request.Set("Select", std::move(select));
}

// --- Columns

void Rpt138::AddGroupColumns(Grouping grouping) {
  const Dictionary& filter = Conditions();
  GroupColumns columns;
  switch (grouping) {
    case Grouping::kItem:
      break;
    case Grouping::kItemLevels:
      AddLevelColumns(columns, filter, "级物料类别$");
      break;
    case Grouping::kCustomerLevels:
      AddLevelColumns(columns, filter, "级客户类别$");
      break;
    case Grouping::kItemLevelsCustomer:
      AddLevelColumns(columns, filter, "级物料类别$");
      AddCustomerColumn(columns);
      break;
    case Grouping::kCustomerItemLevels:
      AddCustomerColumn(columns);
      AddLevelColumns(columns, filter, "级物料类别$");
      break;
    case Grouping::kBranchLevels:
      AddLevelColumns(columns, filter, "级分支机构类别$");
      break;
    case Grouping::kHeadField:
    case Grouping::kProperty:
      AddPropertyColumn(columns, filter);
      break;
  }
  for (GroupColumn& group : columns) {
    AddHeader(*header_, std::move(group.caption), "", ColumnType::kText, group.column, true);
  }
}

void Rpt138::AddCommonColumns() {
  const bool show = !(IsGrouped(Conditions()) && IsOnlySum(Conditions()));
  const auto column = [this](std::string caption, std::string_view name, ColumnType type, bool visible) {
    AddHeader(*header_, std::move(caption), "", type, name, visible);
  };
  using enum ColumnType;
  column(Join(item_word_, ResText("代码$")), CodeField(), kText, show);
  column(Join(item_word_, ResText("名称$")), "FName", kText, show);
  column(ResText("规格型号$"), "FModel", kText, show);
  column(ResText("单位(基本)$"), "FUnitName", kText, show);
  column(ResText("订单数量(基本)$"), "FOrderQty", kQuantity, true);
  column(ResText("发货数量(基本)$"), "FCommitQty", kQuantity, true);
  column(ResText("尚未出库(基本)$"), "FUnCommitQty", kQuantity, true);
  column(ResText("单位(常用)$"), "FCUUnitName", kText, show);
  column(ResText("订单数量(常用)$"), "FCUUnitOrderQty", kQuantity, true);
  column(ResText("发货数量(常用)$"), "FCUUnitCommitQty", kQuantity, true);
  column(ResText("尚未出库(常用)$"), "FCUUnitUnCommitQty", kQuantity, true);
}

// --- The summing step: where its rows come from

// Levels of branch companies and a range of them need the company.
bool Rpt138::JoinsCompany() const {
  const Dictionary& filter = Conditions();
  return GroupingOf(filter) == Grouping::kBranchLevels || !FilterText(filter, "BCompanyNumber").empty() ||
         !FilterText(filter, "ECompanyNumber").empty();
}

// The texts stand as they are sent.
// clang-format off
std::string Rpt138::FromText() const {
  return Join(" From  #DATA2 v1\r\n"
              "Join t_ICItem t1 On v1.FItemID=t1.FItemID\r\n"
              "Left Join t_Organization t2 On v1.FCustID=t2.FItemID\r\n"
              "Left Join t_MeasureUnit t3 On t1.FCUUnitID = t3.FMeasureUnitID",
              JoinsCompany() ? "\r\n"
                               "Left Join t_SonCompany t4 On v1.FCompanyID =t4.FItemID"
                             : "");
}

std::string Rpt138::WhereText() const {
  std::string where = " Where 1=1 ";
  AppendBound(where, Conditions(), "BCompanyNumber", Join(" And t4.", CodeField(), "<="));
  AppendBound(where, Conditions(), "ECompanyNumber", Join(" And t4.", CodeField(), "<="));
  return where;
}

// --- Batch by item

DictionaryRef Rpt138::BuildByItem() const {
  return MakeRequest(Join("SET NOCOUNT ON\r\n",
                          work_batch_, "\r\n"
                          "CREATE TABLE #DATA(\r\n",
                          column_definitions_, "\r\n"
                          "  INSERT INTO #DATA  SELECT CASE "
                          "  WHEN GROUPING(t1.FNumber)=1 THEN '", "合计", "' \r\n"
                          " ELSE t1.FNumber END, \r\n",
                          value_list_, "\r\n"
                          " CASE  WHEN GROUPING(t1.FNumber)=1 THEN 101 \r\n"
                          " ELSE 0 END ",
                          FromText(), WhereText()),
                     "Group by t1.FNumber WITH ROLLUP ",
                     item_filter_template_,
                     Join("Select * From #DATA  ", SumOnly(Conditions(), "Where FSumSort>100"), "\r\n"
                          " Order By FID \r\n"
                          "DROP TABLE #DATA  \r\n"));
}

DictionaryRef Rpt138::MakeRequest(std::string select, std::string group_by, std::string item_filter,
                                  std::string end_select) const {
  auto request = std::make_shared<Dictionary>();
  request->Set("Select", std::move(select));
  request->Set("GROUPBY", std::move(group_by));
  request->Set("ITEMFILTER", std::move(item_filter));
  // The work batch has run with "Select": it stands there only.
  request->Set("Append", "\r\n"
                         "Drop Table #DATA2 \r\n");
  request->Set("NoPrice", "");
  request->Set("NoTaxRate", "");
  request->Set("NoDate", "");
  request->Set("OnlyShowSum", FilterInt(Conditions(), "OnlyShowSum"));
  request->Set("EndSel", std::move(end_select));
  return request;
}
// clang-format on

}  // namespace salerpt
