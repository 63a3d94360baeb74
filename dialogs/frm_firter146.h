// `frmFirter146`: the filter dialog of credit by amount.
#pragma once

#include "dialogs/currency_credit_dialog.h"

namespace salerpt {

// Over a range of dates, which are no part of its plans and are taken in either order: they go to the
// settings.
class FrmFirter146 final : public CurrencyCreditDialog {
 public:
  FrmFirter146() : CurrencyCreditDialog("frmFirter146", "FExchangeRate") {}
  void CollectPlan(std::string_view plan, Vector& rows) override;
  void RestorePlan(const RecordsetRef& rows) override;

 private:
  void MakeFields() override;
  void WriteFilter() override;
  void WriteSettings() const override;
};

}  // namespace salerpt
