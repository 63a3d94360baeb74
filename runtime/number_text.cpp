#include "runtime/number_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <system_error>

#include "runtime/error.h"
#include "runtime/text.h"
#include "runtime/variant.h"

namespace salerpt {
namespace {

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

std::string_view TakeDigits(std::string_view& text) {
  const auto end = std::find_if_not(text.begin(), text.end(), IsDigit);
  const auto digits = text.substr(0, static_cast<std::size_t>(end - text.begin()));
  text.remove_prefix(digits.size());
  return digits;
}

bool TakeSign(std::string_view& text) {
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) text.remove_prefix(1);
  return negative;
}

// Takes "e3" away and gives 3; leaves an "e" without digits where it is.
int TakeExponent(std::string_view& text) {
  if (!text.starts_with('e') && !text.starts_with('E')) return 0;
  std::string_view rest = text.substr(1);
  const bool negative = TakeSign(rest);
  const std::string_view digits = TakeDigits(rest);
  if (digits.empty()) return 0;
  text = rest;
  constexpr int kMost = 99999;
  int value = 0;
  for (const char digit : digits) value = std::min(kMost, value * 10 + (digit - '0'));
  return negative ? -value : value;
}

// `number` is the text of a scan.
double Compute(std::string_view number) {
  if (number.starts_with('+')) number.remove_prefix(1);
  double value = 0;
  if (std::from_chars(number.data(), number.data() + number.size(), value).ec == std::errc()) return value;
  // Out of range. Too small a number is nearly 0, too large a one an error: strtod tells them apart.
  value = std::strtod(std::string(number).c_str(), nullptr);
  if (!std::isinf(value)) return value;
  throw RuntimeError(error_number::kOverflow, "",
                     Join("the number ", Shown(number), " does not fit a double"));
}

bool IsSkippedByVal(char c) {
  return c == ' ' || c == '\t' || c == '\n';
}

}  // namespace

NumberScan ScanNumber(std::string_view text) {
  NumberScan scan;
  std::string_view rest = text;
  scan.negative = TakeSign(rest);
  scan.whole = TakeDigits(rest);
  if (rest.starts_with('.')) {
    std::string_view behind = rest.substr(1);
    scan.fraction = TakeDigits(behind);
    if (!scan.whole.empty() || !scan.fraction.empty()) rest = behind;
  }
  if (scan.whole.empty() && scan.fraction.empty()) return scan;
  scan.exponent = TakeExponent(rest);
  scan.length = text.size() - rest.size();
  return scan;
}

std::optional<double> ParseDouble(std::string_view text) {
  const std::string_view trimmed = Trim(text);
  const std::size_t length = ScanNumber(trimmed).length;
  if (length == 0 || length != trimmed.size()) return std::nullopt;
  return Compute(trimmed);
}

std::string Shown(std::string_view text) {
  constexpr std::size_t kMost = 80;
  if (text.size() <= kMost) return Join("\"", text, "\"");
  const auto continues = [text](std::size_t at) {
    return (static_cast<unsigned char>(text[at]) & 0xC0U) == 0x80U;
  };
  std::size_t cut = kMost;
  while (cut > 0 && continues(cut)) --cut;
  return Join("\"", text.substr(0, cut), "...\"");
}

double Val(std::string_view text) {
  std::string packed;
  if (std::any_of(text.begin(), text.end(), IsSkippedByVal)) {
    packed = text;
    std::erase_if(packed, IsSkippedByVal);
    text = packed;
  }
  const std::size_t length = ScanNumber(text).length;
  return length == 0 ? 0 : Compute(text.substr(0, length));
}

std::string NumberText(double value) {
  if (value == 0) return "0";  // a negative zero too
  // From here on, on either side, the automation writes an exponent.
  constexpr double kLargest = 1e15;
  constexpr double kSmallest = 1e-14;
  const double size = std::fabs(value);
  const bool fixed = size >= kSmallest && size < kLargest;
  std::array<char, 64> buffer{};
  const auto format = fixed ? std::chars_format::fixed : std::chars_format::scientific;
  const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, format);
  if (!fixed && std::isfinite(value)) std::replace(buffer.data(), written.ptr, 'e', 'E');
  return {buffer.data(), written.ptr};
}

}  // namespace salerpt
