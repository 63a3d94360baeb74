// The outbound summary item by item: the whole request, to the letter.
#include <gtest/gtest.h>

#include "tests/reports/rpt128_world.h"

namespace salerpt::testing {
namespace {

using Rpt128ByItem = Rpt128World;

constexpr const char* kSelect =
    "\r\n"
    "    SET NOCOUNT ON\r\n"
    "{FILL}\r\n"
    "CREATE TABLE #DATA({COLUMNS}\r\n"
    "  INSERT INTO #DATA  SELECT CASE   WHEN GROUPING(t1.FNumber)=1 THEN '合计' \r\n"
    " ELSE t1.FNumber END, \r\n"
    "{VALUES}\r\n"
    " CASE  WHEN GROUPING(t1.FNumber)=1 THEN 101 \r\n"
    " ELSE 0 END {FROM} WHERE 1=1 \r\n"
    "{CONDITION}\r\n";

constexpr const char* kSortedSelect =
    "\r\n"
    "    SET NOCOUNT ON\r\n"
    "{FILL}\r\n"
    "CREATE TABLE #DATA({COLUMNS}\r\n"
    "CREATE TABLE #TemData({COLUMNS}\r\n"
    "  INSERT INTO #TemData  SELECT CASE   WHEN GROUPING(t1.FNumber)=1 THEN '合计' \r\n"
    " ELSE t1.FNumber END, \r\n"
    "{VALUES}\r\n"
    " CASE  WHEN GROUPING(t1.FNumber)=1 THEN 101 \r\n"
    " ELSE 0 END {FROM} WHERE 1=1 \r\n"
    "{CONDITION}\r\n";

constexpr const char* kAppend =
    "{UPDATE}\r\n"
    "\r\n"
    "Drop Table #DATA2 \r\n";

constexpr const char* kSortedAppend =
    "{UPDATE}\r\n"
    "Insert Into #DATA Select {LIST} From #TemData \r\n"
    "where FID<(Select Top 1 FID From #TemData Where FSumSort=101 Order By FID) Order By FOutQty DESC\r\n"
    "Insert Into #DATA Select {LIST} From #TemData \r\n"
    "where FID=(Select Top 1 FID From #TemData Where FSumSort=101 Order By FID) \r\n"
    "Drop Table #TemData \r\n"
    "\r\n"
    "Drop Table #DATA2 \r\n";

constexpr const char* kEndSel =
    "SELECT * FROM #DATA  \r\n"
    " ORDER BY FID \r\n"
    "DROP TABLE #DATA  \r\n";

Pieces PlainRequest() {
  return {{"SELECT", kSelect},
          {"GROUPBY", "Group by t1.FNumber WITH ROLLUP "},
          {"Append", kAppend},
          {"EndSel", kEndSel},
          {"Filter", "{CONDITION}"},
          {"ITEMFILTER", " FItemID In (SELECT DISTINCT ##ITEMID## FROM #DATA2 )"},
          {"NoPrice", ""},
          {"NoTaxRate", ""},
          {"NoDate", ""},
          {"RptID", "Rpt128"}};
}

Pieces SortedRequest() {
  Pieces request = PlainRequest();
  request["SELECT"] = kSortedSelect;
  request["Append"] = kSortedAppend;
  return request;
}

TEST_F(Rpt128ByItem, SendsTheWholeBatch) {
  ExpectRequest(Fetch(), PlainRequest(), {{"CONDITION", ""}});
}

TEST_F(Rpt128ByItem, TakesAnyGroupByButOneForItemByItem) {
  ExpectRequest(Fetch({{"GroupBy", std::int32_t{0}}, {"SumMode", std::int32_t{3}}}), PlainRequest(),
                {{"CONDITION", ""}});
  ExpectRequest(Fetch({{"GroupBy", std::int32_t{2}}, {"SumMode", std::int32_t{3}}}), PlainRequest(),
                {{"CONDITION", ""}});
}

TEST_F(Rpt128ByItem, CopiesTheRowsInTheAskedOrderAndTheTotalLast) {
  ExpectRequest(Fetch({{"OrderBy", "FOutQty DESC"}}), SortedRequest(),
                {{"CONDITION", ""}, {"TABLE", "#TemData"}});
}

TEST_F(Rpt128ByItem, ReadsTheOrderUnderTheKeyThatDialogsWrite) {
  ExpectRequest(Fetch({{"Orderby", "FOutQty DESC"}}), SortedRequest(),
                {{"CONDITION", ""}, {"TABLE", "#TemData"}});
}

TEST_F(Rpt128ByItem, NeedsNoTableOfAnOrderWhereNoneIsAsked) {
  for (const auto& [key, text] : Fetch({{"OrderBy", ""}})) {
    EXPECT_EQ(text.find("#Tem"), std::string::npos) << "under " << key;
  }
}

TEST_F(Rpt128ByItem, ShowsTotalsOnlyByTheFinalSelect) {
  Pieces request = PlainRequest();
  request["EndSel"] =
      "SELECT * FROM #DATA  WHERE FSumSort>100\r\n"
      " ORDER BY FID \r\n"
      "DROP TABLE #DATA  \r\n";
  ExpectRequest(Fetch({{"OnlyShowSum", std::int32_t{1}}}), request, {{"CONDITION", ""}});
}

TEST_F(Rpt128ByItem, PutsTheConditionIntoFillInsertAndFilter) {
  const char* condition = " AND t1.FNumber>='01.01' AND t2.FNumber<='02'";
  ExpectRequest(Fetch({{"BItemNumber", "01.01"}, {"ECustNumber", "02"}}), PlainRequest(),
                {{"CONDITION", condition}, {"ITEM", condition}});
}

TEST_F(Rpt128ByItem, PutsTheConditionIntoTheSortedInsertToo) {
  const char* condition = " AND t1.FNumber<='09'";
  ExpectRequest(Fetch({{"EItemNumber", "09"}, {"OrderBy", "FOutQty DESC"}}), SortedRequest(),
                {{"CONDITION", condition}, {"ITEM", condition}, {"TABLE", "#TemData"}});
}

TEST_F(Rpt128ByItem, KeepsAmountsAtTheScaleOfTheBaseCurrency) {
  UseScale("4");
  ExpectRequest(Fetch(), PlainRequest(), {{"CONDITION", ""}, {"D", "4"}});
}

TEST_F(Rpt128ByItem, KeepsAmountsAtScaleTwoWhereTheBaseCurrencyHasNoRow) {
  currency_->Gives("GetData", OneField("FScale"));
  ExpectRequest(Fetch(), PlainRequest(), {{"CONDITION", ""}, {"D", "2"}});
}

TEST_F(Rpt128ByItem, KeepsWholeAmountsAtScaleNought) {
  UseScale("0");
  ExpectRequest(Fetch(), PlainRequest(), {{"CONDITION", ""}, {"D", "0"}});
}

TEST_F(Rpt128ByItem, RestrictsBothHalvesToTheCustomersThatTheUserMaySee) {
  RestrictCustomers();
  ExpectRequest(Fetch(), PlainRequest(),
                {{"CONDITION", ""}, {"TAIL", " And  CharIndex('16394',t2.FRightUserID)>0 "}});
}

TEST_F(Rpt128ByItem, AsksTheMiddleTierOnceWithTheLoginAndTakesItsRows) {
  Fetch();
  ASSERT_EQ(sales_->CalledMembers(), std::vector<std::string>{"GetSaleAmountData"});
  EXPECT_EQ(sales_->Calls()[0].arguments[0].ToText(), kProps);
  EXPECT_EQ(sales_->Calls()[0].arguments.size(), 2U);
  EXPECT_EQ(GetMember(Report(), "Rs").ToObject(), rows_);
  EXPECT_EQ(Error(), "");
}

TEST_F(Rpt128ByItem, WritesTheFirstKeyInItsOldSpelling) {
  std::string first;
  on_fetch_ = [&](Arguments arguments) {
    for (const auto& entry : As<Dictionary>(arguments[1])->Entries()) {
      if (EqualNames(entry.key, "select")) first = entry.key;
    }
  };
  Fetch();
  EXPECT_EQ(first, "SElECT");
}

}  // namespace
}  // namespace salerpt::testing
