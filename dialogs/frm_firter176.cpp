#include "dialogs/frm_firter176.h"

#include "dialogs/ignoring.h"
#include "runtime/mrpt.h"

namespace salerpt {

// Without a middle tier prices count as being without tax.
void FrmFirter176::LoadOwn() {
  filter_->Set("IncludeTax", std::int32_t{0});
  filter_->Set("TaxSource", std::int32_t{0});
  Ignoring([this] {
    const RecordsetRef rows = GetRsBySQL(
        "Select FValue,FKey From t_SystemProfile Where FCategory='IC' "
        "And FKey In('POOrderTaxInPrice','PurTaxRateOption')");
    internal::Required(rows, "Filter");
    const auto take = [this, &rows](std::string_view criteria, std::string_view key) {
      rows->SetFilter(criteria);
      if (!rows->Eof()) filter_->Set(key, rows->Value("FValue"));
    };
    take("FKey='POOrderTaxInPrice'", "IncludeTax");
    take("FKey='PurTaxRateOption'", "TaxSource");
  });
}

}  // namespace salerpt
