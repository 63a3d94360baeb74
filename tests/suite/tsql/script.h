// Text files that tell the engine's behaviour: statements, queries with their rows, statements that fail.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace salerpt::tsql::test {

// One entry of a file. Blocks are parted by blank lines; lines that begin with # are comments.
//
//   statement ok                     query IT [rowsort]              statement error 207 Invalid column name
//   'x'. CREATE TABLE #t (a int)          SELECT a, b FROM #t             SELECT x FROM #t
//                                    ----
//                                    1|one
//
// Types: I whole numbers and bit, N decimal and money, R float, T text, D dates. Cells stand as the server
// prints them, parted by |; an empty text is (empty). "statement error 207@2 …" also gives the line. "schema
// ok" runs SQLite's own SQL. "reset" starts afresh.
struct Entry {
  enum class Kind { kStatement, kError, kQuery, kSchema, kReset };
  Kind kind = Kind::kStatement;
  int line = 0;
  std::string sql;
  int error_number = 0;
  int error_line = 0;
  std::string error_text;
  std::string types;
  bool sorted = false;
  std::vector<std::string> rows;
};

std::vector<Entry> ReadScript(const std::filesystem::path& file);

}  // namespace salerpt::tsql::test
