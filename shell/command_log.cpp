// `salerpt log`: who asked for what, and when.
#include <memory>
#include <ostream>
#include <string>

#include "shell/commands.h"
#include "shell/report_command.h"
#include "shell/sql_output.h"
#include "suite/accountset/accountset.h"
#include "suite/tsql/session.h"

namespace salerpt::shell {
namespace {

struct LogOptions {
  std::string db = "salerpt.db";
  std::string format = "table";
};

// A user who is no longer there is told by number.
constexpr std::string_view kLog =
    "Select l.FDate As [date],IsNull(u.FName,Convert(varchar(20),l.FUserID)) As [user],l.FKey As [key],\r\n"
    "l.FKind As [kind],l.FDescription As [text]\r\n"
    "From t_Log l\r\n"
    "Left Join t_User u On l.FUserID=u.FUserID\r\n"
    "Order By l.FLogID";

void RunLog(const LogOptions& options, Shell& shell) {
  const auto output = MakeSqlOutput(options.format, shell.out);
  const auto account_set = accountset::AccountSet::Open(options.db);
  tsql::Session session(account_set.Connection());
  session.Execute(kLog, *output);
}

}  // namespace

void AddLogCommand(CLI::App& app, Shell& shell) {
  auto options = std::make_shared<LogOptions>();
  CLI::App* command = app.add_subcommand("log", "List the log: date, user, key, kind, text");
  AddDbOption(*command, options->db);
  command->add_option("--format", options->format, "table, csv or json")
      ->capture_default_str()
      ->type_name("NAME");
  command->footer(
      "The oldest line comes first. A report that is opened from its dialog writes a line of kind 3, a pane "
      "of a dialog that\n"
      "is used one of kind 0.");
  command->callback([options, &shell] { RunLog(*options, shell); });
}

}  // namespace salerpt::shell
