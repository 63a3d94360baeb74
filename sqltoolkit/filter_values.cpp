#include "sqltoolkit/filter_values.h"

#include <memory>

#include "runtime/error.h"
#include "runtime/runtime.h"
#include "runtime/text.h"

namespace salerpt {
namespace {

[[noreturn]] void RaiseMismatch(std::string_view key, const Variant& value, std::string_view expected) {
  throw RuntimeError(error_number::kTypeMismatch, "Filter",
                     Join("Filter(\"", key, "\") is \"", value.TextOrEmpty(), "\", expected ", expected));
}

// No code tree is deeper: a code has fewer characters than twice this.
constexpr int kDeepest = 99;

bool IsAbsent(const Variant& value) {
  return value.IsNull() || value.IsEmptyText();
}

}  // namespace

std::string FilterText(const Dictionary& filter, std::string_view key) {
  const Variant& value = filter.Get(key);
  if (value.IsObject()) RaiseMismatch(key, "an object", "a text");
  return value.TextOrEmpty();
}

double FilterNumber(const Dictionary& filter, std::string_view key) {
  const Variant& value = filter.Get(key);
  if (IsAbsent(value)) return 0;
  try {
    return value.ToDouble();
  } catch (const RuntimeError&) {
    RaiseMismatch(key, value, "a number");
  }
}

int FilterInt(const Dictionary& filter, std::string_view key) {
  return Variant(FilterNumber(filter, key)).ToInt32();
}

std::string FilterDay(const Dictionary& filter, std::string_view key) {
  const Variant& value = filter.Get(key);
  if (IsAbsent(value)) return {};
  try {
    return value.ToDate().Format('/');
  } catch (const RuntimeError&) {
    RaiseMismatch(key, value, "a date such as 2024-01-31");
  }
}

std::int16_t FilterInt16(const Dictionary& filter, std::string_view key) {
  const double number = FilterNumber(filter, key);
  try {
    return Variant(number).ToInt16();
  } catch (const RuntimeError&) {
    throw RuntimeError(error_number::kOverflow, "Filter",
                       Join("Filter(\"", key, "\") is ", NumberText(number), ", expected a 16-bit number"));
  }
}

LevelSpan FilterLevels(const Dictionary& filter) {
  const LevelSpan span{FilterInt(filter, "BLevel"), FilterInt(filter, "ELevel")};
  const auto check = [](std::string_view key, int level) {
    if (level >= -kDeepest && level <= kDeepest) return;
    throw RuntimeError(error_number::kInvalidCall, "Filter",
                       Join("Filter(\"", key, "\") is ", level, ", expected a level up to ", kDeepest));
  };
  check("BLevel", span.begin);
  check("ELevel", span.end);
  return span;
}

DictionaryRef FilterSumField(const Dictionary& filter) {
  const Variant& value = filter.Get("SumField");
  if (IsAbsent(value)) return std::make_shared<Dictionary>();
  if (!value.IsObject()) RaiseMismatch("SumField", value, "a dictionary");
  DictionaryRef field = As<Dictionary>(value);
  return field ? field : std::make_shared<Dictionary>();
}

bool IsGrouped(const Dictionary& filter) {
  return FilterNumber(filter, "GroupBy") == 1;
}

bool IsOnlySum(const Dictionary& filter) {
  return FilterNumber(filter, "OnlyShowSum") == 1;
}

std::string_view SumOnly(const Dictionary& filter, std::string_view condition) {
  return IsOnlySum(filter) ? condition : std::string_view();
}

std::string_view CodeField() {
  return Runtime::Current().gLongNumber ? "FNumber" : "FShortNumber";
}

}  // namespace salerpt
