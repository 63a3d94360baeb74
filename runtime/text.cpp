#include "runtime/text.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <utility>

namespace salerpt {
namespace {

constexpr char Upper(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}
constexpr unsigned char UpperByte(char c) {
  return static_cast<unsigned char>(Upper(c));
}

std::size_t TotalSize(std::initializer_list<std::string_view> pieces) {
  std::size_t total = 0;
  for (const std::string_view piece : pieces) total += piece.size();
  return total;
}

}  // namespace

std::string UpperCase(std::string_view text) {
  std::string upper(text);
  std::transform(upper.begin(), upper.end(), upper.begin(), Upper);
  return upper;
}

bool EqualNames(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  constexpr unsigned kCaseBit = 0x20;
  for (std::size_t i = 0; i < a.size(); ++i) {
    const auto x = static_cast<unsigned char>(a[i]);
    const auto y = static_cast<unsigned char>(b[i]);
    if (x == y) continue;
    if ((x ^ y) != kCaseBit || (x | kCaseBit) < 'a' || (x | kCaseBit) > 'z') return false;
  }
  return true;
}

bool NameLess::operator()(std::string_view a, std::string_view b) const {
  return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(),
                                      [](char x, char y) { return UpperByte(x) < UpperByte(y); });
}

std::size_t HashName(std::string_view name) {
  // FNV-1a over the upper-case bytes.
  std::uint64_t hash = 14695981039346656037ULL;
  for (const char c : name) {
    hash ^= UpperByte(c);
    hash *= 1099511628211ULL;
  }
  return static_cast<std::size_t>(hash);
}

std::string_view Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return text.substr(text.size());
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string Replace(std::string_view text, std::string_view from, std::string_view to) {
  if (from.empty()) return std::string(text);
  std::size_t count = 0;
  for (std::size_t at = text.find(from); at != std::string_view::npos;
       at = text.find(from, at + from.size())) {
    ++count;
  }
  if (count == 0) return std::string(text);
  std::string result;
  result.reserve(text.size() - count * from.size() + count * to.size());
  std::size_t done = 0;
  for (std::size_t at = text.find(from); at != std::string_view::npos; at = text.find(from, done)) {
    result.append(text, done, at - done).append(to);
    done = at + from.size();
  }
  result.append(text, done);
  return result;
}

Piece::Piece(int number) {
  const auto written = std::to_chars(digits_, digits_ + sizeof digits_, number);
  view_ = std::string_view(digits_, static_cast<std::size_t>(written.ptr - digits_));
}

std::string JoinPieces(std::initializer_list<std::string_view> pieces) {
  std::string text;
  text.reserve(TotalSize(pieces));
  for (const std::string_view piece : pieces) text.append(piece);
  return text;
}

void AppendPieces(std::string& text, std::initializer_list<std::string_view> pieces) {
  const std::size_t needed = text.size() + TotalSize(pieces);
  if (needed <= text.capacity()) {
    for (const std::string_view piece : pieces) text.append(piece);
    return;
  }
  // Into a text of its own: a piece may be a part of `text`.
  std::string grown;
  grown.reserve(std::max(needed, text.capacity() * 2));
  grown.append(text);
  for (const std::string_view piece : pieces) grown.append(piece);
  text = std::move(grown);
}

}  // namespace salerpt
