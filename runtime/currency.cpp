#include "runtime/currency.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "runtime/error.h"
#include "runtime/number_text.h"
#include "runtime/text.h"
#include "runtime/variant.h"

namespace salerpt {
namespace {

constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kLeast = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t kDecimals = 4;

[[noreturn]] void RaiseOverflow(std::string_view value) {
  throw RuntimeError(error_number::kOverflow, "", Join("the amount ", value, " does not fit a currency"));
}

// The digits of a scanned number, whole part and fraction as one row.
class Digits {
 public:
  explicit Digits(const NumberScan& scan) : scan_(scan) {}
  [[nodiscard]] std::int64_t Count() const {
    return static_cast<std::int64_t>(scan_.whole.size() + scan_.fraction.size());
  }
  [[nodiscard]] unsigned At(std::int64_t place) const {
    const auto index = static_cast<std::size_t>(place);
    const std::size_t whole = scan_.whole.size();
    return static_cast<unsigned>((index < whole ? scan_.whole[index] : scan_.fraction[index - whole]) - '0');
  }

 private:
  const NumberScan& scan_;
};

// Whether the digits from `first` on round the number before them up, half to even.
bool RoundsUp(const Digits& digits, std::int64_t first, bool odd) {
  if (first < 0 || first >= digits.Count()) return false;
  if (digits.At(first) != 5) return digits.At(first) > 5;
  for (std::int64_t i = first + 1; i < digits.Count(); ++i) {
    if (digits.At(i) != 0) return true;
  }
  return odd;
}

std::uint64_t Magnitude(std::int64_t scaled) {
  return scaled < 0 ? 0 - static_cast<std::uint64_t>(scaled) : static_cast<std::uint64_t>(scaled);
}

}  // namespace

Currency Currency::FromDouble(double value) {
  // The bounds are powers of two, so that they are exact as doubles.
  constexpr double kBound = 9223372036854775808.0;
  const double scaled = std::nearbyint(value * static_cast<double>(kUnit));
  if (!(scaled >= -kBound && scaled < kBound)) RaiseOverflow(NumberText(value));
  return Currency(static_cast<std::int64_t>(scaled));
}

Currency Currency::FromText(std::string_view text) {
  const std::string_view trimmed = Trim(text);
  const NumberScan scan = ScanNumber(trimmed);
  if (scan.length == 0 || scan.length != trimmed.size()) {
    throw RuntimeError(error_number::kTypeMismatch, "",
                       Join("the text ", Shown(text), " is not a number; a currency was expected"));
  }
  const Digits digits(scan);
  const std::uint64_t limit = scan.negative ? Magnitude(kLeast) : Magnitude(kMost);
  const std::int64_t kept = static_cast<std::int64_t>(scan.whole.size()) + scan.exponent + kDecimals;
  std::uint64_t scaled = 0;
  for (std::int64_t i = 0; i < kept && (i < digits.Count() || scaled != 0); ++i) {
    const unsigned digit = i < digits.Count() ? digits.At(i) : 0;
    if (scaled > (limit - digit) / 10) RaiseOverflow(Shown(text));
    scaled = scaled * 10 + digit;
  }
  if (RoundsUp(digits, kept, scaled % 2 != 0)) {
    if (scaled == limit) RaiseOverflow(Shown(text));
    ++scaled;
  }
  return Currency(static_cast<std::int64_t>(scan.negative ? 0 - scaled : scaled));
}

double Currency::ToDouble() const {
  return static_cast<double>(scaled_) / static_cast<double>(kUnit);
}

std::string Currency::ToText() const {
  // Sign, 15 digits, point, 4 digits.
  std::array<char, 24> buffer{};
  char* at = buffer.data();
  const std::uint64_t magnitude = Magnitude(scaled_);
  if (scaled_ < 0) *at++ = '-';
  at = std::to_chars(at, buffer.data() + buffer.size(), magnitude / kUnit).ptr;
  auto fraction = static_cast<unsigned>(magnitude % kUnit);
  if (fraction != 0) *at++ = '.';
  for (unsigned unit = kUnit / 10; fraction != 0; unit /= 10) {
    *at++ = static_cast<char>('0' + fraction / unit);
    fraction %= unit;
  }
  return {buffer.data(), at};
}

Currency& Currency::operator+=(Currency other) {
  const bool overflows =
      other.scaled_ > 0 ? scaled_ > kMost - other.scaled_ : scaled_ < kLeast - other.scaled_;
  if (overflows) RaiseOverflow(Join(ToText(), " + ", other.ToText()));
  scaled_ += other.scaled_;
  return *this;
}

Currency& Currency::operator-=(Currency other) {
  const bool overflows =
      other.scaled_ < 0 ? scaled_ > kMost + other.scaled_ : scaled_ < kLeast + other.scaled_;
  if (overflows) RaiseOverflow(Join(ToText(), " - ", other.ToText()));
  scaled_ -= other.scaled_;
  return *this;
}

}  // namespace salerpt
