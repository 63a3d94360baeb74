#include "dialogs/controls.h"

#include <algorithm>
#include <cmath>

#include "runtime/error.h"
#include "runtime/text.h"

namespace salerpt {
namespace {

[[noreturn]] void Refuse(const FormControl& control, int value, std::string_view expected) {
  throw RuntimeError(error_number::kInvalidCall, std::string(control.TypeName()),
                     Join(control.Name(), ": ", value, " was given, ", expected, " was expected"));
}

constexpr bool IsContinuation(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

// The first `count` characters.
std::string_view FirstCharacters(std::string_view text, std::size_t count) {
  std::size_t at = 0;
  for (std::size_t taken = 0; at < text.size(); ++at) {
    if (!IsContinuation(text[at]) && taken++ == count) break;
  }
  return text.substr(0, at);
}

std::string_view WithoutLastCharacter(std::string_view text) {
  if (text.empty()) return text;
  std::size_t at = text.size() - 1;
  while (at > 0 && IsContinuation(text[at])) --at;
  return text.substr(0, at);
}

std::string EncodeUtf8(char32_t character) {
  const auto byte = [](char32_t bits) { return static_cast<char>(static_cast<unsigned char>(bits)); };
  if (character < 0x80) return {byte(character)};
  if (character < 0x800) return {byte(0xC0 | character >> 6), byte(0x80 | (character & 0x3F))};
  if (character < 0x10000) {
    return {byte(0xE0 | character >> 12), byte(0x80 | (character >> 6 & 0x3F)),
            byte(0x80 | (character & 0x3F))};
  }
  return {byte(0xF0 | character >> 18), byte(0x80 | (character >> 12 & 0x3F)),
          byte(0x80 | (character >> 6 & 0x3F)), byte(0x80 | (character & 0x3F))};
}

}  // namespace

void CheckBox::SetValue(int value) {
  if (value != 0 && value != 1) Refuse(*this, value, "0 or 1");
  if (value == value_) return;
  value_ = value;
  Click.Raise();
}

void TextBox::SetText(std::string_view text) {
  is_selected_ = false;
  if (max_length_ > 0) text = FirstCharacters(text, max_length_);
  if (text == text_) return;
  text_ = text;
  Change.Raise();
}

void TextBox::TypeCharacter(char32_t character) {
  const std::string kept = is_selected_ ? std::string() : text_;
  if (character == key_code::kBackspace) {
    SetText(is_selected_ ? std::string_view() : WithoutLastCharacter(kept));
    return;
  }
  SetText(kept + EncodeUtf8(character));
}

void ListControl::Clear() {
  items_.clear();
  list_index_ = -1;
}

void ListControl::AddItem(std::string_view text, std::int32_t item_data) {
  items_.push_back({std::string(text), item_data});
}

void ListControl::SetListIndex(std::int32_t index) {
  const auto count = static_cast<std::int32_t>(items_.size());
  if (index < -1 || index >= count) Refuse(*this, index, Join("a row from -1 to ", count - 1));
  list_index_ = index;
  Click.Raise();
}

const ListItem& ListControl::Selected() const {
  if (list_index_ < 0) Refuse(*this, list_index_, "a selected row");
  return items_[static_cast<std::size_t>(list_index_)];
}

std::string ListControl::Text() const {
  return list_index_ < 0 ? std::string() : Selected().text;
}

std::int32_t ListControl::ItemData() const {
  return list_index_ < 0 ? 0 : Selected().item_data;
}

void DatePicker::SetValue(Date value) {
  const Date day(std::floor(value.Serial()));
  if (day == value_) return;
  value_ = day;
  Change.Raise();
}

void ListView::Clear() {
  rows_.clear();
  selected_ = -1;
}

void ListView::Add(std::string_view key, std::string_view text) {
  rows_.push_back({std::string(key), std::string(text), 0});
  if (selected_ < 0) selected_ = 0;
}

void ListView::SetIcons(int icon) {
  for (Row& row : rows_) row.icon = icon;
}

void ListView::Select(int index) {
  const auto count = static_cast<int>(rows_.size());
  if (index < -1 || index >= count) Refuse(*this, index, Join("a row from -1 to ", count - 1));
  selected_ = index;
}

bool ListView::SelectKey(std::string_view key) {
  const auto found =
      std::find_if(rows_.begin(), rows_.end(), [key](const Row& row) { return EqualNames(row.key, key); });
  if (found == rows_.end()) return false;
  selected_ = static_cast<int>(found - rows_.begin());
  return true;
}

std::string ListView::SelectedText() const {
  return selected_ < 0 ? std::string() : rows_[static_cast<std::size_t>(selected_)].text;
}

void ListView::UserClick(std::string_view text) {
  const auto found =
      std::find_if(rows_.begin(), rows_.end(), [text](const Row& row) { return row.text == text; });
  if (found == rows_.end()) {
    throw RuntimeError(error_number::kInvalidCall, "ListView", Join(Name(), " has no row \"", text, "\""));
  }
  selected_ = static_cast<int>(found - rows_.begin());
  ItemClick.Raise();
}

Toolbar::ToolButton* Toolbar::Find(std::string_view key) {
  const auto found = std::find_if(buttons.begin(), buttons.end(),
                                  [key](const ToolButton& button) { return EqualNames(button.key, key); });
  return found == buttons.end() ? nullptr : &*found;
}

void OrderGrid::UserClick(int row, int column) {
  CellClick.Raise(row, column);
  const bool is_check = column == kAscendingColumn || column == kDescendingColumn;
  if (!is_check || row < 1 || row > static_cast<int>(rows.size())) return;
  Row& clicked = rows[static_cast<std::size_t>(row) - 1];
  if (clicked.check_cells != CellType::kCheckBox) return;
  int& mark = column == kAscendingColumn ? clicked.ascending : clicked.descending;
  mark = 1 - mark;
  ButtonClicked.Raise(row, column);
}

}  // namespace salerpt
