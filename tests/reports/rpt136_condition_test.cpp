// What the conditions of the order statistics become in the batch.
#include <gtest/gtest.h>

#include "tests/reports/rpt136_world.h"

namespace salerpt::testing {
namespace {

class Rpt136Condition : public Rpt136World {
 protected:
  // The condition that a fetch sends: what stands behind the dates of the insert, which is the same in the
  // item filter.
  std::string Condition(Entries more) {
    Fetch(more);
    const std::string inserted = Between(request_.at("SELECT"), "<='2003/03/31' ", " \r\n");
    EXPECT_EQ(Between(request_.at("ITEMFILTER"), "<='2003/03/31' ", " )"), inserted);
    return inserted;
  }
  static std::string Between(const std::string& text, std::string_view before, std::string_view after) {
    const std::size_t begin = text.find(before);
    if (begin == std::string::npos) return "no " + std::string(before);
    const std::size_t from = begin + before.size();
    return text.substr(from, text.find(after, from) - from);
  }
  void ExpectState(std::int32_t check_state, std::string_view text) {
    Fetch({{"CheckState", check_state}});
    const std::string dates = " AND convert(datetime,";
    EXPECT_EQ(Between(request_.at("SELECT"), " WHERE 1=1 \r\n ", dates), std::string(text) + " ");
    EXPECT_EQ(Between(request_.at("ITEMFILTER"), "v1.FCustID = t2.FItemID  \r\n ", dates),
              std::string(text) + " ");
  }
  void ExpectRefused(Entries more) {
    sales_->Gives("GetSaleAmountData", Variant());
    Run(more);
    EXPECT_FALSE(Ok());
    EXPECT_NE(Error(), "");
    EXPECT_TRUE(sales_->Calls().empty()) << "nothing goes to the server";
    EXPECT_FALSE(HasRows());
    EXPECT_EQ(toolkit_->shown, toolkit_->unloaded);
  }
};

TEST_F(Rpt136Condition, IsOneBlankWithoutAnyBound) {
  EXPECT_EQ(Condition({}), " ");
}

TEST_F(Rpt136Condition, BoundsItemsByTheirLongCode) {
  EXPECT_EQ(Condition({{"BItemNumber", "01.02"}}), " AND t1.FNumber>='01.02'");
  EXPECT_EQ(Condition({{"EItemNumber", "01.09"}}), " AND t1.FNumber<='01.09'");
}

TEST_F(Rpt136Condition, BoundsCustomersByTheirLongCode) {
  EXPECT_EQ(Condition({{"BCustNumber", "02"}}), " AND t2.FNumber>='02'");
  EXPECT_EQ(Condition({{"ECustNumber", "03.01"}}), " AND t2.FNumber<='03.01'");
}

TEST_F(Rpt136Condition, BoundsDepartmentsAndEmployeesByTheirLongCode) {
  EXPECT_EQ(Condition({{"BDepartNumber", "31"}}), " and t3.FNumber >= '31'");
  EXPECT_EQ(Condition({{"EDepartNumber", "32"}}), " and t3.FNumber <= '32'");
  EXPECT_EQ(Condition({{"BEmpNumber", "41"}}), " and t4.FNumber >= '41'");
  EXPECT_EQ(Condition({{"EEmpNumber", "42"}}), " and t4.FNumber <= '42'");
}

TEST_F(Rpt136Condition, BoundsCurrencies) {
  EXPECT_EQ(Condition({{"BCurrencyNumber", "RMB"}}), " and t5.FNumber >= 'RMB'");
  EXPECT_EQ(Condition({{"ECurrencyNumber", "USD"}}), " and t5.FNumber <= 'USD'");
}

TEST_F(Rpt136Condition, BoundsAllButCurrenciesByTheShortCodeWhereThatIsInUse) {
  UseShortCode();
  EXPECT_EQ(Condition({{"BItemNumber", "1"},
                       {"EItemNumber", "2"},
                       {"BCustNumber", "3"},
                       {"ECustNumber", "4"},
                       {"BDepartNumber", "5"},
                       {"EDepartNumber", "6"},
                       {"BEmpNumber", "7"},
                       {"EEmpNumber", "8"},
                       {"BCurrencyNumber", "9"},
                       {"ECurrencyNumber", "10"}}),
            " AND t1.FShortNumber>='1' AND t1.FShortNumber<='2' AND t2.FShortNumber>='3'"
            " AND t2.FShortNumber<='4' and t3.FShortNumber >= '5' and t3.FShortNumber <= '6'"
            " and t4.FShortNumber >= '7' and t4.FShortNumber <= '8' and t5.FNumber >= '9'"
            " and t5.FNumber <= '10'");
}

TEST_F(Rpt136Condition, TakesCommoditiesOnlyOrAllButThem) {
  EXPECT_EQ(Condition({{"CommodityType", std::int32_t{1}}}), " And t1.FErpClsID=4");
  EXPECT_EQ(Condition({{"CommodityType", std::int32_t{2}}}), " And t1.FErpClsID<>4");
  EXPECT_EQ(Condition({{"CommodityType", std::int32_t{0}}}), " ");
  EXPECT_EQ(Condition({{"CommodityType", std::int32_t{3}}}), " ");
}

TEST_F(Rpt136Condition, TakesOneSaleStyleFromTwoUp) {
  EXPECT_EQ(Condition({{"SaleType", std::int32_t{2}}}), " And v1.FSaleStyle = 2");
  EXPECT_EQ(Condition({{"SaleType", "201"}}), " And v1.FSaleStyle = 201");
  EXPECT_EQ(Condition({{"SaleType", std::int32_t{1}}}), " ");
  EXPECT_EQ(Condition({{"SaleType", std::int32_t{0}}}), " ");
}

TEST_F(Rpt136Condition, JoinsAllPiecesInTheirOrder) {
  EXPECT_EQ(
      Condition({{"SaleType", std::int32_t{201}},
                 {"BCurrencyNumber", "RMB"},
                 {"ECurrencyNumber", "USD"},
                 {"BEmpNumber", "41"},
                 {"EEmpNumber", "42"},
                 {"BDepartNumber", "31"},
                 {"EDepartNumber", "32"},
                 {"BCustNumber", "02"},
                 {"ECustNumber", "09"},
                 {"CommodityType", std::int32_t{1}},
                 {"BItemNumber", "01.02"},
                 {"EItemNumber", "01.09"}}),
      " AND t1.FNumber>='01.02' AND t1.FNumber<='01.09' And t1.FErpClsID=4 AND t2.FNumber>='02'"
      " AND t2.FNumber<='09' and t3.FNumber >= '31' and t3.FNumber <= '32' and t4.FNumber >= '41'"
      " and t4.FNumber <= '42' and t5.FNumber >= 'RMB' and t5.FNumber <= 'USD' And v1.FSaleStyle = 201");
}

TEST_F(Rpt136Condition, DoublesApostrophesTrimsBlanksAndDropsControlCharacters) {
  EXPECT_EQ(Condition({{"BItemNumber", " O'Neil's "}, {"ECustNumber", "a\r\nb"}}),
            " AND t1.FNumber>='O''Neil''s' AND t2.FNumber<='ab'");
  EXPECT_EQ(Condition({{"BDepartNumber", "3'1"}, {"EEmpNumber", "4'2"}, {"BCurrencyNumber", "R'B"}}),
            " and t3.FNumber >= '3''1' and t4.FNumber <= '4''2' and t5.FNumber >= 'R''B'");
}

TEST_F(Rpt136Condition, TellsOrderStatesApart) {
  ExpectState(0, " AND v1.FStatus>0 And v1.FCancelLation=0 ");
  ExpectState(1, " AND v1.FStatus=0 And v1.FCancelLation=0 ");
  ExpectState(2, " And v1.FCancelLation=0 ");
  ExpectState(7, " And v1.FCancelLation=0 ");
}

TEST_F(Rpt136Condition, WritesTheDatesOfTheRangeWithSlashes) {
  Fetch({{"BDate", Date::FromYmd(2004, 2, 9)}, {"EDate", Date::FromYmd(2004, 12, 31)}});
  const std::string range =
      " AND convert(datetime,convert(varchar(30),v1.FDate,111)) >='2004/02/09'\r\n"
      " AND convert(datetime,convert(varchar(30),v1.FDate,111)) <='2004/12/31'";
  EXPECT_EQ(CountOf(request_.at("SELECT"), range), 1);
  EXPECT_EQ(CountOf(request_.at("ITEMFILTER"), range), 1);
}

TEST_F(Rpt136Condition, RefusesASaleStyleThatIsNoNumber) {
  ExpectRefused({{"SaleType", "2 Or 1=1"}});
  ExpectRefused({{"SaleType", "现销"}});
}

TEST_F(Rpt136Condition, RefusesADateThatIsNone) {
  ExpectRefused({{"BDate", "the ninth"}});
}

TEST_F(Rpt136Condition, RefusesALevelThatIsNoNumber) {
  ExpectRefused({{"GroupBy", kYes},
                 {"SumMode", std::int32_t{1}},
                 {"BLevel", "1; Drop Table t_Item"},
                 {"ELevel", std::int32_t{1}}});
}

TEST_F(Rpt136Condition, IsMadeAnewForEachFetch) {
  Condition({{"BItemNumber", "01.02"}});
  EXPECT_EQ(Condition({{"EItemNumber", "05"}}), " AND t1.FNumber<='05'");
}

TEST_F(Rpt136Condition, LeavesNoPlaceOpenButTheItemOfRowsWithoutLevels) {
  for (const std::int32_t mode : {1, 2, 3, 4, 5}) {
    for (const std::int32_t by_currency : {0, 1}) {
      Fetch({{"GroupBy", kYes},
             {"SumMode", mode},
             {"BLevel", std::int32_t{1}},
             {"ELevel", std::int32_t{2}},
             {"ChkbyCurrency", by_currency},
             {"OrderBy", "FQty"}});
      for (const char* place :
           {"##CHECKITEM##", "##CHECKSTATE##", "##CHECKSTOCK##", "##CHECKDATE##", "##ITEMID##"}) {
        EXPECT_FALSE(Contains(request_.at("SELECT"), place)) << place << " in mode " << mode;
        EXPECT_FALSE(Contains(request_.at("ITEMFILTER"), place)) << place << " in mode " << mode;
      }
    }
  }
}

}  // namespace
}  // namespace salerpt::testing
