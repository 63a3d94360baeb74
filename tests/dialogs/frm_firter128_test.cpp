// What is the outbound summary's dialog's own: the item code that comes and goes, and the usage log.
#include "dialogs/frm_firter128.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "dialogs/usage_log.h"
#include "tests/dialogs/dialog_world.h"

namespace salerpt {
namespace {

using Names = std::vector<std::string>;

class FrmFirter128Test : public ::testing::Test {
 protected:
  [[nodiscard]] std::string Offered() {
    std::string fields;
    for (const ListItem& item : dialog_.GetForm().Get<ListControl>("listOrderFields").Items()) {
      fields += item.text.substr(item.text.rfind(' ') + 1) + ";";
    }
    return fields;
  }
  [[nodiscard]] std::string Order() {
    std::string fields;
    for (const OrderGrid::Row& row : Grid().rows) fields += (row.marked ? "*" : "") + row.field + ";";
    return fields;
  }
  [[nodiscard]] OrderGrid& Grid() { return dialog_.GetForm().Get<OrderGrid>("vsOrder"); }
  void Check(const char* box, int value) { dialog_.GetForm().Get<CheckBox>(box).SetValue(value); }
  [[nodiscard]] bool MovesEnabled() { return dialog_.GetForm().Get<Button>("cmdDelOrder").enabled; }

  testing::DialogWorld world_;
  FrmFirter128 dialog_;
};

constexpr const char* kWithoutCode = "FCUUnitOutQty;FOutAmount;FConsignAmount;";
constexpr const char* kWithCode = "FNumber;FCUUnitOutQty;FOutAmount;FConsignAmount;";

TEST_F(FrmFirter128Test, OffersTheItemCodeOnlyWithoutGrouping) {
  dialog_.Load();
  EXPECT_EQ(Offered(), kWithoutCode);
  Check("chkGroupBy", 0);
  EXPECT_EQ(Offered(), kWithCode);
  Check("chkGroupBy", 1);
  EXPECT_EQ(Offered(), kWithoutCode);
}

// A plan without an order sorts by the item code, though a grouped list does not offer it.
TEST_F(FrmFirter128Test, SortsByTheItemCodeAsItOpens) {
  dialog_.Load();
  ASSERT_EQ(Grid().rows.size(), 1U);
  EXPECT_EQ(Grid().rows[0].caption, "");
  dialog_.Confirm();
  EXPECT_EQ(dialog_.Filter()->Get("Orderby"), Variant("FNumber ASC"));
}

TEST_F(FrmFirter128Test, TakesTheItemCodeOutOfTheGridWithGrouping) {
  world_.plan = {{"chkGroupBy", "0"}, {"OrderBy", "FOutAmount DESC,FNumber ASC,FConsignAmount ASC"}};
  dialog_.Load();
  EXPECT_EQ(Order(), "FOutAmount;FNumber;FConsignAmount;");
  EXPECT_EQ(Grid().rows[1].caption, "产品代码");
  Check("chkGroupBy", 1);
  EXPECT_EQ(Order(), "FOutAmount;*FConsignAmount;");
  // It is offered again, but not put back.
  Check("chkGroupBy", 0);
  EXPECT_EQ(Offered(), kWithCode);
  EXPECT_EQ(Order(), "FOutAmount;*FConsignAmount;");
}

TEST_F(FrmFirter128Test, SelectsTheRowBeforeWhereTheItemCodeWasTheLast) {
  world_.plan = {{"chkGroupBy", "0"}, {"OrderBy", "FOutAmount DESC,FNumber ASC"}};
  dialog_.Load();
  Check("chkGroupBy", 1);
  EXPECT_EQ(Order(), "*FOutAmount;");
  EXPECT_TRUE(MovesEnabled());
}

TEST_F(FrmFirter128Test, SelectsNothingWhereTheItemCodeWasTheOnlyRow) {
  world_.plan = {{"chkGroupBy", "0"}};
  dialog_.Load();
  Grid().UserClick(1, 1);
  EXPECT_EQ(Order(), "*FNumber;");
  EXPECT_TRUE(MovesEnabled());
  Check("chkGroupBy", 1);
  EXPECT_EQ(Order(), "");
  EXPECT_FALSE(MovesEnabled());
}

// The row is looked for under the long code's field alone.
TEST_F(FrmFirter128Test, LeavesTheShortCodeInTheGrid) {
  world_.profile->Gives("GetProfile", 1);
  world_.plan = {{"chkGroupBy", "0"}};
  dialog_.Load();
  EXPECT_EQ(Order(), "FShortNumber;");
  Check("chkGroupBy", 1);
  EXPECT_EQ(Order(), "FShortNumber;");
  EXPECT_EQ(Offered(), kWithoutCode);
}

TEST_F(FrmFirter128Test, CannotSortTotalsWithoutGrouping) {
  dialog_.Load();
  Check("chkGroupBy", 0);
  dialog_.Confirm();
  EXPECT_EQ(dialog_.Filter()->Get("Orderby"), Variant(""));
}

// --- The usage log

TEST_F(FrmFirter128Test, CountsWhatAConfirmationSortsByOnce) {
  world_.plan = {{"OrderBy", "FConsignAmount ASC,FOutAmount DESC,FNumber ASC,FCUUnitOutQty ASC"}};
  dialog_.Load();
  EXPECT_EQ(world_.Counted(), Names{});
  dialog_.Confirm();
  // The default plan is saved before the sort text is written.
  EXPECT_EQ(world_.Counted(), (Names{"XSCKHZ_PX3", "XSCKHZ_PX2", "XSCKHZ_PX1"}));
}

TEST_F(FrmFirter128Test, CountsUnderANamedPlanToo) {
  world_.plan = {{"OrderBy", "FOutAmount DESC"}};
  dialog_.ShowFinish("月报");
  EXPECT_EQ(world_.Counted(), Names{"XSCKHZ_PX2"});
}

TEST_F(FrmFirter128Test, CountsNothingWhereItCannotBeSorted) {
  world_.plan = {{"chkGroupBy", "0"}, {"OrderBy", "FOutAmount DESC"}};
  dialog_.Load();
  dialog_.Confirm();
  EXPECT_EQ(world_.Counted(), Names{});
}

TEST_F(FrmFirter128Test, CountsNothingWhenAPlanIsSaved) {
  world_.plan = {{"OrderBy", "FOutAmount DESC"}};
  dialog_.Load();
  Vector rows;
  dialog_.CollectPlan("月报", rows);
  EXPECT_EQ(world_.Counted(), Names{});
  dialog_.Confirm();
  EXPECT_EQ(world_.Counted(), Names{"XSCKHZ_PX2"});
}

TEST(UsageLogTest, TellsTheLoginAndTheName) {
  const testing::DialogWorld world;
  WriteUsageLog("XSCKHZ_PX2");
  const auto& calls = world.usage->Calls();
  ASSERT_EQ(calls.size(), 2U);
  EXPECT_EQ(calls[0].member, "PropString");
  EXPECT_EQ(calls[0].arguments[0], Variant("UserID=16394;"));
  EXPECT_EQ(calls[1].arguments, (std::vector<Variant>{"C001C029", "XSCKHZ_PX2"}));
}

TEST(UsageLogTest, IgnoresWhateverFails) {
  testing::DialogWorld world;
  world.usage->OnAssign("PropString", [](Arguments) -> Variant { throw RuntimeError(7, "x", "no"); });
  WriteUsageLog("A");
  EXPECT_EQ(world.Counted(), Names{"A"});
  world.usage->Raises("WriteMGLog", RuntimeError(7, "x", "no"));
  WriteUsageLog("B");
  world.runtime.Register("ORV_APFC.FrameData", []() -> ObjectRef { throw RuntimeError(429, "x", "no"); });
  WriteUsageLog("C");
  EXPECT_EQ(world.Counted(), (Names{"A", "B"}));
}

}  // namespace
}  // namespace salerpt
