// The analyses of growth, flow and structure as objects that live: what they are, their dialog and their
// menu, and how fetches follow each other.
#include <gtest/gtest.h>

#include "runtime/error.h"
#include "tests/reports/rpt140_world.h"

namespace salerpt::testing {
namespace {

// A dialog that is confirmed as it stands; writes down what the report asks of it.
class ConfirmedDialog final : public FilterDialog {
 public:
  ConfirmedDialog(std::vector<std::string>& steps, std::string name, DictionaryRef filter)
      : steps_(steps), name_(std::move(name)), filter_(std::move(filter)) {}
  [[nodiscard]] std::string_view Name() const override { return name_; }
  void SetRptID(std::int32_t family) override { steps_.push_back("family " + std::to_string(family)); }
  void SetStatus(std::int32_t value, bool visible) override {
    steps_.push_back("status " + std::to_string(value) + (visible ? " shown" : " hidden"));
  }
  void Confirm() override { steps_.emplace_back("confirmed"); }
  void ShowFinish(std::string_view plan) override { steps_.push_back("plan " + std::string(plan)); }
  [[nodiscard]] DictionaryRef Filter() const override { return filter_; }

 private:
  std::vector<std::string>& steps_;
  std::string name_;
  DictionaryRef filter_;
};

class AnalysisState : public AnyAnalysis {
 protected:
  void RegisterDialog(const DictionaryRef& filter) {
    runtime_.RegisterDialog(analysis_.dialog, [this, filter] {
      return std::make_unique<ConfirmedDialog>(steps_, analysis_.dialog, filter);
    });
  }
  DictionaryRef Property() { return As<Dictionary>(GetMember(Report(), "Property")); }
  void ExpectProperty() {
    EXPECT_EQ(Property()->Entries().size(), 2U);
    EXPECT_EQ(Property()->Get("Name").ToText(), analysis_.name);
    EXPECT_EQ(Property()->Get("RptProperty").ToInt32(), 3);
  }
  Lines steps_;
};

TEST_P(AnalysisState, BeginsWithoutAFilterAndWithoutAnError) {
  EXPECT_FALSE(Ok());
  EXPECT_EQ(ResultOf("Error"), Variant(""));
  EXPECT_EQ(GetMember(Report(), "Filter").ToObject(), nullptr);
  EXPECT_FALSE(HasRows());
}

TEST_P(AnalysisState, TellsWhatItIs) {
  ExpectProperty();
  Property()->Set("FrozenColumn", std::int32_t{3});
  LetMember(Report(), "ExtFirter", "300");
  ExpectProperty();
}

TEST_P(AnalysisState, NamesItsSettingsFile) {
  runtime_.ini_file.SetFileName("other.ini");
  Report();
  EXPECT_EQ(runtime_.ini_file.FileName(), "JXCQ7SaleRpt.INI");
}

TEST_P(AnalysisState, HasItsMembersInTheirOrder) {
  const auto report = std::dynamic_pointer_cast<salerpt::Report>(Report());
  ASSERT_NE(report, nullptr);
  Lines names;
  for (const auto& member : report->Members()) names.emplace_back(member.name);
  EXPECT_EQ(names, analysis_.members);
}

TEST_P(AnalysisState, OffersTheHostTheDecimalsAlone) {
  for (int call = 0; call < 2; ++call) {
    const auto menus = As<Vector>(Call(Report(), "PackMenuInfo"));
    ASSERT_NE(menus, nullptr);
    ASSERT_EQ(menus->Size(), 1);
    const auto menu = As<Dictionary>(menus->Item(1));
    EXPECT_EQ(menu->Entries().size(), 1U);
    EXPECT_EQ(menu->Get("FMenuName").ToText(), "iDecimal");
  }
  EXPECT_NE(Call(Report(), "PackMenuInfo").ToObject(), Call(Report(), "PackMenuInfo").ToObject());
}

TEST_P(AnalysisState, WritesItsLineInTheLogAndShowsItsDialog) {
  const DictionaryRef filter = Conditions({{"OK", true}});
  RegisterDialog(filter);
  Call(Report(), "ShowFilter", false);
  EXPECT_EQ(steps_, (Lines{"family 300", "status 0 hidden", "confirmed"}));
  EXPECT_TRUE(Ok()) << Error();
  EXPECT_EQ(Filter(), filter);
  ASSERT_EQ(ledger_->CalledMembers(), Lines{"WriteLog"});
  EXPECT_EQ(ledger_->Calls()[0].arguments[0].ToText(), analysis_.log_key);
  EXPECT_EQ(ledger_->Calls()[0].arguments[1].ToInt32(), 3);
  EXPECT_EQ(ledger_->Calls()[0].arguments[2].ToText(), analysis_.log_text);
}

TEST_P(AnalysisState, ConfirmsTheChosenPlanUnseen) {
  RegisterDialog(Conditions({{"OK", true}}));
  const FakeRef plans = RegisterFake(runtime_, "ORVMCaculateRpt.Profile");
  plans->Gives("FindChooseValue", "月结");
  Call(Report(), "ShowFilter", true);
  EXPECT_EQ(steps_, (Lines{"family 300", "status 0 hidden", "plan 月结"}));
  ASSERT_EQ(plans->CalledMembers(), Lines{"FindChooseValue"});
  EXPECT_EQ(plans->Calls()[0].arguments[0].ToText(), kProps);
  EXPECT_EQ(plans->Calls()[0].arguments[1].ToText(), "300");
}

TEST_P(AnalysisState, ShowsItsDialogWhereNoPlanIsChosen) {
  RegisterDialog(Conditions({{"OK", true}}));
  RegisterFake(runtime_, "ORVMCaculateRpt.Profile")->Gives("FindChooseValue", "");
  Call(Report(), "ShowFilter", true);
  EXPECT_EQ(steps_, (Lines{"family 300", "status 0 hidden", "confirmed"}));
}

TEST_P(AnalysisState, TellsThatThePlansCannotBeRead) {
  RegisterDialog(Conditions({{"OK", true}}));
  RegisterFake(runtime_, "ORVMCaculateRpt.Profile")
      ->Raises("FindChooseValue", RuntimeError(-2147467259, "Server", "the plans cannot be read"));
  EXPECT_NO_THROW(Call(Report(), "ShowFilter", true));
  EXPECT_FALSE(Ok());
  EXPECT_EQ(Error(), "the plans cannot be read");
}

TEST_P(AnalysisState, OpensItsDialogWhereTheLogCannotBeWritten) {
  RegisterDialog(Conditions({{"OK", true}}));
  ledger_->Raises("WriteLog", RuntimeError(-2147467259, "Server", "the log is full"));
  Call(Report(), "ShowFilter", false);
  EXPECT_TRUE(Ok()) << Error();
  EXPECT_EQ(Error(), "");
}

TEST_P(AnalysisState, TellsADialogThatGivesNoConditions) {
  RegisterDialog(nullptr);
  Call(Report(), "ShowFilter", false);
  EXPECT_FALSE(Ok());
  EXPECT_EQ(Error(), "过滤条件有误，请重新过滤！");
}

TEST_P(AnalysisState, KeepsItsConditionsWhereTheDialogIsLeft) {
  Fetch();
  const DictionaryRef filter = Filter();
  RegisterDialog(std::make_shared<Dictionary>(Entries{{"OK", false}}));
  Call(Report(), "ShowFilter", false);
  EXPECT_FALSE(Ok());
  EXPECT_EQ(Filter(), filter);
  EXPECT_TRUE(HasRows());
  Call(Report(), "GetReportData");
  EXPECT_EQ(sales_->Calls().size(), 1U);
}

TEST_P(AnalysisState, DoesNothingWithoutAFilter) {
  SetMember(Report(), "Filter", nullptr);
  EXPECT_EQ(Error(), "请选择过滤条件！");
  Call(Report(), "GetReportData");
  EXPECT_TRUE(sales_->Calls().empty());
  EXPECT_EQ(toolkit_->shown, 0);
  EXPECT_FALSE(Ok());
  EXPECT_EQ(Error(), "请选择过滤条件！");
}

TEST_P(AnalysisState, AsksForConditionsWhereItIsRefreshedWithoutThem) {
  Call(Report(), "Refresh");
  EXPECT_FALSE(Ok());
  EXPECT_EQ(Error(), "请选择过滤条件！");
  Fetch();
  SetMember(Report(), "Filter", nullptr);
  Call(Report(), "Refresh");
  EXPECT_FALSE(Ok());
  EXPECT_EQ(Error(), "请选择过滤条件！");
  EXPECT_EQ(sales_->Calls().size(), 1U);
  EXPECT_EQ(toolkit_->shown, toolkit_->unloaded);
}

TEST_P(AnalysisState, ShowsItsTwoTextsInTheProgressDialogAndTakesItAway) {
  Lines messages;
  on_fetch_ = [&](Arguments) { messages = toolkit_->messages; };
  Fetch();
  EXPECT_EQ(messages, (Lines{"正在连接服务器", "正在从服务器读取数据..."}));
  EXPECT_EQ(toolkit_->messages, messages);
  EXPECT_EQ(toolkit_->shown, 1);
  EXPECT_EQ(toolkit_->unloaded, 1);
}

TEST_P(AnalysisState, AsksForNoFieldRight) {
  Fetch();
  EXPECT_TRUE(ledger_->Calls().empty());
}

TEST_P(AnalysisState, SendsTheSameAgainWhereAFetchIsRepeated) {
  for (const std::int32_t mode : {1, 2, 3, 4, 5}) {
    FetchLevels(mode, 1, 2);
    const Request first = request_;
    Call(Report(), "Refresh");
    EXPECT_TRUE(Ok()) << Error();
    EXPECT_EQ(request_, first) << "mode " << mode;
  }
  FetchBy(SumField("区域", 1, "FRegionID", "t_SubMessage"));
  const Request by_property = request_;
  Call(Report(), "Refresh");
  EXPECT_EQ(request_, by_property);
}

TEST_P(AnalysisState, SendsNothingOfAnEarlierFetch) {
  Fetch();
  const Request plain = request_;
  FetchLevels(4, 1, 2);
  FetchBy(SumField("区域", 1, "FRegionID", "t_SubMessage"));
  Fetch();
  EXPECT_EQ(request_, plain);
}

TEST_P(AnalysisState, FetchesAgainAndKeepsTheTitle) {
  Fetch();
  const ObjectRef title = GetMember(Report(), "Title").ToObject();
  const ObjectRef header = GetMember(Report(), "Header").ToObject();
  rows_ = MakeRecordset();
  Call(Report(), "Refresh");
  EXPECT_TRUE(Ok()) << Error();
  EXPECT_EQ(GetMember(Report(), "Rs").ToObject(), rows_);
  EXPECT_EQ(GetMember(Report(), "Title").ToObject(), title);
  EXPECT_NE(GetMember(Report(), "Header").ToObject(), header);
}

TEST_P(AnalysisState, KeepsTheConditionsOfTheHostWhateverTheMiddleTierLeavesInTheRequest) {
  on_fetch_ = [](Arguments arguments) {
    As<Dictionary>(arguments[1])->Set("BItemNumber", "changed");
    arguments[1] = std::make_shared<Dictionary>();
  };
  const DictionaryRef filter = Conditions({{"BItemNumber", "01"}});
  FetchWith(filter);
  EXPECT_EQ(Filter(), filter);
  EXPECT_EQ(filter->Get("BItemNumber"), Variant("01"));
}

INSTANTIATE_TEST_SUITE_P(Sales, AnalysisState, ::testing::ValuesIn(AllAnalyses()), NameOfAnalysis);

}  // namespace
}  // namespace salerpt::testing
