#include "suite/middletier/table_columns.h"

#include <algorithm>

#include "runtime/text.h"

namespace salerpt::middletier {
namespace {

constexpr std::int32_t kInvalidObjectName = 208;

// Keeps the names of the columns, drops the rows.
class NamesSink final : public tsql::RowSink {
 public:
  explicit NamesSink(std::vector<std::string>& names) : names_(names) {}

  void BeginRows(std::span<const tsql::Column> columns) override {
    for (const tsql::Column& column : columns) names_.push_back(column.name);
  }
  void Row(std::span<const tsql::Value> /*cells*/) override {}
  void EndRows() override {}

 private:
  std::vector<std::string>& names_;
};

}  // namespace

TableColumns::TableColumns(tsql::Session& session, std::string_view table) {
  NamesSink sink(names_);
  try {
    session.Execute(Join("Select * From ", table, " Where 1=0"), sink);
  } catch (const tsql::TsqlError& error) {
    if (error.Number() != kInvalidObjectName) throw;
  }
}

bool TableColumns::Has(std::string_view name) const {
  return std::any_of(names_.begin(), names_.end(),
                     [name](const std::string& known) { return EqualNames(known, name); });
}

}  // namespace salerpt::middletier
