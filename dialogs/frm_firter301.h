// frmFirter301, the filter dialog of the sales fee invoices' summary.
#pragma once

#include <memory>

#include "dialogs/item_class_field.h"
#include "dialogs/table_dialog.h"
#include "dialogs/tables/tables.h"

namespace salerpt {

// Its own: the item class, and the rows by which it sums, which hang on the style of the invoices: suppliers
// for payable ones, customers for receivable ones.
class FrmFirter301 final : public TableDialog {
 public:
  explicit FrmFirter301(const DialogTable& table = kFrmFirter301) : TableDialog(table), item_class_(form_) {}

  [[nodiscard]] const ItemClassField& ItemClass() const { return item_class_; }
  bool Choose(std::string_view key, const Variant& value) override;

 protected:
  std::unique_ptr<GroupPane> MakeGroupPane() override;
  void LoadOwn() override;

 private:
  void OnInvoiceStyle();

  ItemClassField item_class_;
  // The table of the rows on offer.
  const GroupByTable* groups_ = nullptr;
};

}  // namespace salerpt
