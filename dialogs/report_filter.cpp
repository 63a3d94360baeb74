#include "dialogs/report_filter.h"

#include <optional>

#include "dialogs/look_up.h"
#include "runtime/mparse.h"
#include "runtime/runtime.h"
#include "runtime/toolkit.h"
#include "sqltoolkit/filter_condition.h"

namespace salerpt {
namespace {

constexpr std::string_view kAnd = " And ";

}  // namespace

ReportFilter::ReportFilter(Form& form, std::span<const Range> ranges)
    : form_(form), ranges_(ranges), plans_(form, *this, PlanPane::Kind::kOlder) {
  form_.Add<TabControl>("grfFilter").tabs = {{ResText("条件"), true}};
  auto& ok = form_.Add<Button>("cmdOK");
  ok.caption = ResText("确定(&O)");
  ok.Click.Connect([this] { Confirm(); });
  auto& cancel = form_.Add<Button>("cmdCacel");
  cancel.caption = ResText("取消(&C)");
  cancel.Click.Connect([this] { Cancel(); });
  plans_.ApplyStrings();
  form_.Get<Toolbar>("tlbProject").ButtonClick.Connect([this](Toolbar::ToolButton& button) {
    if (EqualNames(button.key, "TLBCLEAR")) Reset.Raise();
  });
}

void ReportFilter::Init(std::int32_t mode) {
  mode_ = mode;
  start_ = State();
  plans_.Load();
}

// --- Look-ups

void ReportFilter::Watch(int index, TextBox& field, Button& button) {
  button.Click.Connect([this, index, &field] { LookUp(index, field); });
  field.KeyDown.Connect([this, index, &field](KeyStroke& key) {
    if (key.code == key_code::kF7 || key.code == key_code::kF8) LookUp(index, field);
  });
}

void ReportFilter::LookUp(int index, TextBox& field) {
  LookUpRequest request{field, index, 0, {}};
  BeforeLookUp.Raise(request);
  if (request.item_class_id != 0) {
    const std::optional<std::string> code =
        LookUpCode(request.item_class_id, field.Text(), request.condition);
    if (code) field.SetText(*code);
  }
  Runtime::Current().GetToolkit().DoEvents();
}

// --- Plans

void ReportFilter::CollectPlan(std::string_view plan, Vector& rows) {
  Dictionary state;
  Save.Raise(state);
  for (const Dictionary::Entry& entry : state.Entries()) {
    AddPlanRow(rows, rpt_id_, plan, entry.key, entry.value.TextOrEmpty());
  }
}

void ReportFilter::RestorePlan(const RecordsetRef& rows) {
  if (!rows || rows->RecordCount() == 0) {
    Load.Raise(*start_);
    return;
  }
  Dictionary state;
  const int key = rows->FieldIndex("FKey");
  const int value = rows->FieldIndex("FValue");
  for (rows->MoveFirst(); !rows->Eof(); rows->MoveNext()) {
    state.Set(rows->Value(key).TextOrEmpty(), rows->Value(value).TextOrEmpty());
  }
  Load.Raise(state);
}

DictionaryRef ReportFilter::State() {
  Dictionary saved;
  Save.Raise(saved);
  auto state = std::make_shared<Dictionary>();
  for (const Dictionary::Entry& entry : saved.Entries()) {
    const std::string* text = entry.value.TextIf();
    state->Set(entry.key, text == nullptr ? entry.value : Variant(Replace(*text, "''", "'")));
  }
  return state;
}

// --- Confirmation

void ReportFilter::Confirm() {
  // So that validation of the last field runs.
  form_.SetFocus(form_.Get<Button>("cmdOK"));
  bool cancel = false;
  Validate.Raise(cancel);
  if (cancel) return;
  conditions_ = State();
  filter_string_ = Compose(*conditions_);
  conditions_->Set("Mode", Join(mode_));
  // The class, where items are chosen by one.
  conditions_->Set("ItemClassNumber", "");
  Confirmed.Raise(cancel);
  if (cancel) return;
  plans_.SaveIfDefault();
  Closed.Raise();
}

std::string ReportFilter::Compose(const Dictionary& state) const {
  std::string condition;
  for (const Range& range : ranges_) {
    const std::string head = Join(kAnd, range.column);
    if (range.is_code) {
      AppendCodeRange(condition, state, range.begin_key, range.end_key, head);
    } else {
      AppendBound(condition, state, range.begin_key, Join(head, ">="));
      AppendBound(condition, state, range.end_key, Join(head, "<="));
    }
  }
  return condition.empty() ? condition : condition.substr(kAnd.size());
}

}  // namespace salerpt
