// The host of the reports: opens an account set, logs in, runs reports the way the suite's own shell does.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/report_class.h"
#include "runtime/runtime.h"
#include "shell/commands.h"
#include "shell/conditions.h"
#include "shell/progress_bar.h"
#include "shell/sheet.h"
#include "suite/middletier/middletier.h"

namespace salerpt::shell {

// How a report's dialog is run.
struct DialogRun {
  // Over the plan or the dialog's defaults. "RptID" among them becomes the report's number, which tells the
  // lists of one class apart; all others are conditions.
  std::vector<Choice> choices;
  // A stored plan to start from; empty: the plan that the store has chosen, else the defaults.
  std::string plan;
  // The marked plan runs as it is, where there is one and the report asks for it.
  bool automatic = false;
  // Name under which the conditions are stored as a plan; empty for none.
  std::string save_plan;
};

// A class of report by its name, without regard to case. Raises invalid-call, naming it and the known ones,
// for any other name.
const ReportClass& RequireReportClass(std::string_view name);

// Drives reports through their late-bound members only and knows no class of its own. Objects that it gives
// must not outlive it.
class Host {
 public:
  // `window` shows the windows that the suite opens of its own. Raises what opening the account set raises.
  Host(const std::filesystem::path& db, Shell& shell, ProgressBar::Style progress,
       middletier::ListWindow window = {});

  // A report that has fetched, in a host's order: the report is made, shows its dialog, and fetches. The
  // dialog is run without a person, as `run` tells; what it confirms does not become the user's default plan.
  // Raises ReportFailure with what `Result` tells, and invalid-call for a class that this build does not
  // have, for a choice that the dialog does not have, for a plan that is not stored, and for one that could
  // not be saved.
  ObjectRef Run(const ReportClass& report_class, DialogRun run);
  // The detail report of a row (from 0, among the rows shown). Raises ReportFailure where the row has none or
  // the detail report fails, and invalid-call for a class without details or a row beyond the last.
  ObjectRef Detail(const ReportClass& report_class, const ObjectRef& report, std::int32_t row);
  // What the formats draw.
  Sheet Read(const ObjectRef& report);

 private:
  // What the user does in the dialog that the report shows.
  void UseDialog(FilterDialog& dialog, const DialogRun& run,
                 const std::vector<Dictionary::Entry>& conditions);

  Runtime runtime_;
  ProgressBar bar_;
  std::shared_ptr<class ShellToolkit> toolkit_;
  // Why the plan was not saved; empty where it was.
  std::string save_failure_;
};

}  // namespace salerpt::shell
