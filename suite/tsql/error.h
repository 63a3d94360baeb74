// The server's error numbers and texts, as far as the embedded engine raises them.
#pragma once

#include <string>
#include <string_view>

namespace salerpt::tsql {

// Our own number for everything that the engine does not know or does not allow.
inline constexpr int kNotSupported = 50000;

// Raises TsqlError. Line 0: the interpreter fills in the line of the statement that runs.
[[noreturn]] void Raise(int number, const std::string& text, int line = 0);
// 50000 "<what> is not supported by the embedded engine (line n)."
[[noreturn]] void RaiseNotSupported(std::string_view what, int line);
// 207 "Invalid column name 'x'."
[[noreturn]] void RaiseInvalidColumn(std::string_view name);
// 208 "Invalid object name 'x'."
[[noreturn]] void RaiseInvalidObject(std::string_view name);

// 245 for whole numbers, 8114 for the others: a text that is no number of the type.
std::string ConversionText(int& number, std::string_view from_word, std::string_view to_word,
                           std::string_view value);

inline constexpr std::string_view kDivideByZeroText = "Divide by zero error encountered.";
inline constexpr std::string_view kDateConversionText =
    "Conversion failed when converting date and/or time from character string.";
inline constexpr std::string_view kTruncatedText = "String or binary data would be truncated.";
inline constexpr std::string_view kTooDeepText =
    "Some part of your SQL statement is nested too deeply. Rewrite the query or break it up into smaller "
    "queries.";
inline constexpr std::string_view kSubqueryRowsText =
    "Subquery returned more than 1 value. This is not permitted when the subquery follows =, !=, <, <= , >, "
    ">= or "
    "when the subquery is used as an expression.";
inline constexpr std::string_view kSubqueryColumnsText =
    "Only one expression can be specified in the select list when the subquery is not introduced with "
    "EXISTS.";
inline constexpr std::string_view kInsertColumnsText =
    "Column name or number of supplied values does not match table definition.";

}  // namespace salerpt::tsql
