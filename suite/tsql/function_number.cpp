// Functions over numbers, and the conversions to numbers.
#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "suite/tsql/decimal.h"
#include "suite/tsql/error.h"
#include "suite/tsql/functions.h"
#include "suite/tsql/number_text.h"

namespace salerpt::tsql {
namespace {

constexpr double kInt64Limit = 9.2e18;

std::string_view NumberWord(int sqlite_type) {
  return sqlite_type == SQLITE_INTEGER ? "int" : "numeric";
}

// The type that a text argument had, for messages: the last argument, where it is not varchar.
std::string_view FromWord(const Call& call, int index) {
  return call.Count() > index ? call.Text(index) : std::string_view("varchar");
}

// ts_int(value, kind[, type of the value]): any value as a whole number of the kind.
void ToInt(const Call& call) {
  const auto kind = static_cast<TypeKind>(call.Integer(1));
  std::int64_t value = 0;
  switch (call.Type(0)) {
    case SQLITE_INTEGER:
      value = call.Integer(0);
      break;
    case SQLITE_FLOAT: {
      const double number = call.Double(0);
      const bool huge = !(std::fabs(number) < kInt64Limit);
      if (FromWord(call, 2) == "float" && kind != TypeKind::kBit &&
          (huge || !FitsInteger(static_cast<std::int64_t>(number), kind))) {
        Raise(232, fmt::format("Arithmetic overflow error for type {}, value = {:.6f}.",
                               IntegerType(kind).Word(), number));
      }
      if (huge) {
        Raise(8115, fmt::format("Arithmetic overflow error converting expression to data type {}.",
                                IntegerType(kind).Word()));
      }
      value = static_cast<std::int64_t>(number + (number < 0 ? -1 : 1) * std::fabs(number) * 2e-16);
      if (kind == TypeKind::kBit) value = number != 0 ? 1 : 0;
      break;
    }
    default:
      call.Return(IntegerOfText(call.Text(0), kind, FromWord(call, 2)));
      return;
  }
  if (kind == TypeKind::kBit) {
    value = value != 0 ? 1 : 0;
  } else {
    CheckInteger(value, kind);
  }
  call.Return(value);
}

// ts_dec(value, precision, scale[, type of the value])
void ToDecimal(const Call& call) {
  const int precision = static_cast<int>(call.Integer(1));
  const int scale = static_cast<int>(call.Integer(2));
  if (call.Type(0) == SQLITE_TEXT) {
    call.Return(DecimalOfText(call.Text(0), DecimalType(precision, scale), FromWord(call, 3)));
    return;
  }
  const double value = RoundDecimal(call.Double(0), scale);
  if (std::fabs(value) >=
      (precision - scale <= 22 ? PowerOfTen(precision - scale) : std::pow(10.0, precision - scale))) {
    const std::string_view word = call.Count() > 3 ? call.Text(3) : NumberWord(call.Type(0));
    Raise(8115, fmt::format("Arithmetic overflow error converting {} to data type numeric.", word));
  }
  call.Return(value);
}

void ToFloat(const Call& call) {
  call.Return(call.Type(0) == SQLITE_TEXT ? FloatOfText(call.Text(0), "float", FromWord(call, 1))
                                          : call.Double(0));
}

// ts_round(value, digits[, cut])
void Round(const Call& call) {
  const auto digits = static_cast<int>(std::clamp<std::int64_t>(call.Integer(1), -40, 40));
  const bool cut = call.Count() > 2 && call.Integer(2) != 0;
  call.Return(cut ? TruncateDecimal(call.Double(0), digits) : RoundDecimal(call.Double(0), digits));
}

double NonZero(const Call& call) {
  const double divisor = call.Double(1);
  if (divisor == 0) Raise(8134, std::string(kDivideByZeroText));
  return divisor;
}

// ts_div(a, b, scale): the server cuts a quotient at its scale; a scale beyond 12 is left as the double gives
// it.
void Divide(const Call& call) {
  const double quotient = call.Double(0) / NonZero(call);
  const auto scale = static_cast<int>(call.Integer(2));
  call.Return(scale <= 12 ? TruncateDecimal(quotient, scale) : quotient);
}

// ts_mod(a, b, scale): over whole last digits, so that 0.3 % 0.1 is 0.
void Modulo(const Call& call) {
  const double divisor = NonZero(call);
  const DecimalScale scale(static_cast<int>(call.Integer(2)));
  const Int128 whole = scale.Whole(divisor);
  call.Return(whole == 0 ? 0.0 : scale.Value(scale.Whole(call.Double(0)) % whole));
}

std::int64_t NonZeroInteger(const Call& call) {
  const std::int64_t divisor = call.Integer(1);
  if (divisor == 0) Raise(8134, std::string(kDivideByZeroText));
  return divisor;
}

void DivideIntegers(const Call& call) {
  const std::int64_t divisor = NonZeroInteger(call);
  // The one quotient that does not fit.
  if (divisor == -1) {
    if (call.Integer(0) == INT64_MIN)
      Raise(8115, "Arithmetic overflow error converting expression to data type bigint.");
    call.Return(-call.Integer(0));
    return;
  }
  call.Return(call.Integer(0) / divisor);
}

void ModuloIntegers(const Call& call) {
  const std::int64_t divisor = NonZeroInteger(call);
  call.Return(divisor == -1 ? std::int64_t{0} : call.Integer(0) % divisor);
}

void Floor(const Call& call) {
  call.Return(std::floor(call.Double(0)));
}
void Ceiling(const Call& call) {
  call.Return(std::ceil(call.Double(0)));
}
void Exp(const Call& call) {
  call.Return(std::exp(call.Double(0)));
}
void Square(const Call& call) {
  call.Return(call.Double(0) * call.Double(0));
}

void Sign(const Call& call) {
  const double value = call.Double(0);
  const int sign = value > 0 ? 1 : value < 0 ? -1 : 0;
  if (call.Type(0) == SQLITE_INTEGER) {
    call.Return(std::int64_t{sign});
  } else {
    call.Return(static_cast<double>(sign));
  }
}

void Power(const Call& call) {
  call.Return(std::pow(call.Double(0), call.Double(1)));
}

void SquareRoot(const Call& call) {
  if (call.Double(0) < 0) Raise(3623, "An invalid floating point operation occurred.");
  call.Return(std::sqrt(call.Double(0)));
}

void Logarithm(const Call& call) {
  if (call.Double(0) <= 0) Raise(3623, "An invalid floating point operation occurred.");
  call.Return(std::log(call.Double(0)));
}

void IsNumeric(const Call& call) {
  const bool numeric =
      call.Type(0) != SQLITE_TEXT || (!call.Text(0).empty() && ReadFloat(call.Text(0)).has_value() &&
                                      call.Text(0).find_first_not_of(' ') != std::string_view::npos);
  call.Return(std::int64_t{numeric ? 1 : 0});
}

void Xor(const Call& call) {
  call.Return(call.Integer(0) ^ call.Integer(1));
}

void Top(const Call& call) {
  if (call.Integer(0) < 0) Raise(127, "A TOP N value may not be negative.");
  call.Return(call.Integer(0));
}

// ts_var(index): the variable as it is at this row.
void VariableNow(const Call& call) {
  const Datum& value = call.State().variables->At(static_cast<int>(call.Integer(0))).value;
  if (const auto* integer = std::get_if<std::int64_t>(&value)) call.Return(*integer);
  if (const auto* number = std::get_if<double>(&value)) call.Return(*number);
  if (const auto* text = std::get_if<std::string>(&value)) call.Return(std::string_view(*text));
}

constexpr FunctionDefinition kFunctions[] = {
    {"ts_int", 2, &ToInt},
    {"ts_dec", 3, &ToDecimal},
    {"ts_float", 1, &ToFloat},
    {"ts_int", 3, &ToInt},
    {"ts_dec", 4, &ToDecimal},
    {"ts_float", 2, &ToFloat},
    {"ts_round", 2, &Round},
    {"ts_round", 3, &Round},
    {"ts_div", 3, &Divide},
    {"ts_mod", 3, &Modulo},
    {"ts_idiv", 2, &DivideIntegers},
    {"ts_imod", 2, &ModuloIntegers},
    {"ts_floor", 1, &Floor},
    {"ts_ceiling", 1, &Ceiling},
    {"ts_exp", 1, &Exp},
    {"ts_square", 1, &Square},
    {"ts_sign", 1, &Sign},
    {"ts_power", 2, &Power},
    {"ts_sqrt", 1, &SquareRoot},
    {"ts_log", 1, &Logarithm},
    {"ts_isnumeric", 1, &IsNumeric},
    {"ts_var", 1, &VariableNow, false},
    {"ts_top", 1, &Top},
    {"ts_xor", 2, &Xor},
};

}  // namespace

void RegisterNumberFunctions(sqlite3* connection, FunctionState& state) {
  for (const FunctionDefinition& definition : kFunctions) RegisterFunction(connection, state, definition);
}

}  // namespace salerpt::tsql
