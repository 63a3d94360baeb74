#include "dialogs/credit_dialog.h"

#include <array>
#include <utility>

#include "dialogs/ignoring.h"
#include "dialogs/look_up.h"
#include "runtime/form_services.h"
#include "runtime/mparse.h"
#include "runtime/mrpt.h"
#include "runtime/runtime.h"
#include "runtime/toolkit.h"

namespace salerpt {
namespace {

// What credit is given to, in the order of `cmbCreditObj`.
struct CreditObjectRow {
  std::string_view text;
  std::string_view code_caption;
  std::int32_t item_class_id;
};
constexpr std::array<CreditObjectRow, 5> kCreditObjects{{
    {"客户", "客户代码:", 1},
    {"业务员", "业务员代码:", 3},
    {"部门", "部门代码:", 2},
    {"客户类别", "客户类别:", 501},
    {"业务员类别", "业务员类别:", 30},
}};

constexpr std::array<std::string_view, 4> kCreditTypes = {"销售合同", "销售订单", "销售出库单", "销售发票"};

const CreditObjectRow& CreditObjectAt(int index) {
  return kCreditObjects.at(static_cast<std::size_t>(index));
}

// No apostrophe can be typed into a code; Enter moves on.
void OnCodeKeyPress(KeyStroke& key) {
  Toolkit& toolkit = Runtime::Current().GetToolkit();
  if (key.code == key_code::kEnter) {
    key.code = 0;
    toolkit.SendKeys("{TAB}");
  } else if (key.code == key_code::kApostrophe) {
    key.code = 0;
    toolkit.Beep();
  }
}

}  // namespace

// --- Rows of a plan

void PlanWriter::Code(std::string_view key, const TextBox& field) {
  AddPlanRow(rows_, rpt_id_, plan_, key, Replace(field.Text(), "'", "''"));
}

void PlanWriter::Index(std::string_view key, const ListControl& box) {
  AddPlanRow(rows_, rpt_id_, plan_, key, Join(box.ListIndex()));
}

void PlanWriter::Day(std::string_view key, const DatePicker& picker) {
  AddPlanRow(rows_, rpt_id_, plan_, key, picker.Text());
}

void PlanReader::Code(std::string_view key, TextBox& field) const {
  field.SetText(PlanKeyValue(rows_, key, ""));
}

void PlanReader::Index(std::string_view key, ListControl& box) const {
  Ignoring([&] { box.SetListIndex(Variant(Val(PlanKeyValue(rows_, key, "0"))).ToInt32()); });
}

void PlanReader::Day(std::string_view key, DatePicker& picker) const {
  const std::string today = Runtime::Current().GetPlatform().Now().Format('-');
  if (const auto date = Date::Parse(PlanKeyValue(rows_, key, today))) picker.SetValue(*date);
}

// --- Load

CreditDialog::CreditDialog(std::string_view name) {
  form_.form_name = name;
}

CreditDialog::~CreditDialog() = default;

void CreditDialog::Load() {
  if (loaded_) return;
  loaded_ = true;
  MakeControls();
  Ignoring([this] { ApplyFormFont(form_.AsObject()); });
  filter_ = std::make_shared<Dictionary>();
  filter_->Set("OK", false);
  plans_->Load();
}

void CreditDialog::MakeControls() {
  form_.caption = ResText("过滤");
  form_.Add<TabControl>("mstFilter").tabs = {{ResText("条件"), true}};
  MakeFields();

  AddLabel("Label2", "信用对象:");
  auto& objects = form_.Add<ListControl>("cmbCreditObj", ListControl::Style::kCombo);
  for (const CreditObjectRow& row : kCreditObjects) objects.AddItem(ResText(row.text), 0);
  form_.Add<Label>("Label3");
  objects.Click.Connect([this] { FollowCreditObject(); });
  objects.SetListIndex(0);
  AddCode(kBeginObject);
  AddCode(kEndObject);

  auto& ok = form_.Add<Button>("cmdOK");
  ok.caption = ResText("确定(&O)");
  ok.Click.Connect([this] { Confirm(); });
  auto& cancel = form_.Add<Button>("cmdCacel");
  cancel.caption = ResText("取消(&C)");
  cancel.Click.Connect([this] { Close(); });

  plans_ = std::make_unique<SchemePane>(form_, *this);
  plans_->ApplyStrings();
}

void CreditDialog::AddLabel(std::string name, std::string_view caption) {
  form_.Add<Label>(std::move(name)).caption = ResText(caption);
}

void CreditDialog::AddDate(std::string name) {
  form_.Add<DatePicker>(std::move(name)).SetValue(Runtime::Current().GetPlatform().Now());
}

void CreditDialog::AddCode(int index) {
  auto& field = form_.Add<TextBox>(ControlName("txtItem", index));
  field.KeyPress.Connect(OnCodeKeyPress);
  field.KeyDown.Connect([this, index](KeyStroke& key) {
    if (key.code == key_code::kF7 || key.code == key_code::kF8) OpenLookUp(index);
  });
  form_.Add<Button>(ControlName("cmdItem", index)).Click.Connect([this, index] { OpenLookUp(index); });
}

void CreditDialog::AddCreditTypes() {
  AddLabel("Label1", "信用管理范围:");
  auto& types = form_.Add<ListControl>("Cmb_CreditType", ListControl::Style::kCombo);
  for (const std::string_view type : kCreditTypes) types.AddItem(ResText(type), 0);
  types.SetListIndex(0);
}

void CreditDialog::Activate() {
  if (ReadDebugSwitch() == 1) Confirm();
}

// --- Credit object and look-ups

// Kept: the codes in the fields stay, whatever they were codes of.
void CreditDialog::FollowCreditObject() {
  const int index = CreditObject().ListIndex();
  form_.Get<Label>("Label3").caption =
      index < 0 ? std::string() : ResText(CreditObjectAt(index).code_caption);
}

std::int32_t CreditDialog::CreditObjectClass() const {
  const int index = CreditObject().ListIndex();
  return index < 0 ? 0 : CreditObjectAt(index).item_class_id;
}

// A look-up never reports a failure: the field then stays.
void CreditDialog::OpenLookUp(int index) {
  TextBox& field = CodeField(index);
  Ignoring([&] {
    const ObjectRef picked = PickBaseData(LookUpClass(index), field.Text());
    if (!picked) return;
    field.SetText(CodeInUse(picked));
    OnPicked(index, picked);
  });
  Runtime::Current().GetToolkit().DoEvents();
}

// --- Confirmation, cancel

void CreditDialog::Confirm() {
  if (!AcceptRange()) return;
  form_.SetFocus(form_.Get<Button>("cmdOK"));
  filter_->Set("OK", true);
  WriteFilter();
  plans_->SaveIfDefault();
  Close();
}

void CreditDialog::Close() {
  WriteSettings();
  Unload();
}

void CreditDialog::WriteSetting(std::string_view key, std::string_view value) const {
  IniFile& ini_file = Runtime::Current().ini_file;
  if (ini_file.FileName().empty()) ini_file.SetFileName("JXCQ7SaleRpt.INI");
  Ignoring([&] { ini_file.Write(Join(rpt_id_, "ORVSaleRpt"), key, value); });
}

void CreditDialog::ShowFinish(std::string_view plan) {
  Load();
  plans_->LoadPlan(plan);
  Confirm();
}

// --- Plans

void CreditDialog::FillPlanListView(std::int32_t rpt_id, RecordsetRef& result) {
  plans_->FillPlanListView(rpt_id, result);
}

std::string CreditDialog::CurrentPlan() const {
  return plans_ ? plans_->CurrentPlan() : std::string();
}

// --- Without a person

bool CreditDialog::Choose(std::string_view key, const Variant& value) {
  struct KeyControl {
    std::string_view key;
    std::string_view control;
  };
  static constexpr KeyControl kControls[] = {
      {"BDate", "DtpBDate"},          {"EDate", "DtpEDate"},
      {"FDate", "DtpFDate"},          {"FCreditClass", "cmbCreditObj"},
      {"FGroupID", "Cmb_CreditType"}, {"FCurrencyNumber", "txtItem(0)"},
      {"FCurrentcyID", "txtItem(0)"},
  };
  for (const KeyControl& entry : kControls) {
    if (!EqualNames(entry.key, key)) continue;
    const std::string* text = value.TextIf();
    if (auto* picker = form_.FindAs<DatePicker>(entry.control); picker != nullptr && text != nullptr) {
      const auto date = Date::Parse(*text);
      if (date) picker->SetValue(*date);
      return date.has_value();
    }
    if (auto* box = form_.FindAs<TextBox>(entry.control); box != nullptr && text != nullptr) {
      box->SetText(*text);
      return true;
    }
    auto* list = form_.FindAs<ListControl>(entry.control);
    const bool has_row = list != nullptr && value.IsNumber() && value.ToInt32() >= 0 &&
                         value.ToInt32() < static_cast<std::int32_t>(list->Items().size());
    if (has_row) list->SetListIndex(value.ToInt32());
    return has_row;
  }
  return false;
}

}  // namespace salerpt
