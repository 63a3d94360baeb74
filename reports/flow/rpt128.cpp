#include "reports/flow/rpt128.h"

#include <memory>
#include <utility>

#include "reports/detail_report.h"
#include "reports/flow/outbound_drill.h"
#include "runtime/mmts.h"
#include "runtime/mparse.h"
#include "runtime/mrpt.h"
#include "runtime/runtime.h"
#include "sqltoolkit/data_right.h"
#include "sqltoolkit/filter_condition.h"
#include "sqltoolkit/filter_values.h"
#include "sqltoolkit/group_columns.h"
#include "sqltoolkit/report_header.h"
#include "sqltoolkit/resort.h"

namespace salerpt {

// --- Set-up: the texts that do not depend on a filter

void Rpt128::InitProperty(std::int32_t number) {
  Report::InitProperty(number);
  item_word_ = ResText("产品");
  amount_scale_ = AmountScale();
  const int d = amount_scale_;

  item_filter_template_ = " FItemID In (SELECT DISTINCT ##ITEMID## FROM #DATA2 )";

  // Outbound lines are bills of type 21, invoices of types 80 and 86. Of the two kinds of invoice the first
  // counts its amount, the second its amount less tax, both in the base currency. The invoice half fills no
  // sale style. Kept: where a condition on the sale style meets rows of #DATA2 (report by item), invoice rows
  // fall away.
  const DataRight right = RequestDataRight({{"t_Organization", "t2"}});
  const std::string& join = right.from_text;
  const std::string invoice_join = Replace(right.from_text, "FSupplyID", "FCustID");
  const std::string invoice_where = Replace(right.where_text, "FSupplyID", "FCustID");
  // The texts stand as they are sent.
  // clang-format off
  fill_text_ = Join(
      " Create Table #DATA2 ( "
      "     FIndex int IDENTITY, \r\n"
      "     FItemID int null,\r\n"
      "     FCustID int null, \r\n"
      "     /*OTHERCOL*/\r\n"
      "     FOutQty Decimal(23,10) not null Default(0),\r\n"
      "     FOutAmount Decimal(18,",
      d,
      ") not null Default(0),\r\n"
      "     FConsignAmount Decimal(18,",
      d,
      ") not null Default(0),\r\n"
      "     FCommitQty Decimal(23,10) not null Default(0), \r\n"
      "     FCommitAmount Decimal(18,",
      d,
      ") not null Default(0),"
      "FSaleStyle  int,FSecQty decimal(23, 10) null,FSecInvoiceQty decimal(23, 10) null) \r\n"
      // Outbound lines
      "Insert Into #DATA2 (FItemID,FCustID,/*COLNAME*/FOutQty,FOutAmount,FConsignAmount,FSaleStyle,FSecQty,"
      "FSecInvoiceQty) \r\n"
      "Select v2.FItemID, v1.FSupplyID,/*COLVALUE*/ v2.FQty,round(v2.FAmount,",
      d, "),round(v2.FConsignAmount,", d,
      "),FSaleStyle,FSecQty,0 FSecInvoiceQty\r\n"
      "From ICStockBill v1\r\n"
      "Join ICStockBillEntry v2 On v1.FInterID = v2.FInterID\r\n"
      "Join t_ICItem t1 On v2.FItemID = t1.FItemID\r\n"
      "Left Join t_Organization t2 On v1.FSupplyID=t2.FItemID\r\n"
      "Left Join t_Stock t99 On v2.FDCStockID=t99.FItemID\r\n"
      "/*JOINTABLE*/\r\n",
      join,
      "\r\n"
      " Where v1.FTranType =21 \r\n"
      " ##CHECKSTOCK## "
      " ##CHECKDATE## ##CHECKITEM##\r\n",
      AndIfAny(right.where_text),
      "\r\n"
      // Invoice lines
      " Insert Into #DATA2 (FItemID,FCustID,/*COLNAME*/FCommitQty,FCommitAmount,FSecQty,FSecInvoiceQty) \r\n"
      " Select v2.FItemID,v1.FCustID,/*COLVALUE*/v2.FQty,"
      " Round(case v1.FTranType when 80 then v2.FAmount * isnull(v1.FExchangeRate,1) else "
      " (v2.FAmount - v2.FTaxAmount)* isnull(v1.FExchangeRate,1)  end,",
      d,
      "),0,v2.FSecQty\r\n"
      " FROM  ICSale v1\r\n"
      "Join ICSaleEntry v2 On v1.FInterID = v2.FInterID\r\n"
      "Join t_ICItem t1 On v2.FItemID = t1.FItemID\r\n"
      "Left Join t_Organization t2 On v1.FCustID = t2.FItemID\r\n"
      "/*JOINTABLE*/\r\n",
      invoice_join,
      "\r\n"
      " Where v1.FTranType in (80,86) \r\n"
      " ##CHECKSTATE## "
      " ##CHECKDATE## ##CHECKITEM##\r\n",
      AndIfAny(invoice_where), "\r\n");

  column_definitions_ = Join(
      "       FNumber  varchar(355) null,\r\n"
      "     FShortNumber  varchar(355) null,\r\n"
      "     FName  varchar(355) null,\r\n"
      "     FModel  varchar(355) null,\r\n"
      "     FUnitName  varchar(355) null,\r\n"
      "     FQtyDecimal smallint null, \r\n"
      "     FPriceDecimal smallint null, \r\n"
      "     FOutQty decimal(23, 10) null, \r\n"
      "     FOutAmount decimal(18,",
      d,
      ") null, \r\n"
      "     FCommitQty decimal(23, 10) null, \r\n"
      "     FCommitAmount decimal(18,",
      d,
      ") null, \r\n"
      "     FNotCommitAmount decimal(18,",
      d,
      ") null, \r\n"
      "     FNotCommitQty decimal(23, 10) null, \r\n"
      "     FConsignAmount decimal(18,",
      d,
      ") null,\r\n"
      "     FCUUnitName  varchar(355) null,\r\n"
      "     FCUUnitOutQty decimal(23, 10) null, \r\n"
      "     FCUUnitCommitQty decimal(23, 10) null, \r\n"
      "     FCUUnitNotCommitQty decimal(23, 10) null, \r\n"
      "     FSecUnitName  varchar(355) null,\r\n"
      "     FSecQty decimal(23, 10) null, \r\n"
      "     FSecInvoiceQty decimal(23, 10) null, \r\n"
      "     FSecNInvoiceQty decimal(23, 10) null, \r\n"
      "     FSumSort smallint not null Default(0), \r\n"
      "     FID int IDENTITY )\r\n");

  // Names, model and units stay blank here: the middle tier fills them from the item master.
  value_list_ =
      "'' FShortNumber,'' FName,'' FModel,'' FUnitName,4 FQtyDecimal,4 FPriceDecimal,"
      "sum(isnull(v1.FOutQty,0)) FOutQty,sum(isnull(v1.FOutAmount,0)) FOutAmount,"
      "sum(isnull(v1.FCommitQty,0)) FCommitQty,sum(isnull(v1.FCommitAmount,0)) FCommitAmount,"
      "0 FNotCommitAmount,0 FNotCommitQty,\r\n"
      "sum(isnull(v1.FConsignAmount,0)) FConsignAmount,'' FCUUnitName, \r\n"
      " SUM(ISNULL(v1.FOutQty,0)/(Case When ISNULL(t3.FCoefficient,0)=0 Then 1 Else t3.FCoefficient End ))"
      " FCUUnitOutQty, \r\n"
      " SUM(ISNULL(v1.FCommitQty,0)/(Case When ISNULL(t3.FCoefficient,0)=0 Then 1 Else t3.FCoefficient End ))"
      " FCUUnitCommitQty, \r\n"
      " 0 FCUUnitNotCommitQty,'',sum(isnull(v1.FSecQty,0)) ,sum(isnull(v1.FSecInvoiceQty,0)) ,"
      "sum(isnull(v1.FSecQty,0) - isnull(v1.FSecInvoiceQty,0)), ";
  from_text_ =
      " From #DATA2 v1\r\n"
      " Inner Join t_ICItem t1 On v1.FItemID=t1.FItemID\r\n"
      " Left Join t_Organization t2 On v1.FCustID=t2.FItemID\r\n"
      " Inner Join T_MeasureUnit t3 On t1.FSaleUnitID = t3.FMeasureUnitID\r\n";
  where_text_ = " WHERE 1=1 \r\n";
  update_text_ =
      " Update #DATA set "
      " FNotCommitAmount = isnull(FOutAmount,0) - isnull(FCommitAmount,0), "
      " FNotCommitQty = FOutQty-(case when FCommitQty is null then 0 else FCommitQty end ) \r\n"
      " Update #DATA set "
      " FCUUnitNotCommitQty = FCUUnitOutQty-(case when FCUUnitCommitQty is null then 0 else FCUUnitCommitQty "
      "end )"
      " \r\n";
  // clang-format on
}

// --- Title

void Rpt128::BuildTitle() {
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
  std::string by;
  switch (FilterInt(filter, "SumMode")) {
    case 1:
      by = Join(levels, ResText("级物料类别"));
      break;
    case 2:
      by = Join(levels, ResText("级客户类别"));
      break;
    case 3:
      by = Join(levels, ResText("级物料类别+客户"));
      break;
    case 4:
      by = Join(ResText("客户+"), levels, ResText("级物料类别"));
      break;
    case 8:
      by = Join(levels, ResText("级客户类别+客户"));
      break;
    case 9:
      by = ResText("部门");
      break;
    case 10:
      by = ResText("部门+业务员");
      break;
    case 11:
      by = ResText("客户+业务员");
      break;
    case 12:
      by = Join(ResText("业务员+客户+"), levels, ResText("级物料类别"));
      break;
    default:
      by = FilterText(*FilterSumField(filter), "FName");
      break;
  }
  AddTitle(*title_, Join(ResText("汇总依据："), by), 4);
}

// --- Condition on items, customers and sale style

void Rpt128::BuildConditions() {
  const Dictionary& filter = Conditions();
  condition_.clear();
  AppendCodeRange(condition_, filter, "BItemNumber", "EItemNumber", " AND t1.");
  AppendCommodityType(condition_, filter);
  AppendCodeRange(condition_, filter, "BCustNumber", "ECustNumber", " AND t2.");
  AppendSaleType(condition_, filter);
}

// --- Fetch

void Rpt128::FetchData() {
  header_ = std::make_shared<Vector>();
  // The user's field rights on outbound and on invoice amounts.
  const ForceHide out_amount{static_cast<std::int16_t>(AccessCheck(1008, 2, 4) ? 0 : 1)};
  const ForceHide invoice_amount{static_cast<std::int16_t>(AccessCheck(1008, 2, 16) ? 0 : 1)};
  const DictionaryRef request = BuildRequest();
  AddCommonColumns(out_amount, invoice_amount);
  ReplacePlaceholders(*request);
  request->Set("RptID", "Rpt128");

  const ObjectRef data = CreateObject("ORVMSaleRpt.Data");
  Progress().SetMsg(ResText("正在从服务器读取数据..."));
  rs_.reset();
  Variant sent = request;
  rs_ = As<Recordset>(Call(data, "GetSaleAmountData", GetPropsString(), sent));
}

// The group columns of the grouping that was asked for, and its batch.
DictionaryRef Rpt128::BuildRequest() {
  const Dictionary& filter = Conditions();
  if (!IsGrouped(filter)) return BuildByItem();
  const int sum_mode = FilterInt(filter, "SumMode");
  AddGroupColumns(sum_mode);
  switch (sum_mode) {
    case 1:
    case 3:
    case 4:
    case 12:
      return BuildByLevel(LevelKind::kItem, sum_mode);
    case 2:
    case 8:
      return BuildByLevel(LevelKind::kCustomer, sum_mode);
    case 6:
      return BuildByEmployee();
    case 7:
      return BuildBySaleStyle();
    case 9:
      return BuildByDepartment();
    case 10:
    case 11:
      return BuildWithEmployee(sum_mode);
    default:
      return BuildByProperty();
  }
}

void Rpt128::ReplacePlaceholders(Dictionary& request) const {
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
  switch (FilterInt(filter, "FROB")) {
    case 1:
      state += " AND v1.FROB=1 ";
      break;
    case 2:
      state += " AND v1.FROB=-1 ";
      break;
    default:
      break;
  }
  const std::string date = Join(
      " AND convert(datetime,convert(varchar(30),v1.FDate,111)) >='", FilterDay(filter, "BDate"), "'\r\n",
      " AND convert(datetime,convert(varchar(30),v1.FDate,111)) <='", FilterDay(filter, "EDate"), "'");

  std::string select = request.Get("SELECT").ToText();
  select = Replace(select, "##CHECKITEM##", condition_.empty() ? " " : condition_);
  select = Replace(select, "##CHECKSTATE##", state);
  select = Replace(select, "##CHECKSTOCK##", state);
  select = Replace(select, "##CHECKDATE##", date);
  request.Set("SELECT", std::move(select));
}

// --- Columns

void Rpt128::AddGroupColumns(int sum_mode) {
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
    case 9:
      columns.push_back({ResText("部门$"), "FProp01"});
      break;
    case 10:
    case 11:
      columns.push_back({ResText(Join(FilterText(*FilterSumField(filter), "FName"), "$")), "FProp01"});
      columns.push_back({ResText("业务员$"), "FEmpName"});
      break;
    case 12:
      columns.push_back({ResText("业务员$"), "FEmpName"});
      AddCustomerColumn(columns);
      AddLevelColumns(columns, filter, "级物料类别$");
      break;
    default:
      AddPropertyColumn(columns, filter);
      break;
  }
  for (GroupColumn& group : columns) {
    AddHeader(*header_, std::move(group.caption), "", ColumnType::kText, group.column, true, ForceHide{0});
  }
}

void Rpt128::AddCommonColumns(ForceHide out_amount, ForceHide invoice_amount) {
  const bool show = !(IsGrouped(Conditions()) && IsOnlySum(Conditions()));
  const auto column = [this](std::string caption, std::string_view name, ColumnType type, bool visible,
                             ForceHide force_hide = {0}) {
    AddHeader(*header_, std::move(caption), "", type, name, visible, force_hide);
  };
  using enum ColumnType;
  column(Join(item_word_, ResText("代码$")), CodeField(), kText, show);
  column(Join(item_word_, ResText("名称$")), "FName", kText, show);
  column(ResText("规格型号$"), "FModel", kText, show);
  column(ResText("单位(基本)$"), "FUnitName", kText, show);
  column(ResText("出库数量(基本)$"), "FOutQty", kQuantity, true);
  column(ResText("出库金额$"), "FOutAmount", kBaseAmount, true, out_amount);
  column(ResText("开票数量(基本)$"), "FCommitQty", kQuantity, true);
  column(ResText("开票金额$"), "FCommitAmount", kBaseAmount, true, invoice_amount);
  column(ResText("销售金额$"), "FConsignAmount", kBaseAmount, true, invoice_amount);
  column(ResText("未开票数量(基本)$"), "FNotCommitQty", kQuantity, true);
  column(ResText("单位(常用)$"), "FCUUnitName", kText, show);
  column(ResText("出库数量(常用)$"), "FCUUnitOutQty", kQuantity, true);
  column(ResText("开票数量(常用)$"), "FCUUnitCommitQty", kQuantity, true);
  column(ResText("未开票数量(常用)$"), "FCUUnitNotCommitQty", kQuantity, true);
  if (Val(ReadSystemProfile("IC", "SecUnit", "0")) != 1) return;
  column(ResText("单位(辅助)$"), "FSecUnitName", kText, show);
  column(ResText("出库数量(辅助)$"), "FSecQty", kQuantity, true);
  column(ResText("开票数量(辅助)$"), "FSecInvoiceQty", kQuantity, true);
  column(ResText("未开票数量(辅助)$"), "FSecNInvoiceQty", kQuantity, true);
}

// --- Batch by item

// The texts stand as they are sent.
// clang-format off
DictionaryRef Rpt128::BuildByItem() {
  std::string create = Join("CREATE TABLE #DATA(", column_definitions_);
  std::string insert = Join(
      "  INSERT INTO #DATA  SELECT CASE "
      "  WHEN GROUPING(t1.FNumber)=1 THEN '",
      "合计",
      "' \r\n"
      " ELSE t1.FNumber END, \r\n",
      value_list_,
      "\r\n"
      " CASE  WHEN GROUPING(t1.FNumber)=1 THEN 101 \r\n"
      " ELSE 0 END ",
      from_text_, where_text_, condition_);

  // Detail rows are copied in the asked order, the total row last.
  std::string resort;
  const std::string order_by = FilterText(Conditions(), "OrderBy");
  if (!order_by.empty()) {
    const std::string columns = ColumnsWithoutIdentity(create);
    insert = Join(Replace(create, "#DATA", "#TemData"), "\r\n", Replace(insert, "#DATA ", "#TemData "));
    update_text_ = Replace(update_text_, "#DATA", "#TemData");
    resort = Join("Insert Into #DATA Select ", columns,
                  " From #TemData \r\n"
                  "where FID<(Select Top 1 FID From #TemData Where FSumSort=101 Order By FID) Order By ",
                  order_by,
                  "\r\n"
                  "Insert Into #DATA Select ",
                  columns,
                  " From #TemData \r\n"
                  "where FID=(Select Top 1 FID From #TemData Where FSumSort=101 Order By FID) \r\n"
                  "Drop Table #TemData \r\n");
  }

  auto request = std::make_shared<Dictionary>();
  request->Set("SElECT", Join("\r\n"
                              "    SET NOCOUNT ON\r\n",
                              fill_text_, "\r\n", create, "\r\n", insert, "\r\n"));
  request->Set("GROUPBY", "Group by t1.FNumber WITH ROLLUP ");
  request->Set("Append", Join(update_text_, "\r\n", resort,
                              "\r\n"
                              "Drop Table #DATA2 \r\n"));
  request->Set("Filter", condition_);
  request->Set("EndSel", Join("SELECT * FROM #DATA  ", SumOnly(Conditions(), "WHERE FSumSort>100"),
                              "\r\n"
                              " ORDER BY FID \r\n"
                              "DROP TABLE #DATA  \r\n"));
  request->Set("ITEMFILTER", item_filter_template_);
  request->Set("NoPrice", "");
  request->Set("NoTaxRate", "");
  request->Set("NoDate", "");
  return request;
}
// clang-format on

// --- Drill-through

ObjectRef Rpt128::GetDetailReport(std::int32_t row) {
  if (!MoveToDetailRow(rs_, row, ClassName())) return nullptr;
  return OpenOutboundDetail(ClassName(), Conditions(), *rs_);
}

}  // namespace salerpt
