#include "runtime/text_utilities.h"

namespace salerpt {

std::int32_t CountParts(std::string_view text, std::string_view separator) {
  if (separator.empty()) return 0;
  std::int32_t count = 0;
  for (std::size_t at = text.find(separator); at != std::string_view::npos;
       at = text.find(separator, at + separator.size())) {
    ++count;
  }
  return count;
}

std::string NthPart(std::string_view text, std::string_view separator, std::int32_t n) {
  if (n < 1) return {};
  // A separator that is empty divides nothing.
  if (separator.empty()) return n == 1 ? std::string(text) : std::string();
  std::size_t begin = 0;
  for (std::int32_t part = 1; part < n; ++part) {
    const std::size_t at = text.find(separator, begin);
    if (at == std::string_view::npos) return {};
    begin = at + separator.size();
  }
  return std::string(text.substr(begin, text.find(separator, begin) - begin));
}

}  // namespace salerpt
