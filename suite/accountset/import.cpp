// Makes an account set from the invoice lines of a shop.
#include <fmt/format.h>

#include <ostream>

#include "suite/accountset/accountset.h"
#include "suite/accountset/errors.h"
#include "suite/accountset/new_file.h"
#include "suite/accountset/shop/csv_reader.h"
#include "suite/accountset/shop/gzip_source.h"
#include "suite/accountset/shop/invoice_line.h"
#include "suite/accountset/shop/shop_writer.h"

namespace salerpt::accountset {
namespace {

using namespace shop;

constexpr const char* kSource = "AccountSet:Import";
constexpr int kLinesPerProgress = 4096;

// A value as it can stand in one line of a message: not too long, without line ends.
std::string Shown(std::string_view value) {
  constexpr std::size_t kMost = 60;
  std::string text(value.substr(0, kMost));
  if (value.size() > kMost) {
    // Not in the middle of a character.
    while (!text.empty() && (static_cast<unsigned char>(text.back()) & 0xC0U) == 0x80U) text.pop_back();
    if (!text.empty() && static_cast<unsigned char>(text.back()) >= 0x80U) text.pop_back();
    text += "...";
  }
  for (char& c : text) {
    if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) c = ' ';
  }
  return IsText(text) ? text : "(no text)";
}

void CheckHeader(CsvReader& reader, const std::filesystem::path& csv) {
  CsvRecord record;
  const bool read = reader.Next(record);
  if (read && record.fault.empty() && IsHeader(record.fields)) return;
  std::string found;
  for (const auto field : record.fields) found += fmt::format("{}{}", found.empty() ? "" : ",", field);
  throw RuntimeError(kBadFormat, kSource,
                     fmt::format("{}:1: the header is \"{}\", expected was \"{}\"", csv.string(),
                                 Shown(found), fmt::join(kColumns, ",")));
}

// The lines, one after the other; gives the number of those refused.
std::int64_t ReadLines(CsvReader& reader, const GzipSource& source, const std::filesystem::path& csv,
                       ShopWriter& writer, std::ostream& rejects, const Progress& progress) {
  std::int64_t rejected = 0;
  std::int64_t until_progress = 0;
  CsvRecord record;
  InvoiceLine line;
  while (reader.Next(record)) {
    auto rejection = record.fault.empty() ? ReadInvoiceLine(record.fields, line)
                                          : Rejection{std::string(record.fault),
                                                      record.fields.empty() ? "" : record.fields.front()};
    if (rejection) {
      ++rejected;
      rejects << csv.string() << ':' << record.line << ": " << rejection->reason << ": \""
              << Shown(rejection->value) << "\"\n";
      reader.KeepFirstLineOnly();
    } else {
      writer.Add(line);
    }
    if (progress && --until_progress < 0) {
      progress(source.Done(), source.Size());
      until_progress = kLinesPerProgress;
    }
  }
  return rejected;
}

}  // namespace

ImportReport Import(const std::filesystem::path& db, const std::filesystem::path& csv, std::ostream& rejects,
                    const Progress& progress) {
  GzipSource source(csv);
  CsvReader reader([&](char* buffer, std::size_t size) { return source.Read(buffer, size); });
  CheckHeader(reader, csv);
  NewFile file(db, kSource);
  ImportReport report;
  {
    ShopWriter writer(file.Db());
    const std::int64_t rejected = ReadLines(reader, source, csv, writer, rejects, progress);
    report = writer.Report();
    report.rejected = rejected;
    if (report.lines == 0) {
      throw RuntimeError(
          kBadFormat, kSource,
          fmt::format("{}: no usable invoice line in it ({} rejected)", csv.string(), rejected));
    }
    writer.Finish();
  }
  file.Publish();
  return report;
}

}  // namespace salerpt::accountset
