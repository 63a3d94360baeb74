// The order of rows that a dialog asks for.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace salerpt::middletier {

struct SortTerm {
  std::string name;  // of a column
  bool descending = false;
};

// Reads a list such as "FDate ASC,FBillNo DESC"; nothing behind a column is ASC. Names are not checked.
// Raises invalid-call for any other word behind a column.
std::vector<SortTerm> ReadSortList(std::string_view list);

}  // namespace salerpt::middletier
