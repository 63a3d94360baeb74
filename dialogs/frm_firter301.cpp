#include "dialogs/frm_firter301.h"

#include "dialogs/tables/entries.h"
#include "runtime/mparse.h"

namespace salerpt {
namespace {

// The third code is a class of whom the invoices are with; the row's text tells which.
class FeeGroupPane final : public GroupPane {
 public:
  using GroupPane::GroupPane;

  [[nodiscard]] std::int32_t LevelClass(std::int32_t code) const override {
    switch (code) {
      case 1:  // "费用类别"
      case 4:  // with the supplier or customer behind it
      case 5:  // with the supplier or customer in front
        return kFeeClass;
      case 3:
        return Rows().Text() == ResText("供应商类别") ? kSupplierClass : kCustomerClass;
      default:
        return kNoClass;
    }
  }
};

}  // namespace

std::unique_ptr<GroupPane> FrmFirter301::MakeGroupPane() {
  groups_ = Table().group_by;
  return std::make_unique<FeeGroupPane>(form_, *groups_, Table().tabs);
}

void FrmFirter301::LoadOwn() {
  Box("cmbInvoiceStyle").Click.Connect([this] { OnInvoiceStyle(); });
}

// Another style has rows of its own, none of which is chosen yet. The style that shows already keeps the row.
void FrmFirter301::OnInvoiceStyle() {
  const int style = Box("cmbInvoiceStyle").ListIndex();
  if (style < 0) return;
  const GroupByTable* chosen = kFeeGroupsByStyle.at(static_cast<std::size_t>(style));
  if (chosen == groups_) return;
  groups_ = chosen;
  Groups()->SetTable(*chosen);
}

// Without a person to choose another row, the first one stands, as in a dialog that opens.
bool FrmFirter301::Choose(std::string_view key, const Variant& value) {
  const bool is_chosen = TableDialog::Choose(key, value);
  ListControl& rows = Box("cmbGroupBy");
  if (is_chosen && EqualNames(key, "InvoiceStyle") && rows.ListIndex() < 0) rows.SetListIndex(0);
  return is_chosen;
}

}  // namespace salerpt
