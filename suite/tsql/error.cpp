#include "suite/tsql/error.h"

#include <fmt/format.h>

#include "suite/tsql/session.h"

namespace salerpt::tsql {

void Raise(int number, const std::string& text, int line) {
  throw TsqlError(number, text, line);
}

void RaiseNotSupported(std::string_view what, int line) {
  Raise(kNotSupported, fmt::format("{} is not supported by the embedded engine (line {}).", what, line),
        line);
}

void RaiseInvalidColumn(std::string_view name) {
  Raise(207, fmt::format("Invalid column name '{}'.", name));
}

void RaiseInvalidObject(std::string_view name) {
  Raise(208, fmt::format("Invalid object name '{}'.", name));
}

std::string ConversionText(int& number, std::string_view from_word, std::string_view to_word,
                           std::string_view value) {
  const bool whole = to_word == "int" || to_word == "smallint" || to_word == "tinyint" ||
                     to_word == "bigint" || to_word == "bit";
  if (whole) {
    number = 245;
    return fmt::format("Conversion failed when converting the {} value '{}' to data type {}.", from_word,
                       value, to_word);
  }
  number = 8114;
  return fmt::format("Error converting data type {} to {}.", from_word, to_word);
}

}  // namespace salerpt::tsql
