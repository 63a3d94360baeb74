#include "suite/tsql/pattern.h"

#include <algorithm>

namespace salerpt::tsql {
namespace {

bool IsContinuation(char c) {
  return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}
char Fold(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// The first character of a text, as its bytes.
std::string_view FirstCharacter(std::string_view text) {
  std::size_t size = 1;
  while (size < text.size() && IsContinuation(text[size])) ++size;
  return text.substr(0, size);
}

bool EqualCharacters(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return Fold(x) == Fold(y); });
}

std::string Folded(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), Fold);
  return result;
}

// [abc], [a-z], [^…]: `pattern` starts at the bracket. Advances it behind the class; false when no bracket
// closes it.
bool MatchClass(std::string_view& pattern, std::string_view character, bool& matches) {
  const std::size_t close = pattern.find(']', 1);
  if (close == std::string_view::npos) return false;
  std::string_view body = pattern.substr(1, close - 1);
  pattern.remove_prefix(close + 1);
  const bool negated = body.starts_with('^');
  if (negated) body.remove_prefix(1);
  const std::string sought = Folded(character);
  bool found = false;
  while (!body.empty()) {
    const std::string low = Folded(FirstCharacter(body));
    body.remove_prefix(low.size());
    std::string high = low;
    if (body.size() > 1 && body.front() == '-') {
      body.remove_prefix(1);
      high = Folded(FirstCharacter(body));
      body.remove_prefix(high.size());
    }
    found = found || (sought >= low && sought <= high);
  }
  matches = found != negated;
  return true;
}

// One step of a pattern that is no %: true when it takes the first character of `text`; both advance.
bool MatchOne(std::string_view& pattern, std::string_view& text, char escape) {
  const std::string_view character = FirstCharacter(text);
  bool matches = false;
  if (escape != 0 && pattern.front() == escape && pattern.size() > 1) {
    pattern.remove_prefix(1);
  } else if (pattern.front() == '_') {
    pattern.remove_prefix(1);
    text.remove_prefix(character.size());
    return true;
  } else if (pattern.front() == '[') {
    if (!MatchClass(pattern, character, matches)) return false;
    text.remove_prefix(character.size());
    return matches;
  }
  const std::string_view literal = FirstCharacter(pattern);
  pattern.remove_prefix(literal.size());
  text.remove_prefix(character.size());
  return EqualCharacters(literal, character);
}

// A % that is no escaped one, nor the mark of an escape itself.
bool StartsWithRun(std::string_view pattern, char escape) {
  return pattern.starts_with('%') && (escape != '%' || pattern.size() == 1);
}

}  // namespace

bool MatchesPattern(std::string_view pattern, std::string_view text, char escape) {
  // The last % seen, to go back to when what follows it does not match.
  bool has_star = false;
  std::string_view star_pattern;
  std::string_view star_text;
  while (true) {
    if (StartsWithRun(pattern, escape)) {
      while (StartsWithRun(pattern, escape)) pattern.remove_prefix(1);
      has_star = true;
      star_pattern = pattern;
      star_text = text;
      if (pattern.empty()) return true;
      continue;
    }
    if (text.empty()) return pattern.empty();
    if (!pattern.empty() && MatchOne(pattern, text, escape)) continue;
    if (!has_star || star_text.empty()) return false;
    star_text.remove_prefix(FirstCharacter(star_text).size());
    pattern = star_pattern;
    text = star_text;
  }
}

std::size_t FindText(std::string_view text, std::string_view sought, std::size_t from) {
  if (from > text.size()) return std::string_view::npos;
  const auto found = std::search(text.begin() + static_cast<std::ptrdiff_t>(from), text.end(), sought.begin(),
                                 sought.end(), [](char a, char b) { return Fold(a) == Fold(b); });
  if (found == text.end() && !sought.empty()) return std::string_view::npos;
  return static_cast<std::size_t>(found - text.begin());
}

std::size_t CountCharacters(std::string_view text) {
  return static_cast<std::size_t>(
      std::count_if(text.begin(), text.end(), [](char c) { return !IsContinuation(c); }));
}

std::size_t OffsetOfCharacter(std::string_view text, std::size_t index) {
  std::size_t offset = 0;
  for (; index > 0 && offset < text.size(); --index) {
    ++offset;
    while (offset < text.size() && IsContinuation(text[offset])) ++offset;
  }
  return offset;
}

std::size_t ServerBytes(std::string_view text, bool national) {
  const std::size_t characters = CountCharacters(text);
  if (national) return characters * 2;
  const auto ascii = static_cast<std::size_t>(
      std::count_if(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; }));
  return ascii + (characters - ascii) * 2;
}

std::string_view CutToSize(std::string_view text, std::size_t size, bool national) {
  std::size_t offset = 0;
  std::size_t used = 0;
  while (offset < text.size()) {
    const std::string_view character = FirstCharacter(text.substr(offset));
    used += national || static_cast<unsigned char>(character.front()) < 0x80 ? 1 : 2;
    if (used > size) break;
    offset += character.size();
  }
  return text.substr(0, offset);
}

}  // namespace salerpt::tsql
