// `salerpt show` with plans, and `salerpt dialog`, as they are used.
#include <gmock/gmock.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>

#include "tests/shell/program_run.h"

namespace salerpt::shell {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;
using ::testing::Not;

// A folder with an account set of its own for each test.
class PlanOptions : public ::testing::Test {
 protected:
  PlanOptions() : folder_(fs::temp_directory_path() / ("salerpt-plan-" + std::to_string(::getpid()))) {
    fs::create_directory(folder_);
    EXPECT_EQ(Run("init t.db --seed 7 --lines 400").status, 0);
  }
  ~PlanOptions() override { fs::remove_all(folder_); }

  [[nodiscard]] Outcome Run(const std::string& words) const { return RunProgramIn(folder_, words); }
  void Write(const std::string& name, const std::string& text) const {
    std::ofstream(folder_ / name) << text;
  }

 private:
  fs::path folder_;
};

constexpr const char* kYear = "show Rpt128 BDate=2024-01-01 EDate=2024-12-31 ";

TEST_F(PlanOptions, AStoredPlanGivesWhatWasChosenWhenItWasStored) {
  const Outcome stored = Run(std::string(kYear) + "SumMode=5 BCustNumber=01 --save-plan 年度");
  ASSERT_EQ(stored.status, 0) << stored.err;
  const Outcome again = Run("show Rpt128 --plan 年度");
  ASSERT_EQ(again.status, 0) << again.err;
  EXPECT_EQ(again.out, stored.out);
  EXPECT_THAT(again.out, HasSubstr("起始日期：2024-01-01"));
}

TEST_F(PlanOptions, AChoiceWinsOverThePlan) {
  ASSERT_EQ(Run(std::string(kYear) + "--save-plan 年度").status, 0);
  EXPECT_THAT(Run("show Rpt128 EDate=2024-06-30 --plan 年度").out, HasSubstr("截止日期：2024-06-30"));
  EXPECT_THAT(Run("show Rpt128 --plan 年度").out, HasSubstr("截止日期：2024-12-31"));
}

TEST_F(PlanOptions, WhatIsShownWithoutAPersonIsNotTheDefaultOfTheNextTime) {
  ASSERT_EQ(Run(kYear).status, 0);
  EXPECT_THAT(Run("show Rpt128").out, Not(HasSubstr("2024-01-01")));
  EXPECT_THAT(Run("plans 166 --format csv").out, Not(HasSubstr("默认方案")));
}

TEST_F(PlanOptions, TheMarkedPlanRunsByItself) {
  EXPECT_THAT(Run("show Rpt128 --auto").out, Not(HasSubstr("2024-01-01")));
  ASSERT_EQ(Run(std::string(kYear) + "chkNextChoose=1 --save-plan 每月").status, 0);
  const Outcome marked = Run("show Rpt128 --auto");
  EXPECT_EQ(marked.status, 0) << marked.err;
  EXPECT_THAT(marked.out, HasSubstr("起始日期：2024-01-01"));
}

TEST_F(PlanOptions, APlanThatIsNotStoredIsNamedWithTheKnownOnes) {
  ASSERT_EQ(Run(std::string(kYear) + "--save-plan 年度").status, 0);
  const Outcome outcome = Run("show Rpt128 --plan 年");
  EXPECT_EQ(outcome.status, 2);
  EXPECT_THAT(outcome.err, HasSubstr("--plan 年: Rpt128 has no such plan"));
  EXPECT_THAT(outcome.err, HasSubstr("年度"));
}

TEST_F(PlanOptions, DatesThatTheDialogRefusesFailTheReport) {
  const Outcome outcome = Run("show Rpt128 BDate=2024-12-31 EDate=2024-01-01");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.err, HasSubstr("起始日期不能大于截止日期!"));
  EXPECT_EQ(outcome.out, "");
}

TEST_F(PlanOptions, EachUseOfAReportStandsInTheLog) {
  ASSERT_EQ(Run(kYear).status, 0);
  EXPECT_THAT(Run("log --format csv").out, HasSubstr(",SysRptLog0017,3,销售出库汇总表查询"));
}

TEST_F(PlanOptions, ADialogRunsByAScript) {
  Write("case.json", R"json({"today": "2024-05-06", "steps": [
    {"type": "txtItem(0)", "text": "01'"}, {"state": "typed"}, {"click": "cmdOK"}]})json");
  const Outcome outcome = Run("dialog frmfirter128 case.json");
  ASSERT_EQ(outcome.status, 0) << outcome.err;
  const auto answer = nlohmann::json::parse(outcome.out);
  EXPECT_EQ(answer.at("closed"), true);
  EXPECT_EQ(answer.at("Filter").at("BItemNumber"), "01");
  EXPECT_EQ(answer.at("states").at("typed").at("txtItem(0)").at("text"), "01");
}

TEST_F(PlanOptions, ARefusedConfirmationIsAFailureAndACancelledDialogIsNone) {
  Write("refused.json", R"({"steps": [{"date": "DtpBDate", "value": "2024-02-01"},
    {"date": "DtpEDate", "value": "2024-01-01"}, {"click": "cmdOK"}]})");
  EXPECT_EQ(Run("dialog frmFirter128 refused.json").status, 1);
  Write("cancelled.json", R"({"steps": [{"click": "cmdCacel"}]})");
  EXPECT_EQ(Run("dialog frmFirter128 cancelled.json").status, 0);
}

TEST_F(PlanOptions, AStepThatCannotBeDoneIsTold) {
  Write("case.json", R"({"steps": [{"click": "cmdOk2"}]})");
  const Outcome control = Run("dialog frmFirter128 case.json");
  EXPECT_EQ(control.status, 2);
  EXPECT_THAT(control.err, HasSubstr("case.json: /steps/0/click: frmFirter128 has no such control"));
  Write("case.json", R"({"steps": [{"clack": "cmdOK"}]})");
  EXPECT_THAT(Run("dialog frmFirter128 case.json").err,
              HasSubstr("\"clack\" is no step; did you mean click?"));
  Write("case.json", R"({"step": []})");
  EXPECT_EQ(Run("dialog frmFirter128 case.json").status, 2);
  Write("case.json", "{}");
  EXPECT_THAT(Run("dialog frmFirter12 case.json").err, HasSubstr("\"frmFirter12\" is no dialog"));
}

}  // namespace
}  // namespace salerpt::shell
