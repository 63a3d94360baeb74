// The order production and sales tracking as an object that lives: its call, the conditions that it hands on
// and takes back, and each call that it makes failing once.
#include <gtest/gtest.h>

#include <algorithm>

#include "runtime/error.h"
#include "runtime/report.h"
#include "tests/reports/rpt139_world.h"

namespace salerpt::testing {
namespace {

const RuntimeError kServerDown(-2147467259, "Server", "the server is not there");

// A dialog that is confirmed as it stands.
class ConfirmedDialog final : public FilterDialog {
 public:
  ConfirmedDialog(std::vector<std::string>& steps, DictionaryRef filter)
      : steps_(steps), filter_(std::move(filter)) {}
  [[nodiscard]] std::string_view Name() const override { return "FrmFilter139"; }
  void SetRptID(std::int32_t family) override { steps_.push_back("family " + std::to_string(family)); }
  void Confirm() override { steps_.emplace_back("shown and confirmed"); }
  void ShowFinish(std::string_view plan) override { steps_.push_back("plan " + std::string(plan)); }
  [[nodiscard]] DictionaryRef Filter() const override { return filter_; }

 private:
  std::vector<std::string>& steps_;
  DictionaryRef filter_;
};

using Rpt139State = Rpt139World;
using Rpt139Call = Rpt139World;

TEST_F(Rpt139State, TellsWhatItIs) {
  const auto property = As<Dictionary>(GetMember(Report(), "Property"));
  EXPECT_EQ(property->Entries().size(), 3U);
  EXPECT_EQ(property->Get("Name").ToText(), "销售订单生产销售跟踪一览表");
  EXPECT_EQ(property->Get("RptProperty").ToInt32(), 6);
  EXPECT_EQ(property->Get("DetailRptID").ToInt32(), 400);
}

TEST_F(Rpt139State, LeavesTheSettingsFileAsItIs) {
  runtime_.ini_file.SetFileName("other.ini");
  Report();
  EXPECT_EQ(runtime_.ini_file.FileName(), "other.ini");
}

TEST_F(Rpt139State, HasItsMembersInTheirOrder) {
  const auto report = std::dynamic_pointer_cast<salerpt::Report>(Report());
  ASSERT_NE(report, nullptr);
  std::vector<std::string> names;
  for (const auto& member : report->Members()) names.emplace_back(member.name);
  EXPECT_EQ(names,
            (std::vector<std::string>{"RptID", "RptID", "ExtFirter", "Filter", "Filter", "Title", "Property",
                                      "Result", "Header", "Rs", "ShowFilter", "Refresh", "GetReportData"}));
}

TEST_F(Rpt139State, WritesItsLineInTheLogAndOpensItsDialogWithoutAPlan) {
  std::vector<std::string> steps;
  runtime_.RegisterDialog("FrmFilter139", [&steps] {
    return std::make_unique<ConfirmedDialog>(steps, Conditions({{"OK", true}}));
  });
  const FakeRef plans = RegisterFake(runtime_, "ORVMCaculateRpt.Profile");
  plans->Gives("FindChooseValue", "March");
  Call(Report(), "ShowFilter", true);
  EXPECT_EQ(steps, (std::vector<std::string>{"family 401", "shown and confirmed"}));
  EXPECT_TRUE(Ok());
  EXPECT_TRUE(plans->Calls().empty());
  ASSERT_EQ(ledger_->CalledMembers(), std::vector<std::string>{"WriteLog"});
  EXPECT_EQ(ledger_->Calls()[0].arguments[0].ToText(), "SysRptLog0013");
  EXPECT_EQ(ledger_->Calls()[0].arguments[1].ToInt32(), 3);
  EXPECT_EQ(ledger_->Calls()[0].arguments[2].ToText(), "销售订单生产销售跟踪一览表查询");
}

TEST_F(Rpt139State, TellsThatADialogGaveNoConditions) {
  std::vector<std::string> steps;
  runtime_.RegisterDialog("FrmFilter139",
                          [&steps] { return std::make_unique<ConfirmedDialog>(steps, nullptr); });
  Call(Report(), "ShowFilter", false);
  EXPECT_FALSE(Ok());
  EXPECT_EQ(Error(), "过滤条件有误，请重新过滤！");
}

TEST_F(Rpt139State, ShowsItsTextsInTheProgressDialogAndTakesItAway) {
  Fetch();
  ASSERT_FALSE(toolkit_->messages.empty());
  EXPECT_EQ(toolkit_->messages.front(), "正在连接服务器");
  EXPECT_EQ(toolkit_->messages.back(), "正在从服务器读取数据,请稍候......");
  EXPECT_EQ(toolkit_->shown, 1);
  EXPECT_EQ(toolkit_->unloaded, 1);
}

TEST_F(Rpt139State, SendsTheSameAgainWhereAFetchIsRepeated) {
  const Request plain = Fetch();
  Call(Report(), "Refresh");
  EXPECT_EQ(request_, plain);
  const Request levels = FetchLevels(1, 2, {{"BItemNumber", "01"}});
  request_.clear();
  Call(Report(), "Refresh");
  EXPECT_EQ(request_, levels);
  EXPECT_EQ(Fetch(), plain);
}

TEST_F(Rpt139Call, HandsOverLoginFramesAndConditions) {
  Fetch();
  ASSERT_EQ(sales_->CalledMembers(), std::vector<std::string>{"GetRpt139Data"});
  const std::vector<Variant>& arguments = sales_->Calls()[0].arguments;
  ASSERT_EQ(arguments.size(), 3U);
  EXPECT_EQ(arguments[0].ToText(), kProps);
  EXPECT_NE(arguments[1].ToObject(), arguments[2].ToObject());
  EXPECT_EQ(arguments[2].ToObject(), GetMember(Report(), "Filter").ToObject()) << "the conditions themselves";
  EXPECT_EQ(GetMember(Report(), "Rs").ToObject(), rows_);
}

TEST_F(Rpt139Call, AddsTheCodeInUseAndTheRightsToTheConditions) {
  Fetch({{"Unexecuted", std::int32_t{1}}, {"BClientNumber", "02"}});
  const DictionaryRef sent = SentFilter();
  EXPECT_EQ(sent->Get("bLongNumber"), Variant(true));
  EXPECT_EQ(sent->Get("DataRightFrom"), Variant(""));
  EXPECT_EQ(sent->Get("DataRightWhere"), Variant(""));
  EXPECT_EQ(sent->Get("Unexecuted").ToInt32(), 1);
  EXPECT_EQ(sent->Get("BClientNumber"), Variant("02"));
  EXPECT_EQ(sent->Get("BDate"), Variant(Date::FromYmd(2003, 1, 1)));
  std::vector<std::string> added;
  for (const auto& entry : sent->Entries()) {
    if (!Conditions({{"Unexecuted", Variant()}, {"BClientNumber", Variant()}})->Lookup(entry.key))
      added.push_back(entry.key);
  }
  std::sort(added.begin(), added.end());
  EXPECT_EQ(added, (std::vector<std::string>{"DataRightFrom", "DataRightWhere", "bLongNumber"}));
}

TEST_F(Rpt139Call, TellsThatTheShortCodeIsInUse) {
  UseShortCode();
  Fetch();
  EXPECT_EQ(SentFilter()->Get("bLongNumber"), Variant(false));
}

// Of the four tables only customers know a right.
TEST_F(Rpt139Call, AsksOnceForTheRightsOfItsFourTables) {
  RestrictCustomers();
  Fetch();
  ASSERT_EQ(rights_->CalledMembers(), std::vector<std::string>{"GetDataRight"});
  EXPECT_EQ(rights_->Calls()[0].arguments[0].ToText(), kProps);
  EXPECT_EQ(rights_->Calls()[0].arguments[1].ToInt32(), 16394);
  EXPECT_EQ(rights_->Calls()[0].arguments[2].ToInt32(), 1);
  EXPECT_EQ(SentFilter()->Get("DataRightWhere"), Variant(" CharIndex('16394',tc.FRightUserID)>0 "));
  EXPECT_EQ(SentFilter()->Get("DataRightFrom"), Variant(""));
}

TEST_F(Rpt139Call, ReadsTheRightsAnewAtEachFetch) {
  Fetch();
  RestrictCustomers();
  Call(Report(), "Refresh");
  EXPECT_EQ(SentFilter()->Get("DataRightWhere"), Variant(" CharIndex('16394',tc.FRightUserID)>0 "));
  rights_->Gives("GetDataRight", false);
  Call(Report(), "Refresh");
  EXPECT_EQ(SentFilter()->Get("DataRightWhere"), Variant(""));
}

TEST_F(Rpt139Call, TakesTheConditionsThatTheMiddleTierLeaves) {
  const auto other = std::make_shared<Dictionary>(Entries{{"BItemNumber", "changed"}});
  on_fetch_ = [&](Arguments arguments) {
    arguments[1] = std::make_shared<Dictionary>();
    arguments[2] = other;
  };
  Fetch();
  EXPECT_EQ(GetMember(Report(), "Filter").ToObject(), other);
}

class Rpt139Failure : public Rpt139World {
 protected:
  void ExpectFailed(const char* error, const char* source) {
    EXPECT_FALSE(Ok());
    EXPECT_EQ(Error(), error);
    EXPECT_EQ(ErrorSource(), source);
    EXPECT_FALSE(HasRows());
    EXPECT_GT(toolkit_->shown, 0);
    EXPECT_EQ(toolkit_->shown, toolkit_->unloaded);
  }
  void ExpectServerDown() { ExpectFailed("the server is not there", "Server"); }
};

TEST_F(Rpt139Failure, OfTheSystemProfileMeansTheLongCode) {
  profile_->Raises("GetProfile", kServerDown);
  Fetch();
  EXPECT_EQ(SentFilter()->Get("bLongNumber"), Variant(true));
}

TEST_F(Rpt139Failure, OfTheDataRightNeverLetsAFetchThrough) {
  Report();
  rights_->Raises("GetDataRight", kServerDown);
  Run();
  ExpectServerDown();
  EXPECT_TRUE(sales_->Calls().empty());
  RestrictCustomers();
  Fetch();
  EXPECT_EQ(SentFilter()->Get("DataRightWhere"), Variant(" CharIndex('16394',tc.FRightUserID)>0 "));
}

TEST_F(Rpt139Failure, OfTheLoginEndsTheFetch) {
  Report();
  host_->Raises("PropsString", kServerDown);
  Run();
  ExpectServerDown();
}

TEST_F(Rpt139Failure, OfTheMiddleTierEndsTheFetchWithItsWords) {
  Fetch();
  ASSERT_TRUE(HasRows());
  sales_->Raises("GetRpt139Data", kServerDown);
  Run();
  ExpectServerDown();
  AnswerFetch();
  Fetch();
  EXPECT_TRUE(HasRows());
}

TEST_F(Rpt139Failure, OfRefreshIsToldByResultToo) {
  Fetch();
  sales_->Raises("GetRpt139Data", kServerDown);
  Call(Report(), "Refresh");
  ExpectServerDown();
}

TEST_F(Rpt139Failure, OfTheObjectMakerEndsTheFetch) {
  runtime_.Register("ORVMSaleRpt.Data", []() -> ObjectRef {
    throw RuntimeError(error_number::kObjectMaker, "Maker", "there is no such object");
  });
  Run();
  ExpectFailed("there is no such object", "Maker");
}

TEST_F(Rpt139Failure, AnsweredInTheConditionsEndsTheFetchOnce) {
  on_fetch_ = [](Arguments arguments) {
    As<Dictionary>(arguments[2])->Set("Error", "the account set is closed");
    As<Dictionary>(arguments[2])->Set("ErrorSource", "GetRpt139Data");
  };
  Run();
  ExpectFailed("the account set is closed", "GetRpt139Data");
  on_fetch_ = nullptr;
  Fetch();
  EXPECT_TRUE(HasRows());
}

TEST_F(Rpt139Failure, AnsweredWithoutASourceHasAnEmptyOne) {
  on_fetch_ = [](Arguments arguments) { As<Dictionary>(arguments[2])->Set("Error", "closed"); };
  Run();
  ExpectFailed("closed", "");
}

TEST_F(Rpt139Failure, AnsweredInTheFramesEndsTheFetchToo) {
  on_fetch_ = [](Arguments arguments) { As<Dictionary>(arguments[1])->Set("Error", "closed"); };
  Run();
  ExpectFailed("closed", "");
}

// A refresh after the failure works: an old answer is none to the new call.
TEST_F(Rpt139Failure, AnsweredOnceIsNoAnswerToARefresh) {
  Fetch();
  on_fetch_ = [](Arguments arguments) { As<Dictionary>(arguments[2])->Set("Error", "closed"); };
  Call(Report(), "Refresh");
  ExpectFailed("closed", "");
  on_fetch_ = nullptr;
  Call(Report(), "Refresh");
  EXPECT_TRUE(Ok()) << Error();
  EXPECT_TRUE(HasRows());
}

}  // namespace
}  // namespace salerpt::testing
