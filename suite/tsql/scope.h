// Name resolution: which column of which table a name means.
#pragma once

#include <string>
#include <vector>

#include "suite/tsql/catalog.h"
#include "suite/tsql/syntax_tree.h"

namespace salerpt::tsql {

// A table or derived table of a FROM list.
struct Source {
  std::string alias;      // by which the batch names it
  std::string sql_alias;  // by which the translation names it
  TablePtr table;         // of a derived table a made-up one without SQL text
  bool derived = false;
  // SQL of the column for SQLite.
  [[nodiscard]] std::string ColumnSql(int column) const;
};

struct GroupContext;

// The sources that a query block sees, and through `parent` those of the block around it.
struct Scope {
  const Scope* parent = nullptr;
  std::vector<Source> sources;
  // Set while the select list, HAVING and ORDER BY of a grouped block are translated.
  GroupContext* groups = nullptr;
};

struct ResolvedColumn {
  const Scope* scope = nullptr;
  int source = -1;
  int column = -1;
  [[nodiscard]] const Source& GetSource() const { return scope->sources[static_cast<std::size_t>(source)]; }
  [[nodiscard]] const ColumnInfo& Info() const {
    return GetSource().table->columns[static_cast<std::size_t>(column)];
  }
};

// Raises 207, 209 or 4104.
ResolvedColumn Resolve(const NameParts& name, const Scope& scope);
// The source that a qualifier means, in this scope alone; -1 when there is none.
int FindSource(std::string_view qualifier, const Scope& scope);
// True when two expressions mean the same: equal trees over equal columns.
bool SameExpression(const Expression& a, const Expression& b, const Scope& scope);

}  // namespace salerpt::tsql
