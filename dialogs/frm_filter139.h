// FrmFilter139, the filter dialog of the order production and sales tracking.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "dialogs/group_pane.h"
#include "dialogs/report_filter.h"
#include "dialogs/table_dialog.h"

namespace salerpt {

// The one dialog that is built on the suite's filter control: the control has the plans, OK, Cancel and the
// look-ups; the dialog has the fields and answers the control's events. The test switch does not reach it.
class FrmFilter139 final : public FormDialog {
 public:
  FrmFilter139();
  ~FrmFilter139() override;

  // --- What a report asks
  [[nodiscard]] std::string_view Name() const override { return form_.form_name; }
  void SetRptID(std::int32_t family) override { rpt_id_ = family; }
  void Load() override;
  void Activate() override;
  void Confirm() override;
  void ShowFinish(std::string_view plan) override;
  [[nodiscard]] DictionaryRef Filter() const override { return result_; }

  // The conditions: those of the control and what the dialog adds to them. "OK" is false until a confirmation
  // stands.
  [[nodiscard]] const DictionaryRef& Result() const { return result_; }
  // The condition text that the control composed.
  [[nodiscard]] const std::string& FilterString() const { return filter_string_; }

  // --- What a toolkit or a host asks
  [[nodiscard]] std::string CurrentPlan() const override;
  [[nodiscard]] PlanListPane* Plans() override;
  bool Choose(std::string_view key, const Variant& value) override;

  // Apostrophes doubled.
  static std::string ReplaceSpecailSql(std::string_view text);
  // A number from the list of orders (32) or of work orders (36), narrowed by what the field holds. Nothing
  // where the user cancelled and for any other list.
  static std::optional<std::string> SelectList(std::int32_t list_id, std::string_view search);

 private:
  void MakeControls();
  void MakeFields();
  void MakeExecution();
  void ApplyStrings();
  void FillBoxes();
  void ShowStartValues();
  void ConnectControl();

  // --- Rules
  void KeepOneExecution(CheckBox& unchecked);
  void CoupleCheckClose();
  // A grouped report has no execution filter.
  void EnableExecution();

  // --- Events of the control
  void OnReset();
  void OnValidate(bool& cancel);
  void OnConfirm(bool cancel);
  void OnLoad(const Dictionary& state);
  void OnSave(Dictionary& state) const;
  static void OnBeforeLookUp(ReportFilter::LookUpRequest& request);

  void LoadExecution(const Dictionary& state);
  [[nodiscard]] ListControl& Box(std::string_view name) const { return form_.Get<ListControl>(name); }
  [[nodiscard]] CheckBox& Check(std::string_view name) const { return form_.Get<CheckBox>(name); }
  [[nodiscard]] bool IsPlainList() const;

  std::unique_ptr<GroupPane> group_pane_;
  std::unique_ptr<ReportFilter> control_;
  DictionaryRef result_;
  std::string filter_string_;
  std::int32_t rpt_id_ = 0;
};

}  // namespace salerpt
