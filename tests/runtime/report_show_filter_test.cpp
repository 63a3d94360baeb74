// How a report asks for its conditions.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "report_probe.h"

namespace salerpt {
namespace {

using testing::DialogAnswer;
using testing::FakeRef;
using testing::JournalDialog;
using testing::RegisterFake;
using testing::Steps;

class ShowFilterTest : public testing::ReportProbeTest {
 protected:
  ShowFilterTest() {
    RegisterDialog("frmFilter147");
    RegisterDialog("frmFirter128");
  }
  void RegisterDialog(const std::string& name) {
    runtime_.RegisterDialog(
        name, [this, name] { return std::make_unique<JournalDialog>(name, script_.journal, answer_); });
  }
  // The plan store, which marks this plan for the next use.
  FakeRef MarkPlan(Variant plan) {
    const FakeRef store = RegisterFake(runtime_, "ORVMCaculateRpt.Profile");
    store->On("FindChooseValue", [this, plan](Arguments arguments) {
      script_.journal.push_back("which plan of " + arguments[1].ToText());
      return plan;
    });
    return store;
  }

  DialogAnswer answer_{Confirmed(), nullptr};
};

// --- The short form

TEST_F(ShowFilterTest, MakesTheClassesDialogForItsPlanFamilyAndShowsIt) {
  EXPECT_TRUE(Call(Make("Rpt147"), "ShowFilter").IsEmpty());
  EXPECT_EQ(script_.journal, (Steps{"made frmFilter147", "family 147", "dialog shown", "dialog released"}));
}

TEST_F(ShowFilterTest, TakesTheDialogsConditions) {
  const ObjectRef report = Make("Rpt147");
  Call(report, "ShowFilter");
  EXPECT_EQ(ObjectOf(report, "Filter"), answer_.filter);
  EXPECT_TRUE(Ok(report));
  EXPECT_EQ(Error(report), "");
}

TEST_F(ShowFilterTest, GivesTheDialogTheFamilyThatTheHostSet) {
  const ObjectRef report = Make("Rpt147");
  LetMember(report, "ExtFirter", "401");
  script_.journal.clear();
  Call(report, "ShowFilter");
  EXPECT_EQ(script_.journal[1], "family 401");
}

TEST_F(ShowFilterTest, KeepsFilterRowsAndErrorWhenTheUserCancels) {
  const ObjectRef report = MakeFiltered("Rpt147");
  Call(report, "GetReportData");
  const ObjectRef filter = ObjectOf(report, "Filter");
  const ObjectRef rows = ObjectOf(report, "Rs");
  ASSERT_NE(rows, nullptr);
  answer_.filter = std::make_shared<Dictionary>(std::initializer_list<Dictionary::Entry>{{"OK", false}});
  Call(report, "ShowFilter");
  EXPECT_FALSE(Ok(report));
  EXPECT_EQ(Error(report), "");
  EXPECT_EQ(ObjectOf(report, "Filter"), filter);
  EXPECT_EQ(ObjectOf(report, "Rs"), rows);
}

TEST_F(ShowFilterTest, KeepsTheErrorThatStoodWhenTheUserCancels) {
  const ObjectRef report = Make("Rpt147");
  SetMember(report, "Filter", nullptr);
  answer_.filter = std::make_shared<Dictionary>(std::initializer_list<Dictionary::Entry>{{"OK", false}});
  Call(report, "ShowFilter");
  EXPECT_EQ(Error(report), "请选择过滤条件！");
}

TEST_F(ShowFilterTest, FetchesNothingAfterTheUserCancelled) {
  const ObjectRef report = MakeFiltered("Rpt147");
  answer_.filter = std::make_shared<Dictionary>(std::initializer_list<Dictionary::Entry>{{"OK", false}});
  Call(report, "ShowFilter");
  script_.journal.clear();
  Call(report, "GetReportData");
  EXPECT_EQ(script_.journal, (Steps{"messages run"}));
}

TEST_F(ShowFilterTest, TellsThatTheConditionsAreWrongWhenTheDialogGivesNone) {
  const ObjectRef report = MakeFiltered("Rpt147");
  const ObjectRef filter = ObjectOf(report, "Filter");
  answer_.filter = nullptr;
  Call(report, "ShowFilter");
  EXPECT_FALSE(Ok(report));
  EXPECT_EQ(Error(report), "过滤条件有误，请重新过滤！");
  EXPECT_EQ(ObjectOf(report, "Filter"), filter);
}

TEST_F(ShowFilterTest, TellsWhatTheDialogFailedWith) {
  const ObjectRef report = Make("Rpt147");
  answer_.on_confirm = [] { throw RuntimeError(5, "frmFilter147", "期间有误"); };
  EXPECT_NO_THROW(Call(report, "ShowFilter"));
  EXPECT_FALSE(Ok(report));
  EXPECT_EQ(Error(report), "期间有误");
  EXPECT_FALSE(Result(report)->Lookup("ErrorSource")) << "that is a failed fetch's";
  EXPECT_EQ(script_.journal.back(), "dialog released");
}

TEST_F(ShowFilterTest, TellsThatThereIsNoSuchDialog) {
  RegisterProbe<"Rpt192">();
  const ObjectRef report = MakeFiltered("Rpt192");
  Call(report, "ShowFilter");
  EXPECT_FALSE(Ok(report));
  EXPECT_NE(Error(report).find("frmFilter192"), std::string::npos) << Error(report);
}

TEST_F(ShowFilterTest, IgnoresAutoFilterInTheShortForm) {
  const FakeRef store = MarkPlan("月报");
  Call(Make("Rpt147"), "ShowFilter", true);
  EXPECT_EQ(script_.journal, (Steps{"made frmFilter147", "family 147", "dialog shown", "dialog released"}));
  EXPECT_TRUE(store->Calls().empty());
}

TEST_F(ShowFilterTest, OpensTheStatisticsDialogOfTheCustomerSummaryWithoutALogLine) {
  RegisterProbe<"Rpt133">();
  RegisterDialog("frmFirter126");
  Call(Make("Rpt133"), "ShowFilter", true);
  EXPECT_EQ(script_.journal, (Steps{"made frmFirter126", "family 166", "dialog shown", "dialog released"}));
}

// --- The fuller form

TEST_F(ShowFilterTest, LogsAndSetsUpBeforeTheDialogIsMade) {
  Call(Make("Rpt128"), "ShowFilter", false);
  EXPECT_EQ(script_.journal,
            (Steps{"log SysRptLog0017 3 销售出库汇总表查询", "set-up 166", "made frmFirter128", "family 166",
                   "status 0 hidden", "dialog shown", "dialog released"}));
}

TEST_F(ShowFilterTest, ShowsTheDialogWhenAutoFilterIsNotGiven) {
  const FakeRef store = MarkPlan("月报");
  Call(Make("Rpt128"), "ShowFilter");
  EXPECT_EQ(script_.journal.end()[-2], "dialog shown");
  EXPECT_TRUE(store->Calls().empty());
}

TEST_F(ShowFilterTest, RunsTheMarkedPlanUnseen) {
  const FakeRef store = MarkPlan("月报");
  const ObjectRef report = Make("Rpt128");
  Variant auto_filter = true;
  Call(report, "ShowFilter", auto_filter);
  EXPECT_EQ(script_.journal,
            (Steps{"log SysRptLog0017 3 销售出库汇总表查询", "set-up 166", "made frmFirter128", "family 166",
                   "status 0 hidden", "which plan of 166", "finish 月报", "dialog released"}));
  ASSERT_EQ(store->Calls().size(), 1u);
  EXPECT_EQ(store->Calls()[0].arguments, (std::vector<Variant>{kProps, "166"}));
  EXPECT_TRUE(Ok(report));
  EXPECT_EQ(ObjectOf(report, "Filter"), answer_.filter);
  EXPECT_EQ(auto_filter, Variant(true));
}

TEST_F(ShowFilterTest, ShowsTheDialogWhenNoPlanIsMarked) {
  for (const Variant& none : {Variant(""), Variant(), Variant(Null())}) {
    MarkPlan(none);
    const ObjectRef report = Make("Rpt128");
    Call(report, "ShowFilter", true);
    ASSERT_GE(script_.journal.size(), 3u);
    EXPECT_EQ(script_.journal.end()[-3], "which plan of 166");
    EXPECT_EQ(script_.journal.end()[-2], "dialog shown");
    EXPECT_TRUE(Ok(report));
  }
}

TEST_F(ShowFilterTest, TellsWhatThePlanStoreFailedWithAndShowsNothing) {
  RegisterFake(runtime_, "ORVMCaculateRpt.Profile")
      ->Raises("FindChooseValue", RuntimeError(-2147217843, "Profile", "登录失败。"));
  const ObjectRef report = Make("Rpt128");
  Call(report, "ShowFilter", true);
  EXPECT_FALSE(Ok(report));
  EXPECT_EQ(Error(report), "登录失败。");
  EXPECT_EQ(std::count(script_.journal.begin(), script_.journal.end(), "dialog shown"), 0);
  EXPECT_EQ(script_.journal.back(), "dialog released");
}

TEST_F(ShowFilterTest, GoesOnWhenTheLogLineFails) {
  log_->Raises("WriteLog", RuntimeError(5, "", "日志已满"));
  const ObjectRef report = Make("Rpt128");
  Call(report, "ShowFilter");
  EXPECT_TRUE(Ok(report));
}

TEST_F(ShowFilterTest, MakesNoDialogWhenTheSetUpFails) {
  const ObjectRef report = Make("Rpt128");
  script_.set_up = [] {
    throw RuntimeError(error_number::kDataRight, "SetRptProperty", "数据授权取数发生错误");
  };
  Call(report, "ShowFilter");
  EXPECT_FALSE(Ok(report));
  EXPECT_EQ(Error(report), "数据授权取数发生错误");
  EXPECT_EQ(script_.journal.back(), "set-up 166");
}

TEST_F(ShowFilterTest, WritesNoLogLineForTheConsignmentList) {
  RegisterProbe<"Rpt303">();
  RegisterDialog("FrmFilter303");
  Call(Make("Rpt303"), "ShowFilter", false);
  EXPECT_EQ(script_.journal.front(), "set-up 303");
}

}  // namespace
}  // namespace salerpt
