// Whatever a user does, in whatever order: what always holds in a filter dialog.
#include <array>
#include <random>

#include "dialogs/dialogs.h"
#include "runtime/mparse.h"
#include "tests/dialogs/dialog_suite.h"

namespace salerpt::testing {
namespace {

constexpr int kSteps = 2500;
constexpr unsigned kSeed = 20030701;

class Walker {
 public:
  explicit Walker(unsigned seed) : numbers_(seed) {}
  // From 0, below `bound`.
  int Below(int bound) { return std::uniform_int_distribution<int>(0, bound - 1)(numbers_); }
  bool Once(int in) { return Below(in) == 0; }
  template <typename Choices>
  const auto& Pick(const Choices& choices) {
    return choices[static_cast<std::size_t>(Below(static_cast<int>(std::size(choices))))];
  }

 private:
  std::mt19937 numbers_;
};

// A user who answers boxes as it comes, and the keys that the dialog sends on the user's behalf.
class WalkToolkit final : public ListToolkit {
 public:
  explicit WalkToolkit(Walker& walker) : walker_(walker) {}
  BoxAnswer MessageBox(std::string_view /*text*/, int style, std::string_view /*title*/) override {
    if (style != kBoxYesNo) return BoxAnswer::kOk;
    return walker_.Once(2) ? BoxAnswer::kYes : BoxAnswer::kNo;
  }
  std::string InputBox(std::string_view, std::string_view, std::string_view) override {
    static constexpr std::array<std::string_view, 5> kNames = {"", "月报", "季'报", "默认方案", "  年报 "};
    return std::string(walker_.Pick(kNames));
  }
  void SendKeys(std::string_view keys) override { tab_ = tab_ || keys == "{TAB}"; }
  void KeybdEvent(int virtual_key) override { tab_ = tab_ || virtual_key == key_code::kTab; }
  bool TakeTab() { return std::exchange(tab_, false); }

 private:
  Walker& walker_;
  bool tab_ = false;
};

class RandomWalkTest : public DialogSuiteTest, public ::testing::WithParamInterface<std::string> {
 protected:
  RandomWalkTest() {
    RegisterDialogs(runtime_);
    runtime_.SetToolkit(walk_toolkit_);
    RegisterFake(runtime_, "ORVEBSBase.SystemProfile")->On("GetProfile", [](Arguments arguments) {
      static const std::map<std::string, std::int32_t> kProfile = {{"PeriodCount", 12},
                                                                   {"CurrentYear", 2003},
                                                                   {"CurrentPeriod", 7},
                                                                   {"StartYear", 2000},
                                                                   {"StartPeriod", 1}};
      const auto found = kProfile.find(arguments[2].ToText());
      return found == kProfile.end() ? Variant(std::int32_t{0}) : Variant(found->second);
    });
    // Trees of different depth, one without any.
    sale_data_->On("GetItemMaxLevel", [](Arguments arguments) -> Variant {
      static const std::map<std::int32_t, std::int32_t> kDepths = {{1, 2}, {4, 4}, {2014, 3}};
      const auto found = kDepths.find(arguments[1].ToInt32());
      return found == kDepths.end() ? std::int32_t{0} : found->second;
    });
    auto descriptions = std::make_shared<Vector>();
    for (const char* name : {"区域", "等级"}) {
      descriptions->Add(std::make_shared<Dictionary>(
          std::initializer_list<Dictionary::Entry>{{"FName", name}, {"FPropID", std::int32_t{7}}}));
    }
    sale_data_->Gives("GetItemPropDesc", descriptions);
    sale_data_->On("GetSaleType", [](Arguments) -> Variant {
      return TextRows({"FInterID", "FName"}, {{"100", "现销"}, {"101", "赊销"}});
    });
    // What is saved is there again, what is deleted is gone.
    for (const FakeRef& store : {profile_, warning_profile_}) {
      store->On("SaveProfile", [this](Arguments arguments) -> Variant {
        Store(*As<Vector>(arguments[1]));
        return Variant();
      });
      store->On("DelPlan", [this](Arguments arguments) -> Variant {
        plans_.erase(arguments[2].ToText());
        return Variant();
      });
    }
  }

  void Walk();

 private:
  void Open() {
    made_ = runtime_.MakeDialog(GetParam());
    dialog_ = std::shared_ptr<FormDialog>(made_, dynamic_cast<FormDialog*>(made_.get()));
    dialog_->SetRptID(900);
    dialog_->Load();
    dialog_->Activate();
    confirms_ = false;
  }
  void Step();
  void CheckInvariants();
  void Store(const Vector& rows);
  void Use(TextBox& box);
  void UseKey(FormControl& control);
  void Use(Button& button);
  void Use(ListControl& list);
  void Use(DatePicker& picker);
  void Use(OrderGrid& grid);
  void Use(Toolbar& bar);
  void Use(ListView& plans);
  void CheckLevels();
  void CheckPeriods();
  void CheckControls();
  [[nodiscard]] double Number(std::string_view array, int index) {
    return Val(TheForm().Get<TextBox>(array, index).Text());
  }
  [[nodiscard]] Form& TheForm() { return dialog_->GetForm(); }
  // Their form lets the apostrophe through.
  [[nodiscard]] static bool TakesQuotes() {
    return GetParam() == "FrmFilter139" || GetParam() == "FrmFilter303";
  }

  Walker walker_{kSeed};
  std::shared_ptr<WalkToolkit> walk_toolkit_ = std::make_shared<WalkToolkit>(walker_);
  std::shared_ptr<FilterDialog> made_;
  std::shared_ptr<FormDialog> dialog_;
  // The step pressed OK.
  bool confirms_ = false;
};

void RandomWalkTest::Store(const Vector& rows) {
  PlanValues values;
  std::string plan;
  for (std::int32_t i = 1; i <= rows.Size(); ++i) {
    const auto row = As<Dictionary>(rows.Item(i));
    plan = row->Get("Plan").ToText();
    values.emplace_back(row->Get("Key").ToText(), row->Get("Value").ToText());
  }
  EXPECT_NE(plan, "");
  plans_[plan] = values;
}

// --- What a user does

void RandomWalkTest::Use(TextBox& box) {
  static constexpr std::array<std::string_view, 12> kTexts = {"",  "0",  "1",    "3",    "7",   "13",
                                                              "9", "99", "1999", "2040", "a'b", "01.02'"};
  if (!box.IsAvailable()) return;
  if (walker_.Once(3)) return TheForm().LeaveFocus();
  if (walker_.Once(6)) {
    TheForm().SetFocus(box);
    return box.SetText(walker_.Once(2) ? "-5" : "12");
  }
  TheForm().Type(box, walker_.Pick(kTexts));
}

void RandomWalkTest::UseKey(FormControl& control) {
  static constexpr std::array kKeys = {key_code::kEnter,  key_code::kApostrophe, key_code::kBackspace,
                                       key_code::kDelete, key_code::kF7,         key_code::kF8};
  if (!control.CanFocus()) return;
  const int code = walker_.Once(60) ? key_code::kEscape : walker_.Pick(kKeys);
  confirms_ = code == key_code::kEnter && dynamic_cast<Button*>(&control) != nullptr;
  if (confirms_) return;
  TheForm().PressKey(control, code);
  if (walk_toolkit_->TakeTab() && !dialog_->IsUnloaded()) TheForm().FocusNext();
}

void RandomWalkTest::Use(Button& button) {
  const bool closes = button.Name() == "cmdOK" || button.Name() == "cmdCacel";
  if (closes && !walker_.Once(4)) return;
  confirms_ = button.Name() == "cmdOK";
  if (walker_.Once(2)) Pick("01.02", 7);
  TheForm().UserClick(button);
}

void RandomWalkTest::Use(ListControl& list) {
  if (list.Items().empty()) return;
  TheForm().UserSelect(list, walker_.Below(static_cast<int>(list.Items().size())));
  if (list.IsAvailable() && walker_.Once(2)) list.DoubleClick.Raise();
}

void RandomWalkTest::Use(DatePicker& picker) {
  if (!picker.IsAvailable()) return;
  picker.SetValue(Date::FromYmd(2002 + walker_.Below(3), 1 + walker_.Below(12), 1 + walker_.Below(28)));
}

void RandomWalkTest::Use(OrderGrid& grid) {
  // Beyond the rows in use too.
  if (grid.IsAvailable()) grid.UserClick(1 + walker_.Below(OrderGrid::kCapacity), 1 + walker_.Below(4));
  if (!grid.rows.empty()) grid.UserClick(1 + walker_.Below(static_cast<int>(grid.rows.size())), 2);
}

void RandomWalkTest::Use(Toolbar& bar) {
  TheForm().LeaveFocus();
  Toolbar::ToolButton& button = bar.buttons[static_cast<std::size_t>(walker_.Below(4))];
  if (!button.menu.empty() && walker_.Once(2)) {
    return bar.MenuClick.Raise(button, 1 + walker_.Below(static_cast<int>(button.menu.size())));
  }
  bar.ButtonClick.Raise(button);
}

void RandomWalkTest::Use(ListView& plans) {
  TheForm().LeaveFocus();
  if (plans.Rows().empty()) return;
  // A copy: the click may fill the list anew.
  const std::string text = walker_.Pick(plans.Rows()).text;
  plans.UserClick(text);
}

void RandomWalkTest::Step() {
  confirms_ = false;
  FormControl& control = *walker_.Pick(TheForm().Controls());
  if (walker_.Once(4)) return UseKey(control);
  if (auto* box = dynamic_cast<TextBox*>(&control)) return Use(*box);
  if (auto* button = dynamic_cast<Button*>(&control)) return Use(*button);
  if (auto* check = dynamic_cast<CheckBox*>(&control)) return TheForm().UserCheck(*check, walker_.Below(2));
  if (auto* list = dynamic_cast<ListControl*>(&control)) return Use(*list);
  if (auto* picker = dynamic_cast<DatePicker*>(&control)) return Use(*picker);
  if (auto* grid = dynamic_cast<OrderGrid*>(&control)) return Use(*grid);
  if (auto* bar = dynamic_cast<Toolbar*>(&control)) return Use(*bar);
  if (auto* plans = dynamic_cast<ListView*>(&control)) return Use(*plans);
}

// --- What always holds

void RandomWalkTest::CheckLevels() {
  if (TheForm().Find("txtlevel(0)") == nullptr) return;
  const double begin = Number("txtlevel", 0);
  const double end = Number("txtlevel", 1);
  EXPECT_GE(begin, 0);
  EXPECT_LE(begin, end);
  EXPECT_LE(end, TheForm().Get<UpDown>("udBLevel").max);
}

void RandomWalkTest::CheckPeriods() {
  if (TheForm().Find("txtPeriod(0)") == nullptr) return;
  const FormControl* focused = TheForm().Focused();
  if (focused != nullptr && focused->Name().starts_with("txtPeriod")) return;
  const auto in_range = [](double period) { return period >= 1 && period <= 12; };
  EXPECT_PRED1(in_range, Number("txtPeriod", 1));
  if (TheForm().Find("txtPeriod(2)") == nullptr) return;
  EXPECT_PRED1(in_range, Number("txtPeriod", 3));
  EXPECT_LE(std::pair(Number("txtPeriod", 0), Number("txtPeriod", 1)),
            std::pair(Number("txtPeriod", 2), Number("txtPeriod", 3)));
}

void RandomWalkTest::CheckControls() {
  for (const auto& control : TheForm().Controls()) {
    if (const auto* box = dynamic_cast<const TextBox*>(control.get())) {
      EXPECT_TRUE(TakesQuotes() || box->Text().find('\'') == std::string::npos) << box->Name() << box->Text();
    } else if (const auto* list = dynamic_cast<const ListControl*>(control.get())) {
      EXPECT_GE(list->ListIndex(), -1) << list->Name();
      EXPECT_LT(list->ListIndex(), static_cast<int>(list->Items().size())) << list->Name();
    } else if (const auto* plans = dynamic_cast<const ListView*>(control.get())) {
      EXPECT_GE(plans->SelectedIndex(), 0);
      EXPECT_LT(plans->SelectedIndex(), static_cast<int>(plans->Rows().size()));
    } else if (const auto* grid = dynamic_cast<const OrderGrid*>(control.get())) {
      EXPECT_LE(grid->rows.size(), static_cast<std::size_t>(OrderGrid::kCapacity));
      for (const OrderGrid::Row& row : grid->rows) EXPECT_EQ(row.ascending + row.descending, 1) << row.field;
    }
  }
}

void RandomWalkTest::CheckInvariants() {
  CheckLevels();
  CheckPeriods();
  CheckControls();
  if (GetParam() == "FrmFilter139") {
    int checked = 0;
    for (const char* name : {"chkUnexecuted", "chkPartialexecution", "chkFullyexecuted"}) {
      checked += TheForm().Get<CheckBox>(name).Value();
    }
    EXPECT_GE(checked, 1);
  }
  EXPECT_NE(dialog_->CurrentPlan(), "");
  // A refused confirmation of the consignment list leaves "OK" true.
  if (GetParam() != "FrmFilter303") {
    EXPECT_EQ(dialog_->Filter()->Get("OK"), Variant(dialog_->IsUnloaded() && confirms_));
  }
}

void RandomWalkTest::Walk() {
  Open();
  for (int step = 0; step < kSteps && !HasFailure(); ++step) {
    SCOPED_TRACE(::testing::Message() << "step " << step);
    Step();
    CheckInvariants();
    if (dialog_->IsUnloaded()) Open();
  }
}

TEST_P(RandomWalkTest, WhatAlwaysHolds) {
  Walk();
}

INSTANTIATE_TEST_SUITE_P(Dialogs, RandomWalkTest, ::testing::ValuesIn(DialogNames()),
                         [](const auto& dialog) { return dialog.param; });

TEST(RandomWalk, CoversEveryDialog) {
  EXPECT_EQ(DialogNames().size(), 26u);
}

}  // namespace
}  // namespace salerpt::testing
