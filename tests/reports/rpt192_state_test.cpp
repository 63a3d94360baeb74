// The batch tracking as an object that lives: what it asks, what it takes back, its filter dialog, and each
// call that it makes failing once.
#include <gtest/gtest.h>

#include <stdexcept>

#include "tests/reports/rpt192_world.h"

namespace salerpt::testing {
namespace {

class Rpt192State : public Rpt192World {
 protected:
  // The four sets, one of them replaced.
  void GiveInPlaceOf(const char* key, const Variant& value) {
    sales_->On("GetRpt192Data", [=, this](Arguments) -> Variant {
      const auto sets = std::make_shared<Dictionary>(Entries{
          {"rsOrder", orders_}, {"rsWorkBill", tasks_}, {"rsInStock", receipts_}, {"rsOutStock", issues_}});
      sets->Set(key, value);
      return sets;
    });
  }
};

// --- What it asks

TEST_F(Rpt192State, SendsItsConditionsOnce) {
  Fetch();
  ExpectOneCall();
}

TEST_F(Rpt192State, AddsTheDataRightAndNoOtherKey) {
  Fetch();
  EXPECT_EQ(AddedKeys(), (Lines{"DataRightFrom", "DataRightWhere"}));
  EXPECT_EQ(SentFilter()->Get("DataRightFrom"), Variant(""));
  EXPECT_EQ(SentFilter()->Get("DataRightWhere"), Variant(""));
  ExpectCustomersAsked();
}

TEST_F(Rpt192State, HandsOnWhichCustomersTheUserMaySee) {
  RestrictCustomers();
  Fetch();
  EXPECT_EQ(SentFilter()->Get("DataRightFrom"), Variant(""));
  EXPECT_EQ(SentFilter()->Get("DataRightWhere"), Variant(" CharIndex('16394',T2.FRightUserID)>0 "));
}

TEST_F(Rpt192State, ReadsTheDataRightAnewAtEachFetch) {
  RestrictCustomers();
  Fetch();
  rights_->Gives("GetDataRight", false);
  Call(Report(), "Refresh");
  EXPECT_EQ(SentFilter()->Get("DataRightWhere"), Variant(""));
}

TEST_F(Rpt192State, LeavesEveryConditionOfTheHostInPlace) {
  Fetch({{"BBill", "SEORD1"}, {"BItemNumber", "01"}, {"Any", std::int32_t{7}}});
  EXPECT_EQ(SentFilter()->Get("BBill"), Variant("SEORD1"));
  EXPECT_EQ(SentFilter()->Get("BItemNumber"), Variant("01"));
  EXPECT_EQ(SentFilter()->Get("Any").ToInt32(), 7);
  EXPECT_EQ(SentFilter()->Get("BDate"), Variant(Date::FromYmd(2003, 1, 1)));
}

TEST_F(Rpt192State, ShowsItsTwoTextsInTheProgressDialogAndTakesItAway) {
  ExpectTwoTextsOfProgress();
}

// --- What it takes back

TEST_F(Rpt192State, TakesTheConditionsThatTheMiddleTierLeaves) {
  const auto other = std::make_shared<Dictionary>(Entries{{"BItemNumber", "changed"}});
  on_fetch_ = [&](Arguments arguments) { arguments[1] = other; };
  Fetch();
  EXPECT_EQ(ObjectRef(Filter()), other);
}

TEST_F(Rpt192State, TakesAnErrorInItsConditionsForNoFailure) {
  on_fetch_ = [](Arguments arguments) { As<Dictionary>(arguments[1])->Set("Error", "one line was skipped"); };
  Fetch();
  EXPECT_TRUE(HasRows());
}

// --- The object

TEST_F(Rpt192State, BeginsWithoutAFilterAndWithoutAnError) {
  EXPECT_FALSE(Ok());
  EXPECT_EQ(Error(), "");
  EXPECT_EQ(ObjectRef(Filter()), nullptr);
  EXPECT_FALSE(HasRows());
}

TEST_F(Rpt192State, TellsWhatItIs) {
  const auto property = As<Dictionary>(GetMember(Report(), "Property"));
  EXPECT_EQ(property->Entries().size(), 2U);
  EXPECT_EQ(property->Get("Name").ToText(), "订单批次跟踪表");
  EXPECT_EQ(property->Get("RptProperty").ToInt32(), 1);
}

TEST_F(Rpt192State, HasItsMembersInTheirOrder) {
  EXPECT_EQ(NamesOfMembers(),
            (Lines{"RptID", "RptID", "Filter", "Filter", "ExtFirter", "Property", "Result", "Header", "Title",
                   "Rs", "Refresh", "ShowFilter", "GetReportData", "GetRptList"}));
}

TEST_F(Rpt192State, ChoosesItsSettingsFile) {
  runtime_.ini_file.SetFileName("other.ini");
  Report();
  EXPECT_EQ(runtime_.ini_file.FileName(), "JXCQ7SaleRpt.INI");
}

TEST_F(Rpt192State, DoesNothingWithoutAFilter) {
  SetMember(Report(), "Filter", nullptr);
  Call(Report(), "GetReportData");
  EXPECT_TRUE(sales_->Calls().empty());
  EXPECT_FALSE(Ok());
  EXPECT_EQ(Error(), "请选择过滤条件！");
}

TEST_F(Rpt192State, EndsInTheResultWhenTheHostFetchesOutsideOfTheDialog) {
  SetMember(Report(), "Filter", Conditions());
  EXPECT_NO_THROW(Call(Report(), "GetRptList"));
}

// --- Its dialog

TEST_F(Rpt192State, ShowsItsDialogWithoutALogAndWithoutLookingForAPlan) {
  Lines steps;
  const DictionaryRef filter = Conditions({{"OK", true}});
  runtime_.RegisterDialog("frmFilter192",
                          [&] { return std::make_unique<OrderListDialog>("frmFilter192", steps, filter); });
  const FakeRef plans = RegisterFake(runtime_, "ORVMCaculateRpt.Profile");
  plans->Gives("FindChooseValue", "monthly");
  Call(Report(), "ShowFilter", true);
  EXPECT_EQ(steps, (Lines{"family 192", "confirmed"}));
  EXPECT_TRUE(plans->Calls().empty());
  EXPECT_TRUE(ledger_->Calls().empty());
  EXPECT_TRUE(Ok());
  EXPECT_EQ(Filter(), filter);
}

TEST_F(Rpt192State, TellsThatADialogGaveNoConditions) {
  Lines steps;
  runtime_.RegisterDialog("frmFilter192",
                          [&] { return std::make_unique<OrderListDialog>("frmFilter192", steps, nullptr); });
  Call(Report(), "ShowFilter", false);
  EXPECT_FALSE(Ok());
  EXPECT_EQ(Error(), "过滤条件有误，请重新过滤！");
}

// --- Failures

using Rpt192Failure = Rpt192State;

TEST_F(Rpt192Failure, OfTheSystemProfileMeansTheLongCode) {
  profile_->Raises("GetProfile", kServerDown);
  Fetch();
  EXPECT_EQ(ColumnLines()[1], "客户代码$||1|FCustNumber|1|0|0");
}

TEST_F(Rpt192Failure, OfTheDataRightEndsTheFetchAndIsMendedByTheNext) {
  rights_->Raises("GetDataRight", kServerDown);
  Run();
  ExpectServerDown();
  EXPECT_TRUE(sales_->Calls().empty());
  RestrictCustomers();
  ExpectFetchIsGoodAgain();
  EXPECT_EQ(SentFilter()->Get("DataRightWhere"), Variant(" CharIndex('16394',T2.FRightUserID)>0 "));
}

TEST_F(Rpt192Failure, OfTheLoginEndsTheFetch) {
  Report();
  host_->Raises("PropsString", kServerDown);
  Run();
  ExpectServerDown();
}

TEST_F(Rpt192Failure, OfTheFieldRightEndsTheFetch) {
  ledger_->Raises("AccessCheck", kServerDown);
  Run();
  ExpectServerDown();
}

TEST_F(Rpt192Failure, OfTheMiddleTierEndsTheFetchWithItsWordsAndDropsEarlierRows) {
  Fetch();
  ASSERT_TRUE(HasRows());
  sales_->Raises("GetRpt192Data", kServerDown);
  Run();
  ExpectServerDown();
  AnswerSets();
  ExpectFetchIsGoodAgain();
}

TEST_F(Rpt192Failure, OfRefreshIsToldByResultToo) {
  Fetch();
  sales_->Raises("GetRpt192Data", kServerDown);
  Call(Report(), "Refresh");
  ExpectServerDown();
}

TEST_F(Rpt192Failure, OfTheMakerOfTheMiddleTierEndsTheFetchBeforeItTellsThatItReads) {
  RunWithoutMaker("ORVMSaleRpt.Data");
  EXPECT_EQ(toolkit_->messages, Lines{"正在连接服务器"});
}

TEST_F(Rpt192Failure, OfTheMakerOfTheDataRightEndsTheFetch) {
  RunWithoutMaker("ORVEBSGLItem.ItemInfo");
}

TEST_F(Rpt192Failure, OfTheMakerOfTheFieldRightEndsTheFetch) {
  RunWithoutMaker("ORVEBCGLView.GLData");
}

TEST_F(Rpt192Failure, OfAnotherKindIsToldByResultToo) {
  on_fetch_ = [](Arguments) { throw std::runtime_error("the pipe is closed"); };
  Run();
  ExpectFailedFetch();
  EXPECT_EQ(Error(), "the pipe is closed");
}

TEST_F(Rpt192Failure, ComesWhereTheMiddleTierGivesNoSets) {
  for (const Variant& answer : {Variant(), Variant(nullptr), Variant("rows"), Variant(MakeRecordset())}) {
    sales_->Gives("GetRpt192Data", answer);
    Run();
    ExpectFailedFetch();
  }
}

TEST_F(Rpt192Failure, ComesWhereASetIsNotThere) {
  AddOrder(1, 11, 1);
  AddTask(1, 11, 1, 21);
  for (const char* key : {"rsOrder", "rsWorkBill", "rsInStock", "rsOutStock"}) {
    for (const Variant& value : {Variant(nullptr), Variant(std::make_shared<Dictionary>())}) {
      GiveInPlaceOf(key, value);
      Run();
      ExpectFailedFetch();
    }
  }
}

TEST_F(Rpt192Failure, ComesOfADisplayThatIsNoNumber) {
  AddOrder(1, 11, 1);
  Run({{"DisplayType", "some"}});
  ExpectFailedFetch();
}

}  // namespace
}  // namespace salerpt::testing
