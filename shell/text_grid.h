// A plain table of texts, lined up.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace salerpt::shell {

// For small things, such as the list of report classes or the rows of a statement; the whole table is held in
// memory.
class TextGrid {
 public:
  struct Column {
    std::string heading;
    bool is_number = false;  // stands to the right
  };
  explicit TextGrid(std::vector<Column> columns);

  // One text for each column.
  void Add(std::vector<std::string> row);
  void Write(std::ostream& out) const;

 private:
  void AppendRow(std::string& text, const std::vector<std::string>& row) const;

  std::vector<Column> columns_;
  std::vector<std::size_t> widths_;
  std::vector<std::vector<std::string>> rows_;
};

}  // namespace salerpt::shell
