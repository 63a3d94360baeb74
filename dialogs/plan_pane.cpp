#include "dialogs/plan_pane.h"

#include <string>

#include "dialogs/ignoring.h"
#include "runtime/mmts.h"
#include "runtime/mparse.h"
#include "runtime/mrpt.h"
#include "runtime/runtime.h"
#include "runtime/toolkit.h"

namespace salerpt {
namespace {

std::string AskName(std::string_view title) {
  return Runtime::Current().GetToolkit().InputBox(ResText("请输入方案名："), ResText(title), "");
}

BoxAnswer Ask(std::string_view question) {
  return Runtime::Current().GetToolkit().MessageBox(question, kBoxYesNo, ResText(kHintTitle));
}

}  // namespace

PlanPane::PlanPane(Form& form, PlanOwner& owner, Kind kind, std::string_view save_prog_id)
    : PlanListPane(
          form, owner, "lvwProject",
          {{"TLBSAVE", "", 0, {}}, {"TLBDEL", "", 0, {}}, {"TLBCLEAR", "", 0, {}}, {"TLBVIEW", "", 0, {}}},
          save_prog_id),
      form_(form),
      kind_(kind) {}

void PlanPane::ApplyStrings() {
  PlanListPane::ApplyStrings();
  SetToolTip("TLBSAVE", "保存");
  SetToolTip("TLBDEL", "删除");
  SetToolTip("TLBCLEAR", "清除");
  SetToolTip("TLBVIEW", "查看");
}

void PlanPane::OnTool(std::string_view key) {
  if (key == "TLBSAVE") SaveNamed();
  if (key == "TLBDEL") Delete();
  if (key == "TLBCLEAR") ClearCodes();
}

// --- Save

void PlanPane::SaveNamed() {
  const std::string name = EscapeQuote(NameToSave());
  if (name.empty()) return;
  Save(name);
  Refill();
  SelectPlan(name);
}

// Empty where the user has cancelled.
std::string PlanPane::NameToSave() const {
  if (List().Rows().empty()) return ResText(kDefaultPlan);
  if (IsDefaultSelected()) return AskName("保存方案");
  if (kind_ == Kind::kCurrent && Ask(ResText("是否覆盖原方案？")) == BoxAnswer::kNo) return AskName("另存为");
  return List().SelectedText();
}

// At most the plan that is now saved may be the one for the next run.
void PlanPane::BeforeSave() {
  if (kind_ == Kind::kOlder) return;
  Ignoring([this] {
    Call(ObjectFactory::CreateServerObject("ORVMCaculateRpt.Profile"), "UpdateNextChooseValue",
         GetPropsString(), Owner().RptID());
  });
}

// --- Delete, clear

void PlanPane::Delete() {
  if (List().Rows().empty()) return;
  const std::string name = List().SelectedText();
  if (name == kDefaultPlan) {
    Runtime::Current().GetToolkit().MessageBox(ResText("不能删除默认方案！"), kBoxInformation,
                                               ResText(kHintTitle));
    return;
  }
  if (Ask(Join(ResText("是否要删除方案["), name, ResText("]？"))) != BoxAnswer::kYes) return;
  Ignoring([&] { DeletePlan(Owner().RptID(), EscapeQuote(name)); });
  ShowFirst();
}

void PlanPane::ClearCodes() {
  for (int i = 0; auto* field = form_.FindAs<TextBox>(ControlName("txtItem", i)); ++i) field->SetText("");
}

}  // namespace salerpt
