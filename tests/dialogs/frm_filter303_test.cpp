// What is the consignment dialog's own.
#include "dialogs/frm_filter303.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "tests/dialogs/dialog_world.h"

namespace salerpt {
namespace {

class FrmFilter303Test : public ::testing::Test {
 protected:
  [[nodiscard]] const UpDown& Arrows(const char* name) { return dialog_.GetForm().Get<UpDown>(name); }
  [[nodiscard]] std::string Levels() {
    Form& form = dialog_.GetForm();
    return form.Get<TextBox>("txtlevel", 0).Text() + ".." + form.Get<TextBox>("txtlevel", 1).Text();
  }
  void ReverseDates() {
    dialog_.GetForm().Get<DatePicker>("DtpBDate").SetValue(Date::FromYmd(2003, 7, 2));
    dialog_.GetForm().Get<DatePicker>("DtpEDate").SetValue(Date::FromYmd(2003, 7, 1));
  }
  [[nodiscard]] bool Ok() const { return dialog_.Filter()->Get("OK").ToBoolean(); }

  testing::DialogWorld world_;
  FrmFilter303 dialog_;
};

TEST_F(FrmFilter303Test, BoundsTheLevelsAsItLoads) {
  world_.data->Gives("GetItemMaxLevel", 3);
  // A row without levels asks no more.
  world_.plan = {{"GroupByListIndex", "4"}, {"ELevel", "4"}, {"BLevel", "2"}};
  dialog_.Load();
  for (const char* name : {"udBLevel", "udELevel"}) {
    EXPECT_EQ(Arrows(name).min, 1);
    EXPECT_EQ(Arrows(name).max, 3);
  }
  EXPECT_EQ(Levels(), "2..3");
  const auto members = world_.data->CalledMembers();
  EXPECT_EQ(std::count(members.begin(), members.end(), "GetItemMaxLevel"), 1);
}

TEST_F(FrmFilter303Test, OpensWhereTheDepthCannotBeAsked) {
  world_.data->Raises("GetItemMaxLevel", RuntimeError(7, "x", "no"));
  dialog_.Load();
  EXPECT_EQ(Arrows("udELevel").min, 1);
  EXPECT_EQ(Arrows("udELevel").max, 5);
  EXPECT_EQ(Levels(), "1..5");
}

TEST_F(FrmFilter303Test, NamesTheLevelsWithABlank) {
  dialog_.Load();
  EXPECT_EQ(dialog_.GetForm().Get<Label>("Label7").caption, "类别级次: ");
}

TEST_F(FrmFilter303Test, StandsConfirmedAfterRefusedDates) {
  dialog_.Load();
  EXPECT_FALSE(Ok());
  ReverseDates();
  dialog_.Confirm();
  EXPECT_TRUE(Ok());
  EXPECT_FALSE(dialog_.IsUnloaded());
  ASSERT_EQ(world_.toolkit->boxes.size(), 1U);
  EXPECT_EQ(world_.toolkit->boxes[0].text, "起始日期不能大于截止日期!");
  EXPECT_FALSE(dialog_.Filter()->Lookup("BDate"));
  dialog_.Confirm();
  EXPECT_TRUE(dialog_.IsUnloaded());
  EXPECT_EQ(dialog_.Filter()->Get("BDate"), Variant("2003-07-01"));
}

TEST_F(FrmFilter303Test, AnswersAsCancelledAfterRefusedDates) {
  dialog_.Load();
  ReverseDates();
  dialog_.Confirm();
  dialog_.GetForm().Get<Button>("cmdCacel").Click.Raise();
  EXPECT_TRUE(dialog_.IsUnloaded());
  EXPECT_FALSE(Ok());
}

TEST_F(FrmFilter303Test, KnowsEscapeAlone) {
  dialog_.Load();
  Form& form = dialog_.GetForm();
  auto& field = form.Get<TextBox>("txtItem", 0);
  form.Type(field, "a'b");
  EXPECT_EQ(field.Text(), "a'b");
  KeyStroke enter{key_code::kEnter};
  form.KeyPress.Raise(enter);
  EXPECT_EQ(enter.code, key_code::kEnter);
  EXPECT_FALSE(dialog_.IsUnloaded());
  form.PressKey(field, key_code::kEscape);
  EXPECT_TRUE(dialog_.IsUnloaded());
  EXPECT_FALSE(Ok());
}

}  // namespace
}  // namespace salerpt
