// Grouping and levels in the outbound summary's dialog.
#include "tests/shell/dialogs/ran_dialog.h"

#include <gtest/gtest.h>

namespace salerpt::shell {
namespace {

constexpr const char* kDialog = "frmFirter128";

// The dialog's steps alone.
Json Steps(std::string_view steps) {
  return Ran(kDialog, R"j({"steps": [)j" + std::string(steps) + "]}");
}
std::string Levels(const Json& ran) {
  return Text(ran, "txtlevel(0)") + " " + Text(ran, "txtlevel(1)");
}

struct GroupRow {
  int index;
  int code;
  const char* name;
  const char* sum_field;
};

TEST(Frm128Groups, EveryRowGivesItsCodeItsNameAndWhatDescribesIt) {
  constexpr const char* kPlain =
      R"j({"FDisplayField":"","FPropID":0,"FSQLColumnName":"FName","FSrcField":"","FSrcTable":""})j";
  const GroupRow rows[] = {
      {0, 1, "物料类别", kPlain},
      {1, 2, "客户类别", kPlain},
      {2, 3, "物料类别+客户", kPlain},
      {3, 4, "客户+物料类别", kPlain},
      {4, 5, "客户",
       R"j({"FDisplayField":"","FItemClassID":1,"FName":"客户","FPropID":0,"FSQLColumnName":"FName","FSrcField":"","FSrcTable":""})j"},
      {5, 6, "业务员",
       R"j({"FDisplayField":"","FItemClassID":1,"FName":"业务员","FPropID":0,"FSQLColumnName":"FName","FSrcField":"","FSrcTable":""})j"},
      {6, 9, "部门", kPlain},
      {7, 10, "部门+业务员",
       R"j({"FDisplayField":"","FName":"部门","FPropID":0,"FSQLColumnName":"FName","FSrcField":"","FSrcTable":""})j"},
      {8, 7, "销售方式",
       R"j({"FDisplayField":"FName","FItemClassID":1,"FName":"销售方式","FPropID":29,"FSQLColumnName":"FSaleStyle","FSrcField":"FInterID","FSrcTable":"t_SubMessage"})j"},
      {9, 8, "客户类别+客户", kPlain},
      {10, 11, "客户+业务员",
       R"j({"FDisplayField":"","FName":"客户","FPropID":0,"FSQLColumnName":"FName","FSrcField":"","FSrcTable":""})j"},
      {11, 12, "业务员+客户+物料类别", kPlain},
  };
  for (const GroupRow& row : rows) {
    SCOPED_TRACE(row.name);
    const Json ran = Steps(R"j({"select": "cmbGroupBy", "index": )j" + std::to_string(row.index) +
                           R"j(}, {"click": "cmdOK"})j");
    EXPECT_EQ(ran["Filter"]["SumMode"], row.code);
    EXPECT_EQ(ran["Filter"]["SumName"], row.name);
    EXPECT_EQ(nlohmann::json::parse(ran["Filter"]["SumField"].dump()).dump(), row.sum_field);
  }
}

TEST(Frm128Groups, RowsWithAClassHaveItsLevelsAndOthersNone) {
  constexpr int kNone = 0;
  const int deepest[] = {4, 3, 4, 4, kNone, kNone, kNone, kNone, kNone, 3, kNone, 4};
  for (int index = 0; index < 12; ++index) {
    SCOPED_TRACE(index);
    const Json ran = Steps(R"j({"select": "cmbGroupBy", "index": )j" + std::to_string(index) + "}");
    for (const char* control : {"Label7", "Label6", "txtlevel(0)", "txtlevel(1)", "udBLevel", "udELevel"}) {
      const Json& state = Shown(ran, control);
      EXPECT_EQ(state["enabled"] == true && state["visible"] == true, deepest[index] != kNone) << control;
    }
    if (deepest[index] == kNone) continue;
    EXPECT_EQ(Shown(ran, "udBLevel")["max"], deepest[index]);
    EXPECT_EQ(Shown(ran, "udELevel")["max"], deepest[index]);
  }
}

TEST(Frm128Groups, APlainRowKeepsTheLevelsAndStillAnswersThem) {
  const Json ran = Steps(R"j({"type": "txtlevel(1)", "text": "3"}, {"type": "txtlevel(0)", "text": "2"},
      {"select": "cmbGroupBy", "index": 4}, {"click": "cmdOK"})j");
  EXPECT_EQ(ran["Filter"]["BLevel"], 2);
  EXPECT_EQ(ran["Filter"]["ELevel"], 3);
}

TEST(Frm128Levels, ABeginTooDeepFallsToOneAndAnEndToTheDeepest) {
  EXPECT_EQ(Levels(Steps(R"j({"type": "txtlevel(1)", "text": "4"}, {"type": "txtlevel(0)", "text": "4"},
      {"select": "cmbGroupBy", "index": 1})j")),
            "1 3");
  EXPECT_EQ(Levels(Steps(R"j({"type": "txtlevel(1)", "text": "4"}, {"type": "txtlevel(0)", "text": "3"},
      {"select": "cmbGroupBy", "index": 1})j")),
            "3 3");
  EXPECT_EQ(Levels(Steps(R"j({"type": "txtlevel(1)", "text": "2"}, {"select": "cmbGroupBy", "index": 1})j")),
            "1 2");
}

TEST(Frm128Levels, AClassWithoutLevelsEndsOnZeroAndIsConfirmedAsOne) {
  const Json ran =
      Ran(kDialog, R"j({"itemMaxLevel": {}, "steps": [{"state": "shown"}, {"click": "cmdOK"}]})j");
  EXPECT_EQ(Shown(ran, "shown", "udBLevel")["max"], 5);
  EXPECT_EQ(Text(ran, "shown", "txtlevel(1)"), "0");
  EXPECT_EQ(ran["Filter"]["BLevel"], 1);
  EXPECT_EQ(ran["Filter"]["ELevel"], 1);
}

TEST(Frm128Levels, AboveTheDeepestShowsTheDeepestAtOnce) {
  EXPECT_EQ(Levels(Steps(R"j({"type": "txtlevel(1)", "text": "9"})j")), "1 4");
  EXPECT_EQ(Levels(Steps(R"j({"type": "txtlevel(0)", "text": "9"})j")), "4 4");
}

TEST(Frm128Levels, TheBeginFollowsTheEndDownAndTheEndNeverGoesUp) {
  EXPECT_EQ(Levels(Steps(R"j({"type": "txtlevel(0)", "text": "3"}, {"type": "txtlevel(1)", "text": "2"})j")),
            "2 2");
  EXPECT_EQ(Levels(Steps(R"j({"type": "txtlevel(1)", "text": "2"}, {"type": "txtlevel(0)", "text": "3"})j")),
            "2 2");
}

TEST(Frm128Levels, OnlyDigitsCanBeTyped) {
  EXPECT_EQ(Levels(Steps(R"j({"type": "txtlevel(1)", "text": "a2-."})j")), "1 2");
}

TEST(Frm128Levels, ANegativeOneBecomesOneAtOnce) {
  EXPECT_EQ(Levels(Steps(R"j({"paste": "txtlevel(0)", "text": "-2"})j")), "1 4");
}

TEST(Frm128Levels, ZeroAndEmptyBecomeOneWhenTheFocusLeaves) {
  EXPECT_EQ(Levels(Steps(R"j({"type": "txtlevel(0)", "text": "0"})j")), "0 4");
  EXPECT_EQ(Levels(Steps(R"j({"type": "txtlevel(0)", "text": "0"}, {"leave": "txtlevel(0)"})j")), "1 4");
  EXPECT_EQ(Levels(Steps(R"j({"paste": "txtlevel(0)", "text": ""}, {"leave": "txtlevel(0)"})j")), "1 4");
}

TEST(Frm128Levels, ZeroAndEmptyAreConfirmedAsOne) {
  for (const char* text : {"0", ""}) {
    const Json begin =
        Steps(R"j({"paste": "txtlevel(0)", "text": ")j" + std::string(text) + R"j("}, {"click": "cmdOK"})j");
    EXPECT_EQ(begin["Filter"]["BLevel"], 1);
    EXPECT_EQ(begin["Filter"]["ELevel"], 4);
    const Json both =
        Steps(R"j({"paste": "txtlevel(1)", "text": ")j" + std::string(text) + R"j("}, {"click": "cmdOK"})j");
    EXPECT_EQ(both["Filter"]["BLevel"], 1);
    EXPECT_EQ(both["Filter"]["ELevel"], 1);
    EXPECT_EQ(SavedPlan(both).at(7), "BLevel=1");
    EXPECT_EQ(SavedPlan(both).at(8), "ELevel=1");
  }
}

TEST(Frm128GroupBox, UncheckedItTakesTheFrameAwayAndWithSummaryOnlyTheSortTab) {
  const Json summary =
      Steps(R"j({"check": "chkGroupBy", "value": 0}, {"state": "off"}, {"click": "cmdOK"})j");
  EXPECT_EQ(Shown(summary, "off", "Frame1")["enabled"], false);
  EXPECT_EQ(Shown(summary, "off", "mstFilter")["tabs"][1].dump(), R"j(["排序",false])j");
  EXPECT_EQ(summary["Filter"]["GroupBy"], 0);
  EXPECT_EQ(summary["Filter"]["Orderby"], "");
  const Json rows = Steps(R"j({"check": "chkOnlyShowSum", "value": 0}, {"check": "chkGroupBy", "value": 0},
      {"state": "off"}, {"click": "cmdOK"})j");
  EXPECT_EQ(Shown(rows, "off", "mstFilter")["tabs"][1].dump(), R"j(["排序",true])j");
  EXPECT_EQ(rows["Filter"]["Orderby"], "FNumber ASC");
}

TEST(Frm128GroupBox, CheckedAgainItGivesFrameAndTabBack) {
  const Json ran = Steps(R"j({"check": "chkGroupBy", "value": 0}, {"check": "chkGroupBy", "value": 1})j");
  EXPECT_EQ(Shown(ran, "Frame1")["enabled"], true);
  EXPECT_EQ(Shown(ran, "mstFilter")["tabs"][1].dump(), R"j(["排序",true])j");
}

}  // namespace
}  // namespace salerpt::shell
