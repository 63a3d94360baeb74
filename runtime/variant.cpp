#include "runtime/variant.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "runtime/error.h"
#include "runtime/number_text.h"
#include "runtime/text.h"

namespace salerpt {
namespace {

// Days since 1899-12-30 that a date can hold: the years 100 to 9999.
constexpr double kFirstDate = -657434;
constexpr double kBehindLastDate = 2958466;

template <typename... T>
struct Overloaded : T... {
  using T::operator()...;
};
template <typename... T>
Overloaded(T...) -> Overloaded<T...>;

[[noreturn]] void RaiseNull(std::string_view target) {
  throw RuntimeError(error_number::kInvalidNull, "", Join("the value is null; a ", target, " was expected"));
}

[[noreturn]] void RaiseObject(std::string_view target) {
  throw RuntimeError(error_number::kTypeMismatch, "",
                     Join("the value is an object; a ", target, " was expected"));
}

[[noreturn]] void RaiseText(std::string_view text, std::string_view target) {
  throw RuntimeError(error_number::kTypeMismatch, "",
                     Join("the text ", Shown(text), " cannot be turned into a ", target));
}

[[noreturn]] void RaiseOverflow(std::string_view value, std::string_view target) {
  throw RuntimeError(error_number::kOverflow, "", Join("the value ", value, " does not fit a ", target));
}

double NumberOf(std::string_view text, std::string_view target) {
  if (const auto number = ParseDouble(text)) return *number;
  RaiseText(text, target);
}

// Any of the kinds as a double; `target` is named in the error.
template <typename Value>
double AsDouble(const Value& value, std::string_view target) {
  return std::visit(Overloaded{
                        [](std::monostate) { return 0.0; },
                        [target](Null) -> double { RaiseNull(target); },
                        [](bool flag) { return flag ? -1.0 : 0.0; },
                        [](std::int16_t number) { return static_cast<double>(number); },
                        [](std::int32_t number) { return static_cast<double>(number); },
                        [](double number) { return number; },
                        [](Currency amount) { return amount.ToDouble(); },
                        [](Date date) { return date.Serial(); },
                        [target](const std::string& text) { return NumberOf(text, target); },
                        [target](const ObjectRef&) -> double { RaiseObject(target); },
                    },
                    value);
}

// Rounded half to even, as the processor does by default.
template <typename Integer>
Integer Rounded(double number, std::string_view target) {
  using Limits = std::numeric_limits<Integer>;
  const double whole = std::nearbyint(number);
  if (!(whole >= Limits::min() && whole <= Limits::max())) RaiseOverflow(NumberText(number), target);
  return static_cast<Integer>(whole);
}

std::string IntegerText(std::int32_t number) {
  std::array<char, 12> buffer{};
  return {buffer.data(), std::to_chars(buffer.data(), buffer.data() + buffer.size(), number).ptr};
}

}  // namespace

Variant::Variant(const Variant& other) = default;
Variant::Variant(Variant&& other) noexcept = default;
Variant& Variant::operator=(const Variant& other) = default;
Variant& Variant::operator=(Variant&& other) noexcept = default;
Variant::~Variant() = default;

bool Variant::IsNumber() const {
  switch (GetKind()) {
    case Kind::kInt16:
    case Kind::kInt32:
    case Kind::kDouble:
    case Kind::kCurrency:
      return true;
    default:
      return false;
  }
}

bool Variant::IsEmptyText() const {
  const std::string* text = TextIf();
  return text != nullptr ? text->empty() : IsEmpty();
}

bool Variant::ToBoolean() const {
  const std::string_view target = KindName(Kind::kBoolean);
  if (const bool* flag = std::get_if<bool>(&value_)) return *flag;
  if (const std::string* text = TextIf()) {
    if (EqualNames(Trim(*text), "True")) return true;
    if (EqualNames(Trim(*text), "False")) return false;
    return NumberOf(*text, target) != 0;
  }
  return AsDouble(value_, target) != 0;
}

std::int16_t Variant::ToInt16() const {
  if (const auto* number = std::get_if<std::int16_t>(&value_)) return *number;
  const std::string_view target = KindName(Kind::kInt16);
  return Rounded<std::int16_t>(AsDouble(value_, target), target);
}

std::int32_t Variant::ToInt32() const {
  if (const auto* number = std::get_if<std::int32_t>(&value_)) return *number;
  const std::string_view target = KindName(Kind::kInt32);
  return Rounded<std::int32_t>(AsDouble(value_, target), target);
}

double Variant::ToDouble() const {
  return AsDouble(value_, KindName(Kind::kDouble));
}

Currency Variant::ToCurrency() const {
  if (const auto* amount = std::get_if<Currency>(&value_)) return *amount;
  if (const std::string* text = TextIf()) return Currency::FromText(*text);
  return Currency::FromDouble(AsDouble(value_, KindName(Kind::kCurrency)));
}

Date Variant::ToDate() const {
  const std::string_view target = KindName(Kind::kDate);
  if (const auto* date = std::get_if<Date>(&value_)) return *date;
  if (const std::string* text = TextIf()) {
    if (const auto date = Date::Parse(Trim(*text))) return *date;
    RaiseText(*text, target);
  }
  const double serial = AsDouble(value_, target);
  if (!(serial > kFirstDate - 1 && serial < kBehindLastDate)) RaiseOverflow(NumberText(serial), target);
  return Date(serial);
}

std::string Variant::ToText() const {
  const std::string_view target = KindName(Kind::kText);
  return std::visit(Overloaded{
                        [](std::monostate) { return std::string(); },
                        [target](Null) -> std::string { RaiseNull(target); },
                        [](bool flag) { return std::string(flag ? "True" : "False"); },
                        [](std::int16_t number) { return IntegerText(number); },
                        [](std::int32_t number) { return IntegerText(number); },
                        [](double number) { return NumberText(number); },
                        [](Currency amount) { return amount.ToText(); },
                        [](Date date) { return date.ToText(); },
                        [](const std::string& text) { return text; },
                        [target](const ObjectRef&) -> std::string { RaiseObject(target); },
                    },
                    value_);
}

std::string Variant::TextOrEmpty() const {
  return IsNull() ? std::string() : ToText();
}

ObjectRef Variant::ToObject() const {
  if (const auto* object = std::get_if<ObjectRef>(&value_)) return *object;
  if (IsEmpty()) return nullptr;
  throw RuntimeError(error_number::kTypeMismatch, "",
                     Join("an object was expected, not a value of kind ", KindName(GetKind())));
}

std::string_view KindName(Variant::Kind kind) {
  switch (kind) {
    case Variant::Kind::kEmpty:
      return "empty";
    case Variant::Kind::kNull:
      return "null";
    case Variant::Kind::kBoolean:
      return "boolean";
    case Variant::Kind::kInt16:
      return "16-bit integer";
    case Variant::Kind::kInt32:
      return "32-bit integer";
    case Variant::Kind::kDouble:
      return "double";
    case Variant::Kind::kCurrency:
      return "currency";
    case Variant::Kind::kDate:
      return "date";
    case Variant::Kind::kText:
      return "text";
    case Variant::Kind::kObject:
      return "object";
  }
  return "unknown";
}

}  // namespace salerpt
