// The outbound summary and its filter dialog, its interface, and the free read for the host.
#include <gtest/gtest.h>

#include "runtime/error.h"
#include "runtime/report.h"
#include "tests/reports/rpt128_world.h"

namespace salerpt::testing {
namespace {

// What happens to the dialog, in order.
using Steps = std::vector<std::string>;

class RecordedDialog final : public FilterDialog {
 public:
  RecordedDialog(Steps& steps, DictionaryRef filter) : steps_(steps), filter_(std::move(filter)) {}
  [[nodiscard]] std::string_view Name() const override { return "frmFirter128"; }
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

class Rpt128Filter : public Rpt128World {
 protected:
  Rpt128Filter() {
    plans_ = RegisterFake(runtime_, "ORVMCaculateRpt.Profile");
    plans_->Gives("FindChooseValue", "月结");
    runtime_.RegisterDialog("frmFirter128",
                            [this] { return std::make_unique<RecordedDialog>(steps_, answer_); });
  }
  Steps steps_;
  DictionaryRef answer_ = Conditions({{"OK", true}});
  FakeRef plans_;
};

TEST_F(Rpt128Filter, IsShownWithThePlansOfItsFamily) {
  Call(Report(), "ShowFilter", false);
  EXPECT_EQ(steps_, (Steps{"family 166", "status 0 hidden", "shown and confirmed"}));
  EXPECT_TRUE(plans_->Calls().empty());
  EXPECT_TRUE(Ok());
  EXPECT_EQ(Error(), "");
  EXPECT_EQ(GetMember(Report(), "Filter").ToObject(), answer_);
}

TEST_F(Rpt128Filter, RunsTheChosenPlanUnseenWhereThatIsAsked) {
  Call(Report(), "ShowFilter", true);
  EXPECT_EQ(steps_, (Steps{"family 166", "status 0 hidden", "plan 月结"}));
  ASSERT_EQ(plans_->CalledMembers(), std::vector<std::string>{"FindChooseValue"});
  EXPECT_EQ(plans_->Calls()[0].arguments[0].ToText(), kProps);
  EXPECT_EQ(plans_->Calls()[0].arguments[1].ToText(), "166");
  EXPECT_TRUE(Ok());
}

TEST_F(Rpt128Filter, IsShownWhereNoPlanIsChosen) {
  plans_->Gives("FindChooseValue", "");
  Call(Report(), "ShowFilter", true);
  EXPECT_EQ(steps_, (Steps{"family 166", "status 0 hidden", "shown and confirmed"}));
}

TEST_F(Rpt128Filter, IsShownWhereNothingIsSaidAboutPlans) {
  Call(Report(), "ShowFilter");
  EXPECT_EQ(steps_, (Steps{"family 166", "status 0 hidden", "shown and confirmed"}));
}

TEST_F(Rpt128Filter, GoesByTheFamilyThatTheHostSet) {
  LetMember(Report(), "ExtFirter", "300");
  Call(Report(), "ShowFilter", true);
  EXPECT_EQ(steps_[0], "family 300");
  EXPECT_EQ(plans_->Calls()[0].arguments[1].ToText(), "300");
}

TEST_F(Rpt128Filter, WritesItsLineInTheLog) {
  Call(Report(), "ShowFilter", false);
  ASSERT_EQ(ledger_->CalledMembers(), std::vector<std::string>{"WriteLog"});
  EXPECT_EQ(ledger_->Calls()[0].arguments[0].ToText(), "SysRptLog0017");
  EXPECT_EQ(ledger_->Calls()[0].arguments[1].ToInt32(), 3);
  EXPECT_EQ(ledger_->Calls()[0].arguments[2].ToText(), "销售出库汇总表查询");
}

TEST_F(Rpt128Filter, LosesALineOfTheLogWithoutAWord) {
  ledger_->Raises("WriteLog", RuntimeError(-2147467259, "Server", "the log is full"));
  Call(Report(), "ShowFilter", false);
  EXPECT_TRUE(Ok());
}

TEST_F(Rpt128Filter, LeavesFilterAndRowsWhereTheUserCancels) {
  Fetch();
  const ObjectRef filter = GetMember(Report(), "Filter").ToObject();
  answer_ = std::make_shared<Dictionary>(Entries{{"OK", false}});
  Call(Report(), "ShowFilter", false);
  EXPECT_FALSE(Ok());
  EXPECT_EQ(GetMember(Report(), "Filter").ToObject(), filter);
  EXPECT_TRUE(HasRows());
  const std::size_t fetches = sales_->Calls().size();
  Call(Report(), "GetReportData");
  EXPECT_EQ(sales_->Calls().size(), fetches);
}

TEST_F(Rpt128Filter, TellsAFailureOfThePlansByResult) {
  plans_->Raises("FindChooseValue", RuntimeError(-2147467259, "Server", "the plans cannot be read"));
  Call(Report(), "ShowFilter", true);
  EXPECT_FALSE(Ok());
  EXPECT_EQ(Error(), "the plans cannot be read");
}

using Rpt128Interface = Rpt128World;

TEST_F(Rpt128Interface, HasItsMembersInTheirOrder) {
  const auto report = std::dynamic_pointer_cast<salerpt::Report>(Report());
  ASSERT_NE(report, nullptr);
  std::vector<std::string> names;
  for (const auto& member : report->Members()) names.emplace_back(member.name);
  EXPECT_EQ(names, (std::vector<std::string>{"RptID", "RptID", "ExtFirter", "Filter", "Filter", "Title",
                                             "Property", "Result", "Header", "Rs", "GetDetailReport",
                                             "ShowFilter", "Refresh", "GetReportData", "GetRsBySQL"}));
}

TEST_F(Rpt128Interface, CarriesItsNumber) {
  EXPECT_EQ(GetMember(Report(), "RptID").ToInt32(), 0);
  LetMember(Report(), "RptID", std::int32_t{128});
  EXPECT_EQ(GetMember(Report(), "RptID").ToInt32(), 128);
}

TEST_F(Rpt128Interface, GivesNoWayToReadTheFamilyBack) {
  EXPECT_THROW(GetMember(Report(), "ExtFirter"), RuntimeError);
}

TEST_F(Rpt128Interface, ReadsFreelyForTheHost) {
  const FakeRef server = RegisterFake(runtime_, "ORVListServer.clsListServer");
  const RecordsetRef rows = OneValue("FName", "x");
  server->Gives("Users_GetDataFreely", rows);
  Variant read;
  EXPECT_TRUE(Call(Report(), "GetRsBySQL", "Select 1", read).ToBoolean());
  EXPECT_EQ(read.ToObject(), rows);
  ASSERT_EQ(server->Calls().size(), 1U);
  EXPECT_EQ(server->Calls()[0].arguments[0].ToText(), kProps);
  EXPECT_EQ(server->Calls()[0].arguments[1].ToText(), "Select 1");
  EXPECT_EQ(server->Calls()[0].arguments[2].ToInt32(), -1);
}

TEST_F(Rpt128Interface, ShowsABoxWhereAFreeReadFails) {
  const FakeRef server = RegisterFake(runtime_, "ORVListServer.clsListServer");
  server->Raises("Users_GetDataFreely", RuntimeError(-2147467259, "Server", "the server is not there"));
  Variant read;
  EXPECT_FALSE(Call(Report(), "GetRsBySQL", "Select 1", read).ToBoolean());
  ASSERT_EQ(toolkit_->boxes.size(), 1U);
  EXPECT_EQ(toolkit_->boxes[0].text, "数据访问错误：\r\nthe server is not there");
  EXPECT_EQ(toolkit_->boxes[0].title, "青岚提示：");
}

}  // namespace
}  // namespace salerpt::testing
