// Each call that the outbound detail makes fails once: `Result` tells it, there are no rows, and the progress
// dialog is gone.
#include <gtest/gtest.h>

#include "runtime/error.h"
#include "tests/reports/rpt129_world.h"

namespace salerpt::testing {
namespace {

const RuntimeError kServerDown(-2147467259, "Server", "the server is not there");

class Rpt129Failure : public Rpt129World {
 protected:
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

TEST_F(Rpt129Failure, OfTheSystemProfileMeansTheLongCode) {
  profile_->Raises("GetProfile", kServerDown);
  EXPECT_TRUE(HasText(Fetch({{"BItemNumber", "01"}}).at("SELECT"), " And t1.FNumber>='01'"));
  EXPECT_TRUE(HasRows());
}

TEST_F(Rpt129Failure, OfTheScaleIsToldByResultAndMendedByTheNextFetch) {
  currency_->Raises("GetData", kServerDown);
  ASSERT_NE(Report(), nullptr);
  EXPECT_FALSE(Ok());
  EXPECT_EQ(Error(), "the server is not there");
  Run();
  ExpectServerDown();
  EXPECT_TRUE(sales_->Calls().empty());
  UseScale("4");
  ExpectFetchIsGoodAgain();
  EXPECT_TRUE(HasText(request_.at("SELECT"), "FOutAmount decimal(28,4) null, "));
}

TEST_F(Rpt129Failure, OfTheDataRightIsToldByResultAtCreation) {
  rights_->Raises("GetDataRight", kServerDown);
  ASSERT_NE(Report(), nullptr);
  EXPECT_FALSE(Ok());
  EXPECT_EQ(Error(), "the server is not there");
}

TEST_F(Rpt129Failure, OfTheDataRightNeverLetsAFetchThroughWithoutIt) {
  rights_->Raises("GetDataRight", kServerDown);
  Run();
  ExpectServerDown();
  EXPECT_TRUE(sales_->Calls().empty());
  RestrictCustomers();
  ExpectFetchIsGoodAgain();
  EXPECT_TRUE(HasText(request_.at("SELECT"), " And  CharIndex('16394',T2.FRightUserID)>0 "));
}

TEST_F(Rpt129Failure, OfTheDataRightAtExtFirterIsToldByResult) {
  Report();
  rights_->Raises("GetDataRight", kServerDown);
  LetMember(Report(), "ExtFirter", "129");
  EXPECT_FALSE(Ok());
  EXPECT_EQ(Error(), "the server is not there");
  RestrictCustomers();
  ExpectFetchIsGoodAgain();
  EXPECT_TRUE(HasText(request_.at("SELECT"), " And  CharIndex('16394',T2.FRightUserID)>0 "));
}

TEST_F(Rpt129Failure, OfTheLoginEndsTheFetch) {
  Report();
  host_->Raises("PropsString", kServerDown);
  Run();
  ExpectServerDown();
}

TEST_F(Rpt129Failure, OfTheFieldRightsEndsTheFetch) {
  ledger_->Raises("AccessCheck", kServerDown);
  Run();
  ExpectServerDown();
  EXPECT_TRUE(sales_->Calls().empty());
}

TEST_F(Rpt129Failure, OfTheSecondFieldRightEndsTheFetch) {
  ledger_->On("AccessCheck", [](Arguments arguments) -> Variant {
    if (arguments[2].ToInt32() == 16) throw kServerDown;
    return true;
  });
  Run();
  ExpectServerDown();
}

TEST_F(Rpt129Failure, OfTheConnectionEndsTheFetch) {
  connection_->Raises("Execute", kServerDown);
  Run();
  ExpectServerDown();
  EXPECT_TRUE(sales_->Calls().empty());
}

TEST_F(Rpt129Failure, OfTheMiddleTierEndsTheFetchWithItsWords) {
  sales_->Raises("GetSaleDetailData", kServerDown);
  Run();
  ExpectServerDown();
  EXPECT_EQ(toolkit_->messages.back(), "正在从服务器读取数据...");
}

TEST_F(Rpt129Failure, OfTheObjectMakerEndsTheFetchBeforeItTellsThatItReads) {
  RunWithoutMaker("ORVMSaleRpt.Data");
  EXPECT_EQ(toolkit_->messages, std::vector<std::string>{"正在连接服务器"});
}

TEST_F(Rpt129Failure, OfTheMakerOfTheConnectionEndsTheFetch) {
  RunWithoutMaker("ORVConnection.AppConnection");
}

TEST_F(Rpt129Failure, OfTheMakerOfTheFieldRightsEndsTheFetch) {
  RunWithoutMaker("ORVEBCGLView.GLData");
}

TEST_F(Rpt129Failure, DropsTheRowsOfAnEarlierFetch) {
  Fetch();
  ASSERT_TRUE(HasRows());
  toolkit_->shown = toolkit_->unloaded = 0;
  sales_->Raises("GetSaleDetailData", kServerDown);
  Run();
  ExpectServerDown();
}

TEST_F(Rpt129Failure, OfRefreshIsToldByResultToo) {
  Fetch();
  toolkit_->shown = toolkit_->unloaded = 0;
  sales_->Raises("GetSaleDetailData", kServerDown);
  Call(Report(), "Refresh");
  ExpectServerDown();
}

TEST_F(Rpt129Failure, LeavesTheReportIdleUntilAFilterIsSetAgain) {
  sales_->Raises("GetSaleDetailData", kServerDown);
  Run();
  Call(Report(), "GetReportData");
  EXPECT_EQ(toolkit_->shown, 1);
  AnswerFetch();
  ExpectFetchIsGoodAgain();
}

}  // namespace
}  // namespace salerpt::testing
