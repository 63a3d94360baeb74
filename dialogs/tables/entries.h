// What the tables of the dialogs are written with: an entry per key, and the boxes that many dialogs have.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "dialogs/dialog_table.h"
#include "sqltoolkit/item_level.h"

namespace salerpt {

// --- Base-data classes of the code fields, beside kCustomerClass and kItemClass; 0 for what is none.

inline constexpr std::int32_t kNoClass = 0;
inline constexpr std::int32_t kDepartmentClass = 2;
inline constexpr std::int32_t kEmployeeClass = 3;
inline constexpr std::int32_t kStockClass = 5;
inline constexpr std::int32_t kSupplierClass = 8;
inline constexpr std::int32_t kBranchClass = 10;
inline constexpr std::int32_t kCurrencyClass = 12;
inline constexpr std::int32_t kFeeClass = 2014;

// A pair of code fields of a class of base data.
constexpr CodeRange BaseData(int index, std::int32_t item_class_id, std::string_view caption) {
  return {index, LookUp::kBaseData, item_class_id, caption};
}

// --- Keys of `Filter`

constexpr FilterKey KeyOfDate(std::string_view key, std::string_view control) {
  return {key, KeySource::kDate, control};
}
constexpr FilterKey KeyOfText(std::string_view key, std::string_view control) {
  return {key, KeySource::kText, control};
}
constexpr FilterKey KeyOfTrimmedText(std::string_view key, std::string_view control) {
  return {key, KeySource::kTrimmedText, control};
}
constexpr FilterKey KeyOfNumber(std::string_view key, std::string_view control) {
  return {key, KeySource::kNumber, control};
}
constexpr FilterKey KeyOfCheck(std::string_view key, std::string_view control) {
  return {key, KeySource::kCheck, control};
}
constexpr FilterKey KeyOfListIndex(std::string_view key, std::string_view control) {
  return {key, KeySource::kListIndex, control};
}
constexpr FilterKey KeyOfItemData(std::string_view key, std::string_view control) {
  return {key, KeySource::kItemData, control};
}
constexpr FilterKey KeyOfListText(std::string_view key, std::string_view control) {
  return {key, KeySource::kListText, control};
}
constexpr FilterKey KeyOfHookStatus(std::string_view key, std::string_view control) {
  return {key, KeySource::kHookStatus, control};
}
constexpr FilterKey KeyOfOrder(std::string_view key) {
  return {key, KeySource::kOrder};
}
inline constexpr FilterKey kSumModeKey = {"SumMode", KeySource::kSumMode};
inline constexpr FilterKey kSumNameKey = {"SumName", KeySource::kSumName};
inline constexpr FilterKey kSumFieldKey = {"SumField", KeySource::kSumField};
// The place of the keys at which the default plan is saved.
inline constexpr FilterKey kDefaultPlanSaved = {"", KeySource::kSaveDefault};

// --- Keys of plans, with the value that a plan without the key gives

// Today.
constexpr PlanKey PlanOfDate(std::string_view key, std::string_view control) {
  return {key, PlanSource::kDate, control, PlanDefault::kToday};
}
// Nothing: an open end.
constexpr PlanKey PlanOfCode(std::string_view key, std::string_view control) {
  return {key, PlanSource::kCode, control};
}
constexpr PlanKey PlanOfText(std::string_view key, std::string_view control, std::string_view absent) {
  return {key, PlanSource::kText, control, PlanDefault::kText, absent};
}
constexpr PlanKey PlanOfYear(std::string_view key, std::string_view control) {
  return {key, PlanSource::kText, control, PlanDefault::kCurrentYear};
}
constexpr PlanKey PlanOfPeriod(std::string_view key, std::string_view control) {
  return {key, PlanSource::kText, control, PlanDefault::kCurrentPeriod};
}
constexpr PlanKey PlanOfCheck(std::string_view key, std::string_view control, std::string_view absent) {
  return {key, PlanSource::kCheck, control, PlanDefault::kText, absent};
}
// The first row.
constexpr PlanKey PlanOfListIndex(std::string_view key, std::string_view control,
                                  std::string_view absent = "0") {
  return {key, PlanSource::kListIndex, control, PlanDefault::kText, absent};
}
constexpr PlanKey PlanOfListText(std::string_view key, std::string_view control, std::string_view absent) {
  return {key, PlanSource::kListText, control, PlanDefault::kText, absent};
}
// Where a plan without an order is to sort by the item code.
inline constexpr std::string_view kItemCodeOrder = "NULL";
constexpr PlanKey PlanOfOrder(std::string_view key, std::string_view absent) {
  return {key, PlanSource::kOrder, "", PlanDefault::kText, absent};
}

// --- Boxes that many dialogs have

inline constexpr std::array<std::string_view, 3> kCheckStates = {"已审核", "未审核", "全部"};
inline constexpr ComboBoxRows kCheckStateBox = {"cmbCheckState", kCheckStates};

inline constexpr std::array<std::string_view, 3> kBlueOrRed = {"全部", "蓝字", "红字"};
inline constexpr ComboBoxRows kFrobBox = {"cmbFROB", kBlueOrRed};

inline constexpr std::array<std::string_view, 3> kHookStates = {"全部", "未钩稽", "已钩稽"};
inline constexpr ComboBoxRows kHookStatusBox = {"cmbHookStatus", kHookStates};

inline constexpr std::array<std::string_view, 3> kCommodityTypes = {"全部", "服务商品", "非服务商品"};
inline constexpr ComboBoxRows kCommodityTypeBox = {"cmbCommodityType", kCommodityTypes};

inline constexpr std::array<std::string_view, 2> kDisplayTypes = {"全部", "仅显示明细"};
inline constexpr ComboBoxRows kDisplayTypeBox = {"CmbDisplayType", kDisplayTypes};

inline constexpr std::array<std::string_view, 3> kCloseStates = {"全部", "未关闭", "已关闭"};
inline constexpr ComboBoxRows kCloseStateBox = {"CmbCloseState", kCloseStates};

inline constexpr CheckBoxCaption kAuxPropCheck = {"Chk_Aux", "以辅助属性展开"};
inline constexpr CheckBoxCaption kNextChooseCheck = {"chkNextChoose", "下次使用本方案"};

// --- The five rows by which nearly all dialogs sum

inline constexpr GroupByRow kByItemClass = {"物料类别", 1};
inline constexpr GroupByRow kByCustomerClass = {"客户类别", 2};
inline constexpr GroupByRow kByItemClassAndCustomer = {"物料类别+客户", 3};
inline constexpr GroupByRow kByCustomerAndItemClass = {"客户+物料类别", 4};
inline constexpr GroupByRow kByCustomer = {"客户", 5};

// The item and customer properties that an account set defines.
inline constexpr std::string_view kItemAndCustomerProperties = " FItemClassID IN (4,1) ";

}  // namespace salerpt
