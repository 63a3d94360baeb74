#include "dialogs/sort_pane.h"

#include <algorithm>
#include <array>
#include <utility>

#include "runtime/mparse.h"
#include "runtime/mrpt.h"
#include "runtime/text.h"
#include "runtime/text_utilities.h"

namespace salerpt {
namespace {

constexpr std::size_t kSortTab = 1;
constexpr int kNoRow = -1;
constexpr std::string_view kMoveButtons[] = {"cmdUp", "cmdDown", "cmdDelOrder"};

// Between caption and field name in a row of the list: wide enough that only the caption is seen.
const std::string& Separator() {
  static const std::string blanks(200, ' ');
  return blanks;
}

std::string CaptionOf(std::string_view list_text) {
  return NthPart(list_text, Separator(), 1);
}

std::string FieldOf(std::string_view list_text) {
  return std::string(Trim(NthPart(list_text, Separator(), 2)));
}

OrderGrid::Row CheckRow(std::string caption, std::string field, bool is_ascending) {
  return {std::move(caption), is_ascending ? 1 : 0, is_ascending ? 0 : 1, std::move(field),
          OrderGrid::CellType::kCheckBox};
}

}  // namespace

SortPane::SortPane(Form& form, std::span<const SortField> fields, std::string_view tabs)
    : form_(form), fields_(fields), tabs_(tabs) {
  form_.Get<TabControl>(tabs_).tabs.push_back({});
  form_.Add<ListControl>("listOrderFields", ListControl::Style::kList).DoubleClick.Connect([this] { Add(); });
  form_.Add<Button>("cmdAdd").Click.Connect([this] { Add(); });
  auto& grid = form_.Add<OrderGrid>("vsOrder");
  grid.CellClick.Connect([this](int row, int /*column*/) { Select(row); });
  grid.ButtonClicked.Connect([this](int row, int column) { Toggle(row, column); });
  form_.Add<Button>("cmdUp").Click.Connect([this] { Move(-1); });
  form_.Add<Button>("cmdDown").Click.Connect([this] { Move(1); });
  form_.Add<Button>("cmdDelOrder").Click.Connect([this] { Delete(); });
  EnableMoves(false);
}

TabControl::Tab& SortPane::SortTab() const {
  return form_.Get<TabControl>(tabs_).tabs.at(kSortTab);
}

void SortPane::ApplyStrings() {
  SortTab().caption = ResText("排序");
  form_.Get<Button>("cmdAdd").caption = ResText("添加(&A)");
  form_.Get<Button>("cmdUp").caption = ResText("上移(&U)");
  form_.Get<Button>("cmdDown").caption = ResText("下移(&D)");
  form_.Get<Button>("cmdDelOrder").caption = ResText("删除(&R)");
  Grid().headers = {ResText("排序字段"), ResText("升序"), ResText("降序"), ""};
}

// --- The fields on offer

void SortPane::FieldListBuild(bool /*with_code*/) {
  Fields().Clear();
  Offer(Table());
}

void SortPane::Offer(std::span<const SortField> fields) {
  const bool is_long = IsLongNumber();
  const auto in_use = [is_long](std::string_view long_text, std::string_view short_text) {
    return is_long || short_text.empty() ? long_text : short_text;
  };
  for (const SortField& field : fields) {
    const std::string_view caption = in_use(field.caption, field.short_caption);
    Fields().AddItem(Join(ResText(caption), Separator(), in_use(field.field, field.short_field)), 0);
  }
}

std::string SortPane::FindFieldCaption(std::string_view field) const {
  for (const ListItem& item : Fields().Items()) {
    if (NthPart(Trim(item.text), Separator(), 2) == field) return CaptionOf(Trim(item.text));
  }
  return {};
}

void SortPane::Add() {
  if (Fields().ListIndex() < 0) return;
  const std::string text = Fields().Text();
  std::string field = FieldOf(text);
  auto& rows = Grid().rows;
  const bool is_chosen = std::any_of(
      rows.begin(), rows.end(), [&field](const OrderGrid::Row& row) { return EqualNames(row.field, field); });
  if (is_chosen || RowCount() == OrderGrid::kCapacity) return;
  rows.push_back(CheckRow(CaptionOf(text), std::move(field), true));
}

// --- The chosen fields

void SortPane::EnableMoves(bool enabled) {
  for (const std::string_view button : kMoveButtons) form_.Get<Button>(button).enabled = enabled;
}

// A click beside the used rows leaves the buttons as they were; without a selected row they do nothing.
void SortPane::Select(int row) {
  if (row < 1 || row > RowCount()) {
    order_row_ = 0;
    Mark(kNoRow);
    return;
  }
  order_row_ = row;
  Mark(row);
  EnableMoves(true);
}

void SortPane::Mark(int row) {
  int at = 0;
  for (OrderGrid::Row& each : Grid().rows) each.marked = ++at == row;
}

// Beyond the first row lies the last, and the other way round.
void SortPane::Move(int step) {
  if (order_row_ < 1) return;
  const int count = RowCount();
  const int target = (order_row_ - 1 + step + count) % count + 1;
  auto& rows = Grid().rows;
  std::swap(rows[static_cast<std::size_t>(order_row_) - 1], rows[static_cast<std::size_t>(target) - 1]);
  order_row_ = target;
  Mark(target);
}

void SortPane::Delete() {
  if (order_row_ < 1 || order_row_ > RowCount()) return;
  auto& rows = Grid().rows;
  rows.erase(rows.begin() + (order_row_ - 1));
  if (rows.empty()) {
    order_row_ = 0;
    EnableMoves(false);
    return;
  }
  order_row_ = std::min(order_row_, RowCount());
  Mark(order_row_);
}

void SortPane::RemoveField(std::string_view field) {
  const auto& rows = Grid().rows;
  const auto found = std::find_if(rows.begin(), rows.end(),
                                  [field](const OrderGrid::Row& row) { return row.field == field; });
  if (found == rows.end()) return;
  Select(static_cast<int>(found - rows.begin()) + 1);
  Delete();
}

// A row has exactly one direction: the partner of the cell that the user clicked takes the opposite mark.
void SortPane::Toggle(int row, int column) {
  Select(row);
  if (order_row_ == 0) return;
  OrderGrid::Row& toggled = Grid().rows[static_cast<std::size_t>(row) - 1];
  if (column == OrderGrid::kAscendingColumn) {
    toggled.descending = 1 - toggled.descending;
  } else {
    toggled.ascending = 1 - toggled.ascending;
  }
}

// --- The sort text

std::string SortPane::ComposeOrderBy() {
  if (!SortTab().enabled) return {};
  std::string text;
  for (const OrderGrid::Row& row : Grid().rows) {
    if (!text.empty()) text += ',';
    Append(text, row.field, row.ascending == 1 ? " ASC" : " DESC");
    OnComposed(row.field);
  }
  AfterCompose();
  return text;
}

void SortPane::RestoreOrderGrid(std::string_view text) {
  // A plan without an order sorts by the item code.
  if (text == "NULL") text = "FNumber ASC";
  order_row_ = 0;
  auto& rows = Grid().rows;
  rows.clear();
  if (Trim(text).empty()) return;
  const int count = std::min(CountParts(text, ",") + 1, std::int32_t{OrderGrid::kCapacity});
  for (int n = 0; n < count; ++n) {
    const std::size_t comma = std::min(text.find(','), text.size());
    const std::string_view piece = text.substr(0, comma);
    text.remove_prefix(std::min(comma + 1, text.size()));
    const std::size_t blank = std::min(piece.find(' '), piece.size());
    std::string field(piece.substr(0, blank));
    const std::string_view direction = piece.substr(std::min(blank + 1, piece.size()));
    // Plans may have been saved under the other code rule.
    if (EqualNames(field, "FNumber")) field = IsLongNumber() ? "FNumber" : "FShortNumber";
    rows.push_back(CheckRow(FindFieldCaption(field), field, direction == "ASC"));
  }
}

}  // namespace salerpt
