#include "suite/tsql/function_names.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "suite/tsql/error.h"

namespace salerpt::tsql {
namespace {

struct FunctionEntry {
  std::string_view name;
  std::size_t least;
  std::size_t most;
};

constexpr std::size_t kAny = 1000;

constexpr auto kFunctions = std::to_array<FunctionEntry>({
    {"abs", 1, 1},
    {"ascii", 1, 1},
    {"avg", 1, 1},
    {"ceiling", 1, 1},
    {"char", 1, 1},
    {"charindex", 2, 3},
    {"coalesce", 2, kAny},
    {"count", 1, 1},
    {"count_big", 1, 1},
    {"datalength", 1, 1},
    {"dateadd", 3, 3},
    {"datediff", 3, 3},
    {"datename", 2, 2},
    {"datepart", 2, 2},
    {"day", 1, 1},
    {"exp", 1, 1},
    {"floor", 1, 1},
    {"getdate", 0, 0},
    {"grouping", 1, 1},
    {"isdate", 1, 1},
    {"isnull", 2, 2},
    {"isnumeric", 1, 1},
    {"left", 2, 2},
    {"len", 1, 1},
    {"log", 1, 1},
    {"lower", 1, 1},
    {"ltrim", 1, 1},
    {"max", 1, 1},
    {"min", 1, 1},
    {"month", 1, 1},
    {"nchar", 1, 1},
    {"nullif", 2, 2},
    {"object_id", 1, 2},
    {"patindex", 2, 2},
    {"power", 2, 2},
    {"replace", 3, 3},
    {"replicate", 2, 2},
    {"reverse", 1, 1},
    {"right", 2, 2},
    {"round", 2, 3},
    {"row_number", 0, 0},
    {"rtrim", 1, 1},
    {"scope_identity", 0, 0},
    {"sign", 1, 1},
    {"space", 1, 1},
    {"sqrt", 1, 1},
    {"square", 1, 1},
    {"str", 1, 3},
    {"stuff", 4, 4},
    {"substring", 3, 3},
    {"sum", 1, 1},
    {"unicode", 1, 1},
    {"upper", 1, 1},
    {"year", 1, 1},
});

const FunctionEntry* Find(std::string_view name) {
  const auto found =
      std::lower_bound(kFunctions.begin(), kFunctions.end(), name,
                       [](const FunctionEntry& entry, std::string_view key) { return entry.name < key; });
  return found != kFunctions.end() && found->name == name ? &*found : nullptr;
}

}  // namespace

bool IsKnownFunction(std::string_view name) {
  return Find(name) != nullptr;
}

void CheckArgumentCount(std::string_view name, std::size_t count, int line) {
  const FunctionEntry* entry = Find(name);
  if (entry == nullptr || (count >= entry->least && count <= entry->most)) return;
  if (entry->least == entry->most) {
    Raise(174, fmt::format("The {} function requires {} argument(s).", name, entry->least), line);
  }
  Raise(189, fmt::format("The {} function requires {} to {} arguments.", name, entry->least, entry->most),
        line);
}

bool IsAggregateFunction(std::string_view name) {
  return name == "sum" || name == "avg" || name == "min" || name == "max" || name == "count" ||
         name == "count_big";
}

std::string LowerName(std::string_view name) {
  std::string lower(name);
  std::transform(lower.begin(), lower.end(), lower.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
  return lower;
}

}  // namespace salerpt::tsql
