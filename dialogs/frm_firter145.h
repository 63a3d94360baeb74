// `frmFirter145`: the filter dialog of credit by quantity.
#pragma once

#include <cstdint>

#include "dialogs/credit_dialog.h"

namespace salerpt {

// Over a range of dates and of items. The dates are no part of its plans: they go to the settings.
class FrmFirter145 final : public CreditDialog {
 public:
  FrmFirter145() : CreditDialog("frmFirter145") {}
  void CollectPlan(std::string_view plan, Vector& rows) override;
  void RestorePlan(const RecordsetRef& rows) override;

 private:
  void MakeFields() override;
  bool AcceptRange() override;
  void WriteFilter() override;
  void WriteSettings() const override;
  [[nodiscard]] std::int32_t LookUpClass(int index) const override;
};

}  // namespace salerpt
