// The frames of the sales analyses: the plain list, by a property, by class levels of items or customers.
#include <string>
#include <string_view>

#include "reports/analysis/sales_analysis.h"
#include "runtime/text.h"
#include "sqltoolkit/group_columns.h"
#include "sqltoolkit/item_level.h"

namespace salerpt {

SalesAnalysis::Frame SalesAnalysis::BuildFrame(Grouping grouping) const {
  switch (grouping) {
    case Grouping::kNone:
      return BuildPlain();
    case Grouping::kProperty:
      return BuildBySumField();
    default:
      return BuildLevels(grouping);
  }
}

// The texts stand as they are sent. The empty line behind the first is the place of a text before the batch,
// of which these reports have none.
// clang-format off

namespace {

// Which items or customers #ItemLevel is narrowed to; what becomes of it is the middle tier's. Kept: it reads
// the signed orders, as in the order statistics, whose frames these are. Sent texts do not change without
// need.
constexpr std::string_view kItemFilter =
    " FItemID In (SELECT DISTINCT ##ITEMID## FROM SEOrderEntry v2, t_ICItem t1,t_Organization t2 ,"
    "t_Currency t5 ,SEOrder v1 \r\n"
    "Left Join t_DepartMent t3 ON v1.FDeptID=t3.FItemID Left Join t_Emp t4 On v1.FEmpID=t4.FItemID \r\n"
    " WHERE v1.FInterID=v2.FInterID and v2.FItemID = t1.FItemID and v1.FCustID = t2.FItemID  \r\n"
    " ##CHECKSTATE## ##CHECKDATE## ##CHECKITEM## )";

}  // namespace

// --- The plain list

SalesAnalysis::Frame SalesAnalysis::BuildPlain() const {
  Frame frame;
  frame.select = "SET NOCOUNT ON\r\n"
                 "\r\n"
                 "CREATE TABLE #DATA(\r\n"
                 "\r\n"
                 "  INSERT INTO #DATA  \r\n"
                 " Select ";
  frame.item_filter = kItemFilter;
  // Kept: rows are put in order as in a list of bills, by date and line too. The columns are the middle
  // tier's.
  frame.end_select = Join("SELECT * FROM #DATA  ", SumOnly(Conditions(), "WHERE FSumSort>100"), "\r\n"
                          " Order by FSumSort,FDate,FNumber,Fentryid \r\n"
                          "DROP TABLE #DATA  \r\n");
  return frame;
}

// --- By a property

namespace {

// The table of the batch that holds the class: customer or item.
std::string_view TableOf(int item_class) {
  switch (item_class) {
    case 1:
      return "t2.";
    case 4:
      return "t1.";
    default:
      return "";
  }
}

}  // namespace

SalesAnalysis::Frame SalesAnalysis::BuildBySumField() const {
  const Dictionary& filter = Conditions();
  const DictionaryRef sum_field = FilterSumField(filter);
  const std::string source_table = FilterText(*sum_field, "FSrcTable");
  const std::string source_column = FilterText(*sum_field, "FSQLColumnName");

  // The group's text stands in a table of its own, or in a column of the customer or item. Kept: towards a
  // table of its own the column stands without a table. A property whose column several tables of the
  // statement have names its table itself.
  std::string value;
  std::string source_join;
  if (source_table.empty()) {
    value = Join(TableOf(FilterInt(*sum_field, "FItemClassID")), source_column);
  } else {
    value = Join(" tt2.", FilterText(*sum_field, "FDisplayField"));
    source_join = Join(" Left Join ", source_table, " tt2 On ", source_column, "=tt2.",
                       FilterText(*sum_field, "FSrcField"), "\r\n");
  }

  Frame frame;
  frame.select = Join("SET NOCOUNT ON\r\n"
                      "\r\n"
                      "CREATE TABLE #DATA(\r\n"
                      "  ", PropertyColumnName(filter), " varchar(355) null,\r\n"
                      "\r\n"
                      "  INSERT INTO #DATA  SELECT CASE "
                      "  WHEN GROUPING(", value, ")=1 THEN '" "合计" "' \r\n"
                      " WHEN GROUPING(t1.FNumber)=1 THEN CONVERT(varchar(355),", value, ")+'(" "小计" ")' \r\n"
                      " ELSE CONVERT(varchar(355),", value, ") END, \r\n"
                      " t1.FNumber, \r\n"
                      "\r\n"
                      " CASE WHEN GROUPING(", value, ")=1 THEN 101\r\n"
                      " WHEN  GROUPING(t1.FNumber)=1 THEN 102 ELSE 0 END ",
                      source_join);
  frame.group_by = Join(" GROUP BY ", value, ",t1.FNumber WITH ROLLUP ");
  frame.item_filter = kItemFilter;
  // Kept: no order here, rows stand as the rollup gives them. The columns, an identity among them or not, are
  // the middle tier's.
  frame.end_select = Join("SELECT * FROM #DATA  ", SumOnly(filter, "WHERE FSumSort>100"), "\r\n"
                          "DROP TABLE #DATA  \r\n");
  return frame;
}

// --- By class levels

struct SalesAnalysis::LevelTexts {
  std::string columns;   // column definitions of the groups
  std::string select;    // select head
  std::string group;     // group head
  std::string sum_sort;  // the cases of FSumSort
  std::string updates;   // labels behind the rollup
};

// The row where a level is rolled up is the subtotal of the level above it, so that level i has its own
// subtotal under i + 106.
SalesAnalysis::LevelTexts SalesAnalysis::LevelTextsOf(Grouping grouping, const LevelSpan& levels) {
  std::string definitions;
  std::string cases;
  std::string names;
  LevelTexts texts;
  for (int i = levels.begin; i <= levels.end; ++i) {
    Append(definitions, "FName", i, " varchar(355) Null,\r\n");
    Append(cases, "  WHEN   Grouping(tt1.FName", i, ")=1 THEN ", i + 105, "\r\n");
    Append(names, "tt1.FName", i, ",");
    Append(texts.updates,
           "Update #Data Set  FName", i, "=FName", i, "+'(" "小计" ")' WHERE FSumSort=", i + 106, "\r\n");
  }

  const int first = levels.begin + 105;
  const int last = levels.end + 106;
  switch (grouping) {
    case Grouping::kCustomerAndItemLevels:
      texts.columns = Join(" FCustName varchar(355) Null,\r\n",
                           definitions);
      texts.select = Join("SELECT "
                          " t2.FName,", names, "t1.FNumber");
      texts.group = Join(" Group By "
                         " t2.FName,", names, "t1.FNumber");
      texts.sum_sort = Join("  WHEN   Grouping(t2.FName)=1 THEN 101 \r\n",
                            cases,
                            "  WHEN   Grouping(t1.FNumber)=1 THEN ", last, "\r\n");
      Append(texts.updates, "Update #Data Set FCustName=FCustName+'(" "小计" ")' WHERE FSumSort=", first, "\r\n"
                            "Update #Data Set FCustName='" "合计" "'" " WHERE FSumSort=101\r\n");
      break;
    case Grouping::kItemLevelsAndCustomer:
      texts.columns = Join(definitions,
                           "FCustName varchar(355) Null,\r\n");
      texts.select = Join("SELECT ", names, "t2.FName,t1.FNumber");
      texts.group = Join("  Group By ", names, "t2.FName,t1.FNumber");
      texts.sum_sort = Join(cases,
                            "  WHEN   Grouping(t2.FName)=1 THEN  ", last, "\r\n"
                            "  WHEN   Grouping(t1.FNumber)=1 THEN ", last + 1, "\r\n");
      Append(texts.updates, "Update #Data Set FCustName=FCustName+'(" "小计" ")' WHERE FSumSort=", last + 1, "\r\n"
                            "Update #Data Set FName", levels.begin, "='" "合计" "' WHERE FSumSort=", first, "\r\n"
                            "Update #Data Set FSumSort=101  " " WHERE FSumSort=", first, "\r\n");
      break;
    default:
      // The row where the first level is rolled up is the grand total.
      texts.columns = definitions;
      texts.select = Join("SELECT ", names, "t1.FNumber");
      texts.group = Join(" Group By ", names, " t1.FNumber");
      texts.sum_sort = Join(cases,
                            "  WHEN   Grouping(t1.FNumber)=1 THEN ", last, "\r\n");
      Append(texts.updates, "Update #Data Set FName", levels.begin, "='" "合计" "' WHERE FSumSort=", first, "\r\n"
                            "Update #Data Set FSumSort=101  " " WHERE FSumSort=", first, "\r\n");
      break;
  }
  return texts;
}

SalesAnalysis::Frame SalesAnalysis::BuildLevels(Grouping grouping) const {
  const Dictionary& filter = Conditions();
  const LevelSpan levels = FilterLevels(filter);
  const bool by_customer = grouping == Grouping::kCustomerLevels;
  const std::string level_sql =
      by_customer ? BuildItemLevelSQL(kCustomerClass, "", FilterText(filter, "BCustNumber"),
                                      FilterText(filter, "ECustNumber"), true, levels.begin, levels.end, 0)
                  : BuildItemLevelSQL(kItemClass, "", FilterText(filter, "BItemNumber"),
                                      FilterText(filter, "EItemNumber"), true, levels.begin, levels.end, 0);
  const LevelTexts texts = LevelTextsOf(grouping, levels);

  Frame frame;
  frame.select = Join("SET NOCOUNT ON\r\n"
                      "\r\n",
                      level_sql,
                      "IF object_id('tempdb..#DATA') IS NOT NULL DROP TABLE  #DATA  "
                      " CREATE TABLE #DATA(\r\n",
                      texts.columns, "\r\n"
                      "INSERT INTO " " #DATA ", texts.select, ",\r\n"
                      "CASE\r\n",
                      texts.sum_sort,
                      "  ELSE   0 END \r\n",
                      by_customer ? " Inner Join #ItemLevel tt1 " " On t2.FItemID=tt1.FItemID"
                                  : " Inner Join #ItemLevel tt1 " " On t1.FItemID=tt1.FItemID",
                      "\r\n");
  frame.group_by = Join(texts.group, " WITH ROLLUP\r\n",
                        texts.updates);
  frame.item_filter = Replace(kItemFilter, "##ITEMID##", by_customer ? " v1.FCustID " : " v2.FItemID ");
  // Rows stand as the rollup gives them, as above.
  frame.end_select = Join("SELECT * FROM #DATA  ", SumOnly(filter, "WHERE FSumSort>100"), "\r\n"
                          "DROP TABLE #DATA  \r\n"
                          "DROP TABLE #ItemLevel\r\n");
  return frame;
}
// clang-format on

}  // namespace salerpt
