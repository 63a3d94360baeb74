#include "shell/conditions.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>

#include "dialogs/unattended.h"
#include "runtime/date.h"
#include "runtime/error.h"
#include "runtime/runtime.h"
#include "runtime/text.h"
#include "shell/suggest.h"

namespace salerpt::shell {
namespace {

[[noreturn]] void Refuse(const Choice& choice, std::string_view expected) {
  throw RuntimeError(error_number::kInvalidCall, "Shell",
                     Join(choice.place, ": ", expected, " was expected"));
}

bool IsUtf8(std::string_view text) {
  try {
    static_cast<void>(nlohmann::json(text).dump());
    return true;
  } catch (const nlohmann::json::type_error&) {
    return false;
  }
}

bool IsWhole(double number) {
  return std::trunc(number) == number;
}

std::optional<double> ParseNumber(std::string_view text) {
  double number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(number)) return std::nullopt;
  return number;
}

Variant NumberVariant(double number) {
  using Limits = std::numeric_limits<std::int32_t>;
  const bool is_int32 = IsWhole(number) && number >= Limits::min() && number <= Limits::max();
  return is_int32 ? Variant(static_cast<std::int32_t>(number)) : Variant(number);
}

Date DateOf(const Choice& choice) {
  constexpr std::size_t kDaySize = 10;
  const std::string* text = choice.value.TextIf();
  const auto date = text != nullptr ? Date::Parse(*text) : std::nullopt;
  if (!date || text->size() > kDaySize) Refuse(choice, "a date YYYY-MM-DD");
  return *date;
}

Variant NumberOf(const Choice& choice, bool whole) {
  constexpr std::string_view kWhole = "a whole number";
  const std::string_view expected = whole ? kWhole : "a number";
  Variant value = choice.value;
  if (choice.is_text) {
    const auto number = ParseNumber(*choice.value.TextIf());
    if (!number) Refuse(choice, expected);
    value = NumberVariant(*number);
  }
  if (!value.IsNumber() || (whole && value.GetKind() == Variant::Kind::kDouble)) Refuse(choice, expected);
  return value;
}

Variant BooleanOf(const Choice& choice) {
  if (choice.value.GetKind() == Variant::Kind::kBoolean) return choice.value;
  if (choice.is_text && EqualNames(*choice.value.TextIf(), "true")) return true;
  if (choice.is_text && EqualNames(*choice.value.TextIf(), "false")) return false;
  Refuse(choice, "true or false");
}

Variant TextOf(const Choice& choice) {
  if (choice.value.IsText()) return choice.value;
  if (choice.value.IsNumber()) return choice.value.ToText();
  Refuse(choice, "a text");
}

// Without a default to go by: what the text looks like.
Variant GuessedValue(const Choice& choice) {
  if (!choice.is_text) return choice.value;
  const std::string& text = *choice.value.TextIf();
  if (const auto number = ParseNumber(text)) return NumberVariant(*number);
  if (EqualNames(text, "true")) return true;
  if (EqualNames(text, "false")) return false;
  return choice.value;
}

std::vector<std::string_view> KeysOf(const Dictionary& filter) {
  std::vector<std::string_view> keys;
  for (const Dictionary::Entry& entry : filter.Entries()) {
    // The dialog's own answer to whether it was confirmed, not a condition.
    if (entry.key != "OK") keys.push_back(entry.key);
  }
  return keys;
}

// The rows of "sum by" are a closed list: the report would build a statement that means nothing from another
// code. Code 0 stands for every property; which one is told by "SumField".
void RequireListedSumMode(const Form& form, const Choice& choice, const Variant& value) {
  const auto* rows = form.FindAs<ListControl>("cmbGroupBy");
  if (rows == nullptr || rows->Items().empty() || !EqualNames(choice.key, "SumMode")) return;
  std::string codes;
  for (const ListItem& row : rows->Items()) {
    if (row.item_data == value.ToInt32()) return;
    Append(codes, codes.empty() ? "" : ", ", row.item_data, " (", row.text, ")");
  }
  Refuse(choice, Join("one of ", codes));
}

}  // namespace

Choice ParseChoice(std::string_view argument) {
  const std::size_t at = argument.find('=');
  if (at == std::string_view::npos || at == 0) {
    throw RuntimeError(error_number::kInvalidCall, "Shell",
                       Join("\"", argument, "\": KEY=VALUE was expected"));
  }
  if (!IsUtf8(argument)) {
    throw RuntimeError(error_number::kInvalidCall, "Shell",
                       Join(argument.substr(0, at), ": the value is no UTF-8 text"));
  }
  return {std::string(argument.substr(0, at)), argument.substr(at + 1), std::string(argument), true};
}

Variant TypedValue(const Choice& choice, const Variant& by_default) {
  switch (by_default.GetKind()) {
    case Variant::Kind::kDate:
      return DateOf(choice);
    case Variant::Kind::kInt16:
    case Variant::Kind::kInt32:
    case Variant::Kind::kDouble:
    case Variant::Kind::kCurrency:
      return NumberOf(choice, IsWhole(by_default.ToDouble()));
    case Variant::Kind::kBoolean:
      return BooleanOf(choice);
    case Variant::Kind::kText:
      // Dialogs hand over dates as texts.
      if (Date::Parse(*by_default.TextIf())) return DateOf(choice).Format('-');
      return TextOf(choice);
    case Variant::Kind::kObject:
      if (!choice.value.IsObject()) Refuse(choice, "an object (give it with --filter)");
      return choice.value;
    case Variant::Kind::kEmpty:
    case Variant::Kind::kNull:
      return GuessedValue(choice);
  }
  return choice.value;
}

std::vector<Dictionary::Entry> TypedConditions(std::string_view dialog, const std::vector<Choice>& choices) {
  if (choices.empty()) return {};
  const std::unique_ptr<FilterDialog> made = Runtime::Current().MakeDialog(dialog);
  auto& preview = dynamic_cast<FormDialog&>(*made);
  preview.Load();
  ConfirmWith(preview, {});
  const DictionaryRef defaults = preview.Filter();
  std::vector<Dictionary::Entry> conditions;
  for (const Choice& choice : choices) {
    if (!defaults->Lookup(choice.key) || EqualNames(choice.key, "OK")) {
      throw RuntimeError(error_number::kInvalidCall, "Shell",
                         Join(choice.place, ": ", dialog, " has no key \"", choice.key, "\"",
                              KnownNames(choice.key, KeysOf(*defaults))));
    }
    Variant value = TypedValue(choice, defaults->Get(choice.key));
    // The rows may hang on an earlier choice (the invoices' style).
    if (EqualNames(choice.key, "InvoiceStyle")) preview.Choose(choice.key, value);
    RequireListedSumMode(preview.GetForm(), choice, value);
    std::erase_if(conditions,
                  [&choice](const Dictionary::Entry& e) { return EqualNames(e.key, choice.key); });
    conditions.push_back({choice.key, std::move(value)});
  }
  return conditions;
}

}  // namespace salerpt::shell
