#include "reports/flow/rpt129.h"

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

void Rpt129::InitProperty(std::int32_t number) {
  Report::InitProperty(number);
  item_word_ = ResText("产品");
  amount_scale_ = AmountScale();
  const int d = amount_scale_;

  item_filter_template_ = " FItemID In (Select Distinct ##ITEMID## From #DATA2) ";

  // Outbound lines are bills of type 21, invoices of types 80 and 86. Of the two kinds of invoice the first
  // counts its amount, the second its amount less tax: once in the bill's currency at that currency's scale,
  // once in the base currency.
  const DataRight right = RequestDataRight({{"t_Organization", "T2"}});
  const std::string& join = right.from_text;
  const std::string invoice_join = Replace(right.from_text, "FSupplyID", "FCustID");
  const std::string invoice_where = Replace(right.where_text, "FSupplyID", "FCustID");
  // The texts stand as they are sent.
  // clang-format off
  fill_text_ = Join(
      " Create Table #DATA2 ( \r\n"
      "      FAuxPropID varchar(355) null,\r\n"
      "     FAuxPropName Varchar(255),\r\n"
      "     FDate  datetime null,\r\n"
      "     FTranType int null, \r\n"
      "     FInterID int null, \r\n"
      "     FEntryID int null, \r\n"
      "     FBillNo varchar(355) null, \r\n"
      "     FItemID  int null,\r\n"
      "     FUnitID  int null,\r\n"
      "     FAuxOutQty decimal(23, 10) null, \r\n"
      "     FOutQty decimal(23, 10) null, \r\n"
      "     FOutAmount decimal(28,", d, ") null, \r\n"
      "     FConsignAmount decimal(28,", d, ") null,\r\n"
      "     FAuxCommitQty decimal(23, 10) null, \r\n"
      "     FCommitQty decimal(23, 10) null, \r\n"
      "     FCurrencyName varchar(355) null, \r\n"
      "     FAmountDecimal int default(", d, "), \r\n"
      "     FCommitAmount decimal(28, 10) null, \r\n"
      "     FGlCommitAmount decimal(28,", d, ") null, \r\n"
      "     FCustShortNumber varchar(355) null, \r\n"
      "     FCustNumber varchar(355) null, \r\n"
      "     FCustName varchar(355) null, \r\n"
      "     FNote varchar(355) null, \r\n"
      "     FSaleUnitPrice decimal(18, 2) null, \r\n"
      "     FDStock varchar(355) null, \r\n"
      "     FBatchNo varchar(200) null,FSecQty decimal(23, 10) null,FSecInvoiceQty decimal(23, 10) null) \r\n"
      // Outbound lines
      "Insert Into #DATA2 ( \r\n"
      "FAuxPropID,FAuxPropName,\r\n"
      "FDate,FTranType,FInterID,FEntryID,FBillNo,FItemID,FUnitID,FAuxOutQty,FOutQty,FOutAmount,\r\n"
      " FConsignAmount,FCustShortNumber, FCustNumber, FCustName,FSaleUnitPrice,FDStock,FBatchNo,FSecQty,"
      "FSecInvoiceQty) \r\n"
      "Select V2.FAuxPropID,T3.FName,v1.Fdate,v1.FTranType,v1.FInterID,v2.FEntryID,v1.FBillNo,v2.FItemID,"
      "v2.FUnitID,\r\n"
      " v2.FAuxQty,v2.FQty,round(v2.FAmount,", d, "),round(v2.FConsignAmount,", d, "), t2.FShortNumber,"
      " t2.FNumber, t2.FName, v2.FConsignPrice, t99.FName, V2.FBatchNo \r\n"
      " ,v2.FSecQty,0 \r\n"
      "     From ICStockBill v1\r\n"
      "     Join ICStockBillEntry v2 On v1.FInterID = v2.FInterID\r\n"
      "     Join t_ICItem t1 On v2.FItemID = t1.FItemID\r\n"
      "     Left Join t_Organization t2 On v1.FSupplyID = t2.FItemID\r\n"
      "     Left Join t_Stock t99 On v2.FDCStockID = t99.FItemID\r\n"
      "     Left Join t_AuxItem T3 On V2.FAuxPropID=T3.FItemID\r\n",
      join, "\r\n"
      "     Where v1.FTrantype = 21 \r\n"
      "     ##CHECKSTOCK## ##CHECKDATE## ##CHECKITEM##\r\n",
      AndIfAny(right.where_text), "\r\n"
      // Invoice lines
      "Insert Into #DATA2 ( \r\n"
      "     FAuxPropID,FAuxPropName,FDate,FTranType,FInterID,FEntryID,FBillNo,FItemID,FUnitID,\r\n"
      "     FAuxCommitQty,FCommitQty,FCurrencyName,FAmountDecimal,FCommitAmount,FGlCommitAmount,"
      " FCustShortNumber, \r\n"
      "     FCustNumber, FCustName,FBatchNo,FSecQty,FSecInvoiceQty) \r\n"
      "     Select V2.FAuxPropID,T4.FName,v1.FDate,v1.FTranType,v1.FInterID,v2.FEntryID,v1.FBillNo,\r\n"
      "     v2.FItemID,v2.FUnitID,v2.FAuxQty,v2.FQty,t3.FName,t3.FScale, \r\n"
      "     round(case v1.FTranType when 80 then v2.FAmount else (v2.FAmount - v2.FTaxAmount) end,t3.FScale),"
      " \r\n"
      "     round(case v1.FTranType when 80 then v2.FAmount*v1.FExchangeRate"
      " else (v2.FAmount - v2.FTaxAmount)*v1.FExchangeRate end,", d, "), \r\n"
      "     t2.FShortNumber, t2.FNumber, t2.FName,v2.FBatchNo\r\n"
      "     ,0,v2.FSecQty \r\n"
      "     From ICSale v1\r\n"
      "     Join ICSaleEntry v2 On v1.FInterID = v2.FInterID\r\n"
      "     Join t_ICItem t1 On v2.FItemID = t1.FItemID\r\n"
      "     Left Join t_Organization t2 On v1.FCustID = t2.FItemID\r\n"
      "     Left Join t_Currency T3 On v1.FCurrencyID=t3.FCurrencyID\r\n"
      "     Left Join t_AuxItem T4 On V2.FAuxPropID=T4.FItemID\r\n",
      invoice_join, "\r\n"
      "     Where v1.FTranType in (80,86) \r\n"
      "     ##CHECKSTATE## ##CHECKDATE## ##CHECKITEM##\r\n",
      AndIfAny(invoice_where), "\r\n");

  column_definitions_ = Join(
      "FItemID int default(0),\r\n"
      "      FAuxPropID varchar(355) null,\r\n"
      "     FAuxPropName Varchar(255),\r\n"
      "     FDate  Varchar(30) null,      \r\n"
      "     FTranType int null, \r\n"
      "     FInterID int null, \r\n"
      "     FEntryID int null, \r\n"
      "     FBillNo varchar(355) null, \r\n"
      "     FNumber  varchar(355) null,\r\n"
      "     FShortNumber  varchar(355) null,\r\n"
      "     FName  varchar(355) null,\r\n"
      "     FModel  varchar(355) null,\r\n"
      "     FUnitID  int null,\r\n"
      "     FAuxUnitName  varchar(355) null,\r\n"
      "     FUnitName  varchar(355) null,\r\n"
      "     FQtyDecimal smallint null, \r\n"
      "     FPriceDecimal smallint null, \r\n"
      "     FAuxOutQty decimal(23, 10) null, \r\n"
      "     FOutQty decimal(23, 10) null, \r\n"
      "     FOutAmount decimal(28,", d, ") null, \r\n"
      "     FConsignAmount decimal(28,", d, ") null,\r\n"
      "     FAuxCommitQty decimal(23, 10) null, \r\n"
      "     FCommitQty decimal(23, 10) null, \r\n"
      "     FCurrencyName varchar(355) null, \r\n"
      "     FAmountDecimal int default(", d, "), \r\n"
      "     FCommitAmount decimal(28, 10) null, \r\n"
      "     FGlCommitAmount decimal(28,", d, ") null, \r\n"
      "     FNote varchar(355) null, \r\n"
      "     FCUUnitName  varchar(355) null,\r\n"
      "     FCUUnitOutQty decimal(23, 10) null, \r\n"
      "     FCUUnitCommitQty decimal(23, 10) null, \r\n"
      "     FSumSort smallint not null Default(0), \r\n"
      "     FSecUnitName  varchar(355) null,\r\n"
      "     FSecQty decimal(23, 10) null, \r\n"
      "     FSecInvoiceQty decimal(23, 10) null, \r\n"
      "     FCustName varchar(355) null, \r\n"
      "     FCustNumber varchar(355) null, \r\n"
      "     FCustShortNumber varchar(355) null, \r\n"
      "     FSaleUnitPrice decimal(18, 2) null, \r\n"
      "     FDStock varchar(355) null, \r\n"
      "      FBatchNo varchar(200) null) ");

  // Names, model and units stay blank here: the update of names and the middle tier fill them.
  value_list_ = Join(
      "v1.FItemID,V1.FAuxPropID,V1.FAuxPropName,convert(varchar(10),v1.Fdate,121) as FDate,v1.FTranType,"
      "v1.FInterID,v1.FEntryID,v1.FBillNo,t1.FNumber,"
      "'','','',v1.FUnitID,'','',4,4,v1.FAuxOutQty,v1.FOutQty,"
      "round(v1.FOutAmount,", d, "),round(FConsignAmount,", d, "),"
      " v1.FAuxCommitQty,v1.FCommitQty,v1.FCurrencyName,v1.FAmountDecimal,"
      "round(v1.FCommitAmount,v1.FAmountDecimal),round(v1.FGlCommitAmount,", d, "),'',"
      " t2.FName,"
      " v1.FOutQty/(Case When ISNULL(t2.FCoefficient,0)=0 Then 1 Else t2.FCoefficient End ),"
      " v1.FCommitQty/(Case When ISNULL(t2.FCoefficient,0)=0 Then 1 Else t2.FCoefficient End ),"
      " 0"
      ",'',v1.FSecQty,v1.FSecInvoiceQty , v1.FCustName, v1.FCustNumber, v1.FCustShortNumber,"
      " v1.FSaleUnitPrice, v1.FDStock, v1.FBatchNo");
  from_text_ =
      " From  #DATA2 v1\r\n"
      "Join t_ICItem t1 On v1.FItemID=t1.FItemID\r\n"
      "Left Join t_MeasureUnit t2 On t1.FSaleUnitID =t2.FMeasureUnitID";
  where_text_ = " Where 1=1 ";

  // The update of names, then four sections in comment marks; the fetch opens those that the filter asks for.
  // A quantity is rounded line by line to the item's decimals before it is summed by item or by day, so that
  // a subtotal is the sum of what the lines show; the totals sum the raw values.
  append_text_ =
      " Update t1 SET t1.FName=t2.FName,t1.FShortNumber=t2.FShortNumber,t1.FModel=t2.FModel,"
      "t1.FAuxUnitName = u1.FName,"
      " t1.FUnitName=t3.FName,t1.FQtyDecimal=t2.FQtyDecimal,t1.FPriceDecimal=t2.FPriceDecimal,"
      "t1.FSecUnitName= (case when ISNULL(t4.FName,'') = '' then '' when t4.FName = '*' then ''"
      " else t4.FName end) "
      " From #DATA t1,t_ICItem t2 left join t_MeasureUnit t4 on t2.FSecUnitID = t4.FMeasureUnitID"
      " ,t_MeasureUnit t3,t_MeasureUnit u1 "
      " Where t1.FItemID=t2.FItemID "
      " And t2.FUnitGroupID=t3.FUnitGroupID "
      " And t3.FStAndard=1 And u1.FMeasureUnitID = t1.FUnitID\r\n"
      " Drop Table #DATA2 \r\n"
      // Subtotals by item
      " /*##chkShowItemSum## Insert Into #Data(FNumber,FName,FAuxOutQty,FOutQty,FoutAmount,FConsignAmount,"
      "FAuxCommitQty,FCommitQty,FCommitAmount,FGlCommitAmount,FCUUnitOutQty,FCUUnitCommitQty,FSumSort,"
      "FSecQty,FSecInvoiceQty )"
      " Select FNumber,Fname + '(" "小计" ")', sum(round(isnull(v1.FAuxOutQty,0),FQtyDecimal)),"
      " sum(round(isnull(v1.FOutQty,0),FQtyDecimal)),"
      " sum(isnull(v1.FOutAmount,0)),sum(isnull(v1.FConsignAmount,0)),"
      "sum(round(isnull(v1.FAuxCommitQty,0),FQtyDecimal)),"
      " sum(round(isnull(v1.FCommitQty,0),FQtyDecimal)),sum(isnull(v1.FCommitAmount,0)),"
      "sum(isnull(v1.FGlCommitAmount,0)),Sum(round(isnull(v1.FCUUnitOutQty,0),FQtyDecimal)),"
      "Sum(round(isnull(v1.FCUUnitCommitQty,0),FQtyDecimal)),100"
      " ,Sum(round(isnull(v1.FSecQty,0),FQtyDecimal)),Sum(round(isnull(v1.FSecInvoiceQty,0),FQtyDecimal))"
      " From #Data v1 group by FNumber,Fname ##chkShowItemSum##*/ \r\n"
      // Subtotals by day. Kept: where both kinds are asked for, the item subtotals, which have no day, are
      // summed here once more under a label without a day, and all of it enters the total below.
      " /*##chkShowDateSum## Insert Into #Data(FNumber,FName,FDate,FAuxOutQty,FOutQty,FoutAmount,"
      "FConsignAmount,FAuxCommitQty,FCommitQty,FCommitAmount,FGlCommitAmount,FCUUnitOutQty,FCUUnitCommitQty,"
      "FSumSort,FSecQty,FSecInvoiceQty )"
      " Select '','',isnull(FDate,'') + '(" "小计" ")', sum(round(isnull(v1.FAuxOutQty,0),FQtyDecimal)),"
      " sum(round(isnull(v1.FOutQty,0),FQtyDecimal)),"
      " sum(isnull(v1.FOutAmount,0)),sum(isnull(v1.FConsignAmount,0)),"
      "sum(round(isnull(v1.FAuxCommitQty,0),FQtyDecimal)),"
      " sum(round(isnull(v1.FCommitQty,0),FQtyDecimal)),sum(isnull(v1.FCommitAmount,0)),"
      "sum(isnull(v1.FGlCommitAmount,0)),Sum(round(isnull(v1.FCUUnitOutQty,0),FQtyDecimal)),"
      "Sum(round(isnull(v1.FCUUnitCommitQty,0),FQtyDecimal)),100"
      " ,Sum(round(isnull(v1.FSecQty,0),FQtyDecimal)),Sum(round(isnull(v1.FSecInvoiceQty,0),FQtyDecimal))"
      " From #Data v1 group by FDate ##chkShowDateSum##*/ \r\n"
      // Total where no day is summed: of the lines, or of the item subtotals where there are any
      " /*##chkShowNotDateSum## Insert Into #Data(FName,FAuxOutQty,FOutQty,FoutAmount,FConsignAmount,"
      "FAuxCommitQty,FCommitQty,FCommitAmount,FGlCommitAmount,FCUUnitOutQty,FCUUnitCommitQty,FSumSort,"
      "FSecQty,FSecInvoiceQty )"
      " Select '" "合计" "', sum(isnull(v1.FAuxOutQty,0)),"
      " sum(isnull(v1.FOutQty,0)),"
      " sum(isnull(v1.FOutAmount,0)),sum(isnull(v1.FConsignAmount,0)),"
      "sum(isnull(v1.FAuxCommitQty,0)),"
      " sum(isnull(v1.FCommitQty,0)),sum(isnull(v1.FCommitAmount,0)),"
      "sum(isnull(v1.FGlCommitAmount,0)),Sum(isnull(v1.FCUUnitOutQty,0)),"
      "Sum(isnull(v1.FCUUnitCommitQty,0)),101"
      " ,Sum(isnull(v1.FSecQty,0)),Sum(isnull(v1.FSecInvoiceQty,0))"
      " From #DATA v1 where 1 = 1 /*##chkShowItemSum## and FSumSort = 100 ##chkShowItemSum##*/"
      " ##chkShowNotDateSum##*/ \r\n"
      // Total of the subtotals by day
      " /*##chkShowDateSum## Insert Into #Data(FDate,FAuxOutQty,FOutQty,FoutAmount,FConsignAmount,"
      "FAuxCommitQty,FCommitQty,FCommitAmount,FGlCommitAmount,FCUUnitOutQty,FCUUnitCommitQty,FSumSort,"
      "FSecQty,FSecInvoiceQty )"
      " Select '" "合计" "', sum(isnull(v1.FAuxOutQty,0)),"
      " sum(isnull(v1.FOutQty,0)),"
      " sum(isnull(v1.FOutAmount,0)),sum(isnull(v1.FConsignAmount,0)),"
      "sum(isnull(v1.FAuxCommitQty,0)),"
      " sum(isnull(v1.FCommitQty,0)),sum(isnull(v1.FCommitAmount,0)),"
      "sum(isnull(v1.FGlCommitAmount,0)),Sum(isnull(v1.FCUUnitOutQty,0)),"
      "Sum(isnull(v1.FCUUnitCommitQty,0)),101"
      " ,Sum(isnull(v1.FSecQty,0)),Sum(isnull(v1.FSecInvoiceQty,0))"
      " From #DATA v1 where 1 = 1 and FSumSort = 100 ##chkShowDateSum##*/ ";
  // clang-format on
}

void Rpt129::PrepareDialog(FilterDialog& dialog) {
  Report::PrepareDialog(dialog);
  dialog.SetNeedGroup(0);
}

// --- Title

void Rpt129::BuildTitle() {
  const Dictionary& filter = Conditions();
  TitleLines lines;
  lines.Add(Join(ResText("起始日期："), FilterText(filter, "BDate")));
  lines.Add(Join(ResText("截止日期："), FilterText(filter, "EDate")));
  lines.Add(Join(item_word_, ResText("代码范围："),
                 RangeCaption(FilterText(filter, "BItemNumber"), FilterText(filter, "EItemNumber"),
                              Join(ResText("所有"), item_word_))));
  lines.AddRange("批号范围：", filter, "BBatchNo", "EBatchNo", "所有");
  lines.AddNarrowRange("客户代码范围：", "客户代码范围: ", filter, "BCustNumber", "ECustNumber", "所有客户");
  title_ = lines.Lines();
  if (!IsGrouped(filter)) return;

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
    default:
      by = FilterText(*FilterSumField(filter), "FName");
      break;
  }
  lines.Add(Join(ResText("汇总依据："), by));
}

// --- Condition on items, customers, sale style and batches

void Rpt129::BuildConditions() {
  const Dictionary& filter = Conditions();
  condition_.clear();
  AppendCodeRange(condition_, filter, "BItemNumber", "EItemNumber", " And t1.");
  AppendCommodityType(condition_, filter);
  AppendCodeRange(condition_, filter, "BCustNumber", "ECustNumber", " And t2.");
  AppendSaleType(condition_, filter);
  AppendBound(condition_, filter, "BBatchNo", " And v2.FBatchNo>=");
  AppendBound(condition_, filter, "EBatchNo", " And v2.FBatchNo<=");
}

// --- Fetch

void Rpt129::FetchData() {
  header_ = std::make_shared<Vector>();
  if (IsGrouped(Conditions())) AddGroupColumns();
  AddCommonColumns();

  const DictionaryRef request = BuildRequest();
  ReplacePlaceholders(*request);
  request->Set("Append", Join(ToggledAppendText(), "\r\n"));
  request->Set("NoPrice", "");
  request->Set("NoTaxRate", "");
  request->Set("NoDate", "");
  request->Set("RptID", "Rpt129");

  const ObjectRef data = CreateObject("ORVMSaleRpt.Data");
  Progress().SetMsg(ResText("正在从服务器读取数据..."));
  rs_.reset();
  Variant sent = request;
  rs_ = As<Recordset>(Call(data, "GetSaleDetailData", GetPropsString(), sent));
}

DictionaryRef Rpt129::BuildRequest() const {
  const Dictionary& filter = Conditions();
  if (!IsGrouped(filter)) return BuildDetail();
  const int sum_mode = FilterInt(filter, "SumMode");
  switch (sum_mode) {
    case 1:
    case 2:
    case 3:
    case 4:
      return BuildByLevel(sum_mode);
    default:
      return BuildByProperty();
  }
}

void Rpt129::ReplacePlaceholders(Dictionary& request) const {
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
  switch (FilterInt(filter, "FROB")) {
    case 1:
      state += " And v1.FROB=1 ";
      break;
    case 2:
      state += " And v1.FROB=-1 ";
      break;
    default:
      break;
  }
  const std::string date = Join(
      " And convert(datetime,convert(varchar(30),v1.FDate,111)) >='", FilterDay(filter, "BDate"), "'\r\n",
      " And convert(datetime,convert(varchar(30),v1.FDate,111)) <='", FilterDay(filter, "EDate"), "'");

  std::string select = request.Get("Select").ToText();
  select = Replace(select, "##CHECKITEM##", condition_.empty() ? " " : condition_);
  select = Replace(select, "##CHECKSTATE##", state);
  select = Replace(select, "##CHECKSTOCK##", state);
  select = Replace(select, "##CHECKDATE##", date);
  request.Set("Select", std::move(select));
}

// --- Columns

void Rpt129::AddGroupColumns() {
  const Dictionary& filter = Conditions();
  GroupColumns columns;
  switch (FilterInt(filter, "SumMode")) {
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
    AddHeader(*header_, std::move(group.caption), "", ColumnType::kText, group.column, true, ForceHide{0});
  }
}

void Rpt129::AddCommonColumns() {
  const Dictionary& filter = Conditions();
  const bool show = !(IsGrouped(filter) && IsOnlySum(filter));
  // The user's field rights on outbound and on invoice amounts.
  const ForceHide out_amount{static_cast<std::int16_t>(AccessCheck(1008, 2, 4) ? 0 : 1)};
  const ForceHide invoice_amount{static_cast<std::int16_t>(AccessCheck(1008, 2, 16) ? 0 : 1)};
  const bool has_secondary_unit = Val(ReadSystemProfile("IC", "SecUnit", "0")) == 1;
  const auto column = [this](std::string caption, std::string_view name, ColumnType type, bool visible,
                             ForceHide force_hide = {0}) {
    AddHeader(*header_, std::move(caption), "", type, name, visible, force_hide);
  };
  using enum ColumnType;
  // A day's subtotal reads "2024-01-31(小计)", which is no date.
  column(ResText("日期$"), "FDate", ShowsDateSum() ? kText : kDate, true);
  column(ResText("单据号码$"), "FBillNo", kText, true);
  column(ResText("客户代码$"), Runtime::Current().gLongNumber ? "FCustNumber" : "FCustShortNumber", kText,
         true);
  column(ResText("客户名称$"), "FCustName", kText, true);
  column(Join(item_word_, ResText("代码$")), CodeField(), kText, show);
  column(Join(item_word_, ResText("名称$")), "FName", kText, show);
  column(ResText("规格型号$"), "FModel", kText, show);
  column(ResText("发货仓库$"), "FDStock", kText, true);
  if (FilterNumber(filter, "AuxProp") == 1) column(ResText("辅助属性$"), "FAuxPropName", kText, true);
  column(ResText("批号$"), "FBatchNo", kText, true);
  column(ResText("单位$"), "FAuxUnitName", kText, show);
  column(ResText("单位(基本)$"), "FUnitName", kText, show);
  column(ResText("出库数量$"), "FAuxOutQty", kQuantity, true);
  column(ResText("出库数量(基本)$"), "FOutQty", kQuantity, true);
  column(ResText("出库金额(本位币)$"), "FOutAmount", kBaseAmount, true, out_amount);
  column(ResText("开票数量$"), "FAuxCommitQty", kQuantity, true);
  column(ResText("开票数量(基本)$"), "FCommitQty", kQuantity, true);
  column(ResText("单位(常用)$"), "FCUUnitName", kText, show);
  column(ResText("出库数量(常用)$"), "FCUUnitOutQty", kQuantity, true);
  column(ResText("开票数量(常用)$"), "FCUUnitCommitQty", kQuantity, true);
  if (has_secondary_unit) {
    column(ResText("单位(辅助)$"), "FSecUnitName", kText, show);
    column(ResText("出库数量(辅助)$"), "FSecQty", kQuantity, true);
    column(ResText("开票数量(辅助)$"), "FSecInvoiceQty", kQuantity, true);
  }
  column(ResText("币别$"), "FCurrencyName", kText, true);
  column(ResText("销售单价$"), "FSaleUnitPrice", kPrice, true);
  column(ResText("销售金额(本位币)$"), "FConsignAmount", kBaseAmount, true, invoice_amount);
  column(ResText("开票金额$"), "FCommitAmount", kAmount, true, invoice_amount);
  column(ResText("开票金额(本位币)$"), "FGlCommitAmount", kBaseAmount, true, invoice_amount);
}

}  // namespace salerpt
