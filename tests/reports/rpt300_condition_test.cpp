// What the conditions of the statistics of virtual items become in the frames: the batch itself is the middle
// tier's, so the item filter is the one text that holds them.
#include <gtest/gtest.h>

#include "tests/reports/rpt300_world.h"

namespace salerpt::testing {
namespace {

class Rpt300Condition : public Rpt300World {
 protected:
  std::string Condition(Entries more) {
    Fetch(more);
    return Between(Sent("ITEMFILTER"), "<='2003/03/31' ", " )");
  }
  std::string State(std::int32_t check_state) {
    Fetch({{"CheckState", check_state}});
    return Between(Sent("ITEMFILTER"), "v1.FCustID = t2.FItemID  \r\n ", " AND convert(datetime,");
  }
  static std::string Between(const std::string& text, std::string_view before, std::string_view after) {
    const std::size_t begin = text.find(before);
    if (begin == std::string::npos) return "no " + std::string(before);
    const std::size_t from = begin + before.size();
    return text.substr(from, text.find(after, from) - from);
  }
};

TEST_F(Rpt300Condition, IsOneBlankWithoutAnyBound) {
  EXPECT_EQ(Condition({}), " ");
}

TEST_F(Rpt300Condition, TakesOneOrderTypeFromNoughtUp) {
  EXPECT_EQ(Condition({{"OrderType", std::int32_t{20302}}}), " And v1.FAreaPS = 20302");
  EXPECT_EQ(Condition({{"OrderType", "1"}}), " And v1.FAreaPS = 1");
  EXPECT_EQ(Condition({{"OrderType", std::int32_t{0}}}), " And v1.FAreaPS = 0");
  EXPECT_EQ(Condition({{"OrderType", std::int32_t{-1}}}), " ");
}

TEST_F(Rpt300Condition, BoundsItemsAndCustomers) {
  EXPECT_EQ(Condition({{"BItemNumber", "0'1"}, {"EItemNumber", "09"}}),
            " AND t1.FNumber>='0''1' AND t1.FNumber<='09'");
  EXPECT_EQ(Condition({{"BCustNumber", "02"}, {"ECustNumber", "0'3"}}),
            " AND t2.FNumber>='02' AND t2.FNumber<='0''3'");
}

TEST_F(Rpt300Condition, BoundsByTheShortCodeWhereThatIsInUse) {
  UseShortCode();
  EXPECT_EQ(Condition({{"BItemNumber", "1"}, {"ECustNumber", "9"}}),
            " AND t1.FShortNumber>='1' AND t2.FShortNumber<='9'");
}

TEST_F(Rpt300Condition, TakesOneSaleStyleFromTwoUp) {
  EXPECT_EQ(Condition({{"SaleType", std::int32_t{201}}}), " And v1.FSaleStyle = 201");
  EXPECT_EQ(Condition({{"SaleType", std::int32_t{1}}}), " ");
}

TEST_F(Rpt300Condition, ReadsNeitherDepartmentsNorEmployeesNorCurrenciesNorKindsOfItems) {
  EXPECT_EQ(Condition({{"BDepartNumber", "31"},
                       {"BEmpNumber", "41"},
                       {"BCurrencyNumber", "RMB"},
                       {"CommodityType", std::int32_t{1}}}),
            " ");
}

TEST_F(Rpt300Condition, TellsOrderStatesApart) {
  EXPECT_EQ(State(0), " AND v1.FStatus>0 And v1.FCancelLation=0  ");
  EXPECT_EQ(State(1), " AND v1.FStatus=0 And v1.FCancelLation=0  ");
  EXPECT_EQ(State(2), " And v1.FCancelLation=0  ");
  EXPECT_EQ(State(7), " And v1.FCancelLation=0  ");
}

}  // namespace
}  // namespace salerpt::testing
