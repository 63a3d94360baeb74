// Each call that the outbound summary makes fails once: `Result` tells it, there are no rows, and the
// progress dialog is gone.
#include <gtest/gtest.h>

#include "runtime/error.h"
#include "tests/reports/rpt128_world.h"

namespace salerpt::testing {
namespace {

const RuntimeError kServerDown(-2147467259, "Server", "the server is not there");

class Rpt128Failure : public Rpt128World {
 protected:
  static DictionaryRef SaleStyle() {
    return std::make_shared<Dictionary>(
        Entries{{"FName", "销售方式"}, {"FPropID", "29"}, {"FItemClassID", "1"}});
  }
  void RunWithoutMaker(const char* prog_id) {
    runtime_.Register(prog_id, [prog_id]() -> ObjectRef {
      throw RuntimeError(error_number::kObjectMaker, "Maker",
                         "no object is registered for " + std::string(prog_id));
    });
    runtime_.gl_data = nullptr;
    Run();
    EXPECT_FALSE(Ok());
    EXPECT_EQ(Error(), "no object is registered for " + std::string(prog_id));
    EXPECT_EQ(ErrorSource(), "Maker");
    ExpectNothingLeft();
  }
  void ExpectServerDown() {
    EXPECT_FALSE(Ok());
    EXPECT_EQ(Error(), "the server is not there");
    EXPECT_EQ(ErrorSource(), "Server");
    ExpectNothingLeft();
  }
  void ExpectNothingLeft() {
    EXPECT_FALSE(HasRows());
    EXPECT_EQ(toolkit_->shown, 1);
    EXPECT_EQ(toolkit_->unloaded, 1);
  }
  void ExpectFetchIsGoodAgain() {
    Fetch();
    EXPECT_TRUE(HasRows());
    EXPECT_EQ(Error(), "");
    EXPECT_EQ(toolkit_->shown, toolkit_->unloaded);
  }
};

TEST_F(Rpt128Failure, OfTheSystemProfileMeansTheLongCode) {
  profile_->Raises("GetProfile", kServerDown);
  EXPECT_EQ(Fetch({{"BItemNumber", "01"}}).at("Filter"), " AND t1.FNumber>='01'");
  EXPECT_TRUE(HasRows());
}

TEST_F(Rpt128Failure, OfTheScaleAtCreationIsToldByResult) {
  currency_->Raises("GetData", kServerDown);
  ASSERT_NE(Report(), nullptr);
  EXPECT_FALSE(Ok());
  EXPECT_EQ(Error(), "the server is not there");
}

TEST_F(Rpt128Failure, OfTheScaleStrikesTheFetchToo) {
  currency_->Raises("GetData", kServerDown);
  Run();
  ExpectServerDown();
  EXPECT_TRUE(sales_->Calls().empty());
}

TEST_F(Rpt128Failure, OfTheScaleIsMendedByTheNextFetch) {
  currency_->Raises("GetData", kServerDown);
  Report();
  UseScale("4");
  ExpectFetchIsGoodAgain();
  EXPECT_NE(request_.at("SELECT").find("FOutAmount Decimal(18,4) not null"), std::string::npos);
}

TEST_F(Rpt128Failure, OfTheDataRightAtCreationIsToldByResult) {
  rights_->Raises("GetDataRight", kServerDown);
  ASSERT_NE(Report(), nullptr);
  EXPECT_FALSE(Ok());
  EXPECT_EQ(Error(), "the server is not there");
}

TEST_F(Rpt128Failure, OfTheDataRightNeverLetsAFetchThroughWithoutIt) {
  rights_->Raises("GetDataRight", kServerDown);
  Run();
  ExpectServerDown();
  EXPECT_TRUE(sales_->Calls().empty());
}

TEST_F(Rpt128Failure, OfTheDataRightIsMendedByTheNextFetch) {
  rights_->Raises("GetDataRight", kServerDown);
  Report();
  RestrictCustomers();
  ExpectFetchIsGoodAgain();
  EXPECT_NE(request_.at("SELECT").find(" And  CharIndex('16394',t2.FRightUserID)>0 "), std::string::npos);
}

TEST_F(Rpt128Failure, OfTheDataRightAtExtFirterIsToldByResult) {
  Report();
  rights_->Raises("GetDataRight", kServerDown);
  LetMember(Report(), "ExtFirter", "166");
  EXPECT_FALSE(Ok());
  EXPECT_EQ(Error(), "the server is not there");
  RestrictCustomers();
  ExpectFetchIsGoodAgain();
  EXPECT_NE(request_.at("SELECT").find(" And  CharIndex('16394',t2.FRightUserID)>0 "), std::string::npos);
}

TEST_F(Rpt128Failure, OfTheDataRightWithinTheFetchEndsIt) {
  for (const std::int32_t mode : {6, 7, 9, 10, 11}) {
    report_ = nullptr;
    toolkit_->shown = toolkit_->unloaded = 0;
    rights_->Gives("GetDataRight", false);
    Report();
    rights_->Raises("GetDataRight", kServerDown);
    Run({{"GroupBy", std::int32_t{1}}, {"SumMode", mode}, {"SumField", SaleStyle()}});
    ExpectServerDown();
    EXPECT_TRUE(sales_->Calls().empty()) << "mode " << mode;
  }
}

TEST_F(Rpt128Failure, OfTheLoginEndsTheFetch) {
  Report();
  host_->Raises("PropsString", kServerDown);
  Run();
  ExpectServerDown();
}

TEST_F(Rpt128Failure, OfTheLoginAtCreationIsToldByResult) {
  host_->Raises("PropsString", kServerDown);
  ASSERT_NE(Report(), nullptr);
  EXPECT_FALSE(Ok());
  EXPECT_EQ(Error(), "the server is not there");
}

TEST_F(Rpt128Failure, OfTheFieldRightsEndsTheFetch) {
  ledger_->Raises("AccessCheck", kServerDown);
  Run();
  ExpectServerDown();
  EXPECT_TRUE(sales_->Calls().empty());
}

TEST_F(Rpt128Failure, OfTheSecondFieldRightEndsTheFetch) {
  ledger_->On("AccessCheck", [](Arguments arguments) -> Variant {
    if (arguments[2].ToInt32() == 16) throw kServerDown;
    return true;
  });
  Run();
  ExpectServerDown();
}

TEST_F(Rpt128Failure, OfTheConnectionEndsTheFetch) {
  connection_->Raises("Execute", kServerDown);
  Run();
  ExpectServerDown();
  EXPECT_TRUE(sales_->Calls().empty());
}

TEST_F(Rpt128Failure, OfTheMiddleTierEndsTheFetchWithItsWords) {
  sales_->Raises("GetSaleAmountData", kServerDown);
  Run();
  ExpectServerDown();
  EXPECT_EQ(toolkit_->messages.back(), "正在从服务器读取数据...");
}

TEST_F(Rpt128Failure, OfTheObjectMakerEndsTheFetchBeforeItTellsThatItReads) {
  RunWithoutMaker("ORVMSaleRpt.Data");
  EXPECT_EQ(toolkit_->messages, std::vector<std::string>{"正在连接服务器"});
}

TEST_F(Rpt128Failure, OfTheMakerOfTheConnectionEndsTheFetch) {
  RunWithoutMaker("ORVConnection.AppConnection");
}

TEST_F(Rpt128Failure, OfTheMakerOfTheFieldRightsEndsTheFetch) {
  RunWithoutMaker("ORVEBCGLView.GLData");
}

TEST_F(Rpt128Failure, DropsTheRowsOfAnEarlierFetch) {
  Fetch();
  ASSERT_TRUE(HasRows());
  toolkit_->shown = toolkit_->unloaded = 0;
  sales_->Raises("GetSaleAmountData", kServerDown);
  Run();
  ExpectServerDown();
}

TEST_F(Rpt128Failure, DropsTheRowsOfAnEarlierFetchWhereItStrikesBeforeTheMiddleTier) {
  Fetch();
  toolkit_->shown = toolkit_->unloaded = 0;
  connection_->Raises("Execute", kServerDown);
  Run();
  ExpectServerDown();
}

TEST_F(Rpt128Failure, OfRefreshIsToldByResultToo) {
  Fetch();
  toolkit_->shown = toolkit_->unloaded = 0;
  sales_->Raises("GetSaleAmountData", kServerDown);
  Call(Report(), "Refresh");
  ExpectServerDown();
}

TEST_F(Rpt128Failure, LeavesTheReportIdleUntilAFilterIsSetAgain) {
  sales_->Raises("GetSaleAmountData", kServerDown);
  Run();
  Call(Report(), "GetReportData");
  EXPECT_EQ(toolkit_->shown, 1);
  AnswerFetch();
  ExpectFetchIsGoodAgain();
}

TEST_F(Rpt128Failure, OfAConditionThatIsNoNumberIsToldByResult) {
  Run({{"CommodityType", "all of them"}});
  EXPECT_FALSE(Ok());
  EXPECT_NE(Error(), "");
  EXPECT_TRUE(sales_->Calls().empty());
  EXPECT_EQ(toolkit_->shown, toolkit_->unloaded);
}

TEST_F(Rpt128Failure, OfALevelThatIsNoNumberIsToldByResult) {
  Run({{"GroupBy", std::int32_t{1}},
       {"SumMode", std::int32_t{1}},
       {"BLevel", "1; Drop Table t_Item"},
       {"ELevel", std::int32_t{1}}});
  EXPECT_FALSE(Ok());
  EXPECT_NE(Error(), "");
  EXPECT_TRUE(sales_->Calls().empty());
  EXPECT_EQ(toolkit_->shown, toolkit_->unloaded);
}

TEST_F(Rpt128Failure, OfAPropertyThatIsNoDictionaryIsToldByResult) {
  Run({{"GroupBy", std::int32_t{1}}, {"SumMode", std::int32_t{5}}, {"SumField", "客户"}});
  EXPECT_FALSE(Ok());
  EXPECT_NE(Error(), "");
  EXPECT_TRUE(sales_->Calls().empty());
  EXPECT_EQ(toolkit_->shown, toolkit_->unloaded);
}

}  // namespace
}  // namespace salerpt::testing
