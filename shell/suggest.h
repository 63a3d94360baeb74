// "Did you mean …?"
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace salerpt::shell {

// The known name nearest to a mistyped one, without regard to case; empty where none is near (more than a
// third of the letters would have to change).
std::string_view NearestName(std::string_view mistyped, std::span<const std::string_view> known);

// The end of a message about an unknown name: "; did you mean BDate?" or "", then "; known: a, b, c".
std::string KnownNames(std::string_view mistyped, std::span<const std::string_view> known);

}  // namespace salerpt::shell
