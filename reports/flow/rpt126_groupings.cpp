// `Rpt126` grouped by customer, department, employee or another property, and by class levels of items or
// customers.
#include <memory>
#include <string>
#include <string_view>

#include "reports/flow/rpt126.h"
#include "runtime/text.h"
#include "sqltoolkit/filter_values.h"
#include "sqltoolkit/group_columns.h"
#include "sqltoolkit/item_level.h"

namespace salerpt {
namespace {

// The word in the names of the group columns: a customer, a department, an employee, or a property of one.
std::string_view DimensionWord(int item_class, int property) {
  if (property != 0) return "Prop";
  switch (item_class) {
    case 1:
      return "Cust";
    case 2:
      return "Dept";
    case 3:
      return "Emp";
    default:
      return "Prop";
  }
}

// The table of the batch that holds the class.
std::string_view DimensionTable(int item_class) {
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

DictionaryRef Rpt126::BuildByProperty() const {
  const Dictionary& filter = Conditions();
  const DictionaryRef sum_field = FilterSumField(filter);
  const int item_class = FilterInt(*sum_field, "FItemClassID");
  const std::string source_table = FilterText(*sum_field, "FSrcTable");
  const std::string_view word = DimensionWord(item_class, FilterInt(*sum_field, "FPropID"));
  const std::string name = word == "Prop" ? PropertyColumnName(filter) : Join("F", word, "Name");
  const bool aux_prop = ShowsAuxProp();
  const BatchColumns columns = ColumnsOfBatch();

  std::string insert;
  std::string sum_sort;
  std::string source_join;
  std::string group_by;
  std::string labels;
  if (source_table.empty()) {
    // The number goes to the name column, where the rollup labels it; the two are sorted out at the end.
    const std::string_view table = DimensionTable(item_class);
    insert = Join(" INSERT INTO #Data  SELECT CASE "
                  " WHEN GROUPING(", table, "FNumber)=1 THEN '", "合计", "'"
                  " WHEN GROUPING(t1.FNumber)=1 THEN "
                  " CONVERT(VARCHAR(355),", table, "FNumber)+'", "(小计)", "' "
                  " ELSE CONVERT(VARCHAR(355),", table, "FNumber) END,"
                  " NULL,NULL", aux_prop ? ",v2.FAuxPropID,''" : "", ",t1.FNumber,");
    sum_sort = Join(" CASE WHEN GROUPING(", table, "FNumber)=1 THEN 101\r\n"
                    " WHEN  GROUPING(t1.FNumber)=1 THEN 102 \r\n",
                    aux_prop ? " When Grouping(V2.FAuxPropID)=1 Then 103" : "", " Else 0 End ");
    group_by = Join(" GROUP BY ", table, "FNumber,t1.FNumber", aux_prop ? ",v2.FAuxPropID" : "", " WITH ROLLUP");
    labels = Join("UPDATE #Data SET F", word, "Number=REPLACE(REPLACE(", name, ",'合计',''),'(小计)','')\r\n"
                  "UPDATE #Data SET ", name, "=CASE WHEN CHARINDEX('(小计)',", name,
                  ")>0 THEN t1.FName+'(小计)' ELSE t1.FName END FROM #Data INNER JOIN t_Item t1 "
                  "ON t1.FNumber=REPLACE(#Data.", name, ",'(小计)','') AND t1.FItemClassID=", item_class, "\r\n");
  } else {
    // The value is a text already and needs no sorting out.
    const std::string value = FilterText(*sum_field, "FDisplayField");
    insert = Join("Insert Into #Data Select Case When   Grouping(tt2.", value, ")=1 THEN '", "合计", "'\r\n"
                  "WHEN   GROUPING(t1.FNumber)=1 THEN  CONVERT(varchar(355),tt2.", value, ")+'(", "小计", ")' \r\n"
                  " ELSE CONVERT(varchar(355),tt2.", value, ") END, \r\n"
                  " NULL,NULL", aux_prop ? ",v2.FAuxPropID,''" : "", ",t1.FNumber,");
    sum_sort = Join(" Case When Grouping(tt2.", value, ")=1 Then 101\r\n"
                    " When  Grouping(t1.FNumber)=1 Then 102 \r\n",
                    aux_prop ? " When Grouping(V2.FAuxPropID)=1 Then 103" : "", " Else 0 End ");
    // Kept: the column stands without a table. A property whose column several tables of the batch have names
    // its table itself.
    source_join = Join(" Left Join ", source_table, " tt2 On ", FilterText(*sum_field, "FSQLColumnName"),
                       "=tt2.", FilterText(*sum_field, "FSrcField"));
    group_by = Join(" GROUP BY tt2.", value, ",t1.FNumber", aux_prop ? ",v2.FAuxPropID" : "", " With RollUp ");
  }

  auto request = std::make_shared<Dictionary>();
  request->Set("Select", Join("Set NoCount On\r\n"
                              "Create Table #Data(\r\n"
                              " ", name, " Varchar(355) Null,\r\n"
                              " F", word, "Number Varchar(355) Null,\r\n"
                              " FShort", word, "Number Varchar(355) Null,\r\n",
                              columns.definitions,
                              insert, columns.values, sum_sort,
                              from_text_, source_join, where_text_, condition_, "\r\n"));
  request->Set("GROUPBY", group_by);
  request->Set("ITEMFILTER", item_filter_template_);
  request->Set("EndSel", Join(labels,
                              "UPDATE #Data SET FTaxRate=NULL WHERE FSumSort=101 \r\n"
                              "SELECT * FROM #Data  ", SumOnly(filter, "WHERE FSumSort>100"), " ORDER BY FID \r\n"
                              "DROP TABLE #Data  "));
  return request;
}

// --- By class levels

struct Rpt126::LevelTexts {
  std::string columns;   // L: column definitions of the groups
  std::string select;    // H: select head
  std::string group;     // G: group head
  std::string sum_sort;  // K: the cases of FSumSort
  std::string labels;    // U: look-ups and labels behind the rollup
  std::string_view on;   // J: what #ItemLevel joins on
};

// The rollup runs over the numbers of classes and customers; their names are looked up behind it.
Rpt126::LevelTexts Rpt126::LevelTextsOf(LevelKind kind, int sum_mode) const {
  const auto [begin_level, end_level] = FilterLevels(Conditions());
  const bool aux_prop = ShowsAuxProp();
  const int item_class = kind == LevelKind::kCustomer ? kCustomerClass : kItemClass;
  std::string definitions;
  std::string values;
  std::string cases;
  std::string numbers;
  LevelTexts texts;
  for (int i = begin_level; i <= end_level; ++i) {
    Append(definitions,
           "FName", i, " Varchar(355) Null,\r\n"
           "FNumber", i, " VARCHAR(355) NULL,\r\n");
    Append(values, "NULL,FNumber", i, ",");
    Append(cases, " WHEN GROUPING(tt1.FNumber", i, ")=1 THEN ", i + 105, "\r\n");
    Append(numbers, "tt1.FNumber", i, ",");
    Append(texts.labels,
           "UPDATE #Data SET FName", i, "=t1.FName FROM #Data INNER JOIN t_Item t1 ON #Data.FNumber", i,
           "=t1.FNumber AND t1.FItemClassID=", item_class, "\r\n"
           "UPDATE #Data SET FName", i, "=FName", i, "+'", "(小计)", "' " " WHERE FSumSort=", i + 106, "\r\n");
  }

  // The row where the first level is rolled up is the grand total.
  const std::string total = Join(
      "Update #Data Set FName", begin_level, "='", "合计", "'" " Where FSumSort=", begin_level + 105, "\r\n"
      "Update #Data Set FSumSort=101  " " Where FSumSort=", begin_level + 105, "\r\n");
  const std::string_view customer_columns =
      "FCustName Varchar(355) Null,FCustNumber Varchar(355) Null,FShortCustNumber Varchar(355) Null,";
  const std::string_view customer_name =
      "UPDATE #Data SET FCustName=t1.FName FROM #Data INNER JOIN t_Item t1 ON #Data.FCustNumber=t1.FNumber"
      " AND t1.FItemClassID=1\r\n";
  switch (sum_mode) {
    case 1:
      texts.columns = definitions;
      texts.select = Join("Select ", values);
      texts.group = Join(" Group By ", numbers, "t1.FNumber");
      Append(cases, " When Grouping(t1.FNumber)=1 Then ", end_level + 106);
      texts.labels += total;
      texts.on = "\r\n On t1.FItemID=tt1.FItemID";
      break;
    case 2:
      texts.columns = definitions;
      texts.select = Join("Select ", values);
      texts.group = Join(" Group By ", numbers, "t1.FNumber");
      Append(cases, "  When   Grouping(t1.FNumber)=1 Then ", end_level + 106);
      texts.labels += total;
      texts.on = "\r\n On t2.FItemID=tt1.FItemID";
      break;
    case 4:
      // Here the customer's rollup is the grand total, and that of the first level the customer's subtotal.
      texts.columns = Join(customer_columns, definitions, "\r\n");
      texts.select = Join("Select NULL,t2.FNumber,NULL,", values);
      texts.group = Join(" Group By " " t2.FNumber,", numbers, "t1.FNumber");
      cases = Join("  When   Grouping(t2.FNumber)=1 Then 101 ", cases,
                   "  When   Grouping(t1.FNumber)=1 Then ", end_level + 106);
      Append(texts.labels, customer_name,
             "Update #Data Set FCustName" "=FCustName+'", "(小计)", "'" " Where FSumSort=", begin_level + 105, "\r\n"
             "Update #Data Set FCustName='", "合计", "'" " Where FSumSort=101\r\n");
      texts.on = "\r\n On t1.FItemID=tt1.FItemID";
      break;
    default:
      texts.columns = Join(definitions, "\r\n", customer_columns);
      texts.select = Join("Select ", values, "NULL,t2.FNumber,NULL,");
      texts.group = Join("  Group By ", numbers, "t2.FNumber,t1.FNumber");
      Append(cases,
             "  When   Grouping(t2.FNumber)=1 Then  ", end_level + 106,
             "  When   Grouping(t1.FNumber)=1 Then ", end_level + 107);
      Append(texts.labels, customer_name,
             "Update #Data Set FCustName=FCustName+'", "(小计)", "'" " Where FSumSort=", end_level + 107, "\r\n",
             total);
      texts.on = "\r\n On t1.FItemID=tt1.FItemID";
      break;
  }

  Append(texts.select, aux_prop ? "V2.FAuxPropID,''," : "", "t1.FNumber");
  // Kept: with the customer behind the levels an item over its auxiliary properties has the code of a
  // customer's subtotal, and reads as one. Hosts know the code as that of the innermost subtotal.
  if (aux_prop) Append(cases, " When Grouping(V2.FAuxPropID)=1 Then ", end_level + 107);
  texts.sum_sort = Join("Case", cases, "  Else   0 End \r\n");
  if (aux_prop) texts.group += ",V2.FAuxPropID";
  return texts;
}

DictionaryRef Rpt126::BuildByLevel(LevelKind kind, int sum_mode) const {
  const Dictionary& filter = Conditions();
  const auto [begin_level, end_level] = FilterLevels(filter);
  const bool by_customer = kind == LevelKind::kCustomer;
  const std::string level_sql =
      by_customer ? BuildItemLevelSQL(kCustomerClass, "", FilterText(filter, "BCustNumber"),
                                      FilterText(filter, "ECustNumber"), true, begin_level, end_level, 0)
                  : BuildItemLevelSQL(kItemClass, "", FilterText(filter, "BItemNumber"),
                                      FilterText(filter, "EItemNumber"), true, begin_level, end_level, 0);
  const BatchColumns columns = ColumnsOfBatch();
  const LevelTexts texts = LevelTextsOf(kind, sum_mode);

  auto request = std::make_shared<Dictionary>();
  request->Set("Select", Join("Set NoCount On\r\n",
                              level_sql, "\r\n"
                              "Create Table #Data(\r\n",
                              texts.columns, columns.definitions,
                              "Insert Into #Data \r\n",
                              texts.select, ",", columns.values, texts.sum_sort,
                              from_text_, " Inner Join #ItemLevel tt1 \r\n", texts.on, where_text_, condition_));
  request->Set("GROUPBY", Join(texts.group, " With RollUp\r\n"));
  request->Set("ITEMFILTER",
               Replace(item_filter_template_, "##ITEMID##", by_customer ? " v1.FCustID " : " v2.FItemID "));
  request->Set("EndSel", Join(texts.labels, "\r\n"
                              "Update #Data Set FTaxRate=Null Where FSumSort=101 \r\n"
                              "Select * From #Data  ", SumOnly(filter, "Where FSumSort>100"), "\r\n"
                              " Order by FID \r\n"
                              "DROP Table #Data  \r\n"
                              "DROP Table #ItemLevel"));
  return request;
}
// clang-format on

}  // namespace salerpt
