#include "dialogs/unattended_dialog.h"

#include <algorithm>
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

// A number of the system profile; 0 where it cannot be read, as the dialogs' own reads ignore failures.
std::int32_t ProfileNumber(std::string_view key) {
  try {
    const ObjectRef profile = ObjectFactory::CreateServerObject("ORVEBSBase.SystemProfile");
    return Variant(Val(Call(profile, "GetProfile", GetPropsString(), "IC", key).TextOrEmpty())).ToInt32();
  } catch (const RuntimeError&) {
    return 0;
  }
}

const DialogTable::GroupByRow* FindGroupBy(const DialogTable& table, std::int32_t code) {
  const auto found = std::find_if(table.group_by.begin(), table.group_by.end(),
                                  [code](const DialogTable::GroupByRow& row) { return row.code == code; });
  return found == table.group_by.end() ? nullptr : &*found;
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

const SumFieldRow* FindSumField(const DialogTable& table, std::int32_t code) {
  const auto found = std::find_if(table.sum_fields.begin(), table.sum_fields.end(),
                                  [code](const SumFieldRow& row) { return row.code == code; });
  return found == table.sum_fields.end() ? nullptr : &*found;
}

// A row that is not described groups by nothing of its own: it has neither class nor name.
constexpr SumFieldRow kPlainRow{0, "", 0, 0};

DictionaryRef SumFieldOf(const DialogTable& table, std::int32_t code) {
  const SumFieldRow* found = FindSumField(table, code);
  const SumFieldRow& row = found == nullptr ? kPlainRow : *found;
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

const DialogTable& UnattendedDialog::Table() const {
  return table_.receivable != nullptr && Chosen("InvoiceStyle", 0) == 1 ? *table_.receivable : table_;
}

std::int32_t UnattendedDialog::ChosenSumMode() const {
  return Chosen("SumMode", table_.group_by.empty() ? 0 : table_.group_by.front().code);
}

std::int32_t UnattendedDialog::WrittenSumMode() const {
  const std::int32_t code = ChosenSumMode();
  const SumFieldRow* row = FindSumField(Table(), code);
  return row == nullptr ? code : row->sum_mode;
}

Variant UnattendedDialog::ValueOf(const DialogKey& key) const {
  switch (key.value) {
    case kEmptyText:
      return "";
    case kNumber:
      return key.number;
    case kWord:
      return ResText(key.word);
    case kToday:
      return Runtime::Current().GetPlatform().Now().ToText().substr(0, 10);
    case kCurrentYear:
      return ProfileNumber("CurrentYear");
    case kCurrentPeriod:
      return ProfileNumber("CurrentPeriod");
    case kBeginLevel:
      return 1.0;
    case kEndLevel: {
      const DialogTable::GroupByRow* row = FindGroupBy(Table(), ChosenSumMode());
      return static_cast<double>(EndLevel(row == nullptr ? 0 : row->level_class));
    }
    case kSumName: {
      const DialogTable::GroupByRow* row = FindGroupBy(Table(), ChosenSumMode());
      return row == nullptr ? std::string() : ResText(row->text);
    }
    case kSumField:
      return SumFieldOf(Table(), ChosenSumMode());
    case kTaxInPrice:
      return ProfileNumber("POOrderTaxInPrice");
    case kTaxRateOption:
      return ProfileNumber("PurTaxRateOption");
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
  if (filter_->Lookup("SumMode")) filter_->Set("SumMode", WrittenSumMode());
  if (filter_->Lookup("ELevel")) KeepLevelsInOrder(*filter_);
}

}  // namespace salerpt
