#include "shell/host.h"

#include <algorithm>
#include <memory>

#include "reports/reports.h"
#include "runtime/mrpt.h"
#include "runtime/text.h"
#include "shell/failure.h"
#include "shell/shell_toolkit.h"
#include "shell/suggest.h"
#include "suite/accountset/accountset.h"
#include "suite/middletier/middletier.h"

namespace salerpt::shell {
namespace {

std::string FailureText(std::string_view report, const Dictionary& result) {
  const std::string error = result.Get("Error").TextOrEmpty();
  const std::string source = result.Get("ErrorSource").TextOrEmpty();
  std::string text = Join(report, ": ", error.empty() ? "the report failed without a word" : error);
  if (!source.empty()) Append(text, " (", source, ")");
  return text;
}

void RequireSuccess(std::string_view name, const ObjectRef& report) {
  const auto result = As<Dictionary>(GetMember(report, "Result"));
  if (!result->Get("OK").ToBoolean()) throw ReportFailure(FailureText(name, *result));
}

std::vector<std::string_view> NamesWhere(bool (*wanted)(const ReportClass&)) {
  std::vector<std::string_view> names;
  for (const ReportClass& report_class : ReportClasses()) {
    if (wanted(report_class)) names.push_back(report_class.name);
  }
  return names;
}

void RequireMade(const Runtime& runtime, const ReportClass& report_class) {
  if (runtime.IsRegistered(ReportProgID(report_class.name))) return;
  const auto all =
      NamesWhere([](const ReportClass& c) { return Runtime::Current().IsRegistered(ReportProgID(c.name)); });
  RaiseUsage(
      Join(report_class.name, " (", report_class.title, ") is not in this build", KnownNames("", all)));
}

}  // namespace

const ReportClass& RequireReportClass(std::string_view name) {
  if (const ReportClass* found = FindReportClass(name)) return *found;
  const auto all = NamesWhere([](const ReportClass&) { return true; });
  RaiseUsage(Join("unknown report class \"", name, "\"", KnownNames(name, all)));
}

Host::Host(const std::filesystem::path& db, Shell& shell, ProgressBar::Style progress)
    : bar_(shell.err, progress) {
  auto account_set = std::make_shared<accountset::AccountSet>(accountset::AccountSet::Open(db));
  middletier::RegisterMiddleTier(runtime_, std::move(account_set), middletier::Login{});
  RegisterReports(runtime_);
  runtime_.SetToolkit(std::make_shared<ShellToolkit>(shell.err, bar_));
}

DictionaryRef Host::Conditions(const ReportClass& report_class, const std::vector<Choice>& choices) {
  RequireMade(runtime_, report_class);
  const auto dialog = runtime_.MakeDialog(report_class.dialog);
  auto* unattended = dynamic_cast<UnattendedDialog*>(dialog.get());
  if (unattended == nullptr) RaiseUsage(Join(report_class.dialog, " cannot be run without a screen"));
  return Confirm(*unattended, choices);
}

namespace {

void FetchInto(const ReportClass& report_class, const ObjectRef& report, const DictionaryRef& filter) {
  SetMember(report, "Filter", filter);
  Call(report, "GetReportData");
  RequireSuccess(report_class.name, report);
}

}  // namespace

ObjectRef Host::Run(const ReportClass& report_class, std::vector<Choice> choices) {
  RequireMade(runtime_, report_class);
  ObjectRef report = CreateObject(ReportProgID(report_class.name));
  std::erase_if(choices, [&report](const Choice& choice) {
    if (!EqualNames(choice.key, "RptID")) return false;
    LetMember(report, "RptID", TypedValue(choice, std::int32_t{0}));
    return true;
  });
  FetchInto(report_class, report, Conditions(report_class, choices));
  return report;
}

ObjectRef Host::Fetch(const ReportClass& report_class, const DictionaryRef& filter) {
  ObjectRef report = CreateObject(ReportProgID(report_class.name));
  FetchInto(report_class, report, filter);
  return report;
}

ObjectRef Host::Detail(const ReportClass& report_class, const ObjectRef& report, std::int32_t row) {
  if (report_class.drill_target.empty()) {
    const auto with = NamesWhere([](const ReportClass& c) { return !c.drill_target.empty(); });
    RaiseUsage(Join(report_class.name, " has no detail report", KnownNames("", with)));
  }
  const auto rows = As<Recordset>(GetMember(report, "Rs"));
  const std::int32_t count = rows ? rows->RecordCount() : 0;
  if (row < 0 || row >= count) {
    RaiseUsage(Join("--row ", row, ": ", report_class.name, " answered ", count, " rows, counted from 0"));
  }
  ObjectRef detail;
  try {
    detail = Call(report, "GetDetailReport", row).ToObject();
  } catch (const RuntimeError& error) {
    throw ReportFailure(Join(report_class.drill_target, ": ", error.Description()));
  }
  if (!detail)
    throw ReportFailure(Join("row ", row, " of ", report_class.name, " has no detail: a total row has none"));
  return detail;
}

Sheet Host::Read(const ObjectRef& report) {
  return ReadSheet(report, AmountScale());
}

}  // namespace salerpt::shell
