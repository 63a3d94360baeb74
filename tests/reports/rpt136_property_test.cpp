// The order statistics by a property: the request, with and without currency, with and without a table of the
// property's values.
#include <gtest/gtest.h>

#include "tests/reports/rpt136_world.h"

namespace salerpt::testing {
namespace {

constexpr const char* kTable =
    "CREATE TABLE {TABLE}(\r\n"
    "{CURRENCY}"
    "  FProp7{CLASS} varchar(355) null,\r\n"
    "{COLUMNS}\r\n";

constexpr const char* kSelect =
    "SET NOCOUNT ON\r\n"
    "{TABLES}"
    "INSERT INTO {INTO} SELECT CASE WHEN GROUPING({COLUMN})=1 THEN '合计' "
    "WHEN GROUPING(t1.FNumber)=1 THEN CONVERT(varchar(355),{COLUMN})+'(小计)' "
    "ELSE CONVERT(varchar(355),{COLUMN}) END, t1.FNumber,{VALUES}{CODES}{FROM}{JOIN}{WHERE}";

constexpr const char* kCodes =
    " CASE WHEN GROUPING({COLUMN})=1 THEN 101\r\n"
    " WHEN  GROUPING(t1.FNumber)=1 THEN 102 ELSE 0 END ";

constexpr const char* kCurrencyCodes =
    " CASE WHEN GROUPING(t5.FName)=1 THEN 101 \r\n"
    " WHEN GROUPING({COLUMN})=1 THEN 102\r\n"
    " WHEN  GROUPING(t1.FNumber)=1 THEN 103 ELSE 0 END ";

// What stands in the first columns by currency; the words around the values are the batch's own.
constexpr const char* kCurrencyHead =
    "CASE WHEN GROUPING(t5.FName)=1 THEN '合计' WHEN GROUPING({COLUMN})=1 THEN t5.FName + '(小计)' "
    "ELSE t5.FName END, {D}, "
    "CASE WHEN GROUPING(t1.FNumber)=1 THEN CONVERT(varchar(355),{COLUMN})+'(小计)' "
    "ELSE CONVERT(varchar(355),{COLUMN}) END, t1.FNumber,";

constexpr const char* kCurrencySelect =
    "SET NOCOUNT ON\r\n"
    "{TABLES}"
    "INSERT INTO {INTO} SELECT {HEAD}{VALUES}{CODES}{FROM}{JOIN}{WHERE}";

constexpr const char* kCurrencyGroupBy =
    " GROUP BY t5.FName,{COLUMN},t1.FNumber WITH ROLLUP \r\n"
    "Update #Data Set FOrgAmount = FAmount Where FSumSort =101 \r\n"
    "{DECIMALS}";

constexpr const char* kResort =
    "Declare @MaxID int,@MinID int \r\n"
    "Select Row_Number() over(Order By FQty DESC) as Num, FID Into #TemOrder From #TemData Where "
    "FSumSort=102 \r\n"
    "While Exists(Select * From #TemOrder) Begin     Set @MinID=0    Select Top 1 @MaxID=FID From #TemOrder "
    "order by Num    Select Top 1 @MinID=IsNull(FID,0) From #TemData Where FSumSort=102 And FID<@MaxID Order "
    "By FID DESC    "
    "Insert Into #Data Select {LIST} From #TemData Where FID>ISNull(@MinID,0) And FID<=@MaxID    Delete From "
    "#TemOrder Where FID=@MaxID End  \r\n"
    "Insert Into #Data Select {LIST} From #TemData Where FSumSort=101 \r\n"
    "Drop Table #TemOrder   Drop Table #TemData  ";

// The last drop names a table that the batch never made.
constexpr const char* kCurrencyResort =
    "Declare @MaxID int,@MinID int \r\n"
    "Select FID Into #TemOrder From #TemData Where FSumSort=103 Order By FQty DESC\r\n"
    "While Exists(Select * From #TemOrder) Begin     Set @MinID=0    Select Top 1 @MaxID=FID From #TemOrder "
    "   Select Top 1 @MinID=IsNull(FID,0) From #TemData Where FSumSort=103 And FID<@MaxID Order By FID DESC  "
    "  "
    "Insert Into #Data Select {LIST} From #TemData Where FID>ISNull(@MinID,0) And FID<=@MaxID    Delete From "
    "#TemOrder Where FID=@MaxID End  \r\n"
    "Insert Into #Data Select {LIST} From #TemData Where FSumSort=101 \r\n"
    "Drop Table #TemOrder   Drop Table @TemData  ";

Pieces PropertyRequest() {
  return {{"SELECT", kSelect},
          {"GROUPBY", " GROUP BY {COLUMN},t1.FNumber WITH ROLLUP "},
          {"ITEMFILTER", "{ITEMFILTER}"},
          {"Append", ""},
          {"NoPrice", ""},
          {"NoTaxRate", ""},
          {"NoDate", ""},
          {"OnlyShowSum", "{ONLYSUM}"},
          {"EndSel",
           "SELECT * FROM #DATA  {ONLYTOTALS}\r\n"
           " Order by FID \r\n"
           "DROP TABLE #DATA  "}};
}

Pieces CurrencyRequest() {
  Pieces request = PropertyRequest();
  request["SELECT"] = kCurrencySelect;
  request["GROUPBY"] = kCurrencyGroupBy;
  return request;
}

// `column` is the column grouped by, as it stands in the batch.
Pieces Property(const char* item_class, const char* column, bool by_currency = false, const char* join = "") {
  Pieces pieces = {{"CLASS", item_class},
                   {"COLUMN", column},
                   {"JOIN", join},
                   {"CURRENCY", by_currency ? "{CURRENCYCOLUMNS}" : ""},
                   {"CODES", by_currency ? kCurrencyCodes : kCodes},
                   {"HEAD", kCurrencyHead},
                   {"INTO", "#DATA"},
                   {"TABLE", "#DATA"},
                   {"TABLES", kTable}};
  pieces["LIST"] =
      std::string(by_currency ? "{CURRENCYCOMMON}, " : "") + "FProp7" + item_class + ", {COMMON}";
  return pieces;
}

Pieces Sorted(Pieces pieces) {
  pieces["INTO"] = "#TemData";
  pieces["TABLES"] =
      "CREATE TABLE #DATA(\r\n{CURRENCY}  FProp7{CLASS} varchar(355) null,\r\n{COLUMNS}\r\n"
      "CREATE TABLE #TemData(\r\n{CURRENCY}  FProp7{CLASS} varchar(355) null,\r\n{COLUMNS}\r\n";
  return pieces;
}

constexpr const char* kRegionJoin = "Left Join t_SubMessage tt2 On FRegionID=tt2.FInterID\r\n";

class Rpt136ByProperty : public Rpt136World {
 protected:
  static DictionaryRef Region() { return SumField("区域", 1, "FRegionID", "t_SubMessage"); }
};

TEST_F(Rpt136ByProperty, GroupsOnTheColumnOfItsClass) {
  const struct {
    std::int32_t item_class;
    const char* digits;
    const char* column;
  } classes[] = {{1, "1", "t2.FHelp"}, {3, "3", "t4.FHelp"}, {4, "4", "t1.FHelp"}, {29, "29", "v1.FHelp"}};
  for (const auto& [item_class, digits, column] : classes) {
    SCOPED_TRACE(digits);
    ExpectBatch(FetchBy(SumField("助记", item_class, "FHelp")), PropertyRequest(), Property(digits, column));
    ExpectBatch(FetchBy(SumField("助记", item_class, "FHelp"), {{"ChkbyCurrency", kYes}}), CurrencyRequest(),
                Property(digits, column, true));
  }
}

TEST_F(Rpt136ByProperty, GroupsOnTheTableOfItsValuesAndJoinsItOnTheBareColumn) {
  ExpectBatch(FetchBy(Region()), PropertyRequest(), Property("1", " tt2.FName", false, kRegionJoin));
  ExpectBatch(FetchBy(Region(), {{"ChkbyCurrency", kYes}}), CurrencyRequest(),
              Property("1", " tt2.FName", true, kRegionJoin));
}

TEST_F(Rpt136ByProperty, WritesItsSettledWordsToTheLetter) {
  const Pieces pieces = Property("1", " tt2.FName", false, kRegionJoin);
  FetchBy(Region());
  ExpectPieces(request_.at("SELECT"),
               {"SET NOCOUNT ON\r\n", "CREATE TABLE #DATA(\r\n", "  FProp71 varchar(355) null,", "{COLUMNS}",
                "{VALUES}", "{CODES}{FROM}{JOIN}{WHERE}"},
               pieces);
  EXPECT_TRUE(HasText(request_.at("GROUPBY"), " GROUP BY  tt2.FName,t1.FNumber WITH ROLLUP "));
  EXPECT_TRUE(SameText(request_.at("ITEMFILTER"), Text("{ITEMFILTER}")));
}

TEST_F(Rpt136ByProperty, WritesItsSettledWordsByCurrencyToTheLetter) {
  const Pieces pieces = Property("4", "t1.FHelp", true);
  FetchBy(SumField("助记", 4, "FHelp"), {{"ChkbyCurrency", kYes}});
  ExpectPieces(request_.at("SELECT"),
               {"CREATE TABLE #DATA(\r\n{CURRENCYCOLUMNS}", "  FProp74 varchar(355) null,", "{COLUMNS}",
                "{VALUES}", "{CODES}{FROM}{WHERE}"},
               pieces);
  ExpectPieces(request_.at("GROUPBY"),
               {" GROUP BY t5.FName,t1.FHelp,t1.FNumber WITH ROLLUP ",
                "Update #Data Set FOrgAmount = FAmount Where FSumSort =101 ", "{DECIMALS}"},
               pieces);
}

TEST_F(Rpt136ByProperty, TakesAPropertyForAnyModeThatIsNoLevelGrouping) {
  for (const std::int32_t mode : {0, 3, 5, 99}) {
    SCOPED_TRACE(mode);
    ExpectBatch(Fetch({{"GroupBy", kYes}, {"SumMode", mode}, {"SumField", SumField("助记", 4, "FHelp")}}),
                PropertyRequest(), Property("4", "t1.FHelp"));
  }
}

TEST_F(Rpt136ByProperty, MovesTheBlocksOfItsValuesInTheAskedOrder) {
  Pieces request = PropertyRequest();
  request["Append"] = kResort;
  ExpectBatch(FetchBy(SumField("助记", 4, "FHelp"), {{"OrderBy", "FQty DESC"}}), request,
              Sorted(Property("4", "t1.FHelp")));
  ExpectBatch(FetchBy(Region(), {{"OrderBy", "FQty DESC"}}), request,
              Sorted(Property("1", " tt2.FName", false, kRegionJoin)));
}

TEST_F(Rpt136ByProperty, MovesTheBlocksByCurrencyAndDropsATableThatNeverWas) {
  Pieces request = CurrencyRequest();
  request["Append"] = kCurrencyResort;
  ExpectBatch(FetchBy(SumField("助记", 4, "FHelp"), {{"OrderBy", "FQty DESC"}, {"ChkbyCurrency", kYes}}),
              request, Sorted(Property("4", "t1.FHelp", true)));
  ExpectPieces(request_.at("Append"), {"Drop Table #TemOrder   Drop Table @TemData  "});
}

TEST_F(Rpt136ByProperty, ShowsTotalsOnly) {
  Pieces pieces = Property("4", "t1.FHelp");
  pieces["ONLYTOTALS"] = "WHERE FSumSort>100";
  pieces["ONLYSUM"] = "1";
  ExpectBatch(FetchBy(SumField("助记", 4, "FHelp"), {{"OnlyShowSum", kYes}}), PropertyRequest(), pieces);
}

TEST_F(Rpt136ByProperty, BoundsRestrictsAndScales) {
  RestrictCustomers();
  UseScale("3");
  for (const bool by_currency : {false, true}) {
    Pieces pieces = Property("4", "t1.FHelp", by_currency);
    pieces["D"] = "3";
    pieces["TAIL"] = " And  CharIndex('16394',t2.FRightUserID)>0 ";
    pieces["ITEM"] = " AND t1.FNumber>='0''1'";
    ExpectBatch(FetchBy(SumField("助记", 4, "FHelp"),
                        {{"BItemNumber", "0'1"}, {"ChkbyCurrency", std::int32_t{by_currency}}}),
                by_currency ? CurrencyRequest() : PropertyRequest(), pieces);
  }
}

}  // namespace
}  // namespace salerpt::testing
