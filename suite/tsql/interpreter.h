// Runs the statements of a batch, one after the other.
#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "suite/tsql/catalog.h"
#include "suite/tsql/groups.h"
#include "suite/tsql/plan.h"
#include "suite/tsql/session.h"
#include "suite/tsql/statement.h"
#include "suite/tsql/syntax_tree.h"
#include "suite/tsql/variables.h"

namespace salerpt::tsql {

// What outlives a batch.
struct SessionState {
  Engine engine;
  Catalog* catalog = nullptr;
  GroupsTableState* groups = nullptr;
  std::set<std::string> indexes;  // made for lookups, by their names
  std::int64_t statement_limit = 0;
  std::int64_t rows_affected = 0;
  Datum row_count = std::int64_t{0};  // @@ROWCOUNT
  Datum identity;                     // @@IDENTITY
};

// Drops a temporary table and what is known of it.
void DropTable(SessionState& session, const TableInfo& table);
// Makes a table from its columns; `rest` is further SQL inside the parentheses.
std::string CreateTableSql(const TableInfo& table, const std::vector<std::string>& options,
                           const std::string& rest);
// The column's type as SQLite stores it.
std::string StorageType(const ColumnType& type, bool temporary);

class Interpreter {
 public:
  Interpreter(SessionState& session, const Batch& batch, RowSink& sink);
  void Run();

 private:
  enum class Flow : std::uint8_t { kNext, kBreak, kContinue, kReturn };

  // A translated statement, good as long as no table comes or goes.
  struct Translated {
    Plan plan;
    PreparedStatement main;
    PreparedStatement base;
    std::int64_t catalog_version = -1;
  };

  Flow Execute(const Statement& statement);
  Flow Dispatch(const Statement& statement);
  void CountStatement();

  Flow Do(const Statement& statement, const SelectStatement& body);
  Flow Do(const Statement& statement, const InsertStatement& body);
  Flow Do(const Statement& statement, const UpdateStatement& body);
  Flow Do(const Statement& statement, const DeleteStatement& body);
  Flow Do(const Statement& statement, const CreateTableStatement& body);
  Flow Do(const Statement& statement, const CreateIndexStatement& body);
  Flow Do(const Statement& statement, const DropTableStatement& body);
  Flow Do(const Statement& statement, const AlterTableStatement& body);
  Flow Do(const Statement& statement, const TruncateStatement& body);
  Flow Do(const Statement& statement, const DeclareStatement& body);
  Flow Do(const Statement& statement, const SetStatement& body);
  Flow Do(const Statement& statement, const SetOptionStatement& body);
  Flow Do(const Statement& statement, const IfStatement& body);
  Flow Do(const Statement& statement, const WhileStatement& body);
  Flow Do(const Statement& statement, const BlockStatement& body);
  Flow Do(const Statement& statement, const BreakStatement& body);
  Flow Do(const Statement& statement, const ContinueStatement& body);
  Flow Do(const Statement& statement, const ReturnStatement& body);

  // The translation of a statement; `make` makes it where there is none or a stale one.
  template <typename Make>
  Translated& Prepare(const Statement& statement, const Make& make);
  void Complete(Translated& translated);
  void MakeIndexes(const Plan& plan);
  void RunPlan(Translated& translated);
  void FillGroups(const Translated& translated, Groups& groups);
  void RunInto(Translated& translated);
  std::int64_t Deliver(const Translated& translated);
  std::int64_t Assign(const Translated& translated);
  std::int64_t Change(const Translated& translated);
  bool Test(const Statement& statement, const Expression& condition);
  void SetVariable(const Statement& statement, int variable, const Expression& value);
  void CreateTable(const Statement& statement, const CreateTableStatement& body);
  TableInfo DescribeTable(const CreateTableStatement& body) const;

  SessionState& session_;
  const Batch& batch_;
  RowSink& sink_;
  Variables variables_;
  std::vector<Translated> translated_;
  std::int64_t statements_run_ = 0;
};

}  // namespace salerpt::tsql
