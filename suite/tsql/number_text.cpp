#include "suite/tsql/number_text.h"

#include <fmt/format.h>

#include <charconv>
#include <cmath>
#include <limits>

#include "runtime/text.h"
#include "suite/tsql/decimal.h"
#include "suite/tsql/error.h"

namespace salerpt::tsql {
namespace {

std::string_view Unsigned(std::string_view text, bool& negative) {
  negative = !text.empty() && text.front() == '-';
  if (!text.empty() && (text.front() == '-' || text.front() == '+')) text.remove_prefix(1);
  return Trim(text);
}

std::optional<double> ReadNumber(std::string_view text, std::chars_format format) {
  bool negative = false;
  text = Unsigned(Trim(text), negative);
  if (text.empty() || !((text.front() >= '0' && text.front() <= '9') || text.front() == '.'))
    return std::nullopt;
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, format);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return negative ? -value : value;
}

}  // namespace

std::optional<std::int64_t> ReadInteger(std::string_view text, bool* too_large) {
  using Limits = std::numeric_limits<std::int64_t>;
  bool negative = false;
  text = Unsigned(Trim(text), negative);
  if (text.empty()) return 0;
  const std::uint64_t limit = static_cast<std::uint64_t>(Limits::max()) + (negative ? 1 : 0);
  std::uint64_t size = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), size);
  if (error == std::errc::invalid_argument || end != text.data() + text.size()) return std::nullopt;
  if (error == std::errc::result_out_of_range || size > limit) {
    if (too_large != nullptr) *too_large = true;
    size = limit;
  }
  return static_cast<std::int64_t>(negative ? 0 - size : size);
}

std::optional<double> ReadDecimal(std::string_view text) {
  return ReadNumber(text, std::chars_format::fixed);
}

std::optional<double> ReadFloat(std::string_view text) {
  if (Trim(text).empty()) return 0.0;
  return ReadNumber(text, std::chars_format::general);
}

bool FitsInteger(std::int64_t value, TypeKind kind) {
  switch (kind) {
    case TypeKind::kTinyInt:
      return value >= 0 && value <= 255;
    case TypeKind::kSmallInt:
      return value >= -32768 && value <= 32767;
    case TypeKind::kInt:
      return value >= std::numeric_limits<std::int32_t>::min() &&
             value <= std::numeric_limits<std::int32_t>::max();
    default:
      return true;
  }
}

void CheckInteger(std::int64_t value, TypeKind to) {
  if (FitsInteger(value, to)) return;
  const std::string word(IntegerType(to).Word());
  if (to == TypeKind::kInt) {
    Raise(8115, fmt::format("Arithmetic overflow error converting expression to data type {}.", word));
  }
  Raise(220, fmt::format("Arithmetic overflow error for data type {}, value = {}.", word, value));
}

std::int64_t IntegerOfText(std::string_view text, TypeKind to, std::string_view from_word) {
  const std::string word(IntegerType(to).Word());
  if (to == TypeKind::kBit && EqualNames(Trim(text), "true")) return 1;
  if (to == TypeKind::kBit && EqualNames(Trim(text), "false")) return 0;
  bool too_large = false;
  const std::optional<std::int64_t> value = ReadInteger(text, &too_large);
  if (!value) {
    int number = 0;
    const std::string message = ConversionText(number, from_word, word, text);
    Raise(number, message);
  }
  if (to == TypeKind::kBit) return *value != 0 ? 1 : 0;
  if (too_large && to == TypeKind::kBigInt) {
    Raise(8115, fmt::format("Arithmetic overflow error converting expression to data type {}.", word));
  }
  if (!FitsInteger(*value, to)) {
    if (to == TypeKind::kInt) {
      Raise(248,
            fmt::format("The conversion of the {} value '{}' overflowed an int column.", from_word, text));
    }
    Raise(244,
          fmt::format(
              "The conversion of the {} value '{}' overflowed an {} column. Use a larger integer column.",
              from_word, text, to == TypeKind::kSmallInt ? "INT2" : "INT1"));
  }
  return *value;
}

double DecimalOfText(std::string_view text, const ColumnType& to, std::string_view from_word) {
  const std::optional<double> value = ReadDecimal(text);
  if (!value) {
    if (to.kind == TypeKind::kMoney)
      Raise(235, "Cannot convert a char value to money. The char value has incorrect syntax.");
    Raise(8114, fmt::format("Error converting data type {} to numeric.", from_word));
  }
  const double rounded = RoundDecimal(*value, to.scale);
  if (std::fabs(rounded) >= std::pow(10.0, to.precision - to.scale)) {
    Raise(8115, fmt::format("Arithmetic overflow error converting {} to data type numeric.", from_word));
  }
  return rounded;
}

double FloatOfText(std::string_view text, std::string_view to_word, std::string_view from_word) {
  const std::optional<double> value = ReadFloat(text);
  if (!value) Raise(8114, fmt::format("Error converting data type {} to {}.", from_word, to_word));
  return *value;
}

std::string NumberLiteral(double value) {
  std::string text = fmt::format("{}", value);
  if (text.find_first_of(".en") == std::string::npos) text += ".0";
  if (text == "inf") return "9e999";
  if (text == "-inf") return "-9e999";
  return text.front() == '-' ? fmt::format("({})", text) : text;
}

std::string FloatText(double value) {
  std::string text = fmt::format("{:.6g}", value);
  const std::size_t exponent = text.find('e');
  if (exponent == std::string::npos) return text;
  // The server writes three digits of exponent.
  return fmt::format("{}{:0>3}", text.substr(0, exponent + 2), text.substr(exponent + 2));
}

}  // namespace salerpt::tsql
