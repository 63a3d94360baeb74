// The host of the reports: opens an account set, logs in, runs reports the way the suite's own shell does.
#pragma once

#include <filesystem>
#include <string_view>
#include <vector>

#include "runtime/report_class.h"
#include "runtime/runtime.h"
#include "shell/commands.h"
#include "shell/conditions.h"
#include "shell/progress_bar.h"
#include "shell/sheet.h"

namespace salerpt::shell {

// A class of report by its name, without regard to case. Raises invalid-call, naming it and the known ones,
// for any other name.
const ReportClass& RequireReportClass(std::string_view name);

// Drives reports through their late-bound members only and knows no class of its own. Objects that it gives
// must not outlive it.
class Host {
 public:
  // Raises what opening the account set raises.
  Host(const std::filesystem::path& db, Shell& shell, ProgressBar::Style progress);

  // The conditions of the class's dialog with the choices over them. Raises invalid-call for a class that
  // this build does not have, and as Confirm does.
  DictionaryRef Conditions(const ReportClass& report_class, const std::vector<Choice>& choices);
  // A report that has fetched. Raises ReportFailure with what `Result` tells.
  ObjectRef Fetch(const ReportClass& report_class, const DictionaryRef& filter);
  // Both, in a host's order: the report is made before its dialog opens. "RptID" among the choices becomes
  // the report's number, which tells the lists of one class apart; all others are conditions.
  ObjectRef Run(const ReportClass& report_class, std::vector<Choice> choices);
  // The detail report of a row (from 0, among the rows shown). Raises ReportFailure where the row has none or
  // the detail report fails, and invalid-call for a class without details or a row beyond the last.
  ObjectRef Detail(const ReportClass& report_class, const ObjectRef& report, std::int32_t row);
  // What the formats draw.
  Sheet Read(const ObjectRef& report);

 private:
  Runtime runtime_;
  ProgressBar bar_;
};

}  // namespace salerpt::shell
