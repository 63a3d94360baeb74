// The delivery due warning as an object that lives: its conditions without a dialog, what it takes back, its
// filter dialog, and each call that it makes failing once.
#include <gtest/gtest.h>

#include <stdexcept>

#include "tests/reports/rpt189_world.h"

namespace salerpt::testing {
namespace {

using FilterKeys = std::map<std::string, std::string>;

class Rpt189State : public Rpt189World {
 protected:
  static const FilterKeys& DefaultConditions() {
    static const FilterKeys texts{{"AuditType", "全部"}, {"BDate", "1900-01-01"}, {"EDate", "2003-07-01"},
                                  {"GroupBy", "客户"},   {"BCustomerNumber", ""}, {"ECustomerNumber", ""},
                                  {"BItemNumber", ""},   {"EItemNumber", ""},     {"BDeptNumber", ""},
                                  {"EDeptNumber", ""},   {"BSalesNumber", ""},    {"ESalesNumber", ""},
                                  {"chkNextChoose", ""}};
    return texts;
  }
  void UseDialog(DictionaryRef filter) {
    runtime_.RegisterDialog("frmFilter189", [this, filter] {
      return std::make_unique<OrderListDialog>("frmFilter189", steps_, filter);
    });
    plans_ = RegisterFake(runtime_, "ORVMCaculateRpt.Profile");
    plans_->Gives("FindChooseValue", "monthly");
    warning_plans_ = RegisterFake(runtime_, "ORVMYWARAPRpt.Profile");
  }
  Lines steps_;
  FakeRef plans_, warning_plans_;
};

// --- Without a dialog

using Rpt189NoFilter = Rpt189State;

TEST_F(Rpt189NoFilter, SetsAllThatIsDueUntilToday) {
  Call(Report(), "ShowNoFilter");
  EXPECT_EQ(FilterTexts(), DefaultConditions());
  EXPECT_TRUE(Ok());
  EXPECT_EQ(ResultOf("Error"), Variant(""));
}

TEST_F(Rpt189NoFilter, FetchesNothingYetAndShowsNothing) {
  UseDialog(Conditions({{"OK", true}}));
  Call(Report(), "ShowNoFilter");
  EXPECT_TRUE(sales_->Calls().empty());
  EXPECT_TRUE(steps_.empty());
  EXPECT_TRUE(ledger_->Calls().empty());
  EXPECT_EQ(toolkit_->shown, 0);
}

TEST_F(Rpt189NoFilter, LetsTheReportRun) {
  Call(Report(), "ShowNoFilter");
  Call(Report(), "GetReportData");
  EXPECT_TRUE(Ok()) << Error();
  ExpectOneCall();
  EXPECT_TRUE(HasRows());
  EXPECT_EQ(ColumnLines().size(), 18U);
  EXPECT_EQ(TitleLines(), (TitleList{{"起始日期：1900-01-01", 0},
                                     {"截止日期：2003-07-01", 1},
                                     {"客户代码范围：所有", 2},
                                     {"", 3},
                                     {"物料代码范围：所有", 4},
                                     {"部门代码范围：所有", 5},
                                     {"", 6},
                                     {"业务员代码范围：所有", 7}}));
}

TEST_F(Rpt189NoFilter, DropsTheConditionsThatWereThere) {
  const DictionaryRef before = Conditions({{"BItemNumber", "01"}, {"Any", "x"}});
  SetMember(Report(), "Filter", before);
  Call(Report(), "ShowNoFilter");
  EXPECT_NE(Filter(), before);
  EXPECT_EQ(FilterTexts(), DefaultConditions());
  EXPECT_EQ(before->Get("BItemNumber"), Variant("01")) << "what the host holds stays as it was";
}

TEST_F(Rpt189NoFilter, ClearsAnEarlierFailure) {
  sales_->Raises("GetRpt189Data", kServerDown);
  Run();
  ASSERT_FALSE(Ok());
  Call(Report(), "ShowNoFilter");
  EXPECT_TRUE(Ok());
  EXPECT_EQ(Error(), "");
}

TEST_F(Rpt189NoFilter, GivesNewConditionsEachTime) {
  Call(Report(), "ShowNoFilter");
  const DictionaryRef first = Filter();
  Call(Report(), "ShowNoFilter");
  EXPECT_NE(Filter(), first);
}

// --- What it takes back

TEST_F(Rpt189State, TakesTheConditionsThatTheMiddleTierLeaves) {
  const auto other = std::make_shared<Dictionary>(Entries{{"BItemNumber", "changed"}});
  on_fetch_ = [&](Arguments arguments) { arguments[1] = other; };
  Fetch();
  EXPECT_EQ(ObjectRef(Filter()), other);
}

TEST_F(Rpt189State, FailsWithTheErrorInTheConditionsThatComeBack) {
  on_fetch_ = [](Arguments arguments) {
    const auto filter = As<Dictionary>(arguments[1]);
    filter->Set("Error", "the period is closed");
    filter->Set("ErrorSource", "Deliveries");
  };
  Run();
  ExpectFailedFetch("the period is closed", "Deliveries");
}

TEST_F(Rpt189State, LeavesTheSourceOfAReturnedErrorEmptyWhereNoneIsTold) {
  on_fetch_ = [](Arguments arguments) {
    arguments[1] = std::make_shared<Dictionary>(Entries{{"Error", "the period is closed"}});
  };
  Run();
  ExpectFailedFetch("the period is closed", "");
}

// --- The object

TEST_F(Rpt189State, BeginsWithoutAFilterAndWithoutAnError) {
  EXPECT_FALSE(Ok());
  EXPECT_EQ(Error(), "");
  EXPECT_EQ(ObjectRef(Filter()), nullptr);
  EXPECT_FALSE(HasRows());
}

TEST_F(Rpt189State, TellsWhatItIs) {
  const auto property = As<Dictionary>(GetMember(Report(), "Property"));
  EXPECT_EQ(property->Entries().size(), 2U);
  EXPECT_EQ(property->Get("Name").ToText(), "销售订单到期交货预警表");
  EXPECT_EQ(property->Get("RptProperty").ToInt32(), 1);
}

TEST_F(Rpt189State, HasItsMembersInTheirOrder) {
  EXPECT_EQ(NamesOfMembers(),
            (Lines{"RptID", "RptID", "ExtFirter", "Filter", "Filter", "Title", "Property", "Result", "Header",
                   "Rs", "ShowFilter", "Refresh", "GetReportData", "ShowNoFilter"}));
}

TEST_F(Rpt189State, LeavesTheSettingsFileAsItIs) {
  runtime_.ini_file.SetFileName("other.ini");
  Report();
  EXPECT_EQ(runtime_.ini_file.FileName(), "other.ini");
}

TEST_F(Rpt189State, DoesNothingWithoutAFilter) {
  SetMember(Report(), "Filter", nullptr);
  Call(Report(), "GetReportData");
  EXPECT_TRUE(sales_->Calls().empty());
  EXPECT_EQ(Error(), "请选择过滤条件！");
}

// --- Its dialog

TEST_F(Rpt189State, ShowsItsDialogAndWritesItsLineInTheLog) {
  const DictionaryRef filter = Conditions({{"OK", true}});
  UseDialog(filter);
  Call(Report(), "ShowFilter", false);
  EXPECT_EQ(steps_, (Lines{"family 188", "status 0 hidden", "confirmed"}));
  ASSERT_EQ(ledger_->CalledMembers(), Lines{"WriteLog"});
  EXPECT_EQ(ledger_->Calls()[0].arguments[0].ToText(), "SysRptLog0014");
  EXPECT_EQ(ledger_->Calls()[0].arguments[1].ToInt32(), 3);
  EXPECT_EQ(ledger_->Calls()[0].arguments[2].ToText(), "销售订单到期交货预警表查询");
  EXPECT_TRUE(Ok());
  EXPECT_EQ(Filter(), filter);
}

TEST_F(Rpt189State, LooksForItsPlanWhereTheOtherReportsDo) {
  UseDialog(Conditions({{"OK", true}}));
  Call(Report(), "ShowFilter", true);
  EXPECT_EQ(steps_, (Lines{"family 188", "status 0 hidden", "plan monthly"}));
  ASSERT_EQ(plans_->CalledMembers(), Lines{"FindChooseValue"});
  EXPECT_EQ(plans_->Calls()[0].arguments[0].ToText(), kProps);
  EXPECT_EQ(plans_->Calls()[0].arguments[1].ToText(), "188");
  EXPECT_TRUE(warning_plans_->Calls().empty());
}

TEST_F(Rpt189State, TellsThatADialogGaveNoConditions) {
  UseDialog(nullptr);
  Call(Report(), "ShowFilter", false);
  EXPECT_FALSE(Ok());
  EXPECT_EQ(Error(), "过滤条件有误，请重新过滤！");
}

// --- Failures

using Rpt189Failure = Rpt189State;

TEST_F(Rpt189Failure, OfTheSystemProfileMeansTheLongCode) {
  profile_->Raises("GetProfile", kServerDown);
  Fetch();
  EXPECT_EQ(SentFilter()->Get("bLongNumber"), Variant(true));
}

TEST_F(Rpt189Failure, OfTheDataRightEndsTheFetchAndIsMendedByTheNext) {
  rights_->Raises("GetDataRight", kServerDown);
  Run();
  ExpectServerDown();
  EXPECT_TRUE(sales_->Calls().empty());
  rights_->Gives("GetDataRight", false);
  ExpectFetchIsGoodAgain();
}

TEST_F(Rpt189Failure, OfTheLoginEndsTheFetch) {
  Report();
  host_->Raises("PropsString", kServerDown);
  Run();
  ExpectServerDown();
}

TEST_F(Rpt189Failure, OfTheMiddleTierEndsTheFetchWithItsWordsAndDropsEarlierRows) {
  Fetch();
  ASSERT_TRUE(HasRows());
  sales_->Raises("GetRpt189Data", kServerDown);
  Run();
  ExpectServerDown();
  AnswerFetch();
  ExpectFetchIsGoodAgain();
}

TEST_F(Rpt189Failure, OfRefreshIsToldByResultToo) {
  Fetch();
  sales_->Raises("GetRpt189Data", kServerDown);
  Call(Report(), "Refresh");
  ExpectServerDown();
}

TEST_F(Rpt189Failure, OfTheMakerOfTheMiddleTierEndsTheFetchBeforeItTellsThatItReads) {
  RunWithoutMaker("ORVMSaleRpt.Data");
  EXPECT_EQ(toolkit_->messages, Lines{"正在连接服务器"});
}

TEST_F(Rpt189Failure, OfTheMakerOfTheDataRightEndsTheFetch) {
  RunWithoutMaker("ORVEBSGLItem.ItemInfo");
}

TEST_F(Rpt189Failure, OfAnotherKindIsToldByResultToo) {
  on_fetch_ = [](Arguments) { throw std::runtime_error("the pipe is closed"); };
  Run();
  ExpectFailedFetch();
  EXPECT_EQ(Error(), "the pipe is closed");
}

TEST_F(Rpt189Failure, ComesWhereTheMiddleTierGivesSomethingElseThanRows) {
  sales_->Gives("GetRpt189Data", std::make_shared<Dictionary>());
  Run();
  ExpectFailedFetch();
}

}  // namespace
}  // namespace salerpt::testing
