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

bool IsAbsent(const Variant& value) {
  return value.IsNull() || value.IsEmptyText();
}

}  // namespace

std::string FilterText(const Dictionary& filter, std::string_view key) {
  return filter.Get(key).TextOrEmpty();
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

DictionaryRef FilterSumField(const Dictionary& filter) {
  DictionaryRef field = As<Dictionary>(filter.Get("SumField"));
  return field ? field : std::make_shared<Dictionary>();
}

std::string_view CodeField() {
  return Runtime::Current().gLongNumber ? "FNumber" : "FShortNumber";
}

}  // namespace salerpt
