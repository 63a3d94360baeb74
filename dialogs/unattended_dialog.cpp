#include "dialogs/unattended_dialog.h"

#include <algorithm>
#include <array>
#include <memory>
#include <utility>

#include "runtime/error.h"
#include "runtime/mmts.h"
#include "runtime/mparse.h"
#include "runtime/text.h"

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
    DialogKey{"BLevel", kOne},
    DialogKey{"ELevel", kFive},
    DialogKey{"SumMode", kOne},
    DialogKey{"SumName", kEmptyText},
    // Item data of the first row of the sale style box, "全部".
    DialogKey{"SaleType", kOne},
    DialogKey{"SaleTypeName", kEmptyText},
    DialogKey{"SumField", kEmptyText},
    DialogKey{"FROB", kZero},
    DialogKey{"CheckState", kZero},
    DialogKey{"chkNextChoose", kZero},
    DialogKey{"CommodityType", kZero},
    DialogKey{"Orderby", kEmptyText},
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
    return static_cast<std::int32_t>(
        Val(Call(profile, "GetProfile", GetPropsString(), "IC", key).TextOrEmpty()));
  } catch (const RuntimeError&) {
    return 0;
  }
}

DictionaryRef SumFieldOf(const SumFieldRow* row) {
  auto field = std::make_shared<Dictionary>();
  if (row == nullptr) return field;
  if (row->item_class_id != 0) field->Set("FItemClassID", row->item_class_id);
  field->Set("FName", ResText(row->name));
  field->Set("FPropID", row->prop_id);
  field->Set("FSQLColumnName", row->sql_column_name);
  field->Set("FSrcTable", row->src_table);
  field->Set("FSrcField", row->src_field);
  field->Set("FDisplayField", row->display_field);
  return field;
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

std::int32_t UnattendedDialog::ChosenSumMode() const {
  return chosen_.Lookup("SumMode") ? chosen_.Get("SumMode").ToInt32() : table_.group_by.front().code;
}

Variant UnattendedDialog::ValueOf(const DialogKey& key) const {
  if (key.key == "SumName") {
    for (const DialogTable::GroupByRow& row : table_.group_by) {
      if (row.code == ChosenSumMode()) return ResText(row.text);
    }
    return "";
  }
  if (key.key == "SumField") {
    for (const SumFieldRow& row : table_.sum_fields) {
      if (row.code == ChosenSumMode()) return SumFieldOf(&row);
    }
    return SumFieldOf(nullptr);
  }
  if (key.key == "SaleTypeName") return ResText("全部");
  switch (key.value) {
    case kEmptyText:
      return "";
    case kZero:
      return 0;
    case kOne:
      return 1;
    case kFive:
      return 5;
    case kToday: {
      const std::string now = Runtime::Current().GetPlatform().Now().ToText();
      return now.substr(0, 10);
    }
    case kCurrentYear:
      return ProfileNumber("CurrentYear");
    case kCurrentPeriod:
      return ProfileNumber("CurrentPeriod");
  }
  return {};
}

void UnattendedDialog::Confirm() {
  filter_ = std::make_shared<Dictionary>();
  filter_->Set("OK", true);
  for (const DialogKey& key : table_.keys) {
    filter_->Set(key.key, chosen_.Lookup(key.key) ? chosen_.Get(key.key) : ValueOf(key));
  }
}

void RegisterUnattendedDialogs(Runtime& runtime) {
  for (const DialogTable& table : kTables) {
    runtime.RegisterDialog(table.name, [&table] { return std::make_unique<UnattendedDialog>(table); });
  }
}

}  // namespace salerpt
