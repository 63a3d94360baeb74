#include "suite/tsql/variables.h"

#include <fmt/format.h>

#include "runtime/text.h"
#include "suite/tsql/error.h"

namespace salerpt::tsql {

Variables::Variables() {
  Declare("@@ROWCOUNT", IntegerType());
  Declare("@@IDENTITY", DecimalType(38, 0));
  Declare("@@ERROR", IntegerType());
  variables_[0].value = std::int64_t{0};
  variables_[2].value = std::int64_t{0};
}

int Variables::Find(std::string_view name) const {
  for (std::size_t i = 0; i < variables_.size(); ++i) {
    if (EqualNames(variables_[i].name, name)) return static_cast<int>(i);
  }
  return -1;
}

int Variables::Get(std::string_view name) const {
  const int index = Find(name);
  if (index < 0) Raise(137, fmt::format("Must declare the scalar variable \"{}\".", name));
  return index;
}

int Variables::Declare(std::string_view name, const ColumnType& type) {
  // A DECLARE inside a loop runs again and again; its variable keeps its value.
  const int index = Find(name);
  if (index >= 0) return index;
  variables_.push_back(Variable{std::string(name), type, {}});
  return Size() - 1;
}

}  // namespace salerpt::tsql
