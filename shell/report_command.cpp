#include "shell/report_command.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "runtime/text.h"
#include "shell/failure.h"
#include "shell/filter_file.h"
#include "shell/interrupt.h"
#include "shell/output_file.h"

namespace salerpt::shell {
namespace {

constexpr std::string_view kBold = "\x1b[1m";
constexpr std::string_view kPlain = "\x1b[0m";

constexpr const char* kFooter =
    "KEY=VALUE sets a condition of the report's dialog, such as BDate=2024-01-01, GroupBy=1 or SumMode=2; "
    "what is\n"
    "not given takes the dialog's default. An unknown key is answered with the known ones. RptID=304 sets "
    "the\n"
    "report's number: Rpt303 shows the instalment list then.\n"
    "FILE.json holds the same as one object, nested objects (SumField) included; KEY=VALUE wins over it.\n"
    "Every format carries the title lines and, for every row, FSumSort: 0 for a detail row, above 0 for a "
    "total\n"
    "(101 the grand total). In the table a total row is marked with *.\n"
    "Exit status: 0 done, 1 the report answered a failure, 2 wrong usage or unreadable input.";

}  // namespace

void AddDbOption(CLI::App& command, std::string& db) {
  command.add_option("--db", db, "Account set")->envname("SALERPT_DB")->capture_default_str();
}

void AddReportOptions(CLI::App& command, ReportOptions& options) {
  command.add_option("CLASS", options.report_class, "Report class, such as Rpt128 (see: salerpt reports)")
      ->required();
  command.add_option("KEY=VALUE", options.choices, "Conditions");
  AddDbOption(command, options.db);
  command.add_option("--filter", options.filter_file, "Conditions from a JSON file (- for standard input)")
      ->type_name("FILE.json");
  command.add_option("--plan", options.plan, "Start from a stored plan (see: salerpt plans)")
      ->type_name("NAME");
  command.add_flag("--auto", options.automatic,
                   "Run the plan that is marked for the next time, where there is one");
  command.add_option("--save-plan", options.save_plan, "Store the conditions as a plan")->type_name("NAME");
  command
      .add_option("--format", options.format,
                  "table, csv, json, html or xlsx; by default as FILE ends, else table")
      ->type_name("NAME");
  command.add_option("--out", options.out_file, "Write to a file, which appears whole or not at all")
      ->type_name("FILE");
  command.add_flag("--progress", options.progress,
                   "Show progress on standard error, also where that is no terminal");
  command.footer(kFooter);
}

DialogRun ReadDialogRun(const ReportOptions& options) {
  DialogRun run{{}, options.plan, options.automatic, options.save_plan};
  if (!options.filter_file.empty()) run.choices = ReadFilterFile(options.filter_file);
  for (const std::string& argument : options.choices) run.choices.push_back(ParseChoice(argument));
  return run;
}

Format FormatOf(const ReportOptions& options) {
  if (!options.format.empty()) return ParseFormat(options.format);
  std::string ending = std::filesystem::path(options.out_file).extension().string();
  if (!ending.empty()) ending.erase(0, 1);
  const auto& names = FormatNames();
  return std::find(names.begin(), names.end(), ending) == names.end() ? Format::kTable : ParseFormat(ending);
}

ProgressBar::Style ProgressStyle(const Shell& shell, bool wanted) {
  if (shell.err_is_terminal) return ProgressBar::Style::kTerminal;
  return wanted ? ProgressBar::Style::kLines : ProgressBar::Style::kOff;
}

void Deliver(const Sheet& sheet, const ReportOptions& options, Shell& shell) {
  const Format format = FormatOf(options);
  if (options.out_file.empty()) {
    if (format == Format::kXlsx && shell.out_is_terminal) {
      RaiseUsage("a workbook is not written to a terminal: --out FILE was expected");
    }
    const bool emphasis = shell.use_color;
    MakeRenderer(format, emphasis ? PrintOptions{kBold, kPlain} : PrintOptions{})->Render(sheet, shell.out);
    return;
  }
  // Where the file system wants a name for the unfinished file, Ctrl-C must not leave it behind.
  const InterruptGuard guard;
  if (std::error_code unknown; std::filesystem::equivalent(options.out_file, options.db, unknown)) {
    RaiseUsage(Join("--out ", options.out_file, ": this is the account set, a report would overwrite it"));
  }
  OutputFile file(options.out_file);
  try {
    MakeRenderer(format, PrintOptions{})->Render(sheet, file.Stream());
  } catch (const RuntimeError& failure) {
    // The workbook library does not know for which file it works.
    if (failure.Description().starts_with(options.out_file)) throw;
    throw RuntimeError(failure.Number(), failure.Source(),
                       Join(options.out_file, ": ", failure.Description()));
  }
  InterruptGuard::Check();
  file.Commit();
}

}  // namespace salerpt::shell
