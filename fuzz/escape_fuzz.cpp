// Any bytes as a text of the output formats: a reader of the format gets the text back, and markup cannot
// break out of it.
#include <algorithm>
#include <nlohmann/json.hpp>
#include <string>

#include "fuzz/require.h"
#include "shell/escape.h"
#include "suite/accountset/shop/csv_reader.h"

namespace {

using salerpt::fuzz::Require;
namespace shop = salerpt::accountset::shop;

void CheckCsv(std::string_view text) {
  if (!shop::IsText(text) || text.starts_with("\xEF\xBB\xBF")) return;
  std::string line;
  salerpt::shell::AppendCsvField(line, text);
  line += ",";
  salerpt::shell::AppendCsvField(line, text);
  line += "\r\n";
  if (line.size() > shop::CsvReader::kMaxRecord) return;
  std::string_view rest = line;
  shop::CsvReader reader([&rest](char* buffer, std::size_t room) {
    const std::size_t count = rest.copy(buffer, room);
    rest.remove_prefix(count);
    return count;
  });
  shop::CsvRecord record;
  Require(reader.Next(record) && record.fault.empty());
  Require(record.fields.size() == 2 && record.fields[0] == text && record.fields[1] == text);
  Require(!reader.Next(record));
}

void CheckJson(std::string_view text) {
  std::string written;
  salerpt::shell::AppendJsonText(written, text);
  const auto read = nlohmann::json::parse(written).get<std::string>();
  const bool is_text = shop::IsText(text);
  Require(is_text ? read == text : read.size() >= text.size());
}

void CheckHtml(std::string_view text) {
  std::string written;
  salerpt::shell::AppendHtmlText(written, text);
  Require(written.find_first_of("<>\"") == std::string::npos);
  Require(std::count(written.begin(), written.end(), '&') <= std::count(written.begin(), written.end(), ';'));
}

void CheckTerminal(std::string_view text) {
  std::string written;
  salerpt::shell::AppendTerminalText(written, text);
  Require(std::none_of(written.begin(), written.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; }));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text = salerpt::fuzz::AsText(data, size);
  CheckCsv(text);
  CheckJson(text);
  CheckHtml(text);
  CheckTerminal(text);
  return 0;
}
