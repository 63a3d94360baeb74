// The tracking of orders through delivery, invoice and receipt as an object that lives: what it takes back,
// its filter dialog, and each call that it makes failing once.
#include <gtest/gtest.h>

#include <stdexcept>

#include "tests/reports/rpt1010_world.h"

namespace salerpt::testing {
namespace {

class Rpt1010State : public Rpt1010World {
 protected:
  void UseDialog(DictionaryRef filter) {
    runtime_.RegisterDialog("frmFirter1010", [this, filter] {
      return std::make_unique<OrderListDialog>("frmFirter1010", steps_, filter);
    });
    plans_ = RegisterFake(runtime_, "ORVMCaculateRpt.Profile");
    plans_->Gives("FindChooseValue", "monthly");
  }
  Lines steps_;
  FakeRef plans_;
};

// --- What it takes back

TEST_F(Rpt1010State, TakesTheConditionsThatTheMiddleTierLeaves) {
  const auto other = std::make_shared<Dictionary>(Entries{{"BItemNumber", "changed"}});
  on_fetch_ = [&](Arguments arguments) { arguments[1] = other; };
  Fetch();
  EXPECT_EQ(ObjectRef(Filter()), other);
}

TEST_F(Rpt1010State, FailsWithTheErrorInTheConditionsThatComeBack) {
  on_fetch_ = [](Arguments arguments) {
    const auto filter = As<Dictionary>(arguments[1]);
    filter->Set("Error", "the period is closed");
    filter->Set("ErrorSource", "Receipts");
  };
  Run();
  ExpectFailedFetch("the period is closed", "Receipts");
}

TEST_F(Rpt1010State, LeavesTheSourceOfAReturnedErrorEmptyWhereNoneIsTold) {
  on_fetch_ = [](Arguments arguments) {
    arguments[1] = std::make_shared<Dictionary>(Entries{{"Error", "the period is closed"}});
  };
  Run();
  ExpectFailedFetch("the period is closed", "");
}

TEST_F(Rpt1010State, TakesAnEmptyErrorInItsConditionsForNone) {
  on_fetch_ = [](Arguments arguments) { As<Dictionary>(arguments[1])->Set("Error", ""); };
  Fetch();
  EXPECT_TRUE(HasRows());
}

// --- The object

TEST_F(Rpt1010State, BeginsWithoutAFilterAndWithoutAnError) {
  EXPECT_FALSE(Ok());
  EXPECT_EQ(Error(), "");
  EXPECT_EQ(ObjectRef(Filter()), nullptr);
  EXPECT_FALSE(HasRows());
}

TEST_F(Rpt1010State, TellsWhatItIs) {
  const auto property = As<Dictionary>(GetMember(Report(), "Property"));
  EXPECT_EQ(property->Entries().size(), 3U);
  EXPECT_EQ(property->Get("Name").ToText(), "销售订单出库收款跟踪表");
  EXPECT_EQ(property->Get("RptProperty").ToInt32(), 1);
  EXPECT_EQ(property->Get("FrozenColumn").ToInt32(), 10);
}

TEST_F(Rpt1010State, HasItsMembersInTheirOrder) {
  EXPECT_EQ(NamesOfMembers(),
            (Lines{"RptID", "RptID", "Filter", "Filter", "ExtFirter", "Property", "Result", "Header", "Title",
                   "Rs", "Refresh", "ShowFilter", "GetReportData", "GetRptList"}));
}

TEST_F(Rpt1010State, ChoosesItsSettingsFile) {
  runtime_.ini_file.SetFileName("other.ini");
  Report();
  EXPECT_EQ(runtime_.ini_file.FileName(), "JXCQ7SaleRpt.INI");
}

TEST_F(Rpt1010State, DoesNothingWithoutAFilter) {
  SetMember(Report(), "Filter", nullptr);
  Call(Report(), "GetReportData");
  EXPECT_TRUE(sales_->Calls().empty());
  EXPECT_EQ(Error(), "请选择过滤条件！");
}

TEST_F(Rpt1010State, EndsInTheResultWhenTheHostFetchesOutsideOfTheDialog) {
  SetMember(Report(), "Filter", Conditions());
  EXPECT_NO_THROW(Call(Report(), "GetRptList"));
}

// --- Its dialog

TEST_F(Rpt1010State, ShowsItsDialogAndWritesItsLineInTheLog) {
  const DictionaryRef filter = Conditions({{"OK", true}});
  UseDialog(filter);
  Call(Report(), "ShowFilter", false);
  EXPECT_EQ(steps_, (Lines{"family 1010", "status 0 hidden", "confirmed"}));
  ASSERT_EQ(ledger_->CalledMembers(), Lines{"WriteLog"});
  EXPECT_EQ(ledger_->Calls()[0].arguments[0].ToText(), "SysRptLog0012");
  EXPECT_EQ(ledger_->Calls()[0].arguments[1].ToInt32(), 3);
  EXPECT_EQ(ledger_->Calls()[0].arguments[2].ToText(), "销售订单出库收款跟踪表查询");
  EXPECT_TRUE(Ok());
  EXPECT_EQ(Filter(), filter);
}

TEST_F(Rpt1010State, ConfirmsTheChosenPlanUnseen) {
  UseDialog(Conditions({{"OK", true}}));
  Call(Report(), "ShowFilter", true);
  EXPECT_EQ(steps_, (Lines{"family 1010", "status 0 hidden", "plan monthly"}));
  ASSERT_EQ(plans_->CalledMembers(), Lines{"FindChooseValue"});
  EXPECT_EQ(plans_->Calls()[0].arguments[0].ToText(), kProps);
  EXPECT_EQ(plans_->Calls()[0].arguments[1].ToText(), "1010");
}

TEST_F(Rpt1010State, TellsThatADialogGaveNoConditions) {
  UseDialog(nullptr);
  Call(Report(), "ShowFilter", false);
  EXPECT_FALSE(Ok());
  EXPECT_EQ(Error(), "过滤条件有误，请重新过滤！");
}

// --- Failures

using Rpt1010Failure = Rpt1010State;

TEST_F(Rpt1010Failure, OfTheSystemProfileMeansTheLongCode) {
  profile_->Raises("GetProfile", kServerDown);
  Fetch();
  EXPECT_EQ(SentFilter()->Get("bLongNumber"), Variant(true));
}

TEST_F(Rpt1010Failure, OfTheDataRightEndsTheFetchAndIsMendedByTheNext) {
  rights_->Raises("GetDataRight", kServerDown);
  Run();
  ExpectServerDown();
  EXPECT_TRUE(sales_->Calls().empty());
  rights_->Gives("GetDataRight", false);
  ExpectFetchIsGoodAgain();
}

TEST_F(Rpt1010Failure, OfTheLoginEndsTheFetch) {
  Report();
  host_->Raises("PropsString", kServerDown);
  Run();
  ExpectServerDown();
}

TEST_F(Rpt1010Failure, OfTheMiddleTierEndsTheFetchWithItsWordsAndDropsEarlierRows) {
  Fetch();
  ASSERT_TRUE(HasRows());
  sales_->Raises("GetRpt1010Data", kServerDown);
  Run();
  ExpectServerDown();
  AnswerFetch();
  ExpectFetchIsGoodAgain();
}

TEST_F(Rpt1010Failure, OfRefreshIsToldByResultToo) {
  Fetch();
  sales_->Raises("GetRpt1010Data", kServerDown);
  Call(Report(), "Refresh");
  ExpectServerDown();
}

TEST_F(Rpt1010Failure, OfTheMakerOfTheMiddleTierEndsTheFetchBeforeItTellsThatItReads) {
  RunWithoutMaker("ORVMSaleRpt.Data");
  EXPECT_EQ(toolkit_->messages, Lines{"正在连接服务器"});
}

TEST_F(Rpt1010Failure, OfTheMakerOfTheDataRightEndsTheFetch) {
  RunWithoutMaker("ORVEBSGLItem.ItemInfo");
}

TEST_F(Rpt1010Failure, OfAnotherKindIsToldByResultToo) {
  on_fetch_ = [](Arguments) { throw std::runtime_error("the pipe is closed"); };
  Run();
  ExpectFailedFetch();
  EXPECT_EQ(Error(), "the pipe is closed");
}

TEST_F(Rpt1010Failure, ComesWhereTheMiddleTierGivesSomethingElseThanRows) {
  sales_->Gives("GetRpt1010Data", std::make_shared<Dictionary>());
  Run();
  ExpectFailedFetch();
}

TEST_F(Rpt1010Failure, ComesOfADisplayThatIsNoNumber) {
  rows_ = SumRows({0, 101});
  Run({{"DisplayType", "some"}});
  ExpectFailedFetch();
}

}  // namespace
}  // namespace salerpt::testing
