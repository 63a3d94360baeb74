// The class of the consignment and instalment lists as an object that lives: which list it is, what it asks
// at set-up and at the fetch, and each call that it makes failing once.
#include <gtest/gtest.h>

#include "runtime/error.h"
#include "runtime/report.h"
#include "tests/reports/rpt303_world.h"

namespace salerpt::testing {
namespace {

const RuntimeError kServerDown(-2147467259, "Server", "the server is not there");

// A dialog that is confirmed as it stands.
class ConfirmedDialog final : public FilterDialog {
 public:
  ConfirmedDialog(std::vector<std::string>& steps, DictionaryRef filter)
      : steps_(steps), filter_(std::move(filter)) {}
  [[nodiscard]] std::string_view Name() const override { return "FrmFilter303"; }
  void SetRptID(std::int32_t family) override { steps_.push_back("family " + std::to_string(family)); }
  void SetStatus(std::int32_t, bool) override {}
  void Confirm() override { steps_.emplace_back("confirmed"); }
  void ShowFinish(std::string_view plan) override { steps_.push_back("plan " + std::string(plan)); }
  [[nodiscard]] DictionaryRef Filter() const override { return filter_; }

 private:
  std::vector<std::string>& steps_;
  DictionaryRef filter_;
};

class Rpt303State : public Rpt303World {
 protected:
  void ExpectConsignment() { ExpectList("委托代销清单", 303, "103", "SysRptLog0025", "委托代销清单查询"); }
  void ExpectInstalment() { ExpectList("分期收款清单", 304, "102", "SysRptLog0026", "分期收款清单查询"); }
  void ExpectList(const char* name, std::int32_t number, const char* sale_style, const char* log_key,
                  const char* log_text) {
    const auto property = As<Dictionary>(GetMember(Report(), "Property"));
    EXPECT_EQ(property->Entries().size(), 3U);
    EXPECT_EQ(property->Get("Name").ToText(), name);
    EXPECT_EQ(property->Get("RptProperty").ToInt32(), 2);
    EXPECT_EQ(property->Get("DetailRptID").ToInt32(), number);
    EXPECT_EQ(Fetch().at("FSaleStyle"), sale_style);
    const std::vector<RecordedCall> lines = LogLines();
    ASSERT_FALSE(lines.empty());
    ASSERT_EQ(lines.back().arguments.size(), 3U);
    EXPECT_EQ(lines.back().arguments[0].ToText(), log_key);
    EXPECT_EQ(lines.back().arguments[1].ToInt32(), 3);
    EXPECT_EQ(lines.back().arguments[2].ToText(), log_text);
  }
  std::vector<RecordedCall> LogLines() {
    std::vector<RecordedCall> lines;
    for (const RecordedCall& call : ledger_->Calls()) {
      if (EqualNames(call.member, "WriteLog")) lines.push_back(call);
    }
    return lines;
  }
};

class Rpt303Failure : public Rpt303World {
 protected:
  void ExpectServerDown() {
    EXPECT_FALSE(Ok());
    EXPECT_EQ(Error(), "the server is not there");
    EXPECT_EQ(ErrorSource(), "Server");
    EXPECT_FALSE(HasRows());
    EXPECT_GT(toolkit_->shown, 0);
    EXPECT_EQ(toolkit_->shown, toolkit_->unloaded);
  }
  void ExpectFetchIsGoodAgain() {
    Fetch();
    EXPECT_TRUE(HasRows());
    EXPECT_EQ(Error(), "");
  }
};

TEST_F(Rpt303State, BeginsAsTheConsignmentListWithoutAFilterAndWithoutAnError) {
  EXPECT_FALSE(Ok());
  EXPECT_EQ(ResultOf("Error"), Variant(""));
  EXPECT_EQ(GetMember(Report(), "Filter").ToObject(), nullptr);
  EXPECT_FALSE(HasRows());
  ExpectConsignment();
}

TEST_F(Rpt303State, IsTheInstalmentListUnderAnyOtherFamily) {
  LetMember(Report(), "ExtFirter", "304");
  ExpectInstalment();
  LetMember(Report(), "ExtFirter", "303");
  ExpectConsignment();
}

TEST_F(Rpt303State, IsTheListWhoseNumberTheHostGives) {
  LetMember(Report(), "RptID", std::int32_t{304});
  EXPECT_EQ(GetMember(Report(), "RptID").ToInt32(), 304);
  ExpectInstalment();
  LetMember(Report(), "RptID", std::int32_t{303});
  EXPECT_EQ(GetMember(Report(), "RptID").ToInt32(), 303);
  ExpectConsignment();
}

TEST_F(Rpt303State, KeepsItsListWhereTheHostGivesANumberOfAnotherReport) {
  LetMember(Report(), "RptID", std::int32_t{128});
  EXPECT_EQ(GetMember(Report(), "RptID").ToInt32(), 128);
  ExpectConsignment();
}

TEST_F(Rpt303State, TellsWhatItIsAnewAfterExtFirter) {
  As<Dictionary>(GetMember(Report(), "Property"))->Set("FrozenColumn", std::int32_t{3});
  LetMember(Report(), "ExtFirter", "303");
  ExpectConsignment();
}

TEST_F(Rpt303State, LeavesTheSettingsFileAsItIs) {
  runtime_.ini_file.SetFileName("other.ini");
  Report();
  EXPECT_EQ(runtime_.ini_file.FileName(), "other.ini");
}

TEST_F(Rpt303State, HasItsMembersInTheirOrder) {
  const auto report = std::dynamic_pointer_cast<salerpt::Report>(Report());
  ASSERT_NE(report, nullptr);
  std::vector<std::string> names;
  const auto members = report->Members();
  for (const auto& member : members) names.emplace_back(member.name);
  EXPECT_EQ(names, (std::vector<std::string>{"RptID", "RptID", "ExtFirter", "Filter", "Filter", "Title",
                                             "Property", "Result", "Header", "Rs", "GetDetailReport",
                                             "ShowFilter", "Refresh", "GetReportData"}));
}

TEST_F(Rpt303State, LogsEachFetchAndNoDialog) {
  std::vector<std::string> steps;
  const DictionaryRef filter = Conditions({{"OK", true}});
  runtime_.RegisterDialog("FrmFilter303", [&] { return std::make_unique<ConfirmedDialog>(steps, filter); });
  Call(Report(), "ShowFilter", false);
  EXPECT_EQ(steps, (std::vector<std::string>{"family 303", "confirmed"}));
  ASSERT_TRUE(Ok()) << Error();
  EXPECT_TRUE(LogLines().empty());
  Call(Report(), "GetReportData");
  EXPECT_EQ(LogLines().size(), 1U);
  Call(Report(), "Refresh");
  EXPECT_EQ(LogLines().size(), 2U);
}

TEST_F(Rpt303State, ConfirmsTheChosenPlanOfItsListUnseen) {
  std::vector<std::string> steps;
  const DictionaryRef filter = Conditions({{"OK", true}});
  runtime_.RegisterDialog("FrmFilter303", [&] { return std::make_unique<ConfirmedDialog>(steps, filter); });
  const FakeRef plans = RegisterFake(runtime_, "ORVMCaculateRpt.Profile");
  plans->Gives("FindChooseValue", "monthly");
  LetMember(Report(), "ExtFirter", "304");
  Call(Report(), "ShowFilter", true);
  EXPECT_EQ(steps, (std::vector<std::string>{"family 304", "plan monthly"}));
  ASSERT_EQ(plans->Calls().size(), 1U);
  EXPECT_EQ(plans->Calls()[0].arguments[1].ToText(), "304");
}

TEST_F(Rpt303State, HasNoDetailOfAnyRow) {
  EXPECT_EQ(Call(Report(), "GetDetailReport", std::int32_t{0}).ToObject(), nullptr);
  Fetch();
  EXPECT_EQ(Call(Report(), "GetDetailReport", std::int32_t{7}).ToObject(), nullptr);
}

TEST_F(Rpt303State, ShowsItsTwoTextsInTheProgressDialogAndTakesItAway) {
  std::vector<std::string> messages;
  on_fetch_ = [&](Arguments) { messages = toolkit_->messages; };
  Fetch();
  EXPECT_EQ(messages, (std::vector<std::string>{"正在连接服务器", "正在从服务器读取数据..."}));
  EXPECT_EQ(toolkit_->messages, messages);
  EXPECT_EQ(toolkit_->shown, 1);
  EXPECT_EQ(toolkit_->unloaded, 1);
}

TEST_F(Rpt303State, AsksForTheRightsOnCustomersOnlyAtSetUp) {
  Report();
  Fetch();
  Fetch();
  ASSERT_EQ(rights_->CalledMembers(), std::vector<std::string>{"GetDataRight"});
  EXPECT_EQ(rights_->Calls()[0].arguments[0].ToText(), kProps);
  EXPECT_EQ(rights_->Calls()[0].arguments[1].ToInt32(), 16394);
  EXPECT_EQ(rights_->Calls()[0].arguments[2].ToInt32(), 1);
}

TEST_F(Rpt303State, ReadsTheScaleOnceAtSetUpAndNotAtTheFetch) {
  Report();
  Fetch();
  EXPECT_EQ(currency_->Calls().size(), 1U);
}

TEST_F(Rpt303State, DoesNothingWithoutAFilter) {
  SetMember(Report(), "Filter", nullptr);
  Call(Report(), "GetReportData");
  EXPECT_TRUE(sales_->Calls().empty());
  EXPECT_FALSE(Ok());
  EXPECT_EQ(Error(), "请选择过滤条件！");
}

TEST_F(Rpt303State, SendsTheSameAgainWhereAFetchIsRepeated) {
  for (const std::int32_t mode : {0, 1, 2, 3, 4, 6}) {
    const Request first = FetchLevels(mode, 1, 2, {{"SumField", SumField("客户", 1, 0)}});
    request_.clear();
    Call(Report(), "Refresh");
    EXPECT_EQ(request_, first) << "mode " << mode;
  }
}

TEST_F(Rpt303State, KeepsNothingOfAnEarlierFetch) {
  const Request plain = Fetch();
  FetchLevels(2, 1, 2, {{"BDptNumber", "31"}});
  FetchBatches();
  FetchBy(SumField("客户", 1, 0));
  EXPECT_EQ(Fetch(), plain);
}

TEST_F(Rpt303State, KeepsTheConditionsOfTheHostWhateverTheMiddleTierLeavesInTheRequest) {
  on_fetch_ = [](Arguments arguments) { arguments[1] = std::make_shared<Dictionary>(); };
  const DictionaryRef filter = Conditions({{"BItemNumber", "01"}});
  SetMember(Report(), "Filter", filter);
  Call(Report(), "GetReportData");
  EXPECT_TRUE(Ok()) << Error();
  EXPECT_EQ(GetMember(Report(), "Filter").ToObject(), filter);
  EXPECT_EQ(filter->Get("BItemNumber"), Variant("01"));
}

TEST_F(Rpt303State, TakesAnErrorThatTheRequestCarriesForNoFailure) {
  on_fetch_ = [](Arguments arguments) { As<Dictionary>(arguments[1])->Set("Error", "one line was skipped"); };
  Fetch();
  EXPECT_TRUE(HasRows());
}

TEST_F(Rpt303Failure, OfTheSystemProfileMeansTheLongCode) {
  profile_->Raises("GetProfile", kServerDown);
  EXPECT_EQ(Fetch({{"BItemNumber", "01"}}).at("Filter"), " AND t1.FNumber>='01'");
}

TEST_F(Rpt303Failure, OfTheScaleAtCreationIsToldByResultAndMendedByTheNextFetch) {
  currency_->Raises("GetData", kServerDown);
  ASSERT_NE(Report(), nullptr);
  EXPECT_FALSE(Ok());
  EXPECT_EQ(Error(), "the server is not there");
  UseScale("4");
  ExpectFetchIsGoodAgain();
  EXPECT_NE(request_.at("SELECT").find("FEndAmount  decimal(18,4)  null"), std::string::npos);
}

TEST_F(Rpt303Failure, OfTheScaleStrikesTheFetchToo) {
  currency_->Raises("GetData", kServerDown);
  Run();
  ExpectServerDown();
  EXPECT_TRUE(sales_->Calls().empty());
}

TEST_F(Rpt303Failure, OfTheDataRightAtCreationIsToldByResultAndMendedByTheNextFetch) {
  rights_->Raises("GetDataRight", kServerDown);
  ASSERT_NE(Report(), nullptr);
  EXPECT_FALSE(Ok());
  EXPECT_EQ(Error(), "the server is not there");
  RestrictCustomers();
  ExpectFetchIsGoodAgain();
  EXPECT_NE(request_.at("SELECT").find(kCustomerRight), std::string::npos);
}

TEST_F(Rpt303Failure, OfTheDataRightNeverLetsAFetchThroughWithoutIt) {
  rights_->Raises("GetDataRight", kServerDown);
  Run();
  ExpectServerDown();
  EXPECT_TRUE(sales_->Calls().empty());
}

TEST_F(Rpt303Failure, OfTheDataRightAtExtFirterOrAtTheNumberIsToldByResult) {
  for (const char* member : {"ExtFirter", "RptID"}) {
    report_ = nullptr;
    rights_->Gives("GetDataRight", false);
    Report();
    rights_->Raises("GetDataRight", kServerDown);
    if (std::string_view(member) == "RptID") {
      LetMember(Report(), "RptID", std::int32_t{304});
    } else {
      LetMember(Report(), "ExtFirter", "304");
    }
    EXPECT_FALSE(Ok()) << member;
    EXPECT_EQ(Error(), "the server is not there") << member;
    RestrictCustomers();
    ExpectFetchIsGoodAgain();
    EXPECT_EQ(request_.at("FSaleStyle"), "102") << member;
    EXPECT_NE(request_.at("SELECT").find(kCustomerRight), std::string::npos) << member;
  }
}

TEST_F(Rpt303Failure, OfTheLoginEndsTheFetch) {
  Report();
  host_->Raises("PropsString", kServerDown);
  Run();
  ExpectServerDown();
}

TEST_F(Rpt303Failure, OfTheFieldRightEndsTheFetch) {
  ledger_->Raises("AccessCheck", kServerDown);
  Run();
  ExpectServerDown();
  EXPECT_TRUE(sales_->Calls().empty());
}

TEST_F(Rpt303Failure, OfTheMakerOfTheFieldRightEndsTheFetch) {
  runtime_.Register("ORVEBCGLView.GLData", []() -> ObjectRef {
    throw RuntimeError(error_number::kObjectMaker, "Maker", "there is no such object");
  });
  runtime_.gl_data = nullptr;
  Run();
  EXPECT_FALSE(Ok());
  EXPECT_EQ(Error(), "there is no such object");
  EXPECT_TRUE(sales_->Calls().empty());
  EXPECT_EQ(toolkit_->unloaded, 1);
}

TEST_F(Rpt303Failure, OfTheLogIsLostWithoutAWord) {
  ledger_->Raises("WriteLog", kServerDown);
  ExpectFetchIsGoodAgain();
}

TEST_F(Rpt303Failure, OfTheMiddleTierEndsTheFetchWithItsWordsAndDropsEarlierRows) {
  Fetch();
  ASSERT_TRUE(HasRows());
  sales_->Raises("GetRpt303data", kServerDown);
  Run();
  ExpectServerDown();
  AnswerFetch();
  ExpectFetchIsGoodAgain();
}

TEST_F(Rpt303Failure, OfRefreshIsToldByResultToo) {
  Fetch();
  sales_->Raises("GetRpt303data", kServerDown);
  Call(Report(), "Refresh");
  ExpectServerDown();
}

TEST_F(Rpt303Failure, OfTheObjectMakerEndsTheFetch) {
  runtime_.Register("ORVMSaleRpt.Data", []() -> ObjectRef {
    throw RuntimeError(error_number::kObjectMaker, "Maker", "there is no such object");
  });
  Run();
  EXPECT_FALSE(Ok());
  EXPECT_EQ(Error(), "there is no such object");
  EXPECT_EQ(ErrorSource(), "Maker");
  EXPECT_FALSE(HasRows());
  EXPECT_EQ(toolkit_->unloaded, 1);
}

}  // namespace
}  // namespace salerpt::testing
