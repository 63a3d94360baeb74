#include "runtime/list_form.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "error_check.h"
#include "fake_list.h"
#include "fake_object.h"
#include "fake_world.h"
#include "runtime/runtime.h"

namespace salerpt {
namespace {

using ::testing::ElementsAre;
using testing::FakeRef;
using testing::ListToolkit;
using testing::RecordedCall;
using testing::RegisterList;
using Names = std::vector<std::string>;

const RuntimeError kBroken(-5, "List", "the control is broken");

class ListFormTest : public ::testing::Test {
 protected:
  ListFormTest() { runtime_.SetToolkit(toolkit_); }
  // The calls of one member, the loading of the form left out.
  [[nodiscard]] std::vector<Variant> Given(const std::string& member) const {
    std::vector<Variant> values;
    for (const RecordedCall& call : control_->Calls()) {
      if (call.member == member) values.insert(values.end(), call.arguments.begin(), call.arguments.end());
    }
    return values;
  }
  [[nodiscard]] int Count(const std::string& member) const {
    const Names called = control_->CalledMembers();
    return static_cast<int>(std::count(called.begin(), called.end(), member));
  }
  // A list that is loaded and on the screen.
  void Open(ListForm& form) const {
    form.InitData();
    form.Activate();
  }

  Runtime runtime_;
  int made_ = 0;
  FakeRef control_ = RegisterList(runtime_, nullptr, &made_);
  std::shared_ptr<ListToolkit> toolkit_ = std::make_shared<ListToolkit>();
  std::shared_ptr<ListForm> form_ = std::make_shared<ListForm>();
};

// --- Load

TEST_F(ListFormTest, MakesNoControlBeforeItIsUsed) {
  EXPECT_EQ(made_, 0);
  EXPECT_FALSE(form_->OK());
  EXPECT_EQ(form_->ROB(), 0);
  form_.reset();
  EXPECT_EQ(made_, 0);
}

TEST_F(ListFormTest, PutsTheControlInPlaceOnce) {
  form_->SetBarText("left from the design");
  form_->Load();
  EXPECT_EQ(form_->BarText(), "");
  EXPECT_EQ(control_->CalledMembers(), (Names{"Left", "Top", "Visible"}));
  EXPECT_THAT(Given("Left"), ElementsAre(Variant(0)));
  EXPECT_THAT(Given("Top"), ElementsAre(Variant(0)));
  EXPECT_THAT(Given("Visible"), ElementsAre(Variant(true)));
  EXPECT_FALSE(form_->OK());
  form_->Load();
  EXPECT_EQ(made_, 1);
  EXPECT_EQ(control_->Calls().size(), 3U);
}

TEST_F(ListFormTest, IsLoadedByTheFirstProperty) {
  form_->SetListID(32);
  EXPECT_EQ(control_->CalledMembers(), (Names{"Left", "Top", "Visible", "ListID"}));
}

TEST_F(ListFormTest, RaisesWhereThereIsNoControl) {
  runtime_.Register("ORVList.ICList", []() -> ObjectRef { throw kBroken; });
  EXPECT_EQ(NumberRaisedBy([&] { form_->SetListID(32); }), -5);
  EXPECT_EQ(NumberRaisedBy([&] { form_->Load(); }), -5);
}

// --- Properties

TEST_F(ListFormTest, HandsEachPropertyToTheControl) {
  form_->SetISShowReport(true);
  form_->SetListShowStatus(2);
  form_->SetDestBillTransType("200192");
  form_->SetListID(32);
  form_->SetTranType(81);
  form_->SetBaseInfo("c|u|n");
  form_->SetMultiSelect(false);
  form_->SetCanSelectMultiRow(true);
  form_->SetFilter(" 1=1");
  form_->SetLocalCnn("PROVIDER=x;");
  form_->SetSystemName("ORV");
  EXPECT_THAT(Given("ISShowReport"), ElementsAre(Variant(true)));
  EXPECT_THAT(Given("ListShowStatus"), ElementsAre(Variant(std::int16_t{2})));
  EXPECT_THAT(Given("DestBillTransType"), ElementsAre(Variant("200192")));
  EXPECT_THAT(Given("ListID"), ElementsAre(Variant(32)));
  EXPECT_THAT(Given("TranType"), ElementsAre(Variant(std::int16_t{81})));
  EXPECT_THAT(Given("BaseInfo"), ElementsAre(Variant("c|u|n")));
  EXPECT_THAT(Given("MultiSelect"), ElementsAre(Variant(false)));
  EXPECT_THAT(Given("CanSelectMultiRow"), ElementsAre(Variant(true)));
  EXPECT_THAT(Given("Filter"), ElementsAre(Variant(" 1=1")));
  EXPECT_THAT(Given("LocalCnn"), ElementsAre(Variant("PROVIDER=x;")));
  EXPECT_THAT(Given("SystemName"), ElementsAre(Variant("ORV")));
}

TEST_F(ListFormTest, GivesWhatTheControlHolds) {
  const auto chosen = std::make_shared<Vector>();
  const RecordsetRef rows = MakeRecordset();
  control_->Gives("Selected", chosen).Gives("GetListRs", rows).Gives("GetListFieldsDes", "fields");
  EXPECT_EQ(form_->Selected(), chosen);
  EXPECT_EQ(form_->GetListRs(), rows);
  EXPECT_EQ(form_->GetListFieldsDes(), Variant("fields"));
  control_->Gives("Selected", nullptr).Gives("GetListRs", nullptr);
  EXPECT_EQ(form_->Selected(), nullptr);
  EXPECT_EQ(form_->GetListRs(), nullptr);
}

TEST_F(ListFormTest, MarksARowAndEmptiesTheBar) {
  form_->SelectFlag(3);
  EXPECT_THAT(Given("SelectFlag"), ElementsAre(Variant(3)));
  form_->SetBarText("three rows");
  form_->PaintBar();
  EXPECT_EQ(form_->BarText(), "");
}

TEST_F(ListFormTest, StandsInInterfaceOrder) {
  Names names;
  for (const auto& member : ListForm::Members()) {
    if (names.empty() || names.back() != member.name) names.emplace_back(member.name);
  }
  EXPECT_EQ(names,
            (Names{"ISShowReport", "ListShowStatus", "DestBillTransType", "ListID", "TranType", "BaseInfo",
                   "MultiSelect", "CanSelectMultiRow", "Selected", "GetListRs", "GetListFieldsDes", "Filter",
                   "LocalCnn", "SystemName", "OK", "ROB", "InitData", "SelectFlag", "PaintBar"}));
}

TEST_F(ListFormTest, IsReachedByName) {
  control_->Gives("GetListRs", MakeRecordset()).Gives("GetListFieldsDes", "fields");
  const Names texts{"DestBillTransType", "BaseInfo", "Filter", "LocalCnn", "SystemName"};
  const Names numbers{"ListShowStatus", "ListID", "TranType"};
  const Names flags{"ISShowReport", "MultiSelect", "CanSelectMultiRow"};
  for (const std::string& name : texts) {
    LetMember(form_, name, "t");
    EXPECT_THAT(Given(name), ElementsAre(Variant("t"))) << name;
    EXPECT_EQ(NumberRaisedBy([&] { GetMember(form_, name); }), error_number::kNoSuchMember) << name;
  }
  for (const std::string& name : numbers) {
    LetMember(form_, name, "7");
    ASSERT_EQ(Given(name).size(), 1U) << name;
    EXPECT_EQ(Given(name)[0].ToInt32(), 7) << name;
    EXPECT_TRUE(Given(name)[0].IsNumber()) << name;
  }
  for (const std::string& name : flags) {
    LetMember(form_, name, -1);
    EXPECT_THAT(Given(name), ElementsAre(Variant(true))) << name;
  }
  LetMember(form_, "ROB", "1");
  EXPECT_EQ(GetMember(form_, "ROB"), Variant(1));
  EXPECT_EQ(As<Vector>(GetMember(form_, "Selected"))->Size(), 0);
  EXPECT_TRUE(GetMember(form_, "GetListRs").ToObject());
  EXPECT_EQ(GetMember(form_, "GetListFieldsDes"), Variant("fields"));
  EXPECT_EQ(GetMember(form_, "OK"), Variant(false));
  EXPECT_EQ(NumberRaisedBy([&] { LetMember(form_, "OK", true); }), error_number::kNoSuchMember);
  Call(form_, "InitData");
  EXPECT_EQ(GetMember(form_, "OK"), Variant(true));
  Call(form_, "SelectFlag", 2);
  EXPECT_THAT(Given("SelectFlag"), ElementsAre(Variant(2)));
  form_->SetBarText("x");
  Call(form_, "PaintBar");
  EXPECT_EQ(form_->BarText(), "");
  EXPECT_EQ(form_->ClassName(), "frmList");
}

// --- InitData

TEST_F(ListFormTest, LoadsTheList) {
  form_->SetROB(-1);
  form_->InitData();
  EXPECT_EQ(control_->CalledMembers(),
            (Names{"Left", "Top", "Visible", "ROB", "Load", "IsOpened", "GetListDes"}));
  EXPECT_THAT(Given("ROB"), ElementsAre(Variant(-1)));
  EXPECT_TRUE(form_->OK());
  EXPECT_EQ(form_->Caption(), "销售订单序时簿");
  EXPECT_EQ(form_->ROB(), -1);
}

TEST_F(ListFormTest, LetsTheControlChangeRob) {
  control_->OnAssign("ROB", [](Arguments arguments) {
    arguments[0] = Variant(1);
    return Variant();
  });
  form_->InitData();
  EXPECT_EQ(form_->ROB(), 1);
}

TEST_F(ListFormTest, IsNotOkWhereTheListDoesNotLoad) {
  control_->Gives("Load", false);
  form_->InitData();
  EXPECT_FALSE(form_->OK());
  EXPECT_EQ(form_->Caption(), "");
  EXPECT_EQ(Count("IsOpened"), 0);
}

TEST_F(ListFormTest, IsNotOkWhereTheListHasNotOpened) {
  control_->Gives("IsOpened", false);
  form_->InitData();
  EXPECT_FALSE(form_->OK());
  EXPECT_EQ(form_->Caption(), "销售订单序时簿");
}

TEST_F(ListFormTest, IsNotOkWhereTheListFailsAndSaysNothing) {
  for (const char* member : {"Load", "IsOpened", "GetListDes"}) {
    const FakeRef control = RegisterList(runtime_);
    control->Raises(member, kBroken);
    ListForm form;
    form.InitData();
    EXPECT_FALSE(form.OK()) << member;
  }
  RegisterList(runtime_)->OnAssign("ROB", [](Arguments) -> Variant { throw kBroken; });
  ListForm form;
  form.InitData();
  EXPECT_FALSE(form.OK());
  EXPECT_TRUE(toolkit_->boxes.empty());
}

TEST_F(ListFormTest, IsNotOkAnyMoreWhereASecondLoadFails) {
  form_->InitData();
  control_->Gives("Load", false);
  form_->InitData();
  EXPECT_FALSE(form_->OK());
}

// --- On the screen

TEST_F(ListFormTest, ShowsAListThatIsSetUp) {
  Open(*form_);
  EXPECT_TRUE(form_->IsVisible());
  EXPECT_FALSE(form_->IsUnloaded());
}

TEST_F(ListFormTest, LeavesTheScreenAtOnceWhereItIsNot) {
  control_->Gives("Load", false);
  Open(*form_);
  EXPECT_FALSE(form_->IsVisible());
  EXPECT_TRUE(form_->IsUnloaded());
  EXPECT_EQ(Count("Release"), 1);
}

TEST_F(ListFormTest, IsConfirmedByARow) {
  Open(*form_);
  form_->OnAction("SelectOK");
  EXPECT_TRUE(form_->OK());
  EXPECT_FALSE(form_->IsVisible());
  EXPECT_FALSE(form_->IsUnloaded());
  EXPECT_EQ(Count("Release"), 0);
}

TEST_F(ListFormTest, StaysOnTheScreenWithoutARow) {
  control_->Gives("IsSelected", false);
  Open(*form_);
  form_->OnAction("SelectOK");
  EXPECT_TRUE(form_->IsVisible());
}

TEST_F(ListFormTest, IsLeftByExit) {
  Open(*form_);
  form_->OnAction("Exit");
  EXPECT_FALSE(form_->OK());
  EXPECT_FALSE(form_->IsVisible());
  EXPECT_FALSE(form_->IsUnloaded());
}

TEST_F(ListFormTest, TakesNoNoticeOfOtherActions) {
  Open(*form_);
  form_->OnAction("Refresh");
  EXPECT_TRUE(form_->OK());
  EXPECT_TRUE(form_->IsVisible());
}

TEST_F(ListFormTest, IsNotOkWhenItsWindowIsClosed) {
  Open(*form_);
  form_->Unload();
  EXPECT_FALSE(form_->OK());
  EXPECT_FALSE(form_->IsVisible());
  EXPECT_TRUE(form_->IsUnloaded());
  form_->Unload();
  form_.reset();
  EXPECT_EQ(Count("Release"), 1);
}

TEST_F(ListFormTest, ReleasesTheControlAtItsEnd) {
  Open(*form_);
  form_->OnAction("SelectOK");
  form_.reset();
  EXPECT_EQ(Count("Release"), 1);
}

TEST_F(ListFormTest, EndsWithAControlThatCannotRelease) {
  control_->Raises("Release", kBroken);
  Open(*form_);
  EXPECT_EQ(NumberRaisedBy([&] { form_->Unload(); }), -5);
  EXPECT_TRUE(form_->IsUnloaded());
  const auto other = std::make_shared<ListForm>();
  other->Load();  // its end raises nothing
}

TEST_F(ListFormTest, FillsTheWindowAboveTheStatusBar) {
  form_->Resize(800, 600, 24);
  EXPECT_THAT(Given("Height"), ElementsAre(Variant(576)));
  EXPECT_THAT(Given("Width"), ElementsAre(Variant(800)));
}

TEST_F(ListFormTest, KeepsItsSizeInAWindowWithoutRoom) {
  form_->Resize(0, 24, 24);
  form_->Resize(-1, 10, 24);
  EXPECT_TRUE(Given("Height").empty());
  EXPECT_TRUE(Given("Width").empty());
  form_->Resize(1, 25, 24);
  EXPECT_THAT(Given("Height"), ElementsAre(Variant(1)));
  EXPECT_THAT(Given("Width"), ElementsAre(Variant(1)));
}

// --- Through the toolkit

TEST_F(ListFormTest, IsShownByTheToolkitUntilItIsHidden) {
  form_->InitData();
  toolkit_->user = [](ListForm& form) { form.OnAction("SelectOK"); };
  toolkit_->ShowModal(*form_);
  EXPECT_EQ(toolkit_->shown, 1);
  EXPECT_TRUE(form_->OK());
}

TEST_F(ListFormTest, IsCancelledByAToolkitWithoutAScreen) {
  form_->InitData();
  Toolkit().ShowModal(*form_);
  EXPECT_FALSE(form_->IsVisible());
  EXPECT_FALSE(form_->OK());
}

}  // namespace
}  // namespace salerpt
