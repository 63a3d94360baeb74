// Functions over texts, and the conversions to text.
#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "suite/tsql/decimal.h"
#include "suite/tsql/error.h"
#include "suite/tsql/functions.h"
#include "suite/tsql/number_text.h"
#include "suite/tsql/pattern.h"

namespace salerpt::tsql {
namespace {

constexpr std::size_t kTextLimit = 8000;

constexpr const char* kInvalidLength = "Invalid length parameter passed to the LEFT or SUBSTRING function.";

std::string_view Part(std::string_view text, std::size_t start, std::size_t count) {
  const std::size_t from = OffsetOfCharacter(text, start);
  return text.substr(from, OffsetOfCharacter(text.substr(from), count));
}

std::size_t AsCount(std::int64_t value) {
  return static_cast<std::size_t>(std::clamp<std::int64_t>(value, 0, 1'000'000));
}

// ts_charindex(sought, text[, start])
void CharIndex(const Call& call) {
  const std::string_view sought = call.Text(0);
  const std::string_view text = call.Text(1);
  const std::size_t start = call.Count() > 2 ? AsCount(call.Integer(2) - 1) : 0;
  const std::size_t from = OffsetOfCharacter(text, start);
  const bool behind_end = start > 0 && from >= text.size();
  const std::size_t found =
      sought.empty() || behind_end ? std::string_view::npos : FindText(text, sought, from);
  call.Return(found == std::string_view::npos
                  ? std::int64_t{0}
                  : static_cast<std::int64_t>(CountCharacters(text.substr(0, found))) + 1);
}

// ts_substring(text, start, count): a start before the text eats from the count.
void Substring(const Call& call) {
  std::int64_t start = call.Integer(1);
  std::int64_t count = call.Integer(2);
  if (count < 0) Raise(537, kInvalidLength);
  if (start < 1) {
    count = std::max<std::int64_t>(0, count + start - 1);
    start = 1;
  }
  call.Return(Part(call.Text(0), AsCount(start - 1), AsCount(count)));
}

void Left(const Call& call) {
  if (call.Integer(1) < 0) Raise(537, kInvalidLength);
  call.Return(Part(call.Text(0), 0, AsCount(call.Integer(1))));
}

void Right(const Call& call) {
  if (call.Integer(1) < 0) Raise(536, "Invalid length parameter passed to the right function.");
  const std::string_view text = call.Text(0);
  const std::size_t size = CountCharacters(text);
  const std::size_t count = std::min(size, AsCount(call.Integer(1)));
  call.Return(text.substr(OffsetOfCharacter(text, size - count)));
}

void Replace(const Call& call) {
  const std::string_view text = call.Text(0);
  const std::string_view from = call.Text(1);
  if (from.empty()) {
    call.ReturnArgument(0);
    return;
  }
  std::string result;
  std::size_t position = 0;
  for (std::size_t found = FindText(text, from); found != std::string_view::npos;
       found = FindText(text, from, position)) {
    result += text.substr(position, found - position);
    result += call.Text(2);
    position = found + from.size();
  }
  result += text.substr(position);
  call.Return(std::string_view(result));
}

void Stuff(const Call& call) {
  const std::string_view text = call.Text(0);
  const auto size = static_cast<std::int64_t>(CountCharacters(text));
  const std::int64_t start = call.Integer(1);
  const std::int64_t count = call.Integer(2);
  if (start < 1 || start > size || count < 0) return;  // null
  std::string result(Part(text, 0, AsCount(start - 1)));
  result += call.Text(3);
  result += text.substr(OffsetOfCharacter(text, AsCount(start - 1 + count)));
  call.Return(std::string_view(result));
}

void Replicate(const Call& call) {
  if (call.Integer(1) < 0) return;  // null
  const std::string_view text = call.Text(0);
  std::string result;
  for (std::size_t i = AsCount(call.Integer(1)); i > 0 && result.size() < kTextLimit; --i) result += text;
  call.Return(CutToSize(result, kTextLimit, false));
}

void Reverse(const Call& call) {
  const std::string_view text = call.Text(0);
  std::string result;
  result.reserve(text.size());
  for (std::size_t end = text.size(); end > 0;) {
    std::size_t start = end - 1;
    while (start > 0 && (static_cast<unsigned char>(text[start]) & 0xC0) == 0x80) --start;
    result += text.substr(start, end - start);
    end = start;
  }
  call.Return(std::string_view(result));
}

std::string Utf8(std::int64_t code) {
  const auto byte = [](std::int64_t value) { return static_cast<char>(static_cast<unsigned char>(value)); };
  if (code < 0x80) return {byte(code)};
  if (code < 0x800) return {byte(0xC0 | (code >> 6)), byte(0x80 | (code & 0x3F))};
  return {byte(0xE0 | (code >> 12)), byte(0x80 | ((code >> 6) & 0x3F)), byte(0x80 | (code & 0x3F))};
}

// ts_char(code, largest): null for a code out of range.
void Char(const Call& call) {
  if (call.Integer(0) < 0 || call.Integer(0) > call.Integer(1)) return;
  call.Return(std::string_view(Utf8(call.Integer(0))));
}

void PatIndex(const Call& call) {
  std::string_view pattern = call.Text(0);
  std::string_view text = call.Text(1);
  const bool anywhere = pattern.starts_with('%');
  while (pattern.starts_with('%')) pattern.remove_prefix(1);
  for (std::int64_t place = 1;; ++place) {
    if (MatchesPattern(pattern, text)) {
      call.Return(text.empty() && place > 1 ? place - 1 : place);
      return;
    }
    if (!anywhere || text.empty()) break;
    text.remove_prefix(OffsetOfCharacter(text, 1));
  }
  call.Return(std::int64_t{0});
}

// ts_like(pattern, text[, escape]): blanks at the end of the text may fall away.
void Like(const Call& call) {
  const char escape = call.Count() > 2 && !call.Text(2).empty() ? call.Text(2).front() : '\0';
  std::string_view text = call.Text(1);
  bool matches = MatchesPattern(call.Text(0), text, escape);
  while (!matches && text.ends_with(' ')) {
    text.remove_suffix(1);
    matches = MatchesPattern(call.Text(0), text, escape);
  }
  call.Return(std::int64_t{matches ? 1 : 0});
}

void DataLength(const Call& call) {
  call.Return(static_cast<std::int64_t>(ServerBytes(call.Text(0), call.Integer(1) != 0)));
}

bool Fits(const Call& call) {
  const auto size = static_cast<std::size_t>(call.Integer(1));
  const std::string_view text = call.Text(0);
  return text.size() <= size || CutToSize(text, size, call.Integer(2) != 0).size() == text.size();
}

// ts_fit(text, size, national): into a column. Blanks at the end may fall away.
void Fit(const Call& call) {
  if (Fits(call)) {
    call.ReturnArgument(0);
    return;
  }
  const std::string_view cut =
      CutToSize(call.Text(0), static_cast<std::size_t>(call.Integer(1)), call.Integer(2) != 0);
  if (call.Text(0).substr(cut.size()).find_first_not_of(' ') != std::string_view::npos) {
    Raise(8152, std::string(kTruncatedText));
  }
  call.Return(cut);
}

// ts_cut(text, size, national): by CONVERT, or into a variable.
void Cut(const Call& call) {
  if (Fits(call)) {
    call.ReturnArgument(0);
  } else {
    call.Return(CutToSize(call.Text(0), static_cast<std::size_t>(call.Integer(1)), call.Integer(2) != 0));
  }
}

// ts_pad(text, size, national): a char column keeps its full width.
void Pad(const Call& call) {
  const auto size = static_cast<std::size_t>(call.Integer(1));
  const bool national = call.Integer(2) != 0;
  std::string text(CutToSize(call.Text(0), size, national));
  const std::size_t used = national ? CountCharacters(text) : ServerBytes(text, false);
  text.append(size - std::min(size, used), ' ');
  call.Return(std::string_view(text));
}

// ts_inttext(value, size): a star where the digits do not fit.
void IntegerText(const Call& call) {
  const std::string text = std::to_string(call.Integer(0));
  call.Return(text.size() > static_cast<std::size_t>(call.Integer(1)) ? std::string_view("*")
                                                                      : std::string_view(text));
}

void DecimalText(const Call& call) {
  const std::string text = FormatDecimal(call.Double(0), static_cast<int>(call.Integer(1)));
  if (text.size() > static_cast<std::size_t>(call.Integer(2))) {
    Raise(8115, "Arithmetic overflow error converting numeric to data type varchar.");
  }
  call.Return(std::string_view(text));
}

void FloatToText(const Call& call) {
  const std::string text = FloatText(call.Double(0));
  if (text.size() > static_cast<std::size_t>(call.Integer(1))) {
    Raise(232, fmt::format("Arithmetic overflow error for type varchar, value = {:.6f}.", call.Double(0)));
  }
  call.Return(std::string_view(text));
}

// ts_str(number, length, decimals): right-justified; stars where the whole part does not fit.
void Str(const Call& call) {
  const std::int64_t length = call.Integer(1);
  std::int64_t decimals = std::clamp<std::int64_t>(call.Integer(2), 0, 16);
  if (length < 0 || length > static_cast<std::int64_t>(kTextLimit)) return;
  const std::string whole = FormatDecimal(call.Double(0), 0);
  const auto room = length - static_cast<std::int64_t>(whole.size()) - 1;
  decimals = std::clamp<std::int64_t>(decimals, 0, std::max<std::int64_t>(0, room));
  std::string text = FormatDecimal(call.Double(0), static_cast<int>(decimals));
  if (static_cast<std::int64_t>(text.size()) > length) text = whole;
  if (static_cast<std::int64_t>(text.size()) > length) text.assign(static_cast<std::size_t>(length), '*');
  text.insert(0, static_cast<std::size_t>(length) - text.size(), ' ');
  call.Return(std::string_view(text));
}

constexpr FunctionDefinition kFunctions[] = {
    {"ts_charindex", 2, &CharIndex},
    {"ts_charindex", 3, &CharIndex},
    {"ts_substring", 3, &Substring},
    {"ts_left", 2, &Left},
    {"ts_right", 2, &Right},
    {"ts_replace", 3, &Replace},
    {"ts_stuff", 4, &Stuff},
    {"ts_replicate", 2, &Replicate},
    {"ts_reverse", 1, &Reverse},
    {"ts_char", 2, &Char},
    {"ts_patindex", 2, &PatIndex},
    {"ts_like", 2, &Like},
    {"ts_like", 3, &Like},
    {"ts_datalength", 2, &DataLength},
    {"ts_fit", 3, &Fit},
    {"ts_cut", 3, &Cut},
    {"ts_pad", 3, &Pad},
    {"ts_inttext", 2, &IntegerText},
    {"ts_dectext", 3, &DecimalText},
    {"ts_floattext", 2, &FloatToText},
    {"ts_str", 3, &Str},
};

}  // namespace

void RegisterTextFunctions(sqlite3* connection, FunctionState& state) {
  for (const FunctionDefinition& definition : kFunctions) RegisterFunction(connection, state, definition);
}

}  // namespace salerpt::tsql
