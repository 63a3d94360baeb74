// `Rpt128` grouped by one property, or by property and employee. The batches by sale style, employee and
// department, and those with employee, fill a #DATA2 of their own: the group's text stands in it.
#include <memory>
#include <utility>

#include "reports/flow/rpt128.h"
#include "runtime/mrpt.h"
#include "sqltoolkit/data_right.h"
#include "sqltoolkit/filter_values.h"
#include "sqltoolkit/resort.h"

namespace salerpt {
// The keys that all batches of this file share. `insert` fills #DATA; `insert_tail` is what stands behind it
// in either order.
// clang-format off
DictionaryRef Rpt128::GroupedRequest(std::string_view fill, const std::string& create, std::string insert,
                                     std::string_view insert_tail, std::string_view group_by) {
  std::string resort;
  const std::string order_by = FilterText(Conditions(), "OrderBy");
  if (!order_by.empty()) {
    const std::string columns = ColumnsWithoutIdentity(create);
    // The replacement also hits #DATA2, which is put back.
    insert = Join(Replace(create, "#DATA", "#TemData"), "\r\n",
                  Replace(Replace(insert, "#DATA", "#TemData"), "#TemData2", "#Data2"));
    update_text_ = Replace(update_text_, "#DATA", "#TemData");
    resort = Join(ResortPass(columns, order_by), "Drop Table #TemOrder  Drop Table #TemData ");
  }

  auto request = std::make_shared<Dictionary>();
  request->Set("SElECT", Join("SET NOCOUNT ON\r\n",
                              fill, "\r\n",
                              create, "\r\n",
                              insert, insert_tail));
  request->Set("GROUPBY", Join(group_by, "\r\n"));
  request->Set("Append", Join(update_text_, "\r\n", resort, "\r\n"
                              "Drop Table #DATA2 \r\n"));
  request->Set("EndSel", Join("SELECT * FROM #DATA  ", SumOnly(Conditions(), "WHERE FSumSort>100"), "\r\n"
                              " Order by FID \r\n"
                              "DROP TABLE #DATA  \r\n"));
  request->Set("ITEMFILTER", item_filter_template_);
  request->Set("NoPrice", "");
  request->Set("NoTaxRate", "");
  request->Set("NoDate", "");
  return request;
}

// --- By a property of the customer or of the item

DictionaryRef Rpt128::BuildByProperty() {
  const Dictionary& filter = Conditions();
  const DictionaryRef sum_field = FilterSumField(filter);
  const int item_class = FilterInt(*sum_field, "FItemClassID");
  const std::string source_table = FilterText(*sum_field, "FSrcTable");
  const std::string source_column = FilterText(*sum_field, "FSQLColumnName");
  const std::string property = Join("FProp", FilterText(*sum_field, "FPropID"), FilterText(*sum_field, "FItemClassID"));
  const std::string_view table = item_class == 1 ? "t2." : item_class == 4 ? "t1." : "";
  const bool by_customer = item_class == 1;

  // The group's text stands in a table of its own, or in a column of the item or customer.
  const std::string value = source_table.empty() ? Join(table, source_column)
                                                 : Join("tt2.", FilterText(*sum_field, "FDisplayField"));
  const std::string source_join =
      source_table.empty() ? std::string()
                           : Join(" Left Join ", source_table, " tt2 On ", table, source_column,
                                  "=tt2.", FilterText(*sum_field, "FSrcField"));

  const std::string create = Join("CREATE TABLE #DATA(\r\n"
                                  "FPropNumber varchar(355) null,\r\n"
                                  "  ", property, " varchar(355) null,\r\n",
                                  column_definitions_, "\r\n");
  const std::string sum_sort = Join(" CASE WHEN GROUPING(", value, ")=1 THEN 101\r\n"
                                    " WHEN  GROUPING(t1.FNumber)=1 THEN 102 ELSE 0 END ");
  // FPropNumber: the customer's number, or nothing for a property that has none.
  std::string insert = Join("INSERT INTO #DATA  SELECT ", by_customer ? "t2.FNumber," : "'',");
  std::string group_by = Join(" GROUP BY ", by_customer ? " t2.FNumber, " : "");
  if (source_table.empty()) {
    Append(group_by, " ", value, ",t1.FNumber WITH ROLLUP");
    Append(insert,
           " CASE "
           " WHEN GROUPING(", value, ")=1 THEN '", "合计", "'\r\n"
           " WHEN GROUPING(t1.FNumber)=1 THEN "
           " CONVERT(varchar(355),", value, ")+'(", "小计", ")' \r\n"
           " ELSE CONVERT(varchar(355),", value, ") END, \r\n"
           " t1.FNumber,");
  } else {
    Append(group_by, " ", value, ",t1.FNumber WITH ROLLUP ");
    Append(insert,
           "CASE WHEN   GROUPING(", value, ")=1 THEN '", "合计", "'\r\n"
           "WHEN   GROUPING(t1.FNumber)=1 THEN  CONVERT(varchar(355),", value, ")+'(", "小计", ")' \r\n"
           " ELSE CONVERT(varchar(355),", value, ") END, \r\n"
           " t1.FNumber,");
  }
  Append(insert, value_list_, sum_sort, from_text_, source_join, where_text_, "\r\n");

  // Stands whether or not a bound is set: with none, rows without a customer fall out here. Kept, the figures of this grouping have
  // always been those of known customers.
  const std::string customer_bound = Join(" AND t2.", CodeField(), ">=", QuoteSql(filter.Get("BCustNumber")));

  DictionaryRef request = GroupedRequest(fill_text_, create, std::move(insert), customer_bound, group_by);
  request->Set("Filter", condition_);
  if (!by_customer) return request;

  // The row with the customer's number and rolled-up name lends its label to the grand total and goes, as in the grouping by
  // customer and class.
  request->Set("EndSel", Join("SELECT case when charindex('合计',", property, ")>0 then '合计' else ", property,
                              " end as ", property, ",", property, " as FProp02, \r\n"
                              "FPropNumber, FNumber,FShortNumber,FName,FModel,FUnitName,FQtyDecimal,FOutQty,FOutAmount,\r\n"
                              "FCommitQty,FCommitAmount,FNotCommitAmount,FNotCommitQty,FConsignAmount,FCUUnitName,"
                              "FCuUnitOutQty,\r\n"
                              "FCuUnitCommitQty , FCuUnitNotCommitQty, FSumSort, FID,FSecUnitName,FSecQty,FSecInvoiceQty,"
                              "FSecNInvoiceQty FROM #DATA", SumOnly(Conditions(), " WHERE FSumSort>100"), "\r\n"
                              "Order by FID    \r\n"
                              "DROP TABLE #DATA  \r\n"));
  request->Set("UpdateAppend", Join("update t1 set t1.", property, "=t2.FName+t1.", property,
                                    " from  #DATA t1 inner join t_Organization t2 on t1.FPropNumber=t2.FNumber"
                                    " where t1.FSumSort=101\r\n"
                                    "declare @iMaxID int\r\n"
                                    "set @iMaxID=0 \r\n"
                                    "select @iMaxID=max(FID) from #Data\r\n"
                                    "update #Data set ", property, "=(Select top 1 ", property,
                                    " from #Data where FID<@iMaxID order by ", property, " desc) where FID=@iMaxID\r\n"
                                    "delete from #data where isnull(FPropNumber,'')<>'' and fsumsort=101\r\n"));
  return request;
}

// --- By sale style, employee, department: the group's text comes from the bill

// What differs between these batches, in the order in which the pieces are sent. What is preset here most of them share.
struct Rpt128::OwnGroup {
  std::string_view column_definition;  // of the group value in #DATA2
  std::string_view columns;            // its name in the column lists of #DATA2, with a comma behind
  std::string_view values;             // its value in both halves, with a comma behind
  std::string_view joins;              // where the value comes from
  // Customer, or department, in #DATA2 and its value in the outbound and the invoice half.
  std::string_view party_definition = "         FCustID int null, \r\n";
  std::string_view party = "FCustID";
  std::string_view out_party = "v1.FSupplyID";
  std::string_view invoice_party = "v1.FCustID";
  std::string_view stock_join = "Left Join t_Stock t99 On v2.FDCStockID=t99.FItemID \r\n";
  // Sale style: in the table, in the outbound half (name and value are one), in the invoice half.
  std::string_view style_definition = "FSaleStyle  int,";
  std::string_view out_style = "FSaleStyle,";
  std::string_view invoice_style = "FSaleStyle,";
  std::string_view invoice_style_value = "v1.FSaleStyle,";
  // The report rows.
  std::string create_columns;
  std::string_view create_end = "\r\n";
  std::string_view select;
  std::string_view sum_sort;
  std::string from;
  std::string_view group_by;
};

DictionaryRef Rpt128::BuildByOwnGroup(const OwnGroup& group) {
  const int d = amount_scale_;
  const DataRight right = RequestDataRight({{"t_Organization", "t2"}});
  const std::string invoice_join = Replace(right.from_text, "FSupplyID", "FCustID");
  const std::string invoice_where = Replace(right.where_text, "FSupplyID", "FCustID");
  const std::string fill = Join(
      "Create Table #DATA2 ( \r\n",
      group.column_definition,
      "         FIndex int IDENTITY, \r\n"
      "         FItemID int null, \r\n",
      group.party_definition,
      "         FOutQty Decimal(23,10) null, \r\n"
      "         FOutAmount Decimal(18,", d, ") null, \r\n"
      "         FConsignAmount Decimal(18,", d, ") null, \r\n"
      "         FCommitQty Decimal(23,10) null, \r\n"
      "         FCommitAmount Decimal(18,", d, ") null,", group.style_definition,
      "FSecQty decimal(23, 10) null,FSecInvoiceQty decimal(23, 10) null) \r\n"
      // Outbound lines
      "Insert Into #DATA2 (", group.columns, "FItemID,", group.party, ",FOutQty,FOutAmount,FConsignAmount,",
      group.out_style, "FSecQty,FSecInvoiceQty) \r\n"
      "Select ", group.values, "v2.FItemID, ", group.out_party, ", v2.FQty,round(v2.FAmount,", d,
      "),round(v2.FConsignAmount,", d, "),", group.out_style, "FSecQty,0 FSecInvoiceQty\r\n"
      "From ICStockBill v1 Inner Join ICStockBillEntry v2 On v1.FInterID = v2.FInterID \r\n"
      "Inner Join t_ICItem t1 On v2.FItemID = t1.FItemID \r\n",
      group.joins,
      "Left Join t_Organization t2 On v1.FSupplyID=t2.FItemID \r\n",
      group.stock_join,
      right.from_text, "\r\n"
      "Where v1.FTranType =21 \r\n"
      "  ##CHECKSTOCK##  ##CHECKDATE## ##CHECKITEM##  \r\n",
      AndIfAny(right.where_text), "\r\n"
      // Invoice lines
      "Insert Into #DATA2 (", group.columns, "FItemID,", group.party, ",FCommitQty,FCommitAmount,", group.invoice_style,
      "FSecQty,FSecInvoiceQty) \r\n"
      "Select ", group.values, "v2.FItemID,", group.invoice_party, ",v2.FQty, "
      "Round(case v1.FTranType when 80 then v2.FAmount * isnull(v1.FExchangeRate,1) else "
      " (v2.FAmount - v2.FTaxAmount)* isnull(v1.FExchangeRate,1)  end,", d, "),", group.invoice_style_value, "0,v2.FSecQty\r\n"
      "FROM  ICSale v1 Inner Join ICSaleEntry v2 On v1.FInterID = v2.FInterID \r\n"
      "Inner Join t_ICItem t1 On v2.FItemID = t1.FItemID \r\n",
      group.joins,
      "Left Join t_Organization t2 On v1.FCustID = t2.FItemID \r\n",
      invoice_join, "\r\n"
      "Where v1.FTranType in (80,86)   ##CHECKSTATE##  ##CHECKDATE## ##CHECKITEM## \r\n",
      AndIfAny(invoice_where), "\r\n");

  const std::string create = Join("CREATE TABLE #DATA(\r\n", group.create_columns, column_definitions_, group.create_end);
  std::string insert = Join(group.select, value_list_, group.sum_sort, group.from, where_text_, "\r\n");
  DictionaryRef request = GroupedRequest(fill, create, std::move(insert), "", group.group_by);
  // The re-sort line of these batches has its blanks elsewhere.
  request->Set("Append", Replace(request->Get("Append").ToText(), "From #TemOrder  order by RowId ",
                                 "From #TemOrder order by RowId  "));
  return request;
}

namespace {

std::string PropertyColumn(const Dictionary& filter) {
  const DictionaryRef sum_field = FilterSumField(filter);
  return Join("  FProp", FilterText(*sum_field, "FPropID"), FilterText(*sum_field, "FItemClassID"), " varchar(355) null,\r\n");
}

}  // namespace

// Only bills whose sale style has a name take part.
DictionaryRef Rpt128::BuildBySaleStyle() {
  return BuildByOwnGroup({
      .column_definition = "         FSaleStyleName varchar(255) null, \r\n",
      .columns = "FSaleStyleName,",
      .values = "s.FName,",
      .joins = "Inner Join t_SubMessage s On v1.FSaleStyle=s.FInterID \r\n",
      .create_columns = PropertyColumn(Conditions()),
      .select = "INSERT INTO #DATA SELECT CASE WHEN   GROUPING(v1.FSaleStyleName) =1 THEN '" "合计" "'\r\n"
                "WHEN   GROUPING(t1.FNumber)=1 THEN  CONVERT(varchar(355),v1.FSaleStyleName)+'(小计)' \r\n"
                " ELSE CONVERT(varchar(355),v1.FSaleStyleName) END,  t1.FNumber,",
      .sum_sort = " CASE WHEN GROUPING(v1.FSaleStyleName)=1 THEN 101\r\n"
                  " WHEN  GROUPING(t1.FNumber)=1 THEN 102 ELSE 0 END ",
      .from = from_text_,
      .group_by = " GROUP BY v1.FSaleStyleName,t1.FNumber WITH ROLLUP ",
  });
}

// Bills without an employee stand under an empty group.
DictionaryRef Rpt128::BuildByEmployee() {
  return BuildByOwnGroup({
      .column_definition = "         FEmpName varchar(255) null , \r\n",
      .columns = "FEmpName,",
      .values = "e.FName,",
      .joins = "Left Join t_Emp e On v1.FEmpID=e.FItemID \r\n",
      .invoice_style = "",
      .invoice_style_value = "",
      .create_columns = PropertyColumn(Conditions()),
      .select = "INSERT INTO #DATA SELECT CASE WHEN   GROUPING(v1.FEmpName) =1 THEN '" "合计" "'\r\n"
                "WHEN   GROUPING(t1.FNumber)=1 THEN  CONVERT(varchar(355),v1.FEmpName)+'(小计)' \r\n"
                " ELSE CONVERT(varchar(355),v1.FEmpName) END,  t1.FNumber,",
      .sum_sort = " CASE WHEN GROUPING(v1.FEmpName)=1 THEN 101\r\n"
                  " WHEN  GROUPING(t1.FNumber)=1 THEN 102 ELSE 0 END ",
      .from = from_text_,
      .group_by = " GROUP BY v1.FEmpName,t1.FNumber WITH ROLLUP ",
  });
}

// Bills without a department stand under an empty group. The rows of #DATA2 carry the department in place of the customer.
DictionaryRef Rpt128::BuildByDepartment() {
  return BuildByOwnGroup({
      .column_definition = "         FDeptName varchar(255) null , \r\n",
      .columns = "FDeptName,",
      .values = "d.FName,",
      .joins = "Left Join t_Department d On v1.FDeptID=d.FItemID \r\n",
      .party_definition = "         FDeptID int null, \r\n",
      .party = "FDeptID",
      .out_party = "v1.FDeptID",
      .invoice_party = "v1.FDeptID",
      .stock_join = "",
      .style_definition = "",
      .out_style = "",
      .invoice_style = "",
      .invoice_style_value = "",
      .create_columns = "  FProp01" " varchar(355) null,\r\n",
      .select = "INSERT INTO #DATA SELECT CASE WHEN   GROUPING(v1.FDeptName) =1 THEN '" "合计" "'\r\n"
                "WHEN   GROUPING(t1.FNumber)=1 THEN  ISNULL(CONVERT(varchar(355),v1.FDeptName), '')+'(小计)' \r\n"
                " ELSE CONVERT(varchar(355),v1.FDeptName) END,  t1.FNumber,",
      .sum_sort = " CASE WHEN GROUPING(v1.FDeptName)=1 THEN 101\r\n"
                  " WHEN  GROUPING(t1.FNumber)=1 THEN 102 ELSE 0 END ",
      .from = Replace(Replace(from_text_, "t_Organization", "t_Department"), "FCustID", "FDeptID"),
      .group_by = " GROUP BY v1.FDeptName,t1.FNumber WITH ROLLUP ",
  });
}

// --- By department (mode 10) or customer (mode 11), with the employee as second level

DictionaryRef Rpt128::BuildWithEmployee(int sum_mode) {
  const bool by_customer = sum_mode == 11;
  // With the customer the rollup has the number as a fourth level; the rows that only this level makes are deleted at the end. With the
  // department the number is empty and not null, so none goes.
  const std::string_view number = by_customer
      ? "CASE WHEN GROUPING(v1.FPropName) = 1 THEN '合计'"
        "WHEN   GROUPING(t1.FNumber)=1 THEN  ISNULL(CONVERT(varchar(355),t2.FNumber), '')+'(小计)'"
        "ELSE CONVERT(varchar(355),t2.FNumber) END"
      : "''";
  const std::string select = Replace(
      "INSERT INTO #DATA SELECT CASE WHEN   GROUPING(v1.FPropName) =1 THEN '" "合计" "'\r\n"
      "WHEN   GROUPING(v1.FEmpName)=1 THEN  ISNULL(CONVERT(varchar(355),v1.FPropName), '')+'(小计)' \r\n"
      " ELSE CONVERT(varchar(355),v1.FPropName) END, v1.FEmpName, ##CUSRNUMBER##,t1.FNumber,",
      "##CUSRNUMBER##", number);
  const std::string group_by = Replace(" GROUP BY v1.FPropName, v1.FEmpName, t1.FNumber ##GRUOPBYNUM## WITH ROLLUP ",
                                       "##GRUOPBYNUM##", by_customer ? ",t2.FNumber" : "");
  DictionaryRef request = BuildByOwnGroup({
      .column_definition = "         FPropName varchar(255) null , \r\n"
                           "         FEmpName varchar(255) null , \r\n",
      .columns = "FPropName,FEmpName,",
      .values = by_customer ? "t2.FName,e.FName," : "d.FName,e.FName,",
      .joins = "Left Join t_Department d On v1.FDeptID=d.FItemID \r\n"
               "Left Join t_Emp e On v1.FEmpID=e.FItemID \r\n",
      .out_party = "t2.FItemID",
      .invoice_party = "t2.FItemID",
      .create_columns = "  FProp01" " varchar(355) null,\r\n"
                        "  FEmpName" " varchar(355) null,\r\n"
                        "  FPropNumber varchar(355) null,\r\n",
      .create_end = "",
      .select = select,
      .sum_sort = " CASE WHEN GROUPING(v1.FPropName)=1 THEN 101\r\n"
                  "WHEN GROUPING(v1.FEmpName)=1 THEN 102\r\n"
                  " WHEN  GROUPING(t1.FNumber)=1 THEN 103 ELSE 0 END ",
      .from = from_text_,
      .group_by = group_by,
  });
  request->Set("EndSel", Join(" Update #Data Set FEmpName=isNULL(FEmpName, '')+'(小计)' WHERE FSumSort=103 \r\n"
                              "delete from #Data where FPropNumber is null\r\n",
                              request->Get("EndSel").ToText()));
  return request;
}
// clang-format on

}  // namespace salerpt
