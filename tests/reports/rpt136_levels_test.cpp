// The order statistics by class levels: the request of each grouping, with and without currency.
#include <gtest/gtest.h>

#include "sqltoolkit/item_level.h"
#include "tests/reports/rpt136_groupings.h"
#include "tests/reports/rpt136_world.h"

namespace salerpt::testing {
namespace {

using rpt136::Grouping;
using rpt136::kCustomerAndItemClasses;
using rpt136::kCustomerAndItemClassesByCurrency;
using rpt136::kCustomerClasses;
using rpt136::kCustomerClassesByCurrency;
using rpt136::kItemClasses;
using rpt136::kItemClassesAndCustomer;
using rpt136::kItemClassesAndCustomerByCurrency;
using rpt136::kItemClassesByCurrency;
using rpt136::kLabelTotal;
using rpt136::OneLevel;
using rpt136::Span;
using rpt136::TwoLevels;

constexpr Grouping kGroupings[] = {
    kItemClasses,
    kItemClassesByCurrency,
    kCustomerClasses,
    kCustomerClassesByCurrency,
    kCustomerAndItemClasses,
    kCustomerAndItemClassesByCurrency,
    kItemClassesAndCustomer,
    kItemClassesAndCustomerByCurrency,
};

constexpr const char* kTable =
    "IF object_id('tempdb..{TABLE}') IS NOT NULL DROP TABLE  {TABLE}   CREATE TABLE {TABLE}(\r\n"
    "{GROUPCOLUMNS}{COLUMNS}\r\n";

constexpr const char* kResort =
    "Declare @SumID int,@MaxID int,@MinID int \r\n"
    "Select Top 1 @SumID=FSumSort From #TemData Order By FID DESC \r\n"
    "Select Top 1 @SumID=FSumSort From #TemData Where FSumSort>@SumID Order By FID DESC \r\n"
    "Select Row_Number() over(Order By FQty DESC) as Num, FID Into #TemOrder From #TemData Where "
    "FSumSort=@SumID  \r\n"
    "While Exists(Select * From #TemOrder) Begin   Set @MinID=0   Select Top 1 @MaxID=FID From #TemOrder "
    "order "
    "by Num    Select Top 1 @MinID=IsNull(FID,0) From #TemData Where FSumSort=@SumID And FID<@MaxID Order By "
    "FID DESC    Insert Into #Data Select {LIST} From #TemData Where FID>ISNull(@MinID,0) And FID<=@MaxID    "
    "Delete From #TemOrder Where FID=@MaxID End  \r\n"
    "Insert Into #Data Select {LIST} From #TemData Where FSumSort>1 And FSumSort<@SumID \r\n"
    "Drop Table #TemOrder  Drop Table #TemData ";

class Rpt136ByLevels : public Rpt136World {
 protected:
  const Request& FetchGrouping(const Grouping& grouping, const Span& span, Entries more = {}) {
    FetchLevels(grouping.sum_mode, span.begin, span.end, more);
    if (!grouping.by_currency) return request_;
    const auto filter = As<Dictionary>(GetMember(Report(), "Filter"));
    filter->Set("ChkbyCurrency", kYes);
    request_.clear();
    Call(Report(), "GetReportData");
    EXPECT_TRUE(Ok()) << Error();
    return request_;
  }
  static Pieces ExpectedRequest(const Grouping& grouping, const char* tables = "{DATATABLE}") {
    return {{"SELECT", std::string("SET NOCOUNT ON\r\n{LEVELTABLE}\r\n") + tables +
                           "INSERT INTO  {INTO} {SELECTHEAD},\r\n{VALUES}CASE\r\n{CODES}  ELSE   0 END \r\n"
                           "{FROM}{ON}\r\n{WHERE}"},
            {"GROUPBY", std::string(grouping.group_by) + " WITH ROLLUP\r\n{LABELS}{UPDATES}"},
            {"ITEMFILTER", "{ITEMFILTER}"},
            {"Append", ""},
            {"NoPrice", ""},
            {"NoTaxRate", ""},
            {"NoDate", ""},
            {"OnlyShowSum", "{ONLYSUM}"},
            {"EndSel",
             "SELECT * FROM #DATA  {ONLYTOTALS}\r\n"
             " Order by FID \r\n"
             "DROP TABLE #DATA  \r\n"
             "DROP TABLE #ItemLevel"}};
  }
  static Pieces ExpectedPieces(const Grouping& grouping, const Span& span, const char* begin = "",
                               const char* end = "") {
    Pieces pieces = span.pieces;
    pieces["ITEMFIELD"] = grouping.item_field;
    pieces["GROUPCOLUMNS"] = grouping.columns;
    pieces["LIST"] = std::string(grouping.list) + ", {COMMON}";
    pieces["SELECTHEAD"] = grouping.select;
    pieces["CODES"] = grouping.codes;
    pieces["ON"] = grouping.on;
    pieces["UPDATES"] = grouping.updates;
    pieces["LABELTOTAL"] = kLabelTotal;
    pieces["INTO"] = "#DATA";
    pieces["DATATABLE"] = Expand(kTable, {}, Table("#DATA"));
    pieces["SORTEDTABLE"] = Expand(kTable, {}, Table("#TemDATA"));
    pieces["LEVELTABLE"] =
        BuildItemLevelSQL(grouping.item_class, "", begin, end, true, span.begin, span.end, 0);
    return pieces;
  }
  void ExpectGrouping(const Grouping& grouping) {
    for (const Span& span : {OneLevel(), TwoLevels()}) {
      SCOPED_TRACE("levels from " + std::to_string(span.begin));
      ExpectLines(FetchGrouping(grouping, span), ExpectedRequest(grouping), ExpectedPieces(grouping, span));
    }
  }

 private:
  // The other pieces stay as they are.
  static Pieces Table(const char* name) {
    return {{"TABLE", name},
            {"GROUPCOLUMNS", "\x01GROUPCOLUMNS\x02"},
            {"COLUMNS",
             "\x01"
             "COLUMNS\x02"}};
  }
  static std::string Expand(std::string_view pattern, const Pieces& pieces, const Pieces& more) {
    std::string text = salerpt::testing::Expand(pattern, pieces, more);
    for (char& c : text) {
      if (c == '\x01') c = '{';
      if (c == '\x02') c = '}';
    }
    return text;
  }
};

TEST_F(Rpt136ByLevels, SendsItemClasses) {
  ExpectGrouping(kItemClasses);
}

TEST_F(Rpt136ByLevels, SendsItemClassesByCurrency) {
  ExpectGrouping(kItemClassesByCurrency);
}

TEST_F(Rpt136ByLevels, SendsCustomerClasses) {
  ExpectGrouping(kCustomerClasses);
}

TEST_F(Rpt136ByLevels, SendsCustomerClassesByCurrency) {
  ExpectGrouping(kCustomerClassesByCurrency);
}

TEST_F(Rpt136ByLevels, SendsTheCustomerBeforeItemClasses) {
  ExpectGrouping(kCustomerAndItemClasses);
}

TEST_F(Rpt136ByLevels, SendsTheCustomerBeforeItemClassesByCurrencyWithTwoEqualCodes) {
  ExpectGrouping(kCustomerAndItemClassesByCurrency);
}

TEST_F(Rpt136ByLevels, SendsItemClassesWithTheCustomerBehindThem) {
  ExpectGrouping(kItemClassesAndCustomer);
}

TEST_F(Rpt136ByLevels, SendsItemClassesWithTheCustomerBehindThemByCurrencyAndItsFixedCode) {
  ExpectGrouping(kItemClassesAndCustomerByCurrency);
}

TEST_F(Rpt136ByLevels, TakesTheCustomerBehindTheLevelsForAnyOtherModeWithoutAProperty) {
  for (const std::int32_t mode : {0, 3, 5, 6, 99}) {
    SCOPED_TRACE(mode);
    Grouping grouping = kItemClassesAndCustomer;
    grouping.sum_mode = mode;
    ExpectLines(FetchGrouping(grouping, OneLevel()), ExpectedRequest(grouping),
                ExpectedPieces(grouping, OneLevel()));
    ExpectLines(FetchGrouping(grouping, OneLevel(), {{"SumField", SumField("", 1, "")}}),
                ExpectedRequest(grouping), ExpectedPieces(grouping, OneLevel()));
  }
}

TEST_F(Rpt136ByLevels, StaysWithTheLevelsOfItsModeWhateverPropertyIsNamed) {
  for (const Grouping& grouping : {kItemClasses, kCustomerClasses, kCustomerAndItemClasses}) {
    ExpectLines(FetchGrouping(grouping, OneLevel(), {{"SumField", SumField("区域", 1, "FRegionID")}}),
                ExpectedRequest(grouping), ExpectedPieces(grouping, OneLevel()));
  }
}

TEST_F(Rpt136ByLevels, MovesTheBlocksOfTheInnermostSubtotalInTheAskedOrder) {
  for (const Grouping& grouping : kGroupings) {
    for (const Span& span : {OneLevel(), TwoLevels()}) {
      SCOPED_TRACE("mode " + std::to_string(grouping.sum_mode) +
                   (grouping.by_currency ? " by currency" : "") + ", levels from " +
                   std::to_string(span.begin));
      Pieces pieces = ExpectedPieces(grouping, span);
      pieces["INTO"] = "#TemData";
      const Request& request = FetchGrouping(grouping, span, {{"OrderBy", "FQty DESC"}});
      // Which of the two tables is created first makes no difference to the server.
      const bool sorted_first =
          request.at("SELECT").find("TABLE #Tem") < request.at("SELECT").find("TABLE #DATA(");
      Pieces expected =
          ExpectedRequest(grouping, sorted_first ? "{SORTEDTABLE}{DATATABLE}" : "{DATATABLE}{SORTEDTABLE}");
      expected["Append"] = kResort;
      ExpectLines(request, expected, pieces);
    }
  }
}

TEST_F(Rpt136ByLevels, ShowsTotalsOnly) {
  for (const Grouping& grouping : {kItemClasses, kCustomerAndItemClassesByCurrency}) {
    Pieces pieces = ExpectedPieces(grouping, OneLevel());
    pieces["ONLYTOTALS"] = "WHERE FSumSort>100";
    pieces["ONLYSUM"] = "1";
    ExpectLines(FetchGrouping(grouping, OneLevel(), {{"OnlyShowSum", kYes}}), ExpectedRequest(grouping),
                pieces);
  }
}

TEST_F(Rpt136ByLevels, BoundsRowsLevelsAndTheItemFilter) {
  Pieces pieces = ExpectedPieces(kItemClasses, OneLevel(), "01'1", "09");
  pieces["ITEM"] = " AND t1.FNumber>='01''1' AND t1.FNumber<='09' AND t2.FNumber>='02'";
  ExpectLines(FetchGrouping(kItemClasses, OneLevel(),
                            {{"BItemNumber", "01'1"}, {"EItemNumber", "09"}, {"BCustNumber", "02"}}),
              ExpectedRequest(kItemClasses), pieces);
  pieces = ExpectedPieces(kCustomerClasses, OneLevel(), "02", "03");
  pieces["ITEM"] = " AND t1.FNumber>='01' AND t2.FNumber>='02' AND t2.FNumber<='03'";
  ExpectLines(FetchGrouping(kCustomerClasses, OneLevel(),
                            {{"BItemNumber", "01"}, {"BCustNumber", "02"}, {"ECustNumber", "03"}}),
              ExpectedRequest(kCustomerClasses), pieces);
}

TEST_F(Rpt136ByLevels, RestrictsOrdersToTheCustomersThatTheUserMaySee) {
  RestrictCustomers();
  for (const Grouping& grouping : kGroupings) {
    Pieces pieces = ExpectedPieces(grouping, OneLevel());
    pieces["TAIL"] = " And  CharIndex('16394',t2.FRightUserID)>0 ";
    ExpectLines(FetchGrouping(grouping, OneLevel()), ExpectedRequest(grouping), pieces);
  }
}

TEST_F(Rpt136ByLevels, KeepsAmountsAtTheScaleOfTheBaseCurrency) {
  UseScale("4");
  for (const Grouping& grouping : kGroupings) {
    Pieces pieces = ExpectedPieces(grouping, TwoLevels());
    pieces["D"] = "4";
    ExpectLines(FetchGrouping(grouping, TwoLevels()), ExpectedRequest(grouping), pieces);
  }
}

TEST_F(Rpt136ByLevels, UsesShortCodesInTheLevelTable) {
  UseShortCode();
  Report();
  Pieces pieces = ExpectedPieces(kItemClasses, OneLevel(), "1", "9");
  pieces["ITEM"] = " AND t1.FShortNumber>='1' AND t1.FShortNumber<='9'";
  ExpectLines(FetchGrouping(kItemClasses, OneLevel(), {{"BItemNumber", "1"}, {"EItemNumber", "9"}}),
              ExpectedRequest(kItemClasses), pieces);
}

}  // namespace
}  // namespace salerpt::testing
