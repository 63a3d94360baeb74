// A script cut into batches.
#pragma once

#include <string_view>
#include <vector>

namespace salerpt::shell {

struct SqlBatch {
  std::string_view text;  // lives as long as the script
  int first_line = 1;     // of the script
};

// A line that holds nothing but GO (in any case) ends a batch, as in the query tools of the server; the
// engine itself knows no such word. Batches of blanks are left out.
std::vector<SqlBatch> SplitBatches(std::string_view script);

}  // namespace salerpt::shell
