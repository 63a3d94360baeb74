// What the fuzz targets share.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace salerpt::fuzz {

// The fuzzer takes an abort for a finding, whatever the build.
inline void Require(bool holds) {
  if (!holds) std::abort();
}

inline std::string_view AsText(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

// The text up to the next line feed, which `rest` loses with it.
inline std::string_view TakeLine(std::string_view& rest) {
  const std::size_t end = rest.find('\n');
  const std::string_view line = rest.substr(0, end);
  rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
  return line;
}

}  // namespace salerpt::fuzz
