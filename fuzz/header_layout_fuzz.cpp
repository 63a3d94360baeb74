// Any captions as a header, one column a line: "+" in front shows the column, anything else hides it; a tab
// stands before its second heading. What is shown does not hang on what is hidden, and the headings cover the
// columns without gap or overlap.
#include <memory>
#include <string>
#include <vector>

#include "fuzz/require.h"
#include "shell/header_layout.h"

namespace {

using salerpt::Vector;
using salerpt::fuzz::Require;
using salerpt::fuzz::TakeLine;
using salerpt::shell::HeadSpan;
using salerpt::shell::SheetColumn;

struct Line {
  bool shown;
  std::string caption;
  std::string second;
};

std::vector<Line> LinesOf(std::string_view text) {
  std::vector<Line> lines;
  while (!text.empty()) {
    std::string_view line = TakeLine(text);
    const bool shown = line.starts_with('+');
    if (!line.empty()) line.remove_prefix(1);
    const std::size_t tab = line.find('\t');
    const std::string_view second = tab == std::string_view::npos ? std::string_view() : line.substr(tab + 1);
    lines.push_back({shown, std::string(line.substr(0, tab)), std::string(second)});
  }
  return lines;
}

std::vector<SheetColumn> LaidOut(const std::vector<Line>& lines, bool all) {
  Vector header;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    salerpt::AddHeader(header, lines[i].caption, lines[i].second, salerpt::ColumnType::kText,
                       "F" + std::to_string(i), all || lines[i].shown);
  }
  return salerpt::shell::LayOutHeader(header);
}

bool IsSame(const SheetColumn& a, const SheetColumn& b) {
  return a.field == b.field && a.caption == b.caption && a.second == b.second && a.group == b.group &&
         a.group_number == b.group_number;
}

void CheckSpans(const std::vector<SheetColumn>& columns) {
  std::size_t covered = 0;
  for (const HeadSpan& span : salerpt::shell::HeadSpans(columns)) {
    Require(span.first == covered && span.count > 0);
    covered += span.count;
    Require(covered <= columns.size());
    for (std::size_t i = span.first; i < covered; ++i) {
      Require((columns[i].group_number != 0) == span.is_group &&
              columns[i].Heading().size() >= span.text.size());
      Require(span.text == (span.is_group ? columns[i].group : columns[i].caption));
    }
  }
  Require(covered == columns.size());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::vector<Line> lines = LinesOf(salerpt::fuzz::AsText(data, size));
  const auto all = LaidOut(lines, true);
  const auto shown = LaidOut(lines, false);
  Require(all.size() == lines.size());
  std::size_t next = 0;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    Require(all[i].group_number == 0 || all[i].caption.empty());
    if (lines[i].shown) Require(next < shown.size() && IsSame(shown[next++], all[i]));
  }
  Require(next == shown.size());
  CheckSpans(all);
  CheckSpans(shown);
  return 0;
}
