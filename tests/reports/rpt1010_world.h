// The world in which the tracking of orders through delivery, invoice and receipt runs.
#pragma once

#include "tests/reports/rpt192_list_world.h"

namespace salerpt::testing {

class Rpt1010World : public OrderListWorld {
 protected:
  Rpt1010World() : OrderListWorld("Rpt1010", "GetRpt1010Data") {}

  // Rows of these kinds: 0 a line, 102 a subtotal, 101 the total.
  static RecordsetRef SumRows(const std::vector<std::int32_t>& kinds) {
    const RecordsetRef rows = MakeRecordset();
    rows->AppendField("FSumSort", FieldType::kInteger, 0);
    rows->Open();
    for (const std::int32_t kind : kinds) {
      rows->AddNew();
      rows->SetValue(0, kind);
      rows->Update();
    }
    rows->MoveFirst();
    return rows;
  }
};

}  // namespace salerpt::testing
