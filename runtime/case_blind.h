// Comparison of texts without regard to the case of ASCII letters, eight bytes at a time, for loops over
// many rows.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace salerpt {

// Upper case of the ASCII letters among the eight bytes; other bytes stay.
constexpr std::uint64_t UpperCaseOfEight(std::uint64_t bytes) {
  constexpr std::uint64_t kOnes = 0x0101010101010101;
  const std::uint64_t low = bytes & (kOnes * 0x7F);
  const std::uint64_t from_a = low + kOnes * (0x80 - 'a');
  const std::uint64_t behind_z = low + kOnes * (0x7F - 'z');
  const std::uint64_t lower = (from_a ^ behind_z) & ~bytes & (kOnes * 0x80);
  return bytes ^ (lower >> 2);
}

// The first bytes of a text, at most eight, in upper case; the rest of the word is zero.
inline std::uint64_t UpperCaseWord(const char* text, std::size_t bytes) {
  std::uint64_t word = 0;
  std::memcpy(&word, text, bytes < 8 ? bytes : 8);
  return UpperCaseOfEight(word);
}

inline bool EqualCaseBlind(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); i += 8) {
    if (UpperCaseWord(a.data() + i, a.size() - i) != UpperCaseWord(b.data() + i, b.size() - i)) return false;
  }
  return true;
}

constexpr unsigned char UpperCaseByte(char c) {
  return static_cast<unsigned char>(c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c);
}

// Below 0, 0 or above 0, by the bytes in upper case.
int CompareCaseBlind(std::string_view a, std::string_view b);
// `*` and `%` in the pattern stand for any number of characters, none included.
bool MatchesPattern(std::string_view text, std::string_view pattern);

}  // namespace salerpt
