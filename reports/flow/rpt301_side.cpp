#include "reports/flow/rpt301_side.h"

#include "runtime/runtime.h"
#include "sqltoolkit/filter_values.h"

namespace salerpt {

bool IsSupplierSide(const Dictionary& filter) {
  return FilterInt(filter, "InvoiceStyle") == 0;
}

void AddSideRanges(TitleLines& lines, const Dictionary& filter) {
  const auto suppliers = [&] {
    lines.AddRange("供应商代码范围：", filter, "BSupply", "ESupply", "所有供应商");
  };
  const auto customers = [&] { lines.AddRange("客户代码范围：", filter, "BCust", "ECust", "所有客户"); };
  if (IsSupplierSide(filter)) {
    suppliers();
    customers();
  } else {
    customers();
    suppliers();
  }
}

void SetSideRights(Dictionary& filter, const DataRight& supplier, const DataRight& customer) {
  filter.Set("DataRightFromSupply", supplier.from_text);
  filter.Set("DataRightWhereSupply", supplier.where_text);
  filter.Set("DataRightFromOrg", customer.from_text);
  filter.Set("DataRightWhereOrg", customer.where_text);
  filter.Set("bLongNumber", Runtime::Current().gLongNumber);
}

}  // namespace salerpt
