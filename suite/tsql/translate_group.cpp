// Groups: keys, aggregates, GROUPING.
#include <fmt/format.h>

#include <algorithm>

#include "suite/tsql/decimal.h"
#include "suite/tsql/error.h"
#include "suite/tsql/function_names.h"
#include "suite/tsql/translator.h"

namespace salerpt::tsql {
namespace {

// While it lives, columns are those of the rows and not of the groups.
class Suspension {
 public:
  explicit Suspension(GroupContext& groups) : groups_(groups) { groups_.suspended = true; }
  ~Suspension() { groups_.suspended = false; }
  Suspension(const Suspension&) = delete;
  Suspension& operator=(const Suspension&) = delete;

 private:
  GroupContext& groups_;
};

bool HasAggregateOrQuery(const Expression& e) {
  if (e.query != nullptr || (e.kind == ExpressionKind::kFunction && IsAggregateFunction(e.text))) return true;
  return std::any_of(e.args.begin(), e.args.end(),
                     [](const ExpressionPtr& arg) { return HasAggregateOrQuery(*arg); });
}

std::string GroupColumnSql(const GroupContext& groups, std::size_t index) {
  return fmt::format("{}.c{}", groups.alias, index);
}

ColumnType SumType(const ColumnType& argument) {
  if (argument.kind == TypeKind::kDecimal) return DecimalType(kMaxPrecision, argument.scale);
  if (argument.kind == TypeKind::kBigInt || argument.kind == TypeKind::kMoney) return argument;
  if (argument.IsInteger() || argument.kind == TypeKind::kNull) return IntegerType();
  return SimpleType(TypeKind::kFloat);
}

ColumnType AverageType(const ColumnType& argument) {
  if (argument.kind == TypeKind::kDecimal) return DecimalType(kMaxPrecision, std::max(6, argument.scale));
  return SumType(argument);
}

AggregateKind SumKind(const ColumnType& argument) {
  if (argument.IsScaled()) return AggregateKind::kSumScaled;
  return argument.IsApproximate() ? AggregateKind::kSumFloat : AggregateKind::kSumInteger;
}

}  // namespace

void Translator::PrepareGroups(const QueryBlock& block, Scope& scope, GroupContext& groups) {
  groups.block = &block;
  for (const ExpressionPtr& key : block.group_by) {
    if (HasAggregateOrQuery(*key)) {
      Raise(144,
            "Cannot use an aggregate or a subquery in an expression used for the group by list of a GROUP BY "
            "clause.");
    }
    Sql translated = Exact(Value(*key, scope));
    if (translated.literal) {
      Raise(164, "Each GROUP BY expression must contain at least one column that is not an outer reference.");
    }
    groups.keys.push_back(std::move(translated));
  }
  if (groups.plan != nullptr) {
    groups.alias = NewAlias();
    for (const Sql& key : groups.keys) groups.plan->keys.push_back(key.type);
  }
}

bool Translator::GroupKey(const Expression& e, const Scope& scope, Sql& key) {
  GroupContext& groups = *scope.groups;
  if (e.kind == ExpressionKind::kInteger || e.kind == ExpressionKind::kText) return false;
  const Suspension suspension(groups);
  for (std::size_t i = 0; i < groups.keys.size(); ++i) {
    if (!SameExpression(e, *groups.block->group_by[i], scope)) continue;
    key = groups.keys[i];
    if (groups.plan != nullptr) {
      key.text = GroupColumnSql(groups, i);
      key.nocase = false;
    }
    return true;
  }
  return false;
}

// A column outside aggregates: one of the keys, also when a subquery names it.
Sql Translator::GroupColumn(const ResolvedColumn& column) {
  GroupContext& groups = *column.scope->groups;
  for (std::size_t i = 0; i < groups.keys.size(); ++i) {
    const Expression& key = *groups.block->group_by[i];
    if (key.kind != ExpressionKind::kColumn) continue;
    const ResolvedColumn other = Resolve(key.name, *column.scope);
    if (other.source != column.source || other.column != column.column || other.scope != column.scope)
      continue;
    Sql result = groups.keys[i];
    if (groups.plan != nullptr) {
      result.text = GroupColumnSql(groups, i);
      result.nocase = false;
    }
    return result;
  }
  const std::string name = column.GetSource().alias + "." + column.Info().name;
  if (groups.error == 8127) {
    Raise(8127,
          fmt::format(
              "Column \"{}\" is invalid in the ORDER BY clause because it is not contained in either an "
              "aggregate function or the GROUP BY clause.",
              name));
  }
  if (groups.block->group_by.empty() && groups.error == 8120) {
    Raise(8120,
          fmt::format("Column '{}' is invalid in the select list because it is not contained in either an "
                      "aggregate function or the GROUP BY clause.",
                      name));
  }
  Raise(groups.error,
        fmt::format("Column '{}' is invalid in the {} because it is not contained in either an aggregate "
                    "function or the GROUP BY clause.",
                    name, groups.clause));
}

Sql Translator::GroupingFlag(const Expression& e, const Scope& scope) {
  Sql result;
  result.type = IntegerType();
  if (scope.groups != nullptr) {
    GroupContext& groups = *scope.groups;
    const Suspension suspension(groups);
    for (std::size_t i = 0; i < groups.keys.size(); ++i) {
      if (!SameExpression(*e.args[0], *groups.block->group_by[i], scope)) continue;
      result.text = groups.plan == nullptr ? "0" : GroupColumnSql(groups, groups.keys.size() + i);
      return result;
    }
  }
  Raise(8161,
        "Argument 1 of the GROUPING function does not match any of the expressions in the GROUP BY clause.");
}

Sql Translator::Aggregate(const Expression& e, const Scope& scope) {
  if (scope.groups == nullptr) {
    Raise(147,
          "An aggregate may not appear in the WHERE clause unless it is in a subquery contained in a HAVING "
          "clause "
          "or a select list, and the column being aggregated is an outer reference.");
  }
  GroupContext& groups = *scope.groups;
  if (groups.suspended || HasAggregateOrQuery(*e.args[0])) {
    Raise(130,
          "Cannot perform an aggregate function on an expression containing an aggregate or a subquery.");
  }
  const bool star = e.args[0]->kind == ExpressionKind::kStar;
  Sql argument;
  if (!star) {
    const Suspension suspension(groups);
    argument = Value(*e.args[0], scope);
  } else if (e.text != "count" && e.text != "count_big") {
    Raise(102, "Incorrect syntax near '*'.", e.line);
  }
  const bool summing = e.text == "sum" || e.text == "avg";
  if (summing && (argument.type.IsText() || argument.type.IsDate() || argument.type.kind == TypeKind::kBit)) {
    Raise(8117,
          fmt::format("Operand data type {} is invalid for {} operator.", argument.type.Word(), e.text));
  }
  if (e.text == "min" || e.text == "max") argument = Exact(std::move(argument));
  if (groups.plan == nullptr) return PlainAggregate(e, argument);
  if (e.distinct) RaiseNotSupported("DISTINCT in an aggregate WITH ROLLUP", e.line);
  return PlannedAggregate(e, argument, groups);
}

Sql Translator::PlainAggregate(const Expression& e, const Sql& argument) const {
  Sql result;
  const std::string text = (e.distinct ? "DISTINCT " : "") + argument.text;
  const bool collate = argument.type.IsText() && !argument.nocase;
  if (e.text == "count" || e.text == "count_big") {
    result.type = IntegerType(e.text == "count" ? TypeKind::kInt : TypeKind::kBigInt);
    result.text = e.args[0]->kind == ExpressionKind::kStar
                      ? "count(*)"
                      : fmt::format("count({}{})", text, collate ? " COLLATE NOCASE" : "");
  } else if (e.text == "min" || e.text == "max") {
    result.type = argument.type;
    result.digits = argument.digits;
    result.text = fmt::format("{}({}{})", e.text, text, collate ? " COLLATE NOCASE" : "");
  } else if (argument.type.IsScaled()) {
    const int scale = std::min(argument.Digits(), kMaxSumScale);
    result.type = e.text == "sum" ? SumType(argument.type) : AverageType(argument.type);
    // The scale stands in the name: an aggregate over distinct values takes one argument only.
    result.text = fmt::format("ts_sum{}({})", scale, text);
    if (e.text == "avg") {
      result.text = fmt::format("ts_div({},count({}),{})", result.text, text, result.type.scale);
    } else {
      result.digits = scale;
    }
  } else if (argument.type.IsApproximate()) {
    result.type = SimpleType(TypeKind::kFloat);
    result.text = fmt::format("{}({})", e.text, text);
  } else {
    result.type = SumType(argument.type);
    result.text =
        e.text == "sum" ? fmt::format("sum({})", text) : fmt::format("(sum({0}) / count({0}))", text);
    result.text = fmt::format("ts_int({},{})", result.text, static_cast<int>(result.type.kind));
  }
  return result;
}

std::string Translator::AddAggregate(GroupContext& groups, AggregateKind kind, const Sql* argument) const {
  GroupPlan& plan = *groups.plan;
  AggregateSpec spec;
  spec.kind = kind;
  if (argument != nullptr) {
    const auto found = std::find(plan.arguments.begin(), plan.arguments.end(), argument->text);
    spec.argument = static_cast<int>(found - plan.arguments.begin());
    if (found == plan.arguments.end()) plan.arguments.push_back(argument->text);
    spec.type = argument->type;
    spec.type.scale = std::min(argument->Digits(), kMaxSumScale);
  }
  std::size_t index = 0;
  while (index < plan.aggregates.size() &&
         !(plan.aggregates[index].kind == spec.kind && plan.aggregates[index].argument == spec.argument)) {
    ++index;
  }
  if (index == plan.aggregates.size()) plan.aggregates.push_back(spec);
  const std::size_t column = 2 * groups.keys.size() + index;
  if (column >= kMaxGroupColumns) RaiseNotSupported("So many aggregates", line_);
  return GroupColumnSql(groups, column);
}

Sql Translator::PlannedAggregate(const Expression& e, const Sql& argument, GroupContext& groups) const {
  Sql result;
  if (e.text == "count" || e.text == "count_big") {
    result.type = IntegerType(e.text == "count" ? TypeKind::kInt : TypeKind::kBigInt);
    const bool star = e.args[0]->kind == ExpressionKind::kStar;
    result.text = AddAggregate(groups, AggregateKind::kCount, star ? nullptr : &argument);
  } else if (e.text == "min" || e.text == "max") {
    result.type = argument.type;
    result.digits = argument.digits;
    result.text =
        AddAggregate(groups, e.text == "min" ? AggregateKind::kMin : AggregateKind::kMax, &argument);
  } else {
    const std::string sum = AddAggregate(groups, SumKind(argument.type), &argument);
    result.type = e.text == "sum" ? SumType(argument.type) : AverageType(argument.type);
    result.text = sum;
    if (argument.type.IsScaled() && e.text == "sum")
      result.digits = std::min(argument.Digits(), kMaxSumScale);
    if (result.type.IsInteger()) {
      result.text = fmt::format("ts_int({},{})", sum, static_cast<int>(result.type.kind));
    }
    if (e.text == "avg") {
      const std::string count = AddAggregate(groups, AggregateKind::kCount, &argument);
      if (result.type.IsInteger()) {
        result.text = fmt::format("({} / {})", sum, count);
      } else {
        result.text =
            fmt::format("ts_div({},{},{})", sum, count, result.type.IsScaled() ? result.type.scale : 99);
      }
    }
  }
  return result;
}

}  // namespace salerpt::tsql
