// Each call that the income statistics make fails once: `Result` tells it, there are no rows, and the
// progress dialog is gone.
#include <gtest/gtest.h>

#include "runtime/error.h"
#include "tests/reports/rpt126_world.h"

namespace salerpt::testing {
namespace {

const RuntimeError kServerDown(-2147467259, "Server", "the server is not there");

class Rpt126Failure : public Rpt126World {
 protected:
  void RunWithoutMaker(const char* prog_id) {
    runtime_.Register(prog_id, [prog_id]() -> ObjectRef {
      throw RuntimeError(error_number::kObjectMaker, "Maker",
                         "no object is registered for " + std::string(prog_id));
    });
    runtime_.gl_data = nullptr;
    RunInvoices();
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
    FetchInvoices();
    EXPECT_TRUE(HasRows());
    EXPECT_EQ(Error(), "");
    EXPECT_EQ(toolkit_->shown, toolkit_->unloaded);
  }
};

TEST_F(Rpt126Failure, OfTheSystemProfileMeansTheLongCode) {
  profile_->Raises("GetProfile", kServerDown);
  FetchInvoices({{"BItemNumber", "01"}});
  EXPECT_NE(request_.at("SELECT").find(" And t1.FNumber>='01'"), std::string::npos);
  EXPECT_TRUE(HasRows());
}

TEST_F(Rpt126Failure, OfTheScaleAtCreationIsToldByResultAndMendedByTheNextFetch) {
  currency_->Raises("GetData", kServerDown);
  ASSERT_NE(Report(), nullptr);
  EXPECT_FALSE(Ok());
  EXPECT_EQ(Error(), "the server is not there");
  UseScale("4");
  ExpectFetchIsGoodAgain();
  EXPECT_NE(request_.at("SELECT").find("Round(v2.FStdTaxAmount,4)"), std::string::npos);
}

TEST_F(Rpt126Failure, OfTheScaleStrikesTheFetchToo) {
  currency_->Raises("GetData", kServerDown);
  RunInvoices();
  ExpectServerDown();
  EXPECT_TRUE(sales_->Calls().empty());
}

TEST_F(Rpt126Failure, OfTheDataRightAtCreationIsToldByResult) {
  rights_->Raises("GetDataRight", kServerDown);
  ASSERT_NE(Report(), nullptr);
  EXPECT_FALSE(Ok());
  EXPECT_EQ(Error(), "the server is not there");
}

TEST_F(Rpt126Failure, OfTheDataRightNeverLetsAFetchThroughWithoutIt) {
  rights_->Raises("GetDataRight", kServerDown);
  RunInvoices();
  ExpectServerDown();
  EXPECT_TRUE(sales_->Calls().empty());
}

TEST_F(Rpt126Failure, OfTheDataRightIsMendedByTheNextFetch) {
  rights_->Raises("GetDataRight", kServerDown);
  Report();
  RestrictCustomers();
  ExpectFetchIsGoodAgain();
  EXPECT_NE(request_.at("SELECT").find(" And  CharIndex('16394',t2.FRightUserID)>0 "), std::string::npos);
}

TEST_F(Rpt126Failure, OfTheDataRightAtExtFirterIsToldByResult) {
  Report();
  rights_->Raises("GetDataRight", kServerDown);
  LetMember(Report(), "ExtFirter", "166");
  EXPECT_FALSE(Ok());
  EXPECT_EQ(Error(), "the server is not there");
  RestrictCustomers();
  ExpectFetchIsGoodAgain();
  EXPECT_NE(request_.at("SELECT").find(" And  CharIndex('16394',t2.FRightUserID)>0 "), std::string::npos);
}

TEST_F(Rpt126Failure, OfTheLoginEndsTheFetch) {
  Report();
  host_->Raises("PropsString", kServerDown);
  RunInvoices();
  ExpectServerDown();
}

TEST_F(Rpt126Failure, OfTheFieldRightEndsTheFetch) {
  ledger_->Raises("AccessCheck", kServerDown);
  RunInvoices();
  ExpectServerDown();
  EXPECT_TRUE(sales_->Calls().empty());
}

TEST_F(Rpt126Failure, OfTheMiddleTierEndsTheFetchWithItsWords) {
  sales_->Raises("GetPurchaseData", kServerDown);
  RunInvoices();
  ExpectServerDown();
}

TEST_F(Rpt126Failure, OfTheObjectMakerEndsTheFetch) {
  RunWithoutMaker("ORVMSaleRpt.Data");
}

TEST_F(Rpt126Failure, OfTheMakerOfTheFieldRightEndsTheFetch) {
  RunWithoutMaker("ORVEBCGLView.GLData");
}

TEST_F(Rpt126Failure, DropsTheRowsOfAnEarlierFetch) {
  FetchInvoices();
  ASSERT_TRUE(HasRows());
  toolkit_->shown = toolkit_->unloaded = 0;
  sales_->Raises("GetPurchaseData", kServerDown);
  RunInvoices();
  ExpectServerDown();
}

TEST_F(Rpt126Failure, OfRefreshIsToldByResultToo) {
  FetchInvoices();
  toolkit_->shown = toolkit_->unloaded = 0;
  ledger_->Raises("AccessCheck", kServerDown);
  Call(Report(), "Refresh");
  ExpectServerDown();
}

TEST_F(Rpt126Failure, LeavesTheReportIdleUntilAFilterIsSetAgain) {
  sales_->Raises("GetPurchaseData", kServerDown);
  RunInvoices();
  Call(Report(), "GetReportData");
  EXPECT_EQ(toolkit_->shown, 1);
  AnswerFetch();
  ExpectFetchIsGoodAgain();
}

TEST_F(Rpt126Failure, OfALevelThatIsNoNumberIsToldByResult) {
  RunInvoices({{"GroupBy", std::int32_t{1}},
               {"SumMode", std::int32_t{1}},
               {"BLevel", "1; Drop Table t_Item"},
               {"ELevel", std::int32_t{1}}});
  EXPECT_FALSE(Ok());
  EXPECT_NE(Error(), "");
  EXPECT_TRUE(sales_->Calls().empty());
  EXPECT_EQ(toolkit_->shown, toolkit_->unloaded);
}

TEST_F(Rpt126Failure, OfAPropertyThatIsNoDictionaryIsToldByResult) {
  RunInvoices({{"GroupBy", std::int32_t{1}}, {"SumMode", std::int32_t{0}}, {"SumField", "客户"}});
  EXPECT_FALSE(Ok());
  EXPECT_NE(Error(), "");
  EXPECT_TRUE(sales_->Calls().empty());
  EXPECT_EQ(toolkit_->shown, toolkit_->unloaded);
}

TEST_F(Rpt126Failure, OfAPropertyWhoseNumbersAreNoneIsToldByResult) {
  const DictionaryRef property = SumField("客户", 1, 0);
  property->Set("FPropID", "0; Drop Table t_Item");
  RunInvoices({{"GroupBy", std::int32_t{1}}, {"SumMode", std::int32_t{0}}, {"SumField", property}});
  EXPECT_FALSE(Ok());
  EXPECT_NE(Error(), "");
  EXPECT_TRUE(sales_->Calls().empty());
  EXPECT_EQ(toolkit_->shown, toolkit_->unloaded);
}

}  // namespace
}  // namespace salerpt::testing
