#include "shell/host.h"

#include <algorithm>
#include <map>
#include <memory>
#include <utility>

#include "dialogs/unattended.h"
#include "reports/reports.h"
#include "runtime/mrpt.h"
#include "runtime/text.h"
#include "shell/failure.h"
#include "shell/shell_toolkit.h"
#include "shell/suggest.h"
#include "suite/accountset/accountset.h"

namespace salerpt::shell {
namespace {

std::string FailureText(std::string_view report, const Dictionary& result) {
  const std::string error = result.Get("Error").TextOrEmpty();
  const std::string source = result.Get("ErrorSource").TextOrEmpty();
  std::string text = Join(report, ": ", error.empty() ? "it was refused; a box above may tell why" : error);
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

}  // namespace

const ReportClass& RequireReportClass(std::string_view name) {
  if (const ReportClass* found = FindReportClass(name)) return *found;
  const auto all = NamesWhere([](const ReportClass&) { return true; });
  RaiseUsage(Join("unknown report class \"", name, "\"", KnownNames(name, all)));
}

Host::Host(const std::filesystem::path& db, Shell& shell, ProgressBar::Style progress,
           middletier::ListWindow window)
    : bar_(shell.err, progress) {
  auto account_set = std::make_shared<accountset::AccountSet>(accountset::AccountSet::Open(db));
  middletier::RegisterMiddleTier(runtime_, std::move(account_set), middletier::Login{}, std::move(window));
  RegisterReports(runtime_);
  toolkit_ = std::make_shared<ShellToolkit>(shell.err, bar_);
  runtime_.SetToolkit(toolkit_);
}

namespace {

std::vector<std::string_view> PlanNames(const ListView& list) {
  std::vector<std::string_view> names;
  for (const ListView::Row& row : list.Rows()) names.push_back(row.text);
  return names;
}

ListView& PlanListOf(FormDialog& dialog) {
  for (const char* name : {"lvwProject", "LvwScheme"}) {
    if (auto* list = dialog.GetForm().FindAs<ListView>(name)) return *list;
  }
  RaiseUsage(Join(dialog.Name(), " has no plans"));
}

// Presses the button that stores the controls under a new name; the toolkit types it.
void SaveAsPlan(FormDialog& dialog) {
  auto& toolbar = dialog.GetForm().Get<Toolbar>("tlbProject");
  Toolbar::ToolButton* button = toolbar.Find("TLBSAVEAS");
  if (button == nullptr) {
    // The default plan is never saved under its own name: the button asks for one.
    PlanListOf(dialog).Select(0);
    button = toolbar.Find("TLBSAVE");
  }
  toolbar.ButtonClick.Raise(*button);
}

// The store of plans while one is saved. A dialog passes over what the store refuses; who saves by a command
// has no list before his eyes in which the plan would be missing, and is told.
class WatchedStore final : public Object {
 public:
  WatchedStore(ObjectRef store, std::string& failure) : store_(std::move(store)), failure_(failure) {}
  [[nodiscard]] std::string_view ClassName() const override { return store_->ClassName(); }
  Variant Invoke(std::string_view member, InvokeKind kind, Arguments arguments) override {
    try {
      return store_->Invoke(member, kind, arguments);
    } catch (const RuntimeError& error) {
      if (EqualNames(member, "SaveProfile")) failure_ = error.Description();
      throw;
    }
  }

 private:
  ObjectRef store_;
  std::string& failure_;
};

// Runs `save` with the stores of plans watched; gives why one of them did not save, empty where none failed.
template <typename Save>
std::string FailureOf(Runtime& runtime, Save&& save) {
  std::string failure;
  std::map<std::string, Runtime::ObjectMaker> makers;
  for (const char* prog_id : {"ORVMCaculateRpt.Profile", "ORVMYWARAPRpt.Profile"}) {
    const Runtime::ObjectMaker make = makers[prog_id] = runtime.FindMaker(prog_id);
    runtime.Register(prog_id, [make, &failure] { return std::make_shared<WatchedStore>(make(), failure); });
  }
  std::forward<Save>(save)();
  for (const auto& [prog_id, make] : makers) runtime.Register(prog_id, make);
  return failure;
}

// A plan that is not there would run as the defaults.
void RequirePlan(const ReportClass& report_class, std::int32_t family, std::string_view plan) {
  if (plan.empty()) return;
  const auto made = Runtime::Current().MakeDialog(report_class.dialog);
  auto& dialog = dynamic_cast<FormDialog&>(*made);
  dialog.SetRptID(family);
  dialog.Load();
  const auto names = PlanNames(PlanListOf(dialog));
  if (std::find(names.begin(), names.end(), plan) != names.end()) return;
  RaiseUsage(Join("--plan ", plan, ": ", report_class.name, " has no such plan", KnownNames(plan, names)));
}

}  // namespace

void Host::UseDialog(FilterDialog& dialog, const DialogRun& run,
                     const std::vector<Dictionary::Entry>& conditions) {
  auto& form_dialog = dynamic_cast<FormDialog&>(dialog);
  form_dialog.Load();
  if (!run.plan.empty()) form_dialog.Plans()->LoadPlan(run.plan);
  if (!run.save_plan.empty()) {
    for (const Dictionary::Entry& condition : conditions) form_dialog.Choose(condition.key, condition.value);
    save_failure_ = FailureOf(runtime_, [&] { SaveAsPlan(form_dialog); });
  }
  ConfirmWith(form_dialog, conditions);
}

ObjectRef Host::Run(const ReportClass& report_class, DialogRun run) {
  const ObjectRef report = CreateObject(ReportProgID(report_class.name));
  std::erase_if(run.choices, [&report](const Choice& choice) {
    if (!EqualNames(choice.key, "RptID")) return false;
    LetMember(report, "RptID", TypedValue(choice, std::int32_t{0}));
    return true;
  });
  const auto conditions = TypedConditions(report_class.dialog, run.choices);
  RequirePlan(report_class, Variant(report_class.plan_family).ToInt32(), run.plan);
  toolkit_->SetTypedText(run.save_plan);
  toolkit_->SetUser([&](FilterDialog& dialog) { UseDialog(dialog, run, conditions); });
  Call(report, "ShowFilter", run.automatic);
  toolkit_->SetUser(nullptr);
  if (!save_failure_.empty()) RaiseUsage(Join("--save-plan ", run.save_plan, ": ", save_failure_));
  RequireSuccess(report_class.name, report);
  Call(report, "GetReportData");
  RequireSuccess(report_class.name, report);
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
