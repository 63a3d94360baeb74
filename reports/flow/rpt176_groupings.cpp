// `Rpt176` grouped by customer, department or another property, and by class levels of items or customers,
// alone or with the customer.
#include <memory>
#include <string>
#include <string_view>

#include "reports/flow/rpt176.h"
#include "runtime/mrpt.h"
#include "runtime/text.h"
#include "sqltoolkit/filter_values.h"
#include "sqltoolkit/group_columns.h"
#include "sqltoolkit/item_level.h"

namespace salerpt {
namespace {

// The class of the property grouped by; a description without a class is one of customers.
int ItemClassOf(const Dictionary& sum_field) {
  constexpr int kCustomer = 1;
  return sum_field.Lookup("FItemClassID") ? FilterInt(sum_field, "FItemClassID") : kCustomer;
}

}  // namespace

// The texts stand as they are sent.
// clang-format off

// --- By a property

DictionaryRef Rpt176::BuildByProperty() const {
  const Dictionary& filter = Conditions();
  const DictionaryRef sum_field = FilterSumField(filter);
  const int item_class = ItemClassOf(*sum_field);
  const bool by_customer = item_class == 1;
  const std::string_view table = item_class == 4 ? "t1." : "t2.";
  const std::string source_table = FilterText(*sum_field, "FSrcTable");
  const std::string source_column = FilterText(*sum_field, "FSQLColumnName");
  const std::string property = PropertyColumnName(filter);

  // FPropNumber: the customer's number, or nothing for a property that has none.
  std::string insert = Join("Insert Into #Data  Select ", by_customer ? "t2.FNumber," : "'',");
  std::string group_by = Join(" Group By ", by_customer ? " t2.FNumber, " : "");
  std::string sum_sort;
  std::string source_join;
  if (source_table.empty()) {
    // The group's text stands in a column of the customer, the item or the department.
    const std::string value = Join(table, source_column);
    sum_sort = Join(" Case When Grouping(", value, ")=1 Then 101\r\n"
                    " When  Grouping(t1.FNumber)=1 Then 102 Else 0 End ");
    Append(group_by, " ", value, ",t1.FNumber With RollUp");
    Append(insert,
           " Case "
           " When Grouping(", value, ")=1 Then '", "合计", "'\r\n"
           " When Grouping(t1.FNumber)=1 Then "
           " Convert(VarChar(355),", value, ")+'(", "小计", ")' \r\n"
           " Else Convert(VarChar(355),", value, ") End, \r\n"
           " t1.FNumber,");
  } else {
    // It stands in a table of its own.
    const std::string value = Join("tt2.", FilterText(*sum_field, "FDisplayField"));
    sum_sort = Join(" Case When Grouping(", value, ")=1 Then 101\r\n"
                    " When  Grouping(t1.FNumber)=1 Then 102 Else 0 End ");
    Append(group_by, " ", value, ",t1.FNumber With RollUp ");
    Append(insert,
           "Case When   Grouping(", value, ")=1 Then '", "合计", "'\r\n"
           "When   Grouping(t1.FNumber)=1 Then  Convert(VarChar(355),", value, ")+'(", "小计", ")' \r\n"
           " Else Convert(VarChar(355),", value, ") End, \r\n"
           " t1.FNumber,");
    source_join = Join(" Left Join ", source_table, " tt2 On ", table, source_column,
                       "=tt2.", FilterText(*sum_field, "FSrcField"));
  }

  // Stands whether or not a bound is set: with none, lines without a customer, or without a department where
  // these are grouped by, fall out here; so do purchases, also in a grouping of items. Kept: the figures of this
  // grouping have always been those of known customers. The code of a customer is none of a department:
  // departments are held against an open end.
  const std::string bound = item_class == 2 ? QuoteSql("") : QuoteSql(filter.Get("BCustNumber"));

  auto request = std::make_shared<Dictionary>();
  request->Set("Select", Join("Set NoCount On\r\n",
                              FillText(), "\r\n"
                              "Create Table #Data(\r\n"
                              "FPropNumber VarChar(355) Null,\r\n"
                              "  ", property, " VarChar(355) Null,\r\n",
                              column_definitions_, "\r\n",
                              insert, value_list_, sum_sort,
                              FromText(), source_join, where_text_, "\r\n"
                              " And t2.", CodeField(), ">=", bound));
  request->Set("GROUPBY", Join(group_by, "\r\n"));
  request->Set("Filter", condition_);
  request->Set("EndSel", EndText());
  request->Set("ITEMFILTER", item_filter_template_);
  if (!by_customer) return request;

  // The row with the customer's number and rolled-up name is labelled "<customer>合计", lends the label to the
  // grand total and goes; the last update turns the label back to plain "合计".
  request->Set("UpdateAppend", Join("Update t1 Set t1.", property, "=t2.FName+t1.", property,
                                    " From  #Data t1 Inner Join t_Organization t2 On t1.FPropNumber=t2.FNumber"
                                    " Where t1.FSumSort=101\r\n"
                                    "Declare @iMaxID int\r\n"
                                    "Set @iMaxID=0 \r\n"
                                    "Select @iMaxID=Max(FID) From #Data\r\n"
                                    "Update #Data Set ", property, "=(Select Top 1 ", property,
                                    " From #Data Where FID<@iMaxID Order By ", property,
                                    " Desc) Where FID=@iMaxID\r\n"
                                    "Delete From #Data Where IsNull(FPropNumber,'')<>'' And FSumSort=101\r\n"
                                    "Update #Data Set ", property, "='", "合计", "' Where FSumSort=101\r\n"));
  return request;
}

// --- By class levels

struct Rpt176::LevelTexts {
  std::string columns;   // L: column definitions of the groups
  std::string select;    // S: select head
  std::string group;     // G: group head
  std::string sum_sort;  // K: the cases of FSumSort
  std::string labels;    // U: label updates
  std::string_view on;   // what #ItemLevel joins on
};

Rpt176::LevelTexts Rpt176::LevelTextsOf(int sum_mode, int begin_level, int end_level) {
  std::string definitions;
  std::string cases;
  std::string names;
  LevelTexts texts;
  for (int i = begin_level; i <= end_level; ++i) {
    Append(definitions, "FName", i, " VarChar(355) Null,\r\n");
    Append(cases, "  When   Grouping(tt1.FName", i, ")=1 Then ", i + 105, "\r\n");
    Append(names, "tt1.FName", i, ",");
    Append(texts.labels, "Update #Data Set  FName", i, "=FName", i, "+'(", "小计", ")' "
                         " Where FSumSort=", i + 106, "\r\n");
  }

  const int n = end_level + 1;
  // The row where the first level is rolled up is the grand total.
  const std::string total = Join("Update #Data Set FName", begin_level, "='", "合计", "'"
                                 " Where FSumSort=", begin_level + 105, "\r\n"
                                 "Update #Data Set FSumSort=101  "
                                 " Where FSumSort=", begin_level + 105, "\r\n");
  const bool is_customer_level = sum_mode == 2 || sum_mode == 8;
  texts.on = is_customer_level ? " On t2.FItemID=tt1.FItemID" : " On t1.FItemID=tt1.FItemID";
  switch (sum_mode) {
    case 3:
    case 8:
      texts.columns = Join(definitions, "FCustName VarChar(355) Null,");
      texts.select = Join("Select ", names, "t2.FName,t1.FNumber");
      texts.group = Join("  Group By ", names, "t2.FName,t1.FNumber");
      texts.sum_sort = Join(cases, "  When   Grouping(t2.FName)=1 Then  ", n + 105,
                            "  When   Grouping(t1.FNumber)=1 Then ", n + 106);
      Append(texts.labels, "Update #Data Set FCustName=FCustName+'(", "小计", ")'"
                           " Where FSumSort=", n + 106, "\r\n",
                           total);
      break;
    case 4:
      texts.columns = Join("FCustNumber VarChar(355) Null,\r\n"
                           "FCustName VarChar(355) Null,\r\n",
                           definitions);
      texts.select = Join("Select "
                          "t2.FNumber, t2.FName,", names, "t1.FNumber");
      texts.group = Join(" Group By "
                         "t2.FNumber, t2.FName,", names, "t1.FNumber");
      texts.sum_sort = Join("  When   Grouping(t2.FName)=1 Then 101 ", cases,
                            "  When   Grouping(t1.FNumber)=1 Then ", n + 105);
      // The row with the customer's number and rolled-up name is labelled "<customer>合计", lends the label to
      // the grand total and goes; the last update turns the label back to plain "合计". Kept: the row of the
      // lines without a customer, which all purchases are, has no number to be known by and stays.
      Append(texts.labels, "Update #Data Set FCustName=FCustName+'(", "小计", ")'"
                           " Where FSumSort=", begin_level + 105, "\r\n"
                           "Update #Data Set FCustName='", "合计", "'"
                           " Where FSumSort=101\r\n"
                           "Update t1 Set t1.FCustName=t2.FName+t1.FCustName From  #Data t1"
                           " Inner Join t_Organization t2 On t1.FCustNumber=t2.FNumber\r\n"
                           "Where t1.FSumSort=101\r\n"
                           "Declare @lMaxID int\r\n"
                           "Set @lMaxID=0\r\n"
                           "Select @lMaxID=Max(FID) From #Data\r\n"
                           "Update #Data Set FCustName=(Select Top 1 FCustName From #Data Where FID<@lMaxID"
                           " Order By FCustName Desc) Where FID=@lMaxID\r\n"
                           "Delete From #Data Where IsNull(FCustNumber,'')<>'' And FSumSort=101\r\n"
                           "Update #Data Set FCustName='", "合计", "' Where FSumSort=101\r\n");
      break;
    default:
      texts.columns = definitions;
      texts.select = Join("Select ", names, "t1.FNumber");
      texts.group = Join(" Group By ", names, "t1.FNumber");
      texts.sum_sort = Join(cases, "  When   Grouping(t1.FNumber)=1 Then ", n + 105);
      texts.labels += total;
      break;
  }
  texts.sum_sort = Join("Case", texts.sum_sort, "  Else   0 End \r\n");
  return texts;
}

DictionaryRef Rpt176::BuildByLevel(LevelKind kind, int sum_mode) const {
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
  request->Set("Select", Join("Set NoCount On\r\n",
                              FillText(), "\r\n",
                              level_sql, "\r\n"
                              "Create Table #Data(\r\n",
                              texts.columns, "\r\n",
                              column_definitions_,
                              "Insert Into "
                              " #Data \r\n",
                              texts.select, ",", value_list_, texts.sum_sort,
                              FromText(), " Inner Join #ItemLevel tt1 \r\n", texts.on, where_text_));
  request->Set("GROUPBY", Join(texts.group, " With RollUp\r\n"));
  request->Set("EndSel", Join(texts.labels, "\r\n",
                              EndText(),
                              "Drop Table #ItemLevel"));
  request->Set("ITEMFILTER",
               Replace(item_filter_template_, "##ITEMID##", by_customer ? " FCustID " : " FItemID "));
  return request;
}
// clang-format on

}  // namespace salerpt
