// The text of a settings file: where a value stands in it, and how a value is set.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace salerpt {

// The value of a key, without blanks and quotes around it; a view of `text`. Only the first section of the
// name counts, and in it the first entry of the key. Nothing where there is none.
std::optional<std::string_view> FindIniValue(std::string_view text, std::string_view section,
                                             std::string_view key);

// `text` with one value set: in the place of the old one, otherwise at the end of the section, otherwise in a
// new section at the end. Line ends are those of the text, CRLF in an empty one. Raises invalid call for a
// section, key or value that could not be read back.
std::string SetIniValue(std::string_view text, std::string_view section, std::string_view key,
                        std::string_view value);

}  // namespace salerpt
