// `Rpt136` by class levels of items or customers, alone or with the customer, without and with the currency
// above.
#include <string>
#include <string_view>

#include "reports/order/rpt136.h"
#include "runtime/text.h"
#include "sqltoolkit/filter_values.h"
#include "sqltoolkit/item_level.h"

namespace salerpt {

struct Rpt136::LevelTexts {
  std::string columns;   // column definitions of the groups
  std::string select;    // select head
  std::string group;     // group head
  std::string sum_sort;  // the cases of FSumSort
  std::string updates;   // labels behind the rollup
};

namespace {

// What each level adds, in the order of the levels.
struct LevelPieces {
  std::string columns;
  std::string cases;
  std::string names;
  std::string updates;
};

// The texts stand as they are sent.
// clang-format off

// The row where a level is rolled up is the subtotal of the level above it, so that level i has its own
// subtotal under i + 106.
LevelPieces LevelPiecesOf(const LevelSpan& levels) {
  LevelPieces pieces;
  for (int i = levels.begin; i <= levels.end; ++i) {
    Append(pieces.columns, "FName", i, " varchar(355) Null,\r\n");
    Append(pieces.cases, "  WHEN   Grouping(tt1.FName", i, ")=1 THEN ", i + 105, "\r\n");
    Append(pieces.names, "tt1.FName", i, ",");
    Append(pieces.updates,
           "Update #Data Set  FName", i, "=FName", i, "+'(" "小计" ")' WHERE FSumSort=", i + 106, "\r\n");
  }
  return pieces;
}

}  // namespace

// --- Without the currency

Rpt136::LevelTexts Rpt136::LevelTextsOf(Grouping grouping) const {
  const LevelSpan levels = FilterLevels(Conditions());
  const LevelPieces pieces = LevelPiecesOf(levels);
  const std::string& names = pieces.names;
  const int first = levels.begin + 105;
  const int last = levels.end + 106;
  LevelTexts texts;
  switch (grouping) {
    case Grouping::kCustomerAndItemLevels:
      texts.columns = Join(" FCustName varchar(355) Null,\r\n",
                           pieces.columns);
      texts.select = Join("SELECT "
                          " t2.FName,", names, "t1.FNumber");
      texts.group = Join(" Group By "
                         " t2.FName,", names, "t1.FNumber");
      texts.sum_sort = Join("  WHEN   Grouping(t2.FName)=1 THEN 101 \r\n",
                            pieces.cases,
                            "  WHEN   Grouping(t1.FNumber)=1 THEN ", last, "\r\n");
      texts.updates = Join(pieces.updates,
                           "Update #Data Set FCustName=FCustName+'(" "小计" ")' WHERE FSumSort=", first, "\r\n"
                           "Update #Data Set FCustName='" "合计" "'" " WHERE FSumSort=101\r\n");
      break;
    case Grouping::kItemLevelsAndCustomer:
      texts.columns = Join(pieces.columns,
                           "FCustName varchar(355) Null,\r\n");
      texts.select = Join("SELECT ", names, "t2.FName,t1.FNumber");
      texts.group = Join("  Group By ", names, "t2.FName,t1.FNumber");
      texts.sum_sort = Join(pieces.cases,
                            "  WHEN   Grouping(t2.FName)=1 THEN  ", last, "\r\n"
                            "  WHEN   Grouping(t1.FNumber)=1 THEN ", last + 1, "\r\n");
      texts.updates = Join(pieces.updates,
                           "Update #Data Set FCustName=FCustName+'(" "小计" ")' WHERE FSumSort=", last + 1, "\r\n"
                           "Update #Data Set FName", levels.begin, "='" "合计" "' WHERE FSumSort=", first, "\r\n"
                           "Update #Data Set FSumSort=101  " " WHERE FSumSort=", first, "\r\n");
      break;
    default:
      // The row where the first level is rolled up is the grand total.
      texts.columns = pieces.columns;
      texts.select = Join("SELECT ", names, "t1.FNumber");
      texts.group = Join(" Group By ", names, " t1.FNumber");
      texts.sum_sort = Join(pieces.cases,
                            "  WHEN   Grouping(t1.FNumber)=1 THEN ", last, "\r\n");
      texts.updates = Join(pieces.updates,
                           "Update #Data Set FName", levels.begin, "='" "合计" "' WHERE FSumSort=", first, "\r\n"
                           "Update #Data Set FSumSort=101  " " WHERE FSumSort=", first, "\r\n");
      break;
  }
  return texts;
}

// --- With the currency above

Rpt136::LevelTexts Rpt136::LevelTextsByCurrencyOf(Grouping grouping) const {
  const int d = amount_scale_;
  const LevelSpan levels = FilterLevels(Conditions());
  const LevelPieces pieces = LevelPiecesOf(levels);
  const std::string& names = pieces.names;
  const int first = levels.begin + 105;
  const int last = levels.end + 106;
  LevelTexts texts;
  switch (grouping) {
    case Grouping::kCustomerAndItemLevels:
      texts.columns = Join(" FCurrencyName varchar(355) null,\r\n"
                           " FAmountDecimal smallint Default(", d, "),\r\n"
                           " FCustName varchar(355) Null,\r\n",
                           pieces.columns);
      texts.select = Join("SELECT "
                          " t5.FName,", d, ",t2.FName,", names, "t1.FNumber");
      texts.group = Join(" Group By "
                         " t5.FName,t2.FName,", names, "t1.FNumber");
      // Kept: the subtotal of a currency and that of the innermost class have one code. Hosts hold the codes.
      texts.sum_sort = Join("  WHEN   Grouping(t5.FName)=1 THEN 101 \r\n"
                            "  WHEN   Grouping(t2.FName)=1 THEN ", last, "\r\n",
                            pieces.cases,
                            "  WHEN   Grouping(t1.FNumber)=1 THEN ", last, "\r\n");
      // Kept: the total's amount in the order's currency stays the plain sum here, unlike in the other
      // groupings by currency.
      texts.updates = Join(pieces.updates,
                           "Update #Data Set FCustName=FCustName+'(" "小计" ")' WHERE FSumSort=", first, "\r\n"
                           " update  t1 set t1.FAmountDecimal = (select FScale from t_Currency"
                           " where FName = replace(t1.FCurrencyName,'(小计)','')) from #DATA t1 \r\n"
                           "Update #Data Set FCurrencyName='" "合计" "'" " WHERE FSumSort=101\r\n");
      break;
    case Grouping::kItemLevelsAndCustomer:
      texts.columns = Join(" FCurrencyName varchar(355) null,\r\n"
                           " FAmountDecimal smallint Default(", d, "),\r\n",
                           pieces.columns,
                           "FCustName varchar(355) Null,\r\n");
      texts.select = Join("SELECT t5.FName,", d, ",", names, "t2.FName,t1.FNumber");
      texts.group = Join("  Group By t5.FName,", names, "t2.FName,t1.FNumber");
      texts.sum_sort = Join("  WHEN Grouping(t5.FName)=1 THEN 101 \r\n",
                            pieces.cases,
                            "  WHEN   Grouping(t2.FName)=1 THEN  ", last, "\r\n"
                            "  WHEN   Grouping(t1.FNumber)=1 THEN ", last + 1, "\r\n");
      // Kept: 106 whatever the first level is, so that the label of a currency's subtotal fits levels from 1
      // on. Sent texts do not change without need.
      texts.updates = Join(pieces.updates,
                           " Update #Data Set FCurrencyName = FCurrencyName + '(" "小计" ")'"
                           " WHERE FSumSort=106\r\n"
                           " update  t1 set t1.FAmountDecimal = (select FScale from t_Currency"
                           " where FName = replace(t1.FCurrencyName,'(小计)','')) from #DATA t1 \r\n"
                           "Update #Data Set FCustName=FCustName+'(" "小计" ")' WHERE FSumSort=", last + 1, "\r\n"
                           "Update #Data Set FCurrencyName ='" "合计" "'" " WHERE FSumSort=101 \r\n"
                           "Update #Data Set FOrgAmount=FAmount " " WHERE FSumSort=101\r\n");
      break;
    default:
      texts.columns = Join(" FCurrencyName varchar(355) null,\r\n"
                           " FAmountDecimal smallint Default(", d, "),\r\n",
                           pieces.columns);
      texts.select = Join("SELECT "
                          " t5.FName,", d, ",", names, "t1.FNumber");
      texts.group = Join(" Group By t5.FName,", names, " t1.FNumber ");
      texts.sum_sort = Join("  WHEN   Grouping(t5.FName)=1 THEN 101 \r\n",
                            pieces.cases,
                            "  WHEN   Grouping(t1.FNumber)=1 THEN ", last, "\r\n");
      texts.updates = Join(pieces.updates,
                           "Update #Data Set FCurrencyName = FCurrencyName + '(" "小计" ")'"
                           " WHERE FSumSort=", first, "\r\n"
                           " update  t1 set t1.FAmountDecimal = (select FScale from t_Currency"
                           " where FName = replace(t1.FCurrencyName,'(小计)','')) from #DATA t1 \r\n"
                           " Update #Data Set FCurrencyName = '" "合计" "'" " WHERE FSumSort=101 \r\n"
                           "Update #Data Set FOrgAmount=FAmount " " WHERE FSumSort=101\r\n");
      break;
  }
  return texts;
}

// --- The batch

Rpt136::Batch Rpt136::BuildLevels(Grouping grouping) const {
  const Dictionary& filter = Conditions();
  const auto [begin_level, end_level] = FilterLevels(filter);
  const bool by_customer = grouping == Grouping::kCustomerLevels;
  const LevelTexts texts = IsByCurrency() ? LevelTextsByCurrencyOf(grouping) : LevelTextsOf(grouping);
  const std::string order_by = FilterText(filter, "OrderBy");

  Batch batch;
  batch.level_sql =
      by_customer ? BuildItemLevelSQL(kCustomerClass, "", FilterText(filter, "BCustNumber"),
                                      FilterText(filter, "ECustNumber"), true, begin_level, end_level, 0)
                  : BuildItemLevelSQL(kItemClass, "", FilterText(filter, "BItemNumber"),
                                      FilterText(filter, "EItemNumber"), true, begin_level, end_level, 0);
  batch.create = Join("IF object_id('tempdb..#DATA') IS NOT NULL DROP TABLE  #DATA  "
                      " CREATE TABLE #DATA(\r\n",
                      texts.columns, column_definitions_);
  batch.insert = Join("INSERT INTO ", order_by.empty() ? " #DATA " : " #TemData ",
                      texts.select, ",\r\n",
                      value_list_,
                      "CASE\r\n",
                      texts.sum_sort,
                      "  ELSE   0 END \r\n",
                      from_text_,
                      by_customer ? "Join #ItemLevel tt1 On t2.FItemID=tt1.FItemID"
                                  : "Join #ItemLevel tt1 On t1.FItemID=tt1.FItemID",
                      "\r\n",
                      where_text_);
  // Kept: the labels address #Data; with an order the rows still lie in #TemData then, and stay without them.
  // The order of the keys is the middle tier's.
  batch.group_by = Join(texts.group, " WITH ROLLUP\r\n",
                        texts.updates);
  batch.item_filter = Replace(item_filter_template_, "##ITEMID##", by_customer ? " v1.FCustID " : " v2.FItemID ");
  batch.end = "DROP TABLE #ItemLevel\r\n";

  // Whole blocks move, each closed by its subtotal, in the order of the subtotals. Going backward from the
  // grand total the first row of a higher code tells which subtotals: those of the outermost group. Kept: by
  // currency and customer the outermost and the innermost subtotal share a code, so that innermost blocks move
  // there, and the last insert takes the subtotals between them once more.
  if (!order_by.empty()) {
    const std::string columns = ColumnListOf(batch.create);
    batch.create = Join(Replace(batch.create, "#DATA", "#TemDATA"), "\r\n",
                        batch.create, "\r\n");
    batch.append = Join(
        "Declare @SumID int,@MaxID int,@MinID int \r\n"
        "Select Top 1 @SumID=FSumSort From #TemData Order By FID DESC \r\n"
        "Select Top 1 @SumID=FSumSort From #TemData Where FSumSort>@SumID Order By FID DESC \r\n"
        "Select Row_Number() over(Order By ", order_by, ") as Num, FID Into #TemOrder"
        " From #TemData Where FSumSort=@SumID  \r\n"
        "While Exists(Select * From #TemOrder) "
        "Begin "
        "  Set @MinID=0   Select Top 1 @MaxID=FID From #TemOrder order by Num "
        "   Select Top 1 @MinID=IsNull(FID,0) From #TemData Where FSumSort=@SumID And FID<@MaxID Order By FID DESC "
        "   Insert Into #Data Select ", columns, " From #TemData Where FID>ISNull(@MinID,0) And FID<=@MaxID "
        "   Delete From #TemOrder Where FID=@MaxID "
        "End  \r\n"
        "Insert Into #Data Select ", columns, " From #TemData Where FSumSort>1 And FSumSort<@SumID \r\n"
        "Drop Table #TemOrder  Drop Table #TemData ");
  }
  return batch;
}
// clang-format on

}  // namespace salerpt
