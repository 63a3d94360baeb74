// How a host without a person sets the controls of a dialog: by the keys of `Filter`.
#include <algorithm>
#include <optional>

#include "dialogs/table_dialog.h"
#include "runtime/number_text.h"

namespace salerpt {
namespace {

// A row of a list; false where it has no such row.
bool SelectRow(ListControl& list, std::optional<std::int32_t> index) {
  if (!index || *index < 0 || *index >= static_cast<std::int32_t>(list.Items().size())) return false;
  list.SetListIndex(*index);
  return true;
}

template <typename Matches>
std::optional<std::int32_t> FindRow(const ListControl& list, Matches&& matches) {
  const auto& items = list.Items();
  const auto found = std::find_if(items.begin(), items.end(), matches);
  if (found == items.end()) return std::nullopt;
  return static_cast<std::int32_t>(found - items.begin());
}

std::optional<std::int32_t> WholeNumber(const Variant& value) {
  if (!value.IsNumber() || value.ToDouble() != value.ToInt32()) return std::nullopt;
  return value.ToInt32();
}

bool SetNumber(TextBox& box, const Variant& value) {
  if (!value.IsNumber()) return false;
  box.SetText(NumberText(value.ToDouble()));
  return Val(box.Text()) == value.ToDouble();
}

// The rows are "全部" (-1), "未钩稽" (0) and "已钩稽" (2).
std::optional<std::int32_t> HookStatusRow(std::optional<std::int32_t> status) {
  if (status == 2) return 2;
  if (status == -1 || status == 0) return *status + 1;
  return std::nullopt;
}

}  // namespace

bool TableDialog::Choose(std::string_view key, const Variant& value) {
  const auto found = std::find_if(table_.keys.begin(), table_.keys.end(), [key](const FilterKey& k) {
    return k.source != KeySource::kSaveDefault && EqualNames(k.key, key);
  });
  if (found == table_.keys.end()) return false;
  const std::string* text = value.TextIf();
  const std::optional<std::int32_t> number = WholeNumber(value);
  const auto has_number = [number](const ListItem& item) { return number && item.item_data == *number; };
  const auto has_text = [text](const ListItem& item) { return text != nullptr && item.text == *text; };
  switch (found->source) {
    case KeySource::kDate: {
      const auto date = text == nullptr ? std::nullopt : Date::Parse(*text);
      if (date) form_.Get<DatePicker>(found->control).SetValue(*date);
      return date.has_value();
    }
    case KeySource::kText:
    case KeySource::kTrimmedText:
      if (text != nullptr) form_.Get<TextBox>(found->control).SetText(*text);
      return text != nullptr;
    case KeySource::kNumber:
      return SetNumber(form_.Get<TextBox>(found->control), value);
    case KeySource::kCheck:
      if (number != 0 && number != 1) return false;
      form_.Get<CheckBox>(found->control).SetValue(*number);
      return true;
    case KeySource::kListIndex:
      return SelectRow(Box(found->control), number);
    case KeySource::kItemData:
      return SelectRow(Box(found->control), FindRow(Box(found->control), has_number));
    case KeySource::kListText:
      return SelectRow(Box(found->control), FindRow(Box(found->control), has_text));
    case KeySource::kHookStatus:
      return SelectRow(Box(found->control), HookStatusRow(number));
    case KeySource::kSumMode:
      // Code 0 stands for all properties where a dialog offers them: which one is told by "SumField".
      if (number == 0 && group_pane_->OffersProperties()) return false;
      return SelectRow(Box("cmbGroupBy"), FindRow(Box("cmbGroupBy"), has_number));
    case KeySource::kOrder:
      if (text != nullptr) sort_pane_->RestoreOrderGrid(*text);
      return text != nullptr && sort_pane_->ComposeOrderBy() == *text;
    case KeySource::kSumName:
    case KeySource::kSumField:
    case KeySource::kSaveDefault:
      return false;
  }
  return false;
}

}  // namespace salerpt
