// FrmFilter303, the filter dialog of the consignment report.
#pragma once

#include "dialogs/table_dialog.h"
#include "dialogs/tables/tables.h"

namespace salerpt {

// Its own: the bounds of the levels at load, "OK" before the dates are looked at, and Escape as the only key
// of the form.
class FrmFilter303 final : public TableDialog {
 public:
  explicit FrmFilter303(const DialogTable& table = kFrmFilter303) : TableDialog(table) {}

 protected:
  void LoadOwn() override;
  bool AcceptRange() override;
  void Cancel() override;
  void OnKeyDown(KeyStroke& /*key*/) override {}
  void OnKeyPress(KeyStroke& key) override;
};

}  // namespace salerpt
