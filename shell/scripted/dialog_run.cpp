#include "shell/scripted/dialog_run.h"

#include <limits>
#include <memory>

#include "dialogs/dialogs.h"
#include "dialogs/table_dialog.h"
#include "runtime/mrpt.h"
#include "runtime/report_class.h"
#include "shell/recorded/shown.h"
#include "shell/scripted/control_state.h"
#include "shell/scripted/dialog_suite.h"
#include "shell/scripted/scripted_toolkit.h"
#include "shell/scripted/settings_folder.h"
#include "shell/suggest.h"

namespace salerpt::shell {
namespace {

// --- One step

class Script {
 public:
  Script(FormDialog& dialog, ScriptedToolkit& toolkit) : dialog_(dialog), toolkit_(toolkit) {}

  void Run(const JsonPlace& steps) {
    bool is_shown = false;
    steps.Elements([&](const JsonPlace& step) {
      const bool finishes = step.Value().contains("finish");
      if (!is_shown && !finishes) {
        dialog_.Load();
        dialog_.Activate();
      }
      is_shown = true;
      if (dialog_.IsUnloaded() && !step.Value().contains("state")) return;
      Do(step);
    });
    if (!is_shown) {
      dialog_.Load();
      dialog_.Activate();
    }
  }
  [[nodiscard]] const Json& States() const { return states_; }

 private:
  void Do(const JsonPlace& step);
  void PressKey(const JsonPlace& step);
  void ClickGrid(const JsonPlace& place);

  [[nodiscard]] Form& TheForm() const { return dialog_.GetForm(); }
  FormControl& Control(const JsonPlace& place) const {
    const std::string name = place.Text();
    if (FormControl* found = TheForm().Find(name)) return *found;
    std::vector<std::string_view> names;
    for (const auto& control : TheForm().Controls()) names.push_back(control->Name());
    place.Raise(Join(TheForm().form_name, " has no such control", KnownNames(name, names)));
  }
  template <typename T>
  T& ControlOf(const JsonPlace& place, std::string_view kind) const {
    if (auto* control = dynamic_cast<T*>(&Control(place))) return *control;
    place.RaiseExpected(kind);
  }
  // The one control of a kind that a dialog has.
  template <typename T>
  T& Only(const JsonPlace& step, std::string_view kind) const {
    for (const auto& control : TheForm().Controls()) {
      if (auto* found = dynamic_cast<T*>(control.get())) return *found;
    }
    step.Raise(Join(TheForm().form_name, " has no ", kind));
  }

  FormDialog& dialog_;
  ScriptedToolkit& toolkit_;
  Json states_ = Json::object();
};

constexpr auto kHighest = std::numeric_limits<std::int32_t>::max();

int Number(const JsonPlace& step, std::string_view key, int low, int high, int absent) {
  int number = absent;
  step.IfPresent(key, [&](const JsonPlace& place) { number = static_cast<int>(place.Whole(low, high)); });
  return number;
}

std::string Text(const JsonPlace& step, std::string_view key) {
  std::string text;
  step.IfPresent(key, [&](const JsonPlace& place) { text = place.Text(); });
  return text;
}

void Script::Do(const JsonPlace& step) {
  constexpr std::string_view kSteps[] = {"click", "check", "select", "type",   "paste",
                                         "focus", "leave", "date",   "key",    "plan",
                                         "tool",  "menu",  "grid",   "finish", "state"};
  bool done = false;
  const auto on = [&](std::string_view key, auto&& act) {
    step.IfPresent(key, [&](const JsonPlace& place) {
      if (done) return;
      done = true;
      act(place);
    });
  };
  on("click", [&](const JsonPlace& place) { TheForm().UserClick(Control(place)); });
  on("check", [&](const JsonPlace& place) {
    TheForm().UserCheck(ControlOf<CheckBox>(place, "a check box"), Number(step, "value", 0, 1, 1));
  });
  on("select", [&](const JsonPlace& place) {
    auto& list = ControlOf<ListControl>(place, "a combo box or list");
    TheForm().UserSelect(list, Number(step, "index", -1, static_cast<int>(list.Items().size()) - 1, 0));
  });
  on("type", [&](const JsonPlace& place) {
    auto& box = ControlOf<TextBox>(place, "a text box");
    if (box.IsAvailable()) TheForm().Type(box, Text(step, "text"));
  });
  on("paste", [&](const JsonPlace& place) {
    auto& box = ControlOf<TextBox>(place, "a text box");
    if (box.IsAvailable()) box.SetText(Text(step, "text"));
  });
  on("focus", [&](const JsonPlace& place) { TheForm().SetFocus(Control(place)); });
  on("leave", [&](const JsonPlace& place) {
    TheForm().SetFocus(Control(place));
    TheForm().LeaveFocus();
  });
  on("date", [&](const JsonPlace& place) {
    auto& picker = ControlOf<DatePicker>(place, "a date picker");
    const auto day = Date::Parse(Text(step, "value"));
    if (!day) step.Raise("\"value\": a date YYYY-MM-DD was expected");
    if (picker.IsAvailable()) picker.SetValue(*day);
  });
  on("key", [&](const JsonPlace&) { PressKey(step); });
  on("plan", [&](const JsonPlace& place) {
    auto& plans = Only<ListView>(step, "plan list");
    const std::string name = place.Text();
    for (const ListView::Row& row : plans.Rows()) {
      if (row.text == name) return plans.UserClick(name);
    }
    place.Raise("the plan list has no such row");
  });
  on("tool", [&](const JsonPlace& place) {
    auto& bar = Only<Toolbar>(step, "toolbar");
    Toolbar::ToolButton* button = bar.Find(place.Text());
    if (button == nullptr) place.Raise("the toolbar has no such button");
    bar.ButtonClick.Raise(*button);
  });
  on("menu", [&](const JsonPlace& place) {
    auto& bar = Only<Toolbar>(step, "toolbar");
    for (Toolbar::ToolButton& button : bar.buttons) {
      if (button.menu.empty()) continue;
      return bar.MenuClick.Raise(
          button, static_cast<int>(place.Whole(1, static_cast<std::int64_t>(button.menu.size()))));
    }
    place.Raise("no button of the toolbar has a menu");
  });
  on("grid", [&](const JsonPlace& place) { ClickGrid(place); });
  on("finish", [&](const JsonPlace& place) { dialog_.ShowFinish(place.Text()); });
  on("state", [&](const JsonPlace& place) { states_[place.Text()] = ShowControls(TheForm()); });
  if (done) return;
  const std::string first = step.Value().empty() ? std::string() : step.Value().begin().key();
  step.Raise(Join("\"", first, "\" is no step", KnownNames(first, kSteps)));
}

void Script::PressKey(const JsonPlace& step) {
  FormControl* control = TheForm().Focused();
  step.IfPresent("on", [&](const JsonPlace& place) { control = &Control(place); });
  if (control == nullptr) step.RaiseExpected("a control (\"on\") that the key is pressed in");
  TheForm().PressKey(*control, Number(step, "key", 0, kHighest, 0), Number(step, "shift", 0, 7, 0));
  if (toolkit_.TakeTab() && !dialog_.IsUnloaded()) TheForm().FocusNext();
}

void Script::ClickGrid(const JsonPlace& place) {
  std::vector<int> cell;
  place.Elements([&](const JsonPlace& number) {
    cell.push_back(static_cast<int>(number.Whole(0, OrderGrid::kCapacity)));
  });
  if (cell.size() != 2) place.RaiseExpected("an array [row, column], both from 1");
  Only<OrderGrid>(place, "sort grid").UserClick(cell[0], cell[1]);
}

// --- The dialog and its world

const std::string& DialogNamed(std::string_view class_name) {
  static const std::vector<std::string> names = DialogNames();
  for (const std::string& name : names) {
    if (EqualNames(name, class_name)) return name;
  }
  const std::vector<std::string_view> known(names.begin(), names.end());
  throw RuntimeError(error_number::kInvalidCall, "",
                     Join("\"", class_name, "\" is no dialog", KnownNames(class_name, known)));
}

// The family of the report that opens the dialog; of one that no report opens, its own number.
std::int32_t FamilyOf(std::string_view dialog) {
  for (const ReportClass& report_class : ReportClasses()) {
    if (report_class.dialog == dialog) return Variant(report_class.plan_family).ToInt32();
  }
  return Variant(dialog.substr(dialog.find_first_of("0123456789"))).ToInt32();
}

}  // namespace

Json RunDialog(Runtime& runtime, std::string_view class_name, const DialogCase& dialog_case) {
  const std::string& name = DialogNamed(class_name);
  const auto suite = std::make_shared<DialogSuite>(dialog_case);
  const Date today = dialog_case.today.value_or(runtime.GetPlatform().Now());
  suite->Register(runtime, today);
  const auto toolkit = std::make_shared<ScriptedToolkit>(suite, dialog_case.replies);
  runtime.SetToolkit(toolkit);
  const auto settings = std::make_shared<SettingsFolder>(today, dialog_case.settings);
  runtime.SetPlatform(settings);
  settings->WriteGiven(runtime.ini_file);
  // As the report that opens the dialog leaves them.
  runtime.ini_file.SetFileName(SettingsFolder::kReportFile);
  runtime.gLongNumber = IsLongNumber();

  const std::unique_ptr<FilterDialog> made = runtime.MakeDialog(name);
  auto& dialog = dynamic_cast<FormDialog&>(*made);
  dialog.SetRptID(dialog_case.rpt_id.value_or(FamilyOf(name)));
  Script script(dialog, *toolkit);
  script.Run(JsonPlace(dialog_case.steps, "/steps"));

  Json shown = Json::object();
  shown["Filter"] = Show(dialog.Filter());
  shown["closed"] = dialog.IsUnloaded();
  shown["CurrentPlan"] = dialog.CurrentPlan();
  shown["boxes"] = toolkit->boxes;
  shown["inputs"] = toolkit->inputs;
  shown["calls"] = suite->Calls();
  shown["keys"] = toolkit->keys;
  shown["settings"] = settings->Written();
  shown["controls"] = ShowControls(dialog.GetForm());
  shown["states"] = script.States();
  return shown;
}

Json RunDialog(std::string_view class_name, const DialogCase& dialog_case) {
  Runtime runtime;
  RegisterDialogs(runtime);
  return RunDialog(runtime, class_name, dialog_case);
}

}  // namespace salerpt::shell
