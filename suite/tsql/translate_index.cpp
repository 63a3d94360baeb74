// Indexes for correlated lookups. SQLite would scan a temporary table once for every outer row; an index over
// the columns that are compared for equality turns that into a search. It never changes a result.
#include <algorithm>

#include "suite/tsql/translator.h"

namespace salerpt::tsql {
namespace {

void CollectConjuncts(const Expression& e, std::vector<const Expression*>& conjuncts) {
  if (e.kind == ExpressionKind::kAnd) {
    CollectConjuncts(*e.args[0], conjuncts);
    CollectConjuncts(*e.args[1], conjuncts);
  } else if (e.kind == ExpressionKind::kCompare) {
    conjuncts.push_back(&e);
  }
}

// What an expression looks at: this block, or a block around it. A subquery counts as outer unless it names
// one of our sources.
struct Dependence {
  bool inner = false;
  bool outer = false;
};

void Look(const Expression& e, const Scope& scope, bool in_subquery, Dependence& found);

void LookQuery(const Query& query, const Scope& scope, Dependence& found) {
  for (const QueryBlock& block : query.blocks) {
    for (const SelectItem& item : block.items) Look(*item.expression, scope, true, found);
    if (block.where != nullptr) Look(*block.where, scope, true, found);
  }
}

void Look(const Expression& e, const Scope& scope, bool in_subquery, Dependence& found) {
  if (e.kind == ExpressionKind::kColumn) {
    if (in_subquery) {
      const bool ours = e.name.size() > 1 && FindSource(e.name[e.name.size() - 2], scope) >= 0;
      (ours ? found.inner : found.outer) = true;
    } else {
      (Resolve(e.name, scope).scope == &scope ? found.inner : found.outer) = true;
    }
  }
  if (e.query != nullptr) LookQuery(*e.query, scope, found);
  for (const ExpressionPtr& arg : e.args) Look(*arg, scope, in_subquery, found);
}

// The column of `source` that the side of a comparison is; -1 when it is something else.
int ColumnOfSource(const Expression& e, const Scope& scope, int source) {
  if (e.kind != ExpressionKind::kColumn) return -1;
  const ResolvedColumn column = Resolve(e.name, scope);
  return column.scope == &scope && column.source == source ? column.column : -1;
}

bool IsIdentity(const Source& source, int column) {
  return column >= 0 && source.table->columns[static_cast<std::size_t>(column)].identity;
}

}  // namespace

void Translator::RequestIndexes(const QueryBlock& block, const Scope& scope) {
  if (block.where == nullptr) return;
  std::vector<const Expression*> conjuncts;
  CollectConjuncts(*block.where, conjuncts);
  for (std::size_t s = 0; s < scope.sources.size(); ++s) {
    const Source& source = scope.sources[s];
    if (!source.table->temporary) continue;
    IndexRequest request{source.table->sql, source.table->name, {}};
    bool by_identity = false;
    for (const Expression* conjunct : conjuncts) {
      for (int side = 0; side < 2; ++side) {
        const Expression& mine = *conjunct->args[static_cast<std::size_t>(side)];
        const Expression& other = *conjunct->args[static_cast<std::size_t>(1 - side)];
        const int column = ColumnOfSource(mine, scope, static_cast<int>(s));
        if (column < 0) continue;
        by_identity = by_identity || IsIdentity(source, column);
        Dependence dependence;
        Look(other, scope, false, dependence);
        if (conjunct->text != "=" || dependence.inner || !dependence.outer) continue;
        request.columns.push_back(source.table->columns[static_cast<std::size_t>(column)].name);
      }
    }
    if (!by_identity && !request.columns.empty()) indexes_.push_back(std::move(request));
  }
}

}  // namespace salerpt::tsql
