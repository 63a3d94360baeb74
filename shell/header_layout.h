// From the report's `Header` to the columns that are drawn.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "runtime/vector.h"
#include "sqltoolkit/report_header.h"

namespace salerpt::shell {

// A column that is shown.
struct SheetColumn {
  // First heading line, without the marks that steer the heading; empty inside a group.
  std::string caption;
  // Second heading line; empty where the column has one.
  std::string second;
  // The heading over this column and its neighbours; empty outside of a group.
  std::string group;
  // Columns with one number other than 0 stand under one group heading.
  int group_number = 0;
  ColumnType type = ColumnType::kText;
  // Field of the rows.
  std::string field;

  // Numbers stand to the right.
  [[nodiscard]] bool IsNumber() const;
  // The heading in one line: "销售数量/本期(基本)".
  [[nodiscard]] std::string Heading() const;
};

// A stretch of the first heading line: one column, or the shown columns of a group.
struct HeadSpan {
  std::string_view text;  // lives as long as the columns
  std::size_t first = 0;
  std::size_t count = 1;
  bool is_group = false;
};

// The shown columns, in order. Left out are those with `FVisible` 0 and those hidden by force. A caption that
// ends in "$" is freed of it; one that ends in "+|" repeated opens a group of one column more than there are
// marks, which goes on as long as captions are blank; a group's heading stays over what is shown of it.
std::vector<SheetColumn> LayOutHeader(const Vector& header);

// The first heading line over the columns.
std::vector<HeadSpan> HeadSpans(const std::vector<SheetColumn>& columns);
// Whether any column has something on a second heading line.
bool HasSecondLine(const std::vector<SheetColumn>& columns);

}  // namespace salerpt::shell
