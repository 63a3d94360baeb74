// The log of the account set.
#pragma once

#include <cstdint>
#include <string_view>

#include "suite/middletier/server.h"

namespace salerpt::middletier {

// The kind of a line that only counts how often a part of a window was used.
inline constexpr std::int32_t kUsageLine = 0;

// Adds one line, with the time and the user. Raises the engine's error.
void WriteLogLine(Server& server, std::string_view key, std::int32_t kind, std::string_view text);

}  // namespace salerpt::middletier
