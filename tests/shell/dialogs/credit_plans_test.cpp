// The plan list of the credit dialogs: what is asked, what is stored, what is shown behind it.
#include "tests/shell/dialogs/ran_dialog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace salerpt::shell {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* kCreditDialogs[] = {"frmFirter145", "frmFirter146", "frmFirter149"};

std::string Case(const std::string& replies, const std::string& steps) {
  return R"({"plans": {"春": {"CreditObj": "1"}, "夏": {"CreditObj": "2"}}, "replies": )" + replies +
         R"(, "steps": )" + steps + "}";
}
std::string InputLines(const Json& ran) {
  std::string lines;
  for (const Json& input : ran.at("inputs")) {
    lines += input.at("prompt").get<std::string>() + "/" + input.at("title").get<std::string>() + "\n";
  }
  return lines;
}

TEST(CreditPlans, SavingTheDefaultPlanAsksForAName) {
  for (const char* dialog : kCreditDialogs) {
    const Json ran = RanBare(dialog, Case(R"(["秋"])", R"([{"tool": "TLBSAVE"}])"));
    EXPECT_EQ(InputLines(ran), "请输入方案名:/保存方案\n") << dialog;
    EXPECT_EQ(ran.at("boxes").dump(), R"([{"text":"方案[秋]保存成功!","title":"系统提示","style":0}])")
        << dialog;
    EXPECT_THAT(ItemTexts(ran, "LvwScheme"), ElementsAre("默认方案", "春", "夏", "秋")) << dialog;
    EXPECT_THAT(ArgumentsOf(ran, "UpdateNextChooseValue"), IsEmpty()) << dialog;
  }
}

TEST(CreditPlans, SavingANamedPlanAsksNothing) {
  const Json ran =
      RanBare("frmFirter145", Case(R"([])", R"([{"plan": "夏"}, {"select": "cmbCreditObj", "index": 4},
                                        {"tool": "TLBSAVE"}])"));
  EXPECT_EQ(InputLines(ran), "");
  EXPECT_EQ(ran.at("boxes").dump(), R"([{"text":"方案[夏]保存成功!","title":"系统提示","style":0}])");
  EXPECT_EQ(SavedLines(ran), Lines(R"({"plan": "夏", "family": 145,
      "FICItemIDFrom": "", "FICItemIDTo": "", "FItemIDFrom": "", "FItemIDTo": "", "CreditType": "0",
      "CreditObj": "4"})"));
}

TEST(CreditPlans, ACancelledOrBlankNameSavesNothing) {
  for (const char* reply : {R"([""])", R"(["  "])"}) {
    const Json ran = RanBare("frmFirter146", Case(reply, R"([{"tool": "TLBSAVE"}])"));
    EXPECT_EQ(SavedLines(ran), "");
    EXPECT_EQ(ran.at("boxes").dump(), "[]");
  }
}

TEST(CreditPlans, SaveAsAsksForANameAlsoOfANamedPlan) {
  const Json ran = RanBare("frmFirter149", Case(R"([" 秋 "])", R"([{"plan": "夏"}, {"tool": "TLBSAVEAS"}])"));
  EXPECT_EQ(InputLines(ran), "请输入方案名:/保存方案\n");
  EXPECT_EQ(ran.at("boxes").dump(), R"([{"text":"方案[秋]保存成功!","title":"系统提示","style":0}])");
  EXPECT_THAT(ItemTexts(ran, "LvwScheme"), ElementsAre("默认方案", "春", "夏", "秋"));
}

TEST(CreditPlans, SaveAsOverAnExistingPlanAsksBeforeItReplaces) {
  const std::string steps = R"([{"plan": "夏"}, {"tool": "TLBSAVEAS"}])";
  const Json refused = RanBare("frmFirter145", Case(R"(["春", "No"])", steps));
  EXPECT_EQ(refused.at("boxes").dump(),
            R"([{"text":"方案[春]已存在,是否替换?","title":"系统提示","style":68}])");
  EXPECT_EQ(SavedLines(refused), "");
  const Json replaced = RanBare("frmFirter145", Case(R"(["春", "Yes"])", steps));
  EXPECT_EQ(replaced.at("boxes").dump(),
            R"([{"text":"方案[春]已存在,是否替换?","title":"系统提示","style":68},)"
            R"({"text":"方案[春]保存成功!","title":"系统提示","style":0}])");
  EXPECT_EQ(SavedLines(replaced), Lines(R"({"plan": "春", "family": 145,
      "FICItemIDFrom": "", "FICItemIDTo": "", "FItemIDFrom": "", "FItemIDTo": "", "CreditType": "0",
      "CreditObj": "2"})"));
}

TEST(CreditPlans, TheDefaultPlanIsNotDeleted) {
  const Json ran = RanBare("frmFirter145", Case(R"([])", R"([{"tool": "TLBDEL"}])"));
  EXPECT_EQ(ran.at("boxes").dump(), R"([{"text":"不能删除新方案！","title":"系统提示","style":0}])");
  EXPECT_THAT(ArgumentsOf(ran, "DelPlan"), IsEmpty());
}

TEST(CreditPlans, DeletingAsksAndGoesBackToTheDefaultPlan) {
  const std::string steps = R"([{"plan": "夏"}, {"tool": "TLBDEL"}])";
  const Json kept = RanBare("frmFirter146", Case(R"(["No"])", steps));
  EXPECT_EQ(kept.at("boxes").dump(), R"([{"text":"确定要删除方案[夏]?","title":"系统提示","style":68}])");
  EXPECT_THAT(ArgumentsOf(kept, "DelPlan"), IsEmpty());
  EXPECT_EQ(kept.at("CurrentPlan"), "夏");
  const Json deleted = RanBare("frmFirter146", Case(R"(["Yes"])", steps));
  EXPECT_THAT(ArgumentsOf(deleted, "DelPlan"), ElementsAre(R"(["<props>",145,"夏"])"));
  EXPECT_THAT(ItemTexts(deleted, "LvwScheme"), ElementsAre("默认方案", "春"));
  EXPECT_EQ(deleted.at("CurrentPlan"), "默认方案");
  EXPECT_EQ(Shown(deleted, "cmbCreditObj").at("listIndex"), 0);
}

TEST(CreditPlans, ThereIsNoClear) {
  for (const char* dialog : kCreditDialogs) {
    EXPECT_THAT(ItemTexts(RanBare(dialog), "tlbProject"),
                ElementsAre("TLBSAVE", "TLBDEL", "TLBSAVEAS", "TLBVIEW"));
  }
}

}  // namespace
}  // namespace salerpt::shell
