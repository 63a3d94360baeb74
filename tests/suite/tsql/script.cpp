#include "tests/suite/tsql/script.h"

#include <fstream>
#include <sstream>
#include <stdexcept>

namespace salerpt::tsql::test {
namespace {

void ReadHead(const std::string& head, Entry& entry) {
  std::istringstream words(head);
  std::string kind;
  std::string second;
  words >> kind >> second;
  if (kind == "reset") {
    entry.kind = Entry::Kind::kReset;
  } else if (kind == "schema") {
    entry.kind = Entry::Kind::kSchema;
  } else if (kind == "query") {
    entry.kind = Entry::Kind::kQuery;
    entry.types = second;
    std::string option;
    entry.sorted = (words >> option) && option == "rowsort";
  } else if (kind == "statement" && second == "error") {
    entry.kind = Entry::Kind::kError;
    char at = 0;
    words >> entry.error_number;
    if (words.peek() == '@') words >> at >> entry.error_line;
    words >> std::ws;
    std::getline(words, entry.error_text);
  } else if (!(kind == "statement" && second == "ok")) {
    throw std::runtime_error("line " + std::to_string(entry.line) + ": what is '" + head + "'?");
  }
}

}  // namespace

std::vector<Entry> ReadScript(const std::filesystem::path& file) {
  std::ifstream stream(file);
  if (!stream) throw std::runtime_error("cannot read " + file.string());
  std::vector<Entry> entries;
  std::string text;
  bool open = false;
  bool in_rows = false;
  for (int line = 1; std::getline(stream, text); ++line) {
    if (text.empty()) {
      open = in_rows = false;
    } else if (!open && text.starts_with('#')) {
      continue;
    } else if (!open) {
      open = true;
      entries.emplace_back().line = line;
      ReadHead(text, entries.back());
    } else if (in_rows) {
      entries.back().rows.push_back(text);
    } else if (text == "----") {
      in_rows = true;
    } else {
      std::string& sql = entries.back().sql;
      if (!sql.empty()) sql += '\n';
      sql += text;
    }
  }
  return entries;
}

}  // namespace salerpt::tsql::test
