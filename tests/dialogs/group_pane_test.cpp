// The group-by and level pane on a bare form.
#include "dialogs/group_pane.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "tests/runtime/error_check.h"
#include "tests/runtime/fake_object.h"

namespace salerpt {
namespace {

using testing::FakeRef;

constexpr std::array<GroupByRow, 5> kRows = {
    {{"物料类别", 1}, {"客户类别", 2}, {"物料类别+客户", 3}, {"客户+物料类别", 4}, {"客户", 5}}};
constexpr std::array<SumFieldRow, 1> kSumFields = {{{5, "客户", 1, true}}};
constexpr GroupByTable kPlain = {.rows = kRows, .sum_fields = kSumFields};
constexpr GroupByTable kWithProperties = {
    .rows = kRows, .sum_fields = kSumFields, .properties = " FItemClassID IN (4,1) ", .property_offset = 4};
// Six rows of its own, five of them counted off: the property rows are one past.
constexpr std::array<GroupByRow, 6> kSixRows = {
    {{"物料类别", 1}, {"客户类别", 2}, {"物料类别+客户", 3}, {"客户+物料类别", 4}, {"客户", 5}, {"部门", 6}}};
constexpr GroupByTable kOnePast = {.rows = kSixRows,
                                   .sum_fields = kSumFields,
                                   .properties = " FItemClassID IN (4,1) ",
                                   .property_offset = 4};
// The rows of the outbound summary.
constexpr std::array<GroupByRow, 12> kOutboundRows = {{{"物料类别", 1},
                                                       {"客户类别", 2},
                                                       {"物料类别+客户", 3},
                                                       {"客户+物料类别", 4},
                                                       {"客户", 5},
                                                       {"业务员", 6},
                                                       {"部门", 9},
                                                       {"部门+业务员", 10},
                                                       {"销售方式", 7},
                                                       {"客户类别+客户", 8},
                                                       {"客户+业务员", 11},
                                                       {"业务员+客户+物料类别", 12}}};
constexpr std::array<SumFieldRow, 5> kOutboundFields = {
    {{.code = 7,
      .name = "销售方式",
      .item_class_id = 1,
      .prop_id = 29,
      .sql_column_name = "FSaleStyle",
      .src_table = "t_SubMessage",
      .src_field = "FInterID",
      .display_field = "FName"},
     {5, "客户", 1},
     {.code = 6, .name = "业务员", .item_class_id = 1, .translated = false},
     {10, "部门", 0},
     {11, "客户", 0}}};
constexpr GroupByTable kOutbound = {.rows = kOutboundRows, .sum_fields = kOutboundFields};
// "销售方式" under code 0, without properties.
constexpr std::array<GroupByRow, 2> kSaleStyleRows = {{{"客户", 5}, {"销售方式", 0}}};
constexpr std::array<SumFieldRow, 2> kSaleStyleFields = {{{.code = 0,
                                                           .name = "销售方式",
                                                           .item_class_id = 29,
                                                           .prop_id = 29,
                                                           .sql_column_name = "FSaleStyle",
                                                           .src_table = "t_SubMessage",
                                                           .src_field = "FInterID",
                                                           .display_field = "FName"},
                                                          {5, "客户", 2}}};
constexpr GroupByTable kSaleStyle = {.rows = kSaleStyleRows, .sum_fields = kSaleStyleFields};

DictionaryRef Property(const std::string& name, std::int32_t id) {
  auto property = std::make_shared<Dictionary>();
  property->Set("FName", name);
  property->Set("FPropID", id);
  property->Set("FSQLColumnName", "F_" + std::to_string(id));
  return property;
}

std::string Shown(const Dictionary& field) {
  std::string shown;
  for (const Dictionary::Entry& entry : field.Entries()) {
    shown += entry.key + "=" + entry.value.TextOrEmpty() + ";";
  }
  return shown;
}

// What a row without class and name gives.
constexpr const char* kSaysNothing = "FPropID=0;FSQLColumnName=FName;FSrcTable=;FSrcField=;FDisplayField=;";

class GroupPaneTest : public ::testing::Test {
 protected:
  GroupPaneTest() {
    testing::LogIn(runtime_, "UserID=16394;");
    data_ = testing::RegisterFake(runtime_, "ORVMSaleRpt.Data", nullptr, &made_);
    Depths(5, 5);
  }
  // Depths of the item tree and the customer tree.
  void Depths(std::int32_t items, std::int32_t customers) {
    data_->On("GetItemMaxLevel", [items, customers](Arguments arguments) -> Variant {
      return arguments[1].ToInt32() == 4 ? items : customers;
    });
  }
  void Properties(const std::vector<DictionaryRef>& properties) {
    auto list = std::make_shared<Vector>();
    for (const DictionaryRef& property : properties) list->Add(property);
    data_->Gives("GetItemPropDesc", list);
  }
  void Make(const GroupByTable& table) {
    form_.Add<TabControl>("mstFilter").tabs = {{"条件", true}, {"排序", true}};
    pane_ = std::make_unique<GroupPane>(form_, table, "mstFilter");
    pane_->SetLevelBounds(0, 5);
    pane_->LoadGroupByItems();
  }
  // As a dialog opens: grouped, levels 1 to 5.
  void Open(const GroupByTable& table) {
    Make(table);
    Grouped().SetValue(1);
    OnlySums().SetValue(1);
    SetLevels("1", "5");
  }
  void SetLevels(const std::string& begin, const std::string& end) {
    Level(1).SetText(end);
    Level(0).SetText(begin);
  }
  [[nodiscard]] std::string Levels() const { return Level(0).Text() + ".." + Level(1).Text(); }
  [[nodiscard]] TextBox& Level(int index) const { return form_.Get<TextBox>("txtlevel", index); }
  [[nodiscard]] CheckBox& Grouped() const { return form_.Get<CheckBox>("chkGroupBy"); }
  [[nodiscard]] CheckBox& OnlySums() const { return form_.Get<CheckBox>("chkOnlyShowSum"); }
  [[nodiscard]] ListControl& Rows() const { return form_.Get<ListControl>("cmbGroupBy"); }
  [[nodiscard]] const UpDown& Begin() const { return form_.Get<UpDown>("udBLevel"); }
  [[nodiscard]] const UpDown& End() const { return form_.Get<UpDown>("udELevel"); }
  [[nodiscard]] bool SortTabEnabled() const { return form_.Get<TabControl>("mstFilter").tabs[1].enabled; }
  [[nodiscard]] std::string RowTexts() const {
    std::string texts;
    for (const ListItem& item : Rows().Items())
      texts += item.text + "=" + std::to_string(item.item_data) + ";";
    return texts;
  }
  // The description of a row, and "SumMode" as the filter then holds it.
  [[nodiscard]] std::string SumFieldOf(int row) {
    Rows().SetListIndex(row);
    Dictionary filter;
    filter.Set("SumMode", pane_->SumMode());
    const DictionaryRef field = pane_->SumField(filter);
    return std::to_string(filter.Get("SumMode").ToInt32()) + " " + Shown(*field);
  }

  Runtime runtime_;
  int made_ = 0;
  FakeRef data_;
  Form form_;
  std::unique_ptr<GroupPane> pane_;
};

TEST_F(GroupPaneTest, NamesItsControls) {
  Make(kPlain);
  pane_->ApplyStrings();
  EXPECT_EQ(Grouped().caption, "分级汇总");
  EXPECT_EQ(OnlySums().caption, "仅显示汇总行");
  EXPECT_EQ(form_.Get<Label>("lblGroupBy").caption, "汇总依据:");
  EXPECT_EQ(form_.Get<Label>("Label7").caption, "类别级次:");
  EXPECT_EQ(form_.Get<Label>("Label6").caption, "至: ");
}

// --- The rows

TEST_F(GroupPaneTest, FillsTheRowsAndSelectsNone) {
  Make(kPlain);
  EXPECT_EQ(RowTexts(), "物料类别=1;客户类别=2;物料类别+客户=3;客户+物料类别=4;客户=5;");
  EXPECT_EQ(Rows().ListIndex(), -1);
  EXPECT_EQ(made_, 0);
  EXPECT_EQ(pane_->SumMode(), 0);
  EXPECT_EQ(pane_->SumName(), "");
}

TEST_F(GroupPaneTest, FillsThePropertiesBehindTheRows) {
  Properties({Property("品牌", 71), Property("区域", 72)});
  Make(kWithProperties);
  EXPECT_EQ(RowTexts(), "物料类别=1;客户类别=2;物料类别+客户=3;客户+物料类别=4;客户=5;品牌=0;区域=0;");
  ASSERT_EQ(data_->Calls().size(), 1U);
  EXPECT_EQ(data_->Calls()[0].arguments[0], Variant("UserID=16394;"));
  EXPECT_EQ(data_->Calls()[0].arguments[1], Variant(" FItemClassID IN (4,1) "));
}

TEST_F(GroupPaneTest, OpensWithoutThePropertiesWhereTheyCannotBeRead) {
  data_->Raises("GetItemPropDesc", RuntimeError(7, "x", "no"));
  Make(kWithProperties);
  EXPECT_EQ(Rows().Items().size(), 5U);
  data_->Gives("GetItemPropDesc", std::make_shared<Dictionary>());
  pane_->LoadGroupByItems();
  EXPECT_EQ(Rows().Items().size(), 5U);
  data_->Gives("GetItemPropDesc", Variant());
  pane_->LoadGroupByItems();
  EXPECT_EQ(Rows().Items().size(), 5U);
  runtime_.host_object = nullptr;
  pane_->LoadGroupByItems();
  EXPECT_EQ(Rows().Items().size(), 5U);
}

TEST_F(GroupPaneTest, TakesAnotherTablesRows) {
  Open(kPlain);
  Rows().SetListIndex(2);
  pane_->SetTable(kSaleStyle);
  EXPECT_EQ(RowTexts(), "客户=5;销售方式=0;");
  EXPECT_EQ(Rows().ListIndex(), -1);
}

TEST_F(GroupPaneTest, TellsTheSelectedRow) {
  Open(kOutbound);
  Rows().SetListIndex(6);
  EXPECT_EQ(pane_->SumMode(), 9);
  EXPECT_EQ(pane_->SumName(), "部门");
}

// --- The levels of a row

TEST_F(GroupPaneTest, KnowsTheClassOfEachCode) {
  Make(kPlain);
  const std::vector<std::int32_t> classes = {0, 4, 1, 4, 4, 0, 0, 0, 1, 0, 0, 0, 4, 0};
  for (std::int32_t code = 0; code < 14; ++code) {
    EXPECT_EQ(pane_->LevelClass(code), classes[static_cast<std::size_t>(code)]) << code;
  }
}

TEST_F(GroupPaneTest, AsksTheDepthOfTheRowsTreeAnewEachTime) {
  Depths(3, 2);
  Open(kPlain);
  Rows().SetListIndex(0);
  EXPECT_EQ(Begin().max, 3);
  EXPECT_EQ(End().max, 3);
  EXPECT_EQ(Levels(), "1..3");
  Rows().SetListIndex(1);
  EXPECT_EQ(End().max, 2);
  EXPECT_EQ(Levels(), "1..2");
  EXPECT_EQ(made_, 2);
  EXPECT_EQ(data_->Calls()[0].arguments[0], Variant("UserID=16394;"));
  EXPECT_EQ(data_->Calls()[0].arguments[1].ToInt32(), 4);
  EXPECT_EQ(data_->Calls()[1].arguments[1].ToInt32(), 1);
}

// An end level too high falls to the top, a begin level too high to the first.
TEST_F(GroupPaneTest, BringsLevelsIntoTheTree) {
  Depths(3, 2);
  Open(kPlain);
  SetLevels("3", "3");
  Rows().SetListIndex(1);
  EXPECT_EQ(Levels(), "1..2");
  SetLevels("2", "2");
  Rows().SetListIndex(0);
  EXPECT_EQ(Levels(), "2..2");
}

TEST_F(GroupPaneTest, ShowsLevelZeroForATreeWithoutClasses) {
  Depths(0, 0);
  Open(kPlain);
  Rows().SetListIndex(0);
  EXPECT_EQ(Begin().max, 5);
  EXPECT_EQ(End().max, 5);
  // The begin level follows the end level downwards.
  EXPECT_EQ(Levels(), "0..0");
  pane_->FixZeroLevels();
  EXPECT_EQ(Levels(), "1..1");
}

TEST_F(GroupPaneTest, KeepsTheLevelsWhereTheDepthCannotBeAsked) {
  data_->Raises("GetItemMaxLevel", RuntimeError(7, "x", "no"));
  Open(kPlain);
  Rows().SetListIndex(0);
  EXPECT_EQ(Begin().max, 5);
  EXPECT_EQ(End().max, 5);
  EXPECT_EQ(Levels(), "1..5");
  EXPECT_FALSE(GroupPane::ItemMaxLevel(4).has_value());
}

TEST_F(GroupPaneTest, DoesNothingWithoutARow) {
  Open(kPlain);
  Rows().SetListIndex(-1);
  EXPECT_EQ(made_, 0);
  EXPECT_TRUE(Level(0).visible);
}

TEST_F(GroupPaneTest, TakesTheLevelsAwayFromAPlainRowAndKeepsTheirText) {
  Open(kPlain);
  Rows().SetListIndex(0);
  SetLevels("2", "4");
  const std::vector<std::string> names = {"Label7",      "Label6",   "txtlevel(0)",
                                          "txtlevel(1)", "udBLevel", "udELevel"};
  for (const std::string& name : names) EXPECT_TRUE(form_.Find(name)->IsAvailable()) << name;
  Rows().SetListIndex(4);
  for (const std::string& name : names) EXPECT_FALSE(form_.Find(name)->IsAvailable()) << name;
  EXPECT_EQ(Levels(), "2..4");
  EXPECT_EQ(End().max, 5);
  Rows().SetListIndex(3);
  for (const std::string& name : names) EXPECT_TRUE(form_.Find(name)->IsAvailable()) << name;
}

// --- The boxes

TEST_F(GroupPaneTest, LosesTheSortTabForTotalsWithoutGrouping) {
  Make(kPlain);
  struct State {
    int grouped;
    int only_sums;
    bool enabled;
  };
  for (const State& state : {State{0, 0, true}, {0, 1, false}, {1, 1, true}, {1, 0, true}, {0, 0, true}}) {
    Grouped().SetValue(state.grouped);
    OnlySums().SetValue(state.only_sums);
    EXPECT_EQ(SortTabEnabled(), state.enabled) << state.grouped << state.only_sums;
  }
}

TEST_F(GroupPaneTest, LosesTheSortTabByEitherBox) {
  Open(kPlain);
  Grouped().SetValue(0);
  EXPECT_FALSE(SortTabEnabled());
  OnlySums().SetValue(0);
  EXPECT_TRUE(SortTabEnabled());
  OnlySums().SetValue(1);
  EXPECT_FALSE(SortTabEnabled());
  Grouped().SetValue(1);
  EXPECT_TRUE(SortTabEnabled());
}

TEST_F(GroupPaneTest, NeedsNoSortTab) {
  form_.Add<TabControl>("SSTab").tabs = {{"条件", true}};
  GroupPane pane(form_, kPlain, "SSTab");
  OnlySums().SetValue(1);
  pane.ApplyGroupBy();
  EXPECT_TRUE(form_.Get<TabControl>("SSTab").tabs[0].enabled);
}

TEST_F(GroupPaneTest, OffersTheFrameOnlyWhereRowsAreGrouped) {
  Open(kPlain);
  EXPECT_TRUE(form_.Get<Frame>("Frame1").enabled);
  form_.UserSelect(Rows(), 0);
  form_.UserCheck(Grouped(), 0);
  EXPECT_FALSE(form_.Get<Frame>("Frame1").enabled);
  // What stands in the frame is out of reach; the boxes are not.
  form_.UserSelect(Rows(), 2);
  EXPECT_EQ(Rows().ListIndex(), 0);
  EXPECT_FALSE(Level(0).CanFocus());
  form_.UserCheck(OnlySums(), 0);
  EXPECT_EQ(OnlySums().Value(), 0);
  form_.UserCheck(Grouped(), 1);
  form_.UserSelect(Rows(), 2);
  EXPECT_EQ(Rows().ListIndex(), 2);
}

TEST_F(GroupPaneTest, TellsWhetherRowsAreGrouped) {
  Make(kPlain);
  std::vector<bool> told;
  pane_->GroupingChanged.Connect([&told](bool grouped) { told.push_back(grouped); });
  Grouped().SetValue(1);
  OnlySums().SetValue(1);
  Grouped().SetValue(0);
  pane_->ApplyGroupBy();
  EXPECT_EQ(told, (std::vector<bool>{true, false, false}));
}

// --- The level fields

TEST_F(GroupPaneTest, TakesDigitsOnly) {
  Open(kPlain);
  form_.Type(Level(0), "a2-.x");
  EXPECT_EQ(Level(0).Text(), "2");
  form_.PressKey(Level(0), key_code::kBackspace);
  EXPECT_EQ(Level(0).Text(), "");
  form_.PressKey(Level(0), '3');
  EXPECT_EQ(Level(0).Text(), "3");
}

TEST_F(GroupPaneTest, SelectsTheWholeLevelWhenTheFocusEnters) {
  Open(kPlain);
  form_.PressKey(Level(1), '4');
  EXPECT_EQ(Levels(), "1..4");
}

TEST_F(GroupPaneTest, ShowsTheMaximumForALevelAboveIt) {
  Open(kPlain);
  Rows().SetListIndex(0);
  form_.Type(Level(1), "9");
  EXPECT_EQ(Levels(), "1..5");
  form_.Type(Level(1), "42");
  EXPECT_EQ(Levels(), "1..5");
  form_.Type(Level(0), "7");
  EXPECT_EQ(Levels(), "5..5");
}

TEST_F(GroupPaneTest, TurnsANegativeLevelIntoTheFirst) {
  Open(kPlain);
  Level(0).SetText("-3");
  EXPECT_EQ(Levels(), "1..5");
  Level(1).SetText("-1");
  EXPECT_EQ(Levels(), "1..1");
}

TEST_F(GroupPaneTest, PullsTheBeginLevelDownToTheEndLevel) {
  Open(kPlain);
  SetLevels("3", "4");
  form_.Type(Level(1), "2");
  EXPECT_EQ(Levels(), "2..2");
  form_.Type(Level(0), "4");
  EXPECT_EQ(Levels(), "2..2");
  form_.Type(Level(1), "5");
  EXPECT_EQ(Levels(), "2..5");
}

// The text goes over as it stands.
TEST_F(GroupPaneTest, PullsTheTextOfTheEndLevel) {
  Open(kPlain);
  SetLevels("3", "4");
  Level(1).SetText("02");
  EXPECT_EQ(Levels(), "02..02");
  Level(1).SetText("");
  EXPECT_EQ(Levels(), "..");
}

TEST_F(GroupPaneTest, ReplacesAnEmptyOrZeroLevelWhenTheFocusLeaves) {
  Open(kPlain);
  for (const char* text : {"", "0", "00", "x"}) {
    form_.SetFocus(Level(0));
    Level(0).SetText(text);
    form_.LeaveFocus();
    EXPECT_EQ(Levels(), "1..5") << text;
  }
  form_.SetFocus(Level(1));
  Level(1).SetText("0");
  EXPECT_EQ(Levels(), "0..0");
  form_.LeaveFocus();
  EXPECT_EQ(Levels(), "0..1");
  form_.SetFocus(Level(0));
  form_.LeaveFocus();
  EXPECT_EQ(Levels(), "1..1");
}

// A begin level of 1 falls back while the end level is 0.
TEST_F(GroupPaneTest, LeavesTheBeginLevelBelowAnEndLevelOfZero) {
  Open(kPlain);
  SetLevels("0", "0");
  form_.SetFocus(Level(0));
  form_.LeaveFocus();
  EXPECT_EQ(Levels(), "0..0");
}

TEST_F(GroupPaneTest, ConfirmsZeroLevelsAsOne) {
  Open(kPlain);
  for (const auto& [begin, end, fixed] : {std::array{"0", "0", "1..1"},
                                          {"", "", "1..1"},
                                          {"0", "4", "1..4"},
                                          {"", "4", "1..4"},
                                          {"2", "3", "2..3"},
                                          {"00", "1", "1..1"}}) {
    SetLevels(begin, end);
    pane_->FixZeroLevels();
    EXPECT_EQ(Levels(), fixed) << begin << ".." << end;
  }
}

TEST_F(GroupPaneTest, EndsWithoutLoopingUnderAMaximumBelowZero) {
  Depths(-1, -1);
  Open(kPlain);
  Rows().SetListIndex(0);
  EXPECT_EQ(End().max, -1);
  Level(1).SetText("3");
  EXPECT_EQ(Level(1).Text(), "-1");
}

// --- What the report gets

TEST_F(GroupPaneTest, DescribesTheRowsOfTheOutboundSummary) {
  Open(kOutbound);
  const std::string rest = kSaysNothing;
  EXPECT_EQ(SumFieldOf(8),
            "7 FItemClassID=1;FName=销售方式;FPropID=29;FSQLColumnName=FSaleStyle;FSrcTable=t_SubMessage;"
            "FSrcField=FInterID;FDisplayField=FName;");
  EXPECT_EQ(SumFieldOf(4), "5 FItemClassID=1;FName=客户;" + rest);
  EXPECT_EQ(SumFieldOf(5), "6 FItemClassID=1;FName=业务员;" + rest);
  EXPECT_EQ(SumFieldOf(7), "10 FName=部门;" + rest);
  EXPECT_EQ(SumFieldOf(10), "11 FName=客户;" + rest);
  for (const auto& [row, code] : {std::pair{0, 1}, {1, 2}, {2, 3}, {3, 4}, {6, 9}, {9, 8}, {11, 12}}) {
    EXPECT_EQ(SumFieldOf(row), std::to_string(code) + " " + rest) << row;
  }
}

TEST_F(GroupPaneTest, DescribesAPlainDimensionUnderSumModeZero) {
  Open(kPlain);
  EXPECT_EQ(SumFieldOf(4), std::string("0 FItemClassID=1;FName=客户;") + kSaysNothing);
  EXPECT_EQ(SumFieldOf(0), std::string("1 ") + kSaysNothing);
}

TEST_F(GroupPaneTest, DescribesCodeZeroOfATableWithoutProperties) {
  Open(kSaleStyle);
  EXPECT_EQ(SumFieldOf(1),
            "0 FItemClassID=29;FName=销售方式;FPropID=29;FSQLColumnName=FSaleStyle;FSrcTable=t_SubMessage;"
            "FSrcField=FInterID;FDisplayField=FName;");
  EXPECT_EQ(SumFieldOf(0), std::string("5 FItemClassID=2;FName=客户;") + kSaysNothing);
}

TEST_F(GroupPaneTest, HandsTheReportThePropertyOfTheRow) {
  const DictionaryRef brand = Property("品牌", 71);
  const DictionaryRef region = Property("区域", 72);
  Properties({brand, region});
  Open(kWithProperties);
  Dictionary filter;
  Rows().SetListIndex(5);
  EXPECT_EQ(pane_->SumField(filter), brand);
  EXPECT_EQ(pane_->SumName(), "品牌");
  Rows().SetListIndex(6);
  EXPECT_EQ(pane_->SumField(filter), region);
  EXPECT_FALSE(filter.Lookup("SumMode"));
}

TEST_F(GroupPaneTest, HandsTheReportThePropertyOnePastTheRow) {
  const DictionaryRef brand = Property("品牌", 71);
  const DictionaryRef region = Property("区域", 72);
  Properties({brand, region});
  Open(kOnePast);
  Dictionary filter;
  Rows().SetListIndex(6);
  EXPECT_EQ(pane_->SumName(), "品牌");
  EXPECT_EQ(pane_->SumField(filter), region);
  // Behind the last one there is none.
  EXPECT_EQ(SumFieldOf(7), std::string("0 ") + kSaysNothing);
}

TEST_F(GroupPaneTest, SaysNothingWithoutARow) {
  Properties({Property("品牌", 71)});
  Make(kWithProperties);
  Dictionary filter;
  EXPECT_EQ(Shown(*pane_->SumField(filter)), kSaysNothing);
}

}  // namespace
}  // namespace salerpt
