// The plan list of the dialogs: who asks what, what is saved, what comes back.
#include "dialogs/plan_pane.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "dialogs/scheme_pane.h"
#include "tests/dialogs/stored_plans.h"
#include "tests/runtime/error_check.h"

namespace salerpt {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::RecordedBox;
using testing::StoredPlansWorld;
using Boxes = std::vector<RecordedBox>;
using Calls = std::vector<std::string>;

constexpr const char* kDefault = "默认方案";

// A dialog of two code fields and a box.
class SmallDialog final : public PlanOwner {
 public:
  explicit SmallDialog(Form& form)
      : begin(form.Add<TextBox>("txtItem(0)")),
        end(form.Add<TextBox>("txtItem(1)")),
        check(form.Add<CheckBox>("chkGroupBy")) {}
  [[nodiscard]] std::int32_t RptID() const override { return 166; }
  void CollectPlan(std::string_view plan, Vector& rows) override {
    AddPlanRow(rows, 166, plan, "BItem", begin.Text());
    AddPlanRow(rows, 166, plan, "chkGroupBy", Join(check.Value()));
  }
  void RestorePlan(const RecordsetRef& rows) override {
    ++restored;
    begin.SetText(PlanKeyValue(rows, "BItem", ""));
    check.SetValue(PlanKeyValue(rows, "chkGroupBy", "1") == "1" ? 1 : 0);
  }
  TextBox& begin;
  TextBox& end;
  CheckBox& check;
  int restored = 0;
};

template <typename Pane>
class PlanPaneWorld : public ::testing::Test {
 protected:
  template <typename... A>
  Pane& Open(A... arguments) {
    pane_ = std::make_unique<Pane>(form_, dialog_, arguments...);
    pane_->ApplyStrings();
    pane_->Load();
    static_cast<void>(world_.store.TakeCalls());
    return *pane_;
  }
  ListView& List() {
    auto* list = form_.FindAs<ListView>("lvwProject");
    return list == nullptr ? form_.Get<ListView>("LvwScheme") : *list;
  }
  Toolbar& Bar() { return form_.Get<Toolbar>("tlbProject"); }
  Toolbar::ToolButton& View() { return *Bar().Find("TLBVIEW"); }
  void Press(std::string_view key) { Bar().ButtonClick.Raise(*Bar().Find(key)); }
  std::vector<std::string> Texts() {
    std::vector<std::string> texts;
    for (const ListView::Row& row : List().Rows())
      texts.push_back(Join(row.key, "=", row.text, " ", row.icon));
    return texts;
  }
  std::vector<std::string> ToolTips() {
    std::vector<std::string> tips;
    for (const auto& button : Bar().buttons) tips.push_back(Join(button.key, " ", button.tool_tip));
    return tips;
  }
  Calls StoreCalls() { return world_.store.TakeCalls(); }
  testing::AnsweringToolkit& User() { return *world_.toolkit; }

  StoredPlansWorld world_;
  Form form_;
  SmallDialog dialog_{form_};
  std::unique_ptr<Pane> pane_;
};

using PlanPaneTest = PlanPaneWorld<PlanPane>;
using SchemePaneTest = PlanPaneWorld<SchemePane>;
using Kind = PlanPane::Kind;

// --- Load

TEST_F(PlanPaneTest, ShowsItsTexts) {
  Open(Kind::kCurrent);
  EXPECT_THAT(ToolTips(), ElementsAre("TLBSAVE 保存", "TLBDEL 删除", "TLBCLEAR 清除", "TLBVIEW 查看"));
  EXPECT_THAT(View().menu, ElementsAre("大图标(&G)", "小图标(&M)", "列表(&L)", "详细资料(&D)"));
  EXPECT_EQ(List().column_header, "方案");
  EXPECT_EQ(form_.Get<Label>("lblProject").caption, "方案：");
}

TEST_F(PlanPaneTest, OpensOnTheChosenPlan) {
  world_.store.plans = {{"a", {{"BItem", "01"}}, 0}, {"b", {{"BItem", "02"}, {"chkGroupBy", "0"}}, 1}};
  const PlanPane& pane = Open(Kind::kCurrent);
  EXPECT_THAT(Texts(), ElementsAre("默认方案=默认方案 1", "Pa=a 1", "Pb=b 1"));
  EXPECT_EQ(List().SelectedText(), "b");
  EXPECT_EQ(List().view, 0);
  EXPECT_EQ(View().tag, 0);
  EXPECT_EQ(pane.CurrentPlan(), "b");
  EXPECT_EQ(dialog_.begin.Text(), "02");
  EXPECT_EQ(dialog_.check.Value(), 0);
}

TEST_F(PlanPaneTest, OpensOnTheDefaultPlanWithoutAChosenOne) {
  world_.store.plans = {{"a", {{"BItem", "01"}}}, {kDefault, {{"BItem", "09"}}}};
  EXPECT_EQ(Open(Kind::kCurrent).CurrentPlan(), kDefault);
  EXPECT_EQ(dialog_.begin.Text(), "09");
}

TEST_F(PlanPaneTest, OpensWithDefaultsWithoutAStore) {
  world_.store.BreakDown();
  EXPECT_EQ(Open(Kind::kCurrent).CurrentPlan(), kDefault);
  EXPECT_THAT(Texts(), ElementsAre("默认方案=默认方案 1"));
  EXPECT_EQ(List().SelectedText(), kDefault);
  EXPECT_EQ(dialog_.check.Value(), 1) << "the default of the key";
}

TEST_F(PlanPaneTest, LoadsThePlanOfARowThatIsClicked) {
  world_.store.plans = {{"a", {{"BItem", "01"}}}};
  const PlanPane& pane = Open(Kind::kCurrent);
  List().UserClick("a");
  EXPECT_EQ(pane.CurrentPlan(), "a");
  EXPECT_EQ(dialog_.begin.Text(), "01");
  EXPECT_THAT(StoreCalls(), ElementsAre("GetPlanValue 166 a"));
}

TEST_F(PlanPaneTest, TakesDefaultsForAPlanThatIsNotThere) {
  PlanPane& pane = Open(Kind::kCurrent);
  dialog_.begin.SetText("01");
  pane.LoadPlan("nobody's");
  EXPECT_EQ(pane.CurrentPlan(), "nobody's");
  EXPECT_EQ(dialog_.begin.Text(), "");
  EXPECT_THAT(StoreCalls(), ElementsAre("GetPlanValue 166 nobody''s"));
}

TEST_F(PlanPaneTest, RefusesToEditALabel) {
  Open(Kind::kCurrent);
  bool cancel = false;
  List().BeforeLabelEdit.Raise(cancel);
  EXPECT_TRUE(cancel);
}

// --- Save

TEST_F(PlanPaneTest, AsksForANameOnTheDefaultPlan) {
  const PlanPane& pane = Open(Kind::kCurrent);
  dialog_.begin.SetText("01");
  User().typed = {" mine "};
  Press("TLBSAVE");
  EXPECT_EQ(User().inputs, (Boxes{{"请输入方案名：", 0, "保存方案"}}));
  EXPECT_THAT(User().boxes, IsEmpty());
  EXPECT_THAT(StoreCalls(), ElementsAre("UpdateNextChooseValue 166", "SaveProfile", "GetPlanList 166"));
  EXPECT_THAT(world_.store.saved, ElementsAre("166|mine|BItem=01", "166|mine|chkGroupBy=1"));
  EXPECT_THAT(Texts(), ElementsAre("默认方案=默认方案 1", "Pmine=mine 1"));
  EXPECT_EQ(List().SelectedText(), "mine");
  EXPECT_EQ(pane.CurrentPlan(), "mine");
}

TEST_F(PlanPaneTest, SavesNothingWhereTheInputIsCancelledOrBlank) {
  const PlanPane& pane = Open(Kind::kCurrent);
  User().typed = {"", "  "};
  Press("TLBSAVE");
  Press("TLBSAVE");
  EXPECT_THAT(StoreCalls(), IsEmpty());
  EXPECT_EQ(pane.CurrentPlan(), kDefault);
}

TEST_F(PlanPaneTest, AsksBeforeItOverwrites) {
  world_.store.plans = {{"a", {}, 1}};
  Open(Kind::kCurrent);
  dialog_.begin.SetText("05");
  User().answers = {BoxAnswer::kYes};
  Press("TLBSAVE");
  EXPECT_EQ(User().boxes, (Boxes{{"是否覆盖原方案？", 68, "青岚提示"}}));
  EXPECT_THAT(User().inputs, IsEmpty());
  EXPECT_THAT(world_.store.saved, ElementsAre("166|a|BItem=05", "166|a|chkGroupBy=1"));
}

TEST_F(PlanPaneTest, SavesUnderAnotherNameOnNo) {
  world_.store.plans = {{"a", {{"BItem", "01"}}, 0}};
  const PlanPane& pane = Open(Kind::kCurrent);
  List().UserClick("a");
  User().answers = {BoxAnswer::kNo};
  User().typed = {"b"};
  Press("TLBSAVE");
  EXPECT_EQ(User().inputs, (Boxes{{"请输入方案名：", 0, "另存为"}}));
  EXPECT_THAT(world_.store.saved, ElementsAre("166|b|BItem=01", "166|b|chkGroupBy=1"));
  EXPECT_EQ(pane.CurrentPlan(), "b");
  EXPECT_EQ(List().SelectedText(), "b");
}

TEST_F(PlanPaneTest, SavesTheDefaultPlanUnderItsStoredName) {
  const PlanPane& pane = Open(Kind::kCurrent);
  dialog_.begin.SetText("07");
  User().typed = {kDefault};
  Press("TLBSAVE");
  EXPECT_THAT(world_.store.saved, ElementsAre("166|默认方案|BItem=07", "166|默认方案|chkGroupBy=1"));
  EXPECT_THAT(Texts(), ElementsAre("默认方案=默认方案 1"));
  EXPECT_EQ(List().SelectedText(), kDefault);
  EXPECT_EQ(pane.CurrentPlan(), kDefault);
}

TEST_F(PlanPaneTest, DoublesAnApostropheInAName) {
  const PlanPane& pane = Open(Kind::kCurrent);
  User().typed = {"o'neil"};
  Press("TLBSAVE");
  EXPECT_EQ(pane.CurrentPlan(), "o''neil");
  EXPECT_EQ(List().SelectedText(), "o''neil") << "this store gives the name as it came";
}

TEST_F(PlanPaneTest, LeavesTheListWhereTheStoreFails) {
  world_.store.plans = {{"a", {}}};
  Open(Kind::kCurrent);
  world_.store.BreakDown();
  User().typed = {"b"};
  Press("TLBSAVE");
  EXPECT_THAT(StoreCalls(), ElementsAre("UpdateNextChooseValue 166", "SaveProfile", "GetPlanList 166"));
  EXPECT_THAT(Texts(), ElementsAre("默认方案=默认方案 1", "Pa=a 1"));
  EXPECT_THAT(User().boxes, IsEmpty());
}

TEST_F(PlanPaneTest, SavesThroughTheObjectOfTheDialog) {
  const auto other = testing::RegisterFake(world_.runtime, "ORVMYWARAPRpt.Profile", world_.store.log);
  other->Gives("SaveProfile", Variant());
  Open(Kind::kCurrent, "ORVMYWARAPRpt.Profile");
  User().typed = {"a"};
  Press("TLBSAVE");
  EXPECT_THAT(StoreCalls(), ElementsAre("UpdateNextChooseValue 166", "ORVMYWARAPRpt.Profile.SaveProfile",
                                        "GetPlanList 166"));
}

TEST_F(PlanPaneTest, SavesAnOlderPlanWithoutAsking) {
  world_.store.plans = {{"a", {}, 1}};
  Open(Kind::kOlder);
  Press("tlbsave");
  EXPECT_THAT(User().boxes, IsEmpty());
  EXPECT_THAT(User().inputs, IsEmpty());
  EXPECT_THAT(StoreCalls(), ElementsAre("SaveProfile", "GetPlanList 166"));
  EXPECT_THAT(world_.store.saved, ElementsAre("166|a|BItem=", "166|a|chkGroupBy=1"));
}

TEST_F(PlanPaneTest, AsksForANameOnAnOlderDefaultPlan) {
  Open(Kind::kOlder);
  User().typed = {"a"};
  Press("TLBSAVE");
  EXPECT_EQ(User().inputs, (Boxes{{"请输入方案名：", 0, "保存方案"}}));
  EXPECT_THAT(StoreCalls(), ElementsAre("SaveProfile", "GetPlanList 166"));
}

TEST_F(PlanPaneTest, KeepsTheDefaultPlanAtAConfirmation) {
  PlanPane& pane = Open(Kind::kCurrent);
  dialog_.begin.SetText("01");
  pane.SaveIfDefault();
  EXPECT_THAT(StoreCalls(), ElementsAre("UpdateNextChooseValue 166", "SaveProfile"));
  EXPECT_THAT(world_.store.saved, ElementsAre("166|默认方案|BItem=01", "166|默认方案|chkGroupBy=1"));
}

TEST_F(PlanPaneTest, LeavesANamedPlanAtAConfirmation) {
  world_.store.plans = {{"a", {}, 1}};
  PlanPane& pane = Open(Kind::kCurrent);
  pane.SaveIfDefault();
  EXPECT_THAT(StoreCalls(), IsEmpty());
}

// --- Delete

TEST_F(PlanPaneTest, RefusesToDeleteTheDefaultPlan) {
  Open(Kind::kCurrent);
  Press("TLBDEL");
  EXPECT_EQ(User().boxes, (Boxes{{"不能删除默认方案！", 64, "青岚提示"}}));
  EXPECT_THAT(StoreCalls(), IsEmpty());
}

TEST_F(PlanPaneTest, DeletesThePlanAndShowsTheFirst) {
  world_.store.plans = {{kDefault, {{"BItem", "09"}}}, {"a", {{"BItem", "01"}}, 1}};
  const PlanPane& pane = Open(Kind::kCurrent);
  User().answers = {BoxAnswer::kYes};
  Press("TLBDEL");
  EXPECT_EQ(User().boxes, (Boxes{{"是否要删除方案[a]？", 68, "青岚提示"}}));
  EXPECT_THAT(StoreCalls(), ElementsAre("DelPlan 166 a", "GetPlanList 166", "GetPlanValue 166 默认方案"));
  EXPECT_THAT(Texts(), ElementsAre("默认方案=默认方案 1"));
  EXPECT_EQ(pane.CurrentPlan(), kDefault);
  EXPECT_EQ(dialog_.begin.Text(), "09");
}

TEST_F(PlanPaneTest, ShowsTheFirstPlanWhateverPlanIsChosen) {
  world_.store.plans = {{"a", {}, 0}, {"b", {}, 1}};
  const PlanPane& pane = Open(Kind::kCurrent);
  List().UserClick("a");
  User().answers = {BoxAnswer::kYes};
  Press("TLBDEL");
  EXPECT_EQ(List().SelectedText(), kDefault);
  EXPECT_EQ(pane.CurrentPlan(), kDefault);
}

TEST_F(PlanPaneTest, DeletesNothingOnNo) {
  world_.store.plans = {{"a", {}, 1}};
  const PlanPane& pane = Open(Kind::kCurrent);
  User().answers = {BoxAnswer::kNo};
  Press("TLBDEL");
  EXPECT_THAT(StoreCalls(), IsEmpty());
  EXPECT_EQ(pane.CurrentPlan(), "a");
}

TEST_F(PlanPaneTest, DeletesNothingFromAnEmptyList) {
  Open(Kind::kCurrent);
  List().Clear();
  Press("TLBDEL");
  EXPECT_THAT(User().boxes, IsEmpty());
  EXPECT_THAT(StoreCalls(), IsEmpty());
}

TEST_F(PlanPaneTest, SavesTheDefaultPlanFromAnEmptyList) {
  Open(Kind::kCurrent);
  List().Clear();
  Press("TLBSAVE");
  EXPECT_THAT(User().inputs, IsEmpty());
  EXPECT_THAT(world_.store.saved, ElementsAre("166|默认方案|BItem=", "166|默认方案|chkGroupBy=1"));
}

// --- Clear, view

TEST_F(PlanPaneTest, ClearsTheCodesAlone) {
  const PlanPane& pane = Open(Kind::kCurrent);
  dialog_.begin.SetText("01");
  dialog_.end.SetText("02");
  Press("TLBCLEAR");
  EXPECT_EQ(dialog_.begin.Text(), "");
  EXPECT_EQ(dialog_.end.Text(), "");
  EXPECT_EQ(dialog_.check.Value(), 1);
  EXPECT_EQ(pane.CurrentPlan(), kDefault);
  EXPECT_THAT(StoreCalls(), IsEmpty());
}

TEST_F(PlanPaneTest, GoesRoundTheViews) {
  Open(Kind::kCurrent);
  std::vector<int> views;
  for (int i = 0; i < 5; ++i) {
    Press("TLBVIEW");
    views.push_back(List().view);
  }
  EXPECT_THAT(views, ElementsAre(1, 2, 3, 0, 1));
}

TEST_F(PlanPaneTest, GoesOnFromTheViewOfTheMenu) {
  Open(Kind::kCurrent);
  Bar().MenuClick.Raise(View(), 3);
  EXPECT_EQ(List().view, 2);
  EXPECT_EQ(View().tag, 2);
  Press("TLBVIEW");
  EXPECT_EQ(List().view, 3);
  EXPECT_EQ(DescriptionRaisedBy([&] { Bar().MenuClick.Raise(View(), 5); }),
            "TLBVIEW has no menu entry 5; 1 to 4 was expected");
}

// --- The list of the credit dialogs

TEST_F(SchemePaneTest, ShowsItsTexts) {
  Open();
  EXPECT_THAT(ToolTips(), ElementsAre("TLBSAVE 保存", "TLBDEL 删除", "TLBSAVEAS 另存为", "TLBVIEW "));
  EXPECT_EQ(List().column_header, "方案");
}

TEST_F(SchemePaneTest, AsksForANameOnTheDefaultPlan) {
  const SchemePane& pane = Open();
  User().typed = {"mine"};
  Press("TLBSAVE");
  EXPECT_EQ(User().inputs, (Boxes{{"请输入方案名:", 0, "保存方案"}}));
  EXPECT_EQ(User().boxes, (Boxes{{"方案[mine]保存成功!", 0, "系统提示"}}));
  EXPECT_THAT(StoreCalls(), ElementsAre("SaveProfile", "GetPlanList 166"));
  EXPECT_EQ(pane.CurrentPlan(), "mine");
  EXPECT_EQ(List().SelectedText(), "mine");
}

TEST_F(SchemePaneTest, SavesANamedPlanUnderItsName) {
  world_.store.plans = {{"a", {}, 1}};
  Open();
  Press("TLBSAVE");
  EXPECT_THAT(User().inputs, IsEmpty());
  EXPECT_EQ(User().boxes, (Boxes{{"方案[a]保存成功!", 0, "系统提示"}}));
}

TEST_F(SchemePaneTest, SavesNothingWhereTheInputIsCancelled) {
  Open();
  Press("TLBSAVE");
  Press("TLBSAVEAS");
  EXPECT_THAT(StoreCalls(), IsEmpty());
  EXPECT_THAT(User().boxes, IsEmpty());
}

TEST_F(SchemePaneTest, AsksBeforeItReplaces) {
  world_.store.plans = {{"a", {}, 0}, {"b", {}, 1}};
  Open();
  User().typed = {"a", "a", "c"};
  User().answers = {BoxAnswer::kNo, BoxAnswer::kYes};
  Press("TLBSAVEAS");
  EXPECT_THAT(StoreCalls(), IsEmpty());
  Press("TLBSAVEAS");
  Press("TLBSAVEAS");
  EXPECT_EQ(User().boxes, (Boxes{{"方案[a]已存在,是否替换?", 68, "系统提示"},
                                 {"方案[a]已存在,是否替换?", 68, "系统提示"},
                                 {"方案[a]保存成功!", 0, "系统提示"},
                                 {"方案[c]保存成功!", 0, "系统提示"}}));
}

TEST_F(SchemePaneTest, TellsNoSuccessWhereTheStoreFails) {
  Open();
  world_.store.BreakDown();
  User().typed = {"a"};
  Press("TLBSAVE");
  EXPECT_THAT(User().boxes, IsEmpty());
  EXPECT_THAT(Texts(), ElementsAre("默认方案=默认方案 1"));
}

TEST_F(SchemePaneTest, RefusesToDeleteTheDefaultPlan) {
  Open();
  Press("TLBDEL");
  EXPECT_EQ(User().boxes, (Boxes{{"不能删除新方案！", 0, "系统提示"}}));
  EXPECT_EQ(User().beeps, 1);
  EXPECT_THAT(StoreCalls(), IsEmpty());
}

TEST_F(SchemePaneTest, DeletesUnlessTheAnswerIsNo) {
  const auto report = testing::RegisterFake(world_.runtime, "ORVMReport.ClsReport", world_.store.log);
  report->Gives("ExecSQL", Variant());
  world_.store.plans = {{"a", {}, 1}};
  const SchemePane& pane = Open();
  User().answers = {BoxAnswer::kNo, BoxAnswer::kYes};
  Press("TLBDEL");
  EXPECT_EQ(User().beeps, 1);
  EXPECT_THAT(StoreCalls(), IsEmpty());
  Press("TLBDEL");
  EXPECT_EQ(User().beeps, 1);
  EXPECT_EQ(User().boxes.back(), (RecordedBox{"确定要删除方案[a]?", 68, "系统提示"}));
  EXPECT_THAT(StoreCalls(), ElementsAre("DelPlan 166 a", "ORVMReport.ClsReport.ExecSQL ", "GetPlanList 166",
                                        "GetPlanValue 166 默认方案"));
  EXPECT_EQ(pane.CurrentPlan(), kDefault);
}

TEST_F(SchemePaneTest, FillsTheListOfAFamily) {
  SchemePane& pane = Open();
  world_.store.plans = {{"a", {}, 1}};
  RecordsetRef rows;
  pane.FillPlanListView(145, rows);
  EXPECT_EQ(rows->RecordCount(), 1);
  EXPECT_THAT(StoreCalls(), ElementsAre("GetPlanList 145"));
  EXPECT_THAT(Texts(), ElementsAre("默认方案=默认方案 1", "Pa=a 1"));
  EXPECT_EQ(List().SelectedText(), "a");
}

}  // namespace
}  // namespace salerpt
