// LIKE patterns and searches in UTF-8 texts.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace salerpt::tsql {

// True when the whole text matches: % any run, _ one character, [a-z] and [^a-z] classes; without regard to
// ASCII case. `escape` 0 is none.
bool MatchesPattern(std::string_view pattern, std::string_view text, char escape = 0);
// Byte offset of the first occurrence at or behind `from`, without regard to ASCII case; npos when there is
// none.
std::size_t FindText(std::string_view text, std::string_view sought, std::size_t from = 0);
// Characters of a text; a byte that is no UTF-8 counts as one.
std::size_t CountCharacters(std::string_view text);
// Byte offset of character `index`, counted from 0; the size of the text when it has fewer.
std::size_t OffsetOfCharacter(std::string_view text, std::size_t index);
// Bytes that the server needs: a character beyond ASCII takes two in either kind of text, an ASCII one two in
// a national one.
std::size_t ServerBytes(std::string_view text, bool national);
// The longest front part that fits `size` places: bytes, or characters of a national text.
std::string_view CutToSize(std::string_view text, std::size_t size, bool national);

}  // namespace salerpt::tsql
