#include "suite/accountset/shop/invoice_line.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstdint>

namespace salerpt::accountset::shop {
namespace {

constexpr int kMaxScale = 10;
constexpr double kLimit = 1e12;

bool Fits(Decimal number) {
  const double size = number.ToDouble();
  return number.scale <= kMaxScale && size < kLimit && size > -kLimit;
}

std::optional<Rejection> ReadNumber(std::string_view column, std::string_view text, Decimal& number) {
  const auto read = ParseDecimal(text);
  if (!read) return Rejection{fmt::format("{} is no number", column), text};
  if (!Fits(*read)) {
    return Rejection{
        fmt::format("{} has more than {} decimals or reaches a million million", column, kMaxScale), text};
  }
  number = *read;
  return std::nullopt;
}

// Exactly `digits` decimal digits at the head of `text`, which loses them.
std::optional<unsigned> TakeNumber(std::string_view& text, std::size_t digits) {
  unsigned number = 0;
  if (text.size() < digits) return std::nullopt;
  const auto [end, error] = std::from_chars(text.data(), text.data() + digits, number);
  if (error != std::errc() || end != text.data() + digits) return std::nullopt;
  text.remove_prefix(digits);
  return number;
}

bool TakeMark(std::string_view& text, std::string_view marks) {
  if (text.empty() || marks.find(text.front()) == std::string_view::npos) return false;
  text.remove_prefix(1);
  return true;
}

bool TakeDay(std::string_view& text) {
  constexpr unsigned kFirstYear = 1753;  // the first year that the suite's dates know
  const auto year = TakeNumber(text, 4);
  if (!year || !TakeMark(text, "-")) return false;
  const auto month = TakeNumber(text, 2);
  if (!month || !TakeMark(text, "-")) return false;
  const auto day = TakeNumber(text, 2);
  if (!day || *year < kFirstYear) return false;
  const std::chrono::year_month_day date{std::chrono::year{static_cast<int>(*year)},
                                         std::chrono::month{*month}, std::chrono::day{*day}};
  return date.ok();
}

bool IsTime(std::string_view text) {
  const auto hour = TakeNumber(text, 2);
  if (!hour || *hour > 23 || !TakeMark(text, ":")) return false;
  const auto minute = TakeNumber(text, 2);
  if (!minute || *minute > 59) return false;
  if (text.empty()) return true;
  if (!TakeMark(text, ":")) return false;
  const auto second = TakeNumber(text, 2);
  return second && *second <= 59 && text.empty();
}

std::optional<Rejection> ReadDate(std::string_view text, InvoiceLine& line) {
  constexpr std::size_t kDayLength = 10;
  std::string_view rest = text;
  if (TakeDay(rest)) {
    line.date = text.substr(0, kDayLength);
    line.time = rest.empty() ? rest : rest.substr(1);
    if (rest.empty() || (TakeMark(rest, " T") && IsTime(rest))) return std::nullopt;
  }
  return Rejection{"InvoiceDate is no date (YYYY-MM-DD HH:MM:SS was expected)", text};
}

}  // namespace

std::optional<Rejection> ReadInvoiceLine(const std::vector<std::string_view>& fields, InvoiceLine& line) {
  if (fields.size() != kColumns.size()) {
    return Rejection{fmt::format("{} columns where {} were expected", fields.size(), kColumns.size()),
                     fields.empty() ? std::string_view() : fields.front()};
  }
  line.invoice = fields[0];
  line.code = fields[1];
  line.description = fields[2];
  line.customer = fields[6];
  line.country = fields[7];
  if (line.invoice.empty()) return Rejection{"InvoiceNo is empty", ""};
  if (line.code.empty()) return Rejection{"StockCode is empty", ""};
  if (auto rejected = ReadNumber("Quantity", fields[3], line.quantity)) return rejected;
  if (auto rejected = ReadDate(fields[4], line)) return rejected;
  if (auto rejected = ReadNumber("UnitPrice", fields[5], line.price)) return rejected;
  const auto amount = Multiply(line.quantity, line.price);
  if (!amount || !Fits(*amount)) {
    return Rejection{"the amount, Quantity times UnitPrice, has more digits than a column holds", fields[5]};
  }
  line.amount = *amount;
  return std::nullopt;
}

bool IsHeader(const std::vector<std::string_view>& fields) {
  return std::equal(fields.begin(), fields.end(), kColumns.begin(), kColumns.end());
}

}  // namespace salerpt::accountset::shop
