// Text utilities of the shared modules.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace salerpt {

// How often `separator` occurs in `text`, without overlap; 0 for an empty separator.
std::int32_t CountParts(std::string_view text, std::string_view separator);
// The n-th piece, from 1; empty where there are fewer.
std::string NthPart(std::string_view text, std::string_view separator, std::int32_t n);

}  // namespace salerpt
