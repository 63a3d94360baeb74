// Checks on a run-time error that a call raises.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <optional>

#include "runtime/error.h"

namespace salerpt {

// The error that `action` raises; nothing, and a failure of the test, where it raises none.
inline std::optional<RuntimeError> RaisedBy(const std::function<void()>& action) {
  try {
    action();
  } catch (const RuntimeError& error) {
    return error;
  }
  ADD_FAILURE() << "no error was raised";
  return std::nullopt;
}

// The number of the error that `action` raises; 0 where it raises none.
inline std::int32_t NumberRaisedBy(const std::function<void()>& action) {
  const auto error = RaisedBy(action);
  return error ? error->Number() : 0;
}

// The description of the error that `action` raises.
inline std::string DescriptionRaisedBy(const std::function<void()>& action) {
  const auto error = RaisedBy(action);
  return error ? error->Description() : std::string();
}

}  // namespace salerpt
