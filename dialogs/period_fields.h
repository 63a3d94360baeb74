// The accounting periods above the code fields.
#pragma once

#include <cstdint>
#include <string>

#include "dialogs/form.h"

namespace salerpt {

// `txtPeriod(0)` begin year, `txtPeriod(1)` begin period, and in dialogs over a range `txtPeriod(2)` end
// year, `txtPeriod(3)` end period, with `updBYear`, `updBPeriod`, `updEYear`, `updEPeriod`. A range is put in
// order when the focus leaves a field, so it never reaches a confirmation reversed.
class PeriodFields {
 public:
  // Makes its controls on the form.
  PeriodFields(Form& form, bool is_range);

  // The calendar of the account set: bounds of the fields, current year and period. What cannot be read stays
  // 0.
  void ReadProfile();
  [[nodiscard]] std::int16_t CurrentYear() const { return current_year_; }
  [[nodiscard]] std::int16_t CurrentPeriod() const { return current_period_; }

 private:
  void MakeField(int index, std::string_view up_down);
  void OnChange(int index);
  void OnValidate(int index);
  void OnLostFocus(int index);
  [[nodiscard]] TextBox& Field(int index) const { return form_.Get<TextBox>("txtPeriod", index); }
  [[nodiscard]] double Number(int index) const;

  Form& form_;
  bool is_range_;
  std::int16_t period_count_ = 0;
  std::int16_t current_year_ = 0;
  std::int16_t current_period_ = 0;
  std::int32_t start_year_ = 0;
  std::int32_t start_period_ = 0;
  bool is_correcting_ = false;
};

}  // namespace salerpt
