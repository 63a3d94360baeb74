// `salerpt request`: what a report would send, without a server.
#include <memory>
#include <ostream>
#include <string>

#include "shell/commands.h"
#include "shell/recorded/case_file.h"
#include "shell/recorded/request.h"

namespace salerpt::shell {
namespace {

struct RequestOptions {
  std::string class_name;
  std::string case_file;
};

void RunRequestCommand(const RequestOptions& options, Shell& shell) {
  const RequestCase request = ReadCaseFile(options.case_file, ReadRequestCase);
  const Json answer = RunRequest(options.class_name, request);
  shell.out << answer.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
  if (IsFailure(answer)) shell.status = 1;
  const Json& detail = answer.at("detail");
  if (detail.is_object() && detail.contains("error")) {
    shell.out.flush();
    shell.err << "salerpt: GetDetailReport: " << detail.at("error").value("description", "") << '\n';
  }
}

}  // namespace

void AddRequestCommand(CLI::App& app, Shell& shell) {
  auto options = std::make_shared<RequestOptions>();
  CLI::App* command =
      app.add_subcommand("request", "Show what a report would send, without a server, as one JSON object");
  command->add_option("CLASS", options->class_name, "Report class, such as Rpt128")->required();
  command->add_option("CASE.json", options->case_file, "The case: filter, settings, recorded answers")
      ->required();
  command->footer(
      "The report runs against a recorded suite that answers from CASE.json. Keys, all optional: props, "
      "profile,\n"
      "amountScale, dataRight, access, RptID, ExtFirter, Filter, answers, replies, faults, drill (row, from "
      "0), repeat.\n"
      "Exit status: 0 printed, 1 printed and the report answered a failure, 2 unreadable case or unknown "
      "class.");
  command->callback([options, &shell] { RunRequestCommand(*options, shell); });
}

}  // namespace salerpt::shell
