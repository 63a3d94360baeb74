// Each call that the analyses of growth, flow and structure make, failing once.
#include <gtest/gtest.h>

#include "runtime/error.h"
#include "tests/reports/rpt140_world.h"

namespace salerpt::testing {
namespace {

const RuntimeError kServerDown(-2147467259, "Server", "the server is not there");

class AnalysisFailure : public AnyAnalysis {
 protected:
  void ExpectServerDown() { ExpectFailed("the server is not there", "Server"); }
};

TEST_P(AnalysisFailure, OfTheRequestIsToldByTheErrorThatComesBackInIt) {
  on_fetch_ = [](Arguments arguments) {
    const auto request = As<Dictionary>(arguments[1]);
    request->Set("Error", "the batch was refused");
    request->Set("ErrorSource", "GetData");
  };
  Run();
  ExpectFailed("the batch was refused", "GetData");
}

TEST_P(AnalysisFailure, OfTheRequestHasNoSourceWhereNoneComesBack) {
  on_fetch_ = [](Arguments arguments) {
    As<Dictionary>(arguments[1])->Set("Error", "the batch was refused");
  };
  Run();
  ExpectFailed("the batch was refused", "");
}

TEST_P(AnalysisFailure, OfTheRequestIsToldByTheDictionaryThatComesBackInItsPlace) {
  on_fetch_ = [](Arguments arguments) {
    arguments[1] =
        std::make_shared<Dictionary>(Entries{{"Error", "the batch was refused"}, {"ErrorSource", "GetData"}});
  };
  Run();
  ExpectFailed("the batch was refused", "GetData");
}

TEST_P(AnalysisFailure, OfTheRequestIsNoneWhereTheErrorIsEmpty) {
  on_fetch_ = [](Arguments arguments) {
    const auto request = As<Dictionary>(arguments[1]);
    request->Set("Error", "");
    request->Set("ErrorSource", "GetData");
  };
  Fetch();
  EXPECT_TRUE(HasRows());
  EXPECT_EQ(Error(), "");
}

TEST_P(AnalysisFailure, OfOneRequestIsNoneOfTheNext) {
  on_fetch_ = [](Arguments arguments) {
    As<Dictionary>(arguments[1])->Set("Error", "the batch was refused");
  };
  Run();
  EXPECT_FALSE(Ok());
  on_fetch_ = nullptr;
  Call(Report(), "Refresh");
  EXPECT_TRUE(Ok()) << Error();
  EXPECT_TRUE(HasRows());
  EXPECT_FALSE(Filter()->Lookup("Error"));
}

TEST_P(AnalysisFailure, OfTheDataRightNeverLetsAFetchThroughAndIsMendedByTheNext) {
  rights_->Raises("GetDataRight", kServerDown);
  Run();
  ExpectServerDown();
  EXPECT_TRUE(sales_->Calls().empty());
  RestrictCustomers();
  Fetch();
  EXPECT_EQ(Sent("DataRightWhere"), " CharIndex('16394',T3.FRightUserID)>0 ");
}

TEST_P(AnalysisFailure, OfTheDataRightDropsTheRowsOfAnEarlierFetch) {
  Fetch();
  ASSERT_TRUE(HasRows());
  rights_->Raises("GetDataRight", kServerDown);
  Run();
  ExpectServerDown();
  EXPECT_EQ(sales_->Calls().size(), 1U);
}

TEST_P(AnalysisFailure, OfTheSystemProfileMeansTheLongCode) {
  profile_->Raises("GetProfile", kServerDown);
  Fetch();
  EXPECT_EQ(SentValue("bLongNumber"), Variant(true));
  EXPECT_TRUE(Contains(HeaderLines()[0] + HeaderLines()[2], "|FNumber|"));
}

TEST_P(AnalysisFailure, OfTheLoginEndsTheFetch) {
  Report();
  host_->Raises("PropsString", kServerDown);
  Run();
  ExpectServerDown();
  EXPECT_TRUE(sales_->Calls().empty());
}

TEST_P(AnalysisFailure, OfTheMiddleTierEndsTheFetchWithItsWordsAndDropsTheRows) {
  Fetch();
  ASSERT_TRUE(HasRows());
  sales_->Raises(analysis_.operation, kServerDown);
  Run();
  ExpectServerDown();
  AnswerFetch();
  Fetch();
  EXPECT_TRUE(HasRows());
}

TEST_P(AnalysisFailure, OfRefreshIsToldByResultToo) {
  Fetch();
  sales_->Raises(analysis_.operation, kServerDown);
  Call(Report(), "Refresh");
  ExpectServerDown();
}

TEST_P(AnalysisFailure, OfTheObjectMakerEndsTheFetch) {
  for (const char* prog_id : {"ORVMSaleRpt.Data", "ORVEBSGLItem.ItemInfo"}) {
    SCOPED_TRACE(prog_id);
    Report();
    runtime_.Register(prog_id, []() -> ObjectRef {
      throw RuntimeError(error_number::kObjectMaker, "Maker", "there is no such object");
    });
    Run();
    ExpectFailed("there is no such object", "Maker");
  }
}

TEST_P(AnalysisFailure, OfALevelThatIsNoNumberNeverReachesTheBatch) {
  for (const char* key : {"BLevel", "ELevel"}) {
    SCOPED_TRACE(key);
    Run({{"GroupBy", kYes}, {"SumMode", kYes}, {"BLevel", kYes}, {"ELevel", kYes}, {key, "1 Or 1=1"}});
    if (Ok()) {
      EXPECT_FALSE(Contains(Sent(analysis_.select_key), "Or 1=1"));
    } else {
      EXPECT_NE(Error(), "");
      EXPECT_TRUE(sales_->Calls().empty());
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Sales, AnalysisFailure, ::testing::ValuesIn(AllAnalyses()), NameOfAnalysis);

}  // namespace
}  // namespace salerpt::testing
