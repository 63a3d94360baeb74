// `salerpt sql`: T-SQL on the embedded engine.
#include <memory>
#include <ostream>
#include <string>

#include "runtime/text.h"
#include "shell/commands.h"
#include "shell/failure.h"
#include "shell/read_text.h"
#include "shell/report_command.h"
#include "shell/sql_batches.h"
#include "shell/sql_output.h"
#include "suite/accountset/accountset.h"
#include "suite/tsql/session.h"

namespace salerpt::shell {
namespace {

struct SqlOptions {
  std::string db = "salerpt.db";
  std::string file = "-";
  std::string format = "table";
};

// "orders.sql:12: Msg 208: Invalid object name 't_Foo'."
std::string FailureText(const SqlOptions& options, const SqlBatch& batch, const tsql::TsqlError& error) {
  const int line = batch.first_line + std::max(error.Line(), 1) - 1;
  return Join(options.file == "-" ? "<stdin>" : options.file, ":", line, ": Msg ", error.Number(), ": ",
              error.Description());
}

void RunSql(const SqlOptions& options, Shell& shell) {
  const auto output = MakeSqlOutput(options.format, shell.out);
  const std::string script = ReadTextFile(options.file);
  const auto account_set = accountset::AccountSet::Open(options.db);
  tsql::Session session(account_set.Connection());
  for (const SqlBatch& batch : SplitBatches(script)) {
    try {
      session.Execute(batch.text, *output);
    } catch (const tsql::TsqlError& error) {
      throw ReportFailure(FailureText(options, batch, error));
    }
  }
}

}  // namespace

void AddSqlCommand(CLI::App& app, Shell& shell) {
  auto options = std::make_shared<SqlOptions>();
  CLI::App* command =
      app.add_subcommand("sql", "Run T-SQL on the embedded engine and print the rows of each select");
  AddDbOption(*command, options->db);
  command->add_option("FILE", options->file, "The script; - for standard input")->capture_default_str();
  command->add_option("--format", options->format, "table, csv or json")
      ->capture_default_str()
      ->type_name("NAME");
  command->footer(
      "A line GO ends a batch; variables end with their batch, temporary tables with the script. Statements "
      "that change the\n"
      "account set do change it. Exit status: 0 done, 1 a batch failed, 2 wrong usage or unreadable input.");
  command->callback([options, &shell] { RunSql(*options, shell); });
}

}  // namespace salerpt::shell
