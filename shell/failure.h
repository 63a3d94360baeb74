// How a command ends when something goes wrong.
#pragma once

#include <string>

#include "runtime/error.h"

namespace salerpt::shell {

// Exit statuses.
inline constexpr int kDone = 0;
inline constexpr int kReportFailed = 1;
inline constexpr int kUnusable = 2;

// Wrong usage or unreadable input: exit status 2.
[[noreturn]] inline void RaiseUsage(const std::string& description) {
  throw RuntimeError(error_number::kInvalidCall, "Shell", description);
}

// The report, or the batch, answered a failure: exit status 1. Any other RuntimeError means 2.
class ReportFailure : public RuntimeError {
 public:
  explicit ReportFailure(const std::string& description)
      : RuntimeError(error_number::kInvalidCall, "Shell", description) {}
};

}  // namespace salerpt::shell
