// The order statistics item by item, and by currency and item: the whole request.
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/reports/rpt136_world.h"

namespace salerpt::testing {
namespace {

constexpr const char* kInsert =
    "  INSERT INTO {TABLE}  SELECT CASE   WHEN GROUPING(t1.FNumber)=1 THEN '合计' \r\n"
    " ELSE t1.FNumber END, \r\n"
    "{VALUES}\r\n"
    " CASE  WHEN GROUPING(t1.FNumber)=1 THEN 101 \r\n"
    " ELSE 0 END {FROM}{WHERE}";

constexpr const char* kCurrencyInsert =
    " INSERT INTO {TABLE}  SELECT CASE  WHEN GROUPING(t5.FName)=1 THEN '合计' \r\n"
    " ELSE t5.FName END, \r\n"
    " {D},t1.FNumber, \r\n"
    "{VALUES}\r\n"
    " CASE  WHEN GROUPING(t5.FName)=1 THEN 101 \r\n"
    " WHEN GROUPING(t1.FNumber)=1 THEN 106 \r\n"
    " ELSE 0 END {FROM}{WHERE}";

constexpr const char* kEndSel =
    "SELECT * FROM #DATA  {ONLYTOTALS}\r\n"
    " Order by FID \r\n"
    "DROP TABLE #DATA  ";

constexpr const char* kSortedAppend =
    " Insert Into #Data Select {LIST} From #TemData \r\n"
    " where FID<(Select Top 1 FID From #TemData Where FSumSort=101 Order By FID) Order By {ORDER}\r\n"
    " Insert Into #Data Select {LIST} From #TemData  where FID=(Select Top 1 FID From #TemData Where "
    "FSumSort=101 Order By FID)  Order By {ORDER}\r\n"
    "Drop Table #TemData ";

constexpr const char* kSortedCurrencyAppend =
    "while exists(Select * From #TemData Where FID<=(Select Top 1 FID From #TemData Where FSumSort=106 Order "
    "By FID)) \r\n"
    "Begin \r\n"
    " Insert Into #Data Select {LIST} From #TemData \r\n"
    " where FID<(Select Top 1 FID From #TemData Where FSumSort=106 Order By FID) Order By {ORDER}\r\n"
    " Insert Into #Data Select {LIST} From #TemData  where FID=(Select Top 1 FID From #TemData Where "
    "FSumSort=106 Order By FID)  Order By {ORDER}\r\n"
    " Delete From #TemData where FID<=(Select Top 1 FID From #TemData Where FSumSort=106 Order By FID) \r\n"
    "End \r\n"
    "Insert Into #Data Select {LIST} From #TemData Where FSumSort=101 \r\n"
    "Drop Table #TemData ";

Pieces PlainRequest() {
  return {{"SELECT",
           "SET NOCOUNT ON\r\n"
           "CREATE TABLE #DATA(\r\n"
           "{COLUMNS}\r\n" +
               std::string(kInsert)},
          {"GROUPBY", "Group by t1.FNumber WITH ROLLUP "},
          {"ITEMFILTER", "{ITEMFILTER}"},
          {"Append", ""},
          {"NoPrice", ""},
          {"NoTaxRate", ""},
          {"NoDate", ""},
          {"OnlyShowSum", "{ONLYSUM}"},
          {"EndSel", kEndSel}};
}

Pieces CurrencyRequest() {
  Pieces request = PlainRequest();
  request["SELECT"] =
      "SET NOCOUNT ON\r\n"
      "CREATE TABLE #DATA(\r\n"
      "{CURRENCYCOLUMNS}{COLUMNS}\r\n" +
      std::string(kCurrencyInsert);
  request["GROUPBY"] =
      "Group by t5.FName,t1.FNumber WITH ROLLUP \r\n"
      " UPdate #Data Set FOrgAmount =FAmount Where FSumSort =101 \r\n"
      "{DECIMALS}";
  return request;
}

Pieces SortedRequest() {
  Pieces request = PlainRequest();
  request["SELECT"] =
      "SET NOCOUNT ON\r\n"
      "CREATE TABLE #DATA(\r\n"
      "{COLUMNS}\r\n"
      "CREATE TABLE #TemData(\r\n"
      "{COLUMNS}\r\n" +
      std::string(kInsert);
  request["Append"] = kSortedAppend;
  return request;
}

Pieces SortedCurrencyRequest() {
  Pieces request = CurrencyRequest();
  request["SELECT"] =
      "SET NOCOUNT ON\r\n"
      "CREATE TABLE #DATA(\r\n"
      "{CURRENCYCOLUMNS}{COLUMNS}\r\n"
      "CREATE TABLE #TemData(\r\n"
      "{CURRENCYCOLUMNS}{COLUMNS}\r\n" +
      std::string(kCurrencyInsert);
  request["Append"] = kSortedCurrencyAppend;
  return request;
}

const Pieces kPlain = {{"TABLE", "#DATA"}};
const Pieces kSorted = {{"TABLE", "#TemData"}, {"LIST", "{COMMON}"}, {"ORDER", "FQty DESC"}};
const Pieces kSortedByCurrency = {
    {"TABLE", "#TemData"}, {"LIST", "{CURRENCYCOMMON}, {COMMON}"}, {"ORDER", "FQty DESC"}};

Pieces With(Pieces pieces, const Pieces& more) {
  for (const auto& [name, text] : more) pieces.insert_or_assign(name, text);
  return pieces;
}

using Rpt136ByItem = Rpt136World;

TEST_F(Rpt136ByItem, SendsTheWholeBatch) {
  ExpectLines(Fetch(), PlainRequest(), kPlain);
}

TEST_F(Rpt136ByItem, SendsTheWholeBatchByCurrency) {
  ExpectLines(Fetch({{"ChkbyCurrency", kYes}}), CurrencyRequest(), kPlain);
}

TEST_F(Rpt136ByItem, ReadsTheCurrencyLevelInBothSpellings) {
  ExpectLines(Fetch({{"ChkByCurrency", kYes}}), CurrencyRequest(), kPlain);
  ExpectLines(Fetch({{"ChkbyCurrency", "1"}}), CurrencyRequest(), kPlain);
}

TEST_F(Rpt136ByItem, HasNoCurrencyLevelForAnyOtherValue) {
  ExpectLines(Fetch({{"ChkbyCurrency", std::int32_t{0}}}), PlainRequest(), kPlain);
  ExpectLines(Fetch({{"ChkbyCurrency", std::int32_t{2}}}), PlainRequest(), kPlain);
}

TEST_F(Rpt136ByItem, IgnoresWhatBelongsToAGroupingWhereNoneIsAsked) {
  for (const std::int32_t group_by : {0, 2}) {
    ExpectLines(Fetch({{"GroupBy", group_by},
                       {"SumMode", std::int32_t{3}},
                       {"SumField", SumField("区域", 1, "FRegionID", "t_SubMessage")},
                       {"BLevel", std::int32_t{1}},
                       {"ELevel", std::int32_t{2}}}),
                PlainRequest(), kPlain);
  }
}

TEST_F(Rpt136ByItem, MovesTheRowsInTheAskedOrderAndTheTotalLast) {
  ExpectLines(Fetch({{"OrderBy", "FQty DESC"}}), SortedRequest(), kSorted);
  ExpectPieces(
      request_.at("Append"),
      {" From #TemData \r\n where FID<(Select Top 1 FID From #TemData Where FSumSort=101 Order By FID) "
       "Order By FQty DESC\r\n",
       " From #TemData  where FID=(Select Top 1 FID From #TemData Where FSumSort=101 Order By FID)  "
       "Order By FQty DESC\r\n",
       "Drop Table #TemData "});
}

TEST_F(Rpt136ByItem, MovesTheRowsOfEachCurrencyInTheAskedOrder) {
  ExpectLines(Fetch({{"OrderBy", "FQty DESC"}, {"ChkbyCurrency", kYes}}), SortedCurrencyRequest(),
              kSortedByCurrency);
  ExpectPieces(
      request_.at("Append"),
      {"while exists(Select * From #TemData Where FID<=(Select Top 1 FID From #TemData Where FSumSort=106 "
       "Order "
       "By FID)) \r\nBegin \r\n Insert Into #Data Select ",
       " From #TemData \r\n where FID<(Select Top 1 FID From #TemData Where FSumSort=106 Order By FID) Order "
       "By "
       "FQty DESC\r\n Insert Into #Data Select ",
       " From #TemData  where FID=(Select Top 1 FID From #TemData Where FSumSort=106 Order By FID)  Order By "
       "FQty DESC\r\n Delete From #TemData where FID<=(Select Top 1 FID From #TemData Where FSumSort=106 "
       "Order "
       "By FID) \r\nEnd \r\nInsert Into #Data Select ",
       " From #TemData Where FSumSort=101 \r\nDrop Table #TemData "});
}

TEST_F(Rpt136ByItem, WritesTheSortedTableToTheLetter) {
  for (const std::int32_t by_currency : {0, 1}) {
    const Request& request = Fetch({{"OrderBy", "FQty DESC"}, {"ChkbyCurrency", by_currency}});
    const Pieces expected = by_currency == 1 ? SortedCurrencyRequest() : SortedRequest();
    EXPECT_TRUE(SameText(WithoutEmptyLines(request.at("SELECT")),
                         WithoutEmptyLines(Text(expected.at("SELECT"), kSorted))));
  }
}

TEST_F(Rpt136ByItem, ReadsTheOrderUnderTheKeyThatDialogsWrite) {
  ExpectLines(Fetch({{"Orderby", "FQty DESC"}}), SortedRequest(), kSorted);
}

TEST_F(Rpt136ByItem, UpdatesTheReportsTableWhileTheRowsStillLieInTheSortedOne) {
  Fetch({{"OrderBy", "FQty DESC"}, {"ChkbyCurrency", kYes}});
  EXPECT_TRUE(HasText(request_.at("GROUPBY"), " UPdate #Data Set FOrgAmount =FAmount Where FSumSort =101 "));
  EXPECT_TRUE(HasText(request_.at("GROUPBY"), " from #DATA t1 "));
  EXPECT_FALSE(Contains(request_.at("GROUPBY"), "#Tem"));
}

TEST_F(Rpt136ByItem, NeedsNoTableOfAnOrderWhereNoneIsAsked) {
  for (const std::int32_t by_currency : {0, 1}) {
    const Request& request = Fetch({{"OrderBy", ""}, {"ChkbyCurrency", by_currency}});
    for (const auto& [key, text] : request) EXPECT_FALSE(Contains(text, "#Tem")) << "under " << key;
  }
}

TEST_F(Rpt136ByItem, ShowsTotalsOnlyByTheFinalSelect) {
  const Pieces totals = {{"TABLE", "#DATA"}, {"ONLYTOTALS", "WHERE FSumSort>100"}, {"ONLYSUM", "1"}};
  ExpectLines(Fetch({{"OnlyShowSum", kYes}}), PlainRequest(), totals);
  ExpectLines(Fetch({{"OnlyShowSum", kYes}, {"ChkbyCurrency", kYes}}), CurrencyRequest(), totals);
}

TEST_F(Rpt136ByItem, KeepsAmountsAtTheScaleOfTheBaseCurrency) {
  UseScale("4");
  ExpectLines(Fetch(), PlainRequest(), With(kPlain, {{"D", "4"}}));
  ExpectLines(Fetch({{"ChkbyCurrency", kYes}}), CurrencyRequest(), With(kPlain, {{"D", "4"}}));
}

TEST_F(Rpt136ByItem, KeepsTheOrderAtAnyScale) {
  UseScale("0");
  ExpectLines(Fetch({{"OrderBy", "FQty DESC"}}), SortedRequest(), With(kSorted, {{"D", "0"}}));
  ExpectLines(Fetch({{"OrderBy", "FQty DESC"}, {"ChkbyCurrency", kYes}}), SortedCurrencyRequest(),
              With(kSortedByCurrency, {{"D", "0"}}));
}

TEST_F(Rpt136ByItem, KeepsAmountsAtScaleTwoWhereTheBaseCurrencyHasNoRow) {
  currency_->Gives("GetData", OneField("FScale"));
  ExpectLines(Fetch(), PlainRequest(), kPlain);
}

TEST_F(Rpt136ByItem, RestrictsOrdersToTheCustomersThatTheUserMaySee) {
  RestrictCustomers();
  const Pieces restricted = With(kPlain, {{"TAIL", " And  CharIndex('16394',t2.FRightUserID)>0 "}});
  ExpectLines(Fetch(), PlainRequest(), restricted);
  ExpectLines(Fetch({{"ChkbyCurrency", kYes}}), CurrencyRequest(), restricted);
}

TEST_F(Rpt136ByItem, AsksTheMiddleTierOnceWithTheLoginAndTakesItsRows) {
  Fetch();
  ASSERT_EQ(sales_->CalledMembers(), std::vector<std::string>{"GetSaleAmountData"});
  ASSERT_EQ(sales_->Calls()[0].arguments.size(), 2U);
  EXPECT_EQ(sales_->Calls()[0].arguments[0].ToText(), kProps);
  EXPECT_NE(As<Dictionary>(sales_->Calls()[0].arguments[1]), As<Dictionary>(GetMember(Report(), "Filter")));
  EXPECT_EQ(GetMember(Report(), "Rs").ToObject(), rows_);
  EXPECT_EQ(Error(), "");
}

TEST_F(Rpt136ByItem, WritesTheKeysInTheirOldSpelling) {
  std::vector<std::string> keys;
  on_fetch_ = [&](Arguments arguments) {
    const auto request = As<Dictionary>(arguments[1]);
    for (const auto& entry : request->Entries()) keys.push_back(entry.key);
  };
  Fetch();
  std::ranges::sort(keys);
  std::vector<std::string> expected = {"SElECT",    "GROUPBY", "ITEMFILTER", "Append",     "NoPrice",
                                       "NoTaxRate", "NoDate",  "EndSel",     "OnlyShowSum"};
  std::ranges::sort(expected);
  EXPECT_EQ(keys, expected);
}

}  // namespace
}  // namespace salerpt::testing
