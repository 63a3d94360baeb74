#include "suite/middletier/sort_list.h"

#include <algorithm>

#include "runtime/error.h"
#include "runtime/text.h"

namespace salerpt::middletier {
namespace {

bool IsDescending(std::string_view word) {
  if (word.empty() || EqualNames(word, "ASC")) return false;
  if (EqualNames(word, "DESC")) return true;
  throw RuntimeError(error_number::kInvalidCall, "",
                     Join("\"OrderBy\" holds ", word, " behind a column; ASC or DESC was expected"));
}

}  // namespace

std::vector<SortTerm> ReadSortList(std::string_view list) {
  std::vector<SortTerm> terms;
  for (std::string_view rest = Trim(list); !rest.empty();) {
    const auto comma = std::min(rest.find(','), rest.size());
    const std::string_view piece = Trim(rest.substr(0, comma));
    rest.remove_prefix(std::min(comma + 1, rest.size()));
    const auto blank = std::min(piece.find(' '), piece.size());
    terms.push_back({std::string(piece.substr(0, blank)), IsDescending(Trim(piece.substr(blank)))});
  }
  return terms;
}

}  // namespace salerpt::middletier
