// The functions that a batch may call, with their argument counts.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace salerpt::tsql {

// `name` in lower case.
bool IsKnownFunction(std::string_view name);
// Raises 174 or 189 when a function is called with too few or too many arguments.
void CheckArgumentCount(std::string_view name, std::size_t count, int line);
// sum, avg, min, max, count, count_big.
bool IsAggregateFunction(std::string_view name);
// Lower case of the ASCII letters.
std::string LowerName(std::string_view name);

}  // namespace salerpt::tsql
