// Numbers as the server reads and writes them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "suite/tsql/types.h"

namespace salerpt::tsql {

// A whole number in a text; blanks around it and an empty text (0) are allowed. One of more than 64 bits is
// the nearest that they hold, and too large.
std::optional<std::int64_t> ReadInteger(std::string_view text, bool* too_large = nullptr);
// Digits with an optional point, no exponent; an empty text is none.
std::optional<double> ReadDecimal(std::string_view text);
// As ReadDecimal, with an exponent; an empty text is 0.
std::optional<double> ReadFloat(std::string_view text);

// These raise 245, 8114, 8115 and 220 as the server does. `from_word` names the type of the text.
std::int64_t IntegerOfText(std::string_view text, TypeKind to, std::string_view from_word);
double DecimalOfText(std::string_view text, const ColumnType& to, std::string_view from_word);
double FloatOfText(std::string_view text, std::string_view to_word, std::string_view from_word);
// Raises 8115 or 220 when the value does not fit.
void CheckInteger(std::int64_t value, TypeKind to);
bool FitsInteger(std::int64_t value, TypeKind kind);

// A number as SQLite reads it back exactly.
std::string NumberLiteral(double value);
// A float as CONVERT to text spells it: six digits, an exponent from 1e+006 on.
std::string FloatText(double value);

}  // namespace salerpt::tsql
