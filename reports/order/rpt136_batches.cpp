// `Rpt136` by item and by a property, without and with the currency above.
#include <algorithm>
#include <string>
#include <string_view>

#include "reports/order/rpt136.h"
#include "runtime/text.h"
#include "sqltoolkit/filter_values.h"
#include "sqltoolkit/group_columns.h"

namespace salerpt {

// The definitions stand on lines of their own, but a line may hold more than a column; commas part them once
// the types that hold a comma are gone. What stands before the first line break is no column: it is the head
// of the statement.
std::string Rpt136::ColumnListOf(std::string_view create_text) const {
  std::string text = Replace(create_text, "decimal(23, 10)", "");
  text = Replace(text, Join("decimal(18, ", amount_scale_, ")"), "");
  std::string columns;
  std::size_t begin = text.find('(') + 1;
  while (begin <= text.size()) {
    const std::size_t end = std::min(text.find(',', begin), text.size());
    std::string_view piece = std::string_view(text).substr(begin, end - begin);
    if (const std::size_t line = piece.find(kCrLf); line != std::string_view::npos) {
      piece.remove_prefix(line + kCrLf.size());
    }
    piece = Trim(piece);
    Append(columns, columns.empty() ? "" : ", ", piece.substr(0, piece.find(' ')));
    begin = end + 1;
  }
  return Replace(columns, ", FID", "");
}

namespace {

// A copy of the table under its temporary name, and the insert into the copy.
std::string InsertIntoCopy(std::string_view create, std::string_view insert) {
  return Join(Replace(create, "#DATA", "#TemData"), "\r\n", Replace(insert, "#DATA", "#TemData"));
}

// What the rows are grouped by, as "SumField" tells it.
struct SumFieldTexts {
  std::string column;       // of the report rows
  std::string value;        // the group's text
  std::string source_join;  // the table that it comes from, where it has one of its own
};

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

SumFieldTexts SumFieldTextsOf(const Dictionary& filter) {
  const DictionaryRef sum_field = FilterSumField(filter);
  const std::string source_table = FilterText(*sum_field, "FSrcTable");
  const std::string source_column = FilterText(*sum_field, "FSQLColumnName");
  SumFieldTexts texts;
  texts.column = PropertyColumnName(filter);
  if (source_table.empty()) {
    texts.value = Join(TableOf(FilterInt(*sum_field, "FItemClassID")), source_column);
    return texts;
  }
  texts.value = Join(" tt2.", FilterText(*sum_field, "FDisplayField"));
  // Kept: the column stands without a table, unlike everywhere else. A property whose column several tables
  // of the batch have names its table itself.
  texts.source_join = Join("Left Join ", source_table, " tt2 On ", source_column, "=tt2.",
                           FilterText(*sum_field, "FSrcField"), "\r\n");
  return texts;
}

}  // namespace

// The texts stand as they are sent.
// clang-format off

// --- By item

Rpt136::Batch Rpt136::BuildPlain() const {
  Batch batch;
  batch.create = Join("CREATE TABLE #DATA(\r\n",
                      column_definitions_);
  batch.insert = Join("  INSERT INTO #DATA  SELECT CASE "
                      "  WHEN GROUPING(t1.FNumber)=1 THEN '" "合计" "' \r\n"
                      " ELSE t1.FNumber END, \r\n",
                      value_list_, "\r\n"
                      " CASE  WHEN GROUPING(t1.FNumber)=1 THEN 101 \r\n"
                      " ELSE 0 END ",
                      from_text_, where_text_);
  batch.group_by = "Group by t1.FNumber WITH ROLLUP ";
  batch.item_filter = item_filter_template_;

  // The detail rows move in the asked order, then the total row.
  const std::string order_by = FilterText(Conditions(), "OrderBy");
  if (!order_by.empty()) {
    const std::string columns = ColumnListOf(batch.create);
    batch.insert = InsertIntoCopy(batch.create, batch.insert);
    batch.append = Join(
        " Insert Into #Data Select ", columns, " From #TemData \r\n"
        " where FID<(Select Top 1 FID From #TemData Where FSumSort=101 Order By FID) Order By ", order_by, "\r\n"
        " Insert Into #Data Select ", columns, " From #TemData "
        " where FID=(Select Top 1 FID From #TemData Where FSumSort=101 Order By FID)  Order By ", order_by, "\r\n"
        "Drop Table #TemData ");
  }
  return batch;
}

// --- By currency and item

Rpt136::Batch Rpt136::BuildPlainByCurrency() const {
  const int d = amount_scale_;
  Batch batch;
  batch.create = Join("CREATE TABLE #DATA(\r\n"
                      " FCurrencyName varchar(355) null,\r\n"
                      " FAmountDecimal smallint Default(", d, "),\r\n",
                      column_definitions_);
  batch.insert = Join(" INSERT INTO #DATA  SELECT CASE "
                      " WHEN GROUPING(t5.FName)=1 THEN '" "合计" "' \r\n"
                      " ELSE t5.FName END, \r\n"
                      " ", d, ",t1.FNumber, \r\n",
                      value_list_, "\r\n"
                      " CASE  WHEN GROUPING(t5.FName)=1 THEN 101 \r\n"
                      " WHEN GROUPING(t1.FNumber)=1 THEN 106 \r\n"
                      " ELSE 0 END ",
                      from_text_, where_text_);
  // Over all currencies only the base currency can be summed. Kept: the updates address #Data; with an order
  // the rows still lie in #TemData then, and stay as they are. The order of the keys is the middle tier's.
  batch.group_by = "Group by t5.FName,t1.FNumber WITH ROLLUP \r\n"
                   " UPdate #Data Set FOrgAmount =FAmount Where FSumSort =101 \r\n"
                   " update  t1 set t1.FAmountDecimal = (select FScale from t_Currency"
                   " where FName = replace(t1.FCurrencyName,'(小计)','')) from #DATA t1 \r\n";
  batch.item_filter = item_filter_template_;

  // Currency by currency the detail rows move in the asked order, then the currency's subtotal; the grand
  // total comes last.
  const std::string order_by = FilterText(Conditions(), "OrderBy");
  if (!order_by.empty()) {
    const std::string columns = ColumnListOf(batch.create);
    batch.insert = InsertIntoCopy(batch.create, batch.insert);
    batch.append = Join(
        "while exists(Select * From #TemData Where FID<="
        "(Select Top 1 FID From #TemData Where FSumSort=106 Order By FID)) \r\n"
        "Begin \r\n"
        " Insert Into #Data Select ", columns, " From #TemData \r\n"
        " where FID<(Select Top 1 FID From #TemData Where FSumSort=106 Order By FID) Order By ", order_by, "\r\n"
        " Insert Into #Data Select ", columns, " From #TemData "
        " where FID=(Select Top 1 FID From #TemData Where FSumSort=106 Order By FID)  Order By ", order_by, "\r\n"
        " Delete From #TemData where FID<=(Select Top 1 FID From #TemData Where FSumSort=106 Order By FID) \r\n"
        "End \r\n"
        "Insert Into #Data Select ", columns, " From #TemData Where FSumSort=101 \r\n"
        "Drop Table #TemData ");
  }
  return batch;
}

// --- By a property

Rpt136::Batch Rpt136::BuildBySumField() const {
  const SumFieldTexts property = SumFieldTextsOf(Conditions());
  const std::string& value = property.value;
  Batch batch;
  batch.create = Join("CREATE TABLE #DATA(\r\n"
                      "  ", property.column, " varchar(355) null,\r\n",
                      column_definitions_);
  batch.insert = Join("  INSERT INTO #DATA  SELECT CASE "
                      "  WHEN GROUPING(", value, ")=1 THEN '" "合计" "' \r\n"
                      " WHEN GROUPING(t1.FNumber)=1 THEN CONVERT(varchar(355),", value, ")+'(" "小计" ")' \r\n"
                      " ELSE CONVERT(varchar(355),", value, ") END, \r\n"
                      " t1.FNumber, \r\n",
                      value_list_, "\r\n"
                      " CASE WHEN GROUPING(", value, ")=1 THEN 101\r\n"
                      " WHEN  GROUPING(t1.FNumber)=1 THEN 102 ELSE 0 END ",
                      from_text_, property.source_join, where_text_);
  batch.group_by = Join(" GROUP BY ", value, ",t1.FNumber WITH ROLLUP ");
  batch.item_filter = item_filter_template_;

  // Whole groups move, each with its subtotal, in the order of the subtotals.
  const std::string order_by = FilterText(Conditions(), "OrderBy");
  if (!order_by.empty()) {
    const std::string columns = ColumnListOf(batch.create);
    batch.insert = InsertIntoCopy(batch.create, batch.insert);
    batch.append = Join(
        "Declare @MaxID int,@MinID int \r\n"
        "Select Row_Number() over(Order By ", order_by, ") as Num, FID Into #TemOrder"
        " From #TemData Where FSumSort=102 \r\n"
        "While Exists(Select * From #TemOrder) "
        "Begin "
        "    Set @MinID=0 "
        "   Select Top 1 @MaxID=FID From #TemOrder order by Num "
        "   Select Top 1 @MinID=IsNull(FID,0) From #TemData Where FSumSort=102 And FID<@MaxID Order By FID DESC "
        "   Insert Into #Data Select ", columns, " From #TemData Where FID>ISNull(@MinID,0) And FID<=@MaxID "
        "   Delete From #TemOrder Where FID=@MaxID "
        "End  \r\n"
        "Insert Into #Data Select ", columns, " From #TemData Where FSumSort=101 \r\n"
        "Drop Table #TemOrder   Drop Table #TemData  ");
  }
  return batch;
}

// --- By currency and a property

Rpt136::Batch Rpt136::BuildBySumFieldByCurrency() const {
  const int d = amount_scale_;
  const SumFieldTexts property = SumFieldTextsOf(Conditions());
  const std::string& value = property.value;
  Batch batch;
  batch.create = Join("CREATE TABLE #DATA(\r\n"
                      " FCurrencyName varchar(355) null,\r\n"
                      " FAmountDecimal smallint Default(", d, "),\r\n"
                      "  ", property.column, " varchar(355) null,\r\n",
                      column_definitions_);
  batch.insert = Join(" INSERT INTO #DATA  SELECT CASE "
                      " WHEN GROUPING(t5.FName)=1 THEN '" "合计" "' \r\n"
                      " WHEN GROUPING(", value, ")=1 THEN t5.FName + '(" "小计" ")' \r\n"
                      " ELSE t5.FName END, \r\n"
                      " ", d, ", \r\n"
                      " CASE WHEN GROUPING(t1.FNumber)=1 THEN"
                      " CONVERT(varchar(355),", value, ")+'(" "小计" ")' \r\n"
                      " ELSE CONVERT(varchar(355),", value, ") END, \r\n"
                      " t1.FNumber, \r\n",
                      value_list_, "\r\n"
                      " CASE WHEN GROUPING(t5.FName)=1 THEN 101 \r\n"
                      " WHEN GROUPING(", value, ")=1 THEN 102\r\n"
                      " WHEN  GROUPING(t1.FNumber)=1 THEN 103 ELSE 0 END ",
                      from_text_, property.source_join, where_text_);
  batch.group_by = Join(" GROUP BY t5.FName,", value, ",t1.FNumber WITH ROLLUP \r\n"
                        "Update #Data Set FOrgAmount = FAmount Where FSumSort =101 \r\n"
                        " update  t1 set t1.FAmountDecimal = (select FScale from t_Currency"
                        " where FName = replace(t1.FCurrencyName,'(小计)','')) from #DATA t1 \r\n");
  batch.item_filter = item_filter_template_;

  // Kept: the last line names a table variable that nothing declares, so that the server rejects this batch:
  // a grouping by currency and property has no order of its own. Texts that are sent do not change without
  // need.
  const std::string order_by = FilterText(Conditions(), "OrderBy");
  if (!order_by.empty()) {
    const std::string columns = ColumnListOf(batch.create);
    batch.insert = InsertIntoCopy(batch.create, batch.insert);
    batch.append = Join(
        "Declare @MaxID int,@MinID int \r\n"
        "Select FID Into #TemOrder From #TemData Where FSumSort=103 Order By ", order_by, "\r\n"
        "While Exists(Select * From #TemOrder) "
        "Begin "
        "    Set @MinID=0 "
        "   Select Top 1 @MaxID=FID From #TemOrder "
        "   Select Top 1 @MinID=IsNull(FID,0) From #TemData Where FSumSort=103 And FID<@MaxID Order By FID DESC "
        "   Insert Into #Data Select ", columns, " From #TemData Where FID>ISNull(@MinID,0) And FID<=@MaxID "
        "   Delete From #TemOrder Where FID=@MaxID "
        "End  \r\n"
        "Insert Into #Data Select ", columns, " From #TemData Where FSumSort=101 \r\n"
        "Drop Table #TemOrder   Drop Table @TemData  ");
  }
  return batch;
}
// clang-format on

}  // namespace salerpt
