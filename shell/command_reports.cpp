// `salerpt reports`: the classes that there are.
#include <ostream>
#include <string>

#include "runtime/report_class.h"
#include "shell/commands.h"
#include "shell/text_grid.h"

namespace salerpt::shell {
namespace {

void RunReports(Shell& shell) {
  TextGrid grid({{"class"}, {"title"}, {"plan family"}, {"dialog"}, {"drill target"}});
  for (const ReportClass& c : ReportClasses()) {
    grid.Add({std::string(c.name), std::string(c.title), std::string(c.plan_family), std::string(c.dialog),
              std::string(c.drill_target)});
  }
  grid.Write(shell.out);
}

}  // namespace

void AddReportsCommand(CLI::App& app, Shell& shell) {
  CLI::App* command = app.add_subcommand(
      "reports",
      "List the report classes: class, title, filter plan family, dialog, class of the detail report");
  command->callback([&shell] { RunReports(shell); });
}

}  // namespace salerpt::shell
