#include "dialogs/frm_filter139.h"

#include <algorithm>
#include <array>

#include "dialogs/ignoring.h"
#include "dialogs/look_up.h"
#include "dialogs/tables/entries.h"
#include "runtime/form_services.h"
#include "runtime/mparse.h"
#include "runtime/mrpt.h"
#include "runtime/runtime.h"
#include "runtime/toolkit.h"

namespace salerpt {
namespace {

constexpr std::int32_t kOrderList = 32;
constexpr std::int32_t kWorkOrderList = 36;
constexpr std::array kBillLists = {
    BillList{kOrderList, "ORVMShopRpt.Data", "Select FBillNo From SEOrder Where FInterID="},
    BillList{kWorkOrderList, "ORVMShopRpt.Data", "Select FBillNo From ICMO Where FInterID="},
};

// --- The code fields, in pairs

struct FieldPair {
  std::string_view begin_key;
  std::string_view end_key;
  // 0 for the order numbers, which a list of bills gives.
  std::int32_t item_class_id;
  std::string_view condition;
  std::string_view caption;
};
// Purchased items are neither produced nor tracked.
constexpr std::array kFields = {
    FieldPair{"BEmp", "EEmp", kEmployeeClass, "", "业务员:"},
    FieldPair{"BItemNumber", "EItemNumber", kItemClass, " x2.FErpClsID <>1 ", "物料代码:"},
    FieldPair{"BClientNumber", "EClientNumber", kCustomerClass, "", "客户代码:"},
    FieldPair{"BDept", "EDept", kDepartmentClass, "", "部门代码:"},
    FieldPair{"BBillNo", "EBillNo", kNoClass, "", "订单编号:"},
};

// The ranges of the condition text, over the order and the base data that the report's rights are asked for.
constexpr std::array kRanges = {
    ReportFilter::Range{"BDate", "EDate", "SEOrder.FDate"},
    ReportFilter::Range{"BEmp", "EEmp", "te.", true},
    ReportFilter::Range{"BItemNumber", "EItemNumber", "t1.", true},
    ReportFilter::Range{"BClientNumber", "EClientNumber", "tc.", true},
    ReportFilter::Range{"BDept", "EDept", "td.", true},
    ReportFilter::Range{"BBillNo", "EBillNo", "SEOrder.FBillNo"},
};

// --- The boxes. The keys of the state by control.

struct StateKey {
  std::string_view key;
  std::string_view control;
};
constexpr std::array kExecutionKeys = {
    StateKey{"Unexecuted", "chkUnexecuted"},
    StateKey{"Partialexecution", "chkPartialexecution"},
    StateKey{"Fullyexecuted", "chkFullyexecuted"},
};
constexpr std::array kGroupKeys = {
    StateKey{"GroupBy", "chkGroupBy"},
    StateKey{"OnlyShowSum", "chkOnlyShowSum"},
};

constexpr std::array<std::string_view, 5> kSaleStyles = {"现销", "赊销", "分期收款销售", "委托代销", "全部"};
constexpr std::array<std::string_view, 3> kClosings = {"已关闭", "未关闭", "全部"};
constexpr int kNotAudited = 1;
constexpr int kOpen = 1;
constexpr std::array kBoxes = {
    ComboBoxRows{"cmbFSaleStyle", kSaleStyles, 4},
    kCheckStateBox,
    ComboBoxRows{"cmbCheckClose", kClosings, 2},
    kCommodityTypeBox,
};

constexpr std::array kGroupRows = {kByItemClass};
constexpr GroupByTable kGroups = {.rows = kGroupRows, .sum_fields = {}};

// Check boxes, combo boxes and labels stand in the font of the filter control around them.
constexpr double kFontSize = 9.5;
constexpr std::array<std::string_view, 3> kInControlFont = {"CheckBox", "ComboBox", "Label"};

constexpr std::array kLabels = {
    LabelCaption{"lblBDate", "起始日期:"},      LabelCaption{"lblEDate", "截止日期:"},
    LabelCaption{"lblSaleStyle", "销售方式:"},  LabelCaption{"lblCommodityType", "商品类型:"},
    LabelCaption{"lblCheckState", "审核状态:"}, LabelCaption{"lblCheckClose", "是否关闭:"},
};

std::int32_t NumberOf(const Dictionary& state, std::string_view key) {
  return Variant(Val(state.Get(key).TextOrEmpty())).ToInt32();
}

DictionaryRef SumFieldOf(std::int32_t sum_mode) {
  constexpr std::int32_t kByDepartment = 2;
  const bool is_department = sum_mode == kByDepartment;
  auto field = std::make_shared<Dictionary>();
  field->Set("FPropID", std::int32_t{0});
  field->Set("FSQLColumnName", is_department ? "FDeptID" : "FName");
  field->Set("FSrcTable", "");
  field->Set("FSrcField", "");
  field->Set("FDisplayField", "");
  field->Set("FItemClassID", is_department ? Variant(std::int32_t{0}) : Variant(""));
  return field;
}

}  // namespace

FrmFilter139::FrmFilter139() {
  form_.form_name = "FrmFilter139";
}

FrmFilter139::~FrmFilter139() = default;

// --- The controls

void FrmFilter139::MakeControls() {
  form_.Add<DatePicker>("DtpBDate");
  form_.Add<DatePicker>("DtpEDate");
  MakeFields();
  const auto& check_frame = form_.Add<Frame>("fraCheck");
  for (const ComboBoxRows& box : kBoxes) {
    form_.Add<ListControl>(std::string(box.control), ListControl::Style::kCombo);
  }
  Box("cmbCheckState").container = &check_frame;
  Box("cmbCheckClose").container = &check_frame;
  Box("cmbCheckState").Click.Connect([this] { CoupleCheckClose(); });
  MakeExecution();
  form_.Add<Frame>("fraGroup");
  group_pane_ = std::make_unique<GroupPane>(form_, kGroups, "grfFilter");
  group_pane_->GroupingChanged.Connect([this](bool grouped) {
    form_.Get<Frame>("fraGroup").enabled = grouped;
    EnableExecution();
  });
  Check("chkOnlyShowSum").Click.Connect([this] { EnableExecution(); });
  for (const LabelCaption& label : kLabels) form_.Add<Label>(std::string(label.control));
  control_ = std::make_unique<ReportFilter>(form_, kRanges);
}

void FrmFilter139::MakeFields() {
  for (int pair = 0; const FieldPair& fields : kFields) {
    form_.Add<Label>(ControlName("lblItem", 2 * pair)).caption = ResText(fields.caption);
    for (const int index : {2 * pair, 2 * pair + 1}) {
      form_.Add<TextBox>(ControlName("txtItem", index));
      form_.Add<Button>(ControlName("cmdItem", index));
    }
    ++pair;
  }
}

void FrmFilter139::MakeExecution() {
  const auto& frame = form_.Add<Frame>("ExecuteStatus");
  for (const StateKey& key : kExecutionKeys) {
    auto& box = form_.Add<CheckBox>(std::string(key.control));
    box.container = &frame;
    box.Click.Connect([this, &box] { KeepOneExecution(box); });
  }
}

// --- Load

void FrmFilter139::Load() {
  if (control_) return;
  MakeControls();
  ApplyStrings();
  Ignoring([this] { ApplyFormFont(form_.AsObject()); });
  FillBoxes();
  group_pane_->SetLevelBounds(0, GroupPane::kDeepestLevel);
  group_pane_->LoadGroupByItems();
  ShowStartValues();
  result_ = std::make_shared<Dictionary>();
  result_->Set("OK", false);
  ConnectControl();
  control_->SetRptID(rpt_id_);
  control_->Init(ReportFilter::kByCodes);
}

void FrmFilter139::ApplyStrings() {
  form_.caption = ResText("过滤");
  for (const LabelCaption& label : kLabels) form_.Get<Label>(label.control).caption = ResText(label.caption);
  form_.Get<Frame>("ExecuteStatus").caption = ResText("执行状态");
  Check("chkUnexecuted").caption = ResText("未执行");
  Check("chkPartialexecution").caption = ResText("部分执行");
  Check("chkFullyexecuted").caption = ResText("完全执行");
  group_pane_->ApplyStrings();
}

void FrmFilter139::FillBoxes() {
  for (const ComboBoxRows& rows : kBoxes) {
    for (const std::string_view row : rows.rows) Box(rows.control).AddItem(ResText(row), 0);
  }
}

void FrmFilter139::ShowStartValues() {
  const Date today = Runtime::Current().GetPlatform().Now();
  form_.Get<DatePicker>("DtpBDate").SetValue(today);
  form_.Get<DatePicker>("DtpEDate").SetValue(today);
  for (const StateKey& key : kExecutionKeys) Check(key.control).SetValue(1);
  form_.Get<TextBox>("txtlevel", 1).SetText(Join(GroupPane::kDeepestLevel));
  form_.Get<TextBox>("txtlevel", 0).SetText("1");
  OnReset();
}

void FrmFilter139::ConnectControl() {
  control_->Reset.Connect([this] { OnReset(); });
  control_->Validate.Connect([this](bool& cancel) { OnValidate(cancel); });
  control_->Confirmed.Connect([this](bool& cancel) { OnConfirm(cancel); });
  control_->Load.Connect([this](const Dictionary& state) { OnLoad(state); });
  control_->Save.Connect([this](Dictionary& state) { OnSave(state); });
  control_->BeforeLookUp.Connect([](ReportFilter::LookUpRequest& request) { OnBeforeLookUp(request); });
  control_->Closed.Connect([this] { Unload(); });
  for (int i = 0; i < 2 * static_cast<int>(kFields.size()); ++i) {
    control_->Watch(i, form_.Get<TextBox>("txtItem", i), form_.Get<Button>("cmdItem", i));
  }
}

// The language's font has gone over the form at load.
void FrmFilter139::Activate() {
  for (const auto& control : form_.Controls()) {
    const bool is_meant =
        std::find(kInControlFont.begin(), kInControlFont.end(), control->TypeName()) != kInControlFont.end();
    if (!is_meant) continue;
    control->font_size = kFontSize;
    control->bold = false;
  }
}

// --- What a report asks

void FrmFilter139::Confirm() {
  control_->Confirm();
}

void FrmFilter139::ShowFinish(std::string_view plan) {
  Load();
  control_->Plans().LoadPlan(plan);
  Confirm();
}

std::string FrmFilter139::CurrentPlan() const {
  return control_ ? control_->Plans().CurrentPlan() : std::string();
}

PlanListPane* FrmFilter139::Plans() {
  return control_ ? &control_->Plans() : nullptr;
}

// A choice is a plan that differs from what shows in one value.
bool FrmFilter139::Choose(std::string_view key, const Variant& value) {
  if (EqualNames(key, "SumMode")) {
    if (!value.IsNumber() || value.ToDouble() != kByItemClass.code) return false;
    Box("cmbGroupBy").SetListIndex(0);
    return true;
  }
  const DictionaryRef state = control_->State();
  if (!state->Lookup(key) || value.IsObject()) return false;
  state->Set(key, value);
  OnLoad(*state);
  return control_->State()->Get(key).TextOrEmpty() == value.TextOrEmpty();
}

std::string FrmFilter139::ReplaceSpecailSql(std::string_view text) {
  return Replace(text, "'", "''");
}

std::optional<std::string> FrmFilter139::SelectList(std::int32_t list_id, std::string_view search) {
  const auto found = std::find_if(kBillLists.begin(), kBillLists.end(),
                                  [list_id](const BillList& list) { return list.list_id == list_id; });
  return found == kBillLists.end() ? std::nullopt : LookUpBillNumber(*found, search);
}

// --- Rules

// A list without any state of execution would always be empty.
void FrmFilter139::KeepOneExecution(CheckBox& unchecked) {
  const bool is_any = std::any_of(kExecutionKeys.begin(), kExecutionKeys.end(),
                                  [this](const StateKey& key) { return Check(key.control).IsChecked(); });
  if (!is_any) unchecked.SetValue(1);
}

// An order that is not audited is always open.
void FrmFilter139::CoupleCheckClose() {
  ListControl& closing = Box("cmbCheckClose");
  const bool is_held = Box("cmbCheckState").ListIndex() == kNotAudited;
  if (is_held) closing.SetListIndex(kOpen);
  closing.enabled = !is_held;
}

bool FrmFilter139::IsPlainList() const {
  return !Check("chkGroupBy").IsChecked() && !Check("chkOnlyShowSum").IsChecked();
}

void FrmFilter139::EnableExecution() {
  const bool is_plain = IsPlainList();
  form_.Get<Frame>("ExecuteStatus").enabled = is_plain;
  for (const StateKey& key : kExecutionKeys) Check(key.control).enabled = is_plain;
}

// --- Events of the control

void FrmFilter139::OnReset() {
  for (const ComboBoxRows& rows : kBoxes) Box(rows.control).SetListIndex(rows.start);
  for (const StateKey& key : kGroupKeys) Check(key.control).SetValue(0);
  Box("cmbGroupBy").SetListIndex(0);
  group_pane_->ApplyGroupBy();
}

void FrmFilter139::OnValidate(bool& cancel) {
  group_pane_->FixZeroLevels();
  if (!Check("chkGroupBy").IsChecked() || Box("cmbGroupBy").ListIndex() >= 0) return;
  Runtime::Current().GetToolkit().MessageBox(ResText("汇总依据不能为空"), kBoxInformation,
                                             ResText(kHintTitle));
  cancel = true;
}

void FrmFilter139::OnConfirm(bool cancel) {
  filter_string_ = control_->FilterString();
  result_ = control_->Conditions();
  result_->Set("OK", !cancel);
  const std::int32_t sum_mode = group_pane_->SumMode();
  result_->Set("SumMode", sum_mode);
  result_->Set("Mode", NumberOf(*result_, "Mode"));
  if (sum_mode != 0) result_->Set("SumField", SumFieldOf(sum_mode));
  result_->Set("exeStatusFilter", IsPlainList());
}

// What a plan lacks is empty or 0; a value that a control does not take is left out.
void FrmFilter139::OnLoad(const Dictionary& state) {
  const auto text = [&state](std::string_view key) { return state.Get(key).TextOrEmpty(); };
  const auto set_text = [this, &text](int index, std::string_view array, std::string_view key) {
    form_.Get<TextBox>(array, index).SetText(text(key));
  };
  const auto set_date = [this, &text](std::string_view control, std::string_view key) {
    if (const std::optional<Date> date = Date::Parse(text(key))) {
      form_.Get<DatePicker>(control).SetValue(*date);
    }
  };
  const auto select = [this, &state](std::string_view box, std::string_view key) {
    Ignoring([&] { Box(box).SetListIndex(NumberOf(state, key)); });
  };

  set_date("DtpBDate", "BDate");
  set_date("DtpEDate", "EDate");
  for (int index = 0; const FieldPair& fields : kFields) {
    set_text(index++, "txtItem", fields.begin_key);
    set_text(index++, "txtItem", fields.end_key);
  }
  LoadExecution(state);
  // The begin level follows the end level downwards.
  set_text(1, "txtlevel", "ELevel");
  set_text(0, "txtlevel", "BLevel");
  select("cmbFSaleStyle", "FSaleStyle");
  select("cmbCommodityType", "CommodityType");
  // The audit state decides over the closing.
  select("cmbCheckClose", "CheckClose");
  select("cmbCheckState", "CheckState");
  for (const StateKey& key : kGroupKeys) {
    Ignoring([&] { Check(key.control).SetValue(NumberOf(state, key.key)); });
  }
  select("cmbGroupBy", "GroupByListIndex");
  group_pane_->ApplyGroupBy();
}

// The checked ones first: the last one that is unchecked while no other is checked would stay.
void FrmFilter139::LoadExecution(const Dictionary& state) {
  for (const int wanted : {1, 0}) {
    for (const StateKey& key : kExecutionKeys) {
      Ignoring([&] {
        if (NumberOf(state, key.key) == wanted) Check(key.control).SetValue(wanted);
      });
    }
  }
}

void FrmFilter139::OnSave(Dictionary& state) const {
  const auto number = [this](int level) { return Val(form_.Get<TextBox>("txtlevel", level).Text()); };
  const auto check = [this](std::string_view name) { return std::int32_t{Check(name).Value()}; };
  const auto row = [this](std::string_view name) { return std::int32_t{Box(name).ListIndex()}; };

  state.Set("BDate", form_.Get<DatePicker>("DtpBDate").Text());
  state.Set("EDate", form_.Get<DatePicker>("DtpEDate").Text());
  for (int index = 0; const FieldPair& fields : kFields) {
    for (const std::string_view key : {fields.begin_key, fields.end_key}) {
      state.Set(key, ReplaceSpecailSql(form_.Get<TextBox>("txtItem", index++).Text()));
    }
  }
  for (const StateKey& key : kExecutionKeys) state.Set(key.key, check(key.control));
  state.Set("BLevel", number(0));
  state.Set("ELevel", number(1));
  state.Set("FSaleStyle", row("cmbFSaleStyle"));
  for (const StateKey& key : kGroupKeys) state.Set(key.key, check(key.control));
  state.Set("GroupByListIndex", row("cmbGroupBy"));
  state.Set("CheckState", row("cmbCheckState"));
  state.Set("CheckClose", row("cmbCheckClose"));
  state.Set("CommodityType", row("cmbCommodityType"));
}

void FrmFilter139::OnBeforeLookUp(ReportFilter::LookUpRequest& request) {
  const FieldPair& fields = kFields.at(static_cast<std::size_t>(request.index) / 2);
  request.item_class_id = fields.item_class_id;
  request.condition = fields.condition;
  if (fields.item_class_id != kNoClass) return;
  const std::optional<std::string> number = SelectList(kOrderList, request.field.Text());
  if (number) request.field.SetText(*number);
}

}  // namespace salerpt
