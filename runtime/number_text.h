// Numbers as texts: what the conversions of `Variant` and `Currency` share.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace salerpt {

// A number at the beginning of a text, cut but not yet computed: "-12.5e3" is negative, "12", "5", 3.
struct NumberScan {
  bool negative = false;
  std::string_view whole;
  std::string_view fraction;
  // Within ±99999; what lies beyond is cut to it.
  int exponent = 0;
  // Characters read; 0 where the text does not begin with a number.
  std::size_t length = 0;
};

// Reads sign, digits, point, digits, exponent as far as they go. Skips no blanks; knows no thousands
// separators.
NumberScan ScanNumber(std::string_view text);
// The double that a whole text stands for, blanks at both ends left out; nothing for a text that is no
// number. Raises overflow for one that no double can hold.
std::optional<double> ParseDouble(std::string_view text);
// A text for a message: in quotes, a long one cut.
std::string Shown(std::string_view text);

}  // namespace salerpt
