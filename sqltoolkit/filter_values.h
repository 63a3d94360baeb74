// Conditions of a report, read from its `Filter`.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "runtime/dictionary.h"

namespace salerpt {

// The text of a key; empty where the key is absent or null (an absent range end is an empty one).
std::string FilterText(const Dictionary& filter, std::string_view key);
// The number of a key; 0 where it is absent, null or empty text. Raises type mismatch, naming key and value,
// for a text that is no number.
double FilterNumber(const Dictionary& filter, std::string_view key);
// As a whole number.
int FilterInt(const Dictionary& filter, std::string_view key);
// As a 16-bit number: years and periods. Raises overflow, naming the key, for one that does not fit.
std::int16_t FilterInt16(const Dictionary& filter, std::string_view key);

// The class levels that a grouped report shows, from "BLevel" to "ELevel". Raises invalid call, naming the
// key, for a level beyond what any code tree has (99).
struct LevelSpan {
  int begin;
  int end;
};
LevelSpan FilterLevels(const Dictionary& filter);
// The day of a key as "yyyy/mm/dd", the way dates stand in a batch; empty where the key is absent. Raises
// type mismatch, naming key and value, for a text that is no date.
std::string FilterDay(const Dictionary& filter, std::string_view key);
// `SumField`, the description of the property grouped by; a dictionary with no keys where the key is absent.
DictionaryRef FilterSumField(const Dictionary& filter);

// True where the rows are grouped ("GroupBy" 1); any other value is the report by item.
bool IsGrouped(const Dictionary& filter);
// True where only total rows are asked for ("OnlyShowSum" 1).
bool IsOnlySum(const Dictionary& filter);
// `condition` where only total rows are asked for, else nothing.
std::string_view SumOnly(const Dictionary& filter, std::string_view condition);

// The code field that is shown and filtered on: "FNumber" where gLongNumber is true, else "FShortNumber".
std::string_view CodeField();

}  // namespace salerpt
