// The income statistics as an object that lives: what they are at creation, what a fetch leaves behind, how
// dialog and progress go along.
#include <gtest/gtest.h>

#include "runtime/report.h"
#include "tests/reports/rpt126_world.h"

namespace salerpt::testing {
namespace {

using Steps = std::vector<std::string>;

// What happens to the dialog, in order.
class RecordedDialog final : public FilterDialog {
 public:
  RecordedDialog(Steps& steps, DictionaryRef filter) : steps_(steps), filter_(std::move(filter)) {}
  [[nodiscard]] std::string_view Name() const override { return "frmFirter126"; }
  void SetRptID(std::int32_t family) override { steps_.push_back("family " + std::to_string(family)); }
  void SetStatus(std::int32_t value, bool visible) override {
    steps_.push_back("status " + std::to_string(value) + (visible ? " shown" : " hidden"));
  }
  void Confirm() override { steps_.emplace_back("shown and confirmed"); }
  void ShowFinish(std::string_view plan) override { steps_.push_back("plan " + std::string(plan)); }
  [[nodiscard]] DictionaryRef Filter() const override { return filter_; }

 private:
  Steps& steps_;
  DictionaryRef filter_;
};

class Rpt126State : public Rpt126World {
 protected:
  void UseDialog(const DictionaryRef& filter) {
    runtime_.RegisterDialog("frmFirter126",
                            [this, filter] { return std::make_unique<RecordedDialog>(steps_, filter); });
  }
  DictionaryRef Property() { return As<Dictionary>(GetMember(Report(), "Property")); }
  void ExpectProperty() {
    EXPECT_EQ(Property()->Entries().size(), 2U);
    EXPECT_EQ(Property()->Get("Name").ToText(), "销售收入统计表");
    EXPECT_EQ(Property()->Get("RptProperty").ToInt32(), 3);
  }
  Steps steps_;
};

TEST_F(Rpt126State, BeginsWithoutAFilterAndWithoutAnError) {
  EXPECT_FALSE(Ok());
  EXPECT_EQ(ResultOf("Error"), Variant(""));
  EXPECT_EQ(GetMember(Report(), "Filter").ToObject(), nullptr);
  EXPECT_FALSE(HasRows());
}

TEST_F(Rpt126State, TellsWhatItIsAndAnewAfterExtFirter) {
  ExpectProperty();
  Property()->Set("FrozenColumn", std::int32_t{3});
  LetMember(Report(), "ExtFirter", "166");
  ExpectProperty();
}

TEST_F(Rpt126State, NamesItsSettingsFile) {
  runtime_.ini_file.SetFileName("other.ini");
  Report();
  EXPECT_EQ(runtime_.ini_file.FileName(), "JXCQ7SaleRpt.INI");
}

TEST_F(Rpt126State, HasItsMembersInTheirOrder) {
  const auto report = std::dynamic_pointer_cast<salerpt::Report>(Report());
  ASSERT_NE(report, nullptr);
  std::vector<std::string> names;
  for (const auto& member : report->Members()) names.emplace_back(member.name);
  EXPECT_EQ(names,
            (std::vector<std::string>{"RptID", "RptID", "ExtFirter", "Filter", "Filter", "Title", "Property",
                                      "Result", "Header", "Rs", "ShowFilter", "Refresh", "GetReportData"}));
}

TEST_F(Rpt126State, ReadsTheScaleAndTheRightsOnceAtSetUp) {
  Report();
  FetchInvoices();
  FetchInvoices();
  ASSERT_EQ(currency_->Calls().size(), 1U);
  EXPECT_EQ(currency_->Calls()[0].arguments[1].ToText(),
            "select  FScale from t_currency where FCurrencyID=1");
  ASSERT_EQ(rights_->CalledMembers(), std::vector<std::string>{"GetDataRight"});
  EXPECT_EQ(rights_->Calls()[0].arguments[0].ToText(), kProps);
  EXPECT_EQ(rights_->Calls()[0].arguments[1].ToInt32(), 16394);
  EXPECT_EQ(rights_->Calls()[0].arguments[2].ToInt32(), 1);
}

TEST_F(Rpt126State, ReadsTheScaleAndTheRightsAnewAtExtFirter) {
  Report();
  UseScale("4");
  RestrictCustomers();
  LetMember(Report(), "ExtFirter", "166");
  FetchInvoices();
  EXPECT_NE(request_.at("SELECT").find("Round(v2.FStdTaxAmount,4)"), std::string::npos);
  EXPECT_NE(request_.at("SELECT").find(" And  CharIndex('16394',t2.FRightUserID)>0 "), std::string::npos);
}

TEST_F(Rpt126State, DoesNothingWithoutAFilter) {
  Call(Report(), "GetReportData");
  SetMember(Report(), "Filter", nullptr);
  Call(Report(), "GetReportData");
  EXPECT_TRUE(sales_->Calls().empty());
  EXPECT_EQ(toolkit_->shown, 0);
  EXPECT_FALSE(Ok());
  EXPECT_EQ(Error(), "请选择过滤条件！");
}

TEST_F(Rpt126State, ShowsTheProgressDialogAndTakesItAway) {
  FetchInvoices();
  ASSERT_FALSE(toolkit_->messages.empty());
  EXPECT_EQ(toolkit_->messages[0], "正在连接服务器");
  EXPECT_EQ(toolkit_->shown, 1);
  EXPECT_EQ(toolkit_->unloaded, 1);
}

TEST_F(Rpt126State, KeepsTheConditionsOfTheHostWhateverTheMiddleTierLeavesInTheRequest) {
  on_fetch_ = [](Arguments arguments) {
    As<Dictionary>(arguments[3])->Set("BItemNumber", "changed");
    As<Dictionary>(arguments[3])->Set("Error", "one line was skipped");
    arguments[3] = std::make_shared<Dictionary>();
  };
  const DictionaryRef filter = Invoices({{"BItemNumber", "01"}});
  SetMember(Report(), "Filter", filter);
  Call(Report(), "GetReportData");
  EXPECT_TRUE(Ok()) << Error();
  EXPECT_TRUE(HasRows());
  EXPECT_EQ(GetMember(Report(), "Filter").ToObject(), filter);
  EXPECT_EQ(filter->Get("BItemNumber"), Variant("01"));
}

TEST_F(Rpt126State, SendsTheSameAgainWhereAFetchIsRepeated) {
  for (const std::int32_t mode : {0, 1, 2, 3, 4}) {
    const Request first = FetchInvoices({{"GroupBy", std::int32_t{1}},
                                         {"SumMode", mode},
                                         {"SumField", SumField("客户", 1, 0)},
                                         {"BLevel", std::int32_t{1}},
                                         {"ELevel", std::int32_t{2}},
                                         {"AuxProp", std::int32_t{1}}});
    request_.clear();
    Call(Report(), "Refresh");
    EXPECT_EQ(request_, first) << "mode " << mode;
  }
}

TEST_F(Rpt126State, KeepsNothingOfAnEarlierFetch) {
  const Request plain = FetchInvoices();
  FetchInvoices({{"AuxProp", std::int32_t{1}}, {"CurrencyShow", std::int32_t{1}}});
  FetchLevels(2, 1, 2, {{"CheckState", std::int32_t{1}}, {"BCustNumber", "05"}});
  FetchBy(SumField("客户", 1, 0));
  EXPECT_EQ(FetchInvoices(), plain);
}

TEST_F(Rpt126State, IsShownWithThePlansOfItsFamilyAndWritesItsLineInTheLog) {
  const DictionaryRef filter = Invoices({{"OK", true}});
  UseDialog(filter);
  Call(Report(), "ShowFilter", false);
  EXPECT_EQ(steps_, (Steps{"family 166", "status 0 hidden", "shown and confirmed"}));
  EXPECT_TRUE(Ok());
  EXPECT_EQ(GetMember(Report(), "Filter").ToObject(), filter);
  ASSERT_EQ(ledger_->CalledMembers(), std::vector<std::string>{"WriteLog"});
  EXPECT_EQ(ledger_->Calls()[0].arguments[0].ToText(), "SysRptLog0019");
  EXPECT_EQ(ledger_->Calls()[0].arguments[1].ToInt32(), 3);
  EXPECT_EQ(ledger_->Calls()[0].arguments[2].ToText(), "销售收入统计表查询");
}

TEST_F(Rpt126State, RunsTheChosenPlanUnseenWhereThatIsAsked) {
  const FakeRef plans = RegisterFake(runtime_, "ORVMCaculateRpt.Profile");
  plans->Gives("FindChooseValue", "月结");
  UseDialog(Invoices({{"OK", true}}));
  Call(Report(), "ShowFilter", true);
  EXPECT_EQ(steps_, (Steps{"family 166", "status 0 hidden", "plan 月结"}));
  EXPECT_EQ(plans->Calls()[0].arguments[1].ToText(), "166");
}

TEST_F(Rpt126State, TakesTheConditionsOfItsDialog) {
  UseDialog(Invoices({{"OK", true}}, {{"BEmpNumber", "41"}}));
  Call(Report(), "ShowFilter", false);
  Call(Report(), "GetReportData");
  ASSERT_TRUE(Ok()) << Error();
  EXPECT_NE(request_.at("SELECT").find(" And t4.FNumber>='41'"), std::string::npos);
}

TEST_F(Rpt126State, TellsADialogThatGivesNoConditions) {
  UseDialog(nullptr);
  Call(Report(), "ShowFilter", false);
  EXPECT_FALSE(Ok());
  EXPECT_EQ(Error(), "过滤条件有误，请重新过滤！");
}

}  // namespace
}  // namespace salerpt::testing
