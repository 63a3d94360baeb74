// `salerpt drill`: the detail report of a row.
#include <memory>
#include <utility>

#include "shell/commands.h"
#include "shell/host.h"
#include "shell/report_command.h"

namespace salerpt::shell {
namespace {

struct DrillOptions : ReportOptions {
  std::int32_t row = 0;
};

void RunDrill(const DrillOptions& options, Shell& shell) {
  const ReportClass& report_class = RequireReportClass(options.report_class);
  static_cast<void>(FormatOf(options));
  DialogRun run = ReadDialogRun(options);
  Host host(options.db, shell, ProgressStyle(shell, options.progress));
  const ObjectRef report = host.Run(report_class, std::move(run));
  Deliver(host.Read(host.Detail(report_class, report, options.row)), options, shell);
}

}  // namespace

void AddDrillCommand(CLI::App& app, Shell& shell) {
  auto options = std::make_shared<DrillOptions>();
  CLI::App* command = app.add_subcommand("drill", "Print the detail report of a row of a report");
  AddReportOptions(*command, *options);
  command
      ->add_option("--row", options->row,
                   "The row, counted from 0 among all rows of `show` with the same conditions, total rows "
                   "included; a total row has no detail")
      ->required()
      ->type_name("N");
  command->callback([options, &shell] { RunDrill(*options, shell); });
}

}  // namespace salerpt::shell
