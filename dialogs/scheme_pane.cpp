#include "dialogs/scheme_pane.h"

#include <algorithm>
#include <string>

#include "dialogs/ignoring.h"
#include "runtime/mparse.h"
#include "runtime/mrpt.h"
#include "runtime/runtime.h"
#include "runtime/toolkit.h"

namespace salerpt {
namespace {

constexpr int kBoxPlain = 0;

// A box about a plan, whose name stands for %1.
BoxAnswer Tell(std::string_view text, std::string_view plan, int style) {
  return Runtime::Current().GetToolkit().MessageBox(Replace(ResText(text), "%1", plan), style, NoticeTitle());
}

void Beep() {
  Runtime::Current().GetToolkit().Beep();
}

}  // namespace

SchemePane::SchemePane(Form& form, PlanOwner& owner)
    : PlanListPane(
          form, owner, "LvwScheme",
          {{"TLBSAVE", "", 0, {}}, {"TLBDEL", "", 0, {}}, {"TLBSAVEAS", "", 0, {}}, {"TLBVIEW", "", 0, {}}},
          "ORVMCaculateRpt.Profile") {}

void SchemePane::ApplyStrings() {
  PlanListPane::ApplyStrings();
  SetToolTip("TLBSAVE", "保存");
  SetToolTip("TLBDEL", "删除");
  SetToolTip("TLBSAVEAS", "另存为");
}

void SchemePane::FillPlanListView(std::int32_t rpt_id, RecordsetRef& result) {
  result = Fill(rpt_id);
}

void SchemePane::OnTool(std::string_view key) {
  if (key == "TLBSAVE") SaveNamed(false);
  if (key == "TLBSAVEAS") SaveNamed(true);
  if (key == "TLBDEL") Delete();
}

void SchemePane::SaveNamed(bool under_new_name) {
  Toolkit& toolkit = Runtime::Current().GetToolkit();
  const bool asks = under_new_name || IsDefaultSelected();
  const std::string name = EscapeQuote(
      asks ? toolkit.InputBox(ResText("请输入方案名:"), ResText("保存方案"), "") : List().SelectedText());
  if (name.empty()) return;
  if (under_new_name && HasRow(name) &&
      Tell("方案[%1]已存在,是否替换?", name, kBoxYesNo) != BoxAnswer::kYes) {
    return;
  }
  const bool is_saved = Save(name);
  Refill();
  SelectPlan(name);
  if (is_saved) Tell("方案[%1]保存成功!", name, kBoxPlain);
}

bool SchemePane::HasRow(std::string_view text) const {
  const auto& rows = List().Rows();
  return std::any_of(rows.begin(), rows.end(), [text](const ListView::Row& row) { return row.text == text; });
}

void SchemePane::Delete() {
  if (List().Rows().empty()) return;
  if (IsDefaultSelected()) {
    Tell("不能删除新方案！", "", kBoxPlain);
    Beep();
    return;
  }
  const std::string name = List().SelectedText();
  if (Tell("确定要删除方案[%1]?", name, kBoxYesNo) == BoxAnswer::kNo) {
    Beep();
    return;
  }
  Ignoring([&] { DeletePlan(Owner().RptID(), EscapeQuote(name)); });
  // Kept: an empty statement follows, as the suite's own dialogs send it.
  Ignoring([] { ExecuteSQL(""); });
  ShowFirst();
}

}  // namespace salerpt
