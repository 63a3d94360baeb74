// Translates statements of the tree into SQLite statements. The one place that knows SQLite's SQL.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "suite/tsql/catalog.h"
#include "suite/tsql/plan.h"
#include "suite/tsql/scope.h"
#include "suite/tsql/syntax_tree.h"
#include "suite/tsql/variables.h"

namespace salerpt::tsql {

// A translated expression: its SQL, its T-SQL type, and what is known of its values.
struct Sql {
  std::string text;
  ColumnType type;
  bool nocase = false;   // carries the collation of a text column by itself
  bool exact = true;     // a decimal that is already the double nearest to its digits
  int digits = -1;       // behind the point, where fewer than the type's scale are known to be used
  bool nonzero = false;  // can never be 0
  bool literal = false;  // a constant of the batch
  std::string constant;  // of a text literal: its characters

  [[nodiscard]] int Digits() const { return digits >= 0 ? digits : type.scale; }
};

// The grouped block whose select list is being translated.
struct GroupContext {
  const QueryBlock* block = nullptr;
  GroupPlan* plan = nullptr;  // null: SQLite does the grouping
  std::string alias;          // of the table of groups
  std::vector<Sql> keys;
  bool suspended = false;  // inside an aggregate: columns are those of the rows
  std::string_view clause = "select list";
  int error = 8120;
};

enum class ConvertMode : std::uint8_t {
  kImplicit,  // two operands meet
  kExplicit,  // CONVERT and CAST: texts are cut
  kAssign,    // into a variable: texts are cut
  kStore,     // into a column: a text that is too long is an error
};

// What the rows of a query are for.
enum class QueryUse : std::uint8_t { kTop, kDerived, kSubquery };

struct QuerySql {
  std::string text;
  std::vector<Column> columns;
  std::vector<Sql> items;
};

class Translator {
 public:
  // `line` is that of the statement, for messages.
  Translator(Catalog& catalog, const Variables& variables, int line)
      : catalog_(catalog), variables_(variables), line_(line) {}

  Plan TranslateSelect(const SelectStatement& statement);
  Plan TranslateInsert(const InsertStatement& statement);
  Plan TranslateUpdate(const UpdateStatement& statement);
  Plan TranslateDelete(const DeleteStatement& statement);
  // "SELECT <condition>" as one row of 0, 1 or null.
  Plan TranslateCondition(const Expression& condition);
  // "SELECT <value>" converted to the type of a variable.
  Plan TranslateValue(const Expression& value, const ColumnType& type);
  // The SQL of a constant default value of a column.
  std::string TranslateDefault(const Expression& value, const ColumnType& type);

 private:
  struct BlockState;

  // Expressions.
  Sql Value(const Expression& e, const Scope& scope);
  Sql Dispatch(const Expression& e, const Scope& scope);
  std::string Condition(const Expression& e, const Scope& scope);
  Sql Literal(const Expression& e) const;
  Sql VariableValue(const Expression& e);
  Sql ColumnValue(const Expression& e, const Scope& scope);
  Sql Unary(const Expression& e, const Scope& scope);
  Sql Binary(const Expression& e, const Scope& scope);
  Sql Concatenate(Sql a, Sql b);
  Sql Arithmetic(char op, Sql a, Sql b, const Expression& e);
  Sql Divide(char op, Sql a, Sql b, const ColumnType& type);
  Sql DateArithmetic(char op, Sql a, Sql b);
  Sql Case(const Expression& e, const Scope& scope);
  std::vector<std::string> CaseConditions(const Expression& e, const Scope& scope, std::size_t end,
                                          std::string& head);
  Sql ConvertValue(const Expression& e, const Scope& scope);
  Sql Subquery(const Expression& e, const Scope& scope);
  std::string Kept(const std::string& subquery, const std::vector<std::string>& outer_columns);
  void NoteOuterColumn(const Scope& scope, const std::string& column);
  void NoteUnsteady();
  Sql RowNumber(const Expression& e, const Scope& scope);
  bool NeverZero(const Expression& e, const Scope& scope);

  // Conditions.
  std::string Compare(std::string_view op, Sql a, Sql b);
  std::string CompareExpressions(const Expression& e, const Scope& scope);
  std::string FoldDayCompare(std::string_view op, const Expression& a, const Expression& b,
                             const Scope& scope);
  std::string In(const Expression& e, const Scope& scope);
  std::string Between(const Expression& e, const Scope& scope);
  std::string Like(const Expression& e, const Scope& scope);
  std::string Exists(const Expression& e, const Scope& scope);

  // Functions.
  Sql Function(const Expression& e, const Scope& scope);
  Sql SearchFunction(const Expression& e, const Scope& scope, bool& known);
  Sql MakingFunction(const Expression& e, const Scope& scope, bool& known);
  Sql TextFunction(const Expression& e, const Scope& scope, bool& known);
  Sql PartFunction(const Expression& e, const Sql& text, const Scope& scope);
  Sql NumberFunction(const Expression& e, const Scope& scope, bool& known);
  Sql DateFunction(const Expression& e, const Scope& scope, bool& known);
  Sql Round(const Expression& e, const Scope& scope);
  Sql IsNull(const Expression& e, const Scope& scope);
  Sql Coalesce(const Expression& e, const Scope& scope);
  Sql NullIf(const Expression& e, const Scope& scope);
  Sql ObjectId(const Expression& e);
  Sql AsText(Sql value);
  Sql Text(const Expression& e, const Scope& scope);
  Sql Int(const Expression& e, const Scope& scope);
  Sql Date(const Expression& e, const Scope& scope);
  Sql Number(const Expression& e, const Scope& scope);

  // Groups.
  Sql Aggregate(const Expression& e, const Scope& scope);
  Sql PlainAggregate(const Expression& e, const Sql& argument) const;
  Sql PlannedAggregate(const Expression& e, const Sql& argument, GroupContext& groups) const;
  Sql GroupingFlag(const Expression& e, const Scope& scope);
  bool GroupKey(const Expression& e, const Scope& scope, Sql& key);
  Sql GroupColumn(const ResolvedColumn& column);
  [[nodiscard]] std::string AddAggregate(GroupContext& groups, AggregateKind kind, const Sql* argument) const;
  void PrepareGroups(const QueryBlock& block, Scope& scope, GroupContext& groups);

  // Conversions (translate_convert.cpp).
  Sql Convert(Sql value, const ColumnType& to, ConvertMode mode, int style = -1);
  Sql ToText(Sql value, const ColumnType& to, ConvertMode mode, int style);
  Sql ToDate(Sql value, int style);
  Sql ToInteger(Sql value, const ColumnType& to);
  Sql ToScaled(Sql value, const ColumnType& to);
  Sql ToFloat(Sql value, const ColumnType& to);
  [[nodiscard]] Sql Exact(Sql value) const;
  std::string Collated(const Sql& value) const;

  // Queries.
  QuerySql TranslateQuery(const Query& query, const Scope* parent, QueryUse use, Plan* plan,
                          const std::vector<ColumnType>* targets);
  QuerySql TranslateBlock(const QueryBlock& block, const std::vector<OrderItem>& order, const Scope* parent,
                          QueryUse use, Plan* plan, const std::vector<ColumnType>* targets);
  void OpenGroups(const QueryBlock& block, const std::vector<OrderItem>& order, Plan* plan,
                  BlockState& state);
  void TranslateClauses(const QueryBlock& block, const std::vector<OrderItem>& order, BlockState& state);
  std::vector<std::string> Outputs(const QueryBlock& block, QueryUse use,
                                   const std::vector<ColumnType>* targets, QuerySql& result);
  std::string Assemble(const QueryBlock& block, const std::vector<std::string>& outputs,
                       const BlockState& state, Plan* plan) const;
  QuerySql TranslateUnion(const Query& query, const Scope* parent, const std::vector<ColumnType>* targets);
  std::string FromList(const std::vector<TableSourcePtr>& list, Scope& scope);
  std::string Join(const TableSource& source, Scope& scope);
  std::string TableOrDerived(const TableSource& source, Scope& scope);
  void AddSource(Scope& scope, Source source) const;
  std::vector<Sql> SelectItems(const QueryBlock& block, Scope& scope, std::vector<Column>& columns);
  void ExpandStar(const Expression& star, const Scope& scope, std::vector<Sql>& items,
                  std::vector<Column>& columns);
  std::string OrderList(const std::vector<OrderItem>& order, const QueryBlock& block,
                        const std::vector<Sql>& items, const std::vector<Column>& columns,
                        const Scope& scope);
  int OrderPosition(const Expression& e, const QueryBlock& block, const std::vector<Sql>& items,
                    const std::vector<Column>& columns, bool of_union) const;
  std::string Limit(const QueryBlock& block);
  void RequestIndexes(const QueryBlock& block, const Scope& scope);

  // Changes.
  Plan TranslateInto(const QueryBlock& block, const Query& query);
  void DescribeIntoColumn(const Query& query, const Expression& e, Plan& plan);
  std::vector<int> InsertColumns(const InsertStatement& statement, const TableInfo& table) const;
  std::string ValuesSql(const InsertStatement& statement, const TableInfo& table,
                        const std::vector<int>& columns);
  int FindTarget(const NameParts& target, Scope& scope) const;
  std::string Assignments(const UpdateStatement& statement, const TableInfo& table, const Scope& scope,
                          Plan& plan, bool through_rows, std::string& selected);

  std::string NewAlias();

  Catalog& catalog_;
  const Variables& variables_;
  int line_;
  int alias_count_ = 0;
  // How the items of a query meet their targets: columns or variables.
  ConvertMode target_mode_ = ConvertMode::kStore;
  std::vector<IndexRequest> indexes_;
  // What a scalar subquery on its way looks at outside itself.
  struct OuterReads {
    const Scope* outer = nullptr;  // the block around it
    std::vector<std::string> columns;
    bool steady = true;  // the same columns give the same value throughout the statement
  };
  std::vector<OuterReads*> outer_reads_;  // the outermost subquery first
  int kept_count_ = 0;
  // Variables that the statement assigns: their values change from row to row.
  std::vector<int> assigned_;
};

}  // namespace salerpt::tsql
