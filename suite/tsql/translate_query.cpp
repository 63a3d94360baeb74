// Queries: FROM, select list, ORDER BY, set operators.
#include <fmt/format.h>

#include <algorithm>

#include "suite/tsql/error.h"
#include "suite/tsql/function_names.h"
#include "suite/tsql/number_text.h"
#include "suite/tsql/translator.h"

namespace salerpt::tsql {
namespace {

bool HasAggregate(const Expression& e) {
  if (e.kind == ExpressionKind::kFunction && (IsAggregateFunction(e.text) || e.text == "grouping"))
    return true;
  return std::any_of(e.args.begin(), e.args.end(),
                     [](const ExpressionPtr& arg) { return HasAggregate(*arg); });
}

bool HasRowNumber(const Expression& e) {
  if (e.kind == ExpressionKind::kRowNumber) return true;
  return std::any_of(e.args.begin(), e.args.end(),
                     [](const ExpressionPtr& arg) { return HasRowNumber(*arg); });
}

bool IsGrouped(const QueryBlock& block, const std::vector<OrderItem>& order) {
  if (!block.group_by.empty() || block.having != nullptr) return true;
  for (const SelectItem& item : block.items) {
    if (HasAggregate(*item.expression)) return true;
  }
  return std::any_of(order.begin(), order.end(),
                     [](const OrderItem& item) { return HasAggregate(*item.expression); });
}

// What only SQLite does with groups: aggregates of distinct values, numbers of rows.
bool NeedsSqlite(const Expression& e) {
  if (e.distinct || e.kind == ExpressionKind::kRowNumber) return true;
  return std::any_of(e.args.begin(), e.args.end(),
                     [](const ExpressionPtr& arg) { return NeedsSqlite(*arg); });
}

bool NeedsSqlite(const QueryBlock& block, const std::vector<OrderItem>& order) {
  if (block.distinct || (block.having != nullptr && NeedsSqlite(*block.having))) return true;
  return std::any_of(block.items.begin(), block.items.end(),
                     [](const SelectItem& item) { return NeedsSqlite(*item.expression); }) ||
         std::any_of(order.begin(), order.end(),
                     [](const OrderItem& item) { return NeedsSqlite(*item.expression); });
}

std::string_view SetWord(SetOperator op) {
  switch (op) {
    case SetOperator::kUnionAll:
      return " UNION ALL ";
    case SetOperator::kExcept:
      return " EXCEPT ";
    case SetOperator::kIntersect:
      return " INTERSECT ";
    default:
      return " UNION ";
  }
}

std::string ItemName(const SelectItem& item) {
  if (!item.alias.empty()) return item.alias;
  if (item.expression->kind == ExpressionKind::kColumn) return item.expression->name.back();
  return {};
}

std::string Joined(const std::vector<std::string>& parts, std::string_view separator) {
  return fmt::format("{}", fmt::join(parts, separator));
}

// One row at most, whatever the tables hold.
bool AtMostOneRow(const QueryBlock& block) {
  if (block.top != nullptr) return block.top->kind == ExpressionKind::kInteger && block.top->text == "1";
  if (block.from.empty()) return true;
  return block.group_by.empty() && HasAggregate(*block.items[0].expression);
}

}  // namespace

QuerySql Translator::TranslateQuery(const Query& query, const Scope* parent, QueryUse use, Plan* plan,
                                    const std::vector<ColumnType>* targets) {
  if (use != QueryUse::kTop && !query.order_by.empty() && query.blocks[0].top == nullptr) {
    Raise(1033,
          "The ORDER BY clause is invalid in views, inline functions, derived tables, subqueries, and common "
          "table "
          "expressions, unless TOP or FOR XML is also specified.");
  }
  if (query.blocks.size() == 1)
    return TranslateBlock(query.blocks[0], query.order_by, parent, use, plan, targets);
  QuerySql result = TranslateUnion(query, parent, targets);
  if (use == QueryUse::kSubquery) {
    result.text = fmt::format("WITH {0}(x) AS ({1}) SELECT ts_one(x) FROM {0}", NewAlias(), result.text);
  }
  return result;
}

QuerySql Translator::TranslateUnion(const Query& query, const Scope* parent,
                                    const std::vector<ColumnType>* targets) {
  std::vector<QuerySql> parts;
  static const std::vector<OrderItem> kNoOrder;
  for (const QueryBlock& block : query.blocks) {
    parts.push_back(TranslateBlock(block, kNoOrder, parent, QueryUse::kDerived, nullptr, nullptr));
    if (parts.back().columns.size() != parts[0].columns.size()) {
      Raise(205,
            "All queries combined using a UNION, INTERSECT or EXCEPT operator must have an equal number of "
            "expressions in their target lists.");
    }
  }
  QuerySql result;
  result.columns = parts[0].columns;
  for (std::size_t c = 0; c < result.columns.size(); ++c) {
    for (const QuerySql& part : parts) {
      result.columns[c].type = CommonType(result.columns[c].type, part.columns[c].type);
    }
  }
  // Every part gives columns u1, u2, … converted to the common types.
  for (std::size_t i = 0; i < parts.size(); ++i) {
    std::vector<std::string> items;
    std::vector<std::string> names;
    for (std::size_t c = 0; c < result.columns.size(); ++c) {
      Sql item = parts[i].items[c];
      item.text = fmt::format("u{}", c + 1);
      item.nocase = false;
      item.literal = false;
      item.constant.clear();
      item = Convert(std::move(item), result.columns[c].type, ConvertMode::kImplicit);
      items.push_back(Collated(item));
      names.push_back(fmt::format("u{}", c + 1));
    }
    if (i > 0) result.text += SetWord(query.operators[i - 1]);
    const std::string alias = NewAlias();
    result.text += fmt::format("SELECT {} FROM (WITH {}({}) AS ({}) SELECT * FROM {})", Joined(items, ", "),
                               alias, Joined(names, ", "), parts[i].text, alias);
  }
  for (std::size_t c = 0; c < result.columns.size(); ++c) {
    Sql item;
    item.type = result.columns[c].type;
    item.text = fmt::format("u{}", c + 1);
    result.items.push_back(std::move(item));
  }
  if (!query.order_by.empty()) {
    const Scope empty;
    result.text +=
        " ORDER BY " + OrderList(query.order_by, query.blocks[0], result.items, result.columns, empty);
  }
  const std::string alias = NewAlias();
  std::vector<std::string> names;
  std::vector<std::string> outputs;
  for (std::size_t c = 0; c < result.columns.size(); ++c) {
    names.push_back(result.items[c].text);
    if (targets != nullptr && c < targets->size()) {
      result.items[c] = Convert(std::move(result.items[c]), (*targets)[c], target_mode_);
    }
    outputs.push_back(result.items[c].text);
    if (!result.columns[c].name.empty()) outputs.back() += " AS " + QuoteName(result.columns[c].name);
  }
  result.text = fmt::format("SELECT {} FROM (WITH {}({}) AS ({}) SELECT * FROM {})", Joined(outputs, ", "),
                            alias, Joined(names, ", "), result.text, alias);
  return result;
}

// A block on its way: what its clauses have become so far. It stays where it is, since the scope points into
// it.
struct Translator::BlockState {
  Scope scope;
  GroupContext groups;
  std::string source;  // FROM and WHERE
  std::string having;
  std::string tail;  // ORDER BY and LIMIT
  QuerySql result;
};

QuerySql Translator::TranslateBlock(const QueryBlock& block, const std::vector<OrderItem>& order,
                                    const Scope* parent, QueryUse use, Plan* plan,
                                    const std::vector<ColumnType>* targets) {
  BlockState state;
  state.scope.parent = parent;
  state.source = FromList(block.from, state.scope);
  if (!state.source.empty()) state.source.insert(0, " FROM ");
  if (block.where != nullptr) {
    if (HasRowNumber(*block.where)) {
      Raise(4108, "Windowed functions can only appear in the SELECT or ORDER BY clauses.");
    }
    state.source += " WHERE " + Condition(*block.where, state.scope);
  }
  if (parent != nullptr) RequestIndexes(block, state.scope);
  OpenGroups(block, order, plan, state);
  TranslateClauses(block, order, state);
  // The caller reports a count that does not match, in the words of its statement.
  if (targets != nullptr && targets->size() != state.result.items.size()) return std::move(state.result);

  const std::vector<std::string> outputs = Outputs(block, use, targets, state.result);
  const bool single = use == QueryUse::kSubquery && outputs.size() == 1 && !AtMostOneRow(block);
  if (!single) {
    state.result.text = Assemble(block, outputs, state, plan);
  } else if (state.scope.groups == nullptr && !block.distinct && block.top == nullptr) {
    state.result.text = fmt::format("SELECT ts_one({}){}", outputs[0], state.source);
  } else {
    state.result.text =
        fmt::format("SELECT ts_one(x) FROM ({})", Assemble(block, {outputs[0] + " AS x"}, state, plan));
  }
  return std::move(state.result);
}

void Translator::OpenGroups(const QueryBlock& block, const std::vector<OrderItem>& order, Plan* plan,
                            BlockState& state) {
  if (block.grouping == Grouping::kRollup) {
    if (plan == nullptr) RaiseNotSupported("WITH ROLLUP in a subquery or UNION", block.line);
    if (block.distinct) RaiseNotSupported("DISTINCT WITH ROLLUP", block.line);
  }
  const bool rollup = block.grouping == Grouping::kRollup;
  const bool plain = block.grouping == Grouping::kPlain && plan != nullptr && !NeedsSqlite(block, order);
  if (rollup || plain) {
    state.groups.plan = &plan->groups.emplace();
    state.groups.plan->rollup = rollup;
  }
  if (!IsGrouped(block, order)) return;
  PrepareGroups(block, state.scope, state.groups);
  state.scope.groups = &state.groups;
}

void Translator::TranslateClauses(const QueryBlock& block, const std::vector<OrderItem>& order,
                                  BlockState& state) {
  QuerySql& result = state.result;
  result.items = SelectItems(block, state.scope, result.columns);
  if (block.having != nullptr) {
    state.groups.clause = "HAVING clause";
    state.groups.error = 8121;
    state.having = Condition(*block.having, state.scope);
  }
  if (!order.empty()) {
    state.groups.error = 8127;
    state.tail = " ORDER BY " + OrderList(order, block, result.items, result.columns, state.scope);
  }
  state.tail += Limit(block);
}

// The select list as SQLite reads it, each item converted to its target where there is one.
std::vector<std::string> Translator::Outputs(const QueryBlock& block, QueryUse use,
                                             const std::vector<ColumnType>* targets, QuerySql& result) {
  std::vector<std::string> outputs;
  for (std::size_t i = 0; i < result.items.size(); ++i) {
    Sql& item = result.items[i];
    item =
        targets != nullptr ? Convert(std::move(item), (*targets)[i], target_mode_) : Exact(std::move(item));
    outputs.push_back(block.distinct ? Collated(item) : item.text);
    if (use == QueryUse::kDerived && !result.columns[i].name.empty()) {
      outputs.back() += " AS " + QuoteName(result.columns[i].name);
    }
  }
  return outputs;
}

std::string Translator::Assemble(const QueryBlock& block, const std::vector<std::string>& outputs,
                                 const BlockState& state, Plan* plan) const {
  std::string text = fmt::format("SELECT {}{}", block.distinct ? "DISTINCT " : "", fmt::join(outputs, ", "));
  const GroupContext& groups = state.groups;
  if (groups.plan != nullptr) {
    std::vector<std::string> base;
    for (const Sql& key : groups.keys) base.push_back(key.text);
    base.insert(base.end(), plan->groups->arguments.begin(), plan->groups->arguments.end());
    plan->groups->base_sql = fmt::format("SELECT {}{}", fmt::join(base, ", "), state.source);
    text += fmt::format(" FROM {} AS {}", kGroupsTable, groups.alias);
    if (!state.having.empty()) text += " WHERE " + state.having;
    return text + state.tail;
  }
  text += state.source;
  std::vector<std::string> keys;
  for (const Sql& key : groups.keys) keys.push_back(Collated(key));
  if (!keys.empty()) text += fmt::format(" GROUP BY {}", fmt::join(keys, ", "));
  if (!state.having.empty()) text += " HAVING " + state.having;
  return text + state.tail;
}

std::string Translator::NewAlias() {
  return fmt::format("s{}", ++alias_count_);
}

std::string Translator::FromList(const std::vector<TableSourcePtr>& list, Scope& scope) {
  std::string text;
  for (const TableSourcePtr& source : list) {
    if (!text.empty()) text += ", ";
    text += Join(*source, scope);
  }
  return text;
}

std::string Translator::Join(const TableSource& source, Scope& scope) {
  if (source.left == nullptr) return TableOrDerived(source, scope);
  static constexpr std::string_view kWords[] = {" JOIN ", " LEFT JOIN ", " RIGHT JOIN ", " FULL JOIN ",
                                                " CROSS JOIN "};
  std::string text = Join(*source.left, scope);
  text += kWords[static_cast<std::size_t>(source.join)];
  const bool nested = source.right->left != nullptr;
  text += nested ? "(" + Join(*source.right, scope) + ")" : Join(*source.right, scope);
  if (source.on != nullptr) text += " ON " + Condition(*source.on, scope);
  return text;
}

std::string Translator::TableOrDerived(const TableSource& source, Scope& scope) {
  Source entry;
  entry.sql_alias = NewAlias();
  if (source.query == nullptr) {
    entry.table = catalog_.Get(source.name);
    entry.alias = source.alias.empty() ? source.name.back() : source.alias;
    const std::string text = entry.table->sql + " AS " + entry.sql_alias;
    AddSource(scope, std::move(entry));
    return text;
  }
  const QuerySql query = TranslateQuery(*source.query, scope.parent, QueryUse::kDerived, nullptr, nullptr);
  auto table = std::make_shared<TableInfo>();
  std::vector<std::string> names;
  for (std::size_t i = 0; i < query.columns.size(); ++i) {
    ColumnInfo column;
    column.name = i < source.column_aliases.size() ? source.column_aliases[i] : query.columns[i].name;
    column.type = query.columns[i].type;
    if (column.name.empty()) {
      Raise(8155, fmt::format("No column name was specified for column {} of '{}'.", i + 1, source.alias));
    }
    if (table->Find(column.name) >= 0) {
      Raise(8156,
            fmt::format("The column '{}' was specified multiple times for '{}'.", column.name, source.alias));
    }
    names.push_back(QuoteName(column.name));
    table->columns.push_back(std::move(column));
  }
  table->name = source.alias;
  entry.table = table;
  entry.alias = source.alias;
  entry.derived = true;
  std::string text = fmt::format("({}) AS {}", query.text, entry.sql_alias);
  if (!source.column_aliases.empty()) {
    text = fmt::format("(WITH d({}) AS ({}) SELECT * FROM d) AS {}", Joined(names, ", "), query.text,
                       entry.sql_alias);
  }
  AddSource(scope, std::move(entry));
  return text;
}

void Translator::AddSource(Scope& scope, Source source) const {
  const int same = FindSource(source.alias, scope);
  if (same >= 0) {
    // A name that is not the table's own was given to two of them.
    if (!EqualNames(source.alias, source.table->name) || source.derived) {
      Raise(1011, fmt::format("The correlation name '{}' is specified multiple times in a FROM clause.",
                              source.alias));
    }
    Raise(1013,
          fmt::format("The objects \"{0}\" and \"{0}\" in the FROM clause have the same exposed names. Use "
                      "correlation names to distinguish them.",
                      source.alias));
  }
  scope.sources.push_back(std::move(source));
}

std::vector<Sql> Translator::SelectItems(const QueryBlock& block, Scope& scope,
                                         std::vector<Column>& columns) {
  std::vector<Sql> items;
  for (const SelectItem& item : block.items) {
    if (item.expression->kind == ExpressionKind::kStar) {
      ExpandStar(*item.expression, scope, items, columns);
      continue;
    }
    items.push_back(Value(*item.expression, scope));
    columns.push_back(Column{ItemName(item), items.back().type});
  }
  return items;
}

void Translator::ExpandStar(const Expression& star, const Scope& scope, std::vector<Sql>& items,
                            std::vector<Column>& columns) {
  if (scope.sources.empty()) Raise(263, "Must specify table to select from.");
  bool found = false;
  for (const Source& source : scope.sources) {
    if (!star.name.empty() && !EqualNames(source.alias, star.name.back())) continue;
    found = true;
    for (const ColumnInfo& info : source.table->columns) {
      Expression column;
      column.kind = ExpressionKind::kColumn;
      column.name = {source.alias, info.name};
      items.push_back(Value(column, scope));
      columns.push_back(Column{info.name, info.type});
    }
  }
  if (!found) {
    Raise(107, fmt::format(
                   "The column prefix '{}' does not match with a table name or alias name used in the query.",
                   fmt::join(star.name, ".")));
  }
}

// The place in the select list that an ORDER BY item means by number or by a name made up there; -1 when it
// means neither.
int Translator::OrderPosition(const Expression& e, const QueryBlock& block, const std::vector<Sql>& items,
                              const std::vector<Column>& columns, bool of_union) const {
  if (e.kind == ExpressionKind::kInteger) {
    const auto position = static_cast<int>(ReadInteger(e.text).value_or(0)) - 1;
    if (position < 0 || position >= static_cast<int>(items.size())) {
      Raise(108,
            fmt::format(
                "The ORDER BY position number {} is out of range of the number of items in the select list.",
                e.text));
    }
    return position;
  }
  if (e.kind != ExpressionKind::kColumn || e.name.size() != 1) return -1;
  int found = -1;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (!EqualNames(columns[i].name, e.name[0])) continue;
    const bool aliased = i < block.items.size() && !block.items[i].alias.empty();
    if (found >= 0 && aliased && !of_union) Raise(209, fmt::format("Ambiguous column name '{}'.", e.name[0]));
    if (found < 0 && (of_union || aliased || i >= block.items.size())) found = static_cast<int>(i);
  }
  return found;
}

std::string Translator::OrderList(const std::vector<OrderItem>& order, const QueryBlock& block,
                                  const std::vector<Sql>& items, const std::vector<Column>& columns,
                                  const Scope& scope) {
  std::vector<std::string> parts;
  const bool of_union = scope.sources.empty() && !block.from.empty();
  for (const OrderItem& item : order) {
    const Expression& e = *item.expression;
    if (e.kind == ExpressionKind::kText || e.kind == ExpressionKind::kDecimal) {
      Raise(408, fmt::format("A constant expression was encountered in the ORDER BY list, position {}.",
                             parts.size() + 1));
    }
    int position = OrderPosition(e, block, items, columns, of_union);
    std::string text;
    if (position < 0) {
      if (of_union) {
        Raise(104,
              "ORDER BY items must appear in the select list if the statement contains a UNION, INTERSECT or "
              "EXCEPT "
              "operator.");
      }
      const Sql value = Value(e, scope);
      text = Collated(value);
      if (block.distinct) {
        const auto same = [&](const Sql& other) { return other.text == value.text; };
        position = static_cast<int>(std::find_if(items.begin(), items.end(), same) - items.begin());
        if (position == static_cast<int>(items.size())) {
          Raise(145, "ORDER BY items must appear in the select list if SELECT DISTINCT is specified.");
        }
      }
    }
    if (position >= 0) {
      const Sql& target = items[static_cast<std::size_t>(position)];
      text = std::to_string(position + 1);
      if (target.type.IsText() && !target.nocase) text += " COLLATE NOCASE";
    }
    parts.push_back(text + (item.descending ? " DESC" : ""));
  }
  return Joined(parts, ", ");
}

std::string Translator::Limit(const QueryBlock& block) {
  if (block.top == nullptr) return {};
  const Scope empty;
  const Sql count = Convert(Value(*block.top, empty), IntegerType(TypeKind::kBigInt), ConvertMode::kImplicit);
  // A count below zero would be no limit at all.
  return block.top->kind == ExpressionKind::kInteger ? " LIMIT " + count.text
                                                     : fmt::format(" LIMIT ts_top({})", count.text);
}

}  // namespace salerpt::tsql
