// How the account set fails: numbers and sources of its run-time errors.
#pragma once

#include <cstdint>

#include "runtime/error.h"

namespace salerpt::accountset {

// Numbers of the run-time's file errors, as far as the account set raises them.
inline constexpr std::int32_t kFileNotFound = 53;
inline constexpr std::int32_t kDeviceError = 57;
inline constexpr std::int32_t kFileExists = 58;
inline constexpr std::int32_t kDiskFull = 61;
inline constexpr std::int32_t kPermissionDenied = 70;
inline constexpr std::int32_t kPathAccess = 75;
inline constexpr std::int32_t kBadFormat = 321;

}  // namespace salerpt::accountset
