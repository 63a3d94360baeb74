// The consignment list item by item: the whole request, its conditions, and the call.
#include <gtest/gtest.h>

#include "tests/reports/rpt303_world.h"

namespace salerpt::testing {
namespace {

class Rpt303ByItem : public Rpt303World {
 protected:
  static Pieces PlainRequest() {
    return {{"SELECT",
             "\r\n"
             "    SET NOCOUNT ON\r\n"
             "CREATE TABLE #DATA({COLUMNS}\r\n"
             "  INSERT INTO #DATA  SELECT CASE   WHEN GROUPING(t1.FNumber)=1 THEN '合计' \r\n"
             " ELSE t1.FNumber END, \r\n"
             "{VALUES}\r\n"
             " CASE  WHEN GROUPING(t1.FNumber)=1 THEN 101 \r\n"
             " ELSE 0 END {FROM}{WHERE}{CONDITION}\r\n"},
            {"GROUPBY", "Group by t1.FNumber WITH ROLLUP "},
            {"ITEMFILTER", "{ITEMFILTER}"},
            {"Filter", "{CONDITION}"},
            {"EndSel",
             "SELECT * FROM #DATA  {ONLYTOTALS}\r\n"
             " ORDER BY FID \r\n"
             "DROP TABLE #DATA  \r\n"}};
  }
  std::string Condition(Entries more) { return Fetch(more).at("Filter"); }
  void ExpectRefused(Entries more) {
    Run(more);
    EXPECT_FALSE(Ok());
    EXPECT_NE(Error(), "");
    EXPECT_TRUE(sales_->Calls().empty()) << "nothing goes to the server";
    EXPECT_FALSE(HasRows());
    EXPECT_EQ(toolkit_->shown, toolkit_->unloaded);
  }
};

using Rpt303Condition = Rpt303ByItem;

TEST_F(Rpt303ByItem, SendsTheWholeBatch) {
  ExpectBatch(Fetch(), PlainRequest());
}

TEST_F(Rpt303ByItem, TakesAnyGroupByButOneForItemByItem) {
  ExpectBatch(Fetch({{"GroupBy", std::int32_t{0}}, {"SumMode", std::int32_t{6}}}), PlainRequest());
  ExpectBatch(Fetch({{"GroupBy", std::int32_t{2}}, {"SumMode", std::int32_t{3}}}), PlainRequest());
}

TEST_F(Rpt303ByItem, ShowsTotalsOnlyByTheFinalSelect) {
  ExpectBatch(Fetch({{"OnlyShowSum", std::int32_t{1}}}), PlainRequest(),
              {{"ONLYTOTALS", "WHERE FSumSort>100"}});
}

TEST_F(Rpt303ByItem, KnowsNoOrder) {
  ExpectBatch(Fetch({{"OrderBy", "FSendQty DESC"}}), PlainRequest());
}

TEST_F(Rpt303ByItem, KeepsAmountsAtTheScaleOfTheBaseCurrency) {
  UseScale("4");
  ExpectBatch(Fetch(), PlainRequest(), {{"D", "4"}});
}

TEST_F(Rpt303ByItem, KeepsAmountsAtScaleTwoWhereTheBaseCurrencyHasNoRow) {
  currency_->Gives("GetData", OneField("FScale"));
  ExpectBatch(Fetch(), PlainRequest());
}

TEST_F(Rpt303ByItem, PutsTheConditionIntoInsertAndFilter) {
  ExpectBatch(Fetch({{"BItemNumber", "01.01"}, {"EDptNumber", "09"}}), PlainRequest(),
              {{"CONDITION", " AND t1.FNumber>='01.01' AND t4.FNumber<='09'"}});
}

TEST_F(Rpt303ByItem, RestrictsRowsToTheCustomersThatTheUserMaySee) {
  RestrictCustomers();
  ExpectBatch(Fetch({{"BItemNumber", "01"}}), PlainRequest(),
              {{"TAIL", kCustomerRight}, {"CONDITION", " AND t1.FNumber>='01'"}});
}

TEST_F(Rpt303ByItem, TellsTheMiddleTierTheDates) {
  Fetch();
  EXPECT_EQ(begin_, Variant(Date::FromYmd(2003, 1, 1)));
  EXPECT_EQ(end_, Variant(Date::FromYmd(2003, 3, 31)));
}

TEST_F(Rpt303ByItem, SpellsTheLastDateAsTheMiddleTierDoes) {
  Fetch();
  EXPECT_EQ(request_.count("Edate"), 1U);
  EXPECT_EQ(request_.count("EDate"), 0U);
}

TEST_F(Rpt303ByItem, TellsTheMiddleTierTheStateOfTheBills) {
  EXPECT_EQ(Fetch({{"CheckState", std::int32_t{0}}}).at("sWheChk"),
            " AND u1.FStatus>0 And u1.FCancelLation=0 ");
  EXPECT_EQ(Fetch({{"CheckState", std::int32_t{1}}}).at("sWheChk"),
            " AND u1.FStatus=0 And u1.FCancelLation=0 ");
  EXPECT_EQ(Fetch({{"CheckState", std::int32_t{2}}}).at("sWheChk"), " And u1.FCancelLation=0 ");
  EXPECT_EQ(Fetch({{"CheckState", std::int32_t{-1}}}).at("sWheChk"), " And u1.FCancelLation=0 ");
}

TEST_F(Rpt303ByItem, KnowsNoColourOfABill) {
  EXPECT_EQ(Fetch({{"FROB", std::int32_t{1}}}).at("sWheChk"), " AND u1.FStatus>0 And u1.FCancelLation=0 ");
}

TEST_F(Rpt303ByItem, TellsTheMiddleTierOfVirtualStocks) {
  EXPECT_EQ(Fetch({{"ShowVirtualStock", std::int32_t{1}}}).at("ShowVirtualStock"), "1");
  EXPECT_EQ(Fetch({{"ShowVirtualStock", std::int32_t{0}}}).at("ShowVirtualStock"), "0");
}

TEST_F(Rpt303ByItem, AsksTheMiddleTierOnceWithTheLoginAndTakesItsRows) {
  Fetch();
  ASSERT_EQ(sales_->CalledMembers(), std::vector<std::string>{"GetRpt303data"});
  EXPECT_EQ(sales_->Calls()[0].arguments[0].ToText(), kProps);
  EXPECT_EQ(sales_->Calls()[0].arguments.size(), 2U);
  EXPECT_EQ(GetMember(Report(), "Rs").ToObject(), rows_);
  EXPECT_EQ(Error(), "");
}

TEST_F(Rpt303ByItem, WritesTheFirstKeyInItsOldSpelling) {
  std::string first;
  on_fetch_ = [&](Arguments arguments) {
    const auto request = As<Dictionary>(arguments[1]);
    for (const auto& entry : request->Entries()) {
      if (EqualNames(entry.key, "select")) first = entry.key;
    }
  };
  Fetch();
  EXPECT_EQ(first, "SElECT");
}

TEST_F(Rpt303Condition, IsEmptyWithoutAnyBound) {
  EXPECT_EQ(Condition({}), "");
}

TEST_F(Rpt303Condition, BoundsItemsCustomersEmployeesAndDepartments) {
  EXPECT_EQ(Condition({{"BItemNumber", "11"}}), " AND t1.FNumber>='11'");
  EXPECT_EQ(Condition({{"EItemNumber", "12"}}), " AND t1.FNumber<='12'");
  EXPECT_EQ(Condition({{"BCustNumber", "21"}}), " AND t2.FNumber>='21'");
  EXPECT_EQ(Condition({{"ECustNumber", "22"}}), " AND t2.FNumber<='22'");
  EXPECT_EQ(Condition({{"BEmpNumber", "31"}}), " AND t3.FNumber>='31'");
  EXPECT_EQ(Condition({{"EEmpNumber", "32"}}), " AND t3.FNumber<='32'");
  EXPECT_EQ(Condition({{"BDptNumber", "41"}}), " AND t4.FNumber>='41'");
  EXPECT_EQ(Condition({{"EDptNumber", "42"}}), " AND t4.FNumber<='42'");
}

TEST_F(Rpt303Condition, JoinsAllPiecesInTheirOrder) {
  EXPECT_EQ(Condition({{"EDptNumber", "42"},
                       {"BDptNumber", "41"},
                       {"EEmpNumber", "32"},
                       {"BEmpNumber", "31"},
                       {"ECustNumber", "22"},
                       {"BCustNumber", "21"},
                       {"CommodityType", std::int32_t{1}},
                       {"EItemNumber", "12"},
                       {"BItemNumber", "11"}}),
            " AND t1.FNumber>='11' AND t1.FNumber<='12' And t1.FErpClsID=4 AND t2.FNumber>='21' AND "
            "t2.FNumber<='22' AND t3.FNumber>='31' AND t3.FNumber<='32' AND t4.FNumber>='41' AND "
            "t4.FNumber<='42'");
}

TEST_F(Rpt303Condition, BoundsByTheShortCodeWhereThatIsInUse) {
  UseShortCode();
  EXPECT_EQ(Condition({{"BItemNumber", "1"}, {"ECustNumber", "2"}, {"BEmpNumber", "3"}, {"EDptNumber", "4"}}),
            " AND t1.FShortNumber>='1' AND t2.FShortNumber<='2' AND t3.FShortNumber>='3' AND "
            "t4.FShortNumber<='4'");
}

TEST_F(Rpt303Condition, TakesCommoditiesOnlyOrAllButThem) {
  EXPECT_EQ(Condition({{"CommodityType", std::int32_t{1}}}), " And t1.FErpClsID=4");
  EXPECT_EQ(Condition({{"CommodityType", std::int32_t{2}}}), " And t1.FErpClsID<>4");
  EXPECT_EQ(Condition({{"CommodityType", std::int32_t{0}}}), "");
  EXPECT_EQ(Condition({{"CommodityType", std::int32_t{3}}}), "");
}

TEST_F(Rpt303Condition, DoublesApostrophesTrimsBlanksAndDropsControlCharacters) {
  EXPECT_EQ(Condition({{"BItemNumber", " O'Neil "}, {"ECustNumber", "x'; Drop Table t_ICItem --"}}),
            " AND t1.FNumber>='O''Neil' AND t2.FNumber<='x''; Drop Table t_ICItem --'");
  EXPECT_EQ(Condition({{"BEmpNumber", "a\r\nb"}, {"EDptNumber", "c'"}}),
            " AND t3.FNumber>='ab' AND t4.FNumber<='c'''");
}

TEST_F(Rpt303Condition, IsBuiltAnewByEachFetch) {
  EXPECT_EQ(Condition({{"BItemNumber", "11"}}), " AND t1.FNumber>='11'");
  EXPECT_EQ(Condition({{"BCustNumber", "21"}}), " AND t2.FNumber>='21'");
}

TEST_F(Rpt303Condition, RefusesAChoiceThatIsNoNumber) {
  ExpectRefused({{"CommodityType", "all of them"}});
}

}  // namespace
}  // namespace salerpt::testing
