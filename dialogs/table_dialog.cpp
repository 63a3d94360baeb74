#include "dialogs/table_dialog.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "dialogs/date_range.h"
#include "dialogs/ignoring.h"
#include "dialogs/name_list.h"
#include "dialogs/period_fields.h"
#include "runtime/mmts.h"
#include "runtime/mparse.h"
#include "runtime/mrpt.h"
#include "runtime/number_text.h"
#include "runtime/runtime.h"
#include "runtime/toolkit.h"

namespace salerpt {
namespace {

constexpr std::int32_t kDeepestLevel = 5;

// "全部", then the sale styles but the hidden one.
void LoadSaleTypes(ListControl& box, std::int32_t hidden) {
  constexpr std::int32_t kAll = 1;
  box.Clear();
  box.AddItem(ResText("全部"), kAll);
  Ignoring([&] {
    const ObjectRef data = CreateObject("ORVMSaleRpt.Data");
    const auto rows = As<Recordset>(Call(data, "GetSaleType", GetPropsString()));
    if (!rows || rows->RecordCount() == 0) return;
    const int id = rows->FieldIndex("FInterID");
    const int name = rows->FieldIndex("FName");
    for (rows->MoveFirst(); !rows->Eof(); rows->MoveNext()) {
      if (rows->Int32(id) == hidden) continue;
      box.AddItem(rows->Value(name).TextOrEmpty(), rows->Int32(id));
    }
  });
  box.SetListIndex(0);
}

}  // namespace

TableDialog::TableDialog(const DialogTable& table) : table_(table) {
  form_.form_name = table.name;
}

TableDialog::~TableDialog() = default;

void TableDialog::SetStatus(std::int32_t value, bool visible) {
  status_value_ = value;
  status_visible_ = static_cast<std::int16_t>(visible ? -1 : 0);
}

// --- The controls

void TableDialog::MakeControls() {
  form_.Add<TabControl>(std::string(table_.tabs)).tabs = {{"条件", true}};
  MakeRange();
  MakeCodeFields();
  for (const ComboBoxRows& combo : table_.combos) {
    form_.Add<ListControl>(std::string(combo.control), ListControl::Style::kCombo);
  }
  for (const std::string_view box : {table_.sale_types, table_.order_types}) {
    if (!box.empty()) form_.Add<ListControl>(std::string(box), ListControl::Style::kCombo);
  }
  if (table_.group_by != nullptr) group_pane_ = MakeGroupPane();
  for (const CheckBoxCaption& check : table_.checks) {
    form_.Add<CheckBox>(std::string(check.control)).SetValue(check.start);
  }
  for (const LabelCaption& label : table_.labels) {
    if (form_.Find(label.control) == nullptr) form_.Add<Label>(std::string(label.control));
  }
  if (!table_.sort_fields.empty()) sort_pane_ = MakeSortPane();
  form_.Add<Button>("cmdOK").Click.Connect([this] { Confirm(); });
  form_.Add<Button>("cmdCacel").Click.Connect([this] { Cancel(); });
  plan_pane_ = MakePlanPane();
  if (group_pane_ && sort_pane_) {
    group_pane_->GroupingChanged.Connect([this](bool grouped) { sort_pane_->FieldListBuild(!grouped); });
  }
}

void TableDialog::MakeRange() {
  if (table_.range == RangePane::kDates) {
    form_.Add<DatePicker>("DtpBDate");
    form_.Add<DatePicker>("DtpEDate");
  } else {
    periods_ = std::make_unique<PeriodFields>(form_, table_.range == RangePane::kPeriodRange);
  }
}

void TableDialog::MakeCodeFields() {
  for (const CodeRange& range : table_.codes) {
    for (const int index : {range.index, range.index + 1}) {
      auto& field = form_.Add<TextBox>(ControlName("txtItem", index));
      const auto look_up = [this, &range, index] {
        OpenLookUp(range, index);
        Runtime::Current().GetToolkit().DoEvents();
      };
      form_.Add<Button>(ControlName("cmdItem", index)).Click.Connect(look_up);
      field.KeyDown.Connect([look_up](KeyStroke& key) {
        if (key.code == key_code::kF7 || key.code == key_code::kF8) look_up();
      });
      field.GotFocus.Connect([this, &range, &field] {
        if (name_list_) name_list_->Enter(field, range.item_class_id);
      });
      field.Change.Connect([this] {
        if (name_list_) name_list_->OnChange();
      });
      field.KeyUp.Connect([this](KeyStroke& key) {
        if (name_list_) name_list_->OnKeyUp(key);
      });
      field.LostFocus.Connect([this] {
        if (name_list_) name_list_->Leave();
      });
    }
  }
}

std::unique_ptr<PlanPane> TableDialog::MakePlanPane() {
  return std::make_unique<PlanPane>(form_, *this,
                                    IsCurrent() ? PlanPane::Kind::kCurrent : PlanPane::Kind::kOlder);
}

std::unique_ptr<GroupPane> TableDialog::MakeGroupPane() {
  return std::make_unique<GroupPane>(form_, *table_.group_by, table_.tabs);
}

std::unique_ptr<SortPane> TableDialog::MakeSortPane() {
  return std::make_unique<SortPane>(form_, table_.sort_fields, table_.tabs);
}

// --- Load

void TableDialog::Load() {
  if (loaded_) return;
  loaded_ = true;
  MakeControls();
  form_.KeyDown.Connect([this](KeyStroke& key) { OnKeyDown(key); });
  form_.KeyPress.Connect([this](KeyStroke& key) { OnKeyPress(key); });
  ApplyStrings();
  ApplyLanguage();
  filter_ = std::make_shared<Dictionary>();
  filter_->Set("OK", false);
  if (periods_) periods_->ReadProfile();
  if (group_pane_) {
    group_pane_->SetLevelBounds(0, kDeepestLevel);
    group_pane_->LoadGroupByItems();
  }
  if (sort_pane_) sort_pane_->FieldListBuild(true);
  FillBoxes();
  LoadOwn();
  plan_pane_->Load();
  if (IsCurrent()) ReadNameListSetting();
}

void TableDialog::ApplyStrings() {
  form_.caption = ResText("过滤");
  for (const LabelCaption& label : table_.labels) form_.Find(label.control)->caption = ResText(label.caption);
  for (const CodeRange& range : table_.codes) {
    if (range.caption.empty()) continue;
    form_.Add<Label>(ControlName("lblItem", range.index)).caption = ResText(range.caption);
    form_.Add<Label>(ControlName("lblTo", range.index)).caption = ResText(table_.range_to);
  }
  for (const CheckBoxCaption& check : table_.checks) {
    form_.Get<CheckBox>(check.control).caption = ResText(check.caption);
  }
  form_.Get<Button>("cmdOK").caption = ResText("确定(&O)");
  form_.Get<Button>("cmdCacel").caption = ResText("取消(&C)");
  if (group_pane_) group_pane_->ApplyStrings();
  if (sort_pane_) sort_pane_->ApplyStrings();
  plan_pane_->ApplyStrings();
}

void TableDialog::ApplyLanguage() {
  Ignoring([this] {
    if (table_.resources.empty()) {
      ApplyFormFont(form_.AsObject());
    } else {
      LoadFormResources(form_.AsObject(), nullptr, table_.resources);
    }
  });
}

void TableDialog::FillBoxes() {
  if (!table_.sale_types.empty()) LoadSaleTypes(Box(table_.sale_types), table_.hidden_sale_type);
  if (!table_.order_types.empty()) {
    ListControl& box = Box(table_.order_types);
    Ignoring([&] { FillStatusCombo(box); });
    box.SetListIndex(0);
  }
  for (const ComboBoxRows& combo : table_.combos) {
    ListControl& box = Box(combo.control);
    for (const std::string_view row : combo.rows) box.AddItem(ResText(row), 0);
    box.SetListIndex(combo.start);
  }
  if (!table_.remembered.empty()) {
    Ignoring([this] {
      const std::string stored = Runtime::Current().ini_file.Read(SettingsSection(), "CheckState", "0");
      Box(table_.remembered).SetListIndex(Variant(Val(stored)).ToInt32());
    });
  }
}

std::string TableDialog::SettingsSection() const {
  return Join(rpt_id_, "ORVSaleRpt");
}

// With the name list on, Enter belongs to the list, not to the button.
void TableDialog::ReadNameListSetting() {
  const bool is_on = ReadUserSetting("ORV", "Filter", "ShowList", "1").TextOrEmpty() == "1";
  if (is_on) name_list_ = std::make_unique<NameList>();
  form_.Get<Button>("cmdOK").is_default = !is_on;
}

void TableDialog::Activate() {
  if (ReadDebugSwitch() == 1) Confirm();
}

// --- Look-ups and keys

void TableDialog::OpenLookUp(const CodeRange& range, int index) {
  TextBox& field = CodeField(index);
  std::optional<std::string> chosen;
  switch (range.look_up) {
    case LookUp::kBaseData:
      chosen = LookUpCode(range.item_class_id, field.Text());
      break;
    case LookUp::kNumber:
      chosen = LookUpNumber(range.item_class_id, field.Text());
      break;
    case LookUp::kOrderNumber:
      chosen = LookUpOrderNumber(field.Text());
      break;
    case LookUp::kBatchNumber:
      chosen = LookUpBatchNumber(CodeField(0).Text(), CodeField(1).Text());
      break;
  }
  if (chosen) field.SetText(*chosen);
}

void TableDialog::OnKeyDown(KeyStroke& key) {
  if (key.code != key_code::kEnter) return;
  Toolkit& toolkit = Runtime::Current().GetToolkit();
  if (IsCurrent()) {
    toolkit.KeybdEvent(key_code::kTab);
  } else {
    toolkit.SendKeys("{TAB}");
  }
}

// No apostrophe can be typed into any field.
void TableDialog::OnKeyPress(KeyStroke& key) {
  if (key.code == key_code::kEnter || key.code == key_code::kApostrophe) {
    key.code = 0;
  } else if (key.code == key_code::kEscape && IsCurrent()) {
    Cancel();
  }
}

// --- Confirmation

void TableDialog::Confirm() {
  if (group_pane_) group_pane_->FixZeroLevels();
  if (!AcceptRange()) return;
  // So that validation of the last field runs.
  form_.SetFocus(form_.Get<Button>("cmdOK"));
  WriteFilter();
  Unload();
}

bool TableDialog::AcceptRange() {
  return table_.range != RangePane::kDates || AcceptDateRange(form_);
}

void TableDialog::WriteFilter() {
  filter_->Set("OK", true);
  for (const FilterKey& key : table_.keys) WriteKey(key);
}

void TableDialog::WriteKey(const FilterKey& key) {
  // "已钩稽" is told as 2: the reports know no 1.
  const auto hook_status = [](int index) { return index == 2 ? 2 : index - 1; };
  switch (key.source) {
    case KeySource::kDate:
      filter_->Set(key.key, form_.Get<DatePicker>(key.control).Text());
      break;
    case KeySource::kText:
      filter_->Set(key.key, form_.Get<TextBox>(key.control).Text());
      break;
    case KeySource::kTrimmedText:
      filter_->Set(key.key, std::string(Trim(form_.Get<TextBox>(key.control).Text())));
      break;
    case KeySource::kNumber:
      filter_->Set(key.key, Val(form_.Get<TextBox>(key.control).Text()));
      break;
    case KeySource::kCheck:
      filter_->Set(key.key, std::int32_t{form_.Get<CheckBox>(key.control).Value()});
      break;
    case KeySource::kListIndex:
      filter_->Set(key.key, std::int32_t{Box(key.control).ListIndex()});
      break;
    case KeySource::kItemData:
      filter_->Set(key.key, Box(key.control).ItemData());
      break;
    case KeySource::kListText:
      filter_->Set(key.key, Box(key.control).Text());
      break;
    case KeySource::kHookStatus:
      filter_->Set(key.key, std::int32_t{hook_status(Box(key.control).ListIndex())});
      break;
    case KeySource::kSumMode:
      filter_->Set(key.key, group_pane_->SumMode());
      break;
    case KeySource::kSumName:
      filter_->Set(key.key, group_pane_->SumName());
      break;
    case KeySource::kSumField:
      filter_->Set(key.key, group_pane_->SumField(*filter_));
      break;
    case KeySource::kOrder:
      filter_->Set(key.key, sort_pane_->ComposeOrderBy());
      break;
    case KeySource::kSaveDefault:
      plan_pane_->SaveIfDefault();
      break;
  }
}

void TableDialog::Cancel() {
  Unload();
}

void TableDialog::ShowFinish(std::string_view plan) {
  Load();
  plan_pane_->LoadPlan(plan);
  Confirm();
}

// --- Plans

void TableDialog::CollectPlan(std::string_view plan, Vector& rows) {
  for (const PlanKey& key : table_.plan) AddPlanRow(rows, rpt_id_, plan, key.key, PlanValue(key));
}

std::string TableDialog::PlanValue(const PlanKey& key) {
  switch (key.source) {
    case PlanSource::kDate:
      return form_.Get<DatePicker>(key.control).Text();
    case PlanSource::kCode:
      // As typed: a code keeps its blanks.
      return Replace(form_.Get<TextBox>(key.control).Text(), "'", "''");
    case PlanSource::kText:
      return form_.Get<TextBox>(key.control).Text();
    case PlanSource::kCheck:
      return Join(form_.Get<CheckBox>(key.control).Value());
    case PlanSource::kListIndex:
      return Join(Box(key.control).ListIndex());
    case PlanSource::kListText:
      return Box(key.control).Text();
    case PlanSource::kOrder:
      return sort_pane_->ComposeOrderBy();
  }
  return {};
}

std::string TableDialog::DefaultOf(const PlanKey& key) {
  switch (key.absent) {
    case PlanDefault::kText:
      return std::string(key.text);
    case PlanDefault::kToday:
      return Runtime::Current().GetPlatform().Now().Format('-');
    case PlanDefault::kCurrentYear:
      return Join(periods_->CurrentYear());
    case PlanDefault::kCurrentPeriod:
      return Join(periods_->CurrentPeriod());
    case PlanDefault::kUnchanged:
      return PlanValue(key);
  }
  return {};
}

void TableDialog::RestorePlan(const RecordsetRef& rows) {
  for (const PlanKey* key : RestoreOrder()) {
    Ignoring([&] { RestoreKey(*key, PlanKeyValue(rows, key->key, DefaultOf(*key))); });
    // The panes match the boxes from here on.
    if (group_pane_ && EqualNames(key->key, "CheckState")) group_pane_->ApplyGroupBy();
  }
}

// The saving order, with the end level before the begin level: the begin level follows the end level
// downwards.
std::vector<const PlanKey*> TableDialog::RestoreOrder() const {
  const auto find = [this](std::string_view name) {
    return &*std::find_if(table_.plan.begin(), table_.plan.end(),
                          [name](const PlanKey& key) { return EqualNames(key.key, name); });
  };
  std::vector<const PlanKey*> order;
  if (!table_.restore.empty()) {
    for (const std::string_view name : table_.restore) order.push_back(find(name));
    return order;
  }
  for (const PlanKey& key : table_.plan) {
    if (EqualNames(key.key, "ELevel")) continue;
    if (EqualNames(key.key, "BLevel")) order.push_back(find("ELevel"));
    order.push_back(&key);
  }
  return order;
}

void TableDialog::RestoreKey(const PlanKey& key, const std::string& value) {
  const auto number = [&value] { return Variant(Val(value)).ToInt32(); };
  switch (key.source) {
    case PlanSource::kDate: {
      const std::optional<Date> date = Date::Parse(value);
      if (!date) {
        throw RuntimeError(error_number::kTypeMismatch, std::string(table_.name),
                           Join(key.key, ": \"", value, "\" is no date"));
      }
      form_.Get<DatePicker>(key.control).SetValue(*date);
      break;
    }
    case PlanSource::kCode:
    case PlanSource::kText:
      form_.Get<TextBox>(key.control).SetText(value);
      break;
    case PlanSource::kCheck:
      form_.Get<CheckBox>(key.control).SetValue(number());
      break;
    case PlanSource::kListIndex:
      Box(key.control).SetListIndex(number());
      break;
    case PlanSource::kListText: {
      ListControl& box = Box(key.control);
      const auto& items = box.Items();
      const auto found = std::find_if(items.begin(), items.end(),
                                      [&value](const ListItem& item) { return item.text == value; });
      if (found == items.end()) {
        throw RuntimeError(error_number::kInvalidCall, std::string(table_.name),
                           Join(key.control, " has no row \"", value, "\""));
      }
      box.SetListIndex(static_cast<std::int32_t>(found - items.begin()));
      break;
    }
    case PlanSource::kOrder:
      sort_pane_->RestoreOrderGrid(value);
      break;
  }
}

}  // namespace salerpt
