#include "shell/header_layout.h"

#include <algorithm>

#include "runtime/dictionary.h"
#include "runtime/text.h"

namespace salerpt::shell {
namespace {

constexpr std::string_view kGroupMark = "+|";

// The open group while the header is walked.
struct Group {
  std::string caption;
  int number = 0;
  int columns_left = 0;
};

// Marks at the end of a caption, taken off it.
int TakeGroupMarks(std::string_view& caption) {
  int marks = 0;
  while (caption.ends_with(kGroupMark)) {
    caption.remove_suffix(kGroupMark.size());
    ++marks;
  }
  return marks;
}

// Reads the caption into the column, and opens, continues or closes the group.
void ReadCaption(std::string_view caption, SheetColumn& column, Group& group) {
  if (const int marks = TakeGroupMarks(caption); marks > 0) {
    group = {std::string(caption), group.number + 1, marks + 1};
  } else if (group.columns_left > 0 && !Trim(caption).empty()) {
    group.columns_left = 0;
  }
  if (group.columns_left > 0) {
    --group.columns_left;
    column.group = group.caption;
    column.group_number = group.number;
    return;
  }
  if (caption.ends_with("$")) caption.remove_suffix(1);
  column.caption = Trim(caption);
}

bool IsShown(const Dictionary& row) {
  return row.Get("FVisible").ToInt32() != 0 && row.Get("FForceHide").ToInt32() == 0;
}

}  // namespace

bool SheetColumn::IsNumber() const {
  switch (type) {
    case ColumnType::kQuantity:
    case ColumnType::kPrice:
    case ColumnType::kAmount:
    case ColumnType::kPercentage:
    case ColumnType::kExchangeRate:
    case ColumnType::kBaseAmount:
      return true;
    case ColumnType::kDate:
    case ColumnType::kText:
    case ColumnType::kPeriod:
      return false;
  }
  return false;
}

std::string SheetColumn::Heading() const {
  const std::string& first = group_number != 0 ? group : caption;
  if (first.empty() || second.empty()) return first.empty() ? second : first;
  return Join(first, "/", second);
}

std::vector<SheetColumn> LayOutHeader(const Vector& header) {
  std::vector<SheetColumn> columns;
  Group group;
  for (std::int32_t i = 1; i <= header.Size(); ++i) {
    const auto row = As<Dictionary>(header.Item(i));
    SheetColumn column;
    ReadCaption(row->Get("FColCaption").TextOrEmpty(), column, group);
    column.second = Trim(row->Get("FHeadSecond").TextOrEmpty());
    column.type = static_cast<ColumnType>(row->Get("FColType").ToInt16());
    column.field = row->Get("FColName").TextOrEmpty();
    if (IsShown(*row)) columns.push_back(std::move(column));
  }
  return columns;
}

std::vector<HeadSpan> HeadSpans(const std::vector<SheetColumn>& columns) {
  std::vector<HeadSpan> spans;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const SheetColumn& column = columns[i];
    const bool is_group = column.group_number != 0;
    if (is_group && i > 0 && columns[i - 1].group_number == column.group_number) {
      ++spans.back().count;
    } else {
      spans.push_back({is_group ? column.group : column.caption, i, 1, is_group});
    }
  }
  return spans;
}

bool HasSecondLine(const std::vector<SheetColumn>& columns) {
  return std::any_of(columns.begin(), columns.end(), [](const SheetColumn& c) { return !c.second.empty(); });
}

}  // namespace salerpt::shell
