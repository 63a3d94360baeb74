// The suite's count of how its functions are used.
#pragma once

#include <string_view>

namespace salerpt {

// Counts one use of a function, such as "XSCKHZ_PX2". Whatever fails is ignored: no report waits for it.
void WriteUsageLog(std::string_view name);

}  // namespace salerpt
