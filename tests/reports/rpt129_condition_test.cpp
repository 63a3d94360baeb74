// What the conditions of the outbound detail become in the batch.
#include <gtest/gtest.h>

#include "tests/reports/rpt129_world.h"

namespace salerpt::testing {
namespace {

class Rpt129Condition : public Rpt129World {
 protected:
  // What the outbound half has behind its dates; the invoice half must have the same.
  std::string Condition(Entries more) {
    const std::string& select = Fetch(more).at("SELECT");
    const std::string outbound = Behind(select, 0);
    EXPECT_EQ(Behind(select, 1), outbound);
    return outbound;
  }
  static std::string Behind(const std::string& select, int half) {
    const std::string date = "<='2003/03/31' ";
    std::size_t at = select.find(date);
    if (half == 1 && at != std::string::npos) at = select.find(date, at + 1);
    if (at == std::string::npos) return "no half " + std::to_string(half);
    at += date.size();
    return select.substr(at, select.find("\r\n", at) - at);
  }
  void ExpectBillStates(std::int32_t check_state, std::int32_t frob, const std::string& text) {
    const std::string& select = Fetch({{"CheckState", check_state}, {"FROB", frob}}).at("SELECT");
    const std::string dates = " And convert(datetime,convert(varchar(30),v1.FDate,111)) >='2003/01/01'\r\n";
    EXPECT_TRUE(HasText(select, "     Where v1.FTrantype = 21 \r\n     " + text + " " + dates));
    EXPECT_TRUE(HasText(select, "     Where v1.FTranType in (80,86) \r\n     " + text + " " + dates));
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

TEST_F(Rpt129Condition, IsOneBlankWithoutAnyBound) {
  EXPECT_EQ(Condition({}), " ");
}

TEST_F(Rpt129Condition, BoundsItemsByTheirLongCode) {
  EXPECT_EQ(Condition({{"BItemNumber", "01.02"}}), " And t1.FNumber>='01.02'");
  EXPECT_EQ(Condition({{"EItemNumber", "01.09"}}), " And t1.FNumber<='01.09'");
}

TEST_F(Rpt129Condition, BoundsCustomersByTheirLongCode) {
  EXPECT_EQ(Condition({{"BCustNumber", "02"}}), " And t2.FNumber>='02'");
  EXPECT_EQ(Condition({{"ECustNumber", "03.01"}}), " And t2.FNumber<='03.01'");
}

TEST_F(Rpt129Condition, BoundsByTheShortCodeWhereThatIsInUse) {
  UseShortCode();
  EXPECT_EQ(Condition({{"BItemNumber", "0002"},
                       {"EItemNumber", "0009"},
                       {"BCustNumber", "2"},
                       {"ECustNumber", "3"},
                       {"EBatchNo", "7"}}),
            " And t1.FShortNumber>='0002' And t1.FShortNumber<='0009' And t2.FShortNumber>='2'"
            " And t2.FShortNumber<='3' And v2.FBatchNo<='7'");
}

TEST_F(Rpt129Condition, BoundsBatchNumbers) {
  EXPECT_EQ(Condition({{"BBatchNo", "B1"}}), " And v2.FBatchNo>='B1'");
  EXPECT_EQ(Condition({{"EBatchNo", "B9"}}), " And v2.FBatchNo<='B9'");
}

TEST_F(Rpt129Condition, TakesCommoditiesOnlyOrAllButThem) {
  EXPECT_EQ(Condition({{"CommodityType", std::int32_t{1}}}), " And t1.FErpClsID=4");
  EXPECT_EQ(Condition({{"CommodityType", std::int32_t{2}}}), " And t1.FErpClsID<>4");
  EXPECT_EQ(Condition({{"CommodityType", std::int32_t{0}}}), " ");
}

TEST_F(Rpt129Condition, TakesOneSaleStyleFromTwoUp) {
  EXPECT_EQ(Condition({{"SaleType", std::int32_t{2}}}), " And v1.FSaleStyle = 2");
  EXPECT_EQ(Condition({{"SaleType", "10143"}}), " And v1.FSaleStyle = 10143");
  EXPECT_EQ(Condition({{"SaleType", std::int32_t{1}}}), " ");
  EXPECT_EQ(Condition({{"SaleType", std::int32_t{0}}}), " ");
}

TEST_F(Rpt129Condition, JoinsAllPiecesInTheirOrder) {
  EXPECT_EQ(Condition({{"EBatchNo", "B9"},
                       {"BBatchNo", "B1"},
                       {"SaleType", std::int32_t{201}},
                       {"ECustNumber", "09"},
                       {"BCustNumber", "02"},
                       {"CommodityType", std::int32_t{1}},
                       {"EItemNumber", "01.09"},
                       {"BItemNumber", "01.02"}}),
            " And t1.FNumber>='01.02' And t1.FNumber<='01.09' And t1.FErpClsID=4 And t2.FNumber>='02'"
            " And t2.FNumber<='09' And v1.FSaleStyle = 201 And v2.FBatchNo>='B1' And v2.FBatchNo<='B9'");
}

TEST_F(Rpt129Condition, CannotBeBrokenOutOf) {
  EXPECT_EQ(Condition({{"BItemNumber", " O'Neil's "}}), " And t1.FNumber>='O''Neil''s'");
  EXPECT_EQ(Condition({{"ECustNumber", "x'; Drop Table t_ICItem --"}}),
            " And t2.FNumber<='x''; Drop Table t_ICItem --'");
  EXPECT_EQ(Condition({{"BBatchNo", "B'1"}, {"EBatchNo", "B'9"}}),
            " And v2.FBatchNo>='B''1' And v2.FBatchNo<='B''9'");
}

TEST_F(Rpt129Condition, RefusesASaleStyleThatIsNoNumber) {
  ExpectRefused({{"SaleType", "2 Or 1=1"}});
}

TEST_F(Rpt129Condition, RefusesADateThatIsNone) {
  ExpectRefused({{"BDate", "the ninth"}});
}

TEST_F(Rpt129Condition, IsMadeAnewForEachFetch) {
  Condition({{"BItemNumber", "01.02"}});
  EXPECT_EQ(Condition({{"EItemNumber", "05"}}), " And t1.FNumber<='05'");
}

TEST_F(Rpt129Condition, TellsBillStatesApartByAuditAndColour) {
  ExpectBillStates(0, 0, " And v1.FStatus>0 And v1.FCancelLation=0 ");
  ExpectBillStates(0, 1, " And v1.FStatus>0 And v1.FCancelLation=0  And v1.FROB=1 ");
  ExpectBillStates(0, 2, " And v1.FStatus>0 And v1.FCancelLation=0  And v1.FROB=-1 ");
  ExpectBillStates(1, 0, " And v1.FStatus=0 And v1.FCancelLation=0 ");
  ExpectBillStates(1, 1, " And v1.FStatus=0 And v1.FCancelLation=0  And v1.FROB=1 ");
  ExpectBillStates(1, 2, " And v1.FStatus=0 And v1.FCancelLation=0  And v1.FROB=-1 ");
  ExpectBillStates(2, 0, " And v1.FCancelLation=0 ");
  ExpectBillStates(2, 1, " And v1.FCancelLation=0  And v1.FROB=1 ");
  ExpectBillStates(2, 2, " And v1.FCancelLation=0  And v1.FROB=-1 ");
}

TEST_F(Rpt129Condition, WritesTheDatesOfTheRangeWithSlashes) {
  const std::string& select =
      Fetch({{"BDate", Date::FromYmd(2004, 2, 9)}, {"EDate", Date::FromYmd(2004, 12, 31)}}).at("SELECT");
  EXPECT_EQ(CountOf(select,
                    " And convert(datetime,convert(varchar(30),v1.FDate,111)) >='2004/02/09'\r\n"
                    " And convert(datetime,convert(varchar(30),v1.FDate,111)) <='2004/12/31' "),
            2);
}

TEST_F(Rpt129Condition, LeavesNoPlaceOpen) {
  for (const std::int32_t mode : {1, 2, 3, 4, 5, 0}) {
    for (const std::int32_t group_by : {0, 1}) {
      auto property = std::make_shared<Dictionary>(Entries{{"FName", "客户"},
                                                           {"FPropID", "0"},
                                                           {"FItemClassID", "1"},
                                                           {"FSrcTable", ""},
                                                           {"FSQLColumnName", "FName"}});
      Fetch({{"GroupBy", group_by},
             {"SumMode", mode},
             {"BLevel", std::int32_t{1}},
             {"ELevel", std::int32_t{2}},
             {"SumField", property}});
      for (const char* place : {"##CHECKITEM##", "##CHECKSTATE##", "##CHECKSTOCK##", "##CHECKDATE##"}) {
        EXPECT_FALSE(Contains(request_.at("SELECT"), place)) << place << " in mode " << mode;
      }
    }
  }
}

}  // namespace
}  // namespace salerpt::testing
