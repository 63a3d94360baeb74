// Plans in the outbound summary's dialog: toolbar, list, restoring, finishing without a screen.
#include "tests/shell/dialogs/ran_dialog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace salerpt::shell {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kDialog = "frmFirter128";

TEST(Frm128Save, UnderTheDefaultAsksForANameAndSelectsThePlan) {
  const Json ran = Ran(kDialog, R"j({"RptID": 166, "replies": [" 月报 "], "steps": [
      {"type": "txtItem(0)", "text": "1"}, {"tool": "TLBSAVE"}]})j");
  EXPECT_THAT(Inputs(ran), ElementsAre("请输入方案名： | 保存方案"));
  EXPECT_THAT(Boxes(ran), IsEmpty());
  EXPECT_THAT(SavedPlan(ran),
              ElementsAre("166/月报", "BDate=2024-03-15", "EDate=2024-03-15", "BItem=1",
                          "EItem=", "BCustomer=", "ECustomer=", "BLevel=1", "ELevel=4", "chkGroupBy=1",
                          "OnlyShowSum=1", "GroupByListIndex=0", "CheckState=0", "OrderBy=FNumber ASC",
                          "FROB=0", "chkNextChoose=0", "SaleTypeListIndex=0", "CommodityType=0"));
  EXPECT_THAT(Calls(ran), ElementsAre("GetPlanList", "GetPlanValue 默认方案", "UpdateNextChooseValue",
                                      "SaveProfile", "GetPlanList"));
  EXPECT_EQ(ran["CurrentPlan"], "月报");
  EXPECT_EQ(Items(ran, "lvwProject"), R"j([["默认方案",1],["月报",1]])j");
  EXPECT_EQ(Text(ran, "lvwProject"), "月报");
  EXPECT_FALSE(ran["closed"]);
}

TEST(Frm128Save, ACancelledInputBoxSavesNothing) {
  const Json ran = Ran(kDialog, R"j({"replies": [""], "steps": [{"tool": "TLBSAVE"}]})j");
  EXPECT_THAT(Inputs(ran), ElementsAre("请输入方案名： | 保存方案"));
  EXPECT_THAT(Calls(ran), ElementsAre("GetPlanList", "GetPlanValue 默认方案"));
  EXPECT_EQ(ran["CurrentPlan"], "默认方案");
}

TEST(Frm128Save, ANameOfBlanksSavesNothing) {
  EXPECT_THAT(SavedPlans(Ran(kDialog, R"j({"replies": ["   "], "steps": [{"tool": "TLBSAVE"}]})j")),
              IsEmpty());
}

TEST(Frm128Save, UnderTheNameOfTheDefaultStoresTheDefaultPlan) {
  const Json ran = Ran(kDialog, R"j({"replies": ["默认方案"], "steps": [{"tool": "TLBSAVE"}]})j");
  EXPECT_EQ(SavedPlan(ran).at(0), "900/默认方案");
  EXPECT_EQ(Items(ran, "lvwProject"), R"j([["默认方案",1]])j");
  EXPECT_EQ(Text(ran, "lvwProject"), "默认方案");
}

TEST(Frm128Save, ApostrophesOfANameAreDoubled) {
  const Json ran = Ran(kDialog, R"j({"replies": ["a'b"], "steps": [{"tool": "TLBSAVE"}]})j");
  EXPECT_EQ(SavedPlan(ran).at(0), "900/a''b");
  EXPECT_EQ(ran["CurrentPlan"], "a''b");
  EXPECT_EQ(Text(ran, "lvwProject"), "a''b");
}

TEST(Frm128Save, ANamedPlanIsOverwrittenOnYes) {
  const Json ran = Ran(kDialog, R"j({"plans": {"月报": {}, "status": "月报"}, "replies": ["Yes"], "steps": [
      {"type": "txtItem(0)", "text": "7"}, {"tool": "TLBSAVE"}]})j");
  EXPECT_THAT(Boxes(ran), ElementsAre("是否覆盖原方案？ | 青岚提示 | 68"));
  EXPECT_THAT(Inputs(ran), IsEmpty());
  EXPECT_EQ(SavedPlan(ran).at(0), "900/月报");
  EXPECT_EQ(SavedPlan(ran).at(3), "BItem=7");
  EXPECT_EQ(Text(ran, "lvwProject"), "月报");
}

TEST(Frm128Save, OnNoItAsksForAnotherName) {
  const Json ran = Ran(kDialog, R"j({"plans": {"月报": {}, "status": "月报"}, "replies": ["No", "周报"],
      "steps": [{"tool": "TLBSAVE"}]})j");
  EXPECT_THAT(Inputs(ran), ElementsAre("请输入方案名： | 另存为"));
  EXPECT_EQ(SavedPlan(ran).at(0), "900/周报");
  EXPECT_EQ(Items(ran, "lvwProject"), R"j([["默认方案",1],["月报",1],["周报",1]])j");
  EXPECT_EQ(Text(ran, "lvwProject"), "周报");
  EXPECT_EQ(ran["CurrentPlan"], "周报");
}

TEST(Frm128Save, OnNoAndACancelledNameNothingIsSaved) {
  const Json ran = Ran(kDialog, R"j({"plans": {"月报": {}, "status": "月报"}, "replies": ["No", ""],
      "steps": [{"tool": "TLBSAVE"}]})j");
  EXPECT_THAT(SavedPlans(ran), IsEmpty());
  EXPECT_EQ(ran["CurrentPlan"], "月报");
}

TEST(Frm128Save, AFailingStoreSaysNothing) {
  const Json ran = Ran(kDialog, R"j({"replies": ["月报"], "steps": [{"tool": "TLBSAVE"}], "faults": {
      "SaveProfile": {"number": -1, "source": "s", "description": "d"}}})j");
  EXPECT_THAT(Boxes(ran), IsEmpty());
  EXPECT_FALSE(ran["closed"]);
  EXPECT_EQ(Items(ran, "lvwProject"), R"j([["默认方案",1]])j");
}

TEST(Frm128Delete, TheDefaultPlanIsProtected) {
  const Json ran = Ran(kDialog, R"j({"steps": [{"tool": "TLBDEL"}]})j");
  EXPECT_THAT(Boxes(ran), ElementsAre("不能删除默认方案！ | 青岚提示 | 64"));
  EXPECT_THAT(Calls(ran), ElementsAre("GetPlanList", "GetPlanValue 默认方案"));
}

TEST(Frm128Delete, TheLastNamedPlanLeavesTheDefaultSelectedAndLoaded) {
  const Json ran =
      Ran(kDialog, R"j({"plans": {"默认方案": {"BItem": "9"}, "月报": {"BItem": "1"}, "status": "月报"},
      "replies": ["Yes"], "steps": [{"tool": "TLBDEL"}]})j");
  EXPECT_THAT(Boxes(ran), ElementsAre("是否要删除方案[月报]？ | 青岚提示 | 68"));
  EXPECT_THAT(Calls(ran), ElementsAre("GetPlanList", "GetPlanValue 月报", "DelPlan 月报", "GetPlanList",
                                      "GetPlanValue 默认方案"));
  EXPECT_EQ(Items(ran, "lvwProject"), R"j([["默认方案",1]])j");
  EXPECT_EQ(ran["CurrentPlan"], "默认方案");
  EXPECT_EQ(Text(ran, "txtItem(0)"), "9");
}

TEST(Frm128Delete, OtherPlansStayAndTheFirstRowIsLoaded) {
  const Json ran = Ran(kDialog, R"j({"plans": {"月报": {}, "周报": {}, "status": "周报"},
      "replies": ["Yes"], "steps": [{"tool": "TLBDEL"}]})j");
  EXPECT_EQ(Items(ran, "lvwProject"), R"j([["默认方案",1],["月报",1]])j");
  EXPECT_EQ(Text(ran, "lvwProject"), "默认方案");
}

TEST(Frm128Delete, AnythingButYesKeepsThePlan) {
  for (const char* replies : {R"j(["No"])j", "[]"}) {
    const Json ran = Ran(kDialog, std::string(R"j({"plans": {"月报": {}, "status": "月报"},
        "steps": [{"tool": "TLBDEL"}], "replies": )j") +
                                      replies + "}");
    EXPECT_THAT(Calls(ran), ElementsAre("GetPlanList", "GetPlanValue 月报"));
    EXPECT_EQ(Text(ran, "lvwProject"), "月报");
  }
}

TEST(Frm128Clear, EmptiesTheCodeFieldsAlone) {
  const Json ran = Ran(kDialog, R"j({"steps": [{"date": "DtpBDate", "value": "2024-01-01"},
      {"type": "txtItem(0)", "text": "1"}, {"type": "txtItem(1)", "text": "2"},
      {"type": "txtItem(2)", "text": "3"}, {"type": "txtItem(3)", "text": "4"},
      {"type": "txtlevel(1)", "text": "2"}, {"select": "cmbFROB", "index": 1}, {"tool": "TLBCLEAR"}]})j");
  for (const char* field : {"txtItem(0)", "txtItem(1)", "txtItem(2)", "txtItem(3)"}) {
    EXPECT_EQ(Text(ran, field), "") << field;
  }
  EXPECT_EQ(Shown(ran, "DtpBDate")["value"], "2024-01-01");
  EXPECT_EQ(Text(ran, "txtlevel(1)"), "2");
  EXPECT_EQ(Shown(ran, "cmbFROB")["listIndex"], 1);
  EXPECT_THAT(Calls(ran), ElementsAre("GetPlanList", "GetPlanValue 默认方案"));
}

TEST(Frm128View, TheButtonGoesRoundAndTheMenuSetsWhereItGoesOn) {
  const Json ran = Ran(kDialog, R"j({"steps": [{"state": "0"},
      {"tool": "TLBVIEW"}, {"state": "1"}, {"tool": "TLBVIEW"}, {"state": "2"}, {"tool": "TLBVIEW"},
      {"state": "3"}, {"tool": "TLBVIEW"}, {"state": "4"}, {"menu": 3}, {"state": "menu"},
      {"tool": "TLBVIEW"}, {"state": "after"}, {"menu": 1}]})j");
  EXPECT_EQ(Shown(ran, "0", "lvwProject")["view"], 0);
  EXPECT_EQ(Shown(ran, "1", "lvwProject")["view"], 1);
  EXPECT_EQ(Shown(ran, "2", "lvwProject")["view"], 2);
  EXPECT_EQ(Shown(ran, "3", "lvwProject")["view"], 3);
  EXPECT_EQ(Shown(ran, "4", "lvwProject")["view"], 0);
  EXPECT_EQ(Shown(ran, "menu", "lvwProject")["view"], 2);
  EXPECT_EQ(Shown(ran, "menu", "tlbProject")["items"][3].dump(), R"j(["TLBVIEW",2])j");
  EXPECT_EQ(Shown(ran, "after", "lvwProject")["view"], 3);
  EXPECT_EQ(Shown(ran, "lvwProject")["view"], 0);
}

constexpr const char* kStored =
    R"j({"RptID": 166, "plans": {"月报": {"BDate": "2023-01-02", "EDate": "2023-02-03",
    "BItem": "a", "EItem": "b", "BCustomer": "c", "ECustomer": "d", "BLevel": "2", "ELevel": "3",
    "chkGroupBy": "0", "OnlyShowSum": "0", "GroupByListIndex": "1", "CheckState": "2",
    "OrderBy": "FOutAmount DESC,FNumber ASC", "FROB": "1", "chkNextChoose": "1", "SaleTypeListIndex": "2",
    "CommodityType": "2"}},)j";
constexpr const char* kRestored = R"j({"OK": true, "BDate": "2023-01-02", "EDate": "2023-02-03",
    "BItemNumber": "a", "EItemNumber": "b", "BCustNumber": "c", "ECustNumber": "d", "GroupBy": 0,
    "OnlyShowSum": 0, "BLevel": 2, "ELevel": 3, "SumMode": 2, "SumName": "客户类别", "SaleType": 20298,
    "SaleTypeName": "委托代销",
    "SumField": {"FPropID": 0, "FSQLColumnName": "FName", "FSrcTable": "", "FSrcField": "",
                 "FDisplayField": ""},
    "FROB": 1, "CheckState": 2, "chkNextChoose": 1, "CommodityType": 2,
    "Orderby": "FOutAmount DESC,FNumber ASC"})j";

TEST(Frm128Plan, AClickRestoresEveryKeyAndConfirmingLeavesThePlanAsItIs) {
  const Json ran =
      Ran(kDialog, std::string(kStored) +
                       R"j("steps": [{"plan": "月报"}, {"state": "loaded"}, {"click": "cmdOK"}]})j");
  EXPECT_EQ(Filter(ran), InOrder(kRestored));
  EXPECT_EQ(ran["CurrentPlan"], "月报");
  EXPECT_THAT(SavedPlans(ran), IsEmpty());
  EXPECT_THAT(SortRows(ran["states"]["loaded"]),
              ElementsAre("出库金额/0/1/FOutAmount", "产品代码/1/0/FNumber"));
  EXPECT_EQ(Shown(ran, "loaded", "Frame1")["enabled"], false);
}

TEST(Frm128Plan, AClickOnTheDefaultTakesTheDefaultsBack) {
  const Json ran =
      Ran(kDialog, std::string(kStored) +
                       R"j("steps": [{"plan": "月报"}, {"plan": "默认方案"}, {"click": "cmdOK"}]})j");
  EXPECT_EQ(ran["Filter"]["BDate"], "2024-03-15");
  EXPECT_EQ(ran["Filter"]["BItemNumber"], "");
  EXPECT_EQ(ran["Filter"]["GroupBy"], 1);
  EXPECT_EQ(ran["Filter"]["SumMode"], 1);
  EXPECT_EQ(ran["Filter"]["Orderby"], "FNumber ASC");
  EXPECT_EQ(SavedPlan(ran).at(0), "166/默认方案");
}

TEST(Frm128Plan, AFinishConfirmsAStoredPlan) {
  const Json ran = Ran(kDialog, std::string(kStored) + R"j("steps": [{"finish": "月报"}]})j");
  EXPECT_EQ(Filter(ran), InOrder(kRestored));
  EXPECT_THAT(SavedPlans(ran), IsEmpty());
  EXPECT_THAT(Calls(ran), Contains("GetPlanValue 月报"));
  EXPECT_THAT(Boxes(ran), IsEmpty());
}

TEST(Frm128Plan, AFinishWithReversedDatesShowsTheBoxAndAnswersNothing) {
  const Json ran = Ran(kDialog, R"j({"plans": {"月报": {"BDate": "2024-02-01", "EDate": "2024-01-31"}},
      "steps": [{"finish": "月报"}]})j");
  EXPECT_THAT(Boxes(ran), ElementsAre("起始日期不能大于截止日期! | 青岚提示： | 64"));
  EXPECT_EQ(Filter(ran), R"j({"OK":false})j");
  EXPECT_EQ(Shown(ran, "DtpBDate")["value"], "2024-01-31");
}

TEST(Frm128Plan, APlanThatIsNotStoredFallsToTheDefaults) {
  const Json ran = Ran(kDialog, R"j({"steps": [{"finish": "x'y"}]})j");
  EXPECT_EQ(ran["Filter"]["OK"], true);
  EXPECT_EQ(ran["Filter"]["BDate"], "2024-03-15");
  EXPECT_THAT(Calls(ran), Contains("GetPlanValue x''y"));
  EXPECT_THAT(SavedPlans(ran), IsEmpty());
}

TEST(Frm128Plan, AStoredNullIsAnEmptyTextAndNotTheDefault) {
  const Json ran = Ran(kDialog, R"j({"plans": {"默认方案": {"OrderBy": null, "BItem": null}}})j");
  EXPECT_EQ(ran["Filter"]["Orderby"], "");
  EXPECT_EQ(ran["Filter"]["BItemNumber"], "");
}

TEST(Frm128Plan, AConfirmationAfterSavingANamedPlanLeavesTheDefaultAlone) {
  const Json ran = Ran(kDialog, R"j({"replies": ["月报"], "steps": [{"tool": "TLBSAVE"},
      {"type": "txtItem(0)", "text": "5"}, {"click": "cmdOK"}]})j");
  EXPECT_EQ(SavedPlans(ran).size(), 1U);
  EXPECT_EQ(ran["Filter"]["BItemNumber"], "5");
}

}  // namespace
}  // namespace salerpt::shell
