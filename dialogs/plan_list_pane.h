// What the plan lists of all dialogs have in common.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "dialogs/form.h"
#include "runtime/recordset.h"
#include "runtime/vector.h"
#include "sqltoolkit/plan_store.h"

namespace salerpt {

// What a plan list asks of its dialog.
class PlanOwner {
 public:
  virtual ~PlanOwner() = default;
  // The plan family.
  [[nodiscard]] virtual std::int32_t RptID() const = 0;
  // Appends the rows of a plan, one AddPlanRow per key, in saving order.
  virtual void CollectPlan(std::string_view plan, Vector& rows) = 0;
  // Sets the controls from a plan's rows; there may be none, and every key then takes its default. A value
  // that a control does not take is left out; the others are set.
  virtual void RestorePlan(const RecordsetRef& rows) = 0;
};

// Apostrophes doubled and blanks trimmed: a plan's name as it is stored.
std::string EscapeQuote(std::string_view text);

// A list of named, stored sets of the dialog's values, its label `lblProject` and its toolbar `tlbProject`
// with the button "TLBVIEW". What else the toolbar has, and how a plan gets its name, differs by kind.
//
// Saving, loading and deleting ignore failures of the plan store, each call on its own: the list then stays
// as it is, and a plan that cannot be read gives the defaults of all keys.
class PlanListPane {
 public:
  PlanListPane(const PlanListPane&) = delete;
  PlanListPane& operator=(const PlanListPane&) = delete;
  virtual ~PlanListPane() = default;

  // Captions and tool tips.
  virtual void ApplyStrings();
  // Form load: the list from the store, icons, the view, and the selected plan onto the controls.
  void Load();
  // The plan of a list text (or of any name) onto the controls; CurrentPlan follows.
  void LoadPlan(std::string_view name);
  // A confirmation on the default plan saves the controls to it; on any other plan nothing.
  void SaveIfDefault();
  // Without it, a confirmation leaves the default plan as it is: where no person sits at the dialog, what is
  // confirmed is nobody's choice for the next time.
  void KeepDefault(bool keeps) { keeps_default_ = keeps; }
  // The plan on show.
  [[nodiscard]] const std::string& CurrentPlan() const { return current_; }

 protected:
  // Makes the controls on the form; `save_prog_id` is the object that saves.
  PlanListPane(Form& form, PlanOwner& owner, std::string_view list_name,
               std::vector<Toolbar::ToolButton> buttons, std::string_view save_prog_id);

  // A button other than "TLBVIEW", its key in upper case.
  virtual void OnTool(std::string_view key) = 0;
  // Before the rows of a plan are collected.
  virtual void BeforeSave() {}

  // Stores the controls under a name, which becomes the plan on show. False where the store failed.
  bool Save(std::string_view name);
  // The list of a family from the store, with icons; gives the rows of the store and raises what it raises.
  RecordsetRef Fill(std::int32_t rpt_id);
  // The dialog's own.
  void Refill();
  // The row of a stored plan, where there is one.
  void SelectPlan(std::string_view name);
  // The list anew, and its first plan onto the controls.
  void ShowFirst();
  [[nodiscard]] bool IsDefaultSelected() const;
  void SetToolTip(std::string_view key, std::string_view tool_tip);
  [[nodiscard]] ListView& List() const { return list_; }
  [[nodiscard]] PlanOwner& Owner() const { return owner_; }

 private:
  bool Store(std::string_view name);
  void OnButton(Toolbar::ToolButton& button);
  void OnMenu(Toolbar::ToolButton& button, int entry);

  PlanOwner& owner_;
  Toolbar& toolbar_;
  ListView& list_;
  Label& label_;
  std::string save_prog_id_;
  std::string current_;
  bool keeps_default_ = true;
};

}  // namespace salerpt
