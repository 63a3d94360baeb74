// `salerpt plans`: the stored plans of a family of reports.
#include <charconv>
#include <memory>
#include <ostream>
#include <string>

#include "runtime/report_class.h"
#include "runtime/text.h"
#include "shell/commands.h"
#include "shell/failure.h"
#include "shell/report_command.h"
#include "shell/sql_output.h"
#include "suite/accountset/accountset.h"
#include "suite/middletier/middletier.h"
#include "suite/tsql/session.h"

namespace salerpt::shell {
namespace {

struct PlansOptions {
  std::string family;
  std::string db = "salerpt.db";
  std::string format = "table";
};

// By its number, or by a class of report that belongs to it.
int FamilyNumber(std::string_view family) {
  const ReportClass* report_class = FindReportClass(family);
  const std::string_view digits = report_class != nullptr ? report_class->plan_family : family;
  int number = 0;
  const auto [end, failure] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  if (failure != std::errc() || end != digits.data() + digits.size()) {
    RaiseUsage(Join("unknown plan family \"", family,
                    "\": a number such as 166 or a report class such as Rpt128 was expected (see: salerpt "
                    "reports)"));
  }
  return number;
}

// The plans of the user in whose name the shell works.
std::string PlansText(int family) {
  return Join(
      "Select p.FPlan As [plan],p.FStatus As [chosen],p.FNextChoose As [next],v.FKey As [key],"
      "v.FValue As [value]\r\n"
      "From t_RptPlan p\r\n"
      "Left Join t_RptPlanValue v On p.FUserID=v.FUserID And p.FRptID=v.FRptID And p.FPlan=v.FPlan\r\n"
      "Where p.FUserID=",
      middletier::Login{}.user_id, " And p.FRptID=", family,
      "\r\n"
      "Order By p.FPlan,v.FIndex");
}

void RunPlans(const PlansOptions& options, Shell& shell) {
  const int family = FamilyNumber(options.family);
  const auto output = MakeSqlOutput(options.format, shell.out);
  const auto account_set = accountset::AccountSet::Open(options.db);
  tsql::Session session(account_set.Connection());
  session.Execute(PlansText(family), *output);
}

}  // namespace

void AddPlansCommand(CLI::App& app, Shell& shell) {
  auto options = std::make_shared<PlansOptions>();
  CLI::App* command = app.add_subcommand("plans", "List the stored filter plans of a family of reports");
  command
      ->add_option("FAMILY", options->family,
                   "Number of the family, or a report class of it (see: salerpt reports)")
      ->required();
  AddDbOption(*command, options->db);
  command->add_option("--format", options->format, "table, csv or json")
      ->capture_default_str()
      ->type_name("NAME");
  command->footer(
      "One line for a value, in the order in which they were saved. chosen 1: the plan on which the dialog "
      "opens; next 1:\n"
      "the plan that runs next time without the dialog.");
  command->callback([options, &shell] { RunPlans(*options, shell); });
}

}  // namespace salerpt::shell
