// frmFirter176, the filter dialog of the sales gross profit.
#pragma once

#include "dialogs/table_dialog.h"
#include "dialogs/tables/tables.h"

namespace salerpt {

// Its own: "IncludeTax" and "TaxSource" of `Filter`, the account set's options of purchase tax. The report
// needs them where the cost is a purchase price.
class FrmFirter176 final : public TableDialog {
 public:
  explicit FrmFirter176(const DialogTable& table = kFrmFirter176) : TableDialog(table) {}

 protected:
  void LoadOwn() override;
};

}  // namespace salerpt
