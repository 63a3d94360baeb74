// What the conditions of the gross profit report become in the batch.
#include <gtest/gtest.h>

#include "tests/reports/rpt176_world.h"

namespace salerpt::testing {
namespace {

class Rpt176Condition : public Rpt176World {
 protected:
  // The condition that a fetch sends; all three fills must have it.
  std::string Condition(Entries more) {
    const Request& request = Fetch(more);
    const std::string condition = request.at("Filter");
    ExpectFill(request, {{"ITEM", condition.empty() ? " " : condition}});
    return condition;
  }
  void ExpectRefused(Entries more) {
    Run(more);
    EXPECT_FALSE(Ok());
    EXPECT_NE(Error(), "");
    EXPECT_TRUE(sales_->Calls().empty()) << "nothing goes to the server";
    EXPECT_FALSE(HasRows());
    EXPECT_EQ(toolkit_->shown, toolkit_->unloaded);
  }
};

TEST_F(Rpt176Condition, IsEmptyWithoutAnyBound) {
  EXPECT_EQ(Condition({}), "");
}

TEST_F(Rpt176Condition, BoundsEachRangeByTheLongCode) {
  EXPECT_EQ(Condition({{"BItemNumber", "01.02"}}), " And t1.FNumber>='01.02'");
  EXPECT_EQ(Condition({{"EItemNumber", "01.09"}}), " And t1.FNumber<='01.09'");
  EXPECT_EQ(Condition({{"BCustNumber", "02"}}), " And t2.FNumber>='02'");
  EXPECT_EQ(Condition({{"ECustNumber", "03"}}), " And t2.FNumber<='03'");
  EXPECT_EQ(Condition({{"BDept", "04"}}), " And TD.FNumber>='04'");
  EXPECT_EQ(Condition({{"EDept", "05"}}), " And TD.FNumber<='05'");
  EXPECT_EQ(Condition({{"BEmp", "06"}}), " And TE.FNumber>='06'");
  EXPECT_EQ(Condition({{"EEmp", "07"}}), " And TE.FNumber<='07'");
}

TEST_F(Rpt176Condition, JoinsAllPiecesInTheirOrder) {
  EXPECT_EQ(Condition({{"EEmp", "7"},
                       {"BEmp", "6"},
                       {"EDept", "5"},
                       {"BDept", "4"},
                       {"ECustNumber", "3"},
                       {"BCustNumber", "2"},
                       {"EItemNumber", "1.9"},
                       {"BItemNumber", "1.1"}}),
            " And t1.FNumber>='1.1' And t1.FNumber<='1.9' And t2.FNumber>='2' And t2.FNumber<='3'"
            " And TD.FNumber>='4' And TD.FNumber<='5' And TE.FNumber>='6' And TE.FNumber<='7'");
}

TEST_F(Rpt176Condition, BoundsByTheShortCodeWhereThatIsInUse) {
  UseShortCode();
  EXPECT_EQ(Condition({{"BItemNumber", "1"}, {"ECustNumber", "3"}, {"BDept", "4"}, {"EEmp", "7"}}),
            " And t1.FShortNumber>='1' And t2.FShortNumber<='3' And TD.FShortNumber>='4'"
            " And TE.FShortNumber<='7'");
}

TEST_F(Rpt176Condition, CannotBeBrokenOutOf) {
  EXPECT_EQ(Condition({{"BItemNumber", " O'Neil's "}, {"EDept", "x'; Drop Table t_ICItem --"}}),
            " And t1.FNumber>='O''Neil''s' And TD.FNumber<='x''; Drop Table t_ICItem --'");
}

TEST_F(Rpt176Condition, KnowsNeitherCommoditiesNorColours) {
  const Request plain = Fetch();
  EXPECT_EQ(Fetch({{"CommodityType", std::int32_t{1}}, {"FROB", std::int32_t{2}}}), plain);
}

TEST_F(Rpt176Condition, ReadsDepartmentAndEmployeeUnderTheirOwnKeysOnly) {
  EXPECT_EQ(Condition({{"BDeptNumber", "04"}, {"EEmpNumber", "07"}}), "");
}

TEST_F(Rpt176Condition, TakesOneSaleStyleFromTwoUp) {
  ExpectFill(Fetch({{"SaleType", std::int32_t{2}}}),
             {{"SALE", " And v1.FSaleStyle = 2"}, {"PURCHASE", " And v1.FPOStyle<>20300"}});
  ExpectFill(Fetch({{"SaleType", "10143"}}),
             {{"SALE", " And v1.FSaleStyle = 10143"}, {"PURCHASE", " And v1.FPOStyle<>20300"}});
  ExpectFill(Fetch({{"SaleType", std::int32_t{1}}}));
  ExpectFill(Fetch({{"SaleType", std::int32_t{0}}}));
}

TEST_F(Rpt176Condition, LetsGoodsThatArePaidForWhenSoldInForTheirSaleStyle) {
  ExpectFill(Fetch({{"SaleType", std::int32_t{20296}}}), {{"SALE", " And v1.FSaleStyle = 20296"}});
}

TEST_F(Rpt176Condition, KeepsTheSaleStyleOutOfTheConditionItself) {
  EXPECT_EQ(Fetch({{"SaleType", std::int32_t{201}}}).at("Filter"), "");
}

TEST_F(Rpt176Condition, RefusesASaleStyleThatIsNoNumber) {
  ExpectRefused({{"SaleType", "2 Or 1=1"}});
}

TEST_F(Rpt176Condition, RefusesADateThatIsNone) {
  ExpectRefused({{"BDate", "the ninth"}});
}

TEST_F(Rpt176Condition, IsMadeAnewForEachFetch) {
  Fetch({{"BItemNumber", "01.02"}, {"SaleType", std::int32_t{201}}});
  EXPECT_EQ(Condition({{"EItemNumber", "05"}}), " And t1.FNumber<='05'");
}

TEST_F(Rpt176Condition, WritesTheDatesOfTheRangeWithSlashes) {
  const std::string& select =
      Fetch({{"BDate", Date::FromYmd(2004, 2, 9)}, {"EDate", Date::FromYmd(2004, 12, 31)}}).at("SELECT");
  EXPECT_EQ(CountOf(select,
                    " And Convert(datetime,Convert(VarChar(30),v1.FDate,111)) >='2004/02/09'\r\n"
                    " And Convert(datetime,Convert(VarChar(30),v1.FDate,111)) <='2004/12/31' "),
            3);
}

TEST_F(Rpt176Condition, LeavesNoPlaceOpen) {
  for (const std::int32_t mode : {1, 2, 3, 4, 8, 5, 0}) {
    auto property = std::make_shared<Dictionary>(Entries{{"FName", "客户"},
                                                         {"FPropID", "0"},
                                                         {"FItemClassID", "1"},
                                                         {"FSrcTable", ""},
                                                         {"FSQLColumnName", "FName"}});
    Fetch({{"GroupBy", std::int32_t{1}},
           {"SumMode", mode},
           {"BLevel", std::int32_t{1}},
           {"ELevel", std::int32_t{2}},
           {"SumField", property}});
    EXPECT_FALSE(Contains(request_.at("SELECT"), "##CHECK")) << "in mode " << mode;
  }
}

}  // namespace
}  // namespace salerpt::testing
