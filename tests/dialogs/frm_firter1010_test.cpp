// What is the order tracking dialog's own.
#include "dialogs/frm_firter1010.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/dialogs/dialog_world.h"

namespace salerpt {
namespace {

class FrmFirter1010Test : public ::testing::Test {
 protected:
  [[nodiscard]] ListControl& Box(const char* name) { return dialog_.GetForm().Get<ListControl>(name); }
  [[nodiscard]] ListControl& CloseState() { return Box("CmbCloseState"); }

  testing::DialogWorld world_;
  FrmFirter1010 dialog_;
};

TEST_F(FrmFirter1010Test, HoldsAnOrderThatIsNotAuditedOpen) {
  dialog_.Load();
  EXPECT_TRUE(CloseState().enabled);
  CloseState().SetListIndex(2);
  Box("cmbCheckState").SetListIndex(1);
  EXPECT_EQ(CloseState().ListIndex(), 1);
  EXPECT_FALSE(CloseState().enabled);
  Box("cmbCheckState").SetListIndex(2);
  EXPECT_EQ(CloseState().ListIndex(), 1);
  EXPECT_TRUE(CloseState().enabled);
}

TEST_F(FrmFirter1010Test, HoldsItAgainstAPlan) {
  world_.plan = {{"CheckState", "1"}, {"CloseState", "2"}};
  dialog_.Load();
  EXPECT_EQ(Box("cmbCheckState").ListIndex(), 1);
  EXPECT_EQ(CloseState().ListIndex(), 1);
  EXPECT_FALSE(CloseState().enabled);
  dialog_.Confirm();
  EXPECT_EQ(dialog_.Filter()->Get("CloseState").ToInt32(), 1);
}

TEST_F(FrmFirter1010Test, TakesThePlansCloseStateOtherwise) {
  world_.plan = {{"CheckState", "2"}, {"CloseState", "2"}};
  dialog_.Load();
  EXPECT_EQ(CloseState().ListIndex(), 2);
  EXPECT_TRUE(CloseState().enabled);
}

TEST_F(FrmFirter1010Test, DeletesTheSelectedRowByTheDeleteKey) {
  world_.plan = {{"OrderBy", "FOrderbyDate ASC,FOrderbyBillNo DESC"}};
  dialog_.Load();
  Form& form = dialog_.GetForm();
  auto& grid = form.Get<OrderGrid>("vsOrder");
  form.PressKey(grid, key_code::kDelete);
  EXPECT_EQ(grid.rows.size(), 2U);
  grid.UserClick(1, 1);
  form.PressKey(grid, key_code::kBackspace);
  EXPECT_EQ(grid.rows.size(), 2U);
  form.PressKey(grid, key_code::kDelete);
  ASSERT_EQ(grid.rows.size(), 1U);
  EXPECT_EQ(grid.rows[0].field, "FOrderbyBillNo");
}

TEST(FrmFirter1010TextTest, CountsACharacter) {
  EXPECT_EQ(FrmFirter1010::GetChrCount("a,b,,c", ","), 3);
  EXPECT_EQ(FrmFirter1010::GetChrCount("abc", ","), 0);
  EXPECT_EQ(FrmFirter1010::GetChrCount("", ","), 0);
}

TEST(FrmFirter1010TextTest, GivesAPiece) {
  EXPECT_EQ(FrmFirter1010::GetStrbyChr("a,b,,c", ",", 1), "a");
  EXPECT_EQ(FrmFirter1010::GetStrbyChr("a,b,,c", ",", 3), "");
  EXPECT_EQ(FrmFirter1010::GetStrbyChr("a,b,,c", ",", 4), "c");
  EXPECT_EQ(FrmFirter1010::GetStrbyChr("a,b,,c", ",", 5), "");
}

}  // namespace
}  // namespace salerpt
