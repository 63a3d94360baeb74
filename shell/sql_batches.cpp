#include "shell/sql_batches.h"

#include "runtime/text.h"

namespace salerpt::shell {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";

bool IsGo(std::string_view line) {
  const std::size_t begin = line.find_first_not_of(kBlanks);
  if (begin == std::string_view::npos) return false;
  const std::size_t end = line.find_last_not_of(kBlanks) + 1;
  return EqualNames(line.substr(begin, end - begin), "GO");
}

}  // namespace

std::vector<SqlBatch> SplitBatches(std::string_view script) {
  std::vector<SqlBatch> batches;
  std::size_t batch_begin = 0;
  int batch_line = 1;
  const auto close = [&](std::size_t end) {
    const std::string_view text = script.substr(batch_begin, end - batch_begin);
    if (text.find_first_not_of(kBlanks) != std::string_view::npos) batches.push_back({text, batch_line});
  };
  int line_number = 1;
  for (std::size_t begin = 0; begin < script.size(); ++line_number) {
    const std::size_t found = script.find('\n', begin);
    const std::size_t end = found == std::string_view::npos ? script.size() : found + 1;
    if (IsGo(script.substr(begin, end - begin))) {
      close(begin);
      batch_begin = end;
      batch_line = line_number + 1;
    }
    begin = end;
  }
  close(script.size());
  return batches;
}

}  // namespace salerpt::shell
