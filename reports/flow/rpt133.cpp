#include "reports/flow/rpt133.h"

#include <memory>
#include <utility>

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

void Rpt133::InitProperty(std::int32_t number) {
  Report::InitProperty(number);
  item_word_ = ResText("产品");

  const DataRight right = RequestDataRight({{"t_Organization", "t2"}});
  // The texts stand as they are sent.
  // clang-format off
  item_filter_template_ =
      " FItemID In (SELECT DISTINCT ##ITEMID## FROM ICSale v1,ICSaleEntry v2 "
      " WHERE v1.FInterID=v2.FInterID  AND v1.FTranType in (80,86) \r\n"
      " ##CHECKSTATE## ##CHECKDATE##)";
  column_definitions_ =
      "     FNumber  varchar(355) null,\r\n"
      "     FShortNumber  varchar(355) null,\r\n"
      "     FName  varchar(355) null,\r\n"
      "     FModel  varchar(355) null,\r\n"
      "     FUnitName  varchar(355) null,\r\n"
      "     FQtyDecimal smallint null, \r\n"
      "     FPriceDecimal smallint null, \r\n"
      "     FQty     decimal(23,10)  null,\r\n"
      "     FPrice   decimal(23,10)  null,\r\n"
      "     FAmount  decimal(23,10)  null,\r\n"
      "     FTaxRate  decimal(23,10)  null,\r\n"
      "     FTaxAmount  decimal(23,10)  null,\r\n"
      "     FCountAmount money null,\r\n"
      "     FCUUnitName  varchar(355) null,\r\n"
      "     FCUUnitQty     decimal(23,10)  null,\r\n"
      "     FSumSort smallint not null Default(0),\r\n"
      "     FID int IDENTITY )\r\n";
  // Behind the item's code. Names, model and units stay blank here, price, tax rate and the quantity in the
  // usual unit 0: the middle tier fills them. Income is the amount for type 80, the amount less tax for type
  // 86; the sum with tax is amount plus tax for type 80, the amount for type 86. Kept: each line is rounded to
  // two decimals, whatever the scale of the base currency, and quantities start with six.
  value_list_ =
      "'','','','',6,4, Sum (v2.FQty), 0,Sum("
      "ROUND((CASE v1.FTranType WHEN 80 THEN v2.FAmount  "
      " else v2.FAmount- v2.FTaxAmount END)*ISNULL(v1.FExchangeRate,1),2)),0,sum("
      "ROUND(v2.FTaxAmount*ISNULL(v1.FExchangeRate,1),2)),"
      "sum(Round(case v1.FTranType when 80 then (v2.FTaxAmount + v2.FAmount)*ISNULL(v1.FExchangeRate,1) "
      " else v2.FAmount*ISNULL(v1.FExchangeRate,1) end,2)),'',0,";
  where_text_ = Join(
      " WHERE v1.FInterID=v2.FInterID  AND v1.FTranType in (80,86) \r\n"
      " ##CHECKSTATE##  ##CHECKDATE## "
      " AND  v2.FItemID=t1.FItemID \r\n"
      " AND  v1.FCustID=t2.FItemID \r\n",
      AndIfAny(right.where_text));
  // clang-format on
}

// --- Title

void Rpt133::BuildTitle() {
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

  switch (FilterInt(filter, "SumMode")) {
    case 1:
    case 2:
    case 3:
    case 4:
      // Kept: levels of customers, and levels with the customer, are told as levels of items too.
      AddTitle(*title_,
               Join(ResText("汇总依据："), FilterText(filter, "BLevel"), "--", FilterText(filter, "ELevel"),
                    ResText("级物料类别")),
               4);
      break;
    default:
      AddTitle(*title_, Join(ResText("汇总依据："), FilterText(*FilterSumField(filter), "FName")), 4);
      break;
  }
}

// --- Condition on items, customers, sale style, departments and employees

void Rpt133::BuildConditions() {
  const Dictionary& filter = Conditions();
  condition_.clear();
  AppendCodeRange(condition_, filter, "BItemNumber", "EItemNumber", " AND t1.");
  AppendCommodityType(condition_, filter);
  AppendCodeRange(condition_, filter, "BCustNumber", "ECustNumber", " AND t2.");
  AppendSaleType(condition_, filter);
  AppendCodeRange(condition_, filter, "BDeptNumber", "EDeptNumber", " AND t3.");
  AppendCodeRange(condition_, filter, "BEmpNumber", "EEmpNumber", " AND t4.");
}

// --- Fetch

void Rpt133::FetchData() {
  header_ = std::make_shared<Vector>();
  const DictionaryRef request = BuildRequest();
  AddCommonColumns();
  ReplaceState(*request);

  const ObjectRef data = CreateObject("ORVMSaleRpt.Data");
  Progress().SetMsg(ResText("正在从服务器读取数据..."));
  rs_.reset();
  Variant sent = request;
  // The dates go beside the request: the middle tier puts them into ##CHECKDATE##.
  rs_ = As<Recordset>(Call(data, "GetPurchaseData", GetPropsString(), Conditions().Get("BDate"),
                           Conditions().Get("EDate"), sent));
}

// The group columns of the grouping that was asked for, and its batch.
DictionaryRef Rpt133::BuildRequest() {
  const Dictionary& filter = Conditions();
  if (!IsGrouped(filter)) return BuildByItem();
  const int sum_mode = FilterInt(filter, "SumMode");
  AddGroupColumns(sum_mode);
  switch (sum_mode) {
    case 1:
    case 3:
    case 4:
      return BuildByLevel(LevelKind::kItem, sum_mode);
    case 2:
      return BuildByLevel(LevelKind::kCustomer, sum_mode);
    default:
      return BuildByProperty();
  }
}

void Rpt133::ReplaceState(Dictionary& request) const {
  const Dictionary& filter = Conditions();
  std::string state;
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
  // The two choices that the dialog of the sister report brings along. Without them all invoices count: plans
  // and hosts of this report know neither.
  if (!FilterText(filter, "HookStatus").empty() && FilterNumber(filter, "HookStatus") != -1) {
    Append(state, " And v1.FHookStatus=", SqlNumber(filter.Get("HookStatus")));
  }
  if (!FilterText(filter, "BillType").empty()) {
    switch (FilterInt(filter, "BillType")) {
      case 0:
        state += " And v1.FROB=1 ";
        break;
      case 1:
        state += " And v1.FROB=-1 ";
        break;
      default:
        break;
    }
  }
  request.Set("SELECT", Replace(request.Get("SELECT").ToText(), "##CHECKSTATE##", state));
  request.Set("ITEMFILTER", Replace(request.Get("ITEMFILTER").ToText(), "##CHECKSTATE##", state));
}

// --- Columns

void Rpt133::AddGroupColumns(int sum_mode) {
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
    default:
      AddPropertyColumn(columns, filter);
      break;
  }
  for (GroupColumn& group : columns) {
    AddHeader(*header_, std::move(group.caption), "", ColumnType::kText, group.column, true);
  }
}

void Rpt133::AddCommonColumns() {
  const bool show = !(IsGrouped(Conditions()) && IsOnlySum(Conditions()));
  const auto column = [this](std::string caption, std::string_view name, ColumnType type, bool visible) {
    AddHeader(*header_, std::move(caption), "", type, name, visible);
  };
  using enum ColumnType;
  column(Join(item_word_, ResText("代码$")), CodeField(), kText, show);
  column(Join(item_word_, ResText("名称$")), "FName", kText, show);
  column(ResText("规格型号$"), "FModel", kText, show);
  column(ResText("单位(基本)$"), "FUnitName", kText, show);
  column(ResText("数量(基本)$"), "FQty", kQuantity, true);
  column(ResText("单价(基本)$"), "FPrice", kPrice, true);
  column(ResText("单位(常用)$"), "FCUUnitName", kText, show);
  column(ResText("数量(常用)$"), "FCUUnitQty", kQuantity, true);
  column(ResText("销售收入$"), "FAmount", kAmount, true);
  column(ResText("税率(%)$"), "FTaxRate", kPercentage, true);
  column(ResText("销项税额$"), "FTaxAmount", kAmount, true);
  column(ResText("合计$"), "FCountAmount", kAmount, true);
}

// --- What the rows are read from

// The joins are in comma form: a table of groups is added by a comma, its join by an AND. Departments and
// employees stand there only where the rows are grouped or bounded by them; an invoice without one takes part
// all the same.
std::string Rpt133::FromText() const {
  const Dictionary& filter = Conditions();
  constexpr int kDepartment = 2;
  constexpr int kEmployee = 3;
  const int item_class = IsGrouped(filter) ? FilterInt(*FilterSumField(filter), "FItemClassID") : 0;
  bool reads_people = item_class == kDepartment || item_class == kEmployee;
  for (const std::string_view key : {"BDeptNumber", "EDeptNumber", "BEmpNumber", "EEmpNumber"}) {
    reads_people = reads_people || !FilterText(filter, key).empty();
  }
  return Join(" FROM ICSale v1",
              reads_people ? " LEFT JOIN t_Department t3 ON v1.FDeptID=t3.FItemID"
                             " LEFT JOIN t_Emp t4 ON v1.FEmpID=t4.FItemID"
                           : "",
              ",ICSaleEntry v2,t_ICItem t1,t_Organization t2");
}

// --- Batch by item

// The texts stand as they are sent.
// clang-format off
DictionaryRef Rpt133::BuildByItem() const {
  auto request = std::make_shared<Dictionary>();
  request->Set("SELECT", Join("\r\n"
                              "    SET NOCOUNT ON\r\n"
                              "CREATE TABLE #DATA(",
                              column_definitions_,
                              "  INSERT INTO #DATA  SELECT CASE "
                              "  WHEN GROUPING(t1.FNumber)=1 THEN '", "合计", "' \r\n"
                              " ELSE t1.FNumber END, ",
                              value_list_,
                              " CASE  WHEN GROUPING(t1.FNumber)=1 THEN 101 \r\n"
                              " ELSE 0 END ",
                              FromText(), where_text_, condition_, "\r\n"));
  request->Set("GROUPBY", "Group by t1.FNumber WITH ROLLUP ");
  request->Set("ITEMFILTER", item_filter_template_);
  request->Set("EndSel", Join("SELECT * FROM #DATA  ", SumOnly(Conditions(), "WHERE FSumSort>100"), "\r\n"
                              " Order by FID \r\n"
                              "DROP TABLE #DATA  \r\n"));
  return request;
}
// clang-format on

}  // namespace salerpt
