// Any text as a number: all readers of numbers agree about it, and a number that was read survives being
// written and read again.
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <optional>
#include <string>

#include "fuzz/require.h"
#include "runtime/currency.h"
#include "runtime/error.h"
#include "runtime/number_text.h"
#include "runtime/text.h"
#include "runtime/variant.h"
#include "suite/accountset/decimal.h"
#include "suite/tsql/decimal.h"
#include "suite/tsql/number_text.h"

namespace {

using salerpt::Currency;
using salerpt::ParseDouble;
using salerpt::RuntimeError;
using salerpt::fuzz::Require;
namespace tsql = salerpt::tsql;

constexpr double kExactDoubles = 9007199254740992;

// The double of a text that is a number for the C library too.
double Plain(std::string_view text) {
  return std::strtod(std::string(salerpt::Trim(text)).c_str(), nullptr);
}

// Nothing where the number overflows.
template <typename Read>
auto OrOverflow(Read&& read) -> std::optional<decltype(read())> {
  try {
    return read();
  } catch (const RuntimeError& error) {
    Require(error.Number() == salerpt::error_number::kOverflow);
    return std::nullopt;
  }
}

void CheckDouble(std::string_view text) {
  const auto begun = OrOverflow([text] { return salerpt::Val(text); });
  Require(begun == OrOverflow([text] { return salerpt::Val(std::string(text) + "x"); }));
  const auto read = OrOverflow([text] { return ParseDouble(text); });
  if (!read) {
    Require(!begun);
    return;
  }
  if (!*read) return;
  const double number = **read;
  Require(number == Plain(text) && begun == number);
  Require(ParseDouble(salerpt::NumberText(number)) == number);
  const auto whole = OrOverflow([text] { return salerpt::Variant(text).ToInt32(); });
  Require(!whole || *whole == std::nearbyint(number));
}

void CheckCurrency(std::string_view text) {
  try {
    const Currency amount = Currency::FromText(text);
    Require(Currency::FromText(amount.ToText()) == amount);
    const double number = Plain(text);
    Require(std::fabs(amount.ToDouble() - number) <= 0.00005000001 + std::fabs(number) * 1e-15);
  } catch (const RuntimeError& error) {
    const bool is_number = salerpt::ScanNumber(salerpt::Trim(text)).length == salerpt::Trim(text).size();
    Require(error.Number() == (is_number && !salerpt::Trim(text).empty()
                                   ? salerpt::error_number::kOverflow
                                   : salerpt::error_number::kTypeMismatch));
  }
}

void CheckDecimal(std::string_view text) {
  const auto number = salerpt::accountset::ParseDecimal(text);
  if (!number) return;
  const double value = number->ToDouble();
  Require(number->scale >= 0 && number->scale <= 18);
  std::string trimmed(text);
  std::erase_if(trimmed, [](char c) { return c == ' ' || c == '\t'; });
  if (std::fabs(static_cast<double>(number->units)) < kExactDoubles) Require(value == Plain(trimmed));
  for (int scale = 0; scale < number->scale; ++scale) {
    const auto rounded = salerpt::accountset::Rounded(*number, scale);
    Require(std::fabs(rounded.ToDouble() - value) <=
            0.5000001 / tsql::PowerOfTen(scale) + std::fabs(value) * 1e-15);
  }
}

void CheckRounding(double value) {
  // A double promises fifteen digits.
  constexpr double kMostDigits = 1e15;
  for (int scale = -3; scale <= 10; ++scale) {
    const std::string text = tsql::FormatDecimal(value, std::max(scale, 0));
    const std::size_t point = scale > 0 ? static_cast<std::size_t>(scale) + 1 : 0;
    Require(text.size() > point && (point == 0 || text[text.size() - point] == '.'));
    if (std::fabs(value) * tsql::PowerOfTen(std::max(scale, 0)) >= kMostDigits) continue;
    const double rounded = tsql::RoundDecimal(value, scale);
    Require(tsql::RoundDecimal(rounded, scale) == rounded);
    const double cut = tsql::TruncateDecimal(value, scale);
    Require(tsql::TruncateDecimal(cut, scale) == cut && std::fabs(cut) <= std::fabs(value) * (1 + 1e-15));
    if (scale >= 0) Require(tsql::ReadDecimal(text) == rounded);
  }
}

void CheckEngine(std::string_view text) {
  const auto decimal = tsql::ReadDecimal(text);
  const auto number = tsql::ReadFloat(text);
  if (decimal) {
    Require(number == decimal);
    CheckRounding(*decimal);
  }
  if (number) {
    Require(std::strtod(tsql::NumberLiteral(std::fabs(*number)).c_str(), nullptr) == std::fabs(*number));
    Require(!tsql::FloatText(*number).empty());
  }
  const auto whole = tsql::ReadInteger(text);
  if (whole && !salerpt::Trim(text).empty() && decimal && std::fabs(*decimal) < kExactDoubles) {
    Require(static_cast<double>(*whole) == *decimal);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text = salerpt::fuzz::AsText(data, size);
  CheckDouble(text);
  CheckCurrency(text);
  CheckDecimal(text);
  CheckEngine(text);
  return 0;
}
