// `Rpt133` grouped by customer, department, employee or another property, and by class levels of items or
// customers.
#include <memory>
#include <string>
#include <string_view>

#include "reports/flow/rpt133.h"
#include "runtime/mrpt.h"
#include "runtime/text.h"
#include "sqltoolkit/filter_values.h"
#include "sqltoolkit/group_columns.h"
#include "sqltoolkit/item_level.h"

namespace salerpt {
namespace {

// The table of the batch that holds the class: item, customer, department, employee.
std::string_view TableOf(int item_class) {
  switch (item_class) {
    case 1:
      return "t2.";
    case 2:
      return "t3.";
    case 3:
      return "t4.";
    case 4:
      return "t1.";
    default:
      return "";
  }
}

}  // namespace

// The texts stand as they are sent.
// clang-format off

// --- By a property

DictionaryRef Rpt133::BuildByProperty() const {
  const Dictionary& filter = Conditions();
  const DictionaryRef sum_field = FilterSumField(filter);
  const int item_class = FilterInt(*sum_field, "FItemClassID");
  const bool by_customer = item_class == 1;
  const std::string_view table = TableOf(item_class);
  const std::string source_table = FilterText(*sum_field, "FSrcTable");
  const std::string source_column = FilterText(*sum_field, "FSQLColumnName");
  const std::string property = PropertyColumnName(filter);

  // FPropNumber: the customer's number, or nothing for a property that has none.
  std::string insert = Join("INSERT INTO #DATA  SELECT ", by_customer ? "t2.FNumber," : "'',");
  std::string group_by = Join(" GROUP BY ", by_customer ? " t2.FNumber, " : "");
  std::string sum_sort;
  std::string from;
  std::string source_where;
  if (source_table.empty()) {
    // The group's text stands in a column of the customer, the item, the department or the employee.
    const std::string value = Join(table, source_column);
    sum_sort = Join(" CASE WHEN GROUPING(", value, ")=1 THEN 101\r\n"
                    " WHEN  GROUPING(t1.FNumber)=1 THEN 102 ELSE 0 END ");
    Append(group_by, " ", value, ",t1.FNumber WITH ROLLUP");
    Append(insert,
           " CASE "
           " WHEN GROUPING(", value, ")=1 THEN '", "合计", "'\r\n"
           " WHEN GROUPING(t1.FNumber)=1 THEN "
           " CONVERT(varchar(355),", value, ")+'(", "小计", ")' \r\n"
           " ELSE CONVERT(varchar(355),", value, ") END, \r\n"
           " t1.FNumber,");
    from = FromText();
  } else {
    // It stands in a table of its own.
    const std::string value = Join("tt2.", FilterText(*sum_field, "FDisplayField"));
    sum_sort = Join(" CASE WHEN GROUPING(", value, ")=1 THEN 101\r\n"
                    " WHEN  GROUPING(t1.FNumber)=1 THEN 102 ELSE 0 END ");
    Append(group_by, " ", value, ",t1.FNumber WITH ROLLUP ");
    Append(insert,
           "CASE WHEN   GROUPING(", value, ")=1 THEN '", "合计", "'\r\n"
           "WHEN   GROUPING(t1.FNumber)=1 THEN  CONVERT(varchar(355),", value, ")+'(", "小计", ")' \r\n"
           " ELSE CONVERT(varchar(355),", value, ") END, \r\n"
           " t1.FNumber,");
    from = FromWithSource(item_class, Join(" LEFT JOIN ", source_table, " tt2 ON ", table, source_column,
                                           "=tt2.", FilterText(*sum_field, "FSrcField")));
    // Told a second time beside the table of the property. Kept: sent texts do not change without need.
    source_where = " AND  v2.FItemID=t1.FItemID ";
  }

  auto request = std::make_shared<Dictionary>();
  request->Set("SELECT", Join("SET NOCOUNT ON\r\n"
                              "CREATE TABLE #DATA(\r\n"
                              "FPropNumber varchar(355) null,\r\n"
                              "  ", property, " varchar(355) null,\r\n",
                              column_definitions_, "\r\n",
                              insert, value_list_, sum_sort,
                              from, where_text_, source_where, condition_, "\r\n"
                              // The lower end of the customers stands here once more, also where it is open.
                              // Kept: the grouping by property has it in all summaries.
                              " AND t2.", CodeField(), ">=", QuoteSql(filter.Get("BCustNumber"))));
  request->Set("GROUPBY", Join(group_by, "\r\n"));
  request->Set("ITEMFILTER", item_filter_template_);
  request->Set("EndSel", Join("SELECT * FROM #DATA  ", SumOnly(filter, "WHERE FSumSort>100"), "\r\n"
                              " Order by FID \r\n"
                              "DROP TABLE #DATA  \r\n"));
  if (!by_customer) return request;

  // The row with the customer's number and rolled-up name is labelled "<customer>合计", lends the label to the
  // grand total and goes; the last update turns the label back to plain "合计".
  request->Set("UpdateAppend", Join("update t1 set t1.", property, "=t2.FName+t1.", property,
                                    " from  #DATA t1 inner join t_Organization t2 on t1.FPropNumber=t2.FNumber"
                                    " where t1.FSumSort=101\r\n"
                                    "declare @iMaxID int\r\n"
                                    "set @iMaxID=0 \r\n"
                                    "select @iMaxID=max(FID) from #Data\r\n"
                                    "update #Data set ", property, "=(Select top 1 ", property,
                                    " from #Data where FID<@iMaxID order by ", property, " desc) where FID=@iMaxID\r\n"
                                    "delete from #data where isnull(FPropNumber,'')<>'' and fsumsort=101\r\n"
                                    "Update #Data Set ", property, "='", "合计", "' WHERE FSumSort=101\r\n"));
  return request;
}

// The tables of the batch with the property's table behind the one that points to it: between commas a join
// sees no further than the comma.
std::string Rpt133::FromWithSource(int item_class, std::string_view source_join) const {
  switch (item_class) {
    case 1:
      return Join(FromText(), source_join);
    case 4:
      return Replace(FromText(), ",t_ICItem t1", Join(",t_ICItem t1", source_join));
    default:
      // Department and employee, or the invoice itself.
      return Replace(FromText(), ",ICSaleEntry v2", Join(source_join, ",ICSaleEntry v2"));
  }
}

// --- By class levels

struct Rpt133::LevelTexts {
  std::string columns;     // L: column definitions of the groups
  std::string select;      // S: select head
  std::string group;       // G: group head
  std::string sum_sort;    // K: the cases of FSumSort
  std::string labels;      // U: label updates
  std::string_view where;  // what #ItemLevel is joined on
};

Rpt133::LevelTexts Rpt133::LevelTextsOf(int sum_mode, int begin_level, int end_level) {
  std::string definitions;
  std::string cases;
  std::string names;
  LevelTexts texts;
  for (int i = begin_level; i <= end_level; ++i) {
    Append(definitions, "FName", i, " varchar(355) Null,\r\n");
    Append(cases, "  WHEN   Grouping(tt1.FName", i, ")=1 THEN ", i + 105, "\r\n");
    Append(names, "tt1.FName", i, ",");
    Append(texts.labels, "Update #Data Set  FName", i, "=FName", i, "+'(", "小计", ")' "
                         " WHERE FSumSort=", i + 106, "\r\n");
  }

  const int n = end_level + 1;
  // The row where the first level is rolled up is the grand total.
  const std::string total = Join("Update #Data Set FName", begin_level, "='", "合计", "'"
                                 " WHERE FSumSort=", begin_level + 105, "\r\n"
                                 "Update #Data Set FSumSort=101  "
                                 " WHERE FSumSort=", begin_level + 105, "\r\n");
  texts.where = sum_mode == 2 ? " AND t2.FItemID=tt1.FItemID" : " AND t1.FItemID=tt1.FItemID";
  switch (sum_mode) {
    case 3:
      texts.columns = Join(definitions, "FCustName varchar(355) Null,");
      texts.select = Join("SELECT ", names, "t2.FName,t1.FNumber");
      texts.group = Join("  Group By ", names, "t2.FName,t1.FNumber");
      texts.sum_sort = Join(cases, "  WHEN   Grouping(t2.FName)=1 THEN  ", n + 105,
                            "  WHEN   Grouping(t1.FNumber)=1 THEN ", n + 106);
      Append(texts.labels, "Update #Data Set FCustName=FCustName+'(", "小计", ")'"
                           " WHERE FSumSort=", n + 106, "\r\n",
                           total);
      break;
    case 4:
      texts.columns = Join("FCustNumber varchar(355) null,\r\n"
                           "FCustName varchar(355) Null,\r\n",
                           definitions);
      texts.select = Join("SELECT "
                          "t2.FNumber, t2.FName,", names, "t1.FNumber");
      texts.group = Join(" Group By "
                         "t2.FNumber, t2.FName,", names, "t1.FNumber");
      texts.sum_sort = Join("  WHEN   Grouping(t2.FName)=1 THEN 101 ", cases,
                            "  WHEN   Grouping(t1.FNumber)=1 THEN ", n + 105);
      // The row with the customer's number and rolled-up name is labelled "<customer>合计", lends the label to
      // the grand total and goes; the last update turns the label back to plain "合计".
      Append(texts.labels, "Update #Data Set FCustName=FCustName+'(", "小计", ")'"
                           " WHERE FSumSort=", begin_level + 105, "\r\n"
                           "Update #Data Set FCustName='", "合计", "'"
                           " WHERE FSumSort=101\r\n"
                           "update t1 set t1.FCustName=t2.FName+t1.FCustName from  #DATA t1 inner join t_Organization t2"
                           " on t1.FCustNumber=t2.FNumber\r\n"
                           "where t1.FSumSort=101\r\n"
                           "declare @lMaxID int\r\n"
                           "set @lMaxID=0\r\n"
                           "select @lMaxID=max(FID) from #Data\r\n"
                           "update #Data set FCustName=(Select top 1 FCustName from #Data where FID<@lMaxID order by "
                           "FCustName desc) where FID=@lMaxID\r\n"
                           "delete from #data where isnull(FCustNumber,'')<>'' and fsumsort=101\r\n"
                           "Update #Data Set FCustName='", "合计", "' WHERE FSumSort=101\r\n");
      break;
    default:
      texts.columns = definitions;
      texts.select = Join("SELECT ", names, "t1.FNumber");
      texts.group = Join(" Group By ", names, "t1.FNumber");
      texts.sum_sort = Join(cases, "  WHEN   Grouping(t1.FNumber)=1 THEN ", n + 105);
      texts.labels += total;
      break;
  }
  texts.sum_sort = Join("CASE", texts.sum_sort, "  ELSE   0 END \r\n");
  return texts;
}

DictionaryRef Rpt133::BuildByLevel(LevelKind kind, int sum_mode) const {
  const Dictionary& filter = Conditions();
  const auto [begin_level, end_level] = FilterLevels(filter);
  const bool by_customer = kind == LevelKind::kCustomer;
  const std::string level_sql =
      by_customer ? BuildItemLevelSQL(kCustomerClass, "", FilterText(filter, "BCustNumber"),
                                      FilterText(filter, "ECustNumber"), true, begin_level, end_level, 0)
                  : BuildItemLevelSQL(kItemClass, "", FilterText(filter, "BItemNumber"),
                                      FilterText(filter, "EItemNumber"), true, begin_level, end_level, 0);
  const LevelTexts texts = LevelTextsOf(sum_mode, begin_level, end_level);

  auto request = std::make_shared<Dictionary>();
  request->Set("SELECT", Join("SET NOCOUNT ON\r\n",
                              level_sql, "\r\n"
                              "CREATE TABLE #DATA(\r\n",
                              texts.columns, "\r\n",
                              column_definitions_,
                              "INSERT INTO "
                              " #DATA \r\n",
                              texts.select, ",", value_list_, texts.sum_sort,
                              FromText(), ",#ItemLevel tt1", where_text_, texts.where, condition_));
  request->Set("GROUPBY", Join(texts.group, " WITH ROLLUP\r\n"));
  request->Set("ITEMFILTER",
               Replace(item_filter_template_, "##ITEMID##", by_customer ? " v1.FCustID " : " v2.FItemID "));
  request->Set("EndSel", Join(texts.labels, "\r\n"
                              "SELECT * FROM #DATA  ", SumOnly(filter, "WHERE FSumSort>100"), "\r\n"
                              " Order by FID \r\n"
                              "DROP TABLE #DATA  \r\n"
                              "DROP TABLE #ItemLevel"));
  return request;
}
// clang-format on

}  // namespace salerpt
