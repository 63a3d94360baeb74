// `frmFirter149`: the filter dialog of the credit term.
#pragma once

#include "dialogs/currency_credit_dialog.h"

namespace salerpt {

// On one day, `DtpFDate`. It keeps nothing in the settings.
class FrmFirter149 final : public CurrencyCreditDialog {
 public:
  FrmFirter149() : CurrencyCreditDialog("frmFirter149", "FRate") {}
  void CollectPlan(std::string_view plan, Vector& rows) override;
  void RestorePlan(const RecordsetRef& rows) override;

 private:
  void MakeFields() override;
  void WriteFilter() override;
};

}  // namespace salerpt
