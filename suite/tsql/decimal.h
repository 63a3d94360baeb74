// Decimals held in doubles: rounding as the server rounds, and sums that do not drift.
#pragma once

#include <cstdint>
#include <string>

namespace salerpt::tsql {

// Wide enough for the sum of any number of decimals; the compiler's, since the language has none.
__extension__ using Int128 = __int128;

// Rounds half away from zero, looking at the digits that the double stands for and not at its binary
// tail: 1.005 to two digits is 1.01. `scale` below 0 rounds in front of the point.
double RoundDecimal(double value, int scale);
// Cuts instead of rounding.
double TruncateDecimal(double value, int scale);
// With exactly `scale` digits behind the point.
std::string FormatDecimal(double value, int scale);
// 10 to the power of 0 … 22, exactly.
double PowerOfTen(int exponent);

// Decimals of one scale as whole numbers of their last digit.
class DecimalScale {
 public:
  explicit DecimalScale(int scale = 0);
  [[nodiscard]] Int128 Whole(double value) const {
    const double scaled = value * factor_;
    if (scaled < kSafe && scaled > -kSafe)
      return static_cast<std::int64_t>(scaled < 0 ? scaled - 0.5 : scaled + 0.5);
    return WholeOfLong(value);
  }
  [[nodiscard]] Int128 WholeOfInteger(std::int64_t value) const { return static_cast<Int128>(value) * unit_; }
  // The double nearest to a whole number of last digits.
  [[nodiscard]] double Value(Int128 whole) const;

 private:
  static constexpr double kSafe = 1125899906842624.0;  // 2^50: a product below it is exact enough to round
  [[nodiscard]] Int128 WholeOfLong(double value) const;

  std::int64_t unit_ = 1;  // 10 to the power of the scale
  double factor_ = 1;
  int scale_ = 0;
};

// Adds decimals of a fixed scale exactly, in whatever order they come.
class ExactSum {
 public:
  explicit ExactSum(int scale = 0) : scale_(scale) {}
  void Add(double value) { total_ += scale_.Whole(value); }
  void AddInteger(std::int64_t value) { total_ += scale_.WholeOfInteger(value); }
  [[nodiscard]] double Result() const { return scale_.Value(total_); }

 private:
  Int128 total_ = 0;
  DecimalScale scale_;
};

// Sums keep at most this many digits behind the point.
inline constexpr int kMaxSumScale = 15;

}  // namespace salerpt::tsql
