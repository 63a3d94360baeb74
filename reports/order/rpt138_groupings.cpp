// `Rpt138` grouped by class levels of items, customers or branch companies, by a field of the order's head,
// and by a property.
#include <memory>
#include <string>
#include <string_view>

#include "reports/order/rpt138.h"
#include "runtime/text.h"
#include "sqltoolkit/filter_values.h"
#include "sqltoolkit/group_columns.h"
#include "sqltoolkit/item_level.h"

namespace salerpt {

// The texts stand as they are sent.
// clang-format off

// --- By class levels

struct Rpt138::LevelTexts {
  std::string columns;   // column definitions of the groups
  std::string select;    // select head
  std::string group;     // group head
  std::string sum_sort;  // the cases of FSumSort
  std::string labels;    // label updates
};

Rpt138::LevelTexts Rpt138::LevelTextsOf(Grouping grouping, int begin_level, int end_level) {
  std::string definitions;
  std::string cases;
  std::string names;
  LevelTexts texts;
  definitions.reserve(512);
  cases.reserve(512);
  names.reserve(128);
  texts.labels.reserve(4096);
  // A subtotal row reads class name, class number in brackets and "(小计)". The number is found through the
  // nearest row before it that has an item number; an empty pair of brackets goes.
  for (int i = begin_level; i <= end_level; ++i) {
    Append(definitions, "FName", i, " varchar(355) Null,\r\n");
    Append(cases, "  WHEN   Grouping(tt1.FName", i, ")=1 THEN ", i + 105, "\r\n");
    Append(names, "tt1.FName", i, ",");
    Append(texts.labels,
           "Update t1 Set  FName", i, "=ISNULL(FName", i, ",'')+'['+\r\n"
           "ISNULL((Select FNumber", i, " from #ItemLevel where FName", i, "=t1.FName", i,
           " and FNumber=(select top 1 FNumber from #data where FID<t1.FID and len(FNumber)>0 order by FID desc)),'')"
           "+'](", "小计", ")'  from #data t1 WHERE FSumSort=", i + 106, "\r\n"
           "Update #data Set  FName", i, "=Replace(FName", i, ",'[]','')  WHERE FSumSort=", i + 106, "\r\n");
  }

  const int e1 = end_level + 106;
  // The row where the first level is rolled up is the grand total.
  const std::string total = Join("Update #Data Set FName", begin_level, "='", "合计",
                                 "' WHERE FSumSort=", begin_level + 105, "\r\n"
                                 "Update #Data Set FSumSort=101  "
                                 " WHERE FSumSort=", begin_level + 105, "\r\n");
  switch (grouping) {
    case Grouping::kItemLevelsCustomer:
      texts.columns = Join(definitions, "FCustName varchar(355) Null,\r\n");
      texts.select = Join("SELECT ", names, "t2.FName,t1.FNumber");
      texts.group = Join("  Group By ", names, "t2.FName,t1.FNumber");
      texts.sum_sort = Join(cases,
                            "  WHEN   Grouping(t2.FName)=1 THEN  ", e1, "\r\n"
                            "  WHEN   Grouping(t1.FNumber)=1 THEN ", e1 + 1, "\r\n");
      Append(texts.labels, "Update #Data Set FCustName=FCustName+'(", "小计", ")' WHERE FSumSort=", e1 + 1, "\r\n",
                           total);
      break;
    case Grouping::kCustomerItemLevels:
      texts.columns = Join(" FCustName varchar(355) Null,\r\n", definitions);
      texts.select = Join("SELECT ", " t2.FName,", names, "t1.FNumber");
      texts.group = Join(" Group By ", " t2.FName,", names, "t1.FNumber");
      texts.sum_sort = Join("  WHEN   Grouping(t2.FName)=1 THEN 101 \r\n",
                            cases,
                            "  WHEN   Grouping(t1.FNumber)=1 THEN ", e1, "\r\n");
      Append(texts.labels, "Update #Data Set FCustName=FCustName+'(", "小计",
                           ")' WHERE FSumSort=", begin_level + 105, "\r\n"
                           "Update #Data Set FCustName='", "合计", "'"
                           " WHERE FSumSort=101\r\n");
      break;
    default:
      texts.columns = definitions;
      texts.select = Join("SELECT ", names, "t1.FNumber");
      texts.group = Join(" Group By ", names, " t1.FNumber");
      texts.sum_sort = Join(cases,
                            "  WHEN   Grouping(t1.FNumber)=1 THEN ", e1, "\r\n");
      texts.labels += total;
      break;
  }
  texts.sum_sort = Join("CASE\r\n", texts.sum_sort, "  ELSE   0 END \r\n");
  return texts;
}

namespace {

// Class of the code tree `t_Item` that holds the branch companies.
constexpr std::int32_t kBranchClass = 10;

// #ItemLevel of the branch companies, with a row for orders of none. The table takes in every company: which
// of them count is told by the company condition alone.
std::string BranchLevelSQL(int begin_level, int end_level) {
  std::string sql = BuildItemLevelSQL(kBranchClass, "", "", "", true, begin_level, end_level, 0);
  sql += " Insert Into #ItemLevel(FItemID) Select 0 \r\n";
  for (int i = begin_level; i <= end_level; ++i) {
    Append(sql, " Update #ItemLevel Set FName", i, "=''"
                " Where FItemID=0 \r\n");
  }
  return sql;
}

}  // namespace

DictionaryRef Rpt138::BuildByLevel(Grouping grouping) const {
  const Dictionary& filter = Conditions();
  const auto [begin_level, end_level] = FilterLevels(filter);
  std::string level_sql;
  std::string_view item_id;
  std::string_view level_where;
  switch (grouping) {
    case Grouping::kBranchLevels:
      level_sql = BranchLevelSQL(begin_level, end_level);
      item_id = " FCompanyID ";
      level_where = " And ISNull(v1.FCompanyID,0) =tt1.FItemID ";
      break;
    case Grouping::kCustomerLevels:
      level_sql = BuildItemLevelSQL(kCustomerClass, "", FilterText(filter, "BCustNumber"),
                                    FilterText(filter, "ECustNumber"), true, begin_level, end_level, 0);
      item_id = " FCustID ";
      level_where = " And t2.FItemID=tt1.FItemID";
      break;
    default:
      level_sql = BuildItemLevelSQL(kItemClass, "", FilterText(filter, "BItemNumber"),
                                    FilterText(filter, "EItemNumber"), true, begin_level, end_level, 0);
      item_id = " FItemID ";
      level_where = " And t1.FItemID=tt1.FItemID";
      break;
  }
  const LevelTexts texts = LevelTextsOf(grouping, begin_level, end_level);

  return MakeRequest(Join("SET NOCOUNT ON\r\n",
                          work_batch_, "\r\n",
                          level_sql,
                          "IF object_id('tempdb..#DATA') IS NOT NULL DROP TABLE  #DATA  "
                          " CREATE TABLE #DATA(\r\n",
                          texts.columns, column_definitions_, "\r\n"
                          "Insert Into #DATA ", texts.select, ",\r\n",
                          value_list_, texts.sum_sort,
                          FromText(), ",#ItemLevel tt1\r\n",
                          WhereText(), level_where),
                     Join(texts.group, " WITH ROLLUP\r\n", texts.labels),
                     Replace(item_filter_template_, "##ITEMID##", item_id),
                     Join("Select * From #DATA  ", SumOnly(filter, "Where FSumSort>100"), "\r\n"
                          " Order By FID \r\n"
                          "DROP TABLE #DATA  \r\n"
                          "DROP TABLE #ItemLevel\r\n"));
}

// --- By a field of the order's head: sale style, customer or employee

namespace {

// The field of the head, the table of its values and the key there, by the class of "SumField".
struct HeadField {
  std::string_view field;
  std::string_view table;
  std::string_view key;
};

HeadField HeadFieldOf(int item_class) {
  switch (item_class) {
    case 1:
      return {"FSaleStyle", "t_SubMessage", "FInterID"};
    case 2:
      return {"FCustID", "t_Organization", "FItemID"};
    default:
      return {"FEmpID", "t_Emp", "FItemID"};
  }
}

}  // namespace

DictionaryRef Rpt138::BuildByHeadField() const {
  const DictionaryRef sum_field = FilterSumField(Conditions());
  const auto [field, table, key] = HeadFieldOf(FilterInt(*sum_field, "FItemClassID"));
  // #DATA2 carries the field in place of the customer. The sale style stands as t13 beside the company, which
  // the condition names t12.
  const std::string work_batch = Join(
      "Create Table #DATA2 \r\n"
      "   ( ", field, "  int null, \r\n"
      "    FItemID int null, \r\n"
      "    FOrderQty decimal(23,10) not null Default(0), \r\n"
      "    FCommitQty decimal(23,10) not null Default(0), \r\n"
      "    FCompanyID int null )\r\n"
      // Order lines
      "Insert Into #Data2 (", field, ",FItemID, FOrderQty,FCompanyID) \r\n"
      "Select t3.", field, ",v1.FitemID,v1.FQty,t3.FRelateBrID \r\n"
      "From SEOrder t3   Inner Join SEOrderEntry v1 On t3.FInterID=v1.FInterID\r\n"
      "   Inner Join t_ICItem t10 On v1.FItemID=t10.FItemID\r\n"
      "   Left Join t_Organization t11 On t3.FCustID=t11.FItemID\r\n"
      "   Left Join t_SOnCompany t12 On t3.FRelateBrID = t12.FItemID\r\n"
      "   Left Join t_SubMessage t13 On t3.FSaleStyle=t13.FInterID \r\n"
      "   Left Join t_Department TD On t3.FDeptID=TD.FItemID\r\n"
      "   Left Join t_Emp TE On t3.FEmpID=TE.FItemID\r\n",
      right_from_,
      "Where 1=1\r\n"
      "    ##CHECKSTATE138## ##CHECKDATE138## ##CHECKITEM## \r\n"
      " --And t3.FCheckerID is not Null And t3.FCheckerID<>0 \r\n"
      "Order By t3.FDate,t3.FInterID,v1.FItemID \r\n",
      // An outbound bill calls the customer its other party.
      DeliveriesText(field, field == "FCustID" ? "FSupplyID" : field, field));

  const std::string display_field = FilterText(*sum_field, "FDisplayField");
  const std::string from = Join(
      " From  #DATA2 v1 Inner Join t_ICItem t1 On v1.FItemID=t1.FItemID \r\n"
      " Left Join ", table, " t2 On v1.", field, "=t2.", key, "\r\n"
      " Left Join t_MeasureUnit t3 On t1.FCUUnitID = t3.FMeasureUnitID ",
      JoinsCompany() ? "\r\n"
                       "Left Join t_SonCompany t4 On v1.FCompanyID =t4.FItemID"
                     : "");
  return BuildByValue(work_batch, Join(" t2.", display_field.empty() ? "FName" : display_field), from);
}

// --- By a property

namespace {

// The table of the summing step that holds a class. Kept: classes 3 and 29, employee and order, have the names
// that they have in the order statistics, where #DATA2 has no such columns; the dialog never brings them here.
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

DictionaryRef Rpt138::BuildByProperty() const {
  const DictionaryRef sum_field = FilterSumField(Conditions());
  const std::string source_table = FilterText(*sum_field, "FSrcTable");
  const std::string source_column = FilterText(*sum_field, "FSQLColumnName");
  // The group's text stands in a column of the customer or item, or in a table of its own.
  if (source_table.empty()) {
    return BuildByValue(work_batch_, Join(TableOf(FilterInt(*sum_field, "FItemClassID")), source_column),
                        FromText());
  }
  // Kept: the column that points to the table stands without an alias; sent texts are fixed.
  return BuildByValue(work_batch_, Join(" tt2.", FilterText(*sum_field, "FDisplayField")),
                      Join(FromText(), "\r\n"
                           "Left Join ", source_table, " tt2 On ", source_column, "=tt2.",
                           FilterText(*sum_field, "FSrcField"), "\r\n"));
}

// The rows of `from` grouped by the expression `value` and the item.
DictionaryRef Rpt138::BuildByValue(std::string_view work_batch, std::string_view value,
                                   std::string_view from) const {
  const Dictionary& filter = Conditions();
  return MakeRequest(Join("SET NOCOUNT ON\r\n",
                          work_batch, "\r\n"
                          "CREATE TABLE #DATA(\r\n"
                          "  ", PropertyColumnName(filter), " varchar(355) null,\r\n",
                          column_definitions_, "\r\n"
                          "  INSERT INTO #DATA  SELECT CASE "
                          "  WHEN GROUPING(", value, ")=1 THEN '", "合计", "' \r\n"
                          " WHEN GROUPING(t1.FNumber)=1 THEN CONVERT(varchar(355),", value, ")+'(", "小计", ")' \r\n"
                          " ELSE CONVERT(varchar(355),", value, ") END, \r\n"
                          " t1.FNumber, \r\n",
                          value_list_, "\r\n"
                          " CASE WHEN GROUPING(", value, ")=1 THEN 101\r\n"
                          " WHEN  GROUPING(t1.FNumber)=1 THEN 102 ELSE 0 END ",
                          from, WhereText()),
                     Join(" GROUP BY ", value, ",t1.FNumber WITH ROLLUP "),
                     item_filter_template_,
                     Join("Select * From #DATA  ", SumOnly(filter, "Where FSumSort>100"), "\r\n"
                          " Order By FID \r\n"
                          "DROP TABLE #DATA  \r\n"));
}
// clang-format on

}  // namespace salerpt
