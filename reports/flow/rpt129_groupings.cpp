// `Rpt129` summed by class levels of items or customers, by item class and customer, or by one property. The
// rows keep the columns of the bill lines; what belongs to one line alone is blank or 0.
#include <memory>
#include <string>

#include "reports/flow/rpt129.h"
#include "runtime/mrpt.h"
#include "runtime/runtime.h"
#include "runtime/text.h"
#include "sqltoolkit/filter_values.h"
#include "sqltoolkit/group_columns.h"
#include "sqltoolkit/item_level.h"

namespace salerpt {

// The texts of this file stand as they are sent.
// clang-format off

// The values of the report's own columns, in their order. `sum_sort` are the cases of FSumSort. Grouped by
// customer the rows name it; one name may stand for several numbers, of which the largest is shown.
std::string Rpt129::GroupedValueList(std::string_view sum_sort, bool by_customer) const {
  const int d = amount_scale_;
  return Join(
      "0,'','','',0,0,0,'',t1.FNumber,"
      "'','','',0,'','',4,4,Sum(v1.FAuxOutQty),Sum(v1.FOutQty),"
      "Sum(round(v1.FOutAmount,", d, ")),Sum(round(FConsignAmount,", d, ")),"
      " Sum(v1.FAuxCommitQty),Sum(v1.FCommitQty),'',0,"
      "Sum(round(v1.FCommitAmount,v1.FAmountDecimal)),Sum(round(v1.FGlCommitAmount,", d, ")),'',"
      " '',"
      " Sum(v1.FOutQty/(Case When ISNULL(t2.FCoefficient,0)=0 Then 1 Else t2.FCoefficient End )),"
      " Sum(v1.FCommitQty/(Case When ISNULL(t2.FCoefficient,0)=0 Then 1 Else t2.FCoefficient End )),",
      sum_sort,
      ",'',Sum(v1.FSecQty),Sum(v1.FSecInvoiceQty) ,",
      by_customer ? " v1.FCustName, Max(v1.FCustNumber), Max(v1.FCustShortNumber)," : " '', '', '',",
      " 0, '', ''");
}

// --- By class levels

struct Rpt129::LevelTexts {
  std::string columns;   // column definitions of the levels
  std::string names;     // their names, each with a comma behind
  std::string group;     // group head
  std::string sum_sort;  // the cases of FSumSort
  std::string labels;    // label updates
};

Rpt129::LevelTexts Rpt129::LevelTextsOf(int sum_mode, int begin_level, int end_level) {
  LevelTexts texts;
  std::string cases;
  for (int i = begin_level; i <= end_level; ++i) {
    Append(texts.columns, "FName", i, " varchar(355) Null,\r\n");
    Append(texts.names, "tt1.FName", i, ",");
    Append(cases, "  WHEN   Grouping(tt1.FName", i, ")=1 THEN ", i + 105, "\r\n");
    Append(texts.labels, "Update #Data Set  FName", i, "=FName", i, "+'(" "小计" ")' "
                         " Where FSumSort=", i + 106, "\r\n");
  }

  const int n = end_level + 1;
  const auto total = [begin_level](std::string& labels) {
    Append(labels, "Update #Data Set FName", begin_level, "='" "合计" "'"
                   " WHERE FSumSort=", begin_level + 105, "\r\n"
                   "Update #Data Set FSumSort=101  "
                   " WHERE FSumSort=", begin_level + 105, "\r\n");
  };
  switch (sum_mode) {
    case 3:
      texts.group = Join("  Group By ", texts.names, "v1.FCustName,t1.FNumber");
      texts.sum_sort = Join("CASE", cases,
                            "  WHEN   Grouping(v1.FCustName)=1 THEN  ", n + 105,
                            "  WHEN   Grouping(t1.FNumber)=1 THEN ", n + 106,
                            "  ELSE   0 END \r\n");
      Append(texts.labels, "Update #Data Set FCustName=FCustName+'(" "小计" ")'"
                           " WHERE FSumSort=", n + 106, "\r\n");
      total(texts.labels);
      // Behind the total: only there a row has the code.
      Append(texts.labels, "Update #Data Set FCustName='" "合计" "'"
                           " Where FSumSort=101\r\n");
      break;
    case 4:
      texts.group = Join(" Group By ", "v1.FCustName,", texts.names, "t1.FNumber");
      texts.sum_sort = Join("CASE",
                            "  WHEN   Grouping(v1.FCustName)=1 THEN 101 ",
                            cases,
                            "  WHEN   Grouping(t1.FNumber)=1 THEN ", n + 105,
                            "  ELSE   0 END \r\n");
      Append(texts.labels, "Update #Data Set FCustName=FCustName+'(" "小计" ")'"
                           " WHERE FSumSort=", begin_level + 105, "\r\n"
                           "Update #Data Set FCustName='" "合计" "'"
                           " Where FSumSort=101\r\n");
      break;
    default:
      texts.group = Join(" Group By ", texts.names, "t1.FNumber");
      texts.sum_sort = Join("CASE", cases,
                            "  WHEN   Grouping(t1.FNumber)=1 THEN ", n + 105,
                            "  ELSE   0 END \r\n");
      total(texts.labels);
      break;
  }
  return texts;
}

DictionaryRef Rpt129::BuildByLevel(int sum_mode) const {
  const Dictionary& filter = Conditions();
  const auto [begin_level, end_level] = FilterLevels(filter);
  const bool by_customer_class = sum_mode == 2;
  const std::string level_sql =
      by_customer_class ? BuildItemLevelSQL(kCustomerClass, "", FilterText(filter, "BCustNumber"),
                                            FilterText(filter, "ECustNumber"), true, begin_level, end_level, 0)
                        : BuildItemLevelSQL(kItemClass, "", FilterText(filter, "BItemNumber"),
                                            FilterText(filter, "EItemNumber"), true, begin_level, end_level, 0);
  const LevelTexts texts = LevelTextsOf(sum_mode, begin_level, end_level);

  auto request = std::make_shared<Dictionary>();
  // Kept: the levels are joined on the item in every grouping. Customer classes hold no items, so a report
  // grouped by them has no rows; the outbound summary is what groups by them.
  request->Set("Select", Join("SET NOCOUNT ON\r\n",
                              fill_text_, "\r\n",
                              level_sql, "\r\n"
                              "CREATE TABLE #DATA(\r\n",
                              texts.columns, "\r\n",
                              column_definitions_, "\r\n"
                              "INSERT INTO " " #DATA " "\r\n"
                              "SELECT ", texts.names,
                              GroupedValueList(texts.sum_sort, sum_mode == 3 || sum_mode == 4),
                              from_text_, "\r\n"
                              "Join #ItemLevel tt1 On t1.FItemID=tt1.FItemID",
                              where_text_));
  request->Set("GROUPBY", Join(texts.group, " WITH ROLLUP\r\n"));
  request->Set("EndSel", Join(texts.labels, "\r\n"
                              "Select * From #DATA  ", SumOnly(filter, "Where FSumSort>=101"), "\r\n"
                              "DROP TABLE #DATA  \r\n"
                              "DROP TABLE #ItemLevel"));
  request->Set("ITEMFILTER", Replace(item_filter_template_, "##ITEMID##",
                                     by_customer_class ? " v1.FCustID " : " v2.FItemID "));
  return request;
}

// --- By a property of the customer or of the item

DictionaryRef Rpt129::BuildByProperty() const {
  const Dictionary& filter = Conditions();
  const DictionaryRef sum_field = FilterSumField(filter);
  const int item_class = FilterInt(*sum_field, "FItemClassID");
  const std::string source_table = FilterText(*sum_field, "FSrcTable");
  const std::string source_column = FilterText(*sum_field, "FSQLColumnName");

  // The bill lines carry the customer's name themselves; its other properties stand in its master row.
  const bool of_customer = item_class == kCustomerClass;
  const bool by_customer = of_customer && source_table.empty() && EqualNames(source_column, "FName");
  const std::string_view prefix = of_customer ? "t3." : item_class == kItemClass ? "t1." : "";
  const std::string column = by_customer ? "v1.FCustName" : Join(prefix, source_column);
  const std::string_view customer_join =
      of_customer && !by_customer ? " Left Join t_Organization t3 On v1.FCustNumber=t3.FNumber" : "";
  // Stands whether or not a bound is set: with none, lines without a customer fall out here. Kept, the figures
  // of this grouping have always been those of known customers.
  const std::string customer_bound =
      Join(Runtime::Current().gLongNumber ? " AND v1.FCustNumber>=" : " AND v1.FCustShortNumber>=",
           QuoteSql(filter.Get("BCustNumber")));

  // The group's text stands in a column, or in a table of its own that the column points to.
  std::string insert;
  std::string group_by;
  if (source_table.empty()) {
    const std::string sum_sort = Join(" CASE WHEN GROUPING(", column, ")=1 THEN 101\r\n"
                                      " WHEN  GROUPING(t1.FNumber)=1 THEN 102 ELSE 0 END ");
    insert = Join(" Insert Into #DATA  Select CASE "
                  " WHEN GROUPING(", column, ")=1 THEN '" "合计" "'\r\n"
                  " WHEN GROUPING(t1.FNumber)=1 THEN "
                  " CONVERT(varchar(355),", column, ")+'(" "小计" ")' \r\n"
                  " ELSE CONVERT(varchar(355),", column, ") END, \r\n",
                  GroupedValueList(sum_sort, by_customer),
                  from_text_, customer_join,
                  where_text_, "\r\n",
                  customer_bound);
    group_by = Join(" GROUP BY " " ", column, ",t1.FNumber WITH ROLLUP\r\n");
  } else {
    const std::string display = FilterText(*sum_field, "FDisplayField");
    const std::string sum_sort = Join(" CASE WHEN GROUPING(tt2.", display, ")=1 THEN 101\r\n"
                                      " WHEN  GROUPING(t1.FNumber)=1 THEN 102 ELSE 0 END ");
    insert = Join("Insert Into #DATA Select CASE WHEN   GROUPING(tt2.", display, ")=1 THEN '" "合计" "'\r\n"
                  "WHEN   GROUPING(t1.FNumber)=1 THEN  CONVERT(varchar(355),tt2.", display, ")+'("
                  "小计" ")' \r\n"
                  " ELSE CONVERT(varchar(355),tt2.", display, ") END, \r\n",
                  GroupedValueList(sum_sort, by_customer),
                  from_text_, customer_join,
                  " Left Join ", source_table, " tt2 On ", column, "=tt2.", FilterText(*sum_field, "FSrcField"),
                  where_text_, "\r\n",
                  customer_bound);
    group_by = Join(" GROUP BY " " tt2.", display, ",t1.FNumber WITH ROLLUP \r\n");
  }

  auto request = std::make_shared<Dictionary>();
  request->Set("Select", Join("SET NOCOUNT ON\r\n",
                              fill_text_, "\r\n"
                              "CREATE TABLE #DATA(\r\n"
                              "  ", PropertyColumnName(filter), " varchar(355) null,\r\n",
                              column_definitions_, "\r\n",
                              insert));
  request->Set("GROUPBY", group_by);
  request->Set("EndSel", Join("Select * From #DATA  ", SumOnly(filter, "Where FSumSort>=101"), "\r\n"
                              "DROP TABLE #DATA  \r\n"));
  request->Set("Filter", condition_);
  request->Set("ITEMFILTER", item_filter_template_);
  return request;
}
// clang-format on

}  // namespace salerpt
