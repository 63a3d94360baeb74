// The value that crosses every boundary of the library.
#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

#include "runtime/currency.h"
#include "runtime/date.h"

namespace salerpt {

class Object;
using ObjectRef = std::shared_ptr<Object>;

// A database null; not the same as empty, which is a value that was never set.
struct Null {
  friend constexpr bool operator==(Null, Null) = default;
};

// A value of one of the automation kinds, with the automation conversions that the reports rest on. Texts are
// UTF-8. A conversion that cannot be done raises `RuntimeError`: invalid null, type mismatch or overflow,
// naming the value and the kind asked for.
class Variant {
 public:
  enum class Kind : std::uint8_t {
    kEmpty,
    kNull,
    kBoolean,
    kInt16,
    kInt32,
    kDouble,
    kCurrency,
    kDate,
    kText,
    kObject
  };

  Variant() = default;
  // Not inline: values are copied everywhere, and the compiler suspects the inlined moves of reading what is
  // not set.
  Variant(const Variant& other);
  Variant(Variant&& other) noexcept;
  Variant& operator=(const Variant& other);
  Variant& operator=(Variant&& other) noexcept;
  ~Variant();
  Variant(Null value) : value_(value) {}                           // NOLINT(google-explicit-constructor)
  Variant(std::same_as<bool> auto value) : value_(value) {}        // NOLINT(google-explicit-constructor)
  Variant(std::int16_t value) : value_(value) {}                   // NOLINT(google-explicit-constructor)
  Variant(std::int32_t value) : value_(value) {}                   // NOLINT(google-explicit-constructor)
  Variant(double value) : value_(value) {}                         // NOLINT(google-explicit-constructor)
  Variant(Currency value) : value_(value) {}                       // NOLINT(google-explicit-constructor)
  Variant(Date value) : value_(value) {}                           // NOLINT(google-explicit-constructor)
  Variant(std::string value) : value_(std::move(value)) {}         // NOLINT(google-explicit-constructor)
  Variant(std::string_view value) : value_(std::string(value)) {}  // NOLINT(google-explicit-constructor)
  Variant(const char* value) : value_(std::string(value)) {}       // NOLINT(google-explicit-constructor)
  // An object that is nothing.
  Variant(std::nullptr_t) : value_(ObjectRef()) {}  // NOLINT(google-explicit-constructor)
  template <std::derived_from<Object> T>
  Variant(std::shared_ptr<T> object)  // NOLINT(google-explicit-constructor)
      : value_(ObjectRef(std::move(object))) {}

  [[nodiscard]] Kind GetKind() const { return static_cast<Kind>(value_.index()); }
  [[nodiscard]] bool IsEmpty() const { return GetKind() == Kind::kEmpty; }
  [[nodiscard]] bool IsNull() const { return GetKind() == Kind::kNull; }
  [[nodiscard]] bool IsText() const { return GetKind() == Kind::kText; }
  [[nodiscard]] bool IsObject() const { return GetKind() == Kind::kObject; }
  // Whole or broken number, currency included; not a boolean, not a date.
  [[nodiscard]] bool IsNumber() const;
  // Compares as the automation does against "": true for empty and for empty text; a null is neither.
  [[nodiscard]] bool IsEmptyText() const;

  // True and false, numbers (0 is false), "True"/"False" in any case, number texts; empty is false.
  [[nodiscard]] bool ToBoolean() const;
  // Whole numbers: rounded half to even, overflow outside the type; empty is 0; true is -1.
  [[nodiscard]] std::int16_t ToInt16() const;
  [[nodiscard]] std::int32_t ToInt32() const;
  [[nodiscard]] double ToDouble() const;
  [[nodiscard]] Currency ToCurrency() const;
  // A date, a date text, or a number as days since 1899-12-30.
  [[nodiscard]] Date ToDate() const;
  // Empty is "", a whole double prints without a point, booleans as "True" and "False". Raises for null and
  // objects.
  [[nodiscard]] std::string ToText() const;
  // As by joining with empty text: a null becomes "" too.
  [[nodiscard]] std::string TextOrEmpty() const;
  // The object, or nothing where the value is empty; raises type mismatch for any other kind.
  [[nodiscard]] ObjectRef ToObject() const;

  // The text where the value is one; never a conversion. Lives as long as the value.
  [[nodiscard]] const std::string* TextIf() const { return std::get_if<std::string>(&value_); }

  // Same kind and same value; for tests and change detection, not the automation comparison.
  friend bool operator==(const Variant& a, const Variant& b) { return a.value_ == b.value_; }

 private:
  std::variant<std::monostate, Null, bool, std::int16_t, std::int32_t, double, Currency, Date, std::string,
               ObjectRef>
      value_;
};

// The number that a text begins with, blanks skipped, 0 where there is none: Val(" 12abc") is 12.
double Val(std::string_view text);
// The shortest decimal text that gives the double back; a whole double prints without a point ("12", "0.1",
// "1E+20").
std::string NumberText(double value);
// Name of a kind for messages: "text", "null", "32-bit integer".
std::string_view KindName(Variant::Kind kind);

}  // namespace salerpt
