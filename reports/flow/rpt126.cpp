#include "reports/flow/rpt126.h"

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
#include "sqltoolkit/title_lines.h"

namespace salerpt {

// --- Set-up: the texts that do not depend on a filter

void Rpt126::InitProperty(std::int32_t number) {
  Report::InitProperty(number);
  item_word_ = ResText("产品");
  amount_scale_ = AmountScale();

  const DataRight right = RequestDataRight({{"T_Organization", "t2"}});
  // The texts stand as they are sent.
  // clang-format off
  item_filter_template_ =
      " FItemID In (Select DISTINCT ##ITEMID## From ICSale v1,ICSaleEntry v2 "
      " Where v1.FInterID=v2.FInterID And v1.FTranType in (80,86) \r\n"
      " ##CHECKSTATE## ##CHECKDATE##)";
  column_definitions_ =
      "     FNumber Varchar(355),\r\n"
      "     FShortNumber  Varchar(355) Null,\r\n"
      "     FName  Varchar(355) Null,\r\n"
      "     FModel  Varchar(355) Null,\r\n"
      "     FUnitName  Varchar(355) Null,\r\n"
      "     FQtyDecimal smallint Null, \r\n"
      "     FPriceDecimal smallint Null, \r\n"
      "     FQty     decimal(23,10)  Null,\r\n"
      "     FCUUnitName  Varchar(355) Null,\r\n"
      "     FCUUnitQty     decimal(23,10)  Null,\r\n"
      "     FPrice   decimal(23,10)  Null,\r\n"
      "     FAmount  decimal(23,10)  Null,\r\n"
      "     FTaxRate  decimal(23,10)  Null,\r\n"
      "     FTaxAmount  decimal(23,10)  Null,\r\n"
      "     FCountAmount decimal(23,10) Null,\r\n"
      "     ##FCurrency## \r\n"
      "     FSumSort smallint not Null Default(0), \r\n"
      "     FID int IDENTITY \r\n"
      "     ) \r\n";
  from_text_ = Join(
      " From ICSale v1\r\n"
      "Join ICSaleEntry v2 On v1.FInterID=v2.FInterID\r\n"
      "Left Join t_ICItem t1 On v2.FItemID=t1.FItemID\r\n"
      "Left Join t_Organization t2 On v1.FCustID=t2.FItemID\r\n"
      "Left Join t_Department t3 On FDeptID =t3.FItemID\r\n"
      "Left Join t_Emp t4 On FEmpID =t4.FItemID\r\n"
      "Left Join t_MeasureUnit t5 On t1.FCUUnitID = t5.FMeasureUnitID\r\n"
      "Left Join t_Currency t6 On v1.FCurrencyID = t6.FCurrencyID",
      right.from_text);
  where_text_ = Join(
      " Where v1.FTranType in (80,86) \r\n"
      " ##CHECKSTATE##  ##CHECKDATE## \r\n",
      AndIfAny(right.where_text));
  // clang-format on
}

// --- Title

namespace {

// What a grouped report is grouped by.
std::string GroupedBy(const Dictionary& filter) {
  const std::string levels = Join(FilterText(filter, "BLevel"), "--", FilterText(filter, "ELevel"));
  const std::string sum_name = FilterText(filter, "SumName");
  switch (FilterInt(filter, "SumMode")) {
    case 4:
      return Join(ResText("汇总依据：客户+"), levels, ResText("级物料类别"));
    case 1:
    case 2:
    case 3:
      return Join(ResText("汇总依据："), levels, ResText("级"),
                  sum_name.empty() ? ResText("物料类别") : sum_name);
    default: {
      const std::string property = FilterText(*FilterSumField(filter), "FName");
      return Join(ResText("汇总依据："), property.empty() ? sum_name : property);
    }
  }
}

}  // namespace

void Rpt126::BuildTitle() {
  const Dictionary& filter = Conditions();
  TitleLines lines;
  lines.Add(Join(ResText("起始日期："), FilterText(filter, "BDate")));
  lines.Add(Join(ResText("截止日期："), FilterText(filter, "EDate")));
  lines.Add(Join(item_word_, ResText("代码范围："),
                 RangeCaption(FilterText(filter, "BItemNumber"), FilterText(filter, "EItemNumber"),
                              Join(ResText("所有"), item_word_))));
  lines.AddNarrowRange("客户代码范围：", "客户代码范围: ", filter, "BCustNumber", "ECustNumber", "所有客户");
  lines.AddNarrowRange("部门代码范围：", "部门代码范围: ", filter, "BDeptNumber", "EDeptNumber", "所有部门");
  lines.AddNarrowRange("业务员代码范围：", "业务员代码范围: ", filter, "BEmpNumber", "EEmpNumber",
                       "所有业务员");
  if (IsGrouped(filter)) lines.Add(GroupedBy(filter));
  title_ = lines.Lines();
}

// --- Condition on items, customers, sale style, departments and employees

void Rpt126::BuildConditions() {
  const Dictionary& filter = Conditions();
  condition_.clear();
  AppendCodeRange(condition_, filter, "BItemNumber", "EItemNumber", " And t1.");
  AppendCommodityType(condition_, filter);
  AppendCodeRange(condition_, filter, "BCustNumber", "ECustNumber", " And t2.");
  AppendSaleType(condition_, filter);
  AppendCodeRange(condition_, filter, "BDeptNumber", "EDeptNumber", " And t3.");
  AppendCodeRange(condition_, filter, "BEmpNumber", "EEmpNumber", " And t4.");
}

// --- Fetch

void Rpt126::FetchData() {
  const Dictionary& filter = Conditions();
  header_ = std::make_shared<Vector>();
  const DictionaryRef request = BuildRequest();
  AddCommonColumns();
  ReplaceState(*request);
  request->Set("CurrencyShow", filter.Get("CurrencyShow"));
  request->Set("AuxProp", filter.Get("AuxProp"));

  const ObjectRef data = CreateObject("ORVMSaleRpt.Data");
  Progress().SetMsg(ResText("正在从服务器读取数据..."));
  rs_.reset();
  Variant sent = request;
  // The dates go beside the request: the middle tier puts them into ##CHECKDATE##.
  rs_ = As<Recordset>(
      Call(data, "GetPurchaseData", GetPropsString(), filter.Get("BDate"), filter.Get("EDate"), sent));
}

// The group columns of the grouping that was asked for, and its batch.
DictionaryRef Rpt126::BuildRequest() {
  const Dictionary& filter = Conditions();
  if (!IsGrouped(filter)) return BuildByItem();
  const int sum_mode = FilterInt(filter, "SumMode");
  AddGroupColumns(sum_mode);
  switch (sum_mode) {
    case 1:
      return BuildByLevel(LevelKind::kItem, sum_mode);
    case 2:
      return BuildByLevel(LevelKind::kCustomer, sum_mode);
    case 3:
    case 4: {
      DictionaryRef request = BuildByLevel(LevelKind::kItem, sum_mode);
      request->Set("IsUseCust", true);
      return request;
    }
    default:
      return BuildByProperty();
  }
}

void Rpt126::ReplaceState(Dictionary& request) const {
  const Dictionary& filter = Conditions();
  std::string state;
  switch (FilterInt(filter, "CheckState")) {
    case 0:
      state = " And v1.FStatus>0 And v1.FCancelLation=0 ";
      break;
    case 1:
      state = " And v1.FStatus=0 And v1.FCancelLation=0 ";
      break;
    default:
      state = " And v1.FCancelLation=0 ";
      break;
  }
  // -1, or no choice at all: settled and open invoices alike.
  const Variant& hook_status = filter.Get("HookStatus");
  if (!FilterText(filter, "HookStatus").empty() && FilterInt(filter, "HookStatus") != -1) {
    Append(state, " And v1.FHookStatus=", SqlNumber(hook_status));
  }
  // Counts from 0, unlike the choice of the outbound summary.
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
  request.Set("Select", Replace(request.Get("Select").ToText(), "##CHECKSTATE##", state));
  request.Set("ITEMFILTER", Replace(request.Get("ITEMFILTER").ToText(), "##CHECKSTATE##", state));
}

// --- Columns

bool Rpt126::ShowsAuxProp() const {
  return FilterNumber(Conditions(), "AuxProp") == 1;
}

bool Rpt126::ShowsBillCurrency() const {
  return FilterNumber(Conditions(), "CurrencyShow") == 1;
}

void Rpt126::AddGroupColumns(int sum_mode) {
  switch (sum_mode) {
    case 1:
      AddLevelColumns("级物料类别代码$", "级物料类别$");
      break;
    case 2:
      AddLevelColumns("级客户类别代码$", "级客户类别$");
      break;
    case 3:
      AddLevelColumns("级物料类别代码$", "级物料类别$");
      AddCustomerColumns();
      break;
    case 4:
      AddCustomerColumns();
      AddLevelColumns("级物料类别代码$", "级物料类别$");
      break;
    default:
      AddPropertyColumns();
      break;
  }
}

void Rpt126::AddLevelColumns(std::string_view code_caption, std::string_view caption) {
  const LevelSpan levels = FilterLevels(Conditions());
  for (int i = levels.begin; i <= levels.end; ++i) {
    AddGroupColumn(Join(i, ResText(code_caption)), Join("FNumber", i));
    AddGroupColumn(Join(i, ResText(caption)), Join("FName", i));
  }
}

void Rpt126::AddCustomerColumns() {
  AddGroupColumn(ResText("客户代码$"), Runtime::Current().gLongNumber ? "FCustNumber" : "FShortCustNumber");
  AddGroupColumn(ResText("客户$"), "FCustName");
}

// Customer, department and employee show code and name; any other property its one value.
void Rpt126::AddPropertyColumns() {
  const Dictionary& filter = Conditions();
  const DictionaryRef sum_field = FilterSumField(filter);
  const std::string name = FilterText(*sum_field, "FName");
  const bool is_long = Runtime::Current().gLongNumber;
  const int item_class = FilterInt(*sum_field, "FPropID") == 0 ? FilterInt(*sum_field, "FItemClassID") : 0;
  switch (item_class) {
    case 1:
      AddGroupColumn(ResText(Join(name, "代码$")), is_long ? "FCustNumber" : "FShortCustNumber");
      AddGroupColumn(ResText(Join(name, "名称$")), "FCustName");
      break;
    case 2:
      AddGroupColumn(ResText(Join(name, "代码$")), is_long ? "FDeptNumber" : "FShortDeptNumber");
      AddGroupColumn(ResText(Join(name, "名称$")), "FDeptName");
      break;
    case 3:
      AddGroupColumn(ResText(Join(name, "代码$")), is_long ? "FEmpNumber" : "FShortEmpNumber");
      AddGroupColumn(ResText(Join(name, "名称$")), "FEmpName");
      break;
    default:
      AddGroupColumn(ResText(Join(name, "$")), PropertyColumnName(filter));
      break;
  }
}

void Rpt126::AddGroupColumn(std::string caption, std::string_view column) {
  AddHeader(*header_, std::move(caption), "", ColumnType::kText, column, true, ForceHide{0});
}

void Rpt126::AddCommonColumns() {
  // Without the right to amounts the price goes too: quantity times price would tell them.
  const ForceHide amount{static_cast<std::int16_t>(AccessCheck(1008, 2, 4) ? 0 : 1)};
  const bool show = !(IsGrouped(Conditions()) && IsOnlySum(Conditions()));
  const auto column = [this](std::string caption, std::string_view name, ColumnType type, bool visible,
                             ForceHide force_hide = {0}) {
    AddHeader(*header_, std::move(caption), "", type, name, visible, force_hide);
  };
  using enum ColumnType;
  column(Join(item_word_, ResText("代码$")), CodeField(), kText, show);
  column(Join(item_word_, ResText("名称$")), "FName", kText, show);
  column(ResText("规格型号$"), "FModel", kText, show);
  if (ShowsAuxProp()) column(ResText("辅助属性$"), "FAuxPropName", kText, true);
  column(ResText("单位(基本)$"), "FUnitName", kText, show);
  column(ResText("数量(基本)$"), "FQty", kQuantity, true);
  column(ResText("单价(基本)$"), "FPrice", kPrice, true, amount);
  column(ResText("单位(常用)$"), "FCUUnitName", kText, show);
  column(ResText("数量(常用)$"), "FCUUnitQty", kQuantity, true);
  if (ShowsBillCurrency()) column(ResText("币别$"), "FCurrencyName", kText, true);
  column(ResText("销售收入$"), "FAmount", kBaseAmount, true, amount);
  column(ResText("税率(%)$"), "FTaxRate", kPercentage, true);
  column(ResText("销项税额$"), "FTaxAmount", kBaseAmount, true, amount);
  column(ResText("合计$"), "FCountAmount", kBaseAmount, true, amount);
}

// --- Batch by item

// The texts stand as they are sent.
// clang-format off

// What fills the columns behind the item's code. Names, model and units stay blank here, price and tax rate
// 0: the middle tier fills them. Income is the amount for type 80, the amount less tax for type 86; the sum
// with tax is amount plus tax for type 80, the amount for type 86.
std::string Rpt126::ValueList() const {
  const int d = amount_scale_;
  if (ShowsBillCurrency()) {
    // In the bill's currency, rounded to that currency's own scale.
    return "'','','',"
           "'',4,4, Sum (round(v2.FQty,t1.FQtyDecimal)),"
           " '', "
           " Sum(round(cast(ISNull(v2.FQty,0) as decimal(23,10))/(Case When ISNULL(t5.FCoefficient,0)=0 Then 1"
           " Else t5.FCoefficient End ),t1.FQtyDecimal)), "
           " 0,Sum("
           "Round((Case v1.FTranType When 80 Then v2.FAmount  "
           " Else v2.FAmount- v2.FTaxAmount End),t6.FScale)),0,Sum("
           "Round(v2.FTaxAmount,t6.FScale)),"
           "Sum(Round(Case v1.FTranType When 80 Then (v2.FAmount + v2.FTaxAmount) "
           " Else v2.FAmount End,t6.FScale)),"
           " ##Currency## ";
  }
  return Join("'','','',"
              "'',4,4, Sum (round(v2.FQty,t1.FQtyDecimal)),"
              " '', "
              " Sum(round(cast(ISNull(v2.FQty,0) as decimal(23,10))/(Case When ISNULL(t5.FCoefficient,0)=0 Then 1"
              " Else t5.FCoefficient End ),t1.FQtyDecimal)), "
              " 0,Sum("
              "Round((Case v1.FTranType When 80 Then v2.FStdAmount  "
              " Else v2.FStdAmount- v2.FStdTaxAmount End),", d, ")),0,Sum("
              "Round(v2.FStdTaxAmount,", d, ")),"
              "Sum(Round(Case v1.FTranType When 80 Then (v2.FStdAmount + v2.FStdTaxAmount) "
              " Else v2.FStdAmount End,", d, ")),"
              " ##Currency## ");
}

Rpt126::BatchColumns Rpt126::ColumnsOfBatch() const {
  const int d = amount_scale_;
  const std::string currency_columns = Join("FCurrencyID Varchar(80) Null,\r\n"
                                            "FCurrencyName Varchar(80) Null,\r\n"
                                            "FAmountDecimal smallint default(", d, "),");
  // What the currency marks stand for. ##ER## is the rate by which a value list in bill currency comes to
  // base currency; the lists read both amounts from the invoice line and have no place for it at present.
  std::string_view rate;
  std::string values;
  std::string definitions;
  if (IsGrouped(Conditions())) {
    // Kept: the currency is no level of a grouped report, also where amounts in bill currency are asked for.
    rate = "1";
    values = Join("'',\r\n"
                  "'',\r\n",
                  d, ",");
    definitions = currency_columns;
  } else if (ShowsBillCurrency()) {
    // The base currency alongside; the row over all currencies is labelled as its total.
    rate = "1";
    values = Join("Case When Grouping(v1.FCurrencyID)=1 ",
                  ShowsAuxProp() ? "And Grouping(v2.FAuxPropID)=1 " : "",
                  "Then '", "本位币合计", "' Else cast(v1.FCurrencyID as Varchar(255)) End,\r\n"
                  "'',\r\n",
                  d, ",\r\n"
                  "Sum(Round((Case v1.FTranType When 80 Then v2.FStdAmount Else v2.FStdAmount- v2.FStdTaxAmount End),",
                  d, ")),\r\n"
                  "Sum(Round(v2.FStdTaxAmount,", d, ")),\r\n"
                  "Sum(Round(Case v1.FTranType When 80 Then (v2.FStdAmount + v2.FStdTaxAmount)  Else v2.FStdAmount End,",
                  d, ")),");
    definitions = Join(currency_columns, "\r\n"
                       "FAmountFor decimal(23,10)  Null,\r\n"
                       "FTaxAmountFor decimal(23,10) Null,\r\n"
                       "FCountAmountFor decimal(23,10) Null,");
  } else {
    rate = "ISNULL(v1.FExchangeRate,1)";
    values = Join("'','',", d, ",");
    definitions = currency_columns;
  }

  return {
      .definitions = Join(ShowsAuxProp() ? "      FAuxPropID Varchar(355) Null,\r\n"
                                           "     FAuxPropName Varchar(255),\r\n"
                                         : "",
                          Replace(column_definitions_, "##FCurrency##", definitions)),
      .values = Replace(Replace(ValueList(), "##ER##", rate), "##Currency##", values),
  };
}

DictionaryRef Rpt126::BuildByItem() const {
  const bool aux_prop = ShowsAuxProp();
  const bool bill_currency = ShowsBillCurrency();
  const BatchColumns columns = ColumnsOfBatch();
  const std::string_view aux_prop_values = aux_prop ? "Case When Grouping(v2.FAuxPropID)=1 Then -1 "
                                                      " Else v2.FAuxPropID End, "
                                                      "'',"
                                                    : "";
  const std::string_view total = aux_prop
      ? " Case  When Grouping(t1.FNumber)=0 And Grouping(v2.FAuxPropID)=1 Then 106 \r\n"
        "When Grouping(t1.FNumber)=1 And Grouping(v2.FAuxPropID)=1 Then 101 "
      : " Case When Grouping(t1.FNumber)=1 THEN 101 ";
  const std::string_view currency_total =
      bill_currency ? " When (Grouping(v1.FCurrencyID)=1 And Grouping(t1.FNumber)<>1) Then 106" : "";

  auto request = std::make_shared<Dictionary>();
  request->Set("Select", Join("Set NoCount On\r\n"
                              "Create Table #Data(\r\n",
                              columns.definitions,
                              "  Insert Into #Data  Select ", aux_prop_values, "\r\n"
                              "Case When Grouping(t1.FNumber)=1 Then '", "合计", "' \r\n"
                              " Else t1.FNumber End, \r\n",
                              columns.values, "\r\n",
                              total, currency_total, " Else 0 End \r\n",
                              from_text_, where_text_, condition_, "\r\n"));
  request->Set("GROUPBY",
               bill_currency ? Join("Group by t1.FNumber,", aux_prop ? "v2.FAuxPropID," : "", "v1.FCurrencyID With RollUp ")
                             : Join("Group by t1.FNumber", aux_prop ? ",v2.FAuxPropID" : "", " With RollUp "));
  request->Set("ITEMFILTER", item_filter_template_);
  request->Set("EndSel", Join("Update #Data Set FTaxRate=Null Where FSumSort=101 \r\n"
                              "update  t1 set t1.FAmountDecimal = (select FScale from t_Currency where FName ="
                              " replace(t1.FCurrencyName,'(小计)','')) from #DATA t1 \r\n"
                              "Select * From #Data  ", SumOnly(Conditions(), "Where FSumSort>100"), " Order by FID \r\n"
                              "DROP Table #Data  "));
  return request;
}
// clang-format on

}  // namespace salerpt
