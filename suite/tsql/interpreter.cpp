#include "suite/tsql/interpreter.h"

#include <fmt/format.h>

#include "suite/tsql/error.h"
#include "suite/tsql/translator.h"

namespace salerpt::tsql {

Interpreter::Interpreter(SessionState& session, const Batch& batch, RowSink& sink)
    : session_(session),
      batch_(batch),
      sink_(sink),
      translated_(static_cast<std::size_t>(batch.statement_count)) {}

void Interpreter::Run() {
  session_.engine.functions->variables = &variables_;
  variables_.At(Variables::kRowCount).value = session_.row_count;
  variables_.At(Variables::kIdentity).value = session_.identity;
  for (const DeclaredVariable& variable : batch_.variables) variables_.Declare(variable.name, variable.type);
  for (const StatementPtr& statement : batch_.statements) {
    if (Execute(*statement) == Flow::kReturn) return;
  }
}

Interpreter::Flow Interpreter::Execute(const Statement& statement) {
  try {
    CountStatement();
    return Dispatch(statement);
  } catch (const TsqlError& error) {
    if (error.Line() > 0) throw;
    throw TsqlError(error.Number(), error.Description(), statement.line);
  }
}

void Interpreter::CountStatement() {
  ++statements_run_;
  if (session_.statement_limit > 0 && statements_run_ > session_.statement_limit) {
    Raise(kNotSupported,
          fmt::format("The batch has run the {} statements that it may run.", session_.statement_limit));
  }
}

Interpreter::Flow Interpreter::Dispatch(const Statement& statement) {
  return std::visit([&](const auto& body) { return Do(statement, body); }, statement.body);
}

template <typename Make>
Interpreter::Translated& Interpreter::Prepare(const Statement& statement, const Make& make) {
  Translated& entry = translated_[static_cast<std::size_t>(statement.id)];
  if (entry.catalog_version == session_.catalog->Version()) return entry;
  entry = Translated{};
  Translator translator(*session_.catalog, variables_, statement.line);
  entry.plan = make(translator);
  entry.catalog_version = session_.catalog->Version();
  return entry;
}

// SQLite's part of a translation, once its tables and indexes are there.
void Interpreter::Complete(Translated& translated) {
  MakeIndexes(translated.plan);
  if (translated.main) return;
  translated.main = PreparedStatement(session_.engine, translated.plan.sql);
  if (translated.plan.groups) {
    translated.base = PreparedStatement(session_.engine, translated.plan.groups->base_sql);
  }
}

void Interpreter::MakeIndexes(const Plan& plan) {
  for (const IndexRequest& request : plan.indexes) {
    std::string name = "lookup " + request.table_name;
    std::string columns;
    for (const std::string& column : request.columns) {
      name += " " + column;
      if (!columns.empty()) columns += ',';
      columns += QuoteName(column);
    }
    if (!session_.indexes.insert(name).second) continue;
    session_.engine.Run(fmt::format("CREATE INDEX IF NOT EXISTS temp.{} ON {}({})", QuoteName(name),
                                    QuoteName(request.table_name), columns));
  }
}

void Interpreter::RunPlan(Translated& translated) {
  if (translated.plan.kind == PlanKind::kInto) {
    RunInto(translated);
    return;
  }
  Complete(translated);
  session_.engine.functions->BeginStatement();
  std::optional<Groups> groups;
  if (translated.plan.groups) {
    groups.emplace(*translated.plan.groups);
    FillGroups(translated, *groups);
    session_.groups->groups = &*groups;
  }
  const ResetGuard reset(translated.main);
  translated.main.Bind(variables_);
  std::int64_t rows = 0;
  switch (translated.plan.kind) {
    case PlanKind::kRows:
      rows = Deliver(translated);
      break;
    case PlanKind::kAssign:
      rows = Assign(translated);
      break;
    default:
      rows = Change(translated);
      break;
  }
  session_.groups->groups = nullptr;
  variables_.At(Variables::kRowCount).value = session_.row_count = rows;
}

void Interpreter::FillGroups(const Translated& translated, Groups& groups) {
  const ResetGuard reset(translated.base);
  translated.base.Bind(variables_);
  while (translated.base.Step(session_.engine)) groups.Add(translated.base.Get());
  groups.Finish();
}

std::int64_t Interpreter::Deliver(const Translated& translated) {
  const std::vector<Column>& columns = translated.plan.columns;
  std::vector<Value> cells(columns.size());
  sink_.BeginRows(columns);
  std::int64_t rows = 0;
  for (; translated.main.Step(session_.engine); ++rows) {
    for (std::size_t i = 0; i < columns.size(); ++i) {
      cells[i] = ReadValue(translated.main.Get(), static_cast<int>(i), columns[i].type);
    }
    sink_.Row(cells);
  }
  sink_.EndRows();
  return rows;
}

std::int64_t Interpreter::Assign(const Translated& translated) {
  const std::vector<int>& targets = translated.plan.variables;
  std::int64_t rows = 0;
  for (; translated.main.Step(session_.engine); ++rows) {
    for (std::size_t i = 0; i < targets.size(); ++i) {
      Variable& variable = variables_.At(targets[i]);
      variable.value = ReadDatum(translated.main.Get(), static_cast<int>(i), variable.type);
    }
  }
  return rows;
}

std::int64_t Interpreter::Change(const Translated& translated) {
  while (translated.main.Step(session_.engine)) {
  }
  const std::int64_t rows = sqlite3_changes64(session_.engine.connection);
  session_.rows_affected = rows;
  if (translated.plan.writes_identity && rows > 0) {
    session_.identity = static_cast<double>(sqlite3_last_insert_rowid(session_.engine.connection));
    variables_.At(Variables::kIdentity).value = session_.identity;
  }
  return rows;
}

bool Interpreter::Test(const Statement& statement, const Expression& condition) {
  Translated& translated =
      Prepare(statement, [&](Translator& translator) { return translator.TranslateCondition(condition); });
  Complete(translated);
  const ResetGuard reset(translated.main);
  session_.engine.functions->BeginStatement();
  translated.main.Bind(variables_);
  return translated.main.Step(session_.engine) && sqlite3_column_int(translated.main.Get(), 0) != 0;
}

void Interpreter::SetVariable(const Statement& statement, int variable, const Expression& value) {
  Translated& translated = Prepare(statement, [&](Translator& translator) {
    return translator.TranslateValue(value, variables_.At(variable).type);
  });
  Complete(translated);
  const ResetGuard reset(translated.main);
  session_.engine.functions->BeginStatement();
  translated.main.Bind(variables_);
  if (!translated.main.Step(session_.engine)) return;
  Variable& target = variables_.At(variable);
  target.value = ReadDatum(translated.main.Get(), 0, target.type);
}

Interpreter::Flow Interpreter::Do(const Statement& statement, const SelectStatement& body) {
  RunPlan(Prepare(statement, [&](Translator& translator) { return translator.TranslateSelect(body); }));
  return Flow::kNext;
}

Interpreter::Flow Interpreter::Do(const Statement& statement, const InsertStatement& body) {
  RunPlan(Prepare(statement, [&](Translator& translator) { return translator.TranslateInsert(body); }));
  return Flow::kNext;
}

Interpreter::Flow Interpreter::Do(const Statement& statement, const UpdateStatement& body) {
  RunPlan(Prepare(statement, [&](Translator& translator) { return translator.TranslateUpdate(body); }));
  return Flow::kNext;
}

Interpreter::Flow Interpreter::Do(const Statement& statement, const DeleteStatement& body) {
  RunPlan(Prepare(statement, [&](Translator& translator) { return translator.TranslateDelete(body); }));
  return Flow::kNext;
}

Interpreter::Flow Interpreter::Do(const Statement& statement, const DeclareStatement& body) {
  if (body.table != nullptr) {
    if (session_.catalog->Find(body.table->table) == nullptr) CreateTable(statement, *body.table);
    return Flow::kNext;
  }
  for (const DeclareStatement::Variable& variable : body.variables) {
    const int index = variables_.Declare(variable.name, variable.type);
    if (variable.value == nullptr) continue;
    // Several initial values share the statement's number: none of them is kept.
    translated_[static_cast<std::size_t>(statement.id)] = Translated{};
    SetVariable(statement, index, *variable.value);
  }
  return Flow::kNext;
}

Interpreter::Flow Interpreter::Do(const Statement& statement, const SetStatement& body) {
  SetVariable(statement, variables_.Get(body.variable), *body.value);
  return Flow::kNext;
}

Interpreter::Flow Interpreter::Do(const Statement& /*statement*/, const SetOptionStatement& /*body*/) {
  return Flow::kNext;
}

Interpreter::Flow Interpreter::Do(const Statement& statement, const IfStatement& body) {
  if (Test(statement, *body.condition)) return Execute(*body.then_branch);
  return body.else_branch != nullptr ? Execute(*body.else_branch) : Flow::kNext;
}

Interpreter::Flow Interpreter::Do(const Statement& statement, const WhileStatement& body) {
  while (Test(statement, *body.condition)) {
    CountStatement();
    const Flow flow = Execute(*body.body);
    if (flow == Flow::kReturn) return flow;
    if (flow == Flow::kBreak) break;
  }
  return Flow::kNext;
}

Interpreter::Flow Interpreter::Do(const Statement& /*statement*/, const BlockStatement& body) {
  for (const StatementPtr& statement : body.statements) {
    const Flow flow = Execute(*statement);
    if (flow != Flow::kNext) return flow;
  }
  return Flow::kNext;
}

Interpreter::Flow Interpreter::Do(const Statement& /*statement*/, const BreakStatement& /*body*/) {
  return Flow::kBreak;
}

Interpreter::Flow Interpreter::Do(const Statement& /*statement*/, const ContinueStatement& /*body*/) {
  return Flow::kContinue;
}

Interpreter::Flow Interpreter::Do(const Statement& /*statement*/, const ReturnStatement& /*body*/) {
  return Flow::kReturn;
}

}  // namespace salerpt::tsql
