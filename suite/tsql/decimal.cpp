#include "suite/tsql/decimal.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace salerpt::tsql {
namespace {

constexpr std::array<double, 23> kPowers = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                            1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                            1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr double kExactIntegers =
    4503599627370496.0;  // 2^52: above it a double has no digits behind the point

// How far a decimal of up to 15 digits may lie from its double after one multiplication.
double Tolerance(double scaled) {
  return std::min(scaled * 4.5e-16, 0.02);
}

double Whole(double value) {
  return static_cast<double>(static_cast<std::int64_t>(value));
}

}  // namespace

double PowerOfTen(int exponent) {
  return kPowers[static_cast<std::size_t>(std::clamp(exponent, 0, 22))];
}

double RoundDecimal(double value, int scale) {
  if (scale < 0) {
    if (scale < -22) return 0;
    const double power = PowerOfTen(-scale);
    const double scaled = std::fabs(value) / power;
    if (!(scaled < kExactIntegers)) return value;
    return std::copysign(Whole(scaled + 0.5 + Tolerance(scaled)) * power, value) + 0.0;
  }
  if (scale > 22) return value;
  const double power = kPowers[static_cast<std::size_t>(scale)];
  const double scaled = std::fabs(value) * power;
  if (!(scaled < kExactIntegers)) return value;
  const double rounded = Whole(scaled + 0.5 + Tolerance(scaled)) / power;
  return value < 0 ? 0.0 - rounded : rounded;
}

double TruncateDecimal(double value, int scale) {
  if (scale > 22) return value;
  // Nothing to cut; a long number's double may lie a little below its last digit.
  if (const double rounded = RoundDecimal(value, scale); rounded == value) return rounded;
  if (scale < 0) {
    const double power = PowerOfTen(-scale);
    const double scaled = std::fabs(value) / power;
    if (!(scaled < kExactIntegers)) return value;
    return std::copysign(Whole(scaled + Tolerance(scaled)) * power, value) + 0.0;
  }
  const double power = kPowers[static_cast<std::size_t>(scale)];
  const double scaled = std::fabs(value) * power;
  if (!(scaled < kExactIntegers)) return value;
  const double cut = Whole(scaled + Tolerance(scaled)) / power;
  return value < 0 ? 0.0 - cut : cut;
}

std::string FormatDecimal(double value, int scale) {
  const double rounded = RoundDecimal(value, scale);
  std::string text = fmt::format("{:.{}f}", rounded == 0 ? 0.0 : rounded, scale);
  // Digits beyond the seventeenth are binary noise; the shortest form that reads back is padded instead.
  if (std::fabs(rounded) * PowerOfTen(std::min(scale, 22)) >= kExactIntegers) {
    const std::string shortest = fmt::format("{}", rounded);
    if (shortest.find('e') == std::string::npos) {
      text = shortest;
      std::size_t point = text.find('.');
      if (point == std::string::npos && scale > 0) {
        point = text.size();
        text += '.';
      }
      if (scale > 0) text.resize(point + 1 + static_cast<std::size_t>(scale), '0');
    }
  }
  return text;
}

DecimalScale::DecimalScale(int scale) : scale_(std::clamp(scale, 0, kMaxSumScale)) {
  factor_ = PowerOfTen(scale_);
  unit_ = static_cast<std::int64_t>(factor_);
}

// Numbers with more digits than a double carries: whole ones are exact, the others count with the fifteen
// digits that are certain.
Int128 DecimalScale::WholeOfLong(double value) const {
  if (std::fabs(value) < 9.0e18 && value == tsql::Whole(value))
    return WholeOfInteger(static_cast<std::int64_t>(value));
  if (!(std::fabs(value) < 9.0e14)) {
    // Beyond any column's precision; held within what still adds up.
    return static_cast<Int128>(std::isnan(value) ? 0.0 : std::clamp(value, -1e19, 1e19)) * unit_;
  }
  int digits = scale_;
  while (digits > 0 && std::fabs(value) * PowerOfTen(digits) >= 1e15) --digits;
  const double scaled = value * PowerOfTen(digits);
  const auto whole = static_cast<std::int64_t>(scaled < 0 ? scaled - 0.5 : scaled + 0.5);
  return static_cast<Int128>(whole) * static_cast<std::int64_t>(PowerOfTen(scale_ - digits));
}

double DecimalScale::Value(Int128 whole) const {
  const Int128 limit = static_cast<Int128>(1) << 53;
  if (whole < limit && whole > -limit) return static_cast<double>(static_cast<std::int64_t>(whole)) / factor_;
  // Whole part and rest apart, so that only the last addition rounds.
  return static_cast<double>(whole / unit_) + static_cast<double>(whole % unit_) / factor_;
}

}  // namespace salerpt::tsql
