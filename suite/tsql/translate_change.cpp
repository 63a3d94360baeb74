// SELECT as a statement, SELECT … INTO, INSERT, UPDATE, DELETE.
#include <fmt/format.h>

#include <algorithm>

#include "suite/tsql/error.h"
#include "suite/tsql/function_names.h"
#include "suite/tsql/translator.h"

namespace salerpt::tsql {
namespace {

bool HasSubquery(const Expression& e) {
  if (e.query != nullptr) return true;
  return std::any_of(e.args.begin(), e.args.end(),
                     [](const ExpressionPtr& arg) { return HasSubquery(*arg); });
}

// VALUES sees no table.
void CheckNoColumns(const Expression& e) {
  if (e.kind == ExpressionKind::kColumn) {
    Raise(128,
          fmt::format(
              "The name \"{}\" is not permitted in this context. Valid expressions are constants, constant "
              "expressions, and (in some contexts) variables. Column names are not permitted.",
              fmt::join(e.name, ".")));
  }
  const bool date_part = e.kind == ExpressionKind::kFunction && e.text.starts_with("date");
  for (std::size_t i = date_part ? 1 : 0; i < e.args.size(); ++i) CheckNoColumns(*e.args[i]);
}

[[noreturn]] void RaiseTwice(std::string_view column) {
  Raise(
      264,
      fmt::format(
          "The column name '{}' is specified more than once in the SET clause or column list of an INSERT. A "
          "column cannot be assigned more than one value in the same clause. Modify the clause to make sure "
          "that a column is updated only once. If this statement updates or inserts columns into a view, "
          "column aliasing can conceal the duplication in your code.",
          column));
}

bool HasAggregate(const Expression& e) {
  if (e.kind == ExpressionKind::kFunction && IsAggregateFunction(e.text)) return true;
  return std::any_of(e.args.begin(), e.args.end(),
                     [](const ExpressionPtr& arg) { return HasAggregate(*arg); });
}

// Looks into a join for the entry that an UPDATE or DELETE means.
std::string NameOfTarget(const NameParts& target) {
  return target.back();
}

}  // namespace

Plan Translator::TranslateSelect(const SelectStatement& statement) {
  const Query& query = *statement.query;
  const QueryBlock& first = query.blocks[0];
  if (!first.into.empty()) return TranslateInto(first, query);
  Plan plan;
  const bool assigns = !first.items[0].variable.empty();
  std::vector<ColumnType> types;
  for (const SelectItem& item : first.items) {
    if (item.variable.empty() == assigns) {
      Raise(141,
            "A SELECT statement that assigns a value to a variable must not be combined with data-retrieval "
            "operations.");
    }
    if (!assigns) continue;
    plan.variables.push_back(variables_.Get(item.variable));
    types.push_back(variables_.At(plan.variables.back()).type);
  }
  assigned_ = plan.variables;
  if (assigns) target_mode_ = ConvertMode::kAssign;
  QuerySql result = TranslateQuery(query, nullptr, QueryUse::kTop, &plan, assigns ? &types : nullptr);
  if (assigns) plan.kind = PlanKind::kAssign;
  plan.columns = std::move(result.columns);
  for (std::size_t i = 0; i < types.size(); ++i) plan.columns[i].type = types[i];
  plan.sql = std::move(result.text);
  plan.indexes = std::move(indexes_);
  return plan;
}

Plan Translator::TranslateInto(const QueryBlock& block, const Query& query) {
  Plan plan;
  plan.kind = PlanKind::kInto;
  if (catalog_.Find(block.into) != nullptr) {
    Raise(2714, fmt::format("There is already an object named '{}' in the database.", block.into.back()));
  }
  QuerySql result = TranslateQuery(query, nullptr, QueryUse::kTop, &plan, nullptr);
  TableInfo& table = plan.into;
  table.name = block.into.back();
  table.temporary = table.name.starts_with('#');
  table.sql = (table.temporary ? "temp." : "main.") + QuoteName(table.name);
  for (std::size_t i = 0; i < result.columns.size(); ++i) {
    ColumnInfo column;
    column.name = result.columns[i].name;
    column.type = result.columns[i].type;
    column.type.nullable = true;
    if (column.name.empty()) {
      Raise(1038,
            "An object or column name is missing or empty. For SELECT INTO statements, verify each column "
            "has a "
            "name. For other statements, look for empty alias names. Aliases defined as \"\" or [] are not "
            "allowed. "
            "Change the alias to a valid name.");
    }
    if (column.type.kind == TypeKind::kNull) column.type = IntegerType();
    if (table.Find(column.name) >= 0) {
      Raise(2705,
            fmt::format(
                "Column names in each table must be unique. Column name '{}' in table '{}' is specified more "
                "than once.",
                column.name, table.name));
    }
    table.columns.push_back(std::move(column));
    const bool item = i < block.items.size() && block.items.size() == result.columns.size();
    if (item) DescribeIntoColumn(query, *block.items[i].expression, plan);
  }
  plan.sql = fmt::format("INSERT INTO {} {}", table.sql, result.text);
  plan.target = table.name;
  plan.indexes = std::move(indexes_);
  return plan;
}

// Loops look up rows by a row number or an identity number that they took along: such columns get an index. A
// taken-along identity goes on counting, unless the rows come in an order of their own, which they must keep.
void Translator::DescribeIntoColumn(const Query& query, const Expression& e, Plan& plan) {
  const QueryBlock& block = query.blocks[0];
  ColumnInfo& column = plan.into.columns.back();
  if (e.kind == ExpressionKind::kRowNumber) plan.into_indexes.push_back(column.name);
  const bool one_table =
      block.from.size() == 1 && block.from[0]->left == nullptr && block.from[0]->query == nullptr;
  if (e.kind != ExpressionKind::kColumn || !one_table) return;
  const TablePtr from = catalog_.Get(block.from[0]->name);
  if (from->Identity() < 0 || from->Find(e.name.back()) != from->Identity()) return;
  const bool ordered = !query.order_by.empty() || block.distinct || block.grouping != Grouping::kNone;
  if (ordered || query.blocks.size() > 1 || plan.into.Identity() >= 0) {
    plan.into_indexes.push_back(column.name);
  } else {
    column.identity = true;
  }
}

std::vector<int> Translator::InsertColumns(const InsertStatement& statement, const TableInfo& table) const {
  std::vector<int> columns;
  if (statement.columns.empty()) {
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
      if (!table.columns[i].identity) columns.push_back(static_cast<int>(i));
    }
    return columns;
  }
  for (const std::string& name : statement.columns) {
    const int column = table.Find(name);
    if (column < 0) RaiseInvalidColumn(name);
    if (std::find(columns.begin(), columns.end(), column) != columns.end()) {
      RaiseTwice(name);
    }
    if (table.columns[static_cast<std::size_t>(column)].identity) {
      Raise(544,
            fmt::format(
                "Cannot insert explicit value for identity column in table '{}' when IDENTITY_INSERT is set "
                "to OFF.",
                table.name));
    }
    columns.push_back(column);
  }
  return columns;
}

Plan Translator::TranslateInsert(const InsertStatement& statement) {
  const TablePtr table = catalog_.Get(statement.table);
  Plan plan;
  plan.kind = PlanKind::kChange;
  plan.target = table->name;
  plan.writes_identity = table->Identity() >= 0;
  if (statement.default_values) {
    plan.sql = fmt::format("INSERT INTO {} DEFAULT VALUES", table->sql);
    return plan;
  }
  const std::vector<int> columns = InsertColumns(statement, *table);
  std::vector<ColumnType> types;
  std::string names;
  for (const int column : columns) {
    const ColumnInfo& info = table->columns[static_cast<std::size_t>(column)];
    types.push_back(info.type);
    if (!names.empty()) names += ',';
    names += QuoteName(info.name);
  }
  std::string rows;
  if (statement.query != nullptr) {
    QuerySql query = TranslateQuery(*statement.query, nullptr, QueryUse::kTop, &plan, &types);
    if (query.columns.size() != columns.size()) {
      if (statement.columns.empty()) Raise(213, std::string(kInsertColumnsText));
      const bool more = query.columns.size() > columns.size();
      Raise(more ? 121 : 120, fmt::format("The select list for the INSERT statement contains {} items than "
                                          "the insert list. The number of "
                                          "SELECT values must match the number of INSERT columns.",
                                          more ? "more" : "fewer"));
    }
    rows = std::move(query.text);
  } else {
    rows = ValuesSql(statement, *table, columns);
  }
  plan.sql = names.empty() ? fmt::format("INSERT INTO {} DEFAULT VALUES", table->sql)
                           : fmt::format("INSERT INTO {}({}) {}", table->sql, names, rows);
  plan.indexes = std::move(indexes_);
  return plan;
}

std::string Translator::ValuesSql(const InsertStatement& statement, const TableInfo& table,
                                  const std::vector<int>& columns) {
  const Scope empty;
  std::string rows;
  for (const std::vector<ExpressionPtr>& row : statement.values) {
    if (row.size() != statement.values[0].size()) {
      Raise(10709, "The number of columns for each row in a table value constructor must be the same.");
    }
    if (row.size() != columns.size()) {
      if (statement.columns.empty()) Raise(213, std::string(kInsertColumnsText));
      const bool more = row.size() > columns.size();
      Raise(
          more ? 110 : 109,
          fmt::format(
              "There are {} columns in the INSERT statement than values specified in the VALUES clause. The "
              "number of values in the VALUES clause must match the number of columns specified in the "
              "INSERT "
              "statement.",
              more ? "fewer" : "more"));
    }
    std::string cells;
    for (std::size_t i = 0; i < row.size(); ++i) {
      const ColumnInfo& info = table.columns[static_cast<std::size_t>(columns[i])];
      if (!cells.empty()) cells += ',';
      if (row[i] == nullptr) RaiseNotSupported("DEFAULT in VALUES", line_);
      CheckNoColumns(*row[i]);
      cells += Convert(Value(*row[i], empty), info.type, ConvertMode::kStore).text;
    }
    rows += fmt::format("{}({})", rows.empty() ? "VALUES " : ",", cells);
  }
  return rows;
}

int Translator::FindTarget(const NameParts& target, Scope& scope) const {
  const std::string name = NameOfTarget(target);
  const int by_alias = FindSource(name, scope);
  if (by_alias >= 0) return by_alias;
  for (std::size_t i = 0; i < scope.sources.size(); ++i) {
    if (EqualNames(scope.sources[i].table->name, name) && !scope.sources[i].derived)
      return static_cast<int>(i);
  }
  return -1;
}

// "c" = value for each column. `through_rows` takes the values as v1, v2, … from a query over the rows first,
// so that no row sees what the statement has done to another.
std::string Translator::Assignments(const UpdateStatement& statement, const TableInfo& table,
                                    const Scope& scope, Plan& plan, bool through_rows,
                                    std::string& selected) {
  static_cast<void>(plan);
  std::string sets;
  std::vector<int> seen;
  for (const Assignment& assignment : statement.assignments) {
    if (assignment.column.empty()) RaiseNotSupported("SET @variable in an UPDATE", line_);
    const int column = table.Find(assignment.column.back());
    if (column < 0) RaiseInvalidColumn(assignment.column.back());
    if (std::find(seen.begin(), seen.end(), column) != seen.end()) {
      RaiseTwice(assignment.column.back());
    }
    seen.push_back(column);
    const ColumnInfo& info = table.columns[static_cast<std::size_t>(column)];
    if (info.identity) Raise(8102, fmt::format("Cannot update identity column '{}'.", info.name));
    if (assignment.value == nullptr) RaiseNotSupported("SET column = DEFAULT", line_);
    if (HasAggregate(*assignment.value)) {
      Raise(157, "An aggregate may not appear in the set list of an UPDATE statement.");
    }
    const Sql value = Convert(Value(*assignment.value, scope), info.type, ConvertMode::kStore);
    if (through_rows) selected += fmt::format(",{} AS v{}", value.text, seen.size());
    sets += fmt::format("{}{}={}", sets.empty() ? "" : ",", QuoteName(info.name),
                        through_rows ? fmt::format("r.v{}", seen.size()) : value.text);
  }
  return sets;
}

Plan Translator::TranslateUpdate(const UpdateStatement& statement) {
  Plan plan;
  plan.kind = PlanKind::kChange;
  Scope scope;
  std::string from = FromList(statement.from, scope);
  int target = FindTarget(statement.target, scope);
  if (target < 0) {
    Source source;
    source.sql_alias = NewAlias();
    source.table = catalog_.Get(statement.target);
    source.alias = statement.target.back();
    from = from.empty() ? source.table->sql + " AS " + source.sql_alias
                        : from + ", " + source.table->sql + " AS " + source.sql_alias;
    scope.sources.push_back(std::move(source));
    target = static_cast<int>(scope.sources.size()) - 1;
  }
  const Source source = scope.sources[static_cast<std::size_t>(target)];
  if (source.derived) RaiseInvalidObject(statement.target.back());
  plan.target = source.table->name;
  const bool subqueries =
      std::any_of(statement.assignments.begin(), statement.assignments.end(),
                  [](const Assignment& a) { return a.value != nullptr && HasSubquery(*a.value); });
  const bool through_rows = scope.sources.size() > 1 || subqueries;
  if (through_rows && !source.table->has_rowid)
    RaiseNotSupported("UPDATE with joins of " + source.table->name, line_);
  std::string selected;
  const std::string sets = Assignments(statement, *source.table, scope, plan, through_rows, selected);
  std::string where;
  if (statement.where != nullptr) where = " WHERE " + Condition(*statement.where, scope);
  if (through_rows) {
    plan.sql = fmt::format(
        "UPDATE {} AS u SET {} FROM (SELECT {}.rowid AS rid{} FROM {}{}) AS r WHERE u.rowid=r.rid",
        source.table->sql, sets, source.sql_alias, selected, from, where);
  } else {
    plan.sql = fmt::format("UPDATE {} AS {} SET {}{}", source.table->sql, source.sql_alias, sets, where);
  }
  plan.indexes = std::move(indexes_);
  return plan;
}

Plan Translator::TranslateDelete(const DeleteStatement& statement) {
  Plan plan;
  plan.kind = PlanKind::kChange;
  Scope scope;
  const std::string from = FromList(statement.from, scope);
  const int target = FindTarget(statement.target, scope);
  if (target < 0) {
    if (!from.empty()) {
      catalog_.Get(statement.target);
      RaiseNotSupported("DELETE of a table that its FROM does not name", line_);
    }
    Source source;
    source.sql_alias = NewAlias();
    source.table = catalog_.Get(statement.target);
    source.alias = statement.target.back();
    scope.sources.push_back(std::move(source));
  }
  const Source source = scope.sources[static_cast<std::size_t>(std::max(target, 0))];
  if (source.derived) RaiseInvalidObject(statement.target.back());
  plan.target = source.table->name;
  std::string where;
  if (statement.where != nullptr) where = " WHERE " + Condition(*statement.where, scope);
  if (from.empty()) {
    plan.sql = fmt::format("DELETE FROM {} AS {}{}", source.table->sql, source.sql_alias, where);
  } else {
    if (!source.table->has_rowid) RaiseNotSupported("DELETE with joins of " + source.table->name, line_);
    plan.sql = fmt::format("DELETE FROM {} WHERE rowid IN (SELECT {}.rowid FROM {}{})", source.table->sql,
                           source.sql_alias, from, where);
  }
  plan.indexes = std::move(indexes_);
  return plan;
}

Plan Translator::TranslateCondition(const Expression& condition) {
  Plan plan;
  const Scope empty;
  plan.sql = "SELECT " + Condition(condition, empty);
  plan.indexes = std::move(indexes_);
  return plan;
}

Plan Translator::TranslateValue(const Expression& value, const ColumnType& type) {
  Plan plan;
  const Scope empty;
  plan.sql = "SELECT " + Convert(Value(value, empty), type, ConvertMode::kAssign).text;
  plan.columns.push_back(Column{"", type});
  plan.indexes = std::move(indexes_);
  return plan;
}

std::string Translator::TranslateDefault(const Expression& value, const ColumnType& type) {
  const Scope empty;
  return Convert(Value(value, empty), type, ConvertMode::kStore).text;
}

}  // namespace salerpt::tsql
