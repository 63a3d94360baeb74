// The columns of the order batch tracking.
#pragma once

#include <cstdint>

#include "runtime/recordset.h"

namespace salerpt::tracking {

// In the order of the list. An order line fills those up to kAmount and kAuxPropName, a task kWorkBillNo and
// kWorkBillQty, a receipt kInBillNo to kInAmount, an issue kOutBillNo to kOutAmount; each of them the first
// three and kSumSort.
enum Column : std::uint8_t {
  kInterId,
  kTranType,
  kBillNo,
  kItemId,
  kDate,
  kCustNumber,
  kCustShortNumber,
  kCustName,
  kOrderBillNo,
  kNumber,
  kShortNumber,
  kName,
  kModel,
  kBom,
  kUnitName,
  kQty,
  kPrice,
  kCUUnitName,
  kCUUnitQty,
  kCUUnitPrice,
  kAmount,
  kWorkBillNo,
  kWorkBillQty,
  kInBillNo,
  kBatchNo,
  kKFDate,
  kKFPeriod,
  kQty2,
  kPrice2,
  kCUUnitQty2,
  kCUUnitPrice2,
  kInAmount,
  kOutBillNo,
  kWorkShop,
  kNumber2,
  kShortNumber2,
  kName2,
  kModel2,
  kBatchNo2,
  kKFDate2,
  kKFPeriod2,
  kUnitName3,
  kQty3,
  kPrice3,
  kCUUnitName3,
  kCUUnitQty3,
  kCUUnitPrice3,
  kOutAmount,
  kSumSort,
  kAuxPropName,
  kColumnCount
};

// Kinds of rows (`FSumSort`).
enum SumSort : std::uint8_t { kDetail = 0, kTotal = 101, kSubtotal = 102 };

// The list without rows, open.
RecordsetRef OpenList();

}  // namespace salerpt::tracking
