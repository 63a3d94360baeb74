// The plan list of the credit dialogs: what is asked, what is stored, what is shown behind it.
#include "tests/shell/dialogs/dialog_answer.h"

#include <gmock/gmock.h>

namespace salerpt::shell {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* kCreditDialogs[] = {"frmFirter145", "frmFirter146", "frmFirter149"};

std::string Case(const std::string& replies, const std::string& steps) {
  return R"({"plans": {"春": {"CreditObj": "1"}, "夏": {"CreditObj": "2"}}, "replies": )" + replies +
         R"(, "steps": )" + steps + "}";
}
std::string Inputs(const DialogAnswer& answer) {
  std::string lines;
  for (const Json& input : answer.All().at("inputs")) {
    lines += input.at("prompt").get<std::string>() + "/" + input.at("title").get<std::string>() + "\n";
  }
  return lines;
}

TEST(CreditPlans, SavingTheDefaultPlanAsksForAName) {
  for (const char* dialog : kCreditDialogs) {
    const DialogAnswer answer(dialog, Case(R"(["秋"])", R"([{"tool": "TLBSAVE"}])"));
    EXPECT_EQ(Inputs(answer), "请输入方案名:/保存方案\n") << dialog;
    EXPECT_EQ(answer.Boxes(), R"([{"text":"方案[秋]保存成功!","title":"系统提示","style":0}])") << dialog;
    EXPECT_THAT(answer.Items("LvwScheme"), ElementsAre("默认方案", "春", "夏", "秋")) << dialog;
    EXPECT_THAT(answer.ArgumentsOf("UpdateNextChooseValue"), IsEmpty()) << dialog;
  }
}

TEST(CreditPlans, SavingANamedPlanAsksNothing) {
  const DialogAnswer answer("frmFirter145",
                            Case(R"([])", R"([{"plan": "夏"}, {"select": "cmbCreditObj", "index": 4},
                                        {"tool": "TLBSAVE"}])"));
  EXPECT_EQ(Inputs(answer), "");
  EXPECT_EQ(answer.Boxes(), R"([{"text":"方案[夏]保存成功!","title":"系统提示","style":0}])");
  EXPECT_EQ(answer.SavedPlan(), DialogAnswer::Expected(R"({"plan": "夏", "family": 145,
      "FICItemIDFrom": "", "FICItemIDTo": "", "FItemIDFrom": "", "FItemIDTo": "", "CreditType": "0",
      "CreditObj": "4"})"));
}

TEST(CreditPlans, ACancelledOrBlankNameSavesNothing) {
  for (const char* reply : {R"([""])", R"(["  "])"}) {
    const DialogAnswer answer("frmFirter146", Case(reply, R"([{"tool": "TLBSAVE"}])"));
    EXPECT_EQ(answer.SavedPlan(), "");
    EXPECT_EQ(answer.Boxes(), "[]");
  }
}

TEST(CreditPlans, SaveAsAsksForANameAlsoOfANamedPlan) {
  const DialogAnswer answer("frmFirter149",
                            Case(R"([" 秋 "])", R"([{"plan": "夏"}, {"tool": "TLBSAVEAS"}])"));
  EXPECT_EQ(Inputs(answer), "请输入方案名:/保存方案\n");
  EXPECT_EQ(answer.Boxes(), R"([{"text":"方案[秋]保存成功!","title":"系统提示","style":0}])");
  EXPECT_THAT(answer.Items("LvwScheme"), ElementsAre("默认方案", "春", "夏", "秋"));
}

TEST(CreditPlans, SaveAsOverAnExistingPlanAsksBeforeItReplaces) {
  const std::string steps = R"([{"plan": "夏"}, {"tool": "TLBSAVEAS"}])";
  const DialogAnswer refused("frmFirter145", Case(R"(["春", "No"])", steps));
  EXPECT_EQ(refused.Boxes(), R"([{"text":"方案[春]已存在,是否替换?","title":"系统提示","style":68}])");
  EXPECT_EQ(refused.SavedPlan(), "");
  const DialogAnswer replaced("frmFirter145", Case(R"(["春", "Yes"])", steps));
  EXPECT_EQ(replaced.Boxes(), R"([{"text":"方案[春]已存在,是否替换?","title":"系统提示","style":68},)"
                              R"({"text":"方案[春]保存成功!","title":"系统提示","style":0}])");
  EXPECT_EQ(replaced.SavedPlan(), DialogAnswer::Expected(R"({"plan": "春", "family": 145,
      "FICItemIDFrom": "", "FICItemIDTo": "", "FItemIDFrom": "", "FItemIDTo": "", "CreditType": "0",
      "CreditObj": "2"})"));
}

TEST(CreditPlans, TheDefaultPlanIsNotDeleted) {
  const DialogAnswer answer("frmFirter145", Case(R"([])", R"([{"tool": "TLBDEL"}])"));
  EXPECT_EQ(answer.Boxes(), R"([{"text":"不能删除新方案！","title":"系统提示","style":0}])");
  EXPECT_THAT(answer.ArgumentsOf("DelPlan"), IsEmpty());
}

TEST(CreditPlans, DeletingAsksAndGoesBackToTheDefaultPlan) {
  const std::string steps = R"([{"plan": "夏"}, {"tool": "TLBDEL"}])";
  const DialogAnswer kept("frmFirter146", Case(R"(["No"])", steps));
  EXPECT_EQ(kept.Boxes(), R"([{"text":"确定要删除方案[夏]?","title":"系统提示","style":68}])");
  EXPECT_THAT(kept.ArgumentsOf("DelPlan"), IsEmpty());
  EXPECT_EQ(kept.All().at("CurrentPlan"), "夏");
  const DialogAnswer deleted("frmFirter146", Case(R"(["Yes"])", steps));
  EXPECT_THAT(deleted.ArgumentsOf("DelPlan"), ElementsAre(R"(["<props>",145,"夏"])"));
  EXPECT_THAT(deleted.Items("LvwScheme"), ElementsAre("默认方案", "春"));
  EXPECT_EQ(deleted.All().at("CurrentPlan"), "默认方案");
  EXPECT_EQ(deleted.Index("cmbCreditObj"), 0);
}

TEST(CreditPlans, ThereIsNoClear) {
  for (const char* dialog : kCreditDialogs) {
    EXPECT_THAT(DialogAnswer(dialog).Items("tlbProject"),
                ElementsAre("TLBSAVE", "TLBDEL", "TLBSAVEAS", "TLBVIEW"));
  }
}

}  // namespace
}  // namespace salerpt::shell
