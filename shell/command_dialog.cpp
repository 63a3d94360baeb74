// `salerpt dialog`: one filter dialog, run without a screen by a script.
#include <memory>
#include <ostream>
#include <string>

#include "shell/commands.h"
#include "shell/recorded/case_file.h"
#include "shell/scripted/dialog_run.h"

namespace salerpt::shell {
namespace {

struct DialogOptions {
  std::string dialog;
  std::string case_file;
};

// A dialog that was told to confirm and is still open has refused it. One that was cancelled, or that the
// script leaves open, has failed in nothing.
bool IsRefused(const Json& answer, const DialogCase& dialog_case) {
  const auto confirms = [](const Json& step) {
    return step.contains("finish") || (step.contains("click") && step.at("click") == "cmdOK");
  };
  return !answer.at("closed").get<bool>() && !dialog_case.steps.empty() && confirms(dialog_case.steps.back());
}

void RunDialogCommand(const DialogOptions& options, Shell& shell) {
  // A step that cannot be done is told with the file's name too.
  const Json answer = ReadCaseFile(options.case_file, [&](const Json& document) {
    const DialogCase dialog_case = ReadDialogCase(document);
    Json shown = RunDialog(options.dialog, dialog_case);
    if (IsRefused(shown, dialog_case)) shell.status = 1;
    return shown;
  });
  shell.out << answer.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
}

}  // namespace

void AddDialogCommand(CLI::App& app, Shell& shell) {
  auto options = std::make_shared<DialogOptions>();
  CLI::App* command = app.add_subcommand(
      "dialog", "Run a filter dialog without a screen, driven by steps, as one JSON object");
  command->add_option("DIALOG", options->dialog, "Dialog class, such as frmFirter128")->required();
  command->add_option("CASE.json", options->case_file, "The case: plans, settings, look-ups, steps")
      ->required();
  command->footer(
      "Keys of CASE.json, all optional: props, profile, dataRight, access, faults, answers, RptID, today, "
      "plans,\n"
      "settings, saleTypes, orderTypes, propDescs, itemMaxLevel, lookups, replies, steps (a click on "
      "cmdOK).\n"
      "Steps behind the closing of the dialog are left out, but \"state\".\n"
      "Exit status: 0 printed, 1 printed and the dialog refused its last confirmation, 2 unreadable case, "
      "unknown "
      "dialog or step.");
  command->callback([options, &shell] { RunDialogCommand(*options, shell); });
}

}  // namespace salerpt::shell
