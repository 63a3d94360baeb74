// What the conditions of the outbound summary become in the batch.
#include <gtest/gtest.h>

#include "tests/reports/rpt128_world.h"

namespace salerpt::testing {
namespace {

class Rpt128Condition : public Rpt128World {
 protected:
  // The condition that a fetch sends; it goes under "Filter" where no grouping is asked.
  std::string Condition(Entries more) { return Fetch(more).at("Filter"); }
  // What stands between two texts of the batch.
  static std::string Between(const std::string& text, std::string_view before, std::string_view after) {
    const std::size_t begin = text.find(before);
    if (begin == std::string::npos) return "no " + std::string(before);
    const std::size_t from = begin + before.size();
    return text.substr(from, text.find(after, from) - from);
  }
  // What the outbound half and the invoice half have behind their bill kinds.
  std::string StockText() {
    return Between(request_.at("SELECT"), "Where v1.FTranType =21 \r\n ", " " + std::string(kDates));
  }
  std::string StateText() {
    return Between(request_.at("SELECT"), "Where v1.FTranType in (80,86) \r\n ", " " + std::string(kDates));
  }
  void ExpectBillStates(std::int32_t check_state, std::int32_t frob, std::string_view text) {
    Fetch({{"CheckState", check_state}, {"FROB", frob}});
    EXPECT_EQ(StockText(), std::string(text) + " ") << "outbound, " << check_state << ", " << frob;
    EXPECT_EQ(StateText(), std::string(text) + " ") << "invoices, " << check_state << ", " << frob;
  }
  void ExpectRefused(Entries more) {
    Run(more);
    EXPECT_FALSE(Ok());
    EXPECT_NE(Error(), "");
    EXPECT_TRUE(sales_->Calls().empty()) << "nothing goes to the server";
    EXPECT_FALSE(HasRows());
    EXPECT_EQ(toolkit_->shown, toolkit_->unloaded);
  }

  static constexpr std::string_view kDates = " AND convert(datetime,convert(varchar(30),v1.FDate,111)) >='";
};

TEST_F(Rpt128Condition, IsEmptyWithoutAnyBound) {
  EXPECT_EQ(Condition({}), "");
}

TEST_F(Rpt128Condition, StandsAsOneBlankInTheFillWhereItIsEmpty) {
  Fetch();
  EXPECT_EQ(Between(request_.at("SELECT"), "<='2003/03/31' ", "\r\n"), " ");
}

TEST_F(Rpt128Condition, BoundsItemsByTheirLongCode) {
  EXPECT_EQ(Condition({{"BItemNumber", "01.02"}}), " AND t1.FNumber>='01.02'");
  EXPECT_EQ(Condition({{"EItemNumber", "01.09"}}), " AND t1.FNumber<='01.09'");
}

TEST_F(Rpt128Condition, BoundsItemsByTheirShortCodeWhereThatIsInUse) {
  UseShortCode();
  EXPECT_EQ(Condition({{"BItemNumber", "0002"}, {"EItemNumber", "0009"}}),
            " AND t1.FShortNumber>='0002' AND t1.FShortNumber<='0009'");
}

TEST_F(Rpt128Condition, BoundsCustomersByTheirLongCode) {
  EXPECT_EQ(Condition({{"BCustNumber", "02"}}), " AND t2.FNumber>='02'");
  EXPECT_EQ(Condition({{"ECustNumber", "03.01"}}), " AND t2.FNumber<='03.01'");
}

TEST_F(Rpt128Condition, BoundsCustomersByTheirShortCodeWhereThatIsInUse) {
  UseShortCode();
  EXPECT_EQ(Condition({{"BCustNumber", "2"}, {"ECustNumber", "3"}}),
            " AND t2.FShortNumber>='2' AND t2.FShortNumber<='3'");
}

TEST_F(Rpt128Condition, TakesCommoditiesOnlyOrAllButThem) {
  EXPECT_EQ(Condition({{"CommodityType", std::int32_t{1}}}), " And t1.FErpClsID=4");
  EXPECT_EQ(Condition({{"CommodityType", std::int32_t{2}}}), " And t1.FErpClsID<>4");
  EXPECT_EQ(Condition({{"CommodityType", std::int32_t{0}}}), "");
  EXPECT_EQ(Condition({{"CommodityType", std::int32_t{3}}}), "");
}

TEST_F(Rpt128Condition, TakesOneSaleStyleFromTwoUp) {
  EXPECT_EQ(Condition({{"SaleType", std::int32_t{2}}}), " And v1.FSaleStyle = 2");
  EXPECT_EQ(Condition({{"SaleType", std::int32_t{10143}}}), " And v1.FSaleStyle = 10143");
  EXPECT_EQ(Condition({{"SaleType", "201"}}), " And v1.FSaleStyle = 201");
  EXPECT_EQ(Condition({{"SaleType", std::int32_t{1}}}), "");
  EXPECT_EQ(Condition({{"SaleType", std::int32_t{0}}}), "");
}

TEST_F(Rpt128Condition, JoinsAllPiecesInTheirOrder) {
  EXPECT_EQ(Condition({{"SaleType", std::int32_t{201}},
                       {"ECustNumber", "09"},
                       {"BCustNumber", "02"},
                       {"CommodityType", std::int32_t{1}},
                       {"EItemNumber", "01.09"},
                       {"BItemNumber", "01.02"}}),
            " AND t1.FNumber>='01.02' AND t1.FNumber<='01.09' And t1.FErpClsID=4 AND t2.FNumber>='02'"
            " AND t2.FNumber<='09' And v1.FSaleStyle = 201");
}

TEST_F(Rpt128Condition, JoinsAllPiecesWithShortCodes) {
  UseShortCode();
  EXPECT_EQ(Condition({{"BItemNumber", "2"},
                       {"EItemNumber", "9"},
                       {"CommodityType", std::int32_t{2}},
                       {"BCustNumber", "3"},
                       {"ECustNumber", "4"},
                       {"SaleType", std::int32_t{202}}}),
            " AND t1.FShortNumber>='2' AND t1.FShortNumber<='9' And t1.FErpClsID<>4 AND t2.FShortNumber>='3'"
            " AND t2.FShortNumber<='4' And v1.FSaleStyle = 202");
}

TEST_F(Rpt128Condition, DoublesApostrophesTrimsBlanksAndDropsControlCharacters) {
  EXPECT_EQ(Condition({{"BItemNumber", " O'Neil's "}, {"ECustNumber", "a\r\nb"}}),
            " AND t1.FNumber>='O''Neil''s' AND t2.FNumber<='ab'");
}

TEST_F(Rpt128Condition, CannotBeBrokenOutOfByACode) {
  EXPECT_EQ(Condition({{"BItemNumber", "x'; Drop Table t_ICItem --"}}),
            " AND t1.FNumber>='x''; Drop Table t_ICItem --'");
}

TEST_F(Rpt128Condition, RefusesASaleStyleThatIsNoNumber) {
  ExpectRefused({{"SaleType", "2 Or 1=1"}});
  ExpectRefused({{"SaleType", "现销"}});
}

TEST_F(Rpt128Condition, IsMadeAnewForEachFetch) {
  Condition({{"BItemNumber", "01.02"}});
  EXPECT_EQ(Condition({{"EItemNumber", "05"}}), " AND t1.FNumber<='05'");
}

TEST_F(Rpt128Condition, ReachesAClassLevelBatchThroughTheFillOnly) {
  Fetch({{"GroupBy", std::int32_t{1}},
         {"SumMode", std::int32_t{1}},
         {"BLevel", std::int32_t{1}},
         {"ELevel", std::int32_t{1}},
         {"SaleType", std::int32_t{201}}});
  EXPECT_FALSE(request_.contains("Filter"));
  const std::string& select = request_.at("SELECT");
  const std::string piece = "<='2003/03/31'  And v1.FSaleStyle = 201\r\n";
  const std::size_t first = select.find(piece);
  ASSERT_NE(first, std::string::npos);
  const std::size_t second = select.find(piece, first + 1);
  ASSERT_NE(second, std::string::npos);
  EXPECT_EQ(select.find("FSaleStyle = 201", second + piece.size()), std::string::npos);
}

TEST_F(Rpt128Condition, TellsBillStatesApartByAuditAndColour) {
  ExpectBillStates(0, 0, " AND v1.FStatus>0 And v1.FCancelLation=0 ");
  ExpectBillStates(0, 1, " AND v1.FStatus>0 And v1.FCancelLation=0  AND v1.FROB=1 ");
  ExpectBillStates(0, 2, " AND v1.FStatus>0 And v1.FCancelLation=0  AND v1.FROB=-1 ");
  ExpectBillStates(1, 0, " AND v1.FStatus=0 And v1.FCancelLation=0 ");
  ExpectBillStates(1, 1, " AND v1.FStatus=0 And v1.FCancelLation=0  AND v1.FROB=1 ");
  ExpectBillStates(1, 2, " AND v1.FStatus=0 And v1.FCancelLation=0  AND v1.FROB=-1 ");
  ExpectBillStates(2, 0, " And v1.FCancelLation=0 ");
  ExpectBillStates(2, 1, " And v1.FCancelLation=0  AND v1.FROB=1 ");
  ExpectBillStates(2, 2, " And v1.FCancelLation=0  AND v1.FROB=-1 ");
}

TEST_F(Rpt128Condition, WritesTheDatesOfTheRangeWithSlashes) {
  Fetch({{"BDate", Date::FromYmd(2004, 2, 9)}, {"EDate", Date::FromYmd(2004, 12, 31)}});
  const std::string& select = request_.at("SELECT");
  const std::string range =
      " AND convert(datetime,convert(varchar(30),v1.FDate,111)) >='2004/02/09'\r\n"
      " AND convert(datetime,convert(varchar(30),v1.FDate,111)) <='2004/12/31' ";
  const std::size_t first = select.find(range);
  ASSERT_NE(first, std::string::npos);
  EXPECT_NE(select.find(range, first + 1), std::string::npos);
}

TEST_F(Rpt128Condition, ReadsADateThatIsAText) {
  Fetch({{"BDate", "2004-2-9"}});
  EXPECT_NE(request_.at("SELECT").find(">='2004/02/09'"), std::string::npos);
}

TEST_F(Rpt128Condition, RefusesADateThatIsNone) {
  ExpectRefused({{"BDate", "the ninth"}});
}

TEST_F(Rpt128Condition, LeavesNoPlaceOpen) {
  for (const std::int32_t mode : {1, 2, 3, 4, 6, 7, 8, 9, 10, 11, 12}) {
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
    for (const char* place : {"##CHECKITEM##", "##CHECKSTATE##", "##CHECKSTOCK##", "##CHECKDATE##"}) {
      EXPECT_EQ(request_.at("SELECT").find(place), std::string::npos) << place << " in mode " << mode;
    }
  }
}

}  // namespace
}  // namespace salerpt::testing
