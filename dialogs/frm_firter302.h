// frmFirter302, the filter dialog of the sales fee invoices' detail.
#pragma once

#include "dialogs/item_class_field.h"
#include "dialogs/table_dialog.h"
#include "dialogs/tables/tables.h"

namespace salerpt {

// Its own: the item class.
class FrmFirter302 final : public TableDialog {
 public:
  explicit FrmFirter302(const DialogTable& table = kFrmFirter302) : TableDialog(table), item_class_(form_) {}

  [[nodiscard]] const ItemClassField& ItemClass() const { return item_class_; }

 private:
  ItemClassField item_class_;
};

}  // namespace salerpt
