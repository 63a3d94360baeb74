// Any bytes as a file of invoice lines: every line is read or told to be damaged, none is lost, and none is
// read twice.
#include <algorithm>
#include <string_view>

#include "fuzz/require.h"
#include "suite/accountset/shop/csv_reader.h"
#include "suite/accountset/shop/invoice_line.h"

namespace {

namespace shop = salerpt::accountset::shop;
using salerpt::fuzz::Require;

void CheckLine(const shop::CsvRecord& record) {
  shop::InvoiceLine line;
  const auto rejection = shop::ReadInvoiceLine(record.fields, line);
  if (rejection) {
    Require(!rejection->reason.empty());
    return;
  }
  Require(record.fields.size() == shop::kColumns.size());
  Require(line.date.size() == 10 && line.amount.scale <= 10);
  Require(!line.invoice.empty() && !line.code.empty());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  // The first byte says in how large pieces the others come.
  const std::size_t step = std::size_t{data[0]} + 1;
  std::string_view rest = salerpt::fuzz::AsText(data + 1, size - 1);
  const auto lines =
      std::count(rest.begin(), rest.end(), '\n') + (rest.empty() || rest.back() == '\n' ? 0 : 1);
  shop::CsvReader reader([&](char* buffer, std::size_t room) {
    const std::size_t count = std::min({room, step, rest.size()});
    rest.copy(buffer, count);
    rest.remove_prefix(count);
    return count;
  });
  shop::CsvRecord record;
  std::int64_t last = 0;
  while (reader.Next(record)) {
    Require(record.line > last && record.line <= lines);
    last = record.line;
    if (record.fault.empty()) {
      Require(!record.fields.empty());
      for (const auto field : record.fields) Require(shop::IsText(field));
      CheckLine(record);
    } else {
      reader.KeepFirstLineOnly();
    }
  }
  Require(rest.empty());
  return 0;
}
