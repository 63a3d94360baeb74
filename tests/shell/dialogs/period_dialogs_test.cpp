// The dialogs that ask for accounting periods.
#include "tests/shell/dialogs/ran_dialog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace salerpt::shell {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsSupersetOf;

// In period 3 of 2024, in use since 2020, twelve periods a year.
Json InMarch(std::string_view dialog, std::string_view case_text) {
  Json whole =
      Json::parse(R"j({"profile": {"GL/PeriodCount": 12, "IC/CurrentYear": 2024, "IC/CurrentPeriod": 3,
                                           "IC/StartYear": 2020, "IC/StartPeriod": 1}})j");
  whole.update(Json::parse(case_text));
  return Ran(dialog, whole.dump());
}
// The four fields after steps: "2024/3-2024/3".
std::string Range(std::string_view steps) {
  const Json ran = InMarch("frmFilter147", R"j({"steps": [)j" + std::string(steps) + "]}");
  return Text(ran, "txtPeriod(0)") + "/" + Text(ran, "txtPeriod(1)") + "-" + Text(ran, "txtPeriod(2)") + "/" +
         Text(ran, "txtPeriod(3)");
}

TEST(Frm140, DefaultsGiveTheWholeFilterAndPlan) {
  const Json ran = InMarch("frmFirter140", R"j({"RptID": 300})j");
  EXPECT_EQ(Filter(ran), InOrder(R"j({"OK": true, "BYear": 2024, "BPeriod": 3, "BItemNumber": "",
      "EItemNumber": "", "BCustNumber": "", "ECustNumber": "", "CheckState": 0, "AuxProp": 1,
      "chkNextChoose": 0, "CommodityType": 0})j"));
  EXPECT_THAT(SavedPlan(ran), ElementsAre("300/默认方案", "BYEAR=2024", "BPERIOD=3",
                                          "BItem=", "EItem=", "BEmp=", "EEmp=", "CheckState=0", "AuxProp=1",
                                          "chkNextChoose=0", "CommodityType=0"));
}

TEST(Frm143, DefaultsGiveTheWholeFilterAndPlan) {
  const Json ran = InMarch("frmFirter143", R"j({"RptID": 300})j");
  EXPECT_EQ(Filter(ran), InOrder(R"j({"OK": true, "BYear": 2024, "BPeriod": 3, "BItemNumber": "",
      "EItemNumber": "", "BCustNumber": "", "ECustNumber": "", "CheckState": 0, "chkNextChoose": 0,
      "CommodityType": 0, "AuxProp": 1})j"));
  EXPECT_THAT(SavedPlan(ran), ElementsAre("300/默认方案", "BYEAR=2024", "BPERIOD=3",
                                          "BItem=", "EItem=", "BEmp=", "EEmp=", "CheckState=0",
                                          "chkNextChoose=0", "AuxProp=1", "CommodityType=0"));
}

TEST(OnePeriodDialogs, AStoredPlanComesBackAndCodesAreTrimmed) {
  constexpr const char* kPlan = R"j({"plans": {"月报": {"BYEAR": "2023", "BPERIOD": "11", "BItem": " i1 ",
      "EItem": "i2", "BEmp": "c1", "EEmp": "c2 ", "CheckState": "2", "AuxProp": "0", "chkNextChoose": "1",
      "CommodityType": "1"}}, "steps": [{"finish": "月报"}]})j";
  EXPECT_EQ(Filter(InMarch("frmFirter140", kPlan)), InOrder(R"j({"OK": true, "BYear": 2023, "BPeriod": 11,
      "BItemNumber": "i1", "EItemNumber": "i2", "BCustNumber": "c1", "ECustNumber": "c2", "CheckState": 2,
      "AuxProp": 0, "chkNextChoose": 1, "CommodityType": 1})j"));
  EXPECT_EQ(Filter(InMarch("frmFirter143", kPlan)), InOrder(R"j({"OK": true, "BYear": 2023, "BPeriod": 11,
      "BItemNumber": "i1", "EItemNumber": "i2", "BCustNumber": "c1", "ECustNumber": "c2", "CheckState": 2,
      "chkNextChoose": 1, "CommodityType": 1, "AuxProp": 0})j"));
}

TEST(OnePeriodDialogs, CaptionsKeysAndLookUps) {
  for (const char* dialog : {"frmFirter140", "frmFirter143"}) {
    SCOPED_TRACE(dialog);
    EXPECT_THAT(
        Captions(InMarch(dialog, R"j({"steps": []})j")),
        IsSupersetOf({"以辅助属性展开", "客户代码:", "物料代码:", "会计期间:", "年", "期", "单据状态:"}));
    EXPECT_EQ(InMarch(dialog, R"j({"steps": [{"key": 13, "on": "txtItem(0)"}]})j")["keys"].dump(), "[9]");
    EXPECT_EQ(InMarch(dialog, R"j({"steps": [{"key": 27, "on": "txtItem(0)"}]})j")["closed"], true);
    const Json ran = InMarch(dialog, R"j({"lookups": [{"Number": "01.02", "FShortNumber": "02"},
        {"Number": "k.07", "FShortNumber": "07"}],
        "steps": [{"click": "cmdItem(1)"}, {"key": 118, "on": "txtItem(2)"}]})j");
    EXPECT_EQ(Text(ran, "txtItem(1)"), "01.02");
    EXPECT_EQ(Text(ran, "txtItem(2)"), "k.07");
    EXPECT_EQ(ran["calls"][3]["args"][0], 4);
    EXPECT_EQ(ran["calls"][5]["args"][0], 1);
  }
}

TEST(Frm147, DefaultsGiveTheWholeFilterAndPlan) {
  const Json ran = InMarch("frmFilter147", R"j({"RptID": 147})j");
  EXPECT_EQ(Filter(ran), InOrder(R"j({"OK": true, "BYear": 2024, "BPeriod": 3, "EYear": 2024, "EPeriod": 3,
      "BItemNumber": "", "EItemNumber": "", "BEmpNumber": "", "EEmpNumber": "", "BDptNumber": "",
      "EDptNumber": "", "BCustNumber": "", "ECustNumber": "", "CheckState": 0})j"));
  EXPECT_THAT(SavedPlan(ran),
              ElementsAre("147/默认方案", "BYEAR=2024", "EYEAR=2024", "BPERIOD=3", "EPERIOD=3", "BItem=",
                          "EItem=", "BEmp=", "EEmp=", "BDpt=", "EDpt=", "BCust=", "ECust=", "CheckState=0"));
  EXPECT_THAT(Calls(ran), ElementsAre("GetPlanList", "GetPlanValue 默认方案", "SaveProfile"));
}

constexpr const char* kRangePlan = R"j({"plans": {"月报": {"BYEAR": "2022", "EYEAR": "2023", "BPERIOD": "11",
    "EPERIOD": "2", "BItem": "i1 ", "EItem": "i2", "BEmp": "e1", "EEmp": " e2", "BDpt": "d1", "EDpt": "d2",
    "BCust": "c1", "ECust": "c2", "CheckState": "1"}}, "steps": [{"plan": "月报"}, {"click": "cmdOK"}]})j";

TEST(Frm147, AStoredPlanComesBackWholeAndCodesAreTrimmed) {
  const Json ran = InMarch("frmFilter147", kRangePlan);
  EXPECT_EQ(Filter(ran), InOrder(R"j({"OK": true, "BYear": 2022, "BPeriod": 11, "EYear": 2023, "EPeriod": 2,
      "BItemNumber": "i1", "EItemNumber": "i2", "BEmpNumber": "e1", "EEmpNumber": "e2", "BDptNumber": "d1",
      "EDptNumber": "d2", "BCustNumber": "c1", "ECustNumber": "c2", "CheckState": 1})j"));
  EXPECT_THAT(SavedPlans(ran), IsEmpty());
}

TEST(Frm148, DefaultsAndAStoredPlanGiveStockPlacesInsteadOfDepartments) {
  const Json ran = InMarch("frmFilter148", R"j({"RptID": 148})j");
  EXPECT_EQ(Filter(ran), InOrder(R"j({"OK": true, "BYear": 2024, "BPeriod": 3, "EYear": 2024, "EPeriod": 3,
      "BItemNumber": "", "EItemNumber": "", "BEmpNumber": "", "EEmpNumber": "", "BStockNumber": "",
      "EStockNumber": "", "BCustNumber": "", "ECustNumber": "", "CheckState": 0})j"));
  EXPECT_THAT(SavedPlan(ran),
              ElementsAre("148/默认方案", "BYEAR=2024", "EYEAR=2024", "BPERIOD=3", "EPERIOD=3", "BItem=",
                          "EItem=", "BEmp=", "EEmp=", "BDpt=", "EDpt=", "BCust=", "ECust=", "CheckState=0"));
  const Json stored = InMarch("frmFilter148", kRangePlan);
  EXPECT_EQ(stored["Filter"]["BStockNumber"], "d1");
  EXPECT_EQ(stored["Filter"]["ECustNumber"], "c2");
}

TEST(PeriodRangeDialogs, LookUpsByTheirClasses) {
  const char* const all[][2] = {{"frmFilter147", "4 3 2 1"}, {"frmFilter148", "4 3 5 1"}};
  for (const auto& [dialog, expected] : all) {
    const Json ran = InMarch(dialog, R"j({"lookups": [{"Number": "L0"}, {"Number": "L1"}, {"Number": "L2"},
        {"Number": "L3"}], "steps": [{"click": "cmdItem(0)"}, {"click": "cmdItem(3)"}, {"click": "cmdItem(4)"},
        {"key": 119, "on": "txtItem(7)"}]})j");
    std::string classes;
    for (const Json& call : ran["calls"]) {
      if (call["member"] == "ItemLookUp") classes += (classes.empty() ? "" : " ") + call["args"][0].dump();
    }
    EXPECT_EQ(classes, expected) << dialog;
    EXPECT_EQ(Text(ran, "txtItem(7)"), "L3") << dialog;
  }
}

TEST(PeriodRangeDialogs, EnterGoesOnEscapeDoesNothingAndNoApostropheIsTyped) {
  const Json ran = InMarch("frmFilter147", R"j({"steps": [{"key": 27, "on": "txtItem(0)"},
      {"type": "txtItem(0)", "text": "a'b"}, {"key": 13, "on": "txtItem(0)"}, {"state": "s"}]})j");
  EXPECT_EQ(ran["keys"].dump(), R"j(["{TAB}"])j");
  EXPECT_EQ(Text(ran, "s", "txtItem(0)"), "ab");
  EXPECT_FALSE(ran["closed"]);
}

TEST(PeriodRangeDialogs, ANamedPlanIsSavedAgainWithoutAQuestion) {
  const Json ran = InMarch("frmFilter147", R"j({"plans": {"月报": {}, "status": "月报"}, "steps": [
      {"type": "txtItem(0)", "text": "7 "}, {"tool": "TLBSAVE"}]})j");
  EXPECT_THAT(Boxes(ran), IsEmpty());
  EXPECT_THAT(Inputs(ran), IsEmpty());
  EXPECT_EQ(SavedPlan(ran).at(0), "900/月报");
  EXPECT_EQ(SavedPlan(ran).at(5), "BItem=7 ");
  const Json first = InMarch("frmFilter147", R"j({"replies": ["周报"], "steps": [{"tool": "TLBSAVE"}]})j");
  EXPECT_THAT(Inputs(first), ElementsAre("请输入方案名： | 保存方案"));
  EXPECT_EQ(SavedPlan(first).at(0), "900/周报");
}

// --- The period fields

TEST(PeriodFields, ArrowsHaveTheBoundsOfTheAccountSet) {
  const Json ran = InMarch("frmFilter147", R"j({"steps": []})j");
  EXPECT_EQ(Shown(ran, "updBPeriod")["max"], 12);
  EXPECT_EQ(Shown(ran, "updEPeriod")["max"], 12);
  EXPECT_EQ(Shown(ran, "updBYear")["min"], 2020);
  EXPECT_EQ(Shown(ran, "updEYear")["min"], 2020);
}

TEST(PeriodFields, APeriodStaysBetweenOneAndTheLastAtOnce) {
  EXPECT_EQ(Range(R"j({"type": "txtPeriod(3)", "text": "13"})j"), "2024/3-2024/12");
  EXPECT_EQ(Range(R"j({"type": "txtPeriod(3)", "text": "0"})j"), "2024/3-2024/1");
  EXPECT_EQ(Range(R"j({"paste": "txtPeriod(1)", "text": ""})j"), "2024/1-2024/3");
}

TEST(PeriodFields, ACorrectedPeriodIsMarkedSoThatTheNextDigitReplacesIt) {
  EXPECT_EQ(Range(R"j({"type": "txtPeriod(3)", "text": "135"})j"), "2024/3-2024/5");
}

TEST(PeriodFields, DigitsAloneUpToFourOfAYear) {
  EXPECT_EQ(Range(R"j({"type": "txtPeriod(2)", "text": "2a0-27.8"})j"), "2024/3-2027/3");
}

TEST(PeriodFields, AYearIsLeftAloneWhileTypingAndRaisedToTheFirstOnLeaving) {
  EXPECT_EQ(Range(R"j({"type": "txtPeriod(0)", "text": "2019"})j"), "2019/3-2024/3");
  EXPECT_EQ(Range(R"j({"type": "txtPeriod(0)", "text": "2019"}, {"leave": "txtPeriod(0)"})j"),
            "2020/3-2024/3");
  EXPECT_EQ(Range(R"j({"paste": "txtPeriod(0)", "text": ""}, {"leave": "txtPeriod(0)"})j"), "2020/3-2024/3");
}

TEST(PeriodFields, ALaterBeginTakesTheEndAlong) {
  EXPECT_EQ(Range(R"j({"type": "txtPeriod(0)", "text": "2025"}, {"leave": "txtPeriod(0)"})j"),
            "2025/3-2025/3");
  EXPECT_EQ(Range(R"j({"type": "txtPeriod(1)", "text": "5"}, {"leave": "txtPeriod(1)"})j"), "2024/5-2024/5");
  EXPECT_EQ(Range(R"j({"type": "txtPeriod(1)", "text": "5"}, {"type": "txtPeriod(0)", "text": "2025"},
      {"leave": "txtPeriod(0)"})j"),
            "2025/5-2025/5");
}

TEST(PeriodFields, AnEarlierEndTakesTheBeginAlong) {
  EXPECT_EQ(Range(R"j({"type": "txtPeriod(2)", "text": "2023"}, {"leave": "txtPeriod(2)"})j"),
            "2023/3-2023/3");
  EXPECT_EQ(Range(R"j({"type": "txtPeriod(3)", "text": "2"}, {"leave": "txtPeriod(3)"})j"), "2024/2-2024/2");
}

TEST(PeriodFields, ARangeAcrossTheYearsStands) {
  EXPECT_EQ(Range(R"j({"type": "txtPeriod(2)", "text": "2025"}, {"leave": "txtPeriod(2)"},
      {"type": "txtPeriod(3)", "text": "1"}, {"leave": "txtPeriod(3)"})j"),
            "2024/3-2025/1");
}

TEST(PeriodFields, TheLastFieldIsCheckedBeforeAConfirmation) {
  const Json ran = InMarch("frmFilter147", R"j({"steps": [{"focus": "txtPeriod(1)"},
      {"type": "txtPeriod(1)", "text": "9"}, {"click": "cmdOK"}]})j");
  EXPECT_EQ(ran["Filter"]["BPeriod"], 9);
  EXPECT_EQ(ran["Filter"]["EPeriod"], 9);
  EXPECT_THAT(Boxes(ran), IsEmpty());
}

}  // namespace
}  // namespace salerpt::shell
