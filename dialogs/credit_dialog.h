// The filter dialogs of the credit reports: what `frmFirter145`, `frmFirter146` and `frmFirter149` share.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "dialogs/scheme_pane.h"
#include "dialogs/table_dialog.h"
#include "runtime/object.h"

namespace salerpt {

// The rows of one plan, written key by key.
class PlanWriter {
 public:
  PlanWriter(std::int32_t rpt_id, std::string_view plan, Vector& rows)
      : rpt_id_(rpt_id), plan_(plan), rows_(rows) {}
  // As typed, apostrophes doubled.
  void Code(std::string_view key, const TextBox& field);
  void Index(std::string_view key, const ListControl& box);
  void Day(std::string_view key, const DatePicker& picker);

 private:
  std::int32_t rpt_id_;
  std::string_view plan_;
  Vector& rows_;
};

// The rows of one plan, put into the controls key by key. A value that a control does not take is left out.
class PlanReader {
 public:
  explicit PlanReader(RecordsetRef rows) : rows_(std::move(rows)) {}
  // Empty where the plan lacks the key.
  void Code(std::string_view key, TextBox& field) const;
  // The first row where it does.
  void Index(std::string_view key, ListControl& box) const;
  // Today where it does.
  void Day(std::string_view key, DatePicker& picker) const;

 private:
  RecordsetRef rows_;
};

// A dialog on the credit of customers, employees, departments or classes of them: the credit object, chosen
// in `cmbCreditObj`. The code fields `txtItem(2)` and `txtItem(3)` are the ends of its range. The keys of the
// code fields are the fields' own; the form has none.
class CreditDialog : public FormDialog, public PlanOwner {
 public:
  ~CreditDialog() override;

  // --- What a report asks (FilterDialog)
  [[nodiscard]] std::string_view Name() const override { return form_.form_name; }
  void SetRptID(std::int32_t family) override { rpt_id_ = family; }
  // Form load. Once; later calls do nothing.
  void Load() override;
  // The form comes to the front: the test switch may confirm it by itself.
  void Activate() override;
  // The click of `cmdOK`.
  void Confirm() override;
  void ShowFinish(std::string_view plan) override;
  [[nodiscard]] DictionaryRef Filter() const override { return filter_; }
  // The list of a plan family, and the rows that the store gave for it. Raises what the store raises.
  void FillPlanListView(std::int32_t rpt_id, RecordsetRef& result);

  [[nodiscard]] std::int32_t RptID() const override { return rpt_id_; }
  [[nodiscard]] std::string CurrentPlan() const override;
  [[nodiscard]] PlanListPane* Plans() override { return plans_.get(); }
  bool Choose(std::string_view key, const Variant& value) override;

 protected:
  // The ends of the range of the credit object.
  static constexpr int kBeginObject = 2;
  static constexpr int kEndObject = 3;

  explicit CreditDialog(std::string_view name);

  // --- Steps of a dialog's own
  // Dates and code fields, with their labels.
  virtual void MakeFields() = 0;
  // Whether the dialog may be confirmed; tells the user why not.
  virtual bool AcceptRange() { return true; }
  // Writes the keys behind "OK" into `Filter`.
  virtual void WriteFilter() = 0;
  // The values that outlive the dialog, at unload.
  virtual void WriteSettings() const {}
  // The base-data class of a code field.
  [[nodiscard]] virtual std::int32_t LookUpClass(int index) const = 0;
  // What a look-up gave back, once its code stands in the field.
  virtual void OnPicked(int /*index*/, const ObjectRef& /*picked*/) {}

  // --- What those steps are made of
  void AddLabel(std::string name, std::string_view caption);
  // A date picker, on today.
  void AddDate(std::string name);
  void AddCode(int index);
  // `Cmb_CreditType`: the bills by which credit is managed.
  void AddCreditTypes();

  [[nodiscard]] TextBox& CodeField(int index) const { return form_.Get<TextBox>("txtItem", index); }
  [[nodiscard]] DatePicker& DateField(std::string_view name) const { return form_.Get<DatePicker>(name); }
  [[nodiscard]] ListControl& CreditObject() const { return form_.Get<ListControl>("cmbCreditObj"); }
  [[nodiscard]] ListControl& CreditType() const { return form_.Get<ListControl>("Cmb_CreditType"); }
  // The base-data class of the credit object.
  [[nodiscard]] std::int32_t CreditObjectClass() const;
  // One value of the settings file, in the section of this family; a failure is ignored.
  void WriteSetting(std::string_view key, std::string_view value) const;

  DictionaryRef filter_;

 private:
  void MakeControls();
  void FollowCreditObject();
  void OpenLookUp(int index);
  // The form goes; its last values are kept.
  void Close();

  std::unique_ptr<SchemePane> plans_;
  std::int32_t rpt_id_ = 0;
  bool loaded_ = false;
};

}  // namespace salerpt
