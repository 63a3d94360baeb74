// How wide a text stands on a terminal.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace salerpt::shell {

// Columns that a UTF-8 text takes: two for the characters of Chinese, Japanese and Korean and for full-width
// forms and pictographs, none for combining marks and control characters, one for all others. A byte that
// begins no character counts as one.
std::size_t TextWidth(std::string_view text);

// Appends the text, with blanks to fill `width` columns; a longer text stays whole.
void AppendLeft(std::string& out, std::string_view text, std::size_t width);
void AppendRight(std::string& out, std::string_view text, std::size_t width);
void AppendCentred(std::string& out, std::string_view text, std::size_t width);

}  // namespace salerpt::shell
