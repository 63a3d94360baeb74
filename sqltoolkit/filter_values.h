// Conditions of a report, read from its `Filter`.
#pragma once

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
// The day of a key as "yyyy/mm/dd", the way dates stand in a batch; empty where the key is absent. Raises
// type mismatch, naming key and value, for a text that is no date.
std::string FilterDay(const Dictionary& filter, std::string_view key);
// `SumField`, the description of the property grouped by; a dictionary with no keys where the key is absent.
DictionaryRef FilterSumField(const Dictionary& filter);

// The code field that is shown and filtered on: "FNumber" where gLongNumber is true, else "FShortNumber".
std::string_view CodeField();

}  // namespace salerpt
