#include "suite/tsql/scope.h"

#include <fmt/format.h>

#include "suite/tsql/error.h"

namespace salerpt::tsql {
namespace {

ResolvedColumn ResolveUnqualified(const std::string& name, const Scope& scope) {
  for (const Scope* level = &scope; level != nullptr; level = level->parent) {
    ResolvedColumn found;
    for (std::size_t i = 0; i < level->sources.size(); ++i) {
      const int column = level->sources[i].table->Find(name);
      if (column < 0) continue;
      if (found.scope != nullptr) Raise(209, fmt::format("Ambiguous column name '{}'.", name));
      found = {level, static_cast<int>(i), column};
    }
    if (found.scope != nullptr) return found;
  }
  RaiseInvalidColumn(name);
}

bool SameColumn(const NameParts& a, const NameParts& b, const Scope& scope) {
  if (a.size() == b.size()) {
    bool equal = true;
    for (std::size_t i = 0; i < a.size(); ++i) equal = equal && EqualNames(a[i], b[i]);
    if (equal) return true;
  }
  if (!EqualNames(a.back(), b.back())) return false;
  const ResolvedColumn x = Resolve(a, scope);
  const ResolvedColumn y = Resolve(b, scope);
  return x.scope == y.scope && x.source == y.source && x.column == y.column;
}

}  // namespace

std::string Source::ColumnSql(int column) const {
  return sql_alias + "." + QuoteName(table->columns[static_cast<std::size_t>(column)].name);
}

int FindSource(std::string_view qualifier, const Scope& scope) {
  for (std::size_t i = 0; i < scope.sources.size(); ++i) {
    if (EqualNames(scope.sources[i].alias, qualifier)) return static_cast<int>(i);
  }
  return -1;
}

ResolvedColumn Resolve(const NameParts& name, const Scope& scope) {
  if (name.size() == 1) return ResolveUnqualified(name.front(), scope);
  const std::string& qualifier = name[name.size() - 2];
  for (const Scope* level = &scope; level != nullptr; level = level->parent) {
    const int source = FindSource(qualifier, *level);
    if (source < 0) continue;
    const int column = level->sources[static_cast<std::size_t>(source)].table->Find(name.back());
    if (column < 0) RaiseInvalidColumn(name.back());
    return {level, source, column};
  }
  Raise(4104, fmt::format("The multi-part identifier \"{}\" could not be bound.", fmt::join(name, ".")));
}

bool SameExpression(const Expression& a, const Expression& b, const Scope& scope) {
  if (a.kind != b.kind || a.args.size() != b.args.size() || a.query != nullptr || b.query != nullptr)
    return false;
  if (a.kind == ExpressionKind::kColumn) return SameColumn(a.name, b.name, scope);
  if (a.negated != b.negated || a.distinct != b.distinct || a.has_operand != b.has_operand) return false;
  if (a.kind == ExpressionKind::kText ? a.text != b.text : !EqualNames(a.text, b.text)) return false;
  if (a.kind == ExpressionKind::kConvert && a.type.Name() != b.type.Name()) return false;
  if (a.kind == ExpressionKind::kRowNumber) return false;
  for (std::size_t i = 0; i < a.args.size(); ++i) {
    if (!SameExpression(*a.args[i], *b.args[i], scope)) return false;
  }
  return true;
}

}  // namespace salerpt::tsql
