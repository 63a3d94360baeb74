// The columns of a table of a batch.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "suite/tsql/session.h"

namespace salerpt::middletier {

// Names of the columns of a table, such as "#DATA", in their order; found without regard to case.
class TableColumns {
 public:
  // No columns where there is no such table. Raises the engine's other errors.
  TableColumns(tsql::Session& session, std::string_view table);

  // True where there is no such table.
  [[nodiscard]] bool Empty() const { return names_.empty(); }
  [[nodiscard]] bool Has(std::string_view name) const;

 private:
  std::vector<std::string> names_;
};

}  // namespace salerpt::middletier
