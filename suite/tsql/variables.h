// The variables of a batch.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "suite/tsql/types.h"

namespace salerpt::tsql {

// A value that owns its text.
using Datum = std::variant<std::monostate, std::int64_t, double, std::string>;

struct Variable {
  std::string name;
  ColumnType type;
  Datum value;
};

// Variable i is parameter i + 1 of every translated statement. The first ones are the server's own:
// @@ROWCOUNT,
// @@IDENTITY and @@ERROR.
class Variables {
 public:
  Variables();

  // Index of a name, any case; -1 when there is none.
  [[nodiscard]] int Find(std::string_view name) const;
  // Index of a name; raises 137.
  [[nodiscard]] int Get(std::string_view name) const;
  int Declare(std::string_view name, const ColumnType& type);

  [[nodiscard]] const Variable& At(int index) const { return variables_[static_cast<std::size_t>(index)]; }
  Variable& At(int index) { return variables_[static_cast<std::size_t>(index)]; }
  [[nodiscard]] int Size() const { return static_cast<int>(variables_.size()); }

  static constexpr int kRowCount = 0;
  static constexpr int kIdentity = 1;

 private:
  std::vector<Variable> variables_;
};

}  // namespace salerpt::tsql
