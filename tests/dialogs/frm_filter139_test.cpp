// The filter dialog of the order production and sales tracking, over the filter control.
#include "dialogs/frm_filter139.h"

#include <string>
#include <vector>

#include "tests/dialogs/dialog_suite.h"

namespace salerpt {
namespace {

using testing::ChosenRow;
using ::testing::Contains;
using testing::DialogSuiteTest;
using ::testing::ElementsAre;
using testing::FakeRef;
using ::testing::IsEmpty;
using ::testing::Not;
using testing::PlanValues;
using testing::RecordedBox;
using testing::RegisterFake;
using testing::RegisterList;
using testing::TextEntries;
using testing::TextRows;
using testing::Texts;

constexpr std::int32_t kFamily = 139;
const RuntimeError kServerDown(-3, "Server", "the server is down");

class FrmFilter139Test : public DialogSuiteTest {
 protected:
  FrmFilter139Test() { dialog_.SetRptID(kFamily); }

  [[nodiscard]] Form& OpenForm() {
    dialog_.Load();
    return dialog_.GetForm();
  }
  [[nodiscard]] ListControl& Box(std::string_view name) { return dialog_.GetForm().Get<ListControl>(name); }
  [[nodiscard]] CheckBox& Check(std::string_view name) { return dialog_.GetForm().Get<CheckBox>(name); }
  [[nodiscard]] TextBox& Field(int index) { return dialog_.GetForm().Get<TextBox>("txtItem", index); }
  void Press(std::string_view button) {
    Form& form = dialog_.GetForm();
    form.UserClick(form.Get<Button>(button));
  }
  void PressTool(std::string_view key) {
    auto& toolbar = dialog_.GetForm().Get<Toolbar>("tlbProject");
    toolbar.ButtonClick.Raise(*toolbar.Find(key));
  }
  [[nodiscard]] std::vector<int> Execution() {
    return {Check("chkUnexecuted").Value(), Check("chkPartialexecution").Value(),
            Check("chkFullyexecuted").Value()};
  }
  FrmFilter139 dialog_;
};

// --- What it gives the report

TEST_F(FrmFilter139Test, WritesTheWholeFilter) {
  dialog_.Load();
  EXPECT_EQ(dialog_.Result()->Get("OK"), Variant(false));
  dialog_.Confirm();
  EXPECT_EQ(dialog_.Filter(), dialog_.Result());
  EXPECT_EQ(Texts(*dialog_.Result()), (TextEntries{{"BDate", "2003-07-01"},
                                                   {"EDate", "2003-07-01"},
                                                   {"BEmp", ""},
                                                   {"EEmp", ""},
                                                   {"BItemNumber", ""},
                                                   {"EItemNumber", ""},
                                                   {"BClientNumber", ""},
                                                   {"EClientNumber", ""},
                                                   {"BDept", ""},
                                                   {"EDept", ""},
                                                   {"BBillNo", ""},
                                                   {"EBillNo", ""},
                                                   {"Unexecuted", "1"},
                                                   {"Partialexecution", "1"},
                                                   {"Fullyexecuted", "1"},
                                                   {"BLevel", "1"},
                                                   {"ELevel", "3"},
                                                   {"FSaleStyle", "4"},
                                                   {"GroupBy", "0"},
                                                   {"OnlyShowSum", "0"},
                                                   {"GroupByListIndex", "0"},
                                                   {"CheckState", "0"},
                                                   {"CheckClose", "2"},
                                                   {"CommodityType", "0"},
                                                   {"Mode", "0"},
                                                   {"ItemClassNumber", ""},
                                                   {"OK", "True"},
                                                   {"SumMode", "1"},
                                                   {"SumField", "(object)"},
                                                   {"exeStatusFilter", "True"}}));
  EXPECT_EQ(dialog_.Result()->Get("Mode"), Variant(0));
  EXPECT_EQ(dialog_.Result()->Get("ELevel"), Variant(3.0));
  EXPECT_EQ(Texts(*As<Dictionary>(dialog_.Result()->Get("SumField"))),
            (TextEntries{{"FPropID", "0"},
                         {"FSQLColumnName", "FName"},
                         {"FSrcTable", ""},
                         {"FSrcField", ""},
                         {"FDisplayField", ""},
                         {"FItemClassID", ""}}));
  EXPECT_TRUE(dialog_.IsUnloaded());
}

TEST_F(FrmFilter139Test, SavesTheWholePlan) {
  dialog_.Load();
  dialog_.Confirm();
  EXPECT_EQ(Saved("默认方案", kFamily), (PlanValues{{"BDate", "2003-07-01"},
                                                    {"EDate", "2003-07-01"},
                                                    {"BEmp", ""},
                                                    {"EEmp", ""},
                                                    {"BItemNumber", ""},
                                                    {"EItemNumber", ""},
                                                    {"BClientNumber", ""},
                                                    {"EClientNumber", ""},
                                                    {"BDept", ""},
                                                    {"EDept", ""},
                                                    {"BBillNo", ""},
                                                    {"EBillNo", ""},
                                                    {"Unexecuted", "1"},
                                                    {"Partialexecution", "1"},
                                                    {"Fullyexecuted", "1"},
                                                    {"BLevel", "1"},
                                                    {"ELevel", "3"},
                                                    {"FSaleStyle", "4"},
                                                    {"GroupBy", "0"},
                                                    {"OnlyShowSum", "0"},
                                                    {"GroupByListIndex", "0"},
                                                    {"CheckState", "0"},
                                                    {"CheckClose", "2"},
                                                    {"CommodityType", "0"}}));
}

TEST_F(FrmFilter139Test, TellsTheConditionOfTheRangesChosen) {
  dialog_.Load();
  for (const int index : {2, 4, 5, 9}) Field(index).SetText(Join("c", index));
  Field(1).SetText("O'Neil");
  dialog_.Confirm();
  EXPECT_EQ(dialog_.FilterString(),
            "SEOrder.FDate>='2003-07-01' And SEOrder.FDate<='2003-07-01' And te.FNumber<='O''Neil' "
            "And t1.FNumber>='c2' And tc.FNumber>='c4' And tc.FNumber<='c5' And SEOrder.FBillNo<='c9'");
}

TEST_F(FrmFilter139Test, StoresApostrophesDoubledAndFiltersByThemSingle) {
  dialog_.Load();
  Field(0).SetText("O'Neil");
  Field(8).SetText("SO'1''2");
  dialog_.Confirm();
  EXPECT_THAT(Saved("默认方案", kFamily), Contains(std::pair<std::string, std::string>("BEmp", "O''Neil")));
  EXPECT_THAT(Saved("默认方案", kFamily),
              Contains(std::pair<std::string, std::string>("BBillNo", "SO''1''''2")));
  EXPECT_EQ(dialog_.Result()->Get("BEmp"), Variant("O'Neil"));
  EXPECT_EQ(dialog_.Result()->Get("BBillNo"), Variant("SO'1''2"));
  EXPECT_EQ(FrmFilter139::ReplaceSpecailSql("O'Neil''s"), "O''Neil''''s");
}

TEST_F(FrmFilter139Test, AGroupedReportHasNoExecutionFilter) {
  for (const char* name : {"chkGroupBy", "chkOnlyShowSum"}) {
    FrmFilter139 dialog;
    dialog.Load();
    dialog.GetForm().Get<CheckBox>(name).SetValue(1);
    dialog.Confirm();
    EXPECT_EQ(dialog.Result()->Get("exeStatusFilter"), Variant(false)) << name;
    EXPECT_EQ(dialog.Result()->Get("Unexecuted"), Variant(1)) << name;
  }
}

TEST_F(FrmFilter139Test, WithoutARowThereIsNothingToSumBy) {
  dialog_.Load();
  Box("cmbGroupBy").SetListIndex(-1);
  dialog_.Confirm();
  EXPECT_EQ(dialog_.Result()->Get("OK"), Variant(true));
  EXPECT_EQ(dialog_.Result()->Get("SumMode"), Variant(0));
  EXPECT_FALSE(dialog_.Result()->Lookup("SumField"));
}

TEST_F(FrmFilter139Test, RefusesGroupingByNothing) {
  dialog_.Load();
  Check("chkGroupBy").SetValue(1);
  Box("cmbGroupBy").SetListIndex(-1);
  Press("cmdOK");
  EXPECT_THAT(toolkit_->boxes, ElementsAre(RecordedBox{"汇总依据不能为空", 64, "青岚提示"}));
  EXPECT_EQ(dialog_.Result()->Get("OK"), Variant(false));
  EXPECT_FALSE(dialog_.IsUnloaded());
  EXPECT_THAT(saved_, IsEmpty());
  Box("cmbGroupBy").SetListIndex(0);
  Press("cmdOK");
  EXPECT_EQ(dialog_.Result()->Get("OK"), Variant(true));
  EXPECT_TRUE(dialog_.IsUnloaded());
}

TEST_F(FrmFilter139Test, ACancelledDialogIsNotOk) {
  dialog_.Load();
  Press("cmdCacel");
  EXPECT_TRUE(dialog_.IsUnloaded());
  EXPECT_EQ(dialog_.Filter()->Get("OK"), Variant(false));
  EXPECT_THAT(saved_, IsEmpty());
}

TEST_F(FrmFilter139Test, ALevelOf0Becomes1) {
  dialog_.Load();
  dialog_.GetForm().Get<TextBox>("txtlevel(1)").SetText("0");
  dialog_.Confirm();
  EXPECT_EQ(dialog_.Result()->Get("BLevel"), Variant(1.0));
  EXPECT_EQ(dialog_.Result()->Get("ELevel"), Variant(1.0));
}

TEST_F(FrmFilter139Test, TheTestSwitchDoesNotConfirmIt) {
  folder_.Write("C:\\RptTest.Ini", "[Para]\r\nDebug=1\r\n");
  dialog_.Load();
  dialog_.Activate();
  EXPECT_FALSE(dialog_.IsUnloaded());
}

TEST_F(FrmFilter139Test, OpensAndConfirmsWithoutAMiddleTier) {
  for (const char* member : {"GetPlanList", "GetPlanValue", "SaveProfile"}) {
    profile_->Raises(member, kServerDown);
  }
  sale_data_->Raises("GetItemMaxLevel", kServerDown);
  dialog_.Load();
  EXPECT_EQ(dialog_.CurrentPlan(), "默认方案");
  dialog_.Confirm();
  EXPECT_EQ(dialog_.Result()->Get("OK"), Variant(true));
  EXPECT_EQ(dialog_.Result()->Get("ELevel"), Variant(5.0));
}

// --- Rules

TEST_F(FrmFilter139Test, OneStateOfExecutionStaysChecked) {
  dialog_.Load();
  Check("chkUnexecuted").SetValue(0);
  Check("chkFullyexecuted").SetValue(0);
  EXPECT_THAT(Execution(), ElementsAre(0, 1, 0));
  Check("chkPartialexecution").SetValue(0);
  EXPECT_THAT(Execution(), ElementsAre(0, 1, 0));
}

TEST_F(FrmFilter139Test, GroupingTakesTheExecutionAway) {
  const Form& form = OpenForm();
  const auto is_available = [&form] {
    const bool all = form.Get<Frame>("ExecuteStatus").IsAvailable() &&
                     form.Get<CheckBox>("chkUnexecuted").IsAvailable() &&
                     form.Get<CheckBox>("chkPartialexecution").IsAvailable() &&
                     form.Get<CheckBox>("chkFullyexecuted").IsAvailable();
    return all;
  };
  EXPECT_TRUE(is_available());
  for (const char* name : {"chkGroupBy", "chkOnlyShowSum"}) {
    Check(name).SetValue(1);
    EXPECT_FALSE(is_available()) << name;
    Check(name).SetValue(0);
    EXPECT_TRUE(is_available()) << name;
  }
}

TEST_F(FrmFilter139Test, AnOrderThatIsNotAuditedIsOpen) {
  dialog_.Load();
  Box("cmbCheckState").SetListIndex(1);
  EXPECT_EQ(Box("cmbCheckClose").Text(), "未关闭");
  EXPECT_FALSE(Box("cmbCheckClose").enabled);
  Box("cmbCheckState").SetListIndex(2);
  EXPECT_EQ(Box("cmbCheckClose").Text(), "未关闭");
  EXPECT_TRUE(Box("cmbCheckClose").enabled);
}

// --- Plans

TEST_F(FrmFilter139Test, RestoresAPlan) {
  plans_["月报"] = {
      {"BDate", "2003-06-01"},   {"EDate", "2003-06-30"},   {"BItemNumber", "01"},  {"EBillNo", "SO'9"},
      {"Unexecuted", "1"},       {"Partialexecution", "0"}, {"Fullyexecuted", "0"}, {"BLevel", "2"},
      {"ELevel", "3"},           {"FSaleStyle", "1"},       {"GroupBy", "1"},       {"OnlyShowSum", "1"},
      {"GroupByListIndex", "0"}, {"CheckState", "1"},       {"CheckClose", "2"},    {"CommodityType", "2"}};
  dialog_.ShowFinish("月报");
  const Dictionary& result = *dialog_.Result();
  EXPECT_EQ(dialog_.CurrentPlan(), "月报");
  EXPECT_EQ(result.Get("BDate"), Variant("2003-06-01"));
  EXPECT_EQ(result.Get("EDate"), Variant("2003-06-30"));
  EXPECT_EQ(result.Get("BItemNumber"), Variant("01"));
  EXPECT_EQ(result.Get("EBillNo"), Variant("SO'9"));
  EXPECT_THAT(Execution(), ElementsAre(1, 0, 0));
  EXPECT_EQ(result.Get("BLevel"), Variant(2.0));
  EXPECT_EQ(result.Get("ELevel"), Variant(3.0));
  EXPECT_EQ(result.Get("FSaleStyle"), Variant(1));
  EXPECT_EQ(result.Get("GroupBy"), Variant(1));
  EXPECT_EQ(result.Get("OnlyShowSum"), Variant(1));
  EXPECT_EQ(result.Get("CommodityType"), Variant(2));
  EXPECT_EQ(result.Get("exeStatusFilter"), Variant(false));
  // The audit state holds the closing against the plan.
  EXPECT_EQ(result.Get("CheckClose"), Variant(1));
  EXPECT_FALSE(Box("cmbCheckClose").enabled);
  // A confirmation leaves a named plan alone.
  EXPECT_THAT(saved_, IsEmpty());
}

TEST_F(FrmFilter139Test, WhatAPlanLacksIsEmptyOr0) {
  plans_["默认方案"] = {{"EDept", "02"}};
  dialog_.Load();
  dialog_.Confirm();
  const Dictionary& result = *dialog_.Result();
  EXPECT_EQ(result.Get("EDept"), Variant("02"));
  EXPECT_EQ(result.Get("BDate"), Variant("2003-07-01"));
  EXPECT_EQ(result.Get("FSaleStyle"), Variant(0));
  EXPECT_EQ(result.Get("CheckClose"), Variant(0));
  EXPECT_EQ(result.Get("BLevel"), Variant(1.0));
  EXPECT_THAT(Execution(), ElementsAre(0, 0, 1));
}

TEST_F(FrmFilter139Test, LeavesOutWhatAControlDoesNotTake) {
  plans_["默认方案"] = {{"FSaleStyle", "9"}, {"GroupBy", "7"}, {"BDate", "soon"}, {"CommodityType", "1"}};
  dialog_.Load();
  EXPECT_EQ(Box("cmbFSaleStyle").ListIndex(), 4);
  EXPECT_EQ(Check("chkGroupBy").Value(), 0);
  EXPECT_EQ(dialog_.GetForm().Get<DatePicker>("DtpBDate").Text(), "2003-07-01");
  EXPECT_EQ(Box("cmbCommodityType").ListIndex(), 1);
}

TEST_F(FrmFilter139Test, ClearEmptiesTheCodesAndResetsTheChoices) {
  dialog_.Load();
  Field(0).SetText("a");
  Field(9).SetText("b");
  Box("cmbFSaleStyle").SetListIndex(0);
  Box("cmbCheckState").SetListIndex(1);
  Box("cmbCommodityType").SetListIndex(2);
  Check("chkGroupBy").SetValue(1);
  Check("chkOnlyShowSum").SetValue(1);
  Check("chkUnexecuted").SetValue(0);
  Box("cmbGroupBy").SetListIndex(-1);
  PressTool("TLBCLEAR");
  EXPECT_EQ(Field(0).Text(), "");
  EXPECT_EQ(Field(9).Text(), "");
  EXPECT_EQ(Box("cmbFSaleStyle").Text(), "全部");
  EXPECT_EQ(Box("cmbCheckState").ListIndex(), 0);
  EXPECT_EQ(Box("cmbCheckClose").ListIndex(), 2);
  EXPECT_TRUE(Box("cmbCheckClose").enabled);
  EXPECT_EQ(Box("cmbCommodityType").ListIndex(), 0);
  EXPECT_EQ(Box("cmbGroupBy").ListIndex(), 0);
  EXPECT_EQ(Check("chkGroupBy").Value(), 0);
  EXPECT_EQ(Check("chkOnlyShowSum").Value(), 0);
  EXPECT_TRUE(dialog_.GetForm().Get<Frame>("ExecuteStatus").enabled);
  EXPECT_THAT(Execution(), ElementsAre(0, 1, 1));
}

TEST_F(FrmFilter139Test, APlanThatIsNotStoredShowsTheStartValues) {
  plans_["月报"] = {{"EDept", "02"}, {"FSaleStyle", "1"}};
  Form& form = OpenForm();
  form.Get<ListView>("lvwProject").UserClick("月报");
  EXPECT_EQ(Field(7).Text(), "02");
  form.Get<ListView>("lvwProject").UserClick("默认方案");
  EXPECT_EQ(Field(7).Text(), "");
  EXPECT_EQ(Box("cmbFSaleStyle").ListIndex(), 4);
  EXPECT_THAT(Execution(), ElementsAre(1, 1, 1));
  EXPECT_EQ(form.Get<TextBox>("txtlevel(1)").Text(), "3");
}

// --- Look-ups

TEST_F(FrmFilter139Test, LooksUpByTheClassOfTheField) {
  dialog_.Load();
  Pick("01.02");
  std::vector<int> classes;
  std::vector<std::string> conditions;
  for (const int index : {0, 1, 2, 3, 4, 5, 6, 7}) {
    Press(ControlName("cmdItem", index));
    EXPECT_EQ(Field(index).Text(), "01.02") << index;
    classes.push_back(view_->Calls().back().arguments.at(0).ToInt32());
    conditions.push_back(view_->Calls().back().arguments.at(2).ToText());
  }
  EXPECT_THAT(classes, ElementsAre(3, 3, 4, 4, 1, 1, 2, 2));
  EXPECT_THAT(conditions, ElementsAre("", "", " x2.FErpClsID <>1 ", " x2.FErpClsID <>1 ", "", "", "", ""));
}

TEST_F(FrmFilter139Test, AFunctionKeyOpensTheLookUpTooAndACancelledOneLeavesTheField) {
  Form& form = OpenForm();
  Field(4).SetText("09");
  for (const int key : {key_code::kF7, key_code::kF8}) {
    const std::size_t calls = view_->Calls().size();
    form.PressKey(Field(4), key);
    EXPECT_EQ(view_->Calls().size(), calls + 1);
  }
  form.PressKey(Field(4), key_code::kF9);
  EXPECT_EQ(view_->CalledMembers().size(), 2U);
  EXPECT_EQ(Field(4).Text(), "09");
}

class TrackingListTest : public FrmFilter139Test {
 protected:
  TrackingListTest() {
    RegisterFake(runtime_, "ADODB.Connection")
        ->Gives("Open", Variant())
        .Gives("Close", Variant())
        .Gives("ConnectionString", "as opened");
    RegisterFake(runtime_, "ORVPropsMgr.ShareProps")->Gives("DelProperty", Variant());
    shop_->Gives("GetData", TextRows({"FBillNo"}, {{"SO-7"}}));
    auto rows = std::make_shared<Vector>();
    rows->Add(ChosenRow("FInterID", 7));
    list_->Gives("Selected", rows);
    toolkit_->user = [](ListForm& form) { form.OnAction("SelectOK"); };
  }
  FakeRef list_ = RegisterList(runtime_);
  FakeRef shop_ = RegisterFake(runtime_, "ORVMShopRpt.Data");
};

TEST_F(TrackingListTest, TheOrderNumberComesFromTheListAlone) {
  dialog_.Load();
  Press("cmdItem(8)");
  EXPECT_EQ(Field(8).Text(), "SO-7");
  EXPECT_EQ(shop_->Calls().back().arguments.at(1), Variant("Select FBillNo From SEOrder Where FInterID=7"));
  EXPECT_THAT(view_->CalledMembers(), IsEmpty());
  EXPECT_THAT(sale_data_->CalledMembers(), Not(Contains("GetData")));
}

TEST_F(TrackingListTest, WorkOrdersHaveAListOfTheirOwn) {
  EXPECT_EQ(FrmFilter139::SelectList(36, ""), "SO-7");
  EXPECT_EQ(shop_->Calls().back().arguments.at(1), Variant("Select FBillNo From ICMO Where FInterID=7"));
  EXPECT_EQ(FrmFilter139::SelectList(33, ""), std::nullopt);
}

TEST_F(TrackingListTest, ACancelledListLeavesTheField) {
  toolkit_->user = [](ListForm& form) { form.OnAction("Exit"); };
  dialog_.Load();
  Field(9).SetText("SO-1");
  Press("cmdItem(9)");
  EXPECT_EQ(Field(9).Text(), "SO-1");
}

// --- A host without a person

TEST_F(FrmFilter139Test, ShowsWhatAHostChooses) {
  dialog_.Load();
  EXPECT_TRUE(dialog_.Choose("BDate", "2003-06-01"));
  EXPECT_TRUE(dialog_.Choose("bdept", "O'Neil"));
  EXPECT_TRUE(dialog_.Choose("GroupBy", 1));
  EXPECT_TRUE(dialog_.Choose("SumMode", 1));
  EXPECT_TRUE(dialog_.Choose("ELevel", 2.0));
  EXPECT_TRUE(dialog_.Choose("Fullyexecuted", 0));
  EXPECT_FALSE(dialog_.Choose("FSaleStyle", 9));
  EXPECT_FALSE(dialog_.Choose("SumMode", 2));
  EXPECT_FALSE(dialog_.Choose("ItemClassNumber", "01"));
  dialog_.Confirm();
  EXPECT_EQ(dialog_.Result()->Get("BDate"), Variant("2003-06-01"));
  EXPECT_EQ(dialog_.Result()->Get("BDept"), Variant("O'Neil"));
  EXPECT_EQ(dialog_.Result()->Get("GroupBy"), Variant(1));
  EXPECT_EQ(dialog_.Result()->Get("ELevel"), Variant(2.0));
  EXPECT_EQ(dialog_.Result()->Get("FSaleStyle"), Variant(4));
  EXPECT_THAT(Execution(), ElementsAre(1, 1, 0));
}

}  // namespace
}  // namespace salerpt
