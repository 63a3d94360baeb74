// The customer sales summary item by item: the request, its conditions, and the call.
#include <gtest/gtest.h>

#include "tests/reports/rpt133_world.h"

namespace salerpt::testing {
namespace {

class Rpt133ByItem : public Rpt133World {
 protected:
  static Pieces PlainRequest() {
    return {{"SELECT",
             "SET NOCOUNT ON\r\n"
             "CREATE TABLE #DATA({COLUMNS}\r\n"
             "  INSERT INTO #DATA  SELECT CASE   WHEN GROUPING(t1.FNumber)=1 THEN '合计' \r\n"
             " ELSE t1.FNumber END, {VALUES} CASE  WHEN GROUPING(t1.FNumber)=1 THEN 101 \r\n"
             " ELSE 0 END {FROM}{WHERE}{CONDITION}"},
            {"GROUPBY", "Group by t1.FNumber WITH ROLLUP "},
            {"ITEMFILTER", "{ITEMFILTER}"},
            {"EndSel", "SELECT * FROM #DATA  {ONLYTOTALS} Order by FID DROP TABLE #DATA  "}};
  }
  // What the statement ends with behind its tables.
  std::string Condition(Entries more) {
    const std::string& select = Fetch(more).at("SELECT");
    const std::string where = Text("{WHERE}");
    const std::size_t begin = select.find(where);
    if (begin == std::string::npos) return "no " + where;
    std::string rest = select.substr(begin + where.size());
    while (rest.ends_with("\r\n")) rest.resize(rest.size() - 2);
    return rest;
  }
  std::string State(Entries more) {
    Fetch(more);
    const std::string state = Between("SELECT", "AND v1.FTranType in (80,86) \r\n ", "  ##CHECKDATE## ");
    EXPECT_EQ(Between("ITEMFILTER", "AND v1.FTranType in (80,86) \r\n ", " ##CHECKDATE##)"), state);
    return state;
  }
  std::string Between(const char* key, std::string_view before, std::string_view after) {
    const std::string& text = request_.at(key);
    const std::size_t begin = text.find(before);
    if (begin == std::string::npos) return "no " + std::string(before);
    const std::size_t from = begin + before.size();
    return text.substr(from, text.find(after, from) - from);
  }
  void ExpectRefused(Entries more) {
    Run(more);
    EXPECT_FALSE(Ok());
    EXPECT_NE(Error(), "");
    EXPECT_TRUE(sales_->Calls().empty()) << "nothing goes to the server";
    EXPECT_EQ(toolkit_->shown, toolkit_->unloaded);
  }
};

TEST_F(Rpt133ByItem, SendsTheWholeBatch) {
  ExpectRead(Fetch(), PlainRequest(), {});
}

TEST_F(Rpt133ByItem, WritesTheSettledWordsToTheLetter) {
  const std::string& select = Fetch().at("SELECT");
  ExpectPiece(select, "CREATE TABLE #DATA({COLUMNS}");
  ExpectPiece(select,
              "  INSERT INTO #DATA  SELECT CASE   WHEN GROUPING(t1.FNumber)=1 THEN '合计' \r\n"
              " ELSE t1.FNumber END, {VALUES}");
  ExpectPiece(select, " CASE  WHEN GROUPING(t1.FNumber)=1 THEN 101 \r\n ELSE 0 END {FROM}");
  ExpectPiece(select, "{WHERE}");
  EXPECT_EQ(request_.at("GROUPBY"), "Group by t1.FNumber WITH ROLLUP ");
  EXPECT_TRUE(SameText(request_.at("ITEMFILTER"), Text("{ITEMFILTER}")));
}

TEST_F(Rpt133ByItem, TakesAnyGroupByButOneForItemByItem) {
  ExpectRead(Fetch({{"GroupBy", std::int32_t{2}}, {"SumMode", std::int32_t{3}}}), PlainRequest(), {});
}

TEST_F(Rpt133ByItem, ShowsTotalsOnlyByTheFinalSelect) {
  ExpectRead(Fetch({{"OnlyShowSum", std::int32_t{1}}}), PlainRequest(),
             {{"ONLYTOTALS", "WHERE FSumSort>100"}});
}

TEST_F(Rpt133ByItem, RoundsToTwoPlacesWhateverTheBaseCurrencyHas) {
  UseScale("4");
  ExpectRead(Fetch(), PlainRequest(), {});
}

TEST_F(Rpt133ByItem, KnowsNeitherCurrencyNorAuxiliaryProperty) {
  ExpectRead(Fetch({{"CurrencyShow", std::int32_t{1}}, {"AuxProp", std::int32_t{1}}}), PlainRequest(), {});
}

TEST_F(Rpt133ByItem, RestrictsInvoicesToTheCustomersThatTheUserMaySee) {
  RestrictCustomers();
  ExpectRead(
      Fetch({{"BItemNumber", "01"}}), PlainRequest(),
      {{"TAIL", " And  CharIndex('16394',t2.FRightUserID)>0 "}, {"CONDITION", " AND t1.FNumber>='01'"}});
}

TEST_F(Rpt133ByItem, AsksTheMiddleTierOnceWithTheLoginAndTheDatesAndTakesItsRows) {
  Fetch();
  ASSERT_EQ(sales_->CalledMembers(), std::vector<std::string>{"GetPurchaseData"});
  const std::vector<Variant>& arguments = sales_->Calls()[0].arguments;
  ASSERT_EQ(arguments.size(), 4U);
  EXPECT_EQ(arguments[0].ToText(), kProps);
  EXPECT_EQ(arguments[1], Variant(Date::FromYmd(2003, 1, 1)));
  EXPECT_EQ(arguments[2], Variant(Date::FromYmd(2003, 3, 31)));
  EXPECT_EQ(GetMember(Report(), "Rs").ToObject(), rows_);
}

TEST_F(Rpt133ByItem, HasNoConditionWithoutAnyBound) {
  EXPECT_EQ(Condition({}), "");
}

TEST_F(Rpt133ByItem, BoundsItemsAndCustomers) {
  EXPECT_EQ(
      Condition(
          {{"BItemNumber", "11"}, {"EItemNumber", "12"}, {"BCustNumber", "O'Neil"}, {"ECustNumber", "22"}}),
      " AND t1.FNumber>='11' AND t1.FNumber<='12' AND t2.FNumber>='O''Neil' AND t2.FNumber<='22'");
}

TEST_F(Rpt133ByItem, BoundsByTheShortCodeWhereThatIsInUse) {
  UseShortCode();
  EXPECT_EQ(Condition({{"BItemNumber", "1"}, {"ECustNumber", "2"}}),
            " AND t1.FShortNumber>='1' AND t2.FShortNumber<='2'");
}

TEST_F(Rpt133ByItem, TakesCommoditiesAndOneSaleStyle) {
  EXPECT_EQ(Condition({{"CommodityType", std::int32_t{1}}}), " And t1.FErpClsID=4");
  EXPECT_EQ(Condition({{"CommodityType", std::int32_t{2}}}), " And t1.FErpClsID<>4");
  EXPECT_EQ(Condition({{"SaleType", std::int32_t{1}}}), "");
  EXPECT_EQ(Condition({{"SaleType", std::int32_t{201}}}), " And v1.FSaleStyle = 201");
}

TEST_F(Rpt133ByItem, BoundsDepartmentsAndEmployees) {
  EXPECT_EQ(
      Condition({{"BDeptNumber", "31"}, {"EDeptNumber", "32"}, {"BEmpNumber", "41"}, {"EEmpNumber", "42"}}),
      " AND t3.FNumber>='31' AND t3.FNumber<='32' AND t4.FNumber>='41' AND t4.FNumber<='42'");
  EXPECT_EQ(Condition({{"BDeptNumber", "O'Neil"}}), " AND t3.FNumber>='O''Neil'");
  EXPECT_EQ(Condition({{"EEmpNumber", "42"}}), " AND t4.FNumber<='42'");
  ExpectPiece(request_.at("SELECT"), " FROM ICSale v1{PEOPLE},ICSaleEntry v2,t_ICItem t1,t_Organization t2");
}

TEST_F(Rpt133ByItem, JoinsDepartmentsAndEmployeesOnlyWhereItReadsThem) {
  ExpectPiece(Fetch().at("SELECT"), " FROM ICSale v1,ICSaleEntry v2,t_ICItem t1,t_Organization t2");
}

TEST_F(Rpt133ByItem, JoinsAllPiecesOnce) {
  const std::string condition = Condition({{"BItemNumber", "11"},
                                           {"CommodityType", std::int32_t{1}},
                                           {"ECustNumber", "22"},
                                           {"SaleType", std::int32_t{201}},
                                           {"BDeptNumber", "31"},
                                           {"EEmpNumber", "42"}});
  std::size_t length = 0;
  for (const std::string_view piece :
       {" AND t1.FNumber>='11'", " And t1.FErpClsID=4", " AND t2.FNumber<='22'", " And v1.FSaleStyle = 201",
        " AND t3.FNumber>='31'", " AND t4.FNumber<='42'"}) {
    EXPECT_NE(condition.find(piece), std::string::npos) << piece;
    length += piece.size();
  }
  EXPECT_EQ(condition.size(), length);
}

TEST_F(Rpt133ByItem, TellsAuditedBillsFromOthers) {
  EXPECT_EQ(State({{"CheckState", std::int32_t{0}}}), " AND v1.FStatus>0 And v1.FCancelLation=0 ");
  EXPECT_EQ(State({{"CheckState", std::int32_t{1}}}), " AND v1.FStatus=0 And v1.FCancelLation=0 ");
  EXPECT_EQ(State({{"CheckState", std::int32_t{2}}}), " And v1.FCancelLation=0 ");
}

TEST_F(Rpt133ByItem, TellsSettlementAndColourWhereTheyAreChosen) {
  const std::string audited = " AND v1.FStatus>0 And v1.FCancelLation=0 ";
  EXPECT_EQ(State({{"HookStatus", std::int32_t{-1}}}), audited);
  EXPECT_EQ(State({{"HookStatus", std::int32_t{0}}}), audited + " And v1.FHookStatus=0");
  EXPECT_EQ(State({{"HookStatus", std::int32_t{2}}}), audited + " And v1.FHookStatus=2");
  EXPECT_EQ(State({{"BillType", std::int32_t{0}}}), audited + " And v1.FROB=1 ");
  EXPECT_EQ(State({{"BillType", std::int32_t{1}}}), audited + " And v1.FROB=-1 ");
  EXPECT_EQ(State({{"BillType", std::int32_t{2}}}), audited);
  EXPECT_EQ(State({{"BillType", std::int32_t{1}}, {"HookStatus", std::int32_t{1}}}),
            audited + " And v1.FHookStatus=1 And v1.FROB=-1 ");
}

TEST_F(Rpt133ByItem, RefusesAChoiceThatIsNoNumber) {
  ExpectRefused({{"SaleType", "2 Or 1=1"}});
  ExpectRefused({{"HookStatus", "1 Or 1=1"}});
}

TEST_F(Rpt133ByItem, LeavesTheDatesToTheMiddleTierAndNothingElse) {
  Fetch();
  EXPECT_NE(request_.at("SELECT").find("##CHECKDATE##"), std::string::npos);
  EXPECT_EQ(request_.at("SELECT").find("##CHECKSTATE##"), std::string::npos);
  EXPECT_EQ(request_.at("ITEMFILTER").find("##CHECKSTATE##"), std::string::npos);
}

}  // namespace
}  // namespace salerpt::testing
