// Money: exact, with four decimals.
#pragma once

#include <compare>
#include <cstdint>
#include <string>
#include <string_view>

namespace salerpt {

// An amount as the automation currency type holds it: a 64-bit integer of ten-thousandths. Addition and
// subtraction are exact and raise `RuntimeError` overflow where the sum does not fit; nothing here goes
// through a double unless the name says so.
class Currency {
 public:
  static constexpr std::int64_t kUnit = 10000;

  constexpr Currency() = default;
  // From ten-thousandths: FromScaled(12345) is 1.2345.
  static constexpr Currency FromScaled(std::int64_t ten_thousandths) { return Currency(ten_thousandths); }
  // Rounded to four decimals, half to even, as the automation conversion does. Raises overflow beyond
  // ±922e12.
  static Currency FromDouble(double value);
  // A decimal text, such as "-12.5" or "1e3". Raises type mismatch for a text that is no number.
  static Currency FromText(std::string_view text);

  // In ten-thousandths.
  [[nodiscard]] constexpr std::int64_t Scaled() const { return scaled_; }
  [[nodiscard]] double ToDouble() const;
  // Plain decimal digits without trailing zeros: "12.5", "-3", "0.0001".
  [[nodiscard]] std::string ToText() const;

  Currency& operator+=(Currency other);
  Currency& operator-=(Currency other);
  friend Currency operator+(Currency a, Currency b) { return a += b; }
  friend Currency operator-(Currency a, Currency b) { return a -= b; }
  friend constexpr auto operator<=>(Currency, Currency) = default;

 private:
  explicit constexpr Currency(std::int64_t scaled) : scaled_(scaled) {}
  std::int64_t scaled_ = 0;
};

}  // namespace salerpt
