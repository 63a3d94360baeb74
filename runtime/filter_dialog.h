// What a report asks of its filter dialog.
#pragma once

#include <cstdint>
#include <string_view>

#include "runtime/dictionary.h"

namespace salerpt {

// A report makes its dialog by class name, gives it the number of the plan family, shows it, and takes its
// `Filter`. Lives for one ShowFilter.
class FilterDialog {
 public:
  virtual ~FilterDialog() = default;
  // The dialog's class, such as "frmFirter128".
  [[nodiscard]] virtual std::string_view Name() const = 0;
  // The number of the plan family.
  virtual void SetRptID(std::int32_t family) = 0;
  // `StatusValue` and `StatusVisible` of the dialogs that have them; the others ignore it.
  virtual void SetStatus(std::int32_t /*value*/, bool /*visible*/) {}
  // `NeedGroup` of the dialogs that have it; the others ignore it.
  virtual void SetNeedGroup(std::int16_t /*value*/) {}

  // --- What a toolkit runs: Load, Activate, then what the user does until the form is unloaded.
  virtual void Load() {}
  virtual void Activate() {}
  [[nodiscard]] virtual bool IsUnloaded() const { return false; }
  // The press of OK: what a toolkit without a screen does in the user's place. A refused confirmation leaves
  // the dialog loaded and `Filter` "OK" false.
  virtual void Confirm() = 0;

  // Loads the plan and confirms it without the dialog being seen.
  virtual void ShowFinish(std::string_view plan) = 0;
  // The conditions chosen. Key "OK" is false where the user cancelled; nothing where the dialog has no answer
  // at all.
  [[nodiscard]] virtual DictionaryRef Filter() const = 0;
};

}  // namespace salerpt
