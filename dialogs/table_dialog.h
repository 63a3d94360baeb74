// The filter dialog: what all of them share, over the table of one.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "dialogs/dialog_table.h"
#include "dialogs/form.h"
#include "dialogs/group_pane.h"
#include "dialogs/look_up.h"
#include "dialogs/plan_pane.h"
#include "dialogs/sort_pane.h"
#include "runtime/filter_dialog.h"
#include "runtime/recordset.h"

namespace salerpt {

// A dialog that has a form, as a toolkit or a script drives it.
class FormDialog : public FilterDialog {
 public:
  [[nodiscard]] Form& GetForm() { return form_; }
  [[nodiscard]] bool IsUnloaded() const override { return unloaded_; }
  // The plan on show; empty in a dialog without plans of its own.
  [[nodiscard]] virtual std::string CurrentPlan() const { return {}; }
  // The plan list of a loaded dialog; null in a dialog without one.
  [[nodiscard]] virtual PlanListPane* Plans() { return nullptr; }
  // Sets the control behind a key of `Filter` so that a confirmation writes the value; false where no control
  // of the dialog can show it. For hosts that run a dialog without a person.
  virtual bool Choose(std::string_view /*key*/, const Variant& /*value*/) { return false; }

 protected:
  // The form leaves the screen; `Filter` stays.
  void Unload() { unloaded_ = true; }
  Form form_;

 private:
  bool unloaded_ = false;
};

// Life: made, loaded (controls filled, the chosen plan applied), shown or not, then confirmed ("OK" true) or
// cancelled ("OK" false), both of which unload it; a refused confirmation leaves it shown. One object serves
// one ShowFilter; the report reads `Filter` behind it.
//
// A dialog with something of its own derives from this and overrides the step in question.
class TableDialog : public FormDialog, public PlanOwner {
 public:
  // The table must outlive the dialog. The controls are made at load.
  explicit TableDialog(const DialogTable& table);
  ~TableDialog() override;

  // --- What a report asks (FilterDialog)
  [[nodiscard]] std::string_view Name() const override { return table_.name; }
  void SetRptID(std::int32_t family) override { rpt_id_ = family; }
  // Stored and given back only: no control hangs on them. Reports set them.
  void SetStatus(std::int32_t value, bool visible) override;
  void SetNeedGroup(std::int16_t value) override { need_group_ = value; }
  [[nodiscard]] std::int16_t NeedGroup() const { return need_group_; }
  [[nodiscard]] std::int16_t StatusVisible() const { return status_visible_; }
  [[nodiscard]] std::int32_t StatusValue() const { return status_value_; }
  // Form load. Once; later calls do nothing.
  void Load() override;
  // The form comes to the front: the test switch may confirm it by itself.
  void Activate() override;
  // The click of `cmdOK`.
  void Confirm() override;
  void ShowFinish(std::string_view plan) override;
  [[nodiscard]] DictionaryRef Filter() const override { return filter_; }

  // --- PlanOwner
  [[nodiscard]] std::int32_t RptID() const override { return rpt_id_; }
  void CollectPlan(std::string_view plan, Vector& rows) override;
  void RestorePlan(const RecordsetRef& rows) override;

  [[nodiscard]] std::string CurrentPlan() const override {
    return plan_pane_ ? plan_pane_->CurrentPlan() : std::string();
  }
  [[nodiscard]] PlanListPane* Plans() override { return plan_pane_.get(); }
  bool Choose(std::string_view key, const Variant& value) override;
  [[nodiscard]] const DialogTable& Table() const { return table_; }
  [[nodiscard]] GroupPane* Groups() const { return group_pane_.get(); }
  [[nodiscard]] SortPane* Sorting() const { return sort_pane_.get(); }

 protected:
  // --- Steps that a dialog may have of its own
  // The panes, for dialogs whose panes differ.
  virtual std::unique_ptr<PlanPane> MakePlanPane();
  virtual std::unique_ptr<GroupPane> MakeGroupPane();
  virtual std::unique_ptr<SortPane> MakeSortPane();
  // Language resources of the form; a failure leaves the captions as they are.
  virtual void ApplyLanguage();
  // At load, after the lists are filled and before the plans are listed.
  virtual void LoadOwn() {}
  // Whether the dialog may be confirmed; tells the user why not.
  virtual bool AcceptRange();
  // Writes one key into `Filter`.
  virtual void WriteKey(const FilterKey& key);
  // Sets one control from the value of a plan.
  virtual void RestoreKey(const PlanKey& key, const std::string& value);
  // The value of one plan key.
  [[nodiscard]] virtual std::string PlanValue(const PlanKey& key);
  // The look-up of a code field.
  virtual void OpenLookUp(const CodeRange& range, int index);
  // The key handlers of the form.
  virtual void OnKeyDown(KeyStroke& key);
  virtual void OnKeyPress(KeyStroke& key);

  // The click of `cmdCacel`.
  virtual void Cancel();
  // The dialog's section of the settings file: the family's number and "ORVSaleRpt".
  [[nodiscard]] std::string SettingsSection() const;
  [[nodiscard]] TextBox& CodeField(int index) const { return form_.Get<TextBox>("txtItem", index); }
  [[nodiscard]] ListControl& Box(std::string_view name) const { return form_.Get<ListControl>(name); }
  DictionaryRef filter_;

 private:
  void MakeControls();
  void MakeRange();
  void MakeCodeFields();
  void ApplyStrings();
  void FillBoxes();
  void ReadNameListSetting();
  void WriteFilter();
  [[nodiscard]] std::string DefaultOf(const PlanKey& key);
  [[nodiscard]] std::vector<const PlanKey*> RestoreOrder() const;
  [[nodiscard]] bool IsCurrent() const { return table_.family != DialogFamily::kOlder; }

  const DialogTable& table_;
  std::unique_ptr<PlanPane> plan_pane_;
  std::unique_ptr<GroupPane> group_pane_;
  std::unique_ptr<SortPane> sort_pane_;
  std::unique_ptr<class NameList> name_list_;
  std::unique_ptr<class PeriodFields> periods_;
  std::int32_t rpt_id_ = 0;
  std::int16_t need_group_ = 0;
  std::int16_t status_visible_ = -1;
  std::int32_t status_value_ = 0;
  bool loaded_ = false;
};

}  // namespace salerpt
