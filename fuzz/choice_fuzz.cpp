// Any text as a choice KEY=VALUE of the command line, for a key of each kind: it is refused, or becomes a
// value of the kind, which written out and given again becomes the same.
#include <string>

#include "fuzz/require.h"
#include "runtime/date.h"
#include "runtime/error.h"
#include "shell/conditions.h"

namespace {

using salerpt::RuntimeError;
using salerpt::Variant;
using salerpt::fuzz::Require;
using salerpt::shell::Choice;

// The value that a default asks for; nothing but a refusal may stop it.
bool Typed(const Choice& choice, const Variant& by_default, Variant& value) {
  try {
    value = salerpt::shell::TypedValue(choice, by_default);
    return true;
  } catch (const RuntimeError& error) {
    Require(error.Number() == salerpt::error_number::kInvalidCall);
    Require(error.Description().find(choice.place) == 0);
    return false;
  }
}

bool Suits(const Variant& value, const Variant& by_default) {
  switch (by_default.GetKind()) {
    case Variant::Kind::kDate:
    case Variant::Kind::kBoolean:
      return value.GetKind() == by_default.GetKind();
    case Variant::Kind::kInt32:
      return value.GetKind() == Variant::Kind::kInt32;
    case Variant::Kind::kDouble:
      return value.IsNumber();
    case Variant::Kind::kText:
      return value.IsText();
    default:
      return true;
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string argument(salerpt::fuzz::AsText(data, size));
  // No command line holds one.
  if (argument.find('\0') != std::string::npos) return 0;
  Choice choice;
  try {
    choice = salerpt::shell::ParseChoice(argument);
  } catch (const RuntimeError& error) {
    Require(error.Number() == salerpt::error_number::kInvalidCall);
    return 0;
  }
  Require(!choice.key.empty() && choice.key.find('=') == std::string::npos);
  Require(choice.key + "=" + choice.value.ToText() == argument);
  const Variant defaults[] = {
      salerpt::Date(37803), std::int32_t{1}, 0.5, true, "text", "2003-07-01", Variant(), salerpt::Null{}};
  for (const Variant& by_default : defaults) {
    Variant value;
    if (!Typed(choice, by_default, value)) continue;
    Require(Suits(value, by_default));
    Choice again = choice;
    again.value = value.ToText();
    Variant same;
    Require(Typed(again, by_default, same) && same == value);
  }
  return 0;
}
