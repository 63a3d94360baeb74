#include "suite/accountset/decimal.h"

#include <array>
#include <cstdlib>

namespace salerpt::accountset {
namespace {

constexpr int kMaxDigits = 18;
constexpr std::int64_t kMaxUnits = 999'999'999'999'999'999;  // 18 digits

constexpr std::array<std::int64_t, kMaxDigits + 1> kPowers = [] {
  std::array<std::int64_t, kMaxDigits + 1> powers{};
  std::int64_t power = 1;
  for (auto& entry : powers) {
    entry = power;
    if (power < kMaxUnits) power *= 10;
  }
  return powers;
}();

bool IsBlank(char c) {
  return c == ' ' || c == '\t';
}

std::string_view Trimmed(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

}  // namespace

double Decimal::ToDouble() const {
  // Both operands are exact below 2^53, so that the quotient is the nearest double. A larger number loses its
  // last digits here, and only here, as any double does.
  return static_cast<double>(units) / static_cast<double>(kPowers[static_cast<std::size_t>(scale)]);
}

Decimal Shortened(Decimal number) {
  while (number.scale > 0 && number.units % 10 == 0) {
    number.units /= 10;
    --number.scale;
  }
  return number;
}

std::optional<Decimal> ParseDecimal(std::string_view text) {
  text = Trimmed(text);
  bool negative = false;
  if (!text.empty() && (text.front() == '-' || text.front() == '+')) {
    negative = text.front() == '-';
    text.remove_prefix(1);
  }
  Decimal number;
  int digits = 0;
  bool point = false;
  for (const char c : text) {
    if (c == '.' && !point) {
      point = true;
      continue;
    }
    if (c < '0' || c > '9' || number.units > kMaxUnits / 10) return std::nullopt;
    number.units = number.units * 10 + (c - '0');
    number.scale += point ? 1 : 0;
    ++digits;
  }
  if (digits == 0 || number.scale > kMaxDigits) return std::nullopt;
  if (negative) number.units = -number.units;
  return Shortened(number);
}

std::optional<Decimal> Multiply(Decimal a, Decimal b) {
  std::int64_t product = 0;
  if (__builtin_mul_overflow(a.units, b.units, &product)) return std::nullopt;
  const Decimal result = Shortened({product, a.scale + b.scale});
  if (result.scale > kMaxDigits || result.units > kMaxUnits || result.units < -kMaxUnits) return std::nullopt;
  return result;
}

Decimal Rounded(Decimal number, int scale) {
  if (number.scale <= scale) {
    return {number.units * kPowers[static_cast<std::size_t>(scale - number.scale)], scale};
  }
  const std::int64_t divisor = kPowers[static_cast<std::size_t>(number.scale - scale)];
  std::int64_t units = number.units / divisor;
  if (std::abs(number.units % divisor) * 2 >= divisor) units += number.units < 0 ? -1 : 1;
  return {units, scale};
}

}  // namespace salerpt::accountset
