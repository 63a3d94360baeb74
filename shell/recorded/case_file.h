// Case files: JSON documents that describe a recorded suite and what is done on it.
#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "runtime/error.h"
#include "shell/recorded/json_place.h"

namespace salerpt::shell {

// The document in a text. Raises wrong-arguments, with line and column, where it is no JSON; `name` stands in
// front.
Json ParseCase(std::string_view text, std::string_view name);
// The same of a file; raises wrong-arguments, naming the file, where it cannot be read.
Json LoadCase(const std::string& file);

// What `read` makes of a file's document; the name of the file stands in front of its errors.
template <typename Read>
auto ReadCaseFile(const std::string& file, Read&& read) {
  const Json document = LoadCase(file);
  try {
    return std::forward<Read>(read)(document);
  } catch (const RuntimeError& failure) {
    throw RuntimeError(failure.Number(), failure.Source(), file + ": " + failure.Description());
  }
}

}  // namespace salerpt::shell
