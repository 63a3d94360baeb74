#include "dialogs/group_pane.h"

#include <algorithm>
#include <memory>

#include "dialogs/ignoring.h"
#include "runtime/mmts.h"
#include "runtime/mparse.h"
#include "runtime/runtime.h"
#include "sqltoolkit/item_level.h"

namespace salerpt {
namespace {

constexpr int kBeginLevel = 0;
constexpr int kEndLevel = 1;
constexpr std::size_t kSortTab = 1;

// What a code without a description of its own gets: neither class nor name.
constexpr SumFieldRow kPlainRow{0, "", 0};

DictionaryRef Describe(const SumFieldRow& row) {
  auto field = std::make_shared<Dictionary>();
  if (row.item_class_id != 0) field->Set("FItemClassID", row.item_class_id);
  if (!row.name.empty()) field->Set("FName", row.translated ? ResText(row.name) : std::string(row.name));
  field->Set("FPropID", row.prop_id);
  field->Set("FSQLColumnName", row.sql_column_name);
  field->Set("FSrcTable", row.src_table);
  field->Set("FSrcField", row.src_field);
  field->Set("FDisplayField", row.display_field);
  return field;
}

}  // namespace

GroupPane::GroupPane(Form& form, const GroupByTable& table, std::string_view tabs)
    : form_(form), table_(&table), tabs_(tabs), end_level_label_(table.end_level_label) {
  form_.Add<CheckBox>("chkGroupBy").Click.Connect([this] { ApplyGroupBy(); });
  form_.Add<CheckBox>("chkOnlyShowSum").Click.Connect([this] { EnableSortTab(); });
  const auto& frame = form_.Add<Frame>("Frame1");
  form_.Add<Label>("lblGroupBy").container = &frame;
  auto& rows = form_.Add<ListControl>("cmbGroupBy", ListControl::Style::kCombo);
  rows.container = &frame;
  rows.Click.Connect([this] { OnGroupByClick(); });
  form_.Add<Label>("Label7").container = &frame;
  MakeLevel(kBeginLevel, "udBLevel");
  form_.Add<Label>(end_level_label_).container = &frame;
  MakeLevel(kEndLevel, "udELevel");
}

void GroupPane::MakeLevel(int index, std::string_view up_down) {
  const auto& frame = form_.Get<Frame>("Frame1");
  auto& level = form_.Add<TextBox>(ControlName("txtlevel", index));
  level.container = &frame;
  level.GotFocus.Connect([&level] { level.SelectAll(); });
  level.KeyPress.Connect([](KeyStroke& key) {
    const bool is_digit = key.code >= '0' && key.code <= '9';
    if (!is_digit && key.code != key_code::kBackspace) key.code = 0;
  });
  level.Change.Connect([this, index] { OnLevelChange(index); });
  level.Validate.Connect([this, index] { OnLevelValidate(index); });
  auto& arrows = form_.Add<UpDown>(std::string(up_down));
  arrows.container = &frame;
  arrows.max = kDeepestLevel;
}

void GroupPane::ApplyStrings() {
  form_.Get<CheckBox>("chkGroupBy").caption = ResText("分级汇总");
  form_.Get<CheckBox>("chkOnlyShowSum").caption = ResText("仅显示汇总行");
  form_.Get<Label>("lblGroupBy").caption = ResText("汇总依据:");
  form_.Get<Label>("Label7").caption = ResText("类别级次:");
  form_.Get<Label>(end_level_label_).caption = ResText("至: ");
}

void GroupPane::SetLevelBounds(std::int32_t min, std::int32_t max) {
  for (const char* name : {"udBLevel", "udELevel"}) {
    auto& arrows = form_.Get<UpDown>(name);
    arrows.min = min;
    arrows.max = max;
  }
}

// --- What the rows are

void GroupPane::SetTable(const GroupByTable& table) {
  table_ = &table;
  LoadGroupByItems();
}

void GroupPane::LoadGroupByItems() {
  auto& rows = form_.Get<ListControl>("cmbGroupBy");
  rows.Clear();
  for (const GroupByRow& row : table_->rows) rows.AddItem(ResText(row.text), row.code);
  properties_ = nullptr;
  if (table_->properties.empty()) return;
  Ignoring([&] {
    const ObjectRef data = CreateObject("ORVMSaleRpt.Data");
    properties_ = As<Vector>(Call(data, "GetItemPropDesc", GetPropsString(), table_->properties));
    if (!properties_) return;
    for (std::int32_t n = 1; n <= properties_->Size(); ++n) {
      const auto property = As<Dictionary>(properties_->Item(n));
      rows.AddItem(ResText(property ? property->Get("FName").TextOrEmpty() : std::string()), 0);
    }
  });
}

std::int32_t GroupPane::LevelClass(std::int32_t code) const {
  switch (code) {
    case 1:   // "物料类别"
    case 3:   // "物料类别+客户"
    case 4:   // "客户+物料类别"
    case 12:  // "业务员+客户+物料类别"
      return kItemClass;
    case 2:  // "客户类别"
    case 8:  // "客户类别+客户"
      return kCustomerClass;
    default:
      return 0;
  }
}

std::optional<std::int32_t> GroupPane::ItemMaxLevel(std::int32_t item_class_id) {
  std::optional<std::int32_t> deepest;
  Ignoring([&] {
    const ObjectRef data = CreateObject("ORVMSaleRpt.Data");
    deepest = Call(data, "GetItemMaxLevel", GetPropsString(), item_class_id).ToInt32();
  });
  return deepest;
}

// A row of classes has as many levels as its code tree; any other row has none to choose, and keeps what the
// fields hold.
void GroupPane::OnGroupByClick() {
  if (Rows().ListIndex() < 0) return;
  const std::int16_t begin = Variant(LevelNumber(kBeginLevel)).ToInt16();
  const std::int16_t end = Variant(LevelNumber(kEndLevel)).ToInt16();
  const std::int32_t item_class_id = LevelClass(SumMode());
  const bool is_class = item_class_id != 0;
  if (is_class) {
    // Where the middle tier does not answer, the levels stand as they are.
    const std::int32_t deepest = ItemMaxLevel(item_class_id).value_or(kDeepestLevel);
    for (const char* name : {"udBLevel", "udELevel"}) {
      form_.Get<UpDown>(name).max = deepest == 0 ? kDeepestLevel : deepest;
    }
    // Kept: an end level too high falls to the top, a begin level too high falls to 1. The end level comes
    // first, as the begin level follows it downwards. A tree without classes (depth 0) shows "0";
    // confirmation makes it 1.
    Level(kEndLevel).SetText(Join(end > deepest ? deepest : end));
    Level(kBeginLevel).SetText(Join(begin > deepest ? 1 : begin));
  }
  for (const std::string_view name : {std::string_view("Label7"), std::string_view(end_level_label_),
                                      std::string_view("udBLevel"), std::string_view("udELevel")}) {
    form_.Find(name)->visible = is_class;
  }
  Level(kBeginLevel).visible = is_class;
  Level(kEndLevel).visible = is_class;
}

// --- The boxes

void GroupPane::ApplyGroupBy() {
  EnableSortTab();
  const bool is_grouped = form_.Get<CheckBox>("chkGroupBy").IsChecked();
  form_.Get<Frame>("Frame1").enabled = is_grouped;
  GroupingChanged.Raise(is_grouped);
}

// Kept: bitwise on the values 0 and 1, so that exactly a report of totals without grouping cannot be sorted.
void GroupPane::EnableSortTab() {
  auto& tabs = form_.Get<TabControl>(tabs_).tabs;
  if (tabs.size() <= kSortTab) return;
  const int grouped = form_.Get<CheckBox>("chkGroupBy").Value();
  const int only_sums = form_.Get<CheckBox>("chkOnlyShowSum").Value();
  tabs[kSortTab].enabled = (~grouped & only_sums) == 0;
}

// --- The levels

double GroupPane::LevelNumber(int index) const {
  return Val(Level(index).Text());
}

// The begin level follows the end level downwards, never the end level upwards. Every text that is set here
// comes by again as a change of its own.
void GroupPane::OnLevelChange(int index) {
  std::string text = Level(index).Text();
  if (Val(text) < 0) text = "1";
  const std::int32_t deepest = form_.Get<UpDown>("udBLevel").max;
  if (Val(text) > deepest) text = Join(deepest);
  Level(index).SetText(text);
  if (LevelNumber(kEndLevel) < LevelNumber(kBeginLevel)) {
    Level(kBeginLevel).SetText(std::string(Level(kEndLevel).Text()));
  }
}

void GroupPane::OnLevelValidate(int index) {
  OnLevelChange(index);
  if (LevelNumber(index) <= 0) Level(index).SetText("1");
}

// The end level first: a begin level of 1 would fall back to an end level that is still 0.
void GroupPane::FixZeroLevels() {
  for (const int index : {kEndLevel, kBeginLevel}) {
    if (LevelNumber(index) == 0) Level(index).SetText("1");
  }
}

// --- What the report gets

std::int32_t GroupPane::SumMode() const {
  return Rows().ItemData();
}

std::string GroupPane::SumName() const {
  return Rows().Text();
}

// Kept: in `frmFirter176`, whose six rows come before the properties while five are counted off, each
// property row stands for the description behind its own, and the last one for none.
DictionaryRef GroupPane::SelectedProperty() const {
  const std::int32_t member = Rows().ListIndex() - table_->property_offset;
  if (!properties_ || member < 1 || member > properties_->Size()) return nullptr;
  return As<Dictionary>(properties_->Item(member));
}

DictionaryRef GroupPane::SumField(Dictionary& filter) const {
  if (Rows().ListIndex() < 0) return Describe(kPlainRow);
  const std::int32_t code = SumMode();
  if (code == 0 && !table_->properties.empty()) {
    const DictionaryRef property = SelectedProperty();
    return property ? property : Describe(kPlainRow);
  }
  const auto& fields = table_->sum_fields;
  const auto found =
      std::find_if(fields.begin(), fields.end(), [code](const SumFieldRow& row) { return row.code == code; });
  if (found == fields.end()) return Describe(kPlainRow);
  if (found->clears_sum_mode) filter.Set("SumMode", std::int32_t{0});
  return Describe(*found);
}

}  // namespace salerpt
