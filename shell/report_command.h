// What `show` and `drill` have in common.
#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

#include "shell/commands.h"
#include "shell/conditions.h"
#include "shell/host.h"
#include "shell/progress_bar.h"
#include "shell/renderer.h"

namespace salerpt::shell {

struct ReportOptions {
  std::string report_class;
  std::string db = "salerpt.db";
  std::vector<std::string> choices;  // KEY=VALUE
  std::string filter_file;
  std::string plan;
  bool automatic = false;
  std::string save_plan;
  std::string format;  // empty: by the output file's name, else a table
  std::string out_file;
  bool progress = false;
};

// The account set, for every command that opens one.
void AddDbOption(CLI::App& command, std::string& db);
void AddReportOptions(CLI::App& command, ReportOptions& options);

// How the report's dialog is run. Choices of the filter file come first, then those of the command line, so
// that these win.
DialogRun ReadDialogRun(const ReportOptions& options);
// "table" unless said otherwise by --format or by the ending of the output file's name.
Format FormatOf(const ReportOptions& options);
// On a terminal always, elsewhere only where it was asked for.
ProgressBar::Style ProgressStyle(const Shell& shell, bool wanted);
// Renders the sheet to the output file or to standard output.
void Deliver(const Sheet& sheet, const ReportOptions& options, Shell& shell);

}  // namespace salerpt::shell
