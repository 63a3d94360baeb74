#include "shell/text_grid.h"

#include <algorithm>
#include <ostream>

#include "shell/escape.h"
#include "shell/text_width.h"

namespace salerpt::shell {

TextGrid::TextGrid(std::vector<Column> columns) : columns_(std::move(columns)) {
  for (const Column& column : columns_) widths_.push_back(TextWidth(column.heading));
}

void TextGrid::Add(std::vector<std::string> row) {
  for (std::size_t i = 0; i < widths_.size(); ++i) {
    std::string shown;
    AppendTerminalText(shown, row[i]);
    row[i] = std::move(shown);
    widths_[i] = std::max(widths_[i], TextWidth(row[i]));
  }
  rows_.push_back(std::move(row));
}

void TextGrid::Write(std::ostream& out) const {
  std::string text;
  std::vector<std::string> headings;
  for (const Column& column : columns_) headings.push_back(column.heading);
  AppendRow(text, headings);
  for (std::size_t i = 0; i < widths_.size(); ++i) {
    text.append(i == 0 ? "" : "-+-").append(widths_[i], '-');
  }
  text += '\n';
  for (const auto& row : rows_) {
    AppendRow(text, row);
    if (text.size() > (std::size_t{1} << 16)) {
      out << text;
      text.clear();
    }
  }
  out << text;
}

void TextGrid::AppendRow(std::string& text, const std::vector<std::string>& row) const {
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    if (i > 0) text += " | ";
    if (columns_[i].is_number) {
      AppendRight(text, row[i], widths_[i]);
    } else {
      AppendLeft(text, row[i], widths_[i]);
    }
  }
  text.erase(text.find_last_not_of(' ') + 1);
  text += '\n';
}

}  // namespace salerpt::shell
