// What the conditions of the income statistics become in the batch.
#include <gtest/gtest.h>

#include "tests/reports/rpt126_world.h"

namespace salerpt::testing {
namespace {

class Rpt126Condition : public Rpt126World {
 protected:
  // What the statement ends with behind the kinds and states of the bills.
  std::string Condition(Entries more) {
    const std::string& select = FetchInvoices({}, more).at("SELECT");
    const std::string where = Text("{WHERE}");
    const std::size_t begin = select.find(where);
    if (begin == std::string::npos) return "no " + where;
    const std::string rest = select.substr(begin + where.size());
    return rest.substr(0, rest.size() - 2);
  }
  // What stands for the states of the bills; the same must stand in the text that spares rows.
  std::string State(Entries more) {
    FetchInvoices({}, more);
    const std::string state =
        Between("SELECT", "Where v1.FTranType in (80,86) \r\n ", "  ##CHECKDATE## \r\n");
    EXPECT_EQ(Between("ITEMFILTER", "And v1.FTranType in (80,86) \r\n ", " ##CHECKDATE##)"), state);
    return state;
  }
  void ExpectRefused(Entries more) {
    RunInvoices({}, more);
    EXPECT_FALSE(Ok());
    EXPECT_NE(Error(), "");
    EXPECT_TRUE(sales_->Calls().empty()) << "nothing goes to the server";
    EXPECT_FALSE(HasRows());
    EXPECT_EQ(toolkit_->shown, toolkit_->unloaded);
  }

 private:
  std::string Between(const char* key, std::string_view before, std::string_view after) {
    const std::string& text = request_.at(key);
    const std::size_t begin = text.find(before);
    if (begin == std::string::npos) return "no " + std::string(before);
    const std::size_t from = begin + before.size();
    return text.substr(from, text.find(after, from) - from);
  }
};

TEST_F(Rpt126Condition, IsEmptyWithoutAnyBound) {
  EXPECT_EQ(Condition({}), "");
}

TEST_F(Rpt126Condition, BoundsItemsCustomersDepartmentsAndEmployees) {
  EXPECT_EQ(Condition({{"BItemNumber", "01"}}), " And t1.FNumber>='01'");
  EXPECT_EQ(Condition({{"EItemNumber", "09"}}), " And t1.FNumber<='09'");
  EXPECT_EQ(Condition({{"BCustNumber", "01"}}), " And t2.FNumber>='01'");
  EXPECT_EQ(Condition({{"ECustNumber", "09"}}), " And t2.FNumber<='09'");
  EXPECT_EQ(Condition({{"BDeptNumber", "01"}}), " And t3.FNumber>='01'");
  EXPECT_EQ(Condition({{"EDeptNumber", "09"}}), " And t3.FNumber<='09'");
  EXPECT_EQ(Condition({{"BEmpNumber", "01"}}), " And t4.FNumber>='01'");
  EXPECT_EQ(Condition({{"EEmpNumber", "09"}}), " And t4.FNumber<='09'");
}

TEST_F(Rpt126Condition, JoinsAllPiecesInTheirOrder) {
  EXPECT_EQ(Condition({{"EEmpNumber", "44"},
                       {"BEmpNumber", "41"},
                       {"EDeptNumber", "34"},
                       {"BDeptNumber", "31"},
                       {"SaleType", std::int32_t{201}},
                       {"ECustNumber", "24"},
                       {"BCustNumber", "21"},
                       {"CommodityType", std::int32_t{1}},
                       {"EItemNumber", "14"},
                       {"BItemNumber", "11"}}),
            " And t1.FNumber>='11' And t1.FNumber<='14' And t1.FErpClsID=4 And t2.FNumber>='21' And "
            "t2.FNumber<='24' And v1.FSaleStyle = 201 And t3.FNumber>='31' And t3.FNumber<='34' And "
            "t4.FNumber>='41' And t4.FNumber<='44'");
}

TEST_F(Rpt126Condition, JoinsAllPiecesWithShortCodes) {
  UseShortCode();
  EXPECT_EQ(Condition({{"BItemNumber", "1"},
                       {"CommodityType", std::int32_t{2}},
                       {"ECustNumber", "2"},
                       {"BDeptNumber", "3"},
                       {"EEmpNumber", "4"}}),
            " And t1.FShortNumber>='1' And t1.FErpClsID<>4 And t2.FShortNumber<='2' And "
            "t3.FShortNumber>='3' And t4.FShortNumber<='4'");
}

TEST_F(Rpt126Condition, TakesCommoditiesOnlyOrAllButThem) {
  EXPECT_EQ(Condition({{"CommodityType", std::int32_t{1}}}), " And t1.FErpClsID=4");
  EXPECT_EQ(Condition({{"CommodityType", std::int32_t{2}}}), " And t1.FErpClsID<>4");
  EXPECT_EQ(Condition({{"CommodityType", std::int32_t{0}}}), "");
  EXPECT_EQ(Condition({{"CommodityType", std::int32_t{3}}}), "");
}

TEST_F(Rpt126Condition, TakesOneSaleStyleFromTwoUp) {
  EXPECT_EQ(Condition({{"SaleType", std::int32_t{2}}}), " And v1.FSaleStyle = 2");
  EXPECT_EQ(Condition({{"SaleType", "201"}}), " And v1.FSaleStyle = 201");
  EXPECT_EQ(Condition({{"SaleType", std::int32_t{1}}}), "");
  EXPECT_EQ(Condition({{"SaleType", std::int32_t{0}}}), "");
}

TEST_F(Rpt126Condition, CannotBeBrokenOutOfByACode) {
  EXPECT_EQ(Condition({{"BDeptNumber", " O'Neil's "}, {"EEmpNumber", "x'; Drop Table t_Item --"}}),
            " And t3.FNumber>='O''Neil''s' And t4.FNumber<='x''; Drop Table t_Item --'");
}

TEST_F(Rpt126Condition, RefusesAChoiceThatIsNoNumber) {
  ExpectRefused({{"SaleType", "2 Or 1=1"}});
  ExpectRefused({{"HookStatus", "1 Or 1=1"}});
  ExpectRefused({{"CheckState", "all of them"}});
}

TEST_F(Rpt126Condition, IsMadeAnewForEachFetch) {
  Condition({{"BItemNumber", "01"}});
  EXPECT_EQ(Condition({{"EItemNumber", "05"}}), " And t1.FNumber<='05'");
}

TEST_F(Rpt126Condition, TellsAuditedBillsFromOthers) {
  EXPECT_EQ(State({{"CheckState", std::int32_t{0}}}), " And v1.FStatus>0 And v1.FCancelLation=0 ");
  EXPECT_EQ(State({{"CheckState", std::int32_t{1}}}), " And v1.FStatus=0 And v1.FCancelLation=0 ");
  EXPECT_EQ(State({{"CheckState", std::int32_t{2}}}), " And v1.FCancelLation=0 ");
}

TEST_F(Rpt126Condition, TellsSettledBillsFromOthers) {
  const std::string audited = " And v1.FStatus>0 And v1.FCancelLation=0 ";
  EXPECT_EQ(State({{"HookStatus", std::int32_t{-1}}}), audited);
  EXPECT_EQ(State({{"HookStatus", std::int32_t{0}}}), audited + " And v1.FHookStatus=0");
  EXPECT_EQ(State({{"HookStatus", std::int32_t{1}}}), audited + " And v1.FHookStatus=1");
  EXPECT_EQ(State({{"HookStatus", std::int32_t{2}}}), audited + " And v1.FHookStatus=2");
}

TEST_F(Rpt126Condition, TellsBlueBillsFromRedCountingFromNought) {
  const std::string audited = " And v1.FStatus>0 And v1.FCancelLation=0 ";
  EXPECT_EQ(State({{"BillType", std::int32_t{0}}}), audited + " And v1.FROB=1 ");
  EXPECT_EQ(State({{"BillType", std::int32_t{1}}}), audited + " And v1.FROB=-1 ");
  EXPECT_EQ(State({{"BillType", std::int32_t{2}}}), audited);
  EXPECT_EQ(State({{"BillType", std::int32_t{3}}, {"FROB", std::int32_t{1}}}), audited);
}

TEST_F(Rpt126Condition, JoinsAllStatesInTheirOrder) {
  EXPECT_EQ(
      State(
          {{"BillType", std::int32_t{1}}, {"HookStatus", std::int32_t{2}}, {"CheckState", std::int32_t{2}}}),
      " And v1.FCancelLation=0  And v1.FHookStatus=2 And v1.FROB=-1 ");
}

TEST_F(Rpt126Condition, ReadsStatesThatNobodyChose) {
  SetMember(Report(), "Filter",
            std::make_shared<Dictionary>(
                Entries{{"BDate", Date::FromYmd(2003, 1, 1)}, {"EDate", Date::FromYmd(2003, 3, 31)}}));
  Call(Report(), "GetReportData");
  ASSERT_TRUE(Ok()) << Error();
  EXPECT_NE(request_.at("SELECT").find(" And v1.FStatus>0 And v1.FCancelLation=0  And v1.FROB=1   ##CHECK"),
            std::string::npos)
      << "audited, of whatever settlement, blue";
}

TEST_F(Rpt126Condition, LeavesNoPlaceOpenButTheDates) {
  for (const std::int32_t mode : {0, 1, 2, 3, 4}) {
    for (const std::int32_t by_currency : {0, 1}) {
      FetchInvoices({{"GroupBy", std::int32_t{mode == 0 ? 0 : 1}},
                     {"SumMode", mode},
                     {"BLevel", std::int32_t{1}},
                     {"ELevel", std::int32_t{2}},
                     {"CurrencyShow", by_currency}});
      for (const char* place : {"##CHECKSTATE##", "##ER##", "##Currency##", "##FCurrency##"}) {
        EXPECT_EQ(request_.at("SELECT").find(place), std::string::npos) << place << " in mode " << mode;
      }
      EXPECT_EQ(request_.at("ITEMFILTER").find("##CHECKSTATE##"), std::string::npos);
    }
  }
}

}  // namespace
}  // namespace salerpt::testing
