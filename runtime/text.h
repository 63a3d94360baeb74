// Text operations of the run-time: case-blind comparison, cutting, trimming, joining.
#pragma once

#include <concepts>
#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>

namespace salerpt {

// Line end between SQL statements.
inline constexpr std::string_view kCrLf = "\r\n";

// Upper case of the ASCII letters; other bytes stay, so a UTF-8 text stays whole.
std::string UpperCase(std::string_view text);
// Compares without regard to the case of ASCII letters: names of members, keys, fields, ProgIDs.
bool EqualNames(std::string_view a, std::string_view b);
// Strict weak order that agrees with EqualNames, for maps keyed by names; takes views without copying.
struct NameLess {
  using is_transparent = void;
  bool operator()(std::string_view a, std::string_view b) const;
};
// Hash that agrees with EqualNames.
std::size_t HashName(std::string_view name);

// Without the blanks (only blanks, not tabs) at both ends.
std::string_view Trim(std::string_view text);
// Every occurrence of `from` replaced, from the left, case-sensitive. `from` empty: the text as it is.
std::string Replace(std::string_view text, std::string_view from, std::string_view to);

// Joins pieces with one allocation. Takes texts and whole numbers.
class Piece {
 public:
  Piece(std::string_view text) : view_(text) {}    // NOLINT(google-explicit-constructor)
  Piece(const std::string& text) : view_(text) {}  // NOLINT(google-explicit-constructor)
  Piece(const char* text) : view_(text) {}         // NOLINT(google-explicit-constructor)
  Piece(int number);                               // NOLINT(google-explicit-constructor)
  // A character would be taken for its number; write it as a text.
  Piece(std::same_as<char> auto) = delete;
  Piece(const Piece&) = delete;
  Piece& operator=(const Piece&) = delete;
  [[nodiscard]] std::string_view View() const { return view_; }

 private:
  char digits_[12] = {};
  std::string_view view_;
};

std::string JoinPieces(std::initializer_list<std::string_view> pieces);
// Join("FName", 3, " varchar") is "FName3 varchar".
template <typename... Pieces>
std::string Join(const Pieces&... pieces) {
  return JoinPieces({Piece(pieces).View()...});
}
void AppendPieces(std::string& text, std::initializer_list<std::string_view> pieces);
// Appends pieces to a text in place.
template <typename... Pieces>
void Append(std::string& text, const Pieces&... pieces) {
  AppendPieces(text, {Piece(pieces).View()...});
}

}  // namespace salerpt
