#include "shell/text_width.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace salerpt::shell {
namespace {

struct Range {
  char32_t first;
  char32_t last;
};

// Wide and full-width characters (East Asian width W and F), neighbours joined.
constexpr std::array kWide = {
    Range{0x1100, 0x115F},   Range{0x231A, 0x231B},   Range{0x2329, 0x232A},   Range{0x23E9, 0x23EC},
    Range{0x25FD, 0x25FE},   Range{0x2614, 0x2615},   Range{0x2648, 0x2653},   Range{0x26AA, 0x26AB},
    Range{0x26BD, 0x26BE},   Range{0x2705, 0x2705},   Range{0x274C, 0x274E},   Range{0x2753, 0x2757},
    Range{0x2795, 0x2797},   Range{0x2B1B, 0x2B1C},   Range{0x2B50, 0x2B55},   Range{0x2E80, 0x303E},
    Range{0x3041, 0x4DBF},   Range{0x4E00, 0xA4CF},   Range{0xA960, 0xA97C},   Range{0xAC00, 0xD7A3},
    Range{0xF900, 0xFAFF},   Range{0xFE10, 0xFE19},   Range{0xFE30, 0xFE6F},   Range{0xFF01, 0xFF60},
    Range{0xFFE0, 0xFFE6},   Range{0x16FE0, 0x18CFF}, Range{0x1B000, 0x1B2FF}, Range{0x1F004, 0x1F004},
    Range{0x1F0CF, 0x1F0CF}, Range{0x1F18E, 0x1F19A}, Range{0x1F200, 0x1F64F}, Range{0x1F680, 0x1F6FF},
    Range{0x1F900, 0x1F9FF}, Range{0x20000, 0x3FFFD}};

// Characters that take no column of their own.
constexpr std::array kNarrowest = {Range{0x0000, 0x001F}, Range{0x007F, 0x009F},  Range{0x0300, 0x036F},
                                   Range{0x200B, 0x200F}, Range{0x20D0, 0x20FF},  Range{0xFE00, 0xFE0F},
                                   Range{0xFEFF, 0xFEFF}, Range{0xE0100, 0xE01EF}};

template <std::size_t Size>
bool IsIn(const std::array<Range, Size>& ranges, char32_t character) {
  const auto it = std::lower_bound(ranges.begin(), ranges.end(), character,
                                   [](const Range& range, char32_t c) { return range.last < c; });
  return it != ranges.end() && it->first <= character;
}

// Takes one character off the front; a byte that begins none is given as a question mark.
char32_t TakeCharacter(std::string_view& text) {
  const auto byte = [&text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned first = byte(0);
  const std::size_t size = first < 0x80 ? 1 : first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : first >= 0xC2 ? 2 : 0;
  if (size == 0 || size > text.size()) {
    text.remove_prefix(1);
    return U'?';
  }
  char32_t character = size == 1 ? first : first & (0x7FU >> size);
  for (std::size_t i = 1; i < size; ++i) {
    if ((byte(i) & 0xC0U) != 0x80U) {
      text.remove_prefix(1);
      return U'?';
    }
    character = character << 6 | (byte(i) & 0x3FU);
  }
  text.remove_prefix(size);
  return character;
}

}  // namespace

std::size_t TextWidth(std::string_view text) {
  std::size_t width = 0;
  while (!text.empty()) {
    const char first = text.front();
    if (first >= ' ' && first < 0x7F) {
      text.remove_prefix(1);
      ++width;
      continue;
    }
    const char32_t character = TakeCharacter(text);
    if (!IsIn(kNarrowest, character)) width += IsIn(kWide, character) ? 2 : 1;
  }
  return width;
}

void AppendLeft(std::string& out, std::string_view text, std::size_t width) {
  const std::size_t taken = TextWidth(text);
  out.append(text);
  if (taken < width) out.append(width - taken, ' ');
}

void AppendRight(std::string& out, std::string_view text, std::size_t width) {
  const std::size_t taken = TextWidth(text);
  if (taken < width) out.append(width - taken, ' ');
  out.append(text);
}

void AppendCentred(std::string& out, std::string_view text, std::size_t width) {
  const std::size_t taken = TextWidth(text);
  const std::size_t room = taken < width ? width - taken : 0;
  out.append(room / 2, ' ');
  out.append(text);
  out.append(room - room / 2, ' ');
}

}  // namespace salerpt::shell
