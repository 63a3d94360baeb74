// Expected texts written as patterns: a long text is told once by name and stands as {NAME} in others.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <string_view>

namespace salerpt::testing {

// Name to text; a text may name further pieces. SQL has no braces of its own.
using Pieces = std::map<std::string, std::string, std::less<>>;

// The pattern with every {NAME} put in, again and again until none is left. `more` goes before `pieces`. A
// name that neither has fails the test and stays.
inline std::string Expand(std::string_view pattern, const Pieces& pieces, const Pieces& more = {}) {
  std::string text(pattern);
  std::size_t from = 0;
  for (std::size_t open = text.find('{', from); open != std::string::npos; open = text.find('{', from)) {
    const std::size_t close = text.find('}', open);
    const std::string name = text.substr(open + 1, close - open - 1);
    const auto own = more.find(name);
    const auto shared = pieces.find(name);
    if (own == more.end() && shared == pieces.end()) {
      ADD_FAILURE() << "no piece is called " << name;
      return text;
    }
    text.replace(open, close - open + 1, own != more.end() ? own->second : shared->second);
    from = open;
  }
  return text;
}

// A stretch of text for a message: line ends visible.
inline std::string Shown(std::string_view text) {
  std::string shown;
  for (const char c : text) {
    if (c == '\r') {
      shown += "\\r";
    } else if (c == '\n') {
      shown += "\\n\n";
    } else {
      shown += c;
    }
  }
  return shown;
}

// Equal to the byte; otherwise tells the place of the first difference with what stands around it.
inline ::testing::AssertionResult SameText(std::string_view actual, std::string_view expected) {
  if (actual == expected) return ::testing::AssertionSuccess();
  const std::size_t length = std::min(actual.size(), expected.size());
  std::size_t at = 0;
  while (at < length && actual[at] == expected[at]) ++at;
  const std::size_t begin = at < 80 ? 0 : at - 80;
  return ::testing::AssertionFailure() << "the texts differ at byte " << at << " (lengths " << actual.size()
                                       << " and " << expected.size() << " expected)\n--- actual\n"
                                       << Shown(actual.substr(begin, 240)) << "\n--- expected\n"
                                       << Shown(expected.substr(begin, 240));
}

}  // namespace salerpt::testing
