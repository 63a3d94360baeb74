#include "dialogs/unattended_dialog.h"

#include <algorithm>
#include <array>
#include <memory>
#include <utility>

#include "runtime/error.h"
#include "runtime/mmts.h"
#include "runtime/mparse.h"
#include "runtime/text.h"
#include "sqltoolkit/filter_values.h"

namespace salerpt {
namespace {

using enum DefaultValue;

constexpr std::array kKeysOf147 = {
    DialogKey{"BYear", kCurrentYear},     DialogKey{"BPeriod", kCurrentPeriod},
    DialogKey{"EYear", kCurrentYear},     DialogKey{"EPeriod", kCurrentPeriod},
    DialogKey{"BItemNumber", kEmptyText}, DialogKey{"EItemNumber", kEmptyText},
    DialogKey{"BEmpNumber", kEmptyText},  DialogKey{"EEmpNumber", kEmptyText},
    DialogKey{"BDptNumber", kEmptyText},  DialogKey{"EDptNumber", kEmptyText},
    DialogKey{"BCustNumber", kEmptyText}, DialogKey{"ECustNumber", kEmptyText},
    DialogKey{"CheckState", kZero},
};

constexpr std::array kKeysOf128 = {
    DialogKey{"BDate", kToday},
    DialogKey{"EDate", kToday},
    DialogKey{"BItemNumber", kEmptyText},
    DialogKey{"EItemNumber", kEmptyText},
    DialogKey{"BCustNumber", kEmptyText},
    DialogKey{"ECustNumber", kEmptyText},
    DialogKey{"GroupBy", kOne},
    DialogKey{"OnlyShowSum", kOne},
    DialogKey{"BLevel", kBeginLevel},
    DialogKey{"ELevel", kEndLevel},
    DialogKey{"SumMode", kOne},
    DialogKey{"SumName", kSumName},
    // Item data of the first row of the sale style box, "全部".
    DialogKey{"SaleType", kOne},
    DialogKey{"SaleTypeName", kAllSaleTypes},
    DialogKey{"SumField", kSumField},
    DialogKey{"FROB", kZero},
    DialogKey{"CheckState", kZero},
    DialogKey{"chkNextChoose", kZero},
    DialogKey{"CommodityType", kZero},
    DialogKey{"Orderby", kItemCodeOrder},
};

constexpr std::array<DialogTable::GroupByRow, 12> kGroupByOf128 = {{
    {"物料类别", 1},
    {"客户类别", 2},
    {"物料类别+客户", 3},
    {"客户+物料类别", 4},
    {"客户", 5},
    {"业务员", 6},
    {"部门", 9},
    {"部门+业务员", 10},
    {"销售方式", 7},
    {"客户类别+客户", 8},
    {"客户+业务员", 11},
    {"业务员+客户+物料类别", 12},
}};

constexpr std::array<SumFieldRow, 5> kSumFieldsOf128 = {{
    {7, "销售方式", 1, 29, "FSaleStyle", "t_SubMessage", "FInterID", "FName"},
    {5, "客户", 1, 0, "FName", "", "", ""},
    // The employee stands under the customer's class. Kept: the column name that the report makes of it is
    // known to hosts.
    {6, "业务员", 1, 0, "FName", "", "", ""},
    {10, "部门", 0, 0, "FName", "", "", ""},
    {11, "客户", 0, 0, "FName", "", "", ""},
}};

constexpr std::array<DialogTable, 2> kTables = {{
    {"frmFilter147", kKeysOf147, {}, {}},
    {"frmFirter128", kKeysOf128, kGroupByOf128, kSumFieldsOf128},
}};

// A number of the system profile; 0 where it cannot be read, as the dialogs' own reads ignore failures.
std::int32_t ProfileNumber(std::string_view key) {
  try {
    const ObjectRef profile = ObjectFactory::CreateServerObject("ORVEBSBase.SystemProfile");
    return Variant(Val(Call(profile, "GetProfile", GetPropsString(), "IC", key).TextOrEmpty())).ToInt32();
  } catch (const RuntimeError&) {
    return 0;
  }
}

// The class whose levels a row of "sum by" shows; 0 for a row without levels.
std::int32_t LevelClassOf(std::int32_t sum_mode) {
  switch (sum_mode) {
    case 1:
    case 3:
    case 4:
    case 12:
      return 4;
    case 2:
    case 8:
      return 1;
    default:
      return 0;
  }
}

// The end level that opens with the dialog: 5, or the tree's depth where that is less. A depth of 0 reads as
// 1, as at confirmation. Without a middle tier the 5 stays.
std::int32_t EndLevel(std::int32_t item_class_id) {
  constexpr std::int32_t kDeepest = 5;
  if (item_class_id == 0) return kDeepest;
  try {
    const ObjectRef data = CreateObject("ORVMSaleRpt.Data");
    const std::int32_t depth = Call(data, "GetItemMaxLevel", GetPropsString(), item_class_id).ToInt32();
    return std::clamp(depth, 1, kDeepest);
  } catch (const RuntimeError&) {
    return kDeepest;
  }
}

// A row that is not described groups by nothing of its own: it has neither class nor name.
constexpr SumFieldRow kPlainRow{0, "", 0, 0, "FName", "", "", ""};

DictionaryRef SumFieldOf(const DialogTable& table, std::int32_t sum_mode) {
  const auto found = std::find_if(table.sum_fields.begin(), table.sum_fields.end(),
                                  [sum_mode](const SumFieldRow& row) { return row.code == sum_mode; });
  const SumFieldRow& row = found == table.sum_fields.end() ? kPlainRow : *found;
  auto field = std::make_shared<Dictionary>();
  if (row.item_class_id != 0) field->Set("FItemClassID", row.item_class_id);
  if (!row.name.empty()) field->Set("FName", ResText(row.name));
  field->Set("FPropID", row.prop_id);
  field->Set("FSQLColumnName", row.sql_column_name);
  field->Set("FSrcTable", row.src_table);
  field->Set("FSrcField", row.src_field);
  field->Set("FDisplayField", row.display_field);
  return field;
}

std::string SumNameOf(const DialogTable& table, std::int32_t sum_mode) {
  for (const DialogTable::GroupByRow& row : table.group_by) {
    if (row.code == sum_mode) return ResText(row.text);
  }
  return {};
}

// A level of 0 becomes 1, and the begin level follows the end level downwards.
void KeepLevelsInOrder(Dictionary& filter) {
  const auto level = [&filter](std::string_view key) {
    const double value = filter.Get(key).ToDouble();
    return value <= 0 ? 1.0 : value;
  };
  const double end = level("ELevel");
  filter.Set("BLevel", std::min(level("BLevel"), end));
  filter.Set("ELevel", end);
}

const DialogKey* FindKey(const DialogTable& table, std::string_view key) {
  const auto found = std::find_if(table.keys.begin(), table.keys.end(),
                                  [key](const DialogKey& k) { return EqualNames(k.key, key); });
  return found == table.keys.end() ? nullptr : &*found;
}

}  // namespace

const DialogTable* FindDialogTable(std::string_view name) {
  for (const DialogTable& table : kTables) {
    if (EqualNames(table.name, name)) return &table;
  }
  return nullptr;
}

UnattendedDialog::UnattendedDialog(const DialogTable& table) : table_(table) {}

bool UnattendedDialog::HasKey(std::string_view key) const {
  return FindKey(table_, key) != nullptr;
}

Variant UnattendedDialog::Default(std::string_view key) const {
  const DialogKey* found = FindKey(table_, key);
  if (found == nullptr) {
    throw RuntimeError(error_number::kInvalidCall, std::string(table_.name),
                       Join("\"", key, "\" is no key of the dialog ", table_.name));
  }
  return ValueOf(*found);
}

void UnattendedDialog::Choose(std::string_view key, Variant value) {
  static_cast<void>(Default(key));
  chosen_.Set(key, std::move(value));
}

std::int32_t UnattendedDialog::Chosen(std::string_view key, std::int32_t preset) const {
  return chosen_.Lookup(key) ? chosen_.Get(key).ToInt32() : preset;
}

std::int32_t UnattendedDialog::ChosenSumMode() const {
  return Chosen("SumMode", table_.group_by.empty() ? 0 : table_.group_by.front().code);
}

Variant UnattendedDialog::ValueOf(const DialogKey& key) const {
  switch (key.value) {
    case kEmptyText:
      return "";
    case kZero:
      return 0;
    case kOne:
      return 1;
    case kToday:
      return Runtime::Current().GetPlatform().Now().ToText().substr(0, 10);
    case kCurrentYear:
      return ProfileNumber("CurrentYear");
    case kCurrentPeriod:
      return ProfileNumber("CurrentPeriod");
    case kBeginLevel:
      return 1.0;
    case kEndLevel:
      return static_cast<double>(EndLevel(LevelClassOf(ChosenSumMode())));
    case kSumName:
      return SumNameOf(table_, ChosenSumMode());
    case kSumField:
      return SumFieldOf(table_, ChosenSumMode());
    case kAllSaleTypes:
      return ResText("全部");
    case kItemCodeOrder:
      return Chosen("GroupBy", 1) == 0 && Chosen("OnlyShowSum", 1) == 1 ? std::string()
                                                                        : Join(CodeField(), " ASC");
  }
  return {};
}

void UnattendedDialog::Confirm() {
  filter_ = std::make_shared<Dictionary>();
  filter_->Set("OK", true);
  for (const DialogKey& key : table_.keys) {
    filter_->Set(key.key, chosen_.Lookup(key.key) ? chosen_.Get(key.key) : ValueOf(key));
  }
  if (filter_->Lookup("ELevel")) KeepLevelsInOrder(*filter_);
}

void RegisterUnattendedDialogs(Runtime& runtime) {
  for (const DialogTable& table : kTables) {
    runtime.RegisterDialog(table.name, [&table] { return std::make_unique<UnattendedDialog>(table); });
  }
}

}  // namespace salerpt
