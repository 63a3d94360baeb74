// Any text as a CREATE TABLE: the columns found in it are those of a table made of them.
#include <string>

#include "fuzz/require.h"
#include "runtime/text.h"
#include "sqltoolkit/resort.h"

namespace {

using salerpt::ColumnListOf;
using salerpt::fuzz::Require;

// " FNumber, FName" as the lines of a table.
std::string TableOf(std::string_view columns) {
  std::string text = "Create Table #TemData(\r\n";
  while (!columns.empty()) {
    const std::size_t end = columns.find(", ", 1);
    text += std::string(columns.substr(0, end)) + " varchar(80)" +
            (end == std::string_view::npos ? ")" : ",\r\n");
    columns.remove_prefix(end == std::string_view::npos ? columns.size() : end + 1);
  }
  return text;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text = salerpt::fuzz::AsText(data, size);
  const std::string columns = ColumnListOf(text);
  Require(columns.empty() || columns.front() == ' ');
  Require(columns.size() <= 2 * text.size());
  // Lines of blanks give columns without a name, which no table has.
  const bool has_nameless = columns.find(",,") != std::string::npos ||
                            columns.find(" ,") != std::string::npos ||
                            columns.find(",  ") != std::string::npos || columns.ends_with(' ') ||
                            columns.starts_with(",") || columns.find("\r\n") != std::string::npos;
  if (!has_nameless) Require(ColumnListOf(TableOf(columns)) == columns);
  return 0;
}
