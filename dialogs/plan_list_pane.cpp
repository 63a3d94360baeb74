#include "dialogs/plan_list_pane.h"

#include <memory>
#include <utility>

#include "dialogs/ignoring.h"
#include "runtime/mmts.h"
#include "runtime/mparse.h"
#include "runtime/runtime.h"

namespace salerpt {
namespace {

constexpr int kViews = 4;
constexpr int kPlanIcon = 1;

// The rows of a plan that the store could not give: none, so that every key takes its default.
RecordsetRef NoRows() {
  RecordsetRef rows = MakeRecordset();
  rows->AppendField("FKey", FieldType::kVarChar, Recordset::kUnspecified);
  rows->AppendField("FValue", FieldType::kVarChar, Recordset::kUnspecified);
  rows->Open();
  return rows;
}

// The default plan is stored under one name in every language.
std::string_view StoredName(std::string_view name) {
  return name == ResText(kDefaultPlan) ? kDefaultPlan : name;
}

}  // namespace

std::string EscapeQuote(std::string_view text) {
  return std::string(Trim(Replace(text, "'", "''")));
}

PlanListPane::PlanListPane(Form& form, PlanOwner& owner, std::string_view list_name,
                           std::vector<Toolbar::ToolButton> buttons, std::string_view save_prog_id)
    : owner_(owner),
      toolbar_(form.Add<Toolbar>("tlbProject")),
      list_(form.Add<ListView>(std::string(list_name))),
      label_(form.Add<Label>("lblProject")),
      save_prog_id_(save_prog_id) {
  toolbar_.buttons = std::move(buttons);
  toolbar_.ButtonClick.Connect([this](Toolbar::ToolButton& button) { OnButton(button); });
  toolbar_.MenuClick.Connect([this](Toolbar::ToolButton& button, int entry) { OnMenu(button, entry); });
  list_.ItemClick.Connect([this] { LoadPlan(list_.SelectedText()); });
  // A plan is renamed by saving it under another name.
  list_.BeforeLabelEdit.Connect([](bool& cancel) { cancel = true; });
}

void PlanListPane::ApplyStrings() {
  label_.caption = ResText("方案：");
  list_.column_header = ResText("方案");
  toolbar_.Find("TLBVIEW")->menu = {ResText("大图标(&G)"), ResText("小图标(&M)"), ResText("列表(&L)"),
                                    ResText("详细资料(&D)")};
}

void PlanListPane::SetToolTip(std::string_view key, std::string_view tool_tip) {
  toolbar_.Find(key)->tool_tip = ResText(tool_tip);
}

// --- The list

void PlanListPane::Load() {
  Refill();
  list_.view = 0;
  toolbar_.Find("TLBVIEW")->tag = 0;
  LoadPlan(list_.Rows().empty() ? ResText(kDefaultPlan) : list_.SelectedText());
}

RecordsetRef PlanListPane::Fill(std::int32_t rpt_id) {
  RecordsetRef rows = LoadPlanList(rpt_id, list_);
  list_.SetIcons(kPlanIcon);
  return rows;
}

void PlanListPane::Refill() {
  Ignoring([this] { Fill(owner_.RptID()); });
}

void PlanListPane::SelectPlan(std::string_view name) {
  list_.SelectKey(Join("P", name));
}

void PlanListPane::ShowFirst() {
  Refill();
  if (!list_.Rows().empty()) list_.Select(0);
  LoadPlan(list_.SelectedText());
}

bool PlanListPane::IsDefaultSelected() const {
  return list_.SelectedText() == ResText(kDefaultPlan);
}

// --- Plans

void PlanListPane::LoadPlan(std::string_view name) {
  // The name may be the list's own text, which the list gives up when it is filled.
  const std::string wanted(name);
  if (list_.Rows().empty()) {
    const std::string default_plan = ResText(kDefaultPlan);
    list_.Add(default_plan, default_plan);
    list_.SetIcons(kPlanIcon);
    list_.Select(0);
  }
  const std::string_view stored = StoredName(wanted);
  RecordsetRef rows;
  Ignoring([&] {
    rows = GetPlanRows(owner_.RptID(), stored == kDefaultPlan ? std::string(stored) : EscapeQuote(stored));
  });
  current_ = wanted;
  owner_.RestorePlan(rows ? rows : NoRows());
}

bool PlanListPane::Save(std::string_view name) {
  current_ = name;
  return Store(name);
}

bool PlanListPane::Store(std::string_view name) {
  auto rows = std::make_shared<Vector>();
  BeforeSave();
  owner_.CollectPlan(StoredName(name), *rows);
  bool is_saved = false;
  Ignoring([&] {
    Call(ObjectFactory::CreateServerObject(save_prog_id_), "SaveProfile", GetPropsString(), rows);
    is_saved = true;
  });
  return is_saved;
}

void PlanListPane::SaveIfDefault() {
  if (keeps_default_ && Trim(current_) == ResText(kDefaultPlan)) Store(kDefaultPlan);
}

// --- The toolbar

void PlanListPane::OnButton(Toolbar::ToolButton& button) {
  const std::string key = UpperCase(button.key);
  if (key != "TLBVIEW") {
    OnTool(key);
    return;
  }
  button.tag = (button.tag + 1) % kViews;
  list_.view = button.tag;
}

// The next press of the button goes on from the view that was chosen.
void PlanListPane::OnMenu(Toolbar::ToolButton& button, int entry) {
  if (entry < 1 || entry > static_cast<int>(button.menu.size())) {
    throw RuntimeError(error_number::kInvalidCall, "Toolbar",
                       Join(button.key, " has no menu entry ", entry, "; 1 to ",
                            static_cast<int>(button.menu.size()), " was expected"));
  }
  list_.view = entry - 1;
  button.tag = entry - 1;
}

}  // namespace salerpt
