// The sort pane on a bare form.
#include "dialogs/sort_pane.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "tests/runtime/fake_object.h"

namespace salerpt {
namespace {

using testing::FakeRef;

constexpr std::array<SortField, 4> kFields = {{{"产品代码", "FNumber", "", "FShortNumber"},
                                               {"出库数量(常用)", "FCUUnitOutQty"},
                                               {"出库金额", "FOutAmount"},
                                               {"销售金额", "FConsignAmount"}}};
// Caption and field hang on the code rule.
constexpr std::array<SortField, 2> kFeeFields = {
    {{"客户长代码", "FCustFullNumber", "客户代码", "FCustNumber"}, {"金额", "FAmount"}}};

// Tells what is composed, and takes a field away at will.
class TracedSortPane final : public SortPane {
 public:
  using SortPane::RemoveField;
  using SortPane::SortPane;
  std::string trace;

 protected:
  void OnComposed(std::string_view field) override { trace += std::string(field) + ";"; }
  void AfterCompose() override { trace += "end;"; }
};

class SortPaneTest : public ::testing::Test {
 protected:
  SortPaneTest() {
    testing::LogIn(runtime_, "UserID=16394;");
    testing::RegisterFake(runtime_, "ORVEBSBase.SystemProfile")
        ->On("GetProfile", [this](Arguments) -> Variant { return use_short_number_; });
    form_.Add<TabControl>("mstFilter").tabs = {{"条件", true}};
    Make(kFields);
  }
  void Make(std::span<const SortField> fields) {
    pane_ = std::make_unique<TracedSortPane>(form_, fields, "mstFilter");
    pane_->FieldListBuild(true);
  }
  [[nodiscard]] OrderGrid& Grid() const { return form_.Get<OrderGrid>("vsOrder"); }
  [[nodiscard]] ListControl& Fields() const { return form_.Get<ListControl>("listOrderFields"); }
  void Press(const char* button) { form_.Get<Button>(button).Click.Raise(); }
  void Add(int row) {
    Fields().SetListIndex(row);
    Press("cmdAdd");
  }
  [[nodiscard]] bool MovesEnabled() const {
    const bool enabled = form_.Get<Button>("cmdUp").enabled;
    EXPECT_EQ(form_.Get<Button>("cmdDown").enabled, enabled);
    EXPECT_EQ(form_.Get<Button>("cmdDelOrder").enabled, enabled);
    return enabled;
  }
  // "caption,ascending,descending,field;" for each row, with "*" in front of the one that is painted.
  [[nodiscard]] std::string Shown() const {
    std::string shown;
    for (const OrderGrid::Row& row : Grid().rows) {
      EXPECT_EQ(row.check_cells, OrderGrid::CellType::kCheckBox);
      shown += (row.marked ? "*" : "") + row.caption + "," + std::to_string(row.ascending) + "," +
               std::to_string(row.descending) + "," + row.field + ";";
    }
    return shown;
  }
  // The fields of the rows, with "*" in front of the one that is painted.
  [[nodiscard]] std::string Order() const {
    std::string order;
    for (const OrderGrid::Row& row : Grid().rows) order += (row.marked ? "*" : "") + row.field + ";";
    return order;
  }

  Runtime runtime_;
  Variant use_short_number_ = 0;
  Form form_;
  std::unique_ptr<TracedSortPane> pane_;
};

TEST_F(SortPaneTest, NamesItsControls) {
  pane_->ApplyStrings();
  const auto& tabs = form_.Get<TabControl>("mstFilter").tabs;
  ASSERT_EQ(tabs.size(), 2U);
  EXPECT_EQ(tabs[1].caption, "排序");
  EXPECT_TRUE(tabs[1].enabled);
  EXPECT_EQ(form_.Get<Button>("cmdAdd").caption, "添加(&A)");
  EXPECT_EQ(form_.Get<Button>("cmdUp").caption, "上移(&U)");
  EXPECT_EQ(form_.Get<Button>("cmdDown").caption, "下移(&D)");
  EXPECT_EQ(form_.Get<Button>("cmdDelOrder").caption, "删除(&R)");
  EXPECT_EQ(Grid().headers, (std::array<std::string, 4>{"排序字段", "升序", "降序", ""}));
}

// --- The fields on offer

TEST_F(SortPaneTest, OffersCaptionAndFieldFarApart) {
  const std::string blanks(200, ' ');
  const auto& items = Fields().Items();
  ASSERT_EQ(items.size(), 4U);
  EXPECT_EQ(items[0].text, "产品代码" + blanks + "FNumber");
  EXPECT_EQ(items[1].text, "出库数量(常用)" + blanks + "FCUUnitOutQty");
  EXPECT_EQ(items[3].text, "销售金额" + blanks + "FConsignAmount");
  EXPECT_EQ(Fields().ListIndex(), -1);
}

TEST_F(SortPaneTest, OffersTheFieldOfTheCodeRuleInUse) {
  const std::string blanks(200, ' ');
  use_short_number_ = 1;
  pane_->FieldListBuild(true);
  ASSERT_EQ(Fields().Items().size(), 4U);
  EXPECT_EQ(Fields().Items()[0].text, "产品代码" + blanks + "FShortNumber");
  EXPECT_EQ(Fields().Items()[2].text, "出库金额" + blanks + "FOutAmount");
}

TEST(SortPaneOfFeesTest, OffersTheCaptionOfTheCodeRuleInUse) {
  const std::string blanks(200, ' ');
  Runtime runtime;
  testing::LogIn(runtime, "UserID=16394;");
  const FakeRef profile = testing::RegisterFake(runtime, "ORVEBSBase.SystemProfile");
  Form form;
  form.Add<TabControl>("mstFilter").tabs = {{"条件", true}};
  SortPane pane(form, kFeeFields, "mstFilter");
  profile->Gives("GetProfile", 0);
  pane.FieldListBuild(true);
  EXPECT_EQ(form.Get<ListControl>("listOrderFields").Items()[0].text,
            "客户长代码" + blanks + "FCustFullNumber");
  profile->Gives("GetProfile", 1);
  pane.FieldListBuild(false);
  EXPECT_EQ(form.Get<ListControl>("listOrderFields").Items()[0].text, "客户代码" + blanks + "FCustNumber");
  EXPECT_EQ(form.Get<ListControl>("listOrderFields").Items().size(), 2U);
}

// In most dialogs the code stays on offer, grouped or not.
TEST_F(SortPaneTest, OffersTheCodeWithAndWithoutGrouping) {
  pane_->RestoreOrderGrid("NULL");
  pane_->FieldListBuild(false);
  EXPECT_EQ(Fields().Items().size(), 4U);
  EXPECT_EQ(Order(), "FNumber;");
}

// --- Add

TEST_F(SortPaneTest, AddsTheSelectedFieldAscending) {
  Add(2);
  Add(0);
  EXPECT_EQ(Shown(), "出库金额,1,0,FOutAmount;产品代码,1,0,FNumber;");
  EXPECT_FALSE(MovesEnabled());
}

TEST_F(SortPaneTest, AddsByADoubleClick) {
  Fields().SetListIndex(1);
  Fields().DoubleClick.Raise();
  EXPECT_EQ(Order(), "FCUUnitOutQty;");
}

TEST_F(SortPaneTest, AddsNothingWithoutASelectedField) {
  Press("cmdAdd");
  EXPECT_EQ(Order(), "");
}

TEST_F(SortPaneTest, AddsAFieldOnce) {
  Add(1);
  Add(1);
  EXPECT_EQ(Order(), "FCUUnitOutQty;");
  pane_->RestoreOrderGrid("foutamount DESC");
  Add(2);
  EXPECT_EQ(Order(), "foutamount;");
}

TEST_F(SortPaneTest, HoldsFortyRows) {
  std::string text = "A1 ASC";
  for (int n = 2; n <= 50; ++n) text += ",A" + std::to_string(n) + " ASC";
  pane_->RestoreOrderGrid(text);
  ASSERT_EQ(Grid().rows.size(), 40U);
  EXPECT_EQ(Grid().rows[39].field, "A40");
  Add(0);
  EXPECT_EQ(Grid().rows.size(), 40U);
}

// --- Select, move, delete

TEST_F(SortPaneTest, SelectsTheClickedRow) {
  pane_->RestoreOrderGrid("A ASC,B ASC,C DESC");
  EXPECT_FALSE(MovesEnabled());
  Grid().UserClick(2, 1);
  EXPECT_EQ(Order(), "A;*B;C;");
  EXPECT_TRUE(MovesEnabled());
  Grid().UserClick(3, 1);
  EXPECT_EQ(Order(), "A;B;*C;");
}

TEST_F(SortPaneTest, SelectsNothingByAClickElsewhere) {
  pane_->RestoreOrderGrid("A ASC,B ASC");
  for (const int row : {0, 3, 40}) {
    Grid().UserClick(2, 1);
    Grid().UserClick(row, 2);
    EXPECT_EQ(Shown(), ",1,0,A;,1,0,B;") << row;
    // The buttons stay as they were; they do nothing.
    EXPECT_TRUE(MovesEnabled());
    Press("cmdUp");
    Press("cmdDown");
    Press("cmdDelOrder");
    EXPECT_EQ(Order(), "A;B;");
  }
}

TEST_F(SortPaneTest, MovesARowWithAllItsCells) {
  pane_->RestoreOrderGrid("FOutAmount DESC,FConsignAmount ASC,FNumber ASC");
  Grid().UserClick(1, 1);
  Press("cmdDown");
  EXPECT_EQ(Shown(), "销售金额,1,0,FConsignAmount;*出库金额,0,1,FOutAmount;产品代码,1,0,FNumber;");
  Press("cmdUp");
  EXPECT_EQ(Shown(), "*出库金额,0,1,FOutAmount;销售金额,1,0,FConsignAmount;产品代码,1,0,FNumber;");
}

TEST_F(SortPaneTest, WrapsAtBothEnds) {
  pane_->RestoreOrderGrid("A ASC,B ASC,C ASC");
  Grid().UserClick(1, 1);
  Press("cmdUp");
  EXPECT_EQ(Order(), "C;B;*A;");
  Press("cmdDown");
  EXPECT_EQ(Order(), "*A;B;C;");
  Press("cmdUp");
  Press("cmdUp");
  EXPECT_EQ(Order(), "C;*A;B;");
  pane_->RestoreOrderGrid("A DESC");
  Grid().UserClick(1, 1);
  Press("cmdUp");
  Press("cmdDown");
  EXPECT_EQ(Shown(), "*,0,1,A;");
}

TEST_F(SortPaneTest, MovesNothingWithoutASelectedRow) {
  pane_->RestoreOrderGrid("A ASC,B ASC");
  Press("cmdUp");
  Press("cmdDown");
  EXPECT_EQ(Order(), "A;B;");
}

TEST_F(SortPaneTest, DeletesTheSelectedRow) {
  pane_->RestoreOrderGrid("A ASC,B ASC,C ASC");
  Grid().UserClick(2, 1);
  Press("cmdDelOrder");
  EXPECT_EQ(Order(), "A;*C;");
  // Past the end the row before is selected.
  Press("cmdDelOrder");
  EXPECT_EQ(Order(), "*A;");
  EXPECT_TRUE(MovesEnabled());
  Press("cmdDelOrder");
  EXPECT_EQ(Order(), "");
  EXPECT_FALSE(MovesEnabled());
  Press("cmdDelOrder");
  EXPECT_EQ(pane_->ComposeOrderBy(), "");
}

TEST_F(SortPaneTest, DeletesNothingWithoutASelectedRow) {
  pane_->RestoreOrderGrid("A ASC");
  Press("cmdDelOrder");
  EXPECT_EQ(Order(), "A;");
}

TEST_F(SortPaneTest, TakesAFieldOutOfTheGrid) {
  pane_->RestoreOrderGrid("FNumber ASC,B ASC,C ASC");
  Grid().UserClick(3, 1);
  pane_->RemoveField("FNumber");
  EXPECT_EQ(Order(), "*B;C;");
  pane_->RemoveField("fnumber");
  pane_->RemoveField("D");
  EXPECT_EQ(Order(), "*B;C;");
  pane_->RemoveField("C");
  EXPECT_EQ(Order(), "*B;");
  EXPECT_TRUE(MovesEnabled());
  pane_->RemoveField("B");
  EXPECT_EQ(Order(), "");
  EXPECT_FALSE(MovesEnabled());
}

// --- The check boxes

TEST_F(SortPaneTest, KeepsOneDirectionPerRow) {
  pane_->RestoreOrderGrid("A ASC,B ASC");
  // The ticked box: it is cleared, its partner is set.
  Grid().UserClick(2, 2);
  EXPECT_EQ(Shown(), ",1,0,A;*,0,1,B;");
  Grid().UserClick(2, 2);
  EXPECT_EQ(Shown(), ",1,0,A;*,1,0,B;");
  Grid().UserClick(1, 3);
  EXPECT_EQ(Shown(), "*,0,1,A;,1,0,B;");
  Grid().UserClick(1, 3);
  EXPECT_EQ(Shown(), "*,1,0,A;,1,0,B;");
  EXPECT_TRUE(MovesEnabled());
}

TEST_F(SortPaneTest, TogglesNothingBesideTheRows) {
  pane_->RestoreOrderGrid("A ASC");
  Grid().UserClick(2, 2);
  Grid().ButtonClicked.Raise(5, 3);
  EXPECT_EQ(Shown(), ",1,0,A;");
}

// --- The sort text

TEST_F(SortPaneTest, ComposesTheRowsInOrder) {
  EXPECT_EQ(pane_->ComposeOrderBy(), "");
  Add(2);
  Add(1);
  Add(3);
  Grid().UserClick(2, 3);
  EXPECT_EQ(pane_->ComposeOrderBy(), "FOutAmount ASC,FCUUnitOutQty DESC,FConsignAmount ASC");
}

TEST_F(SortPaneTest, TellsWhatItComposes) {
  pane_->RestoreOrderGrid("FOutAmount ASC,B DESC");
  static_cast<void>(pane_->ComposeOrderBy());
  EXPECT_EQ(pane_->trace, "FOutAmount;B;end;");
}

TEST_F(SortPaneTest, ComposesNothingWhereItsTabIsNotEnabled) {
  pane_->RestoreOrderGrid("FOutAmount ASC");
  form_.Get<TabControl>("mstFilter").tabs[1].enabled = false;
  EXPECT_EQ(pane_->ComposeOrderBy(), "");
  EXPECT_EQ(pane_->trace, "");
  form_.Get<TabControl>("mstFilter").tabs[1].enabled = true;
  EXPECT_EQ(pane_->ComposeOrderBy(), "FOutAmount ASC");
}

TEST_F(SortPaneTest, RestoresWhatItComposed) {
  const std::string text = "FOutAmount DESC,FNumber ASC,FCUUnitOutQty DESC";
  pane_->RestoreOrderGrid(text);
  EXPECT_EQ(Shown(), "出库金额,0,1,FOutAmount;产品代码,1,0,FNumber;出库数量(常用),0,1,FCUUnitOutQty;");
  EXPECT_EQ(pane_->ComposeOrderBy(), text);
}

TEST_F(SortPaneTest, SortsByTheItemCodeWithoutAStoredOrder) {
  pane_->RestoreOrderGrid("NULL");
  EXPECT_EQ(Shown(), "产品代码,1,0,FNumber;");
  use_short_number_ = 1;
  pane_->FieldListBuild(true);
  pane_->RestoreOrderGrid("NULL");
  EXPECT_EQ(Shown(), "产品代码,1,0,FShortNumber;");
}

TEST_F(SortPaneTest, ShowsTheCodeOfAStoredOrderUnderTheRuleInUse) {
  use_short_number_ = 1;
  pane_->FieldListBuild(true);
  pane_->RestoreOrderGrid("FOutAmount ASC,fnumber DESC");
  EXPECT_EQ(Shown(), "出库金额,1,0,FOutAmount;产品代码,0,1,FShortNumber;");
  EXPECT_EQ(pane_->ComposeOrderBy(), "FOutAmount ASC,FShortNumber DESC");
}

TEST_F(SortPaneTest, EmptiesTheGridByAnEmptyText) {
  for (const char* text : {"", "   "}) {
    pane_->RestoreOrderGrid("A ASC");
    pane_->RestoreOrderGrid(text);
    EXPECT_EQ(Order(), "");
    EXPECT_EQ(pane_->ComposeOrderBy(), "");
  }
}

TEST_F(SortPaneTest, ClearsTheSelectionWhenItRestores) {
  pane_->RestoreOrderGrid("A ASC,B ASC");
  Grid().UserClick(2, 1);
  pane_->RestoreOrderGrid("C ASC,D ASC");
  EXPECT_EQ(Order(), "C;D;");
  Press("cmdDelOrder");
  Press("cmdUp");
  EXPECT_EQ(Order(), "C;D;");
}

TEST_F(SortPaneTest, SortsByAFieldThatIsNotOnOffer) {
  pane_->RestoreOrderGrid("FGone DESC");
  EXPECT_EQ(Shown(), ",0,1,FGone;");
  EXPECT_EQ(pane_->ComposeOrderBy(), "FGone DESC");
}

// Any direction but "ASC" descends.
TEST_F(SortPaneTest, ReadsAPieceUpToItsFirstBlank) {
  pane_->RestoreOrderGrid("A,B asc,C ASC ");
  EXPECT_EQ(Shown(), ",0,1,A;,0,1,B;,0,1,C;");
  pane_->RestoreOrderGrid("A ASC,,B ASC,");
  EXPECT_EQ(Shown(), ",1,0,A;,0,1,;,1,0,B;,0,1,;");
}

}  // namespace
}  // namespace salerpt
