// Conditions from a JSON file.
#pragma once

#include <filesystem>
#include <string_view>
#include <vector>

#include "shell/conditions.h"

namespace salerpt::shell {

// One object of keys and values: numbers (whole ones as 32-bit integers, others as doubles), texts, booleans,
// nested objects as dictionaries. Raises invalid-call naming the file and, as far as there is one, the line
// or the JSON pointer and the value: the file cannot be read, is no JSON, is no object, holds an array or a
// null, a key twice or a number that no double holds, or is nested deeper than 64 levels.
std::vector<Choice> ReadFilterFile(const std::filesystem::path& file);
// The same from a text; `file` is only named in messages.
std::vector<Choice> ParseFilter(std::string_view json, std::string_view file);

}  // namespace salerpt::shell
