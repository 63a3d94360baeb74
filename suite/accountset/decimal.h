// Exact decimal numbers on their way into a column.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace salerpt::accountset {

// `units` divided by ten to the power `scale`: {12345, 2} is 123.45. Exact; it becomes a double only where a
// column takes it, and then the nearest one.
struct Decimal {
  std::int64_t units = 0;
  int scale = 0;  // 0 to 18

  [[nodiscard]] double ToDouble() const;
};

// The decimal with the same value and the smallest scale: {1500, 3} becomes {15, 1}.
Decimal Shortened(Decimal number);

// Reads plain decimal digits: an optional sign, digits with at most one point, blanks around them. At least
// one digit must stand there, and the digits must fit 18 places. Nothing for any other text; an exponent or a
// thousands separator makes it one.
std::optional<Decimal> ParseDecimal(std::string_view text);

// The exact product. Nothing where it needs more than 18 digits.
std::optional<Decimal> Multiply(Decimal a, Decimal b);

// `number` at another scale, rounded half away from zero. Scales 0 to 18; the caller sees to the range.
Decimal Rounded(Decimal number, int scale);

}  // namespace salerpt::accountset
