#include "reports/order/rpt192_list.h"

#include <array>
#include <cstddef>
#include <string_view>

namespace salerpt::tracking {
namespace {

struct ListField {
  Column column;
  std::string_view name;
  FieldType type;
};
constexpr std::array<ListField, kColumnCount> kFields{{
    {kInterId, "FInterID", FieldType::kInteger},
    {kTranType, "FTranType", FieldType::kInteger},
    {kBillNo, "FBillNo", FieldType::kVarChar},
    {kItemId, "FItemID", FieldType::kInteger},
    {kDate, "FDate", FieldType::kDate},
    {kCustNumber, "FCustNumber", FieldType::kVarChar},
    {kCustShortNumber, "FCustShortNumber", FieldType::kVarChar},
    {kCustName, "FCustName", FieldType::kVarChar},
    {kOrderBillNo, "FOrderBillNo", FieldType::kVarChar},
    {kNumber, "FNumber", FieldType::kVarChar},
    {kShortNumber, "FShortNumber", FieldType::kVarChar},
    {kName, "FName", FieldType::kVarChar},
    {kModel, "FModel", FieldType::kVarChar},
    {kBom, "FBOM", FieldType::kVarChar},
    {kUnitName, "FUnitName", FieldType::kVarChar},
    {kQty, "FQty", FieldType::kDouble},
    {kPrice, "FPrice", FieldType::kDouble},
    {kCUUnitName, "FCUUnitName", FieldType::kVarChar},
    {kCUUnitQty, "FCUUnitQty", FieldType::kDouble},
    {kCUUnitPrice, "FCUUnitPrice", FieldType::kDouble},
    {kAmount, "FAmount", FieldType::kDouble},
    {kWorkBillNo, "FWorkBillNo", FieldType::kVarChar},
    {kWorkBillQty, "FWorkBillQty", FieldType::kDouble},
    {kInBillNo, "FInBillNo", FieldType::kVarChar},
    {kBatchNo, "FBatchNo", FieldType::kVarChar},
    {kKFDate, "FKFDate", FieldType::kVarChar},
    {kKFPeriod, "FKFPeriod", FieldType::kInteger},
    {kQty2, "FQty2", FieldType::kDouble},
    {kPrice2, "FPrice2", FieldType::kDouble},
    {kCUUnitQty2, "FCUUnitQty2", FieldType::kDouble},
    {kCUUnitPrice2, "FCUUnitPrice2", FieldType::kDouble},
    {kInAmount, "FInAmount", FieldType::kDouble},
    {kOutBillNo, "FOutBillNo", FieldType::kVarChar},
    {kWorkShop, "FWorkShop", FieldType::kVarChar},
    {kNumber2, "FNumber2", FieldType::kVarChar},
    {kShortNumber2, "FShortNumber2", FieldType::kVarChar},
    {kName2, "FName2", FieldType::kVarChar},
    {kModel2, "FModel2", FieldType::kVarChar},
    {kBatchNo2, "FBatchNo2", FieldType::kVarChar},
    {kKFDate2, "FKFDate2", FieldType::kVarChar},
    {kKFPeriod2, "FKFPeriod2", FieldType::kInteger},
    {kUnitName3, "FUnitName3", FieldType::kVarChar},
    {kQty3, "FQty3", FieldType::kDouble},
    {kPrice3, "FPrice3", FieldType::kDouble},
    {kCUUnitName3, "FCUUnitName3", FieldType::kVarChar},
    {kCUUnitQty3, "FCUUnitQty3", FieldType::kDouble},
    {kCUUnitPrice3, "FCUUnitPrice3", FieldType::kDouble},
    {kOutAmount, "FOutAmount", FieldType::kDouble},
    {kSumSort, "FSumSort", FieldType::kInteger},
    {kAuxPropName, "FAuxPropName", FieldType::kVarChar},
}};

// Cells are written by their place, so the table must stand in the order of the columns.
consteval bool StandInOrder() {
  for (std::size_t i = 0; i < kFields.size(); ++i) {
    if (kFields[i].column != i) return false;
  }
  return true;
}
static_assert(StandInOrder());

}  // namespace

RecordsetRef OpenList() {
  constexpr std::int32_t kTextSize = 355;
  RecordsetRef list = MakeRecordset();
  for (const ListField& field : kFields) {
    list->AppendField(field.name, field.type, field.type == FieldType::kVarChar ? kTextSize : 0);
  }
  list->Open();
  return list;
}

}  // namespace salerpt::tracking
