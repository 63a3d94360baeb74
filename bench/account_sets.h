// Account sets of the made-up company, kept in the build folder from one run to the next.
#pragma once

#include <cstdint>
#include <filesystem>

namespace salerpt::bench {

// The account set of so many bill lines, made where it is not there yet.
std::filesystem::path AccountSetOf(std::int64_t lines);

}  // namespace salerpt::bench
