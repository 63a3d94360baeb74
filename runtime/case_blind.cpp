#include "runtime/case_blind.h"

#include <algorithm>

namespace salerpt {

int CompareCaseBlind(std::string_view a, std::string_view b) {
  const std::size_t common = std::min(a.size(), b.size());
  for (std::size_t i = 0; i < common; ++i) {
    const int difference = UpperCaseByte(a[i]) - UpperCaseByte(b[i]);
    if (difference != 0) return difference;
  }
  if (a.size() == b.size()) return 0;
  return a.size() < b.size() ? -1 : 1;
}

bool MatchesPattern(std::string_view text, std::string_view pattern) {
  const auto is_wild = [](char c) { return c == '*' || c == '%'; };
  std::size_t t = 0;
  std::size_t p = 0;
  // Where to go on when what follows the last wildcard does not fit: one character further in the text.
  std::size_t behind_wild = std::string_view::npos;
  std::size_t retry = 0;
  while (t < text.size()) {
    if (p < pattern.size() && is_wild(pattern[p])) {
      behind_wild = ++p;
      retry = t;
    } else if (p < pattern.size() && UpperCaseByte(text[t]) == UpperCaseByte(pattern[p])) {
      ++t;
      ++p;
    } else if (behind_wild != std::string_view::npos) {
      p = behind_wild;
      t = ++retry;
    } else {
      return false;
    }
  }
  while (p < pattern.size() && is_wild(pattern[p])) ++p;
  return p == pattern.size();
}

}  // namespace salerpt
