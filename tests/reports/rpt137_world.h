// The world in which the order execution detail runs. It sends its conditions and no texts.
#pragma once

#include "tests/reports/report_world.h"

namespace salerpt::testing {

class Rpt137World : public ReportWorld {
 protected:
  Rpt137World() : ReportWorld("Rpt137", "GetRpt137Data_new", 1) {}
  [[nodiscard]] const Pieces& Texts() const override {
    static const Pieces none;
    return none;
  }
  // The conditions as they arrive in the middle tier.
  DictionaryRef SentFilter() { return As<Dictionary>(sales_->Calls().back().arguments[1]); }
  RecordsetRef Rs() { return As<Recordset>(GetMember(Report(), "Rs")); }

  // Two order lines, the subtotal of the order and the total.
  void FillRows() {
    rows_ = MakeRecordset();
    rows_->AppendField("FOrderBillNo", FieldType::kVarChar, 355);
    rows_->AppendField("FSumSort", FieldType::kInteger, 0);
    rows_->Open();
    for (const auto& [bill, sum_sort] : {std::pair{"SE1", 0}, {"SE2", 0}, {"小计", 102}, {"合计", 101}}) {
      rows_->AddNew();
      rows_->SetValue(0, Variant(bill));
      rows_->SetValue(1, Variant(std::int32_t{sum_sort}));
      rows_->Update();
    }
  }
};

}  // namespace salerpt::testing
