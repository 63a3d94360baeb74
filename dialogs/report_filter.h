// The suite's filter control: what `ORV_GRFC.ReportFilter` is to a dialog that is built on it.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "dialogs/form.h"
#include "dialogs/plan_pane.h"
#include "runtime/dictionary.h"
#include "runtime/event.h"

namespace salerpt {

// Owns the plan list with its toolbar, the OK and Cancel buttons and the look-ups of the code fields, and
// asks its dialog through events. The dialog's values travel as a dictionary, the state: codes with
// apostrophes doubled on the way to the control, as plans store them.
class ReportFilter final : private PlanOwner {
 public:
  // How items are chosen, "Mode" of the control's dictionary: by a range of codes.
  static constexpr std::int32_t kByCodes = 0;

  // One range of the composed condition: the keys of its ends in the state.
  struct Range {
    std::string_view begin_key;
    std::string_view end_key;
    // "SEOrder.FDate"; for a range of codes the table alone ("t1."), to which the code in use is added.
    std::string_view column;
    bool is_code = false;
  };

  // A look-up on its way: the control runs its own of `item_class_id` under `condition`, unless the class is
  // left 0.
  struct LookUpRequest {
    TextBox& field;
    int index;
    std::int32_t item_class_id = 0;
    std::string condition;
  };

  // Makes its controls on the form: `grfFilter`, the plan list, `cmdOK`, `cmdCacel`.
  ReportFilter(Form& form, std::span<const Range> ranges);
  ~ReportFilter() override = default;

  // --- Events
  // The fields are cleared: the choices go back to their start values.
  Event<> Reset;
  // Before a confirmation; a handler that sets the flag refuses it.
  Event<bool&> Validate;
  // The confirmation, with text and dictionary composed; a handler that sets the flag refuses it.
  Event<bool&> Confirmed;
  // A plan onto the dialog's controls.
  Event<const Dictionary&> Load;
  // The dialog's controls into the state, in saving order.
  Event<Dictionary&> Save;
  Event<LookUpRequest&> BeforeLookUp;
  // Behind a confirmation that stands, and at a cancellation: the form is to leave the screen.
  Event<> Closed;

  // --- What the dialog calls
  // The number of the plan family.
  void SetRptID(std::int32_t family) { rpt_id_ = family; }
  // Once, when the dialog's controls show their start values: lists the plans and puts the chosen one onto
  // the controls. A plan that is not stored shows the start values. `mode` tells how items are chosen.
  void Init(std::int32_t mode);
  // The look-up of a code field, by its button, F7 or F8.
  void Watch(int index, TextBox& field, Button& button);
  void Confirm();
  void Cancel() { Closed.Raise(); }
  // The condition that the chosen ranges make, and the state beside "Mode" and "ItemClassNumber", both of the
  // last confirmation.
  [[nodiscard]] const std::string& FilterString() const { return filter_string_; }
  [[nodiscard]] const DictionaryRef& Conditions() const { return conditions_; }
  // The state as a stored plan gives it back: apostrophes as typed.
  [[nodiscard]] DictionaryRef State();
  [[nodiscard]] PlanPane& Plans() { return plans_; }

 private:
  // --- PlanOwner
  [[nodiscard]] std::int32_t RptID() const override { return rpt_id_; }
  void CollectPlan(std::string_view plan, Vector& rows) override;
  void RestorePlan(const RecordsetRef& rows) override;

  void LookUp(int index, TextBox& field);
  [[nodiscard]] std::string Compose(const Dictionary& state) const;

  Form& form_;
  std::span<const Range> ranges_;
  std::int32_t rpt_id_ = 0;
  std::int32_t mode_ = kByCodes;
  PlanPane plans_;
  DictionaryRef start_;
  DictionaryRef conditions_;
  std::string filter_string_;
};

}  // namespace salerpt
