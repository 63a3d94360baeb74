// The frames of `Rpt300`: the plain list, by a property, by class levels of items or customers.
#include <string>
#include <string_view>

#include "reports/order/rpt300.h"
#include "runtime/text.h"
#include "sqltoolkit/group_columns.h"
#include "sqltoolkit/item_level.h"

namespace salerpt {

// The texts stand as they are sent. The empty line behind the first is the place of a text before the batch,
// of which this report has none.
// clang-format off

// --- The plain list

Rpt300::Frame Rpt300::BuildPlain() const {
  Frame frame;
  frame.select = "SET NOCOUNT ON\r\n"
                 "\r\n"
                 "Create Table #Data(\r\n"
                 " Insert Into #Data  \r\n"
                 " Select ";
  frame.item_filter = item_filter_template_;
  frame.end_select = Join("Select * From #Data  ", SumOnly(Conditions(), "WHERE FSumSort>100"), "\r\n"
                          " Order by FSumSort,FDate,FNumber,Fentryid \r\n"
                          "DROP Table #Data  \r\n");
  return frame;
}

// --- By a property

namespace {

// The table of the batch that holds the class: customer, employee, item, or the order itself.
std::string_view TableOf(int item_class) {
  switch (item_class) {
    case 1:
      return "t2.";
    case 3:
      return "t4.";
    case 4:
      return "t1.";
    case 29:
      return "v1.";
    default:
      return "";
  }
}

}  // namespace

Rpt300::Frame Rpt300::BuildBySumField() const {
  const Dictionary& filter = Conditions();
  const DictionaryRef sum_field = FilterSumField(filter);
  const std::string source_table = FilterText(*sum_field, "FSrcTable");
  const std::string source_column = FilterText(*sum_field, "FSQLColumnName");

  // The group's text stands in a table of its own, or in a column of the customer, employee, item or order.
  // Kept: towards a table of its own the column stands without a table. A property whose column several tables
  // of the statement have names its table itself.
  std::string value;
  std::string source_join;
  if (source_table.empty()) {
    value = Join(TableOf(FilterInt(*sum_field, "FItemClassID")), source_column);
  } else {
    value = Join(" tt2.", FilterText(*sum_field, "FDisplayField"));
    source_join = Join("Left Join ", source_table, " tt2 On ", source_column, "=tt2.",
                       FilterText(*sum_field, "FSrcField"), "\r\n");
  }

  Frame frame;
  frame.select = Join("SET NOCOUNT ON\r\n"
                      "\r\n"
                      "CREATE TABLE #DATA(\r\n"
                      "  ", PropertyColumnName(filter), " varchar(355) null,\r\n"
                      "\r\n"
                      "Insert Into #Data Select CASE "
                      "  WHEN GROUPING(", value, ")=1 THEN '" "合计" "' \r\n"
                      " WHEN GROUPING(t1.FNumber)=1 THEN CONVERT(varchar(355),", value, ")+'(" "小计" ")' \r\n"
                      " ELSE CONVERT(varchar(355),", value, ") END, \r\n"
                      " t1.FNumber, \r\n"
                      "\r\n"
                      " CASE WHEN GROUPING(", value, ")=1 THEN 101\r\n"
                      " WHEN  GROUPING(t1.FNumber)=1 THEN 102 ELSE 0 END ",
                      source_join);
  frame.group_by = Join(" GROUP BY ", value, ",t1.FNumber WITH ROLLUP ");
  frame.item_filter = item_filter_template_;
  frame.end_select = Join("SELECT * FROM #DATA  ", SumOnly(filter, "WHERE FSumSort>100"), "\r\n"
                          " Order by FID \r\n"
                          "DROP TABLE #DATA  \r\n");
  return frame;
}

// --- By class levels

struct Rpt300::LevelTexts {
  std::string columns;   // column definitions of the groups
  std::string select;    // select head, behind "Select"
  std::string group;     // group head
  std::string sum_sort;  // the cases of FSumSort
  std::string updates;   // labels behind the rollup
};

// The row where a level is rolled up is the subtotal of the level above it, so that level i has its own
// subtotal under i + 106.
Rpt300::LevelTexts Rpt300::LevelTextsOf(Grouping grouping, const LevelSpan& levels) {
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
      texts.select = Join(" t2.FName,", names, "t1.FNumber");
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
      texts.select = Join(names, "t2.FName,t1.FNumber");
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
      texts.select = Join(names, "t1.FNumber");
      texts.group = Join(" Group By ", names, " t1.FNumber");
      texts.sum_sort = Join(cases,
                            "  WHEN   Grouping(t1.FNumber)=1 THEN ", last, "\r\n");
      Append(texts.updates, "Update #Data Set FName", levels.begin, "='" "合计" "' WHERE FSumSort=", first, "\r\n"
                            "Update #Data Set FSumSort=101  " " WHERE FSumSort=", first, "\r\n");
      break;
  }
  return texts;
}

Rpt300::Frame Rpt300::BuildLevels(Grouping grouping) const {
  const Dictionary& filter = Conditions();
  const LevelSpan levels = FilterLevels(*ChosenLevels());
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
                      "Insert Into #Data Select ", texts.select, ",\r\n"
                      "CASE\r\n",
                      texts.sum_sort,
                      "  ELSE   0 END \r\n",
                      by_customer ? "Join #ItemLevel tt1 On t2.FItemID=tt1.FItemID"
                                  : "Join #ItemLevel tt1 On t1.FItemID=tt1.FItemID",
                      "\r\n");
  frame.group_by = Join(texts.group, " WITH ROLLUP\r\n",
                        texts.updates);
  frame.item_filter = Replace(item_filter_template_, "##ITEMID##", by_customer ? " v1.FCustID " : " v2.FItemID ");
  frame.end_select = Join("SELECT * FROM #DATA  ", SumOnly(filter, "WHERE FSumSort>100"), "\r\n"
                          " Order by FID \r\n"
                          "DROP TABLE #DATA  \r\n"
                          "DROP TABLE #ItemLevel\r\n");
  return frame;
}
// clang-format on

}  // namespace salerpt
