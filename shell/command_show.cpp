// `salerpt show`: runs a report and prints what it answers.
#include <memory>
#include <utility>

#include "shell/commands.h"
#include "shell/host.h"
#include "shell/report_command.h"

namespace salerpt::shell {
namespace {

void RunShow(const ReportOptions& options, Shell& shell) {
  const ReportClass& report_class = RequireReportClass(options.report_class);
  static_cast<void>(FormatOf(options));  // a mistyped name is told before the work, not after it
  DialogRun run = ReadDialogRun(options);
  Host host(options.db, shell, ProgressStyle(shell, options.progress));
  const ObjectRef report = host.Run(report_class, std::move(run));
  Deliver(host.Read(report), options, shell);
}

}  // namespace

void AddShowCommand(CLI::App& app, Shell& shell) {
  auto options = std::make_shared<ReportOptions>();
  CLI::App* command = app.add_subcommand("show", "Run a report and print its title lines, columns and rows");
  AddReportOptions(*command, *options);
  command->callback([options, &shell] { RunShow(*options, shell); });
}

}  // namespace salerpt::shell
