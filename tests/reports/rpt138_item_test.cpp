// The order execution summary item by item: the request as the server gets it, and what conditions and states
// become in its work batch.
#include <gtest/gtest.h>

#include "tests/reports/rpt138_world.h"

namespace salerpt::testing {
namespace {

class Rpt138Item : public Rpt138World {
 protected:
  static Pieces ExpectedRequest(const char* only_sum = "0") {
    return With(CommonKeys(only_sum),
                {{"SELECT",
                  "SET NOCOUNT ON\r\n"
                  "{WORK}\r\n"
                  "CREATE TABLE #DATA(\r\n"
                  "{COLUMNS}\r\n"
                  "{INSERT}{SUMFROM}\r\n"
                  "{WHERE}"},
                 {"GROUPBY", "Group by t1.FNumber WITH ROLLUP "},
                 {"ITEMFILTER", " FItemID In (Select DISTINCT ##ITEMID## From #DATA2 )"},
                 {"EndSel", "Select * From #DATA  {ONLYTOTALS}\r\n Order By FID \r\nDROP TABLE #DATA  "}});
  }
  static Pieces Plain(const Pieces& more = {}) {
    return With({{"INSERT",
                  "  INSERT INTO #DATA  SELECT CASE   WHEN GROUPING(t1.FNumber)=1 THEN '合计' \r\n"
                  " ELSE t1.FNumber END, \r\n"
                  "{VALUES}\r\n"
                  " CASE  WHEN GROUPING(t1.FNumber)=1 THEN 101 \r\n"
                  " ELSE 0 END "},
                 {"SUMFROM", "{FROM}"}},
                more);
  }
};

TEST_F(Rpt138Item, SendsTheWholeRequest) {
  ExpectRead(Fetch(), ExpectedRequest(), Plain());
}

TEST_F(Rpt138Item, WritesTheSettledTextsToTheByte) {
  Fetch();
  const std::string& select = request_.at("SELECT");
  ExpectPiece(select, "{WORK}");
  ExpectPiece(select, "CREATE TABLE #DATA(\r\n{COLUMNS}");
  ExpectPiece(select, "{INSERT}", Plain());
  ExpectPiece(select, "{FROM}");
  ExpectPiece(select, "{WHERE}");
  EXPECT_TRUE(SameText(request_.at("GROUPBY"), "Group by t1.FNumber WITH ROLLUP "));
  EXPECT_TRUE(SameText(request_.at("ITEMFILTER"), " FItemID In (Select DISTINCT ##ITEMID## From #DATA2 )"));
  ExpectPiece(request_.at("EndSel"), "Select * From #DATA  \r\n Order By FID ");
  ExpectPiece(request_.at("EndSel"), "DROP TABLE #DATA  ");
  EXPECT_TRUE(SameText(request_.at("Append"), "\r\nDrop Table #DATA2 \r\n"));
}

TEST_F(Rpt138Item, FillsTheWorkTableOnceAndBeforeItSums) {
  Fetch();
  const std::string& select = request_.at("SELECT");
  EXPECT_EQ(CountOf(select, "Create Table #DATA2"), 1);
  EXPECT_LT(select.find("Create Table #DATA2"), select.find("CREATE TABLE #DATA("));
  EXPECT_EQ(CountOf(request_.at("Append"), "Create Table"), 0);
}

TEST_F(Rpt138Item, CountsWhatARedBillDeliveredLikeAnyOther) {
  Fetch();
  EXPECT_EQ(CountOf(request_.at("SELECT"), "Case When t1.FRob=1 Then t4.FQty Else t4.FQty End"), 2);
}

TEST_F(Rpt138Item, ShowsTotalsOnly) {
  ExpectRead(Fetch({{"OnlyShowSum", std::int32_t{1}}}), ExpectedRequest("1"),
             Plain({{"ONLYTOTALS", "Where FSumSort>100"}}));
  ExpectPiece(request_.at("EndSel"), "Select * From #DATA  Where FSumSort>100\r\n Order By FID ");
}

TEST_F(Rpt138Item, GoesItemByItemWhateverTheGroupingKeysSayWhereNothingIsGrouped) {
  const Request plain = Fetch();
  for (const std::int32_t mode : {1, 2, 3, 4, 5, 6, 7, 8}) {
    EXPECT_EQ(Fetch({{"GroupBy", std::int32_t{0}},
                     {"SumMode", mode},
                     {"BLevel", std::int32_t{1}},
                     {"ELevel", std::int32_t{2}},
                     {"SumField", Customer()}}),
              plain)
        << "mode " << mode;
  }
}

TEST_F(Rpt138Item, KnowsNeitherCurrencyNorOrderNorScale) {
  const Request plain = Fetch();
  EXPECT_EQ(Fetch({{"ChkbyCurrency", std::int32_t{1}}, {"OrderBy", "FOrderQty"}}), plain);
  report_ = nullptr;
  UseScale("4");
  EXPECT_EQ(Fetch(), plain);
}

TEST_F(Rpt138Item, JoinsBranchCompaniesWhereOneBoundIsSet) {
  const Pieces lower = Plain({{"SUMFROM", "{BRANCHFROM}"},
                              {"ITEM", " And t12.FNumber<='10'"},
                              {"BRANCHBOUND", " And t4.FNumber<='10'"}});
  ExpectRead(Fetch({{"BCompanyNumber", "10"}}), ExpectedRequest(), lower);
  ExpectPiece(request_.at("SELECT"), "{BRANCHFROM}");
  ExpectRead(Fetch({{"ECompanyNumber", "10"}}), ExpectedRequest(), lower);
}

// Both ends are upper bounds, in the fill and in the sum.
TEST_F(Rpt138Item, TakesBothBranchBoundsAsUpperOnes) {
  ExpectRead(Fetch({{"BCompanyNumber", "10"}, {"ECompanyNumber", "20"}}), ExpectedRequest(),
             Plain({{"SUMFROM", "{BRANCHFROM}"},
                    {"ITEM", " And t12.FNumber<='10' And t12.FNumber<='20'"},
                    {"BRANCHBOUND", " And t4.FNumber<='10' And t4.FNumber<='20'"}}));
  EXPECT_EQ(CountOf(request_.at("SELECT"), " And t12.FNumber<='10'"), 3);
  EXPECT_EQ(CountOf(request_.at("SELECT"), " And t4.FNumber<='10'"), 1);
}

TEST_F(Rpt138Item, BoundsBranchesByTheShortCodeWhereThatIsInUse) {
  UseShortCode();
  ExpectRead(Fetch({{"BCompanyNumber", "1'0"}}), ExpectedRequest(),
             Plain({{"SUMFROM", "{BRANCHFROM}"},
                    {"ITEM", " And t12.FShortNumber<='1''0'"},
                    {"BRANCHBOUND", " And t4.FShortNumber<='1''0'"}}));
}

class Rpt138Condition : public Rpt138World {
 protected:
  // Stands in the fill of orders and of both deliveries.
  void ExpectCondition(const char* condition, Entries more) {
    Fetch(more);
    const std::string& select = request_.at("SELECT");
    ExpectPiece(select, "{ORDERSWHERE}", {{"ITEM", condition}});
    ExpectPiece(select, "Where 1=1    {STATEDELIVERED}    {DATE}  {ITEM}\r\n", {{"ITEM", condition}});
    ExpectPiece(select, "Where t3.FSaleStyle=20296   {DATE}  {ITEM}\r\n", {{"ITEM", condition}});
  }
  void ExpectState(const char* state, const char* delivered, Entries more) {
    Fetch(more);
    const Pieces pieces = {{"STATE", state}, {"STATEDELIVERED", delivered}};
    ExpectPiece(request_.at("SELECT"), "{ORDERSWHERE}", pieces);
    ExpectPiece(request_.at("SELECT"), "Where 1=1    {STATEDELIVERED}    {DATE}  {ITEM}\r\n", pieces);
    ExpectPiece(request_.at("SELECT"), "Where t3.FSaleStyle=20296   {DATE}  {ITEM}\r\n");
  }
  void ExpectRefused(Entries more) {
    Run(more);
    EXPECT_FALSE(Ok());
    EXPECT_NE(Error(), "");
    EXPECT_TRUE(sales_->Calls().empty()) << "nothing goes to the server";
    EXPECT_EQ(toolkit_->shown, toolkit_->unloaded);
  }
};

TEST_F(Rpt138Condition, BoundsItems) {
  ExpectCondition(" And t10.FNumber>='01'", {{"BItemNumber", "01"}});
  ExpectCondition(" And t10.FNumber<='09'", {{"EItemNumber", "09"}});
}

TEST_F(Rpt138Condition, TakesCommoditiesOnlyOrAllButThem) {
  ExpectCondition(" And t10.FErpClsID=4", {{"CommodityType", std::int32_t{1}}});
  ExpectCondition(" And t10.FErpClsID<>4", {{"CommodityType", std::int32_t{2}}});
  ExpectCondition(" ", {{"CommodityType", std::int32_t{0}}});
}

TEST_F(Rpt138Condition, BoundsPeople) {
  ExpectCondition(" And t11.FNumber>='02'", {{"BCustNumber", "02"}});
  ExpectCondition(" And t11.FNumber<='03'", {{"ECustNumber", "03"}});
  ExpectCondition(" And TD.FNumber>='31'", {{"BDept", "31"}});
  ExpectCondition(" And TD.FNumber<='39'", {{"EDept", "39"}});
  ExpectCondition(" And TE.FNumber>='51'", {{"BEmp", "51"}});
  ExpectCondition(" And TE.FNumber<='59'", {{"EEmp", "59"}});
}

TEST_F(Rpt138Condition, BoundsOrderNumbers) {
  ExpectCondition(" And T3.FBillNo>='SE1'", {{"BBillNo", "SE1"}});
  ExpectCondition(" And T3.FBillNo<='SE9'", {{"EBillNo", "SE9"}});
}

TEST_F(Rpt138Condition, JoinsAllPiecesInTheirOrder) {
  ExpectCondition(
      " And t10.FNumber>='01' And t10.FNumber<='09' And t10.FErpClsID=4 And t11.FNumber>='02'"
      " And t11.FNumber<='03' And t12.FNumber<='10' And t12.FNumber<='20' And TD.FNumber>='31'"
      " And TD.FNumber<='39' And TE.FNumber>='51' And TE.FNumber<='59' And T3.FBillNo>='SE1'"
      " And T3.FBillNo<='SE9'",
      {{"EBillNo", "SE9"},
       {"BBillNo", "SE1"},
       {"EEmp", "59"},
       {"BEmp", "51"},
       {"EDept", "39"},
       {"BDept", "31"},
       {"ECompanyNumber", "20"},
       {"BCompanyNumber", "10"},
       {"ECustNumber", "03"},
       {"BCustNumber", "02"},
       {"EItemNumber", "09"},
       {"BItemNumber", "01"},
       {"CommodityType", std::int32_t{1}}});
}

TEST_F(Rpt138Condition, TakesShortCodesButForOrderNumbers) {
  UseShortCode();
  ExpectCondition(
      " And t10.FShortNumber>='1' And t11.FShortNumber<='3' And TD.FShortNumber>='4'"
      " And TE.FShortNumber<='5' And T3.FBillNo>='SE1'",
      {{"BItemNumber", "1"}, {"ECustNumber", "3"}, {"BDept", "4"}, {"EEmp", "5"}, {"BBillNo", "SE1"}});
}

TEST_F(Rpt138Condition, DoublesApostrophes) {
  ExpectCondition(" And t10.FNumber>='O''Neil' And T3.FBillNo<='x''; Drop Table SEOrder --'",
                  {{"BItemNumber", "O'Neil"}, {"EBillNo", "x'; Drop Table SEOrder --"}});
}

TEST_F(Rpt138Condition, RestrictsTheFillToTheCustomersThatTheUserMaySee) {
  RestrictCustomers();
  ExpectCondition(" And  CharIndex('16394',t11.FRightUserID)>0 ", {});
  ExpectCondition(" And t11.FNumber>='02' And  CharIndex('16394',t11.FRightUserID)>0 ",
                  {{"BCustNumber", "02"}});
}

TEST_F(Rpt138Condition, IsMadeAnewForEachFetch) {
  const Request plain = Fetch();
  Fetch({{"BItemNumber", "01"}, {"BCompanyNumber", "10"}, {"SaleType", std::int32_t{201}}});
  EXPECT_EQ(Fetch(), plain);
}

TEST_F(Rpt138Condition, TellsOrderStatesApart) {
  ExpectState(" And t3.FStatus>0 And t3.FCancelLation=0 ",
              "{DELIVERED} And t3.FStatus>0 And t3.FCancelLation=0 ", {{"CheckState", std::int32_t{0}}});
  ExpectState(" And t3.FStatus=0 And t3.FCancelLation=0 ",
              "{DELIVERED} And t3.FStatus=0 And t3.FCancelLation=0 ", {{"CheckState", std::int32_t{1}}});
  ExpectState(" And t3.FCancelLation=0 ", "{DELIVERED} And t3.FCancelLation=0 ",
              {{"CheckState", std::int32_t{2}}});
}

TEST_F(Rpt138Condition, TakesOneSaleStyleFromTwoUp) {
  ExpectState(" And t3.FCancelLation=0  And t3.FSaleStyle = 201",
              "{DELIVERED} And t3.FCancelLation=0  And t1.FSaleStyle = 201",
              {{"CheckState", std::int32_t{2}}, {"SaleType", std::int32_t{201}}});
  ExpectState(" And t3.FCancelLation=0  And t3.FSaleStyle = 2",
              "{DELIVERED} And t3.FCancelLation=0  And t1.FSaleStyle = 2",
              {{"CheckState", std::int32_t{2}}, {"SaleType", "2"}});
  ExpectState(" And t3.FCancelLation=0 ", "{DELIVERED} And t3.FCancelLation=0 ",
              {{"CheckState", std::int32_t{2}}, {"SaleType", std::int32_t{1}}});
}

TEST_F(Rpt138Condition, TellsClosedOrdersApart) {
  ExpectState(" And t3.FCancelLation=0  And t3.FStatus <> 3 ",
              "{DELIVERED} And t3.FCancelLation=0  And t3.FStatus <> 3 ",
              {{"CheckState", std::int32_t{2}}, {"CloseState", std::int32_t{1}}});
  ExpectState(" And t3.FCancelLation=0  And t3.FStatus = 3 ",
              "{DELIVERED} And t3.FCancelLation=0  And t3.FStatus = 3 ",
              {{"CheckState", std::int32_t{2}}, {"CloseState", std::int32_t{2}}});
  for (const std::int32_t state : {0, 3}) {
    ExpectState(" And t3.FCancelLation=0 ", "{DELIVERED} And t3.FCancelLation=0 ",
                {{"CheckState", std::int32_t{2}}, {"CloseState", state}});
  }
}

TEST_F(Rpt138Condition, JoinsAuditSaleStyleAndClosingInTheirOrder) {
  ExpectState(
      " And t3.FStatus=0 And t3.FCancelLation=0  And t3.FSaleStyle = 201 And t3.FStatus <> 3 ",
      "{DELIVERED} And t3.FStatus=0 And t3.FCancelLation=0  And t3.FStatus <> 3  And t1.FSaleStyle = 201",
      {{"CheckState", std::int32_t{1}}, {"SaleType", std::int32_t{201}}, {"CloseState", std::int32_t{1}}});
}

TEST_F(Rpt138Condition, GoesByTheDateOfTheOrderInEveryFill) {
  Fetch({{"BDate", Date::FromYmd(2004, 2, 9)}, {"EDate", "2004-12-31"}});
  EXPECT_EQ(CountOf(request_.at("SELECT"),
                    " And convert(datetime,convert(varchar(30),t3.FDate,111)) >='2004/02/09'\r\n"
                    " And convert(datetime,convert(varchar(30),t3.FDate,111)) <='2004/12/31'"),
            3);
}

TEST_F(Rpt138Condition, RefusesANumberThatIsNone) {
  ExpectRefused({{"SaleType", "2 Or 1=1"}});
  ExpectRefused({{"CommodityType", "all"}});
  ExpectRefused({{"BDate", "the ninth"}});
}

TEST_F(Rpt138Condition, LeavesNoPlaceOpen) {
  for (const std::int32_t mode : {0, 1, 2, 3, 4, 5, 6, 7, 8}) {
    FetchBy(mode, Customer(), {{"BLevel", std::int32_t{1}}, {"ELevel", std::int32_t{2}}});
    EXPECT_EQ(request_.at("SELECT").find("##CHECK"), std::string::npos) << "mode " << mode;
    EXPECT_EQ(request_.at("SELECT").find("##Check"), std::string::npos) << "mode " << mode;
  }
}

}  // namespace
}  // namespace salerpt::testing
